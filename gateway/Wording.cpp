#include "Wording.h"

#include <QStringList>

#include <cmath>

namespace skelda {

namespace {

// The cloud cover in the forecaster's five steps, by day and by night.
int SkyStep(double cloud) {
    if (cloud < 12.5) return 0;
    if (cloud < 37.5) return 1;
    if (cloud < 62.5) return 2;
    if (cloud < 87.5) return 3;
    return 4;
}

QString SkyWords(const PeriodWeather& weather) {
    static const QStringList day{QStringLiteral("Sunny"), QStringLiteral("Mostly sunny"),
                                 QStringLiteral("Partly cloudy"), QStringLiteral("Mostly cloudy"),
                                 QStringLiteral("Cloudy")};
    static const QStringList night{QStringLiteral("Clear"), QStringLiteral("Mostly clear"),
                                   QStringLiteral("Partly cloudy"), QStringLiteral("Mostly cloudy"),
                                   QStringLiteral("Cloudy")};
    return (weather.day ? day : night)[SkyStep(weather.cloud)];
}

// What falls, in lower case: "light rain showers", "heavy snow and thunder", "freezing rain".
QString FallingWords(const PeriodWeather& weather) {
    const Weather& w = weather.weather;
    if (w.kind == Weather::Fog) return QStringLiteral("fog");
    QString words = w.intensity < 0 ? QStringLiteral("light ") : w.intensity > 0 ? QStringLiteral("heavy ") : QString();
    if (weather.freezing) {
        words += QStringLiteral("freezing rain");
    } else {
        words += w.kind == Weather::Snow    ? QStringLiteral("snow")
                 : w.kind == Weather::Sleet ? QStringLiteral("sleet")
                                            : QStringLiteral("rain");
        if (w.showers) words += QStringLiteral(" showers");
    }
    if (w.thunder) words += QStringLiteral(" and thunder");
    return words;
}

QString SkySentence(const PeriodWeather& weather) {
    QString sentence = SkyWords(weather);
    if (weather.weather.kind != Weather::Dry) sentence += QStringLiteral(" with ") + FallingWords(weather);
    const bool falls = weather.weather.kind == Weather::Rain || weather.weather.kind == Weather::Sleet ||
                       weather.weather.kind == Weather::Snow;
    const long amount = std::lround(weather.precipitation);
    // Snow is given as its depth, about ten times the water it holds: 1 mm of water, 1 cm of snow.
    if (falls && amount >= 1)
        sentence += QStringLiteral(", around %1 %2")
                        .arg(amount)
                        .arg(weather.weather.kind == Weather::Snow && !weather.freezing ? QStringLiteral("cm")
                                                                                        : QStringLiteral("mm"));
    return sentence + u'.';
}

QString WindSentence(const PeriodWeather& weather) {
    const long low = std::lround(weather.windLowMph);
    const long high = std::lround(weather.windHighMph);
    if (high < 3) return QStringLiteral("Calm wind.");
    QString from = weather.windFrom ? CompassWord(*weather.windFrom) : QStringLiteral("variable");
    from[0] = from[0].toUpper();
    if (high - low < 5) return QStringLiteral("%1 wind around %2 mph.").arg(from).arg(std::lround(weather.windMeanMph));
    return QStringLiteral("%1 wind %2 to %3 mph.").arg(from).arg(low).arg(high);
}

}  // namespace

int Fahrenheit(double celsius) { return int(std::lround(celsius * 9 / 5 + 32)); }

QString TemperatureSentence(bool day, int fahrenheit) {
    const QString which = day ? QStringLiteral("High") : QStringLiteral("Low");
    if (fahrenheit <= -10) return QStringLiteral("%1 %2 below zero.").arg(which).arg(-fahrenheit);
    if (fahrenheit >= 100) return QStringLiteral("%1 %2 degrees.").arg(which).arg(fahrenheit);
    return QStringLiteral("%1 %2F.").arg(which).arg(fahrenheit);
}

QString CompassWord(double degrees) {
    static const QStringList words{
        QStringLiteral("north"), QStringLiteral("northeast"), QStringLiteral("east"), QStringLiteral("southeast"),
        QStringLiteral("south"), QStringLiteral("southwest"), QStringLiteral("west"), QStringLiteral("northwest")};
    const double turned = std::fmod(std::fmod(degrees, 360) + 360 + 22.5, 360);
    return words[int(turned / 45) % 8];
}

QString BlockText(const PeriodWeather& weather) {
    return SkySentence(weather) + u' ' + WindSentence(weather) + u' ' +
           TemperatureSentence(weather.day, Fahrenheit(weather.temperature));
}

QString PictureName(const PeriodWeather& weather) {
    if (!weather.symbol.isEmpty()) return weather.symbol + QStringLiteral(".gif");
    static const QStringList skies{QStringLiteral("clearsky"), QStringLiteral("fair"), QStringLiteral("partlycloudy"),
                                   QStringLiteral("cloudy"), QStringLiteral("cloudy")};
    const int step = SkyStep(weather.cloud);
    QString name = skies[step];
    if (step < 3) name += weather.day ? QStringLiteral("_day") : QStringLiteral("_night");
    return name + QStringLiteral(".gif");
}

}  // namespace skelda
