#include "FormParts.h"

#include "SurfacePainting.h"

#include <QPainter>
#include <QPalette>

namespace skelda {

Label* NewLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top, double width,
                double height, Qt::Alignment align) {
    auto* label = new Label(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(align);
    label->SetCaption(caption);
    Place(label, left, top, width, height);
    return label;
}

Label* NewPlainLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top,
                     double width, double height) {
    Label* label = NewLabel(parent, name, caption, left, top, width, height, Qt::AlignLeft | Qt::AlignTop);
    label->setTextInteractionFlags(Qt::NoTextInteraction);
    label->setOpenExternalLinks(false);
    label->setWordWrap(true);
    return label;
}

LineControl NewLine(double x1, double y1, double x2, double y2, Color colour, bool dotted) {
    LineControl line;
    line.X1 = x1;
    line.Y1 = y1;
    line.X2 = x2;
    line.Y2 = y2;
    line.BorderColor = colour;
    line.Dotted = dotted;
    return line;
}

void PaintLine(QPainter& painter, const LineControl& line) {
    if (!line.Visible) return;
    QPen pen(ToQColor(line.BorderColor), line.BorderWidth);
    if (line.Dotted) pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.drawLine(QPointF(line.X1 / TwipsPerPixel, line.Y1 / TwipsPerPixel),
                     QPointF(line.X2 / TwipsPerPixel, line.Y2 / TwipsPerPixel));
}

void SetForeColour(QWidget* w, Color colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, ToQColor(colour));
    w->setPalette(p);
}

void SetBackColour(QWidget* w, Color colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, ToQColor(colour));
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

QFont NearestFont(const QString& family, double points, QFont::StyleHint hint, QFont::Weight weight) {
    QFont font(family);
    font.setStyleHint(hint, QFont::PreferMatch);
    font.setPointSizeF(points);
    font.setWeight(weight);
    return font;
}

void SetClientSize(QWidget* form, double width, double height) {
    form->setFixedSize(ToPixels(width), ToPixels(height));
}

}  // namespace skelda
