// The making of a fresh database.mdb from the schema and the seed of airports, as the build does it.
#include <gtest/gtest.h>

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include "Dao.h"
#include "EarlierLayout.h"
#include "Failures.h"
#include "SeedDatabase.h"

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kSeed =
    u"\uFEFFIDA;aéroport;ville;timezone;activé;préféré;codeforecast\r\n"
    "LFPG;Paris-Charles de Gaulle;Paris;1;1;1;FRXX0076\r\n"
    "LFLL;Lyon-Saint-Exupéry;Lyon;1;0;0;\r\n"
    "\r\n"
    "KORD;\"O'Hare; Chicago\";Chicago;-6;1;0;USIL0225\r\n"_s;

}  // namespace

TEST(SeedDatabase, TheSchemaIsBuiltIn) {
    const QString schema = DatabaseSchema();
    EXPECT_TRUE(schema.contains(u"CREATE TABLE IF NOT EXISTS \"Aéroports\""_s));
    EXPECT_TRUE(schema.contains(u"CREATE TABLE IF NOT EXISTS \"Zefir\""_s));
    EXPECT_TRUE(schema.contains(u"CREATE VIEW \"Heure de pointe selon zefir\""_s));
}

TEST(SeedDatabase, TheSeedIsReadByItsHeader) {
    QList<SeedAirport> airports;
    QString error;
    ASSERT_TRUE(ParseAirports(kSeed, airports, &error)) << error.toStdString();
    ASSERT_EQ(airports.size(), 3);
    EXPECT_EQ(airports[0].ida, u"LFPG"_s);
    EXPECT_EQ(airports[0].aeroport, u"Paris-Charles de Gaulle"_s);
    EXPECT_TRUE(airports[0].preferred);
    EXPECT_EQ(airports[0].codeforecast, u"FRXX0076"_s);
    EXPECT_FALSE(airports[1].active);
    EXPECT_FALSE(airports[1].codeforecast.has_value());
    EXPECT_EQ(airports[2].aeroport, u"O'Hare; Chicago"_s);
    EXPECT_EQ(airports[2].timezone, u"-6"_s);
}

TEST(SeedDatabase, TheColumnsMayComeInAnyOrder) {
    QList<SeedAirport> airports;
    ASSERT_TRUE(
        ParseAirports(u"ville;IDA;CODEFORECAST;préféré;activé;aéroport;timezone\nNice;LFMN;;0;1;Côte d'Azur;1\n"_s,
                      airports, nullptr));
    ASSERT_EQ(airports.size(), 1);
    EXPECT_EQ(airports[0].ida, u"LFMN"_s);
    EXPECT_EQ(airports[0].ville, u"Nice"_s);
}

TEST(SeedDatabase, AnEmptySeedGivesNoAirports) {
    QList<SeedAirport> airports{SeedAirport{}};
    EXPECT_TRUE(ParseAirports(u""_s, airports, nullptr));
    EXPECT_TRUE(airports.isEmpty());
}

TEST(SeedDatabase, ABadLineIsNamed) {
    QList<SeedAirport> airports;
    QString error;
    EXPECT_FALSE(
        ParseAirports(u"IDA;aéroport;ville;timezone;activé;préféré;codeforecast\nLFPG;Paris\n"_s, airports, &error));
    EXPECT_TRUE(error.startsWith(u"line 2"_s)) << error.toStdString();
    EXPECT_FALSE(ParseAirports(u"IDA;ville\nLFPG;Paris\n"_s, airports, &error));
    EXPECT_TRUE(error.startsWith(u"line 1"_s)) << error.toStdString();
    EXPECT_FALSE(ParseAirports(u"IDA;aéroport;ville;timezone;activé;préféré;codeforecast\nLFPG;P;P;1;oui;0;\n"_s,
                               airports, &error));
}

TEST(SeedDatabase, TheMadeFileOpensWithItsAirportsNumberedInOrder) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    QString error;
    ASSERT_TRUE(CreateDatabase(path, DatabaseSchema(), kSeed, &error)) << error.toStdString();
    Database base = OpenDatabase(path);
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenSnapshot);
    rs.MoveLast();
    EXPECT_EQ(rs.RecordCount(), 3);
    EXPECT_EQ(rs.Fields(u"idx"_s), Variant(int32_t(3)));
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"KORD"_s));
    EXPECT_EQ(rs.Fields(u"activé"_s), Variant(true));
    rs.MovePrevious();
    EXPECT_TRUE(rs.Fields(u"codeforecast"_s).IsNull());
    EXPECT_TRUE(base.OpenRecordset(u"Zefir"_s).Eof());
}

TEST(SeedDatabase, AnOldFileIsReplacedAndAFailureLeavesItStanding) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    ASSERT_TRUE(CreateDatabase(path, DatabaseSchema(), kSeed, nullptr));
    ASSERT_TRUE(CreateDatabase(path, DatabaseSchema(), QList<SeedAirport>{}, nullptr));
    EXPECT_TRUE(OpenDatabase(path).OpenRecordset(u"Aéroports"_s).Eof());

    QString error;
    EXPECT_FALSE(CreateDatabase(path, u"CREATE TABLE broken ("_s, kSeed, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_NO_THROW(OpenDatabase(path).OpenRecordset(u"Aéroports"_s));
    EXPECT_FALSE(QFile::exists(path + u".building"_s));
}

// The delivered table of airports, read as the build reads it.
namespace {

QList<SeedAirport> DeliveredAirports() {
    QFile file(QStringLiteral(SKELDA_SOURCE_DIR "/data/airports.csv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<SeedAirport> airports;
    QString error;
    EXPECT_TRUE(ParseAirports(QString::fromUtf8(file.readAll()), airports, &error)) << error.toStdString();
    return airports;
}

const SeedAirport* ByCode(const QList<SeedAirport>& airports, const QString& code) {
    for (const SeedAirport& airport : airports)
        if (airport.ida == code) return &airport;
    return nullptr;
}

}  // namespace

TEST(DeliveredAirports, OranEsSeniaIsDaooAndTlemcensCodeIsNotGivenToOran) {
    const QList<SeedAirport> airports = DeliveredAirports();
    const SeedAirport* oran = ByCode(airports, u"DAOO"_s);
    ASSERT_NE(oran, nullptr);
    EXPECT_EQ(oran->ville, u"Oran"_s);
    EXPECT_TRUE(oran->aeroport.startsWith(u"Oran"_s));
    const SeedAirport* daon = ByCode(airports, u"DAON"_s);
    if (daon != nullptr) {
        EXPECT_NE(daon->ville, u"Oran"_s);  // DAON is Tlemcen-Zenata
    }
}

TEST(DeliveredAirports, EveryCodeIsFourCapitalLettersAndNamesOneAirport) {
    const QList<SeedAirport> airports = DeliveredAirports();
    ASSERT_GT(airports.size(), 160);
    QSet<QString> seen;
    for (const SeedAirport& airport : airports) {
        EXPECT_EQ(airport.ida.size(), 4) << airport.ida.toStdString();
        for (QChar c : airport.ida) EXPECT_TRUE(c >= u'A' && c <= u'Z') << airport.ida.toStdString();
        EXPECT_FALSE(seen.contains(airport.ida)) << airport.ida.toStdString();
        seen.insert(airport.ida);
    }
}

// A database made by an earlier version: its observations, its indexes and its saved query.
namespace {

const QString kEarlierLayout = QString::fromUtf8(EarlierTables) +
                               uR"(
CREATE VIEW "Heure de pointe selon zefir" AS SELECT "NumAéroport" AS "numaéroport", avg("forcenoeuds") AS "zefirmoyen"
    FROM "Zefir" GROUP BY "NumAéroport", "daterelevé";
INSERT INTO "Aéroports" ("IDA", "aéroport", "ville", "activé", "préféré") VALUES ('LFPB', 'Le Bourget', 'Paris', 1, 1);
INSERT INTO "Zefir" ("NumAéroport", "daterelevé", "heurerelevé", "forcenoeuds") VALUES (1, '2004-11-02', '10:00:00', -6);
INSERT INTO "Zefir" ("NumAéroport", "daterelevé", "heurerelevé", "forcenoeuds") VALUES (1, '2004-11-02', '10:30:00', 2);
INSERT INTO "Zefir" ("NumAéroport", "daterelevé", "heurerelevé", "forcenoeuds") VALUES (NULL, '2004-11-02', '10:00:00', 3);
)"_s;

// Makes the earlier database at Path with SQLite's own hands, plus Extra.
void MakeEarlierDatabase(const QString& path, const QString& extra = {}) {
    QString error;
    // The seed's own maker runs any SQL text; an empty list of airports adds nothing.
    ASSERT_TRUE(CreateDatabase(path, kEarlierLayout + extra, QList<SeedAirport>{}, &error)) << error.toStdString();
}

int Count(const QString& path, const QString& sql) {
    Database base = OpenDatabase(path);
    Recordset rs = base.OpenRecordset(sql, dbOpenSnapshot);
    return rs.Eof() ? 0 : rs.Fields(u"n"_s).ToInt32();
}

int AddUnresolvedRow(const QString& path) {
    Database base = OpenDatabase(path);
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    zefir.AddNew();
    zefir.SetField(u"daterelevé"_s, u"02/11/2004"_s);
    zefir.SetField(u"heurerelevé"_s, u"10:00"_s);
    try {
        zefir.Update();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

}  // namespace

TEST(UpgradeDatabase, TheSchemaSaysItsVersion) { EXPECT_EQ(SchemaVersion(DatabaseSchema()), 3); }

TEST(UpgradeDatabase, AnEarlierFileGetsTheNewIndexAndSavedQueryAndKeepsItsRows) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    MakeEarlierDatabase(path);
    EXPECT_EQ(AddUnresolvedRow(path), 0);  // under the earlier rule, a Null airport repeats freely
    ASSERT_EQ(Count(path, u"select count(*) as n from zefir"_s), 4);

    QString error;
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema(), &error), Upgrade::KeptOldRepeats) << error.toStdString();
    EXPECT_EQ(Count(path, u"select count(*) as n from zefir"_s), 4);

    QTemporaryDir clean;
    const QString other = clean.filePath(u"database.mdb"_s);
    MakeEarlierDatabase(other);
    EXPECT_EQ(UpgradeDatabase(other, DatabaseSchema(), &error), Upgrade::Upgraded) << error.toStdString();
    EXPECT_EQ(Count(other, u"select count(*) as n from zefir"_s), 3);
    EXPECT_EQ(AddUnresolvedRow(other), int(DaoDuplicateKey));
    // The table of days is made and filled from the rows already there.
    EXPECT_EQ(Count(other, u"select count(*) as n from [Zefir.daterelevé]"_s), 1);
    // The saved query is the new one: the variable wind counts as 6 knots.
    Database base = OpenDatabase(other);
    Recordset day = base.OpenRecordset(
        u"select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir] where numaéroport = 1 and mois = 11 and annee=2004"_s,
        dbOpenSnapshot);
    ASSERT_FALSE(day.Eof());
    EXPECT_DOUBLE_EQ(day.Fields(u"zefirmoyen"_s).ToDouble(), 4);
    EXPECT_EQ(day.Fields(u"zefirmaxi"_s).ToInt16(), 6);
    base.Close();
    // Done once: the file now says it is up to date.
    EXPECT_EQ(UpgradeDatabase(other, DatabaseSchema(), &error), Upgrade::UpToDate);
}

TEST(UpgradeDatabase, TheCallerHearsOfAnUpgradeOnceBeforeTheFileChangesAndOnlyThen) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    MakeEarlierDatabase(path);
    const auto hasTableOfDays = [&path] {
        return ErrorOf([&] { Count(path, u"select count(*) as n from [Zefir.daterelevé]"_s); }) == 0;
    };
    int heard = 0;
    bool tableOfDaysThen = true;
    const auto listen = [&] {
        ++heard;
        tableOfDaysThen = hasTableOfDays();
    };
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema(), nullptr, listen), Upgrade::Upgraded);
    EXPECT_EQ(heard, 1);
    EXPECT_FALSE(tableOfDaysThen);  // nothing was written yet
    EXPECT_TRUE(hasTableOfDays());
    // Up to date, missing: nothing to hear.
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema(), nullptr, listen), Upgrade::UpToDate);
    EXPECT_EQ(UpgradeDatabase(dir.filePath(u"none.mdb"_s), DatabaseSchema(), nullptr, listen), Upgrade::Failed);
    EXPECT_EQ(heard, 1);
}

TEST(UpgradeDatabase, AFileOfTheSecondLayoutGetsTheSavedQueryWhereAVariablePeakHasNoDirection) {
    // A file of layout 2, whose saved query took a variable peak's blank direction for 0.
    const QString layout2 = DatabaseSchema() +
                            uR"(
DROP VIEW "Heure de pointe selon zefir";
CREATE VIEW "Heure de pointe selon zefir" AS SELECT "NumAéroport" AS "numaéroport", 11 AS "mois", 2004 AS "annee",
    abs("forcenoeuds") AS "zefirmaxi", CAST("orientationdegré" AS INTEGER) AS "Orientation" FROM "Zefir";
INSERT INTO "Zefir" ("NumAéroport", "daterelevé", "heurerelevé", "forcenoeuds", "orientationdegré", "zefirvariable")
    VALUES (1, '2004-11-02', '10:00:00', -8, '', 1);
PRAGMA user_version = 2;
)"_s;
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    QString error;
    ASSERT_TRUE(CreateDatabase(path, layout2, QList<SeedAirport>{}, &error)) << error.toStdString();
    const QString month =
        u"select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir] where numaéroport = 1 and mois = 11 and annee=2004"_s;
    {
        Database base = OpenDatabase(path);
        Recordset day = base.OpenRecordset(month, dbOpenSnapshot);
        ASSERT_FALSE(day.Eof());
        ASSERT_EQ(day.Fields(u"Orientation"_s), Variant(int32_t(0)));
    }
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema(), &error), Upgrade::Upgraded) << error.toStdString();
    Database base = OpenDatabase(path);
    Recordset day = base.OpenRecordset(month, dbOpenSnapshot);
    ASSERT_FALSE(day.Eof());
    EXPECT_EQ(day.Fields(u"zefirmaxi"_s).ToInt16(), 8);
    EXPECT_TRUE(day.Fields(u"Orientation"_s).IsNull());
    EXPECT_EQ(Count(path, u"select count(*) as n from zefir"_s), 1);
}

TEST(UpgradeDatabase, AFreshFileIsUpToDateAndAMissingOneIsNotCreated) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema()), Upgrade::Failed);
    EXPECT_FALSE(QFile::exists(path));
    QString error;
    ASSERT_TRUE(CreateDatabase(path, DatabaseSchema(), QList<SeedAirport>{}, &error));
    EXPECT_EQ(UpgradeDatabase(path, DatabaseSchema()), Upgrade::UpToDate);
}
