// The poll cycle's timers and socket, found among the main window's children by their names.
#pragma once

#include "Controls.h"
#include "Winsock.h"

#include <QWidget>

namespace skelda::test {

inline Timer& T(QWidget& form) { return *form.findChild<Timer*>(QStringLiteral("T")); }
inline Timer& TimerWinsock(QWidget& form) { return *form.findChild<Timer*>(QStringLiteral("TimerWinsock")); }
inline Winsock& W(QWidget& form) { return *form.findChild<Winsock*>(QStringLiteral("W")); }

}  // namespace skelda::test
