// The wind arrow: a stroke through the centre and a dot on the side the wind comes from.
#include "Arrow.h"

#include "Convert.h"

#include <cmath>

namespace skelda {

namespace {
// The program's own value of pi, kept as it is: widening it would move every arrow by a hair.
constexpr double Pi = 3.141592;
constexpr Color ArrowColour = 150;  // red 150, green 0, blue 0
constexpr int16_t DefaultLength = 140;
constexpr double DotRadius = 30;
}  // namespace

void TracerFleche(double X, double Y, int16_t Angle, Surface& Surface, int16_t& Longueur) {
    // The angle turned a quarter and reversed, R = -(Angle + 90) degrees. The sum and the product
    // are 16-bit, so a large Angle overflows here, before anything is drawn.
    const int16_t turned = Mul16(Add16(Angle, 90).Value(), -2).Value();
    const double R = turned * Pi / 360;

    // The default length also changes the caller's variable.
    if (Longueur <= 0) Longueur = DefaultLength;

    // The two ends, each half the reach away from the centre.
    const double D = Longueur * 0.9;
    const double ax = X + D / 2 * std::cos(R);
    const double ay = Y - D / 2 * std::sin(R);
    const double bx = X - D / 2 * std::cos(R);
    const double by = Y + D / 2 * std::sin(R);

    // The stroke, then the dot at B, filled solid; the dot's edge takes the surface's current
    // drawing colour, as no colour is given for it.
    Surface.SetDrawWidth(1);
    Surface.Line(ax, ay, bx, by, ArrowColour);
    Surface.SetFillStyle(vbFSSolid);
    Surface.SetFillColor(ArrowColour);
    Surface.Circle(bx, by, DotRadius);
}

}  // namespace skelda
