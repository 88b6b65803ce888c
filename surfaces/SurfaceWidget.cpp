#include "SurfaceWidget.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "Failure.h"
#include "SurfacePainting.h"

namespace skelda {

namespace {
// The drawing is kept at 96 dots an inch whatever the screen, so that a font size gives the same
// text size in pixels everywhere.
constexpr int DotsPerMeter96 = 3780;

QStringList LinesOf(const QString& text) {
    QString unified = text;
    unified.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return unified.split(QLatin1Char('\n'));
}

void CheckPositive(double value) {
    if (!(value > 0)) throw RuntimeError(InvalidPropertyValue);
}
}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent), backColor_(vbButtonFace) {
    // The widget paints all of itself from the drawing: Qt needn't clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    drawing_ = BlankPicture(size().expandedTo(QSize(1, 1)));
}

SurfaceWidget::~SurfaceWidget() = default;

QPainter& SurfaceWidget::Painter() {
    if (!painter_) painter_ = std::make_unique<QPainter>(&drawing_);
    return *painter_;
}

void SurfaceWidget::EndPainting() const { painter_.reset(); }

void SurfaceWidget::Line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    CoverWidget();
    QPainter& painter = Painter();
    painter.setPen(LinePen(color.value_or(foreColor_), PenWidth()));
    if (x1 == x2 && y1 == y2)
        painter.drawPoint(ScaleToPixel(x1, y1));
    else
        painter.drawLine(ScaleToPixel(x1, y1), ScaleToPixel(x2, y2));
    currentX_ = x2;
    currentY_ = y2;
    Changed();
}

void SurfaceWidget::Box(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    CoverWidget();
    QPainter& painter = Painter();
    painter.setPen(EdgePen(color.value_or(foreColor_), PenWidth()));
    painter.setBrush(FillBrush(fillStyle_, fillColor_));
    painter.drawRect(QRectF(ScaleToPixel(x1, y1), ScaleToPixel(x2, y2)).normalized());
    currentX_ = x2;
    currentY_ = y2;
    Changed();
}

void SurfaceWidget::Circle(double x, double y, double radius, std::optional<Color> color, double aspect) {
    const HalfAxes axes = CircleAxes(radius, aspect);
    CoverWidget();
    QPainter& painter = Painter();
    painter.setPen(LinePen(color.value_or(foreColor_), PenWidth()));
    painter.setBrush(FillBrush(fillStyle_, fillColor_));
    // Both half axes are measured in horizontal units, as the radius is.
    painter.drawEllipse(ScaleToPixel(x, y), axes.horizontal / unitsPerPixelX_, axes.vertical / unitsPerPixelX_);
    currentX_ = x;
    currentY_ = y;
    Changed();
}

void SurfaceWidget::Cls() {
    EndPainting();
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
    const QStringList lines = LinesOf(text);
    double y = currentY_;
    QPainter& painter = Painter();
    painter.setFont(f);
    painter.setPen(ToQColor(foreColor_));
    const QFontMetricsF metrics(f, &drawing_);
    double x = currentX_;
    for (const QString& line : lines) {
        const QPointF top = ScaleToPixel(x, y);
        painter.drawText(QPointF(top.x(), top.y() + metrics.ascent()), line);
        y += metrics.height() * unitsPerPixelY_;
        x = 0;
    }
    currentX_ = 0;
    currentY_ = y;
    Changed();
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
    EndPainting();
    CoverWidget();
    return drawing_.copy(0, 0, width(), height());
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
    EndPainting();
    CoverWidget();
    QPainter painter(this);
    painter.drawImage(event->rect(), drawing_, event->rect());
}

void SurfaceWidget::resizeEvent(QResizeEvent* event) {
    CoverWidget();
    QWidget::resizeEvent(event);
}

void SurfaceWidget::CoverWidget() const {
    if (drawing_.width() >= width() && drawing_.height() >= height()) return;
    EndPainting();
    QImage grown = BlankPicture(drawing_.size().expandedTo(size()));
    {
        QPainter painter(&grown);
        painter.drawImage(0, 0, drawing_);
    }
    drawing_ = std::move(grown);
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
