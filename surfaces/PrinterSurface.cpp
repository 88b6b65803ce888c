#include "PrinterSurface.h"

#include "Printer.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "Failure.h"
#include "SurfacePainting.h"

namespace skelda {

namespace {
constexpr double TwipsPerInch = 1440;
constexpr double TwipsPerPoint = 20;
// DrawWidth counts the dots of an ordinary laser printer, so a line is as thick on any driver.
constexpr double DrawWidthDotsPerInch = 600;

QFont DefaultPrinterFont() {
    QFont f = QGuiApplication::font();
    f.setPointSizeF(10);
    return f;
}
}  // namespace

PrinterSurface::PrinterSurface()
    : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)), font_(DefaultPrinterFont()) {}

PrinterSurface::PrinterSurface(const QString& pdfFile)
    : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)), font_(DefaultPrinterFont()) {
    printer_->setOutputFormat(QPrinter::PdfFormat);
    printer_->setOutputFileName(pdfFile);
}

PrinterSurface::~PrinterSurface() = default;

std::shared_ptr<PageSurface> SystemPrinter::NewPage() { return std::make_shared<PrinterSurface>(); }

double PrinterSurface::DevicePerTwip() const { return printer_->resolution() / TwipsPerInch; }

double PrinterSurface::PenWidth() const { return drawWidth_ * printer_->resolution() / DrawWidthDotsPerInch; }

void PrinterSurface::Line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    const double k = DevicePerTwip();
    const QPen pen = LinePen(color.value_or(foreColor_), PenWidth());
    const QLineF line(x1 * k, y1 * k, x2 * k, y2 * k);
    Keep([pen, line](QPainter& painter) {
        painter.setPen(pen);
        painter.drawLine(line);
    });
    currentX_ = x2;
    currentY_ = y2;
}

void PrinterSurface::Box(double x1, double y1, double x2, double y2, std::optional<Color> color) {
    const double k = DevicePerTwip();
    const QPen pen = EdgePen(color.value_or(foreColor_), PenWidth());
    const QBrush brush = FillBrush(fillStyle_, fillColor_);
    const QRectF box = QRectF(QPointF(x1 * k, y1 * k), QPointF(x2 * k, y2 * k)).normalized();
    Keep([pen, brush, box](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawRect(box);
    });
    currentX_ = x2;
    currentY_ = y2;
}

void PrinterSurface::Circle(double x, double y, double radius, std::optional<Color> color, double aspect) {
    const HalfAxes axes = CircleAxes(radius, aspect);
    const double k = DevicePerTwip();
    const QPen pen = LinePen(color.value_or(foreColor_), PenWidth());
    const QBrush brush = FillBrush(fillStyle_, fillColor_);
    const QPointF centre(x * k, y * k);
    const double rx = axes.horizontal * k, ry = axes.vertical * k;
    Keep([pen, brush, centre, rx, ry](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawEllipse(centre, rx, ry);
    });
    currentX_ = x;
    currentY_ = y;
}

void PrinterSurface::Cls() { throw RuntimeError(ObjectDoesntSupport); }

void PrinterSurface::SetFontSize(double points) {
    if (!(points > 0)) throw RuntimeError(InvalidPropertyValue);
    font_.setPointSizeF(points);
}

double PrinterSurface::TextWidth(const QString& text) const {
    const QFontMetricsF metrics(font_, printer_.get());
    double widest = 0;
    for (const QString& line : LinesOf(text)) widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest / DevicePerTwip();
}

double PrinterSurface::TextHeight(const QString& text) const {
    const QFontMetricsF metrics(font_, printer_.get());
    return double(LinesOf(text).size()) * metrics.height() / DevicePerTwip();
}

void PrinterSurface::Print(const QString& text) {
    const double k = DevicePerTwip();
    const QFontMetricsF metrics(font_, printer_.get());
    const QColor ink = ToQColor(foreColor_);
    double x = currentX_, y = currentY_;
    for (const QString& line : LinesOf(text)) {
        const QPointF baseline(x * k, y * k + metrics.ascent());
        Keep([font = font_, ink, baseline, line](QPainter& painter) {
            painter.setFont(font);
            painter.setPen(ink);
            painter.drawText(baseline, line);
        });
        y += metrics.height() / k;
        x = 0;
    }
    currentX_ = 0;
    currentY_ = y;
}

double PrinterSurface::Width() const { return printer_->paperRect(QPrinter::Point).width() * TwipsPerPoint; }
double PrinterSurface::Height() const { return printer_->paperRect(QPrinter::Point).height() * TwipsPerPoint; }
double PrinterSurface::ScaleWidth() const { return printer_->pageRect(QPrinter::Point).width() * TwipsPerPoint; }
double PrinterSurface::ScaleHeight() const { return printer_->pageRect(QPrinter::Point).height() * TwipsPerPoint; }

void PrinterSurface::EndDoc() {
    std::vector<Step> document = std::move(document_);
    document_.clear();
    currentX_ = 0;
    currentY_ = 0;
    if (document.empty()) return;
    QPainter painter;
    if (!painter.begin(printer_.get())) throw RuntimeError(PrinterError);
    for (const Step& step : document) step(painter);
    painter.end();
}

void PrinterSurface::KillDoc() {
    document_.clear();
    currentX_ = 0;
    currentY_ = 0;
}

}  // namespace skelda
