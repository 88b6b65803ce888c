// Writing through the database access layer: AddNew, Edit, the coercion of assigned values to the
// column types, and read-only recordsets. On real files. (The observation rows, with the refusal
// of a repeated one, are written through the store's writer: tests/store/ObservationTest.cpp.)
#include <gtest/gtest.h>

#include "Dao.h"
#include "Failures.h"
#include "TestDatabase.h"

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

class DaoWriteTest : public ::testing::Test {
protected:
    TestDatabase db{{Airport(u"LFPB"_s, u"Paris"_s, u"Le Bourget"_s, true, true),
                     Airport(u"LFLL"_s, u"Lyon"_s, u"Saint-Exupéry"_s)}};
    Database base = OpenDatabase(db.Path());

    // The value of one column of the only Zefir row, as stored.
    QVariant Stored(const QString& column) const { return db.Value(u"SELECT \"%1\" FROM Zefir"_s.arg(column)); }
};

}  // namespace

TEST_F(DaoWriteTest, AssignedTextsAreCoercedToTheColumnTypes) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s);
    zefir.AddNew();
    zefir.SetField(u"NumAéroport"_s, u"1"_s);
    zefir.SetField(u"daterelevé"_s, u"02/11/2004"_s);  // day first
    zefir.SetField(u"heurerelevé"_s, u"09:05"_s);
    zefir.SetField(u"forcenoeuds"_s, u"12.5"_s);  // halves go to the even neighbour
    zefir.SetField(u"forcerafale"_s, 13.5);
    zefir.SetField(u"zefirvariable"_s, u"True"_s);
    zefir.SetField(u"secteur1"_s, true);  // a true boolean is -1
    zefir.SetField(u"orientationdegré"_s, int16_t(50));
    zefir.SetField(u"température"_s, Variant::Null());
    zefir.SetField(u"pression"_s, Variant());
    EXPECT_EQ(zefir.Fields(u"daterelevé"_s), Variant::FromDate(QDate(2004, 11, 2)));
    zefir.Update();
    EXPECT_EQ(Stored(u"NumAéroport"_s).toInt(), 1);
    EXPECT_EQ(Stored(u"daterelevé"_s).toString(), u"2004-11-02"_s);
    EXPECT_EQ(Stored(u"heurerelevé"_s).toString(), u"09:05:00"_s);
    EXPECT_EQ(Stored(u"forcenoeuds"_s).toInt(), 12);
    EXPECT_EQ(Stored(u"forcerafale"_s).toInt(), 14);
    EXPECT_EQ(Stored(u"zefirvariable"_s).toInt(), 1);
    EXPECT_EQ(Stored(u"secteur1"_s).toInt(), -1);
    EXPECT_EQ(Stored(u"orientationdegré"_s).toString(), u"50"_s);
    EXPECT_FALSE(Stored(u"température"_s).isValid());
    EXPECT_FALSE(Stored(u"pression"_s).isValid());
}

TEST_F(DaoWriteTest, DateValuesAreStoredInTheirColumnsForm) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s);
    zefir.AddNew();
    zefir.SetField(u"daterelevé"_s, Variant::FromDate(QDate(2004, 11, 2)));
    zefir.SetField(u"heurerelevé"_s, Variant::FromTime(QTime(23, 45, 10)));
    zefir.Update();
    EXPECT_EQ(Stored(u"daterelevé"_s).toString(), u"2004-11-02"_s);
    EXPECT_EQ(Stored(u"heurerelevé"_s).toString(), u"23:45:10"_s);
    zefir.MoveFirst();
    EXPECT_EQ(zefir.Fields(u"heurerelevé"_s), Variant::FromTime(QTime(23, 45, 10)));
}

TEST_F(DaoWriteTest, AValueThatCantBeConvertedIs3421) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s);
    zefir.AddNew();
    EXPECT_EQ(ErrorOf([&] { zefir.SetField(u"forcenoeuds"_s, u"12KT"_s); }), DaoConversionError);
    EXPECT_EQ(DescriptionOf([&] { zefir.SetField(u"forcenoeuds"_s, u""_s); }), u"Data type conversion error."_s);
    EXPECT_EQ(ErrorOf([&] { zefir.SetField(u"daterelevé"_s, u"31/02/2004"_s); }), DaoConversionError);
    EXPECT_EQ(ErrorOf([&] { zefir.SetField(u"heurerelevé"_s, u"1000"_s); }), DaoConversionError);
    EXPECT_EQ(ErrorOf([&] { zefir.SetField(u"zefirvariable"_s, u"peut-être"_s); }), DaoConversionError);
    // The failed assignments left nothing behind.
    EXPECT_TRUE(zefir.Fields(u"forcenoeuds"_s).IsNull());
}

TEST_F(DaoWriteTest, ANumberBeyondSixteenBitsIs3349) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s);
    zefir.AddNew();
    EXPECT_EQ(ErrorOf([&] { zefir.SetField(u"pression"_s, int32_t(40000)); }), DaoNumericOverflow);
    EXPECT_EQ(DescriptionOf([&] { zefir.SetField(u"forcenoeuds"_s, u"-32769"_s); }), u"Numeric field overflow."_s);
    EXPECT_NO_THROW(zefir.SetField(u"forcenoeuds"_s, u"-32768"_s));
    EXPECT_NO_THROW(zefir.SetField(u"NumAéroport"_s, int32_t(40000)));  // a long integer holds it
}

TEST_F(DaoWriteTest, AnAirportIsAddedThroughTheSortedListAndNumberedByTheDatabase) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  order by ville"_s, dbOpenDynaset);
    EXPECT_EQ(rs.RecordCount(), 1);
    rs.AddNew();
    rs.SetField(u"IDA"_s, u"LFTH"_s);
    rs.SetField(u"aéroport"_s, u"Hyères"_s);
    rs.SetField(u"timezone"_s, u"+12"_s);
    rs.SetField(u"ville"_s, u"Toulon"_s);
    rs.SetField(u"activé"_s, true);
    rs.SetField(u"préféré"_s, false);
    rs.Update();
    rs.Close();
    EXPECT_EQ(db.Value(u"SELECT idx FROM \"Aéroports\" WHERE IDA = 'LFTH'"_s).toInt(), 3);
    EXPECT_EQ(db.Value(u"SELECT timezone FROM \"Aéroports\" WHERE IDA = 'LFTH'"_s).toString(), u"+12"_s);
    EXPECT_FALSE(db.Value(u"SELECT codeforecast FROM \"Aéroports\" WHERE IDA = 'LFTH'"_s).isValid());
    EXPECT_EQ(db.Value(u"SELECT \"activé\" FROM \"Aéroports\" WHERE IDA = 'LFTH'"_s).toInt(), 1);
}

TEST_F(DaoWriteTest, EditWritesTheCurrentRowOnly) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  order by ville"_s, dbOpenDynaset);
    for (int idx : {2, 1}) {
        rs.FindFirst(u"idx = %1"_s.arg(idx));
        rs.Edit();
        rs.SetField(u"activé"_s, idx == 2);
        rs.SetField(u"préféré"_s, idx == 2);
        rs.Update();
    }
    rs.FindFirst(u"idx = 2"_s);
    EXPECT_EQ(rs.Fields(u"préféré"_s), Variant(true));
    rs.Close();
    EXPECT_EQ(db.Value(u"SELECT \"préféré\" FROM \"Aéroports\" WHERE idx = 2"_s).toInt(), 1);
    EXPECT_EQ(db.Value(u"SELECT \"préféré\" FROM \"Aéroports\" WHERE idx = 1"_s).toInt(), 0);
    EXPECT_EQ(db.Value(u"SELECT \"activé\" FROM \"Aéroports\" WHERE idx = 1"_s).toInt(), 0);
    EXPECT_EQ(db.Value(u"SELECT ville FROM \"Aéroports\" WHERE idx = 1"_s).toString(), u"Paris"_s);
}

TEST_F(DaoWriteTest, TheAirportNumberIsTheDatabasesOwn) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenDynaset);
    rs.AddNew();
    EXPECT_EQ(ErrorOf([&] { rs.SetField(u"idx"_s, int32_t(7)); }), DaoFieldNotUpdatable);
}

TEST_F(DaoWriteTest, WritingWithoutAddNewOrEditIs3020) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenDynaset);
    EXPECT_EQ(ErrorOf([&] { rs.SetField(u"ville"_s, u"Nice"_s); }), DaoUpdateWithoutEdit);
    EXPECT_EQ(DescriptionOf([&] { rs.Update(); }), u"Update or CancelUpdate without AddNew or Edit."_s);
    rs.Edit();
    rs.SetField(u"ville"_s, u"Nice"_s);
    rs.MoveNext();  // a move drops the edit, as with the engine
    EXPECT_EQ(ErrorOf([&] { rs.Update(); }), DaoUpdateWithoutEdit);
    EXPECT_EQ(db.Value(u"SELECT ville FROM \"Aéroports\" WHERE idx = 1"_s).toString(), u"Paris"_s);
}

TEST_F(DaoWriteTest, EditNeedsACurrentRow) {
    Recordset rs = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    EXPECT_EQ(ErrorOf([&] { rs.Edit(); }), DaoNoCurrentRecord);
}

TEST_F(DaoWriteTest, ASnapshotIsReadOnly) {
    for (const QString& source : {u"Aéroports"_s, u"select * from aéroports  order by ville"_s}) {
        Recordset rs = base.OpenRecordset(source, dbOpenSnapshot);
        EXPECT_EQ(ErrorOf([&] { rs.AddNew(); }), DaoReadOnly);
        EXPECT_EQ(ErrorOf([&] { rs.Edit(); }), DaoReadOnly);
        EXPECT_EQ(DescriptionOf([&] { rs.SetField(u"ville"_s, u"Nice"_s); }),
                  u"Cannot update. Database or object is read-only."_s);
    }
    EXPECT_EQ(db.Value(u"SELECT ville FROM \"Aéroports\" WHERE idx = 1"_s).toString(), u"Paris"_s);
}

TEST_F(DaoWriteTest, AQueryThatIsntRowsOfOneTableIsReadOnly) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 2), .time = QTime(10, 0)});
    Recordset days = base.OpenRecordset(
        u"SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"_s, dbOpenDynaset);
    EXPECT_EQ(ErrorOf([&] { days.Edit(); }), DaoReadOnly);
    Recordset month = base.OpenRecordset(u"Heure de pointe selon zefir"_s, dbOpenDynaset);
    EXPECT_EQ(ErrorOf([&] { month.AddNew(); }), DaoReadOnly);
}

TEST_F(DaoWriteTest, AComputedColumnCantBeWritten) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 2), .time = QTime(10, 0)});
    Recordset rs = base.OpenRecordset(u"select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir"_s);
    rs.Edit();
    EXPECT_EQ(ErrorOf([&] { rs.SetField(u"HR"_s, u"11:00"_s); }), DaoFieldNotUpdatable);
    rs.SetField(u"METAF"_s, u"changed"_s);
    rs.Update();
    EXPECT_EQ(db.Value(u"SELECT METAF FROM Zefir"_s).toString(), u"changed"_s);
}
