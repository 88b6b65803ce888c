// Small pieces that the forecast and news windows are built from: plain-text labels at their
// design places, grey backs, fonts that fall back to the nearest the machine has.
#pragma once

#include "Colour.h"
#include "Controls.h"

#include <QFont>
#include <QString>

namespace skelda {

// A label named Name at its place in twips, top-left aligned and wrapping its words. Its caption
// is always plain text: a forecast or a news page is shown as it comes, markup and all, and
// nothing in it (a link, an image) is ever loaded.
Label* NewPlainLabel(QWidget* parent, const QString& name, const QString& caption, double left, double top,
                     double width, double height);

// Fills the control's back with Colour.
void SetBackColour(QWidget* w, Color colour);

// The font of that family and size, or, when the machine lacks it, the nearest of the same kind
// that the platform gives.
QFont NearestFont(const QString& family, double points, QFont::StyleHint hint, QFont::Weight weight);

// Sets the client area of a form, in twips.
void SetClientSize(QWidget* form, double width, double height);

}  // namespace skelda
