// Drawing surfaces: the one interface through which Skelda draws, on a form, a picture box, the
// printer or, in tests, a recording.
//
// Coordinates are in the surface's own scale (twips on forms and paper, about 15 to a screen
// pixel). Colours are RGB values, red + 256 x green + 65536 x blue. A drawing lasts until the
// next Cls, also when the window is covered: nothing redraws it.
#pragma once

#include "Colour.h"

#include <QString>

#include <optional>

namespace skelda {

enum FillStyles : int { vbFSSolid = 0, vbFSTransparent = 1 };

class Surface {
public:
    virtual ~Surface() = default;

    virtual int DrawWidth() const = 0;
    virtual void SetDrawWidth(int width) = 0;
    virtual int FillStyle() const = 0;  // 0 solid, 1 transparent (the default)
    virtual void SetFillStyle(int style) = 0;
    virtual Color FillColor() const = 0;
    virtual void SetFillColor(Color color) = 0;
    virtual Color ForeColor() const = 0;  // the colour of a line or edge drawn with none given
    virtual void SetForeColor(Color color) = 0;

    // A straight line. Leaves the current point at (x2, y2).
    virtual void Line(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) = 0;
    // A box with corners (x1, y1) and (x2, y2): edge in the colour (or ForeColor), inside filled
    // according to FillStyle and FillColor. Leaves the current point at (x2, y2).
    virtual void Box(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) = 0;
    // The box from a point by a step: corners (x, y) and (x + dx, y + dy).
    void BoxStep(double x, double y, double dx, double dy, std::optional<Color> color = {}) {
        Box(x, y, x + dx, y + dy, color);
    }
    // A circle of radius r (an ellipse when aspect isn't 1: height = aspect x width), edge in the
    // colour (or ForeColor), filled according to FillStyle and FillColor. Leaves the current
    // point at the centre.
    virtual void Circle(double x, double y, double radius, std::optional<Color> color = {}, double aspect = 1.0) = 0;
    // Clears all that was drawn, down to the background.
    virtual void Cls() = 0;

    // Text, for the printed report.
    virtual double CurrentX() const = 0;
    virtual double CurrentY() const = 0;
    virtual void SetCurrentX(double x) = 0;
    virtual void SetCurrentY(double y) = 0;
    virtual double FontSize() const = 0;
    virtual void SetFontSize(double points) = 0;
    virtual double TextWidth(const QString& text) const = 0;
    virtual double TextHeight(const QString& text) const = 0;
    // Writes the text at the current point, then moves to the start of the next line.
    virtual void Print(const QString& text) = 0;
};

}  // namespace skelda
