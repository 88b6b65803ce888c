#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>

#include "Failure.h"
#include "GuiApplication.h"
#include "SurfacePainting.h"
#include "SurfaceWidget.h"

using namespace skelda;

namespace {

constexpr Color White = RGB(255, 255, 255);
constexpr Color Red = RGB(255, 0, 0);
constexpr Color Green = RGB(0, 255, 0);
constexpr Color Blue = RGB(0, 0, 255);
constexpr Color Black = RGB(0, 0, 0);

Color ColorAt(const QImage& image, int x, int y) {
    const QColor c = image.pixelColor(x, y);
    return RGB(c.red(), c.green(), c.blue());
}

class SurfaceWidgetTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureGuiApplication(); }
    void SetUp() override {
        surface.resize(200, 100);
        surface.SetBackColor(White);
    }
    Color At(int x, int y) const { return ColorAt(surface.Snapshot(), x, y); }

    SurfaceWidget surface;
};

TEST_F(SurfaceWidgetTest, StartsInTwipsWithTheStateOfANewForm) {
    SurfaceWidget fresh;
    fresh.resize(200, 100);
    EXPECT_EQ(fresh.DrawWidth(), 1);
    EXPECT_EQ(fresh.FillStyle(), vbFSTransparent);
    EXPECT_EQ(fresh.FillColor(), Black);
    EXPECT_EQ(fresh.ForeColor(), Black);
    EXPECT_EQ(fresh.BackColor(), vbButtonFace);
    EXPECT_DOUBLE_EQ(fresh.UnitsPerPixelX(), 15);
    EXPECT_DOUBLE_EQ(fresh.UnitsPerPixelY(), 15);
    EXPECT_DOUBLE_EQ(fresh.ScaleWidth(), 3000);
    EXPECT_DOUBLE_EQ(fresh.ScaleHeight(), 1500);
    EXPECT_DOUBLE_EQ(fresh.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(fresh.CurrentY(), 0);
    EXPECT_GT(fresh.FontSize(), 0);
}

TEST_F(SurfaceWidgetTest, ALineIsDrawnInTwipsAndLeavesTheCurrentPointAtItsEnd) {
    surface.Line(150, 750, 2850, 750, Red);
    EXPECT_EQ(At(50, 50), Red);
    EXPECT_EQ(At(180, 50), Red);
    EXPECT_EQ(At(50, 45), White);
    EXPECT_EQ(At(5, 50), White);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 2850);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 750);
}

TEST_F(SurfaceWidgetTest, ALineWithoutColourTakesForeColor) {
    surface.SetForeColor(Blue);
    surface.Line(750, 150, 750, 1350);
    EXPECT_EQ(At(50, 50), Blue);
}

TEST_F(SurfaceWidgetTest, DrawWidthIsTheWidthOfLinesInPixels) {
    surface.Line(150, 750, 2850, 750, Red);
    EXPECT_EQ(At(100, 52), White);
    surface.SetDrawWidth(5);
    surface.Line(150, 750, 2850, 750, Red);
    EXPECT_EQ(At(100, 52), Red);
    EXPECT_EQ(At(100, 48), Red);
    EXPECT_EQ(At(100, 56), White);
}

TEST_F(SurfaceWidgetTest, ABoxIsEdgedInItsColourAndFilledAccordingToFillStyle) {
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(Green);
    surface.Box(300, 300, 1500, 1200, Black);
    EXPECT_EQ(At(60, 50), Green);
    EXPECT_EQ(At(20, 50), Black);
    EXPECT_EQ(At(60, 20), Black);
    EXPECT_EQ(At(110, 50), White);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 1500);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 1200);

    surface.SetFillStyle(vbFSTransparent);
    surface.SetForeColor(Blue);
    surface.BoxStep(1800, 1200, 900, -900);  // from the bottom left, upwards: a box from (120, 20) to (180, 80)
    EXPECT_EQ(At(150, 50), White);
    EXPECT_EQ(At(120, 50), Blue);
    EXPECT_EQ(At(150, 20), Blue);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 2700);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 300);
}

TEST_F(SurfaceWidgetTest, ACircleIsEdgedAndFilledAndLeavesTheCurrentPointAtItsCentre) {
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(Red);
    surface.Circle(1500, 750, 450, Blue);  // centre (100, 50), radius 30 pixels
    EXPECT_EQ(At(100, 50), Red);
    EXPECT_EQ(At(100, 30), Red);
    EXPECT_EQ(At(130, 50), Blue);
    EXPECT_EQ(At(136, 50), White);
    EXPECT_EQ(At(100, 85), White);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 1500);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 750);
}

TEST_F(SurfaceWidgetTest, ATransparentCircleIsOnlyItsEdge) {
    surface.Circle(1500, 750, 450, Blue);
    EXPECT_EQ(At(100, 50), White);
    EXPECT_EQ(At(70, 50), Blue);
}

TEST_F(SurfaceWidgetTest, AnAspectAboveOneMakesTheRadiusVertical) {
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(Red);
    surface.Circle(1500, 750, 600, Red, 2);  // 40 pixels up and down, 20 across
    EXPECT_EQ(At(100, 86), Red);
    EXPECT_EQ(At(100, 14), Red);
    EXPECT_EQ(At(118, 50), Red);
    EXPECT_EQ(At(125, 50), White);
}

TEST_F(SurfaceWidgetTest, AnAspectBelowOneKeepsTheRadiusHorizontal) {
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(Red);
    surface.Circle(1500, 750, 600, Red, 0.5);  // 40 pixels across, 20 up and down
    EXPECT_EQ(At(136, 50), Red);
    EXPECT_EQ(At(64, 50), Red);
    EXPECT_EQ(At(100, 68), Red);
    EXPECT_EQ(At(100, 75), White);
}

TEST_F(SurfaceWidgetTest, BadValuesFailAsTheControlDoes) {
    try {
        surface.SetDrawWidth(0);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 380);
    }
    EXPECT_THROW(surface.SetFillStyle(8), RuntimeError);
    EXPECT_THROW(surface.SetFontSize(0), RuntimeError);
    EXPECT_THROW(surface.SetScale(0, 15), RuntimeError);
    try {
        surface.Circle(100, 100, 50, {}, 0);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), InvalidProcedureCall);
    }
    EXPECT_EQ(surface.DrawWidth(), 1);
    EXPECT_EQ(surface.FillStyle(), vbFSTransparent);
}

TEST_F(SurfaceWidgetTest, ClsClearsDownToTheBackgroundAndGoesBackToTheOrigin) {
    QImage picture(50, 50, QImage::Format_RGB32);
    picture.fill(QColor(255, 255, 0));
    surface.SetPicture(picture);
    EXPECT_EQ(At(10, 10), RGB(255, 255, 0));
    EXPECT_EQ(At(100, 50), White);

    surface.SetDrawWidth(10);
    surface.Line(0, 150, 2850, 150, Red);
    surface.Line(0, 750, 2850, 750, Red);
    EXPECT_EQ(At(10, 10), Red);
    EXPECT_EQ(At(100, 50), Red);
    surface.Cls();
    EXPECT_EQ(At(10, 10), RGB(255, 255, 0));
    EXPECT_EQ(At(100, 50), White);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 0);
}

TEST_F(SurfaceWidgetTest, SettingTheBackColorClearsTheDrawing) {
    surface.Line(150, 750, 2850, 750, Red);
    surface.SetBackColor(Green);
    EXPECT_EQ(At(50, 50), Green);
    EXPECT_EQ(surface.BackColor(), Green);
}

TEST_F(SurfaceWidgetTest, TheDrawingLastsWhenTheWidgetIsHiddenAndShownAndIsWhatItPaints) {
    surface.show();
    surface.Line(150, 750, 2850, 750, Red);
    surface.hide();
    surface.show();
    const QImage painted = surface.grab().toImage();
    ASSERT_EQ(painted.size(), QSize(200, 100) * painted.devicePixelRatio());
    EXPECT_EQ(ColorAt(painted, 50, 50), Red);
    EXPECT_EQ(ColorAt(painted, 50, 40), White);
    surface.hide();
}

TEST_F(SurfaceWidgetTest, ResizingKeepsWhatWasDrawn) {
    surface.Line(150, 750, 2850, 750, Red);
    surface.resize(400, 300);
    EXPECT_EQ(surface.Snapshot().size(), QSize(400, 300));
    EXPECT_EQ(At(50, 50), Red);
    EXPECT_EQ(At(300, 200), White);
    surface.resize(40, 40);
    EXPECT_EQ(surface.Snapshot().size(), QSize(40, 40));
    surface.resize(200, 100);
    EXPECT_EQ(At(50, 50), Red);
    EXPECT_EQ(At(180, 50), Red);
}

TEST_F(SurfaceWidgetTest, AUserScaleSetsTheUnitAndTheUnitStaysOnResize) {
    surface.SetScale(1, 1);
    EXPECT_DOUBLE_EQ(surface.ScaleWidth(), 200);
    surface.Line(10, 20, 190, 20, Red);
    EXPECT_EQ(At(100, 20), Red);

    surface.SetScaleWidth(1000);
    surface.SetScaleHeight(50);
    EXPECT_DOUBLE_EQ(surface.UnitsPerPixelX(), 5);
    EXPECT_DOUBLE_EQ(surface.UnitsPerPixelY(), 0.5);
    surface.Line(500, 40, 500, 45, Blue);
    EXPECT_EQ(At(100, 85), Blue);
    surface.resize(400, 100);
    EXPECT_DOUBLE_EQ(surface.ScaleWidth(), 2000);
    EXPECT_DOUBLE_EQ(surface.ScaleHeight(), 50);
}

TEST_F(SurfaceWidgetTest, PointsConvertBetweenPixelsAndTheScale) {
    EXPECT_EQ(surface.PixelToScale(QPointF(10, 20)), QPointF(150, 300));
    EXPECT_EQ(surface.ScaleToPixel(150, 300), QPointF(10, 20));
}

TEST_F(SurfaceWidgetTest, TextIsMeasuredInTheScaleAndFollowsFontSize) {
    surface.SetFontSize(8);
    EXPECT_DOUBLE_EQ(surface.FontSize(), 8);
    const double w = surface.TextWidth(QStringLiteral("W"));
    const double h = surface.TextHeight(QStringLiteral("W"));
    EXPECT_GT(w, 0);
    EXPECT_GT(h, 0);
    EXPECT_GT(surface.TextWidth(QStringLiteral("WWW")), w * 2);
    EXPECT_DOUBLE_EQ(surface.TextHeight(QStringLiteral("a\r\nb")), 2 * surface.TextHeight(QStringLiteral("a")));
    EXPECT_DOUBLE_EQ(surface.TextWidth(QStringLiteral("WWW\r\nW")), surface.TextWidth(QStringLiteral("WWW")));
    surface.SetFontSize(16);
    EXPECT_GT(surface.TextHeight(QStringLiteral("W")), h * 1.5);
    // On a twip surface a line of 8-point text is near 8 x 20 twips high.
    surface.SetFontSize(8);
    EXPECT_GT(h, 120);
    EXPECT_LT(h, 300);
}

TEST_F(SurfaceWidgetTest, PrintWritesAtTheCurrentPointAndMovesToTheNextLine) {
    surface.SetForeColor(Black);
    surface.SetCurrentX(300);
    surface.SetCurrentY(300);
    const double h = surface.TextHeight(QStringLiteral("HHHH"));
    surface.Print(QStringLiteral("HHHH"));
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 300 + h);

    const QImage drawn = surface.Snapshot();
    const int right = int((300 + surface.TextWidth(QStringLiteral("HHHH"))) / 15);
    const int bottom = int((300 + h) / 15);
    int inked = 0, outside = 0;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) {
            if (ColorAt(drawn, x, y) == White) continue;
            if (x >= 19 && x <= right + 1 && y >= 19 && y <= bottom + 1)
                ++inked;
            else
                ++outside;
        }
    EXPECT_GT(inked, 10);
    EXPECT_EQ(outside, 0);
}

TEST_F(SurfaceWidgetTest, SystemColoursComeFromThePalette) {
    EXPECT_EQ(ToQColor(vbButtonFace), QGuiApplication::palette().color(QPalette::Button));
    EXPECT_EQ(ToQColor(RGB(1, 2, 3)), QColor(1, 2, 3));
}

}  // namespace
