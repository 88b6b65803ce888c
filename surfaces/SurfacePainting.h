// What the painted surfaces (a widget's picture, a printed page) share: how a Skelda colour, a
// line width and a fill style become a Qt pen and brush, and the size of a circle's axes.
#pragma once

#include <QBrush>
#include <QColor>
#include <QPen>
#include <QStringList>

#include "Surface.h"

namespace skelda {

// System colours: the top bit set and the number of a colour of the desktop's scheme below it.
// The printed report edges its bars with the window background this way.
inline constexpr Color vbWindowBackground = Color(0x80000005u);
inline constexpr Color vbWindowText = Color(0x80000008u);
inline constexpr Color vbButtonFace = Color(0x8000000Fu);
inline constexpr Color vbButtonText = Color(0x80000012u);

// The lines of a text to print, split at CR LF, at a lone CR and at a lone LF.
QStringList LinesOf(const QString& text);

// The Qt colour of a Skelda colour. A system colour is taken from the application's palette; an
// unknown system colour is black.
QColor ToQColor(Color color);

// The pen of an outline drawn width device pixels wide. Lines end round, boxes have sharp
// corners, as on the screens the program was drawn for.
QPen LinePen(Color color, double width);
QPen EdgePen(Color color, double width);

// The brush of an inside: FillStyle 0 solid, 1 nothing, 2 to 7 the hatches (horizontal,
// vertical, upward and downward diagonal, cross, diagonal cross) in the fill colour.
QBrush FillBrush(int fillStyle, Color fillColor);

// Checks the values that DrawWidth and FillStyle may take: "Invalid property value" (380) for a
// width below 1 or a style outside 0 to 7.
void CheckDrawWidth(int width);
void CheckFillStyle(int style);

// The half axes of a circle of radius r with the given aspect (height over width): above 1 the
// radius is the vertical half axis, below 1 the horizontal one. A non-positive aspect is an
// "Invalid procedure call or argument" (5).
struct HalfAxes {
    double horizontal;
    double vertical;
};
HalfAxes CircleAxes(double radius, double aspect);

}  // namespace skelda
