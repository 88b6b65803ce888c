// The places the forecast pages are made for: one row per forecast code, read from places.csv,
// which is built into the library (gateway/makeplaces.py makes it from Debian's
// weather-util-data).
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace skelda {

struct Place {
    QString code;      // the forecast code: a station code, or a code of the old portal
    double latitude;   // degrees north, four decimals
    double longitude;  // degrees east, four decimals
    QString zone;      // IANA time zone, such as "Europe/Paris"
    QString name;      // the airport's name (the city's for an old code), plain ASCII
};

// Reads a table in the form of places.csv: lines starting with "#" and blank lines are skipped,
// then the header "code;latitude;longitude;zone;name" and one place per line. Gives false, with
// a message naming the line, for a text it can't read.
bool ReadPlaces(const QString& csv, QList<Place>& places, QString* error);

// The place of a forecast code in the built-in table, its letters in either case; nullopt for a
// code the table doesn't hold.
std::optional<Place> FindPlace(QStringView code);

// The whole built-in table, in its order.
const QList<Place>& BuiltInPlaces();

// The path of the place's forecast on the source, Locationforecast 2.0 compact:
// "/weatherapi/locationforecast/2.0/compact?lat=<lat>&lon=<lon>", with four decimals, since the
// source may refuse a client that asks with more.
QByteArray SourcePath(const Place& place);

}  // namespace skelda
