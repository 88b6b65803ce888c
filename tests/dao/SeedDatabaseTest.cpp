// The making of a fresh database.mdb from the schema and the seed of airports, as the build does it.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "Dao.h"
#include "SeedDatabase.h"

using namespace skelda;
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
    EXPECT_TRUE(schema.contains(u"CREATE TABLE \"Aéroports\""_s));
    EXPECT_TRUE(schema.contains(u"CREATE TABLE \"Zefir\""_s));
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
