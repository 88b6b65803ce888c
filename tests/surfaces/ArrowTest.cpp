// The wind arrow, on a recording surface.
#include "Arrow.h"

#include "Failure.h"
#include "RecordingSurface.h"

#include <gtest/gtest.h>

using namespace skelda;

namespace {

constexpr double Near = 0.01;  // the program's pi leaves a trace of this size

struct Arrow {
    DrawCall stroke;
    DrawCall dot;
};

Arrow Draw(RecordingSurface& surface, double x, double y, int16_t angle, int16_t& longueur) {
    TracerFleche(x, y, angle, surface, longueur);
    EXPECT_EQ(surface.Lines().size(), 1u);
    EXPECT_EQ(surface.Circles().size(), 1u);
    return {surface.Lines().at(0), surface.Circles().at(0)};
}

}  // namespace

TEST(TracerFleche, NorthWithTheDefaultLengthRunsFromBelowToTheDotAbove) {
    RecordingSurface surface;
    int16_t longueur = 0;
    const Arrow a = Draw(surface, 1000, 1000, 0, longueur);
    EXPECT_EQ(longueur, 140);  // the caller's variable changes too
    EXPECT_NEAR(a.stroke.x1, 1000, Near);
    EXPECT_NEAR(a.stroke.y1, 1063, Near);
    EXPECT_NEAR(a.stroke.x2, 1000, Near);
    EXPECT_NEAR(a.stroke.y2, 937, Near);
    EXPECT_NEAR(a.dot.x1, 1000, Near);
    EXPECT_NEAR(a.dot.y1, 937, Near);
    EXPECT_EQ(a.dot.radius, 30);
}

TEST(TracerFleche, TheStrokeIsDarkRedAndTheDotTakesTheCurrentColour) {
    RecordingSurface surface;
    int16_t longueur = 0;
    const Arrow a = Draw(surface, 1000, 1000, 0, longueur);
    EXPECT_EQ(a.stroke.color, std::optional<Color>(150));
    EXPECT_EQ(a.stroke.color, std::optional<Color>(RGB(150, 0, 0)));
    EXPECT_EQ(a.stroke.drawWidth, 1);
    EXPECT_FALSE(a.dot.color.has_value());  // no colour given: the surface's own
    EXPECT_EQ(a.dot.aspect, 1);
    EXPECT_TRUE(a.dot.Filled());
    EXPECT_EQ(a.dot.fillColor, 150);
}

TEST(TracerFleche, LeavesWidthOneSolidFillAndFillColour150) {
    RecordingSurface surface;
    surface.SetDrawWidth(3);
    surface.SetFillColor(RGB(1, 2, 3));
    surface.Clear();
    int16_t longueur = 0;
    TracerFleche(500, 500, 45, surface, longueur);
    EXPECT_EQ(surface.DrawWidth(), 1);
    EXPECT_EQ(surface.FillStyle(), vbFSSolid);
    EXPECT_EQ(surface.FillColor(), 150);
    const std::vector<DrawOp> expected{DrawOp::SetDrawWidth, DrawOp::Line, DrawOp::SetFillStyle, DrawOp::SetFillColor,
                                       DrawOp::Circle};
    EXPECT_EQ(surface.Ops(), expected);
}

TEST(TracerFleche, AWindFromTheWestHasItsDotLeftOfTheCentre) {
    RecordingSurface surface;
    int16_t longueur = 0;
    const Arrow a = Draw(surface, 1000, 1000, 270, longueur);
    EXPECT_NEAR(a.stroke.x1, 1063, Near);
    EXPECT_NEAR(a.stroke.y1, 1000, Near);
    EXPECT_NEAR(a.dot.x1, 937, Near);
    EXPECT_NEAR(a.dot.y1, 1000, Near);
}

TEST(TracerFleche, AWindFromTheEastHasItsDotRightOfTheCentre) {
    RecordingSurface surface;
    int16_t longueur = 0;
    const Arrow a = Draw(surface, 1000, 1000, 90, longueur);
    EXPECT_NEAR(a.dot.x1, 1063, Near);
    EXPECT_NEAR(a.dot.y1, 1000, Near);
}

TEST(TracerFleche, ANegativeLengthIsTakenAsZero) {
    RecordingSurface surface;
    int16_t longueur = -5;
    const Arrow a = Draw(surface, 1000, 1000, 0, longueur);
    EXPECT_EQ(longueur, 140);
    EXPECT_NEAR(a.stroke.y1, 1063, Near);
    EXPECT_NEAR(a.stroke.y2, 937, Near);
}

TEST(TracerFleche, Length200ReachesNinetyEachSideWithTheSameDot) {
    RecordingSurface surface;
    int16_t longueur = 200;
    const Arrow a = Draw(surface, 1000, 1000, 0, longueur);
    EXPECT_EQ(longueur, 200);
    EXPECT_NEAR(a.stroke.y1, 1090, Near);
    EXPECT_NEAR(a.stroke.y2, 910, Near);
    EXPECT_EQ(a.dot.radius, 30);
}

TEST(TracerFleche, Angle16294StillFitsSixteenBits) {
    RecordingSurface surface;
    int16_t longueur = 0;
    EXPECT_NO_THROW(TracerFleche(0, 0, 16294, surface, longueur));
    EXPECT_EQ(surface.Lines().size(), 1u);
}

TEST(TracerFleche, AnAngleAbove16294OverflowsBeforeDrawing) {
    RecordingSurface surface;
    int16_t longueur = 0;
    try {
        TracerFleche(0, 0, 16295, surface, longueur);
        FAIL() << "no overflow";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), Overflow);
    }
    EXPECT_TRUE(surface.Calls().empty());
    EXPECT_EQ(longueur, 0);  // the failure comes before the default length
}

TEST(TracerFleche, AVeryNegativeAngleOverflowsToo) {
    RecordingSurface surface;
    int16_t longueur = 0;
    EXPECT_THROW(TracerFleche(0, 0, -16474, surface, longueur), RuntimeError);  // -16384 x -2
    EXPECT_NO_THROW(TracerFleche(0, 0, -16473, surface, longueur));
}
