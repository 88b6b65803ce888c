// Window placement helpers that the forms share.
#pragma once

#include <QWidget>

namespace skelda {

// Puts Fenetre above all other windows and shows it, in its place and at its size, without
// giving it the focus: the window the user was typing in keeps the keyboard. The window stays on
// top until it closes. Never fails.
void GarderAuDessus(QWidget& Fenetre);

}  // namespace skelda
