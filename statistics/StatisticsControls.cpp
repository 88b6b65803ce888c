#include "StatisticsControls.h"

#include "Failure.h"
#include "FormParts.h"
#include "RunTime.h"
#include "SurfacePainting.h"

#include <QPainter>

namespace skelda {

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent) {
    connect(this, &QCheckBox::clicked, this, [this] { emit Click(); });
}

void CheckBox::SetValue(int value) {
    if (value != 0 && value != 1) throw RuntimeError(InvalidPropertyValue);
    if (value == Value()) return;
    {
        const QSignalBlocker block(this);
        setChecked(value == 1);
    }
    RaiseEvent([this] { emit Click(); });
}

void CheckBox::SetForeColor(Color color) {
    foreColor_ = color;
    QPalette p = palette();
    p.setColor(QPalette::WindowText, ToQColor(color));
    p.setColor(QPalette::ButtonText, ToQColor(color));
    setPalette(p);
}

PlotPicture::PlotPicture(QWidget* parent) : SurfaceWidget(parent) {}

void PlotPicture::paintEvent(QPaintEvent* event) {
    SurfaceWidget::paintEvent(event);
    QPainter painter(this);
    for (const LineControl* line : lines) PaintLine(painter, *line);
    painter.setPen(QPen(ToQColor(shapeColour), 1));
    painter.setBrush(Qt::NoBrush);
    for (const QRect* shape : shapes) {
        // The frame's edge lies inside its rectangle, as a shape's border does.
        painter.drawRect(QRectF(shape->x() / double(TwipsPerPixel), shape->y() / double(TwipsPerPixel),
                                shape->width() / double(TwipsPerPixel) - 1,
                                shape->height() / double(TwipsPerPixel) - 1));
    }
}

}  // namespace skelda
