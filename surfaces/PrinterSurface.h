// The printer as a drawing surface: the system's default printer, or a PDF file.
//
// What is drawn is kept until EndDoc and only then painted on the printer, so that KillDoc can
// drop a document of which nothing has reached the printer yet.
#pragma once

#include <QFont>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "PageSurface.h"
#include "SurfaceState.h"

class QPainter;
class QPrinter;

namespace skelda {

class PrinterSurface : public SurfaceState<PageSurface> {
public:
    // The system's default printer.
    PrinterSurface();
    // A printer that writes a PDF file at the path (for tests, and for a machine without printers).
    explicit PrinterSurface(const QString& pdfFile);
    ~PrinterSurface() override;
    PrinterSurface(const PrinterSurface&) = delete;
    PrinterSurface& operator=(const PrinterSurface&) = delete;

    // The drawing state is the screen's (SurfaceState.h); DrawWidth counts dots of a
    // 600-dot-an-inch printer, whatever the real printer's resolution.

    // ---- Drawing, in twips from the top left of the printable area.
    void Line(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    void Box(double x1, double y1, double x2, double y2, std::optional<Color> color = {}) override;
    void Circle(double x, double y, double radius, std::optional<Color> color = {}, double aspect = 1.0) override;
    // Paper can't be cleared: "Object doesn't support this property or method" (438).
    void Cls() override;

    // ---- Text. The default font is the application's family at 10 points.
    double FontSize() const override { return font_.pointSizeF(); }
    void SetFontSize(double points) override;  // 0 or less: "Invalid property value" (380)
    double TextWidth(const QString& text) const override;
    double TextHeight(const QString& text) const override;
    void Print(const QString& text) override;

    // ---- The page.
    double Width() const override;
    double Height() const override;
    double ScaleWidth() const override;
    double ScaleHeight() const override;
    // Paints the document on the printer. A document with nothing drawn prints nothing. A printer
    // that refuses the job is a RuntimeError "Printer error" (482); the document is dropped.
    void EndDoc() override;
    void KillDoc() override;

private:
    using Step = std::function<void(QPainter&)>;
    void Keep(Step step) { document_.push_back(std::move(step)); }
    double DevicePerTwip() const;
    double PenWidth() const;

    std::unique_ptr<QPrinter> printer_;
    std::vector<Step> document_;
    QFont font_;
};

}  // namespace skelda
