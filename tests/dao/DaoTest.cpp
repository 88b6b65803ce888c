// Opening, reading, moving and searching through the database access layer, on real files.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "Dao.h"
#include "Failures.h"
#include "TestDatabase.h"

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

class DaoTest : public ::testing::Test {
protected:
    TestDatabase db{{Airport(u"LFPB"_s, u"Paris"_s, u"Le Bourget"_s, true, false, u"FRXX0076"_s),
                     Airport(u"LFLL"_s, u"Lyon"_s, u"Saint-Exupéry"_s, true, true, u""_s),
                     Airport(u"LFML"_s, u"Marseille"_s, u"Provence"_s, false),
                     Airport(u"LFLJ"_s, u"Courchevel"_s, u"L'Altiport"_s)}};
    Database base = OpenDatabase(db.Path());
};

}  // namespace

TEST(DaoOpen, AMissingFileIs3024AndIsNotCreated) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"database.mdb"_s);
    EXPECT_EQ(ErrorOf([&] { OpenDatabase(path); }), DaoFileNotFound);
    EXPECT_EQ(DescriptionOf([&] { OpenDatabase(path); }), u"Could not find file '%1'."_s.arg(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST(DaoOpen, AFileThatIsNoDatabaseIsRefused) {
    QTemporaryDir dir;
    QFile file(dir.filePath(u"database.mdb"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    EXPECT_EQ(ErrorOf([&] { OpenDatabase(file.fileName()); }), DaoUnrecognizedFormat);
}

TEST(DaoOpen, NothingIsError91) {
    EXPECT_EQ(ErrorOf([] { Database().OpenRecordset(u"Zefir"_s); }), ObjectNotSet);
    EXPECT_EQ(ErrorOf([] { Recordset().MoveNext(); }), ObjectNotSet);
    EXPECT_TRUE(Database().IsNothing());
    EXPECT_TRUE(Recordset().IsNothing());
}

TEST_F(DaoTest, AClosedRecordsetOrDatabaseIsNoLongerSet) {
    Recordset first = base.OpenRecordset(u"Aéroports"_s);
    Recordset copy = first;
    first.Close();
    EXPECT_EQ(ErrorOf([&] { copy.Eof(); }), DaoObjectInvalid);
    EXPECT_EQ(DescriptionOf([&] { copy.Close(); }), u"Object invalid or no longer set."_s);

    Recordset second = base.OpenRecordset(u"Aéroports"_s);
    base.Close();
    EXPECT_EQ(ErrorOf([&] { second.Fields(u"IDA"_s); }), DaoObjectInvalid);
    EXPECT_EQ(ErrorOf([&] { base.OpenRecordset(u"Aéroports"_s); }), DaoObjectInvalid);
}

TEST_F(DaoTest, AnUnknownTableOrQueryIs3078) {
    EXPECT_EQ(ErrorOf([&] { base.OpenRecordset(u"Nulle part"_s); }), DaoTableNotFound);
    EXPECT_TRUE(DescriptionOf([&] { base.OpenRecordset(u"Nulle part"_s); }).contains(u"'Nulle part'"_s));
    EXPECT_EQ(ErrorOf([&] { base.OpenRecordset(u"select * from nulle"_s, dbOpenSnapshot); }), DaoTableNotFound);
}

TEST_F(DaoTest, SqlNamingAnUnknownColumnIs3061) {
    EXPECT_EQ(ErrorOf([&] { base.OpenRecordset(u"select * from aéroports where pays = 1"_s, dbOpenSnapshot); }),
              DaoTooFewParameters);
}

TEST_F(DaoTest, TableNamesAreMatchedWithoutRegardToCase) {
    EXPECT_NO_THROW(base.OpenRecordset(u"zefir"_s));
    EXPECT_NO_THROW(base.OpenRecordset(u"AÉROPORTS"_s, dbOpenSnapshot));
    EXPECT_NO_THROW(base.OpenRecordset(u"[Aéroports]"_s, dbOpenTable));
}

TEST_F(DaoTest, AnEmptyRecordsetIsAtBothEnds) {
    for (const QString& source : {u"Zefir"_s, u"select * from zefir"_s}) {
        Recordset rs = base.OpenRecordset(source, dbOpenSnapshot);
        EXPECT_TRUE(rs.Bof());
        EXPECT_TRUE(rs.Eof());
        EXPECT_EQ(rs.RecordCount(), 0);
        EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), DaoNoCurrentRecord);
        EXPECT_EQ(ErrorOf([&] { rs.MovePrevious(); }), DaoNoCurrentRecord);
        EXPECT_EQ(ErrorOf([&] { rs.MoveFirst(); }), DaoNoCurrentRecord);
        EXPECT_EQ(DescriptionOf([&] { rs.Fields(u"METAF"_s); }), u"No current record."_s);
    }
}

TEST_F(DaoTest, RecordCountIsTheRowsReachedSoFar) {
    for (const QString& source : {u"Aéroports"_s, u"select * from aéroports  order by ville"_s}) {
        Recordset rs = base.OpenRecordset(source, dbOpenDynaset);
        EXPECT_EQ(rs.RecordCount(), 1);
        rs.MoveNext();
        EXPECT_EQ(rs.RecordCount(), 2);
        rs.MoveLast();
        EXPECT_EQ(rs.RecordCount(), 4);
        rs.MoveFirst();
        EXPECT_EQ(rs.RecordCount(), 4);
    }
}

TEST_F(DaoTest, ForwardReadingEndsAfterTheLastRow) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  order by ville"_s, dbOpenSnapshot);
    QStringList villes;
    while (!rs.Eof()) {
        EXPECT_FALSE(rs.Bof());
        villes << rs.Fields(u"ville"_s).ToText();
        rs.MoveNext();
    }
    EXPECT_EQ(villes, (QStringList{u"Courchevel"_s, u"Lyon"_s, u"Marseille"_s, u"Paris"_s}));
    EXPECT_EQ(rs.RecordCount(), 4);
    EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), DaoNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u"ville"_s); }), DaoNoCurrentRecord);
}

TEST_F(DaoTest, OneStepBackFromTheEndIsTheLastRow) {
    // As the day chart does it, on a query and on a table read row by row.
    for (const QString& source : {u"select * from aéroports  order by ville"_s, u"Aéroports"_s}) {
        Recordset rs = base.OpenRecordset(source, dbOpenSnapshot);
        while (!rs.Eof()) rs.MoveNext();
        EXPECT_FALSE(rs.Bof());
        rs.MovePrevious();
        EXPECT_FALSE(rs.Eof());
        const QString last = source.startsWith(u"select"_s) ? u"Paris"_s : u"Courchevel"_s;
        EXPECT_EQ(rs.Fields(u"ville"_s).ToText(), last);
        rs.MoveFirst();
        rs.MovePrevious();
        EXPECT_TRUE(rs.Bof());
        EXPECT_FALSE(rs.Eof());
        EXPECT_EQ(ErrorOf([&] { rs.MovePrevious(); }), DaoNoCurrentRecord);
        rs.MoveNext();
        EXPECT_EQ(rs.Fields(u"idx"_s), Variant(int32_t(source.startsWith(u"select"_s) ? 4 : 1)));
    }
}

TEST_F(DaoTest, FieldsComeBackByTheirDeclaredTypes) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenSnapshot);
    EXPECT_EQ(rs.Fields(u"idx"_s), Variant(int32_t(1)));
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFPB"_s));
    EXPECT_EQ(rs.Fields(u"activé"_s), Variant(true));
    EXPECT_EQ(rs.Fields(u"préféré"_s), Variant(false));
    EXPECT_EQ(rs.Fields(u"timezone"_s), Variant(u"1"_s));
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(u"codeforecast"_s), Variant(u""_s));
    rs.MoveNext();
    EXPECT_TRUE(rs.Fields(u"codeforecast"_s).IsNull());
}

TEST_F(DaoTest, ObservationsComeBackWithDatesTimesAndSmallIntegers) {
    db.AddObservation({.numAeroport = 1,
                       .day = QDate(2004, 11, 2),
                       .time = QTime(10, 30),
                       .forcenoeuds = -3,
                       .orientation = u"050"_s,
                       .variable = true,
                       .temperature = 12,
                       .metaf = u"LFPB 021030Z"_s});
    Recordset rs = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    EXPECT_EQ(rs.Fields(u"NumAéroport"_s), Variant(int32_t(1)));
    EXPECT_EQ(rs.Fields(u"daterelevé"_s), Variant::FromDate(QDate(2004, 11, 2)));
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant::FromTime(QTime(10, 30)));
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s).ToText(), u"10:30:00"_s);
    EXPECT_EQ(rs.Fields(u"forcenoeuds"_s), Variant(int16_t(-3)));
    EXPECT_EQ(rs.Fields(u"orientationdegré"_s), Variant(u"050"_s));
    EXPECT_EQ(rs.Fields(u"orientationdegré"_s).ToInt16(), 50);
    EXPECT_EQ(rs.Fields(u"zefirvariable"_s), Variant(true));
    EXPECT_EQ(rs.Fields(u"température"_s), Variant(int16_t(12)));
    EXPECT_TRUE(rs.Fields(u"pression"_s).IsNull());
    EXPECT_TRUE(rs.Fields(u"lieu"_s).IsNull());
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u"pression"_s).ToInt16(); }), InvalidUseOfNull);
}

TEST_F(DaoTest, FieldNamesAreMatchedWithoutRegardToCase) {
    db.AddObservation({.numAeroport = 2, .day = QDate(2004, 11, 2), .time = QTime(10, 30)});
    Recordset rs = base.OpenRecordset(u"Zefir"_s, dbOpenSnapshot);
    EXPECT_EQ(rs.Fields(u"numaéroport"_s), rs.Fields(u"NumAéroport"_s));
    EXPECT_EQ(rs.Fields(u"NUMAÉROPORT"_s), Variant(int32_t(2)));
    EXPECT_EQ(rs.Fields(u"DateRelevé"_s), rs.Fields(u"daterelevé"_s));
    EXPECT_EQ(rs.Fields(u"HeureRelevé"_s), rs.Fields(u"heurerelevé"_s));
}

TEST_F(DaoTest, AFieldReadsTheSameUnderEverySpellingOnEveryRow) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 2), .time = QTime(10, 0)});
    db.AddObservation({.numAeroport = 2, .day = QDate(2004, 11, 3), .time = QTime(10, 30)});
    Recordset rs = base.OpenRecordset(u"select * from zefir order by daterelevé"_s, dbOpenSnapshot);
    EXPECT_EQ(rs.Fields(u"daterelevé"_s).ToText(), u"02/11/2004"_s);
    EXPECT_EQ(rs.Fields(u"DATERELEVÉ"_s).ToText(), u"02/11/2004"_s);
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(u"DATERELEVÉ"_s).ToText(), u"03/11/2004"_s);
    EXPECT_EQ(rs.Fields(u"DateRelevé"_s).ToText(), u"03/11/2004"_s);
    EXPECT_EQ(rs.Fields(u"numaéroport"_s), Variant(int32_t(2)));
    // A name found once doesn't make a near one known, nor does an empty name pass.
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u"daterelevée"_s); }), DaoItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u"daterelevé "_s); }), DaoItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(QString()); }), DaoItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u""_s); }), DaoItemNotFound);
    // The same text, changed in place between two reads, is read under its new name.
    QString name = u"numaéroport"_s;
    EXPECT_EQ(rs.Fields(name), Variant(int32_t(2)));
    name.replace(0, 11, u"daterelevé"_s);
    EXPECT_EQ(rs.Fields(name).ToText(), u"03/11/2004"_s);
}

TEST_F(DaoTest, ADateOrTimeColumnGivesBackWhatIsNoDateOrTimeAsItStands) {
    ASSERT_TRUE(
        db.Exec(u"INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé) "
                "VALUES (1, '2 février 2004', 'à 10:00'), (2, '2004-11-02 10:00:00 UTC', '10h30'), "
                "(3, '2004-13-02', '25:00')"_s));
    Recordset rs = base.OpenRecordset(u"select * from zefir order by numaéroport"_s, dbOpenSnapshot);
    EXPECT_EQ(rs.Fields(u"daterelevé"_s), Variant(u"2 février 2004"_s));
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant(u"à 10:00"_s));
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(u"daterelevé"_s), Variant(u"2004-11-02 10:00:00 UTC"_s));
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant(u"10h30"_s));
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(u"daterelevé"_s), Variant(u"2004-13-02"_s));
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s), Variant(u"25:00"_s));
}

TEST_F(DaoTest, AStoredDateWithItsTimeReadsBackWhole) {
    ASSERT_TRUE(
        db.Exec(u"INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé) "
                "VALUES (1, '2004-11-02 10:30:15', '1899-12-30 10:30')"_s));
    Recordset rs = base.OpenRecordset(u"Zefir"_s, dbOpenSnapshot);
    EXPECT_EQ(rs.Fields(u"daterelevé"_s).ToText(), u"02/11/2004 10:30:15"_s);
    EXPECT_EQ(rs.Fields(u"heurerelevé"_s).ToText(), u"10:30:00"_s);
}

TEST_F(DaoTest, AnUnknownFieldIs3265) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(u"pays"_s); }), DaoItemNotFound);
    EXPECT_EQ(DescriptionOf([&] { rs.Fields(u"pays"_s); }), u"Item not found in this collection."_s);
}

TEST_F(DaoTest, FindFirstPositionsOnTheFirstRowThatFits) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  "_s, dbOpenSnapshot);
    rs.FindFirst(u"IDA = 'LFLL'"_s);
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"idx"_s), Variant(int32_t(2)));
    rs.FindFirst(u"idx = 3"_s);
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFML"_s));
    rs.FindFirst(u"IDX = 1"_s);
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFPB"_s));
}

TEST_F(DaoTest, FindFirstReadsATableRowByRow) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenDynaset);
    rs.FindFirst(u"IDX = 4"_s);
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"ville"_s), Variant(u"Courchevel"_s));
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
}

TEST_F(DaoTest, FindFirstComparesTextsWithoutRegardToCase) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenSnapshot);
    rs.FindFirst(u"ida = 'lfml'"_s);
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"idx"_s), Variant(int32_t(3)));
}

TEST_F(DaoTest, FindFirstTakesAQuoteWrittenTwice) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s, dbOpenSnapshot);
    rs.FindFirst(u"aéroport = 'L''Altiport'"_s);
    EXPECT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFLJ"_s));
}

TEST_F(DaoTest, WhenNoRowFitsTheCurrentRowStands) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  "_s, dbOpenSnapshot);
    rs.FindFirst(u"IDA = 'ZZZZ'"_s);
    EXPECT_TRUE(rs.NoMatch());
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFPB"_s));  // the first row, as the picture routine relies on
    rs.MoveNext();
    rs.FindFirst(u"idx = 99"_s);
    EXPECT_TRUE(rs.NoMatch());
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFLL"_s));
    rs.FindFirst(u"idx = 1"_s);
    EXPECT_FALSE(rs.NoMatch());
}

TEST_F(DaoTest, FindFirstOnAnEmptyRecordsetFindsNothing) {
    Recordset rs = base.OpenRecordset(u"Zefir"_s);
    rs.FindFirst(u"NumAéroport = 1"_s);
    EXPECT_TRUE(rs.NoMatch());
    EXPECT_TRUE(rs.Eof());
}

TEST_F(DaoTest, ACodeWithAnApostropheBreaksTheCriterionAndNeverReachesTheDatabase) {
    Recordset rs = base.OpenRecordset(u"select * from aéroports  "_s, dbOpenSnapshot);
    rs.MoveNext();
    EXPECT_EQ(ErrorOf([&] { rs.FindFirst(u"IDA = 'O'HARE'"_s); }), DaoSyntaxInCriteria);
    EXPECT_EQ(DescriptionOf([&] { rs.FindFirst(u"IDA = 'O'HARE'"_s); }),
              u"Syntax error (missing operator) in expression."_s);
    EXPECT_EQ(ErrorOf([&] { rs.FindFirst(u"IDA = ''; DROP TABLE Zefir; --'"_s); }), DaoSyntaxInCriteria);
    EXPECT_EQ(ErrorOf([&] { rs.FindFirst(u"IDA = '' OR 1 = 1"_s); }), DaoSyntaxInCriteria);
    EXPECT_EQ(rs.Fields(u"IDA"_s), Variant(u"LFLL"_s));
    EXPECT_EQ(db.Count(u"Zefir"_s), 0);
    EXPECT_EQ(db.Count(u"Aéroports"_s), 4);
}

TEST_F(DaoTest, ACriterionOnAnUnknownColumnIs3070) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s);
    EXPECT_EQ(ErrorOf([&] { rs.FindFirst(u"pays = 'FR'"_s); }), DaoUnknownName);
}

TEST_F(DaoTest, ANumberAgainstAWordIsATypeMismatch) {
    Recordset rs = base.OpenRecordset(u"Aéroports"_s);
    EXPECT_EQ(ErrorOf([&] { rs.FindFirst(u"IDA = 12"_s); }), DaoCriteriaTypeMismatch);
}

TEST_F(DaoTest, TwoOpensOfOneFileInOneEventGetAlong) {
    // Ingestion looks an airport up while its own recordset on Zefir is open and being written.
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    zefir.AddNew();
    Database other = OpenDatabase(db.Path());
    Recordset lookup = other.OpenRecordset(u"select * from aéroports  "_s, dbOpenSnapshot);
    lookup.FindFirst(u"IDA = 'LFLL'"_s);
    zefir.SetField(u"NumAéroport"_s, lookup.Fields(u"idx"_s));
    lookup.Close();
    other.Close();
    zefir.SetField(u"daterelevé"_s, u"02/11/2004"_s);
    zefir.SetField(u"heurerelevé"_s, u"10:00"_s);
    EXPECT_NO_THROW(zefir.Update());
    zefir.Close();
    base.Close();
    EXPECT_EQ(db.Value(u"SELECT \"NumAéroport\" FROM Zefir"_s).toInt(), 2);
}
