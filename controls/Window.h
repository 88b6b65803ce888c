// Window placement helpers that the forms share.
#pragma once

#include <QWidget>

namespace skelda {

// Puts Fenetre above all other windows and shows it, in its place and at its size, without
// giving it the focus: the window the user was typing in keeps the keyboard. The window stays on
// top until it closes. Never fails.
void GarderAuDessus(QWidget& Fenetre);

// Places the window Fenetre in the bottom right corner of its screen: the outer edges of its frame
// (title bar and borders included) Marge twips from the screen's right and bottom edges. The whole
// screen counts, taskbars and panels included, so the window may stand partly under one. A window
// that was never shown has no frame yet: it is placed from its size now, and placed again from the
// frame the window manager gives it when it first comes to the screen, so that its bottom edge
// doesn't fall below the screen by the height of the title bar. Never fails.
void PlacerEnBasADroite(QWidget& Fenetre, double Marge);

}  // namespace skelda
