#include "SurfacePainting.h"

#include <QGuiApplication>
#include <QPalette>
#include <cmath>

#include "Failure.h"

namespace skelda {

namespace {
QColor SystemColor(int index) {
    const QPalette palette = QGuiApplication::palette();
    switch (index) {
        case 4:   // menu
        case 15:  // button face
            return palette.color(QPalette::Button);
        case 5:  // window background
            return palette.color(QPalette::Base);
        case 7:  // menu text
        case 8:  // window text
            return palette.color(QPalette::Text);
        case 13:  // highlight
            return palette.color(QPalette::Highlight);
        case 14:  // highlighted text
            return palette.color(QPalette::HighlightedText);
        case 18:  // button text
            return palette.color(QPalette::ButtonText);
        default:
            return Qt::black;
    }
}
}  // namespace

QColor ToQColor(Color color) {
    if (uint32_t(color) & 0x80000000u) return SystemColor(int(uint32_t(color) & 0xffu));
    return QColor(RedOf(color), GreenOf(color), BlueOf(color));
}

QPen LinePen(Color color, double width) {
    QPen pen(ToQColor(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    return pen;
}

QPen EdgePen(Color color, double width) {
    QPen pen(ToQColor(color), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    return pen;
}

QStringList LinesOf(const QString& text) {
    QString unified = text;
    unified.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return unified.split(QLatin1Char('\n'));
}

QBrush FillBrush(int fillStyle, Color fillColor) {
    static constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                                Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                                Qt::CrossPattern, Qt::DiagCrossPattern};
    if (fillStyle < 0 || fillStyle > 7) return Qt::NoBrush;
    return QBrush(ToQColor(fillColor), styles[fillStyle]);
}

void CheckDrawWidth(int width) {
    if (width < 1) throw RuntimeError(InvalidPropertyValue);
}

void CheckFillStyle(int style) {
    if (style < 0 || style > 7) throw RuntimeError(InvalidPropertyValue);
}

HalfAxes CircleAxes(double radius, double aspect) {
    if (!(aspect > 0) || !std::isfinite(aspect)) throw RuntimeError(InvalidProcedureCall);
    const double r = std::abs(radius);
    if (aspect >= 1) return {r / aspect, r};
    return {r, r * aspect};
}

}  // namespace skelda
