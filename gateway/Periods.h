// The six periods of a forecast page and what the source says of each: "Today" (or "Tonight"),
// then day and night by weekday name, in the airport's local time. A day runs from 06:00 to
// 18:00, a night from 18:00 to 06:00, as forecasters cut them.
#pragma once

#include "SourceReply.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringView>
#include <QTimeZone>

#include <optional>

namespace skelda {

struct Period {
    QString heading;  // "Today", "Tonight", "Wednesday", "Wednesday night"
    QDateTime start;  // UTC, included
    QDateTime end;    // UTC, excluded
    bool day;         // a day period (its high is given) rather than a night (its low)
};

// The six periods that follow NowUtc in Zone. Between 06:00 and 18:00 local the first is "Today",
// from the hour under way to 18:00, and the next "Tonight"; otherwise the first is "Tonight",
// from the hour under way to 06:00, and the next is the coming day under its weekday's name.
QList<Period> SixPeriods(const QDateTime& nowUtc, const QTimeZone& zone);

// A weather symbol of the source read as what falls: "lightrainshowers_day" is light rain in
// showers, "heavysnowandthunder" heavy snow with thunder, "fog" fog, "partlycloudy_night" nothing.
struct Weather {
    enum Kind { Dry, Fog, Rain, Sleet, Snow };
    Kind kind = Dry;
    int intensity = 0;  // -1 light, 0 moderate, 1 heavy
    bool showers = false;
    bool thunder = false;
};

// The weather of a symbol; nullopt for a symbol the source doesn't have (or no symbol).
std::optional<Weather> ReadSymbol(QStringView symbol);

// What the forecast says of one period, from the source's steps within it.
struct PeriodWeather {
    bool day = true;
    double temperature = 0;  // the highest of a day, the lowest of a night, degrees Celsius
    double cloud = 0;        // mean cloud cover, percent
    double windLowMph = 0;   // the lowest, highest and mean wind speed of the steps
    double windHighMph = 0;
    double windMeanMph = 0;
    std::optional<double> windFrom;  // the prevailing direction in degrees; nullopt when none prevails
    Weather weather;                 // the most severe weather of the period
    bool freezing = false;           // rain that falls at 0 degrees Celsius or below
    double precipitation = 0;        // mm over the period
    QString symbol;                  // the source's symbol of that weather, when not dry
};

// What the source says of Period. Nullopt when no step falls within it, or a step within it
// lacks a value or holds one out of range (a temperature beyond -90 to 60 degrees Celsius, a
// wind beyond 110 m/s, ...): such a forecast isn't given at all.
std::optional<PeriodWeather> Summarise(const QList<SourceStep>& steps, const Period& period);

}  // namespace skelda
