// One curve's next dot, as the month view (skipping a failed statement) and the report (failing
// at once) draw it: what a value that can't be used does to each.
#include <gtest/gtest.h>

#include "Failure.h"
#include "MonthCurves.h"
#include "RecordingSurface.h"
#include "ResumeNext.h"

using namespace skelda;

namespace {

const MonthCurve Lowest = MonthCurves(MonthMedium::Screen)[0];

double NullValue() { throw RuntimeError(InvalidUseOfNull); }

TEST(MonthCurves, ANullOnTheFirstRowPutsXAtTheCentreAndLeavesYAtZero) {
    RecordingSurface surface;
    ResumeNext step;
    CurvePoint point;
    AddMonthDot(
        step, surface, Lowest, point, [] { return 1087.5; }, NullValue);
    EXPECT_EQ(step.Number(), InvalidUseOfNull);
    EXPECT_EQ(point.X.ToDouble(), 1087.5);
    EXPECT_EQ(point.Y, 0);
    const auto circles = surface.Circles();
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_EQ(circles[0].x1, 1087.5);
    EXPECT_EQ(circles[0].y1, 0);
}

TEST(MonthCurves, ANullLaterKeepsTheOldPlaceAndDrawsNoSegment) {
    RecordingSurface surface;
    ResumeNext step;
    CurvePoint point{Variant(127.5), 3000};
    AddMonthDot(
        step, surface, Lowest, point, [] { return 367.5; }, NullValue);
    EXPECT_EQ(surface.Count(DrawOp::Line), 0);
    EXPECT_EQ(point.X.ToDouble(), 367.5);  // X moved on, Y stayed
    EXPECT_EQ(point.Y, 3000);
    const auto circles = surface.Circles();
    ASSERT_EQ(circles.size(), 2u);
    EXPECT_EQ(circles[0].color, RGB(230, 230, 170));
    EXPECT_EQ(circles[1].color, RGB(255, 230, 170));
    EXPECT_EQ(circles[1].y1, 3000);
}

TEST(MonthCurves, OnPaperANullFailsTheDotAtOnce) {
    RecordingSurface surface;
    RunDirectly run;
    CurvePoint point;
    EXPECT_THROW(AddMonthDot(
                     run, surface, Lowest, point, [] { return 1087.5; }, NullValue),
                 RuntimeError);
    EXPECT_EQ(surface.Count(DrawOp::Circle), 0);
}

TEST(MonthCurves, OnlyTheMeanTemperatureSegmentDiffersOnPaper) {
    const auto screen = MonthCurves(MonthMedium::Screen);
    const auto paper = MonthCurves(MonthMedium::Paper);
    for (size_t k = 0; k < 5; ++k) EXPECT_EQ(screen[k].segment, paper[k].segment) << k;
    EXPECT_EQ(screen[5].segment, RGB(192, 0, 192));
    EXPECT_EQ(paper[5].segment, RGB(192, 192, 255));
    EXPECT_EQ(paper[5].oldEdge, RGB(192, 0, 192));
    EXPECT_EQ(paper[5].fill, RGB(255, 192, 255));
}

}  // namespace
