#include "Places.h"

#include <QFile>
#include <QHash>

#include <stdexcept>

namespace skelda {

bool ReadPlaces(const QString& csv, QList<Place>& places, QString* error) {
    const auto fail = [error](qsizetype line, const QString& why) {
        if (error) *error = QStringLiteral("line %1: %2").arg(line).arg(why);
        return false;
    };
    places.clear();
    bool header = false;
    const QStringList lines = csv.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        const QStringList fields = line.split(u';');
        if (!header) {
            if (line != QStringLiteral("code;latitude;longitude;zone;name"))
                return fail(i + 1, QStringLiteral("the header isn't code;latitude;longitude;zone;name"));
            header = true;
            continue;
        }
        if (fields.size() != 5) return fail(i + 1, QStringLiteral("5 fields expected"));
        bool latitudeRead = false;
        bool longitudeRead = false;
        Place place{fields[0], fields[1].toDouble(&latitudeRead), fields[2].toDouble(&longitudeRead), fields[3],
                    fields[4]};
        if (place.code.isEmpty() || !latitudeRead || !longitudeRead || place.zone.isEmpty())
            return fail(i + 1, QStringLiteral("a code, two numbers and a zone expected"));
        if (place.latitude < -90 || place.latitude > 90 || place.longitude < -180 || place.longitude > 180)
            return fail(i + 1, QStringLiteral("coordinates out of range"));
        places.append(place);
    }
    if (!header) return fail(lines.size(), QStringLiteral("no header"));
    return true;
}

const QList<Place>& BuiltInPlaces() {
    static const QList<Place> places = [] {
        QFile file(QStringLiteral(":/skelda/gateway/places.csv"));
        if (!file.open(QIODevice::ReadOnly)) throw std::logic_error("the built-in table of places is missing");
        QList<Place> read;
        QString error;
        if (!ReadPlaces(QString::fromUtf8(file.readAll()), read, &error))
            throw std::logic_error("the built-in table of places is broken: " + error.toStdString());
        return read;
    }();
    return places;
}

std::optional<Place> FindPlace(QStringView code) {
    static const QHash<QString, qsizetype> index = [] {
        QHash<QString, qsizetype> byCode;
        const QList<Place>& places = BuiltInPlaces();
        for (qsizetype i = 0; i < places.size(); ++i) byCode.insert(places[i].code.toUpper(), i);
        return byCode;
    }();
    const auto found = index.constFind(code.toString().toUpper());
    if (found == index.constEnd()) return std::nullopt;
    return BuiltInPlaces()[*found];
}

QByteArray SourcePath(const Place& place) {
    return "/weatherapi/locationforecast/2.0/compact?lat=" + QByteArray::number(place.latitude, 'f', 4) +
           "&lon=" + QByteArray::number(place.longitude, 'f', 4);
}

}  // namespace skelda
