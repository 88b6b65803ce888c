#include "Periods.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace skelda {

namespace {

// Weekday names in English whatever the machine's language: the page is read by a program.
QString WeekdayName(const QDate& date) {
    static const QStringList names{QStringLiteral("Monday"),   QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
                                   QStringLiteral("Thursday"), QStringLiteral("Friday"),  QStringLiteral("Saturday"),
                                   QStringLiteral("Sunday")};
    return names[date.dayOfWeek() - 1];
}

QDateTime At(const QDate& date, int hour, const QTimeZone& zone) {
    return QDateTime(date, QTime(hour, 0), zone).toUTC();
}

constexpr double MphPerMetreSecond = 3600.0 / 1609.344;

bool Within(const std::optional<double>& value, double low, double high) {
    return value && std::isfinite(*value) && *value >= low && *value <= high;
}

int Severity(const Weather& weather) {
    int severity = weather.thunder ? 1000 : 0;
    if (weather.kind == Weather::Fog) return severity + 50;
    if (weather.kind == Weather::Dry) return severity;
    // Heavier first, then snow over sleet over rain, then steady over showers.
    return severity + (weather.intensity + 2) * 100 + int(weather.kind) * 10 + (weather.showers ? 0 : 1);
}

}  // namespace

QList<Period> SixPeriods(const QDateTime& nowUtc, const QTimeZone& zone) {
    const QDateTime now = nowUtc.toUTC();
    const QDateTime hourUnderWay(now.date(), QTime(now.time().hour(), 0), Qt::UTC);
    const QDateTime local = now.toTimeZone(zone);
    const int hour = local.time().hour();
    QDate date = local.date();

    // The first period starts with the hour under way, whose step the source's reply begins with.
    QList<Period> periods;
    if (hour >= 6 && hour < 18) {
        periods.append({QStringLiteral("Today"), hourUnderWay, At(date, 18, zone), true});
        periods.append({QStringLiteral("Tonight"), At(date, 18, zone), At(date.addDays(1), 6, zone), false});
        date = date.addDays(1);
    } else {
        if (hour >= 18) date = date.addDays(1);
        periods.append({QStringLiteral("Tonight"), hourUnderWay, At(date, 6, zone), false});
    }
    while (periods.size() < 6) {
        const QString name = WeekdayName(date);
        periods.append({name, At(date, 6, zone), At(date, 18, zone), true});
        if (periods.size() < 6)
            periods.append({name + QStringLiteral(" night"), At(date, 18, zone), At(date.addDays(1), 6, zone), false});
        date = date.addDays(1);
    }
    return periods;
}

std::optional<Weather> ReadSymbol(QStringView symbol) {
    QStringView name = symbol;
    for (const QStringView suffix : {u"_day", u"_night", u"_polartwilight"}) {
        if (name.endsWith(suffix)) {
            name.chop(suffix.size());
            break;
        }
    }
    if (name == u"clearsky" || name == u"fair" || name == u"partlycloudy" || name == u"cloudy") return Weather{};
    if (name == u"fog") return Weather{Weather::Fog};

    Weather weather;
    if (name.endsWith(u"andthunder")) {
        weather.thunder = true;
        name.chop(10);
    }
    if (name.endsWith(u"showers")) {
        weather.showers = true;
        name.chop(7);
    }
    if (name.startsWith(u"light")) {
        weather.intensity = -1;
        name = name.mid(5);
        // The source spells two of its symbols "lightssleet..." and "lightssnow...".
        if (name == u"ssleet" || name == u"ssnow") name = name.mid(1);
    } else if (name.startsWith(u"heavy")) {
        weather.intensity = 1;
        name = name.mid(5);
    }
    if (name == u"rain")
        weather.kind = Weather::Rain;
    else if (name == u"sleet")
        weather.kind = Weather::Sleet;
    else if (name == u"snow")
        weather.kind = Weather::Snow;
    else
        return std::nullopt;
    return weather;
}

std::optional<PeriodWeather> Summarise(const QList<SourceStep>& steps, const Period& period) {
    PeriodWeather summary;
    summary.day = period.day;
    int count = 0;
    double cloudSum = 0;
    double speedSum = 0;
    double east = 0;
    double north = 0;
    int severity = -1;
    double severeTemperature = 0;
    for (const SourceStep& step : steps) {
        if (step.time < period.start || step.time >= period.end) continue;
        if (!Within(step.temperature, -90, 60) || !Within(step.windSpeed, 0, 110) || !Within(step.windFrom, 0, 360) ||
            !Within(step.cloud, 0, 100))
            return std::nullopt;
        if (step.precipitation && !Within(step.precipitation, 0, 500)) return std::nullopt;

        const double temperature = *step.temperature;
        const double mph = *step.windSpeed * MphPerMetreSecond;
        if (count == 0) {
            summary.temperature = temperature;
            summary.windLowMph = summary.windHighMph = mph;
        }
        summary.temperature =
            period.day ? std::max(summary.temperature, temperature) : std::min(summary.temperature, temperature);
        summary.windLowMph = std::min(summary.windLowMph, mph);
        summary.windHighMph = std::max(summary.windHighMph, mph);
        speedSum += mph;
        cloudSum += *step.cloud;
        const double radians = *step.windFrom * std::numbers::pi / 180;
        east += mph * std::sin(radians);
        north += mph * std::cos(radians);
        summary.precipitation += step.precipitation.value_or(0);

        if (const std::optional<Weather> weather = ReadSymbol(step.symbol)) {
            if (Severity(*weather) > severity) {
                severity = Severity(*weather);
                summary.weather = *weather;
                summary.symbol = weather->kind == Weather::Dry ? QString() : step.symbol;
                severeTemperature = temperature;
            }
        }
        ++count;
    }
    if (count == 0) return std::nullopt;
    summary.cloud = cloudSum / count;
    summary.windMeanMph = speedSum / count;
    // A direction prevails when the winds of the period, added as arrows, keep at least half of
    // their length: winds that turn all round make a variable wind.
    if (speedSum > 0 && std::hypot(east, north) >= 0.5 * speedSum) {
        double degrees = std::atan2(east, north) * 180 / std::numbers::pi;
        if (degrees < 0) degrees += 360;
        summary.windFrom = degrees;
    }
    summary.freezing = summary.weather.kind == Weather::Rain && severeTemperature <= 0;
    return summary;
}

}  // namespace skelda
