#include "MonthCurves.h"

namespace skelda {

std::array<MonthCurve, 6> MonthCurves(MonthMedium medium) {
    const Color pressureEdge = RGB(230, 230, 170);
    const Color newPressureEdge = RGB(1230, 230, 170);
    const Color outerTemperature = RGB(192, 192, 255);
    const Color meanTemperature = RGB(192, 0, 192);
    const Color meanTemperatureSegment = medium == MonthMedium::Screen ? meanTemperature : outerTemperature;
    return {{
        {"pmini", pressureEdge, RGB(255, 255, 220), pressureEdge, newPressureEdge},
        {"pmaxi", pressureEdge, RGB(255, 255, 220), pressureEdge, newPressureEdge},
        {"pmoyen", RGB(128, 128, 0), RGB(255, 255, 192), RGB(128, 128, 0), RGB(128, 128, 0)},
        {"tempmini", outerTemperature, RGB(220, 220, 255), outerTemperature, outerTemperature},
        {"tempmaxi", outerTemperature, RGB(220, 220, 255), outerTemperature, outerTemperature},
        {"tempmoyen", meanTemperatureSegment, RGB(255, 192, 255), meanTemperature, meanTemperature},
    }};
}

}  // namespace skelda
