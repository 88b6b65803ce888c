// The settable state that every painted surface keeps the same way: the line width, the fill,
// the two colours and the current point. Base is Surface or one of its refinements.
#pragma once

#include "Surface.h"
#include "SurfacePainting.h"

namespace skelda {

// DrawWidth is 1 and up, FillStyle 0 solid, 1 transparent (the start), 2 to 7 hatched; a value
// outside is an "Invalid property value" (380). ForeColor and FillColor start black.
template <class Base>
class SurfaceState : public Base {
public:
    int DrawWidth() const override { return drawWidth_; }
    void SetDrawWidth(int width) override {
        CheckDrawWidth(width);
        drawWidth_ = width;
    }
    int FillStyle() const override { return fillStyle_; }
    void SetFillStyle(int style) override {
        CheckFillStyle(style);
        fillStyle_ = style;
    }
    Color FillColor() const override { return fillColor_; }
    void SetFillColor(Color color) override { fillColor_ = color; }
    Color ForeColor() const override { return foreColor_; }
    void SetForeColor(Color color) override { foreColor_ = color; }

    double CurrentX() const override { return currentX_; }
    double CurrentY() const override { return currentY_; }
    void SetCurrentX(double x) override { currentX_ = x; }
    void SetCurrentY(double y) override { currentY_ = y; }

protected:
    int drawWidth_ = 1;
    int fillStyle_ = vbFSTransparent;
    Color fillColor_ = 0;
    Color foreColor_ = 0;
    double currentX_ = 0;
    double currentY_ = 0;
};

}  // namespace skelda
