// Every query text of the program, as its users write it, through the access layer on a real
// database: what each one gives back is what its user counts on.
#include <gtest/gtest.h>

#include "Dao.h"
#include "TestDatabase.h"

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

// The texts, built as the program builds them.
QString DayQuery(int airport, QDate day) {
    return u"select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir where numaéroport = "_s +
           QString::number(airport) + u" and daterelevé = #"_s + day.toString(u"MM/dd/yy"_s) +
           u"# order by Format([HeureRelevé],'Short Time')"_s;
}

const QString kListOfDays =
    u"SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"_s;
const QString kAllAirports = u"select * from aéroports  "_s;
const QString kActiveAirports = u"select * from aéroports  where (activé = true) order by ville"_s;
const QString kAirportsByCity = u"select * from aéroports  order by ville"_s;

QString MonthQuery(int airport, int month, int year) {
    return u"select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir] where numaéroport = "_s +
           QString::number(airport) + u" and mois = "_s + QString::number(month) + u" and annee="_s +
           QString::number(year);
}

// One column of every row, up to the end.
QList<Variant> Column(Recordset rs, const QString& name) {
    QList<Variant> values;
    while (!rs.Eof()) {
        values << rs.Fields(name);
        rs.MoveNext();
    }
    return values;
}

QStringList Texts(const QList<Variant>& values) {
    QStringList texts;
    for (const Variant& v : values) texts << v.Concat();
    return texts;
}

TestObservation At(int airport, QDate day, QTime time, int knots, int temperature = 10, int pressure = 1013,
                   const QString& orientation = u"240"_s) {
    TestObservation row;
    row.numAeroport = airport;
    row.day = day;
    row.time = time;
    row.forcenoeuds = knots;
    row.orientation = orientation;
    row.temperature = temperature;
    row.pression = pressure;
    row.metaf = u"METAF %1 %2"_s.arg(airport).arg(time.toString(u"HHmm"_s));
    return row;
}

class DaoQueriesTest : public ::testing::Test {
protected:
    TestDatabase db{{Airport(u"LFPB"_s, u"Paris"_s, u"Le Bourget"_s, true, false, u"FRXX0076"_s),
                     Airport(u"LFLL"_s, u"lyon"_s, u"Saint-Exupéry"_s, true, true, u""_s),
                     Airport(u"LFML"_s, u"Marseille"_s, u"Provence"_s, false),
                     Airport(u"LFKJ"_s, u"Ajaccio"_s, u"Napoléon Bonaparte"_s)}};
    Database base = OpenDatabase(db.Path());
    const QDate day{2004, 11, 2};
};

}  // namespace

TEST_F(DaoQueriesTest, TheDayQueryGivesOneAirportsDayInTimeOrder) {
    for (const QTime& time : {QTime(10, 30), QTime(9, 0), QTime(23, 45), QTime(0, 15), QTime(13, 5)})
        db.AddObservation(At(1, day, time, 10));
    db.AddObservation(At(1, day.addDays(1), QTime(8, 0), 10));
    db.AddObservation(At(2, day, QTime(8, 0), 10));
    TestObservation typed = At(1, day, QTime(7, 0), 10);
    typed.numAeroport.reset();
    typed.lieu = u"Paris - Le Bourget"_s;
    db.AddObservation(typed);

    Recordset rs = base.OpenRecordset(DayQuery(1, day), dbOpenSnapshot);
    EXPECT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant::FromTime(QTime(0, 15)));
    EXPECT_EQ(rs.Fields(u"daterelevé"_s), Variant::FromDate(day));
    EXPECT_EQ(rs.Fields(u"forcenoeuds"_s), Variant(int16_t(10)));
    EXPECT_EQ(Texts(Column(rs, u"HR"_s)), (QStringList{u"00:15"_s, u"09:00"_s, u"10:30"_s, u"13:05"_s, u"23:45"_s}));
    EXPECT_EQ(rs.RecordCount(), 5);
    // The bulletin under the chart: one step back from the end is the day's last row.
    EXPECT_FALSE(rs.Bof());
    rs.MovePrevious();
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant::FromTime(QTime(23, 45)));
    EXPECT_EQ(rs.Fields(u"METAF"_s), Variant(u"METAF 1 2345"_s));
}

TEST_F(DaoQueriesTest, TheDayQueryOfADayWithoutRowsIsEmpty) {
    db.AddObservation(At(1, day, QTime(10, 0), 10));
    Recordset rs = base.OpenRecordset(DayQuery(1, day.addDays(-1)), dbOpenSnapshot);
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.Bof());
}

TEST_F(DaoQueriesTest, TheListOfDaysGivesEveryDayOnceAscending) {
    db.AddObservation(At(1, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(2, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2003, 12, 31), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2004, 1, 15), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2004, 1, 15), QTime(11, 0), 10));
    Recordset rs = base.OpenRecordset(kListOfDays, dbOpenSnapshot);
    EXPECT_EQ(Column(rs, u"DateRelevé"_s),
              (QList<Variant>{Variant::FromDate(QDate(2003, 12, 31)), Variant::FromDate(QDate(2004, 1, 15)),
                              Variant::FromDate(QDate(2004, 11, 2))}));
    EXPECT_EQ(rs.RecordCount(), 3);
}

TEST_F(DaoQueriesTest, WithNoObservationTheListOfDaysIsEmpty) {
    Recordset rs = base.OpenRecordset(kListOfDays, dbOpenSnapshot);
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(rs.RecordCount(), 0);
}

TEST_F(DaoQueriesTest, TheLookupFindsAStationByItsCode) {
    Recordset rs = base.OpenRecordset(kAllAirports, dbOpenSnapshot);
    rs.FindFirst(u"IDA = 'LFKJ'"_s);
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"idx"_s).ToInt32(), 4);
    rs.FindFirst(u"IDA = 'EGLL'"_s);
    EXPECT_TRUE(rs.NoMatch());
}

TEST_F(DaoQueriesTest, TheListQueryGivesTheActiveAirportsByCity) {
    Recordset rs = base.OpenRecordset(kActiveAirports, dbOpenSnapshot);
    QStringList lines;
    while (!rs.Eof()) {
        lines << rs.Fields(u"IDA"_s).ToText() + u' ' + rs.Fields(u"codeforecast"_s).Concat() + u' ' +
                     rs.Fields(u"préféré"_s).ToText();
        rs.MoveNext();
    }
    // The city is compared without regard to case; empty and Null forecast codes are both there.
    EXPECT_EQ(lines, (QStringList{u"LFKJ  False"_s, u"LFLL  True"_s, u"LFPB FRXX0076 False"_s}));
}

TEST_F(DaoQueriesTest, AnAirportWithAnEmptyForecastCodeIsStillListed) {
    Recordset rs = base.OpenRecordset(kActiveAirports, dbOpenSnapshot);
    rs.FindFirst(u"IDA = 'LFLL'"_s);
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"codeforecast"_s), Variant(u""_s));
    rs.FindFirst(u"IDA = 'LFKJ'"_s);
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_TRUE(rs.Fields(u"codeforecast"_s).IsNull());
}

TEST_F(DaoQueriesTest, WithNoAirportTheListsAreEmpty) {
    TestDatabase empty;
    Database other = OpenDatabase(empty.Path());
    for (const QString& sql : {kAllAirports, kActiveAirports, kAirportsByCity}) {
        Recordset rs = other.OpenRecordset(sql, dbOpenSnapshot);
        EXPECT_TRUE(rs.Eof());
        EXPECT_TRUE(rs.Bof());
    }
}

TEST_F(DaoQueriesTest, TheSelectionFormReadsEveryAirportByCity) {
    for (int type : {dbOpenSnapshot, dbOpenDynaset}) {
        Recordset rs = base.OpenRecordset(kAirportsByCity, type);
        EXPECT_EQ(Texts(Column(rs, u"ville"_s)), (QStringList{u"Ajaccio"_s, u"lyon"_s, u"Marseille"_s, u"Paris"_s}));
    }
}

TEST_F(DaoQueriesTest, TheTablesOpenByName) {
    Recordset airports = base.OpenRecordset(u"Aéroports"_s, dbOpenDynaset);
    airports.FindFirst(u"IDX = 2"_s);
    EXPECT_EQ(airports.Fields(u"ville"_s).ToText() + u" - "_s + airports.Fields(u"aéroport"_s).ToText(),
              u"lyon - Saint-Exupéry"_s);
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    EXPECT_TRUE(zefir.Eof());
}

TEST_F(DaoQueriesTest, TheMonthQueryGivesOneRowADayWithThePeak) {
    const QDate first(2004, 11, 1);
    db.AddObservation(At(1, day, QTime(10, 0), 12, 10, 1015, u"200"_s));
    db.AddObservation(At(1, day, QTime(11, 0), 25, 14, 1013, u"270"_s));
    db.AddObservation(At(1, day, QTime(12, 0), 25, 12, 1011, u"300"_s));
    db.AddObservation(At(1, first, QTime(6, 0), 8, -2, 1020, u"010"_s));
    db.AddObservation(At(1, QDate(2004, 12, 1), QTime(6, 0), 40));  // another month
    db.AddObservation(At(1, QDate(2003, 11, 2), QTime(6, 0), 40));  // another year
    db.AddObservation(At(2, day, QTime(6, 0), 40));                 // another airport
    TestObservation typed = At(1, day, QTime(7, 0), 45);            // a typed row belongs to no airport
    typed.numAeroport.reset();
    typed.lieu = u"Paris - Le Bourget"_s;
    db.AddObservation(typed);

    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    EXPECT_EQ(Column(rs, u"daterelevé"_s), (QList<Variant>{Variant::FromDate(first), Variant::FromDate(day)}));
    rs.MovePrevious();
    EXPECT_EQ(rs.Fields(u"numaéroport"_s).ToInt32(), 1);
    EXPECT_EQ(rs.Fields(u"mois"_s).ToInt16(), 11);
    EXPECT_EQ(rs.Fields(u"annee"_s).ToInt16(), 2004);
    EXPECT_DOUBLE_EQ(rs.Fields(u"zefirmoyen"_s).ToDouble(), 62.0 / 3);
    EXPECT_EQ(rs.Fields(u"zefirmaxi"_s).ToInt16(), 25);
    EXPECT_EQ(rs.Fields(u"heuredepointe"_s), Variant::FromTime(QTime(11, 0)));  // the first time at the peak
    EXPECT_EQ(rs.Fields(u"Orientation"_s).ToText(), u"270"_s);
    EXPECT_EQ(rs.Fields(u"Orientation"_s).ToInt16(), 270);
    EXPECT_DOUBLE_EQ(rs.Fields(u"tempmoyen"_s).ToDouble(), 12);
    EXPECT_EQ(rs.Fields(u"tempmaxi"_s).ToInt16(), 14);
    EXPECT_EQ(rs.Fields(u"tempmini"_s).ToInt16(), 10);
    EXPECT_DOUBLE_EQ(rs.Fields(u"pmoyen"_s).ToDouble(), 1013);
    EXPECT_EQ(rs.Fields(u"pmaxi"_s).ToInt16(), 1015);
    EXPECT_EQ(rs.Fields(u"pmini"_s).ToInt16(), 1011);
    rs.MoveFirst();
    EXPECT_EQ(rs.Fields(u"Orientation"_s).ToInt16(), 10);
    EXPECT_EQ(rs.Fields(u"tempmini"_s).ToInt16(), -2);
}

TEST_F(DaoQueriesTest, TheSavedQueryHasTheColumnsItsUsersRead) {
    db.AddObservation(At(1, day, QTime(10, 0), 12));
    Recordset rs = base.OpenRecordset(u"Heure de pointe selon zefir"_s, dbOpenSnapshot);
    QStringList names;
    for (const QString& name : rs.FieldNames()) names << name.toLower();
    EXPECT_EQ(names, (QStringList{u"numaéroport"_s, u"mois"_s, u"annee"_s, u"daterelevé"_s, u"zefirmoyen"_s,
                                  u"zefirmaxi"_s, u"heuredepointe"_s, u"orientation"_s, u"tempmoyen"_s, u"tempmaxi"_s,
                                  u"tempmini"_s, u"pmoyen"_s, u"pmaxi"_s, u"pmini"_s}));
    EXPECT_EQ(rs.Fields(u"heuredepointe"_s).ToText(), u"10:00:00"_s);
}

TEST_F(DaoQueriesTest, AMonthWithoutObservationsIsEmpty) {
    db.AddObservation(At(1, day, QTime(10, 0), 12));
    Recordset rs = base.OpenRecordset(MonthQuery(1, 10, 2004), dbOpenSnapshot);
    EXPECT_TRUE(rs.Eof());
    rs = base.OpenRecordset(MonthQuery(2, 11, 2004), dbOpenSnapshot);
    EXPECT_TRUE(rs.Eof());
}

TEST_F(DaoQueriesTest, ATypedObservationIsNotInTheChartOfItsAirport) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    zefir.AddNew();
    zefir.SetField(u"lieu"_s, u"Paris - Le Bourget"_s);
    zefir.SetField(u"daterelevé"_s, u"02/11/2004"_s);
    zefir.SetField(u"heurerelevé"_s, u"10:00"_s);
    zefir.Update();
    EXPECT_TRUE(base.OpenRecordset(DayQuery(1, day), dbOpenSnapshot).Eof());
    EXPECT_FALSE(base.OpenRecordset(kListOfDays, dbOpenSnapshot).Eof());
}

// A variable wind is stored with its speed negated; the day's figures take the speed as it blows.
TEST_F(DaoQueriesTest, VariableWindsCountAsTheirSpeedInTheDaysMeanAndPeak) {
    db.AddObservation(At(1, day, QTime(10, 0), 3, 10, 1013, u"200"_s));
    db.AddObservation(At(1, day, QTime(11, 0), -8, 10, 1013, u""_s));  // 8 knots, variable
    db.AddObservation(At(1, day, QTime(12, 0), 6, 10, 1013, u"250"_s));
    db.AddObservation(At(1, day, QTime(13, 0), -5, 10, 1013, u""_s));

    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_DOUBLE_EQ(rs.Fields(u"zefirmoyen"_s).ToDouble(), (3.0 + 8 + 6 + 5) / 4);
    EXPECT_EQ(rs.Fields(u"zefirmaxi"_s).ToInt16(), 8);
    EXPECT_EQ(rs.Fields(u"heuredepointe"_s), Variant::FromTime(QTime(11, 0)));
}

TEST_F(DaoQueriesTest, ADayOfVariableWindsReadsAPositiveMeanAndItsStrongestWindAsThePeak) {
    db.AddObservation(At(1, day, QTime(9, 0), -3, 10, 1013, u""_s));
    db.AddObservation(At(1, day, QTime(10, 0), -7, 10, 1013, u""_s));
    db.AddObservation(At(1, day, QTime(11, 0), -2, 10, 1013, u""_s));

    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_DOUBLE_EQ(rs.Fields(u"zefirmoyen"_s).ToDouble(), 4);
    EXPECT_EQ(rs.Fields(u"zefirmaxi"_s).ToInt16(), 7);
    EXPECT_EQ(rs.Fields(u"heuredepointe"_s), Variant::FromTime(QTime(10, 0)));
}

TEST_F(DaoQueriesTest, AVariableWindAsStrongAsASteadyOneIsThePeakWhenItCameFirst) {
    db.AddObservation(At(1, day, QTime(9, 0), -9, 10, 1013, u""_s));
    db.AddObservation(At(1, day, QTime(10, 0), 9, 10, 1013, u"090"_s));
    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(u"zefirmaxi"_s).ToInt16(), 9);
    EXPECT_EQ(rs.Fields(u"heuredepointe"_s), Variant::FromTime(QTime(9, 0)));
}

TEST_F(DaoQueriesTest, ADayWhosePeakIsAVariableWindHasNoDirection) {
    db.AddObservation(At(1, day, QTime(10, 0), 6, 10, 1013, u"250"_s));
    TestObservation variable = At(1, day, QTime(11, 0), -8, 10, 1013, u""_s);
    variable.variable = true;
    db.AddObservation(variable);
    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(u"zefirmaxi"_s).ToInt16(), 8);
    EXPECT_TRUE(rs.Fields(u"Orientation"_s).IsNull());
}

TEST_F(DaoQueriesTest, APeakWithABlankDirectionHasNoDirectionEither) {
    db.AddObservation(At(1, day, QTime(10, 0), 12, 10, 1013, u""_s));
    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_TRUE(rs.Fields(u"Orientation"_s).IsNull());
}

TEST_F(DaoQueriesTest, ASteadyPeakKeepsItsDirectionBesideVariableWinds) {
    TestObservation variable = At(1, day, QTime(9, 0), -4, 10, 1013, u""_s);
    variable.variable = true;
    db.AddObservation(variable);
    db.AddObservation(At(1, day, QTime(10, 0), 11, 10, 1013, u"090"_s));
    db.AddObservation(At(1, day, QTime(11, 0), 3, 10, 1013, u"000"_s));
    Recordset rs = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(u"Orientation"_s).ToInt16(), 90);
    rs.Close();
    // North is a direction like any other.
    db.AddObservation(At(1, day.addDays(1), QTime(10, 0), 11, 10, 1013, u"000"_s));
    Recordset next = base.OpenRecordset(MonthQuery(1, 11, 2004), dbOpenSnapshot);
    next.MoveNext();
    ASSERT_FALSE(next.Eof());
    EXPECT_FALSE(next.Fields(u"Orientation"_s).IsNull());
    EXPECT_EQ(next.Fields(u"Orientation"_s).ToInt16(), 0);
}

// The lists of airports sort their cities as a reader of French expects: an accented capital
// with its letter, not after Z.
TEST_F(DaoQueriesTest, CitiesSortAsAReaderOfFrenchExpects) {
    TestDatabase cities{
        {Airport(u"LSZH"_s, u"Zurich"_s, u"Zürich"_s), Airport(u"LFOE"_s, u"Évreux"_s, u"Fauville"_s),
         Airport(u"LFSD"_s, u"Dijon"_s, u"Longvic"_s), Airport(u"EGPH"_s, u"Édimbourg"_s, u"Edinburgh"_s),
         Airport(u"LFKF"_s, u"Figari"_s, u"Sud-Corse"_s), Airport(u"LFLX"_s, u"Châteauroux"_s, u"Déols"_s),
         Airport(u"LFOK"_s, u"Chalons"_s, u"Vatry"_s), Airport(u"LFPB"_s, u"edinburgh"_s, u"x"_s)}};
    Database other = OpenDatabase(cities.Path());
    const QStringList expected{u"Chalons"_s,   u"Châteauroux"_s, u"Dijon"_s,  u"Édimbourg"_s,
                               u"edinburgh"_s, u"Évreux"_s,      u"Figari"_s, u"Zurich"_s};
    for (const QString& sql : {kActiveAirports, kAirportsByCity})
        for (int type : {dbOpenSnapshot, dbOpenDynaset})
            EXPECT_EQ(Texts(Column(other.OpenRecordset(sql, type), u"ville"_s)), expected) << sql.toStdString();
}

TEST_F(DaoQueriesTest, TheListOfDaysPutsAnUnreadableDayFirstAsGroupingDoes) {
    db.AddObservation(At(1, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2004, 1, 15), QTime(10, 0), 10));
    ASSERT_TRUE(db.Exec(u"INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé) VALUES (1, NULL, '10:00:00')"_s));
    ASSERT_TRUE(db.Exec(u"INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé) VALUES (2, NULL, '10:00:00')"_s));
    Recordset rs = base.OpenRecordset(kListOfDays, dbOpenSnapshot);
    EXPECT_EQ(Column(rs, u"DateRelevé"_s), (QList<Variant>{Variant::Null(), Variant::FromDate(QDate(2004, 1, 15)),
                                                           Variant::FromDate(QDate(2004, 11, 2))}));
}

// The days are read from the table the database keeps of them; a file without it is read by
// jumping through the index of the day, and one without either by grouping every row: the same
// days in every case.
TEST_F(DaoQueriesTest, TheListOfDaysIsTheSameFromTheTableOfDaysTheIndexOrTheRows) {
    db.AddObservation(At(1, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(2, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2003, 12, 31), QTime(10, 0), 10));
    ASSERT_TRUE(db.Exec(u"INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé) VALUES (3, NULL, '10:00:00')"_s));
    const QList<Variant> days{Variant::Null(), Variant::FromDate(QDate(2003, 12, 31)),
                              Variant::FromDate(QDate(2004, 11, 2))};
    EXPECT_EQ(db.Count(u"Zefir.daterelevé"_s), 3);
    EXPECT_EQ(Column(base.OpenRecordset(kListOfDays, dbOpenSnapshot), u"DateRelevé"_s), days);
    base.Close();
    for (const QString& drop : {u"DROP TABLE \"Zefir.daterelevé\""_s, u"DROP INDEX \"Jours\""_s}) {
        ASSERT_TRUE(db.Exec(drop));
        Database again = OpenDatabase(db.Path());
        EXPECT_EQ(Column(again.OpenRecordset(kListOfDays, dbOpenSnapshot), u"DateRelevé"_s), days)
            << drop.toStdString();
    }
}

TEST_F(DaoQueriesTest, TheTableOfDaysFollowsRowsThatComeChangeAndGo) {
    db.AddObservation(At(1, QDate(2004, 11, 2), QTime(10, 0), 10));
    db.AddObservation(At(1, QDate(2004, 11, 2), QTime(10, 30), 10));
    db.AddObservation(At(1, QDate(2004, 11, 3), QTime(10, 0), 10));
    ASSERT_TRUE(db.Exec(u"DELETE FROM Zefir WHERE heurerelevé = '10:30:00'"_s));  // the 2nd still has a row
    ASSERT_TRUE(db.Exec(u"UPDATE Zefir SET daterelevé = '2004-11-04' WHERE daterelevé = '2004-11-03'"_s));
    EXPECT_EQ(Column(base.OpenRecordset(kListOfDays, dbOpenSnapshot), u"DateRelevé"_s),
              (QList<Variant>{Variant::FromDate(QDate(2004, 11, 2)), Variant::FromDate(QDate(2004, 11, 4))}));
    ASSERT_TRUE(db.Exec(u"DELETE FROM Zefir"_s));
    EXPECT_EQ(db.Count(u"Zefir.daterelevé"_s), 0);
    EXPECT_TRUE(base.OpenRecordset(kListOfDays, dbOpenSnapshot).Eof());
}
