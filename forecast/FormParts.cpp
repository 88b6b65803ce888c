#include "FormParts.h"

#include <QColor>
#include <QPalette>

namespace skelda {

Label* NewPlainLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top,
                     double width, double height) {
    auto* label = new Label(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::NoTextInteraction);
    label->setOpenExternalLinks(false);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    label->SetCaption(caption);
    Place(label, left, top, width, height);
    return label;
}

void SetBackColour(QWidget* w, Color colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, QColor(RedOf(colour), GreenOf(colour), BlueOf(colour)));
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
