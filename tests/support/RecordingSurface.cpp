#include "RecordingSurface.h"

#include <algorithm>

#include "Failure.h"
#include "SurfacePainting.h"

namespace skelda {

const char* NameOf(DrawOp op) {
    switch (op) {
        case DrawOp::Line:
            return "Line";
        case DrawOp::Box:
            return "Box";
        case DrawOp::Circle:
            return "Circle";
        case DrawOp::Cls:
            return "Cls";
        case DrawOp::Print:
            return "Print";
        case DrawOp::SetDrawWidth:
            return "SetDrawWidth";
        case DrawOp::SetFillStyle:
            return "SetFillStyle";
        case DrawOp::SetFillColor:
            return "SetFillColor";
        case DrawOp::SetForeColor:
            return "SetForeColor";
        case DrawOp::SetFontSize:
            return "SetFontSize";
        case DrawOp::SetCurrentX:
            return "SetCurrentX";
        case DrawOp::SetCurrentY:
            return "SetCurrentY";
        case DrawOp::EndDoc:
            return "EndDoc";
        case DrawOp::KillDoc:
            return "KillDoc";
    }
    return "?";
}

std::ostream& operator<<(std::ostream& out, DrawOp op) { return out << NameOf(op); }

void PrintTo(const DrawCall& call, std::ostream* out) {
    *out << call.op << " (" << call.x1 << ", " << call.y1 << ")";
    if (call.op == DrawOp::Line || call.op == DrawOp::Box) *out << "-(" << call.x2 << ", " << call.y2 << ")";
    if (call.op == DrawOp::Circle) *out << " r " << call.radius << " aspect " << call.aspect;
    if (call.color) *out << " colour " << *call.color;
    if (call.op == DrawOp::Print) *out << " \"" << call.text.toStdString() << "\"";
    *out << " value " << call.value << " [width " << call.drawWidth << ", fill style " << call.fillStyle << ", fill "
         << call.fillColor << ", fore " << call.foreColor << ", font " << call.fontSize << "]";
}

DrawCall& RecordingSurface::Record(DrawOp op) {
    DrawCall call;
    call.op = op;
    call.drawWidth = drawWidth_;
    call.fillStyle = fillStyle_;
    call.fillColor = fillColor_;
    call.foreColor = foreColor_;
    call.fontSize = fontSize_;
    calls_.push_back(call);
    return calls_.back();
}

void RecordingSurface::SetDrawWidth(int width) {
    CheckDrawWidth(width);
    Record(DrawOp::SetDrawWidth).value = width;
    drawWidth_ = width;
}

void RecordingSurface::SetFillStyle(int style) {
    CheckFillStyle(style);
    Record(DrawOp::SetFillStyle).value = style;
    fillStyle_ = style;
}

void RecordingSurface::SetFillColor(Color color) {
    Record(DrawOp::SetFillColor).color = color;
    fillColor_ = color;
}

void RecordingSurface::SetForeColor(Color color) {
    Record(DrawOp::SetForeColor).color = color;
    foreColor_ = color;
}

void RecordingSurface::Line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    DrawCall& call = Record(DrawOp::Line);
    call.x1 = x1, call.y1 = y1, call.x2 = x2, call.y2 = y2;
    call.color = color;
    currentX_ = x2;
    currentY_ = y2;
}

void RecordingSurface::Box(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    DrawCall& call = Record(DrawOp::Box);
    call.x1 = x1, call.y1 = y1, call.x2 = x2, call.y2 = y2;
    call.color = color;
    currentX_ = x2;
    currentY_ = y2;
}

void RecordingSurface::Circle(double x, double y, double radius, std::optional<Color> color, double aspect) {
    CircleAxes(radius, aspect);  // fails as the real surfaces do on a bad aspect
    DrawCall& call = Record(DrawOp::Circle);
    call.x1 = x, call.y1 = y;
    call.radius = radius;
    call.aspect = aspect;
    call.color = color;
    currentX_ = x;
    currentY_ = y;
}

void RecordingSurface::Cls() {
    Record(DrawOp::Cls);
    currentX_ = 0;
    currentY_ = 0;
}

void RecordingSurface::SetCurrentX(double x) {
    Record(DrawOp::SetCurrentX).value = x;
    currentX_ = x;
}

void RecordingSurface::SetCurrentY(double y) {
    Record(DrawOp::SetCurrentY).value = y;
    currentY_ = y;
}

void RecordingSurface::SetFontSize(double points) {
    if (!(points > 0)) throw RuntimeError(380, QStringLiteral("Invalid property value"));
    Record(DrawOp::SetFontSize).value = points;
    fontSize_ = points;
}

double RecordingSurface::TextWidth(const QString& text) const {
    qsizetype longest = 0;
    for (const QString& line : LinesOf(text)) longest = std::max(longest, line.size());
    return double(longest) * CharWidthAt8 * fontSize_ / 8;
}

double RecordingSurface::TextHeight(const QString& text) const {
    return double(LinesOf(text).size()) * LineHeightAt8 * fontSize_ / 8;
}

void RecordingSurface::Print(const QString& text) {
    DrawCall& call = Record(DrawOp::Print);
    call.x1 = currentX_, call.y1 = currentY_;
    call.text = text;
    currentY_ += TextHeight(text);
    currentX_ = 0;
}

void RecordingSurface::SetPage(double width, double height, double scaleWidth, double scaleHeight) {
    width_ = width;
    height_ = height;
    scaleWidth_ = scaleWidth;
    scaleHeight_ = scaleHeight;
}

void RecordingSurface::EndDoc() {
    Record(DrawOp::EndDoc);
    currentX_ = 0;
    currentY_ = 0;
}

void RecordingSurface::KillDoc() {
    Record(DrawOp::KillDoc);
    currentX_ = 0;
    currentY_ = 0;
}

std::vector<DrawCall> RecordingSurface::Calls(DrawOp op) const {
    std::vector<DrawCall> found;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(found),
                 [op](const DrawCall& c) { return c.op == op; });
    return found;
}

QStringList RecordingSurface::Texts() const {
    QStringList texts;
    for (const DrawCall& call : calls_)
        if (call.op == DrawOp::Print) texts << call.text;
    return texts;
}

int RecordingSurface::Count(DrawOp op) const {
    return int(std::count_if(calls_.begin(), calls_.end(), [op](const DrawCall& c) { return c.op == op; }));
}

std::vector<DrawOp> RecordingSurface::Ops() const {
    std::vector<DrawOp> ops;
    ops.reserve(calls_.size());
    for (const DrawCall& call : calls_) ops.push_back(call.op);
    return ops;
}

}  // namespace skelda
