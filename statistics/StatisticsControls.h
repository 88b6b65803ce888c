// The two controls of the monthly window that the shared controls don't have: a check box with
// the members its procedures use, and the picture box of the plot with its line controls and the
// frame that stand above its drawing.
#pragma once

#include "Colour.h"
#include "Controls.h"
#include "SurfaceWidget.h"

#include <QCheckBox>
#include <QRect>

#include <vector>

namespace skelda {

// A check box: Value 1 checked, 0 unchecked; ForeColor the colour of its text; Tag a small text
// state. The user's click and a change of Value by code both raise Click, after the change.
class CheckBox : public QCheckBox {
    Q_OBJECT
public:
    explicit CheckBox(QWidget* parent = nullptr);
    int Value() const { return isChecked() ? 1 : 0; }
    // Raises Click when the value changes; "Invalid property value" (380) outside 0 and 1.
    void SetValue(int value);
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color color);
    QString Tag;

signals:
    void Click();

private:
    Color foreColor_ = 0;
};

// A picture box whose line controls and rectangle shapes stand above what is drawn on it, as
// graphical controls do: Cls never clears them. Lines and shapes are in twips.
class PlotPicture : public SurfaceWidget {
    Q_OBJECT
public:
    explicit PlotPicture(QWidget* parent = nullptr);
    // The controls painted above the drawing, in this order. The pointers must outlive the widget.
    std::vector<const LineControl*> lines;
    std::vector<const QRect*> shapes;  // red frames
    Color shapeColour = 0;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace skelda
