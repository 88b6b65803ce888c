// A drawing surface that draws nothing and remembers every call, with its arguments and the
// drawing state at that moment, so that tests can read what a routine drew. It can stand for a
// screen surface and for the printed page alike.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <ostream>
#include <vector>

#include "PageSurface.h"

namespace skelda {

enum class DrawOp {
    Line,
    Box,
    Circle,
    Cls,
    Print,
    SetDrawWidth,
    SetFillStyle,
    SetFillColor,
    SetForeColor,
    SetFontSize,
    SetCurrentX,
    SetCurrentY,
    EndDoc,
    KillDoc,
};
const char* NameOf(DrawOp op);
std::ostream& operator<<(std::ostream& out, DrawOp op);

// One call made on the surface.
struct DrawCall {
    DrawOp op = DrawOp::Line;
    double x1 = 0, y1 = 0;  // Line, Box: the first point; Circle: the centre; Print: where the text starts
    double x2 = 0, y2 = 0;  // Line, Box: the second point
    double radius = 0;      // Circle
    double aspect = 1;      // Circle
    // The colour given, none for the surface's ForeColor; SetFillColor, SetForeColor: the new one.
    std::optional<Color> color;
    double value = 0;  // SetDrawWidth, SetFillStyle, SetFontSize, SetCurrentX, SetCurrentY: the new value
    QString text;      // Print
    // The state in force when the call was made (for a setter, before it).
    int drawWidth = 1;
    int fillStyle = vbFSTransparent;
    Color fillColor = 0;
    Color foreColor = 0;
    double fontSize = 8;

    // The colour the outline was drawn in: the one given, or ForeColor.
    Color EdgeColor() const { return color.value_or(foreColor); }
    // Whether a box or circle was filled (then in fillColor).
    bool Filled() const { return fillStyle != vbFSTransparent; }
};
void PrintTo(const DrawCall& call, std::ostream* out);

class RecordingSurface : public PageSurface {
public:
    // Text metrics are fixed: at 8 points, 100 units a character and 200 a line, in proportion
    // to FontSize for other sizes.
    static constexpr double CharWidthAt8 = 100;
    static constexpr double LineHeightAt8 = 200;

    RecordingSurface() = default;

    // ---- The surface. The state starts as on a new form: DrawWidth 1, FillStyle 1, both colours
    // black, FontSize 8, current point 0, 0. Bad values fail as on the real surfaces (380).
    int DrawWidth() const override { return drawWidth_; }
    void SetDrawWidth(int width) override;
    int FillStyle() const override { return fillStyle_; }
    void SetFillStyle(int style) override;
    Color FillColor() const override { return fillColor_; }
    void SetFillColor(Color color) override;
    Color ForeColor() const override { return foreColor_; }
    void SetForeColor(Color color) override;
    void Line(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    void Box(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    void Circle(double x, double y, double radius, std::optional<Color> color = {}, double aspect = 1.0) override;
    void Cls() override;
    double CurrentX() const override { return currentX_; }
    double CurrentY() const override { return currentY_; }
    void SetCurrentX(double x) override;
    void SetCurrentY(double y) override;
    double FontSize() const override { return fontSize_; }
    void SetFontSize(double points) override;
    double TextWidth(const QString& text) const override;
    double TextHeight(const QString& text) const override;
    void Print(const QString& text) override;

    // ---- The page: an A4 sheet with a quarter inch of margin unless set otherwise.
    double Width() const override { return width_; }
    double Height() const override { return height_; }
    double ScaleWidth() const override { return scaleWidth_; }
    double ScaleHeight() const override { return scaleHeight_; }
    void SetPage(double width, double height, double scaleWidth, double scaleHeight);
    void EndDoc() override;
    void KillDoc() override;

    // ---- What was recorded.
    const std::vector<DrawCall>& Calls() const { return calls_; }
    std::vector<DrawCall> Calls(DrawOp op) const;
    std::vector<DrawCall> Lines() const { return Calls(DrawOp::Line); }
    std::vector<DrawCall> Boxes() const { return Calls(DrawOp::Box); }
    std::vector<DrawCall> Circles() const { return Calls(DrawOp::Circle); }
    std::vector<DrawCall> Prints() const { return Calls(DrawOp::Print); }
    // The texts printed, in order.
    QStringList Texts() const;
    int Count(DrawOp op) const;
    // The operations in order, for a quick look at a sequence.
    std::vector<DrawOp> Ops() const;
    // Forgets the calls; the state stays.
    void Clear() { calls_.clear(); }

private:
    DrawCall& Record(DrawOp op);  // a new call with the present state, kept

    int drawWidth_ = 1;
    int fillStyle_ = vbFSTransparent;
    Color fillColor_ = 0;
    Color foreColor_ = 0;
    double fontSize_ = 8;
    double currentX_ = 0;
    double currentY_ = 0;
    double width_ = 11906;
    double height_ = 16838;
    double scaleWidth_ = 11906 - 720;
    double scaleHeight_ = 16838 - 720;
    std::vector<DrawCall> calls_;
};

}  // namespace skelda
