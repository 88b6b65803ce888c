// A fresh database.mdb for a test: the program's schema and a few airports, in a temporary folder
// that goes away with the object.
//
//     TestDatabase db({Airport("LFPB", "Paris", "Le Bourget")});
//     db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 2), .time = QTime(10, 0), .forcenoeuds = 12});
//     ... the code under test opens db.Path() ...
//     EXPECT_EQ(db.Count("Zefir"), 2);
//
// Exec, Value, Count and AddObservation go straight to the file with SQLite, outside the access
// layer, so that a test can prepare a case or check a result without the code under test.
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QTime>
#include <QVariant>
#include <optional>

#include "SeedDatabase.h"

namespace skelda::test {

// An airport row: active, not preferred and without a forecast page unless told otherwise.
SeedAirport Airport(const QString& ida, const QString& ville, const QString& aeroport, bool active = true,
                    bool preferred = false, std::optional<QString> codeforecast = std::nullopt);

// One row of table Zefir, in the program's terms. Unset texts are stored empty; the airport
// number, the place, the temperature and the pressure are Null when not given.
struct TestObservation {
    std::optional<int> numAeroport{};
    std::optional<QString> lieu{};
    QDate day{};
    QTime time{};
    int forcenoeuds = 0;
    QString orientation = QStringLiteral("000");
    int forcerafale = 0;
    bool variable = false;
    int secteur1 = 0;
    int secteur2 = 0;
    QString visibilite{};
    QString temps{};
    QString nuage{};
    std::optional<int> temperature{};
    std::optional<int> pression{};
    QString metaf{};
};

class TestDatabase {
public:
    // Makes database.mdb with these airports (numbered 1, 2, ... in this order) in a new
    // temporary folder. A failure is reported to the running test, and IsValid() is false.
    explicit TestDatabase(const QList<SeedAirport>& airports = {});

    bool IsValid() const { return !path_.isEmpty(); }
    QString Folder() const { return dir_.path(); }  // what the program takes for its own directory
    QString Path() const { return path_; }          // Folder() + "/database.mdb"

    // Runs SQLite's own SQL on the file; a failure is reported to the running test, and gives false.
    bool Exec(const QString& sql) const;
    // The first column of the first row of a query; an invalid QVariant for Null or no row.
    QVariant Value(const QString& sql) const;
    // The number of rows of a table or view.
    int Count(const QString& table) const;
    // Adds one observation, with the day and time in their stored form.
    void AddObservation(const TestObservation& row) const;

private:
    QTemporaryDir dir_;
    QString path_;
};

// The three airports that the tests of the forms share, all active: Paris - Le Bourget (idx 1, the
// preferred one), London - Heathrow (idx 2) and Roissy - Charles de Gaulle (idx 3). Lists by city
// show Heathrow on line 0, Le Bourget on line 1 and Roissy on line 2.
QList<SeedAirport> Aeroports();

// Makes database.mdb with the airports in a folder that the caller owns. Gives its path, or an
// empty text (and a failure reported to the running test) when it can't be made.
QString CreateTestDatabase(const QString& folder, const QList<SeedAirport>& airports);

}  // namespace skelda::test
