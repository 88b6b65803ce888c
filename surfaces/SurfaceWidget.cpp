#include "SurfaceWidget.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>
#include <vector>

#include "Failure.h"
#include "SurfacePainting.h"

namespace skelda {

namespace {
// The drawing is kept at 96 dots an inch whatever the screen, so that a font size gives the same
// text size in pixels everywhere.
constexpr int DotsPerMeter96 = 3780;

void CheckPositive(double value) {
    if (!(value > 0)) throw RuntimeError(InvalidPropertyValue);
}
}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent), backColor_(vbButtonFace) {
    // The widget paints all of itself from the drawing: Qt needn't clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    drawing_ = BlankPicture(size().expandedTo(QSize(1, 1)));
}

void SurfaceWidget::Line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    CoverWidget();
    const QPen pen = LinePen(color.value_or(foreColor_), PenWidth());
    const QPointF from = ScaleToPixel(x1, y1), to = ScaleToPixel(x2, y2);
    const bool point = x1 == x2 && y1 == y2;
    Keep([pen, from, to, point](QPainter& painter) {
        painter.setPen(pen);
        if (point)
            painter.drawPoint(from);
        else
            painter.drawLine(from, to);
    });
    currentX_ = x2;
    currentY_ = y2;
}

void SurfaceWidget::Box(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    CoverWidget();
    const QPen pen = EdgePen(color.value_or(foreColor_), PenWidth());
    const QBrush brush = FillBrush(fillStyle_, fillColor_);
    const QRectF box = QRectF(ScaleToPixel(x1, y1), ScaleToPixel(x2, y2)).normalized();
    Keep([pen, brush, box](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawRect(box);
    });
    currentX_ = x2;
    currentY_ = y2;
}

void SurfaceWidget::Circle(double x, double y, double radius, std::optional<Color> color, double aspect) {
    const HalfAxes axes = CircleAxes(radius, aspect);
    CoverWidget();
    const QPen pen = LinePen(color.value_or(foreColor_), PenWidth());
    const QBrush brush = FillBrush(fillStyle_, fillColor_);
    const QPointF centre = ScaleToPixel(x, y);
    // Both half axes are measured in horizontal units, as the radius is.
    const double rx = axes.horizontal / unitsPerPixelX_, ry = axes.vertical / unitsPerPixelX_;
    Keep([pen, brush, centre, rx, ry](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawEllipse(centre, rx, ry);
    });
    currentX_ = x;
    currentY_ = y;
}

void SurfaceWidget::Cls() {
    kept_.clear();
    drawing_ = BlankPicture(drawing_.size().expandedTo(size()));
    currentX_ = 0;
    currentY_ = 0;
    Changed();
}

QFont SurfaceWidget::DrawingFont() const {
    QFont f = font();
    if (fontSize_) f.setPointSizeF(*fontSize_);
    return f;
}

double SurfaceWidget::FontSize() const {
    const QFont f = DrawingFont();
    if (f.pointSizeF() > 0) return f.pointSizeF();
    return f.pixelSize() * 72.0 / 96.0;
}

void SurfaceWidget::SetFontSize(double points) {
    CheckPositive(points);
    fontSize_ = points;
}

double SurfaceWidget::TextWidth(const QString& text) const {
    const QFontMetricsF metrics(DrawingFont(), &drawing_);
    double widest = 0;
    for (const QString& line : LinesOf(text)) widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest * unitsPerPixelX_;
}

double SurfaceWidget::TextHeight(const QString& text) const {
    const QFontMetricsF metrics(DrawingFont(), &drawing_);
    return double(LinesOf(text).size()) * metrics.height() * unitsPerPixelY_;
}

void SurfaceWidget::Print(const QString& text) {
    CoverWidget();
    const QFont f = DrawingFont();
    const QColor colour = ToQColor(foreColor_);
    const QFontMetricsF metrics(f, &drawing_);
    std::vector<std::pair<QPointF, QString>> written;
    double x = currentX_, y = currentY_;
    for (const QString& line : LinesOf(text)) {
        const QPointF top = ScaleToPixel(x, y);
        written.emplace_back(QPointF(top.x(), top.y() + metrics.ascent()), line);
        y += metrics.height() * unitsPerPixelY_;
        x = 0;
    }
    Keep([f, colour, written = std::move(written)](QPainter& painter) {
        painter.setFont(f);
        painter.setPen(colour);
        for (const auto& [baseline, line] : written) painter.drawText(baseline, line);
    });
    currentX_ = 0;
    currentY_ = y;
}

void SurfaceWidget::SetBackColor(Color color) {
    backColor_ = color;
    Cls();
}

void SurfaceWidget::SetPicture(const QImage& picture) {
    picture_ = picture;
    Cls();
}

void SurfaceWidget::SetScale(double unitsPerPixelX, double unitsPerPixelY) {
    CheckPositive(unitsPerPixelX);
    CheckPositive(unitsPerPixelY);
    unitsPerPixelX_ = unitsPerPixelX;
    unitsPerPixelY_ = unitsPerPixelY;
}

void SurfaceWidget::SetScaleWidth(double units) {
    CheckPositive(units);
    unitsPerPixelX_ = units / std::max(1, width());
}

void SurfaceWidget::SetScaleHeight(double units) {
    CheckPositive(units);
    unitsPerPixelY_ = units / std::max(1, height());
}

QPointF SurfaceWidget::PixelToScale(const QPointF& pixel) const {
    return {pixel.x() * unitsPerPixelX_, pixel.y() * unitsPerPixelY_};
}

QPointF SurfaceWidget::ScaleToPixel(double x, double y) const { return {x / unitsPerPixelX_, y / unitsPerPixelY_}; }

QImage SurfaceWidget::Snapshot() const {
    CoverWidget();
    PlayKept();
    return drawing_.copy(0, 0, width(), height());
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
    CoverWidget();
    PlayKept();
    QPainter painter(this);
    painter.drawImage(event->rect(), drawing_, event->rect());
}

void SurfaceWidget::resizeEvent(QResizeEvent* event) {
    CoverWidget();
    QWidget::resizeEvent(event);
}

void SurfaceWidget::CoverWidget() const {
    if (drawing_.width() >= width() && drawing_.height() >= height()) return;
    // What was asked for before stands on the drawing as it was then, clipped to it.
    PlayKept();
    QImage grown = BlankPicture(drawing_.size().expandedTo(size()));
    {
        QPainter painter(&grown);
        painter.drawImage(0, 0, drawing_);
    }
    drawing_ = std::move(grown);
}

void SurfaceWidget::Keep(Stroke stroke) {
    kept_.push_back(std::move(stroke));
    // A surface drawn on for long without being cleared or looked at plays what it keeps, so
    // that the strokes it keeps stay few.
    constexpr size_t kMostKept = 4096;
    if (kept_.size() >= kMostKept) PlayKept();
    Changed();
}

void SurfaceWidget::PlayKept() const {
    if (kept_.empty()) return;
    QPainter painter(&drawing_);
    for (const Stroke& stroke : kept_) stroke(painter);
    kept_.clear();
}

QImage SurfaceWidget::BlankPicture(QSize size) const {
    QImage blank(size, QImage::Format_RGB32);
    blank.setDotsPerMeterX(DotsPerMeter96);
    blank.setDotsPerMeterY(DotsPerMeter96);
    blank.fill(ToQColor(backColor_));
    if (!picture_.isNull()) {
        QPainter painter(&blank);
        painter.drawImage(0, 0, picture_);
    }
    return blank;
}

}  // namespace skelda
