// The pieces that Skelda's forms are built from: labels at their design places, line controls
// and their painting, the colours of a control, fonts that fall back to the nearest the machine
// has, and the loading of a form.
#pragma once

#include "Colour.h"
#include "Controls.h"

#include <QFont>
#include <QString>

#include <memory>

class QPainter;

namespace skelda {

// A label named Name at its place in twips, with its caption aligned as Align says. The caption
// is always shown as it is written: a METAF, a bulletin or a page is never markup.
Label* NewLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top, double width,
                double height, Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);

// The same label, top-left aligned and wrapping its words, whose text can't be selected and
// whose links, were any shown, would never be followed: a forecast or a news page is shown as it
// comes, markup and all, and nothing in it (a link, an image) is ever loaded.
Label* NewPlainLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top,
                     double width, double height);

// A line control from (x1, y1) to (x2, y2), in twips, in Colour, solid or dotted.
LineControl NewLine(double x1, double y1, double x2, double y2, Color colour, bool dotted = false);

// Paints a visible line control with Painter, whose device counts pixels: the line's twips are
// turned into pixels, its BorderWidth is a width in pixels. An invisible line paints nothing.
void PaintLine(QPainter& painter, const LineControl& line);

// The colour of a control's text (ForeColor).
void SetForeColour(QWidget* w, Color colour);
// The colour of a control's own background (BackColor), which it then fills.
void SetBackColour(QWidget* w, Color colour);

// The font of that family and size, or, when the machine lacks it, the nearest of the same kind
// that the platform gives.
QFont NearestFont(const QString& family, double points, QFont::StyleHint hint, QFont::Weight weight);

// Sets the client area of a form, in twips.
void SetClientSize(QWidget* form, double width, double height);

// Loading a form, as the first touch of it does: builds it from Args and runs its Form_Load. A
// failure of Form_Load reaches the caller, and the half-loaded form is dropped.
template <class Form, class... Args>
Form* LoadForm(Args&... args) {
    auto form = std::make_unique<Form>(args...);
    form->Form_Load();
    return form.release();
}

}  // namespace skelda
