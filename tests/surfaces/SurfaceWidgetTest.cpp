#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
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

TEST_F(SurfaceWidgetTest, EveryStrokeShowsInWhatIsPaintedAndReadBetweenStrokes) {
    surface.show();
    surface.Line(150, 750, 2850, 750, Red);
    EXPECT_EQ(ColorAt(surface.grab().toImage(), 50, 50), Red);
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(Green);
    surface.Circle(1500, 300, 150, Blue);  // centre (100, 20), radius 10 pixels
    QImage painted = surface.grab().toImage();
    EXPECT_EQ(ColorAt(painted, 50, 50), Red);
    EXPECT_EQ(ColorAt(painted, 100, 20), Green);
    EXPECT_EQ(At(110, 20), Blue);
    surface.Box(150, 1200, 600, 1350, Blue);  // from (10, 80) to (40, 90)
    surface.resize(300, 150);
    surface.Line(3000, 0, 3000, 2250, Red);  // x 200, in the part the widget just grew by
    painted = surface.grab().toImage();
    EXPECT_EQ(ColorAt(painted, 25, 85), Green);
    EXPECT_EQ(ColorAt(painted, 200, 140), Red);
    EXPECT_EQ(ColorAt(painted, 100, 20), Green);
    surface.Cls();
    EXPECT_EQ(ColorAt(surface.grab().toImage(), 50, 50), White);
    surface.Line(150, 150, 2850, 150, Red);
    EXPECT_EQ(At(50, 10), Red);
    EXPECT_EQ(At(50, 50), White);
    surface.hide();
}

TEST_F(SurfaceWidgetTest, AStrokeStaysClippedToTheDrawingAsItWasWhenTheWidgetGrowsLater) {
    // A picture box on a form: its drawing starts at its own small size, not a window's.
    QWidget form;
    auto* box = new SurfaceWidget(&form);
    box->resize(200, 100);
    box->SetBackColor(White);
    box->Line(0, 750, 4485, 750, Red);  // from x 0 to x 299, past the right edge at 199
    box->resize(400, 100);
    const QImage drawn = box->Snapshot();
    EXPECT_EQ(ColorAt(drawn, 150, 50), Red);
    EXPECT_EQ(ColorAt(drawn, 199, 50), Red);
    EXPECT_EQ(ColorAt(drawn, 200, 50), White);
    EXPECT_EQ(ColorAt(drawn, 250, 50), White);
}

TEST_F(SurfaceWidgetTest, ALongRunOfStrokesNeverClearedOrLookedAtShowsWhole) {
    // 50 rows of 200 dots, one stroke each.
    for (int i = 0; i < 10000; ++i) {
        const int column = i % 200;
        const int row = i / 200;
        surface.Line(15 * column, 15 * row, 15 * column, 15 * row, Red);
    }
    EXPECT_EQ(At(0, 0), Red);
    EXPECT_EQ(At(199, 49), Red);
    EXPECT_EQ(At(100, 25), Red);
    EXPECT_EQ(At(100, 50), White);
}

// The drawing is exactly Qt's painting of each stroke on its own, whatever strokes came before:
// here the day chart's kinds of strokes (dots between pixels, wide segments, filled bars, text),
// against a picture painted stroke by stroke.
TEST_F(SurfaceWidgetTest, TheDrawingIsQtsPaintingOfEachStrokeOnItsOwn) {
    QImage expected(200, 100, QImage::Format_RGB32);
    expected.setDotsPerMeterX(3780);
    expected.setDotsPerMeterY(3780);
    expected.fill(Qt::white);
    const auto paint = [&expected](auto stroke) {
        QPainter painter(&expected);
        stroke(painter);
    };
    const QPen roundPen1(QColor(128, 128, 0), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen roundPen2(QColor(128, 128, 0), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen squarePen(QColor(0, 0, 255), 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);

    surface.SetFillStyle(vbFSSolid);
    for (int i = 0; i < 12; ++i) {
        const double x = 105 + 247.5 * i, y = 400 + 37 * i, nextY = 430 + 29 * i;
        surface.SetFillColor(RGB(193, 222, 255));
        surface.Box(x - 90, 1200 - 40 * i, x + 90, 1350, Blue);
        paint([&](QPainter& p) {
            p.setPen(squarePen);
            p.setBrush(QColor(193, 222, 255));
            p.drawRect(QRectF(QPointF((x - 90) / 15, (1200 - 40 * i) / 15.0), QPointF((x + 90) / 15, 90)).normalized());
        });
        surface.SetDrawWidth(2);
        surface.Line(x, y, x + 247.5, nextY, RGB(128, 128, 0));
        paint([&](QPainter& p) {
            p.setPen(roundPen2);
            p.drawLine(QPointF(x / 15, y / 15), QPointF((x + 247.5) / 15, nextY / 15));
        });
        surface.SetDrawWidth(1);
        surface.SetFillColor(RGB(255, 255, 192));
        surface.Circle(x, y, 48, RGB(128, 128, 0));
        paint([&](QPainter& p) {
            p.setPen(roundPen1);
            p.setBrush(QColor(255, 255, 192));
            p.drawEllipse(QPointF(x / 15, y / 15), 3.2, 3.2);
        });
    }
    surface.SetForeColor(Black);
    surface.SetCurrentX(300);
    surface.SetCurrentY(1050);
    surface.Print(QStringLiteral("Nds"));
    surface.Line(0, 0, 2985, 1485, Red);
    paint([&](QPainter& p) {
        p.setFont(surface.font());
        p.setPen(Qt::black);
        p.drawText(QPointF(20, 70 + QFontMetricsF(surface.font(), &expected).ascent()), QStringLiteral("Nds"));
    });
    paint([&](QPainter& p) {
        p.setPen(QPen(Qt::red, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawLine(QPointF(0, 0), QPointF(199, 99));
    });

    const QImage drawn = surface.Snapshot().convertToFormat(QImage::Format_RGB32);
    int differing = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) differing += drawn.pixel(x, y) != expected.pixel(x, y) ? 1 : 0;
    EXPECT_EQ(differing, 0);
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
