// What the month view and the printed report share: the six curves of a month with their colours,
// the drawing of one curve's next dot, and the wind class of a speed.
//
// The two differ in how they fail, not in what they draw: the view skips a failed statement and
// goes on with the next, the report gives up the whole page. So each routine here takes the way
// its statements are run: a ResumeNext for the view, RunDirectly for the report.
#pragma once

#include "Convert.h"
#include "Surface.h"
#include "Variant.h"

#include <array>
#include <cstdint>

namespace skelda {

// The light grey of the grid behind the curves.
inline constexpr Color GridGrey = RGB(224, 224, 224);

// Runs each statement as it is: a failure leaves the routine at once.
struct RunDirectly {
    template <class F>
    RunDirectly& operator()(F&& statement) {
        statement();
        return *this;
    }
};

// One of the six curves: its column and its colours.
struct MonthCurve {
    const char* column;
    Color segment;  // the line from the previous dot
    Color fill;     // inside of the dots
    Color oldEdge;  // edge of every dot but the newest
    Color newEdge;  // edge of the dot of the current row, once the curve is under way
};

// The six curves in the order they are drawn: lowest, highest and mean pressure, then lowest,
// highest and mean temperature.
//
// The newest dot of the two outer pressure curves is edged RGB(1230,230,170): RGB takes a part
// above 255 as 255, so it comes out warmer than the older dots until the next row redraws it.
// The paper edges the mean temperature's segments in the colour of the outer temperature curves,
// though its dots keep their own colours: both are settled, and the report and screen differ so.
enum class MonthMedium { Screen, Paper };
std::array<MonthCurve, 6> MonthCurves(MonthMedium medium);

// Where a curve has come to: the last dot drawn. X stays Empty until the first dot.
struct CurvePoint {
    Variant X;
    int16_t Y = 0;
};

inline constexpr double MonthDotRadius = 48;

// Adds the dot of the current row to a curve: the first one alone, every later one as a segment
// from the last dot, that dot drawn again over the segment's end, then the new dot. XCentre gives
// the middle of the row's day and Value the y of its value (either may fail: a Null). The segment
// ends at the unrounded y, the dot stands at the rounded one.
template <class Run, class XCentre, class Value>
void AddMonthDot(Run& run, Surface& surface, const MonthCurve& curve, CurvePoint& point, XCentre xCentre, Value value) {
    // The first dot is known by X being 0, which Empty is.
    bool first = false;
    bool tested = false;
    run([&] {
        first = point.X.ToDouble() == 0;
        tested = true;
    });
    if (!tested) return;
    if (first) {
        // The width 2 is set and at once taken back: nothing is drawn with it. Kept as it is.
        run([&] { surface.SetDrawWidth(2); });
        run([&] { point.X = Variant(double(xCentre())); });
        run([&] { point.Y = CInt(value()); });
        run([&] { surface.SetDrawWidth(1); });
        run([&] { surface.SetFillColor(curve.fill); });
        run([&] { surface.Circle(point.X.ToDouble(), point.Y, MonthDotRadius, curve.oldEdge); });
        return;
    }
    run([&] { surface.SetDrawWidth(2); });
    run([&] { surface.Line(point.X.ToDouble(), point.Y, xCentre(), value(), curve.segment); });
    run([&] { surface.SetDrawWidth(1); });
    run([&] { surface.SetFillColor(curve.fill); });
    run([&] { surface.Circle(point.X.ToDouble(), point.Y, MonthDotRadius, curve.oldEdge); });
    run([&] { point.X = Variant(double(xCentre())); });
    run([&] { point.Y = CInt(value()); });
    run([&] { surface.Circle(point.X.ToDouble(), point.Y, MonthDotRadius, curve.newEdge); });
}

// The wind class of a speed as the month counts it: (speed - 1) / 5 to the nearest, halves to
// even, so 0 to 3 knots are 0, 4 to 8 are 1, 9 to 13 are 2. Below 0 is left to the caller. Fails
// on a Null (94) like any arithmetic on it.
inline int16_t MonthWindClass(const Variant& knots) { return CInt((knots.ToDouble() - 1) / 5); }

}  // namespace skelda
