#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "Failure.h"
#include "GuiApplication.h"
#include "PrinterSurface.h"

using namespace skelda;

namespace {

class PrinterSurfaceTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureGuiApplication(); }
    QString PdfPath() const { return folder.filePath(QStringLiteral("report.pdf")); }
    QTemporaryDir folder;
};

TEST_F(PrinterSurfaceTest, EndDocWritesTheDocument) {
    ASSERT_TRUE(folder.isValid());
    PrinterSurface printer(PdfPath());
    printer.SetFillStyle(vbFSSolid);
    printer.SetFillColor(RGB(0, 0, 255));
    printer.BoxStep(1000, 5000, 300, -2000, RGB(0, 0, 0));
    printer.SetDrawWidth(5);
    printer.Line(1000, 3000, 8000, 3000, RGB(128, 128, 0));
    printer.Circle(2000, 6000, 30, {}, 1);
    printer.SetCurrentX(1000);
    printer.SetCurrentY(7000);
    printer.Print(QStringLiteral("Relevé Météo"));
    EXPECT_FALSE(QFile::exists(PdfPath()));  // nothing reaches the printer before EndDoc
    printer.EndDoc();
    QFile pdf(PdfPath());
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
    EXPECT_GT(pdf.size(), 500);
}

TEST_F(PrinterSurfaceTest, KillDocDropsEverything) {
    PrinterSurface printer(PdfPath());
    printer.Line(0, 0, 1440, 1440);
    printer.Print(QStringLiteral("50 nds"));
    printer.KillDoc();
    EXPECT_FALSE(QFile::exists(PdfPath()));
    printer.EndDoc();
    EXPECT_FALSE(QFile::exists(PdfPath()));
    EXPECT_DOUBLE_EQ(printer.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(printer.CurrentY(), 0);
}

TEST_F(PrinterSurfaceTest, MeasuresThePageInTwips) {
    PrinterSurface printer(PdfPath());
    // A4 or Letter, whichever the system prefers: about 8.3 to 8.5 inches across.
    EXPECT_GT(printer.Width(), 11800);
    EXPECT_LT(printer.Width(), 12300);
    EXPECT_GT(printer.Height(), printer.Width());
    EXPECT_GT(printer.ScaleWidth(), 0);
    EXPECT_LE(printer.ScaleWidth(), printer.Width());
    EXPECT_LE(printer.ScaleHeight(), printer.Height());
}

TEST_F(PrinterSurfaceTest, MeasuresTextInTwipsInItsFont) {
    PrinterSurface printer(PdfPath());
    EXPECT_DOUBLE_EQ(printer.FontSize(), 10);
    const double h = printer.TextHeight(QStringLiteral("99 Nds "));
    EXPECT_GT(h, 180);  // a 10-point line is a little more than 200 twips
    EXPECT_LT(h, 350);
    const double w = printer.TextWidth(QStringLiteral("99 Nds "));
    EXPECT_GT(w, 400);
    EXPECT_LT(w, 1400);
    printer.SetFontSize(6);
    EXPECT_LT(printer.TextHeight(QStringLiteral("99 Nds ")), h);
    EXPECT_THROW(printer.SetFontSize(-1), RuntimeError);
}

TEST_F(PrinterSurfaceTest, KeepsTheCurrentPoint) {
    PrinterSurface printer(PdfPath());
    printer.SetCurrentX(500);
    printer.SetCurrentY(1000);
    const double h = printer.TextHeight(QStringLiteral("32"));
    printer.Print(QStringLiteral("32"));
    EXPECT_DOUBLE_EQ(printer.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(printer.CurrentY(), 1000 + h);
    printer.BoxStep(100, 5000, 200, -300);
    EXPECT_DOUBLE_EQ(printer.CurrentX(), 300);
    EXPECT_DOUBLE_EQ(printer.CurrentY(), 4700);
    printer.Circle(700, 800, 30);
    EXPECT_DOUBLE_EQ(printer.CurrentX(), 700);
    EXPECT_DOUBLE_EQ(printer.CurrentY(), 800);
    printer.KillDoc();
}

TEST_F(PrinterSurfaceTest, PaperCantBeCleared) {
    PrinterSurface printer(PdfPath());
    try {
        printer.Cls();
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 438);
    }
}

TEST_F(PrinterSurfaceTest, ARefusedJobIsAPrinterError) {
    PrinterSurface printer(folder.filePath(QStringLiteral("no such folder/report.pdf")));
    printer.Line(0, 0, 100, 100);
    try {
        printer.EndDoc();
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 482);
    }
}

}  // namespace
