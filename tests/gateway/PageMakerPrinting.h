// Texts print as text when an expectation fails.
#pragma once

#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
