// A window or picture box that is a drawing surface, with a lasting drawing: everything is drawn
// into a picture kept behind the widget, and the widget shows that picture. So a drawing stays
// until the next Cls, also when the window is covered, hidden and shown again, or resized.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "SurfaceState.h"

namespace skelda {

// The widget's DrawWidth counts screen pixels, whatever its scale.
class SurfaceWidget : public QWidget, public SurfaceState<Surface> {
    Q_OBJECT
public:
    explicit SurfaceWidget(QWidget* parent = nullptr);

    QString Tag;  // a small text state, as every control has

    // ---- Drawing, in the surface's scale (see Surface.h for the current point each leaves).
    void Line(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    void Box(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    // The radius is in horizontal units; see CircleAxes for the aspect.
    void Circle(double x, double y, double radius, std::optional<Color> color = {}, double aspect = 1.0) override;
    // Clears the drawing down to the background colour and picture; the current point goes to 0, 0.
    void Cls() override;

    // ---- Text, in the widget's font at FontSize points, in ForeColor, without a background.
    double FontSize() const override;
    // A size of 0 or less is an "Invalid property value" (380).
    void SetFontSize(double points) override;
    // The width of the widest line and the height of all lines of the text, in the scale.
    double TextWidth(const QString& text) const override;
    double TextHeight(const QString& text) const override;
    // Writes the text with its top at the current point; a line break in it starts again at x 0.
    // Leaves the current point at x 0, one line under the text.
    void Print(const QString& text) override;

    // ---- Background. The colour starts as the desktop's button face (vbButtonFace); the picture,
    // none, is drawn at the top left at its own size over the colour. Setting either clears the
    // drawing, as Cls does.
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color color);
    const QImage& Picture() const { return picture_; }
    void SetPicture(const QImage& picture);

    // ---- Scale. By default twips, 15 to a pixel whatever the screen, so that layouts are the same
    // everywhere. A user scale sets how many units make one pixel across and down; setting
    // ScaleWidth or ScaleHeight sets them so that the present client size is that many units.
    // The unit stays when the widget is resized, so ScaleWidth follows the width. A non-positive
    // value is an "Invalid property value" (380).
    double UnitsPerPixelX() const { return unitsPerPixelX_; }
    double UnitsPerPixelY() const { return unitsPerPixelY_; }
    void SetScale(double unitsPerPixelX, double unitsPerPixelY);
    double ScaleWidth() const { return width() * unitsPerPixelX_; }
    double ScaleHeight() const { return height() * unitsPerPixelY_; }
    void SetScaleWidth(double units);
    void SetScaleHeight(double units);
    // A point of the widget in pixels, in the scale, and back (for mouse events).
    QPointF PixelToScale(const QPointF& pixel) const;
    QPointF ScaleToPixel(double x, double y) const;

    // What the widget shows of its drawing, at its present size (for tests and screenshots).
    QImage Snapshot() const;

protected:
    // Shows the drawing. A subclass that paints controls above the drawing calls this first.
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFont DrawingFont() const;
    double PenWidth() const { return drawWidth_; }
    // Grows the picture to cover the widget, keeping what was drawn. A hidden widget gets its
    // resize event only when shown, so every use of the picture calls this first.
    void CoverWidget() const;
    QImage BlankPicture(QSize size) const;
    void Changed() { update(); }
    // A stroke kept for later, with everything it needs from the moment it was asked for (pen,
    // fill, font, place in pixels).
    using Stroke = std::function<void(QPainter&)>;
    // Keeps a stroke. The strokes are played onto the drawing, in order and with one painter,
    // only when something needs the drawing as it stands: painting the widget, Snapshot, growing
    // the drawing. A hidden window, as the main window mostly is, then never pays for the chart
    // that the poll cycle redraws every 11 seconds; Cls drops the strokes it would have cleared.
    void Keep(Stroke stroke);
    void PlayKept() const;

    Color backColor_;
    std::optional<double> fontSize_;  // none: the widget's own font size
    double unitsPerPixelX_ = 15;
    double unitsPerPixelY_ = 15;
    QImage picture_;
    mutable QImage drawing_;            // at least the widget's size; grows, never shrinks
    mutable std::vector<Stroke> kept_;  // not yet on drawing_
};

}  // namespace skelda
