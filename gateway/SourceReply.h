// Reading a reply of MET Norway's Locationforecast 2.0 ("compact"): GeoJSON whose
// properties.timeseries holds one step per hour for the first days and one per six hours after,
// each with the instant's values and the symbol and precipitation of the hours that follow.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace skelda {

// One step of the time series, as the source gave it: a value it left out stays nullopt, and
// nothing is checked for range here.
struct SourceStep {
    QDateTime time;                       // UTC
    std::optional<double> temperature;    // air_temperature, degrees Celsius
    std::optional<double> windSpeed;      // wind_speed, metres a second
    std::optional<double> windFrom;       // wind_from_direction, degrees
    std::optional<double> cloud;          // cloud_area_fraction, percent
    QString symbol;                       // summary.symbol_code of the shortest next_N_hours that has one
    std::optional<double> precipitation;  // details.precipitation_amount of that same next_N_hours, mm
};

// The steps of a reply, in time order; nullopt when the text isn't JSON with an array
// properties.timeseries, or a step has no readable time.
std::optional<QList<SourceStep>> ReadSourceReply(const QByteArray& reply);

}  // namespace skelda
