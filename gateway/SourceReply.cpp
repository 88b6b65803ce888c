#include "SourceReply.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace skelda {

namespace {

std::optional<double> NumberAt(const QJsonObject& object, QLatin1StringView key) {
    const QJsonValue value = object.value(key);
    if (!value.isDouble()) return std::nullopt;
    return value.toDouble();
}

// The symbol and the precipitation of the next hour, or of the next six or twelve when the step
// has no hourly part (the later, six-hourly steps).
void ReadNextHours(const QJsonObject& data, SourceStep& step) {
    for (const QLatin1StringView key :
         {QLatin1StringView("next_1_hours"), QLatin1StringView("next_6_hours"), QLatin1StringView("next_12_hours")}) {
        const QJsonObject next = data.value(key).toObject();
        if (next.isEmpty()) continue;
        step.symbol =
            next.value(QLatin1StringView("summary")).toObject().value(QLatin1StringView("symbol_code")).toString();
        step.precipitation =
            NumberAt(next.value(QLatin1StringView("details")).toObject(), QLatin1StringView("precipitation_amount"));
        return;
    }
}

}  // namespace

std::optional<QList<SourceStep>> ReadSourceReply(const QByteArray& reply) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(reply, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) return std::nullopt;
    const QJsonValue series =
        document.object().value(QLatin1StringView("properties")).toObject().value(QLatin1StringView("timeseries"));
    if (!series.isArray()) return std::nullopt;

    QList<SourceStep> steps;
    for (const QJsonValue entry : series.toArray()) {
        const QJsonObject object = entry.toObject();
        SourceStep step;
        step.time = QDateTime::fromString(object.value(QLatin1StringView("time")).toString(), Qt::ISODate);
        if (!step.time.isValid()) return std::nullopt;
        // The source writes every time in UTC; one without its "Z" is taken as UTC too, whatever
        // the machine's zone.
        if (step.time.timeSpec() == Qt::LocalTime) step.time.setTimeSpec(Qt::UTC);
        step.time = step.time.toUTC();
        const QJsonObject data = object.value(QLatin1StringView("data")).toObject();
        const QJsonObject details =
            data.value(QLatin1StringView("instant")).toObject().value(QLatin1StringView("details")).toObject();
        step.temperature = NumberAt(details, QLatin1StringView("air_temperature"));
        step.windSpeed = NumberAt(details, QLatin1StringView("wind_speed"));
        step.windFrom = NumberAt(details, QLatin1StringView("wind_from_direction"));
        step.cloud = NumberAt(details, QLatin1StringView("cloud_area_fraction"));
        ReadNextHours(data, step);
        steps.append(step);
    }
    std::stable_sort(steps.begin(), steps.end(),
                     [](const SourceStep& a, const SourceStep& b) { return a.time < b.time; });
    return steps;
}

}  // namespace skelda
