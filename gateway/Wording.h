// The words of a forecast block: the sentences a forecaster would write for one period, in the
// restricted alphabet that Skelda's forecast reader takes (see PageMaker.h): no capital F but the
// one of the temperature at the end, no "<" nor ">".
#pragma once

#include "Periods.h"

#include <QString>

namespace skelda {

// The text of a block: the sky and what falls, the wind, then the temperature, such as
// "Partly cloudy with light rain, around 3 mm. Southwest wind 5 to 10 mph. High 75F."
QString BlockText(const PeriodWeather& weather);

// "High 75F." for a day, "Low 54F." for a night, in whole degrees Fahrenheit. The reader takes
// the two characters before the F as the number: "High 5F." and "Low -5F." still read right, but
// from -10F down and from 100F up they can't, and the temperature is said in words ("Low 15 below
// zero.", "High 104 degrees."), without an F.
QString TemperatureSentence(bool day, int fahrenheit);

// Degrees Celsius to the nearest whole degree Fahrenheit.
int Fahrenheit(double celsius);

// The direction a wind comes from, as one of the eight words "north", "northeast", ... "northwest".
QString CompassWord(double degrees);

// The name of the block's picture, ending in ".gif": the source's symbol of the period's weather,
// or one made from the sky ("clearsky_day.gif", "cloudy.gif").
QString PictureName(const PeriodWeather& weather);

}  // namespace skelda
