// Storing a METAF text typed by hand, on real database files.
#include "HandEntry.h"

#include "Dao.h"
#include "Printing.h"
#include "RunFolder.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

using namespace skelda;
using skelda::test::Airport;
using skelda::test::LogText;
using skelda::test::RunFolder;
using skelda::test::TestDatabase;
using skelda::test::TestObservation;

namespace {

const QString NoAirport = QStringLiteral("Erreur : Pas d'aéroport correspondant");

// A database with three airports, and a current directory with an empty log/ folder for the
// diary, restored afterwards.
class HandEntry : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(db.IsValid());
        ASSERT_TRUE(work.IsValid());
    }

    QString Store(const QString& text) { return EnregistrerMetaf(text, db.Path(), clock); }

    // One column of the only typed row.
    QVariant Column(const QString& column) const {
        return db.Value(QStringLiteral("SELECT \"%1\" FROM Zefir").arg(column));
    }

    TestDatabase db{{Airport("LFPG", "Paris", "Charles de Gaulle"), Airport("LFTH", "Toulouse", "Francazal"),
                     Airport("LFBO", "Toulouse", "Blagnac")}};
    RunFolder work{RunFolder::Log};
    FixedClock clock{QDateTime(QDate(2004, 11, 15), QTime(14, 30, 5))};
};

const QString Paris = QStringLiteral("LFPG 021030Z 31015G25KT 9999 -RA FEW016 SCT230 22/06 Q1016 NOSIG");

}  // namespace

TEST_F(HandEntry, AKnownStationStoresOneRowAndGivesAnEmptyResult) {
    EXPECT_EQ(Store(Paris), QString());
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column(QStringLiteral("lieu")).toString(), QStringLiteral("Paris - Charles de Gaulle"));
    EXPECT_EQ(Column(QStringLiteral("daterelevé")).toString(), QStringLiteral("2004-11-02"));
    EXPECT_EQ(Column(QStringLiteral("heurerelevé")).toString(), QStringLiteral("10:30:00"));
    EXPECT_EQ(Column(QStringLiteral("forcenoeuds")).toInt(), 15);
    EXPECT_EQ(Column(QStringLiteral("orientationdegré")).toString(), QStringLiteral("310"));
    EXPECT_EQ(Column(QStringLiteral("forcerafale")).toInt(), 25);
    EXPECT_EQ(Column(QStringLiteral("zefirvariable")).toInt(), 0);
    EXPECT_EQ(Column(QStringLiteral("visibilité")).toString(), QStringLiteral("Visibility Less then 9999 Meter"));
    EXPECT_EQ(Column(QStringLiteral("temps")).toString(), QStringLiteral(" Rain Light"));
    EXPECT_EQ(Column(QStringLiteral("nuage")).toString(),
              QStringLiteral(" A few clouds at  1600 feets. Scattered clouds at 23000 feets."));
    EXPECT_EQ(Column(QStringLiteral("température")).toInt(), 22);
    EXPECT_EQ(Column(QStringLiteral("pression")).toInt(), 1016);
    EXPECT_EQ(Column(QStringLiteral("METAF")).toString(), Paris);
    EXPECT_EQ(LogText(), QString());
}

TEST_F(HandEntry, ATypedRowHasAPlaceAndNoAirportNumber) {
    Store(Paris);
    EXPECT_FALSE(Column(QStringLiteral("NumAéroport")).isValid());  // Null
    EXPECT_EQ(Column(QStringLiteral("lieu")).toString(), QStringLiteral("Paris - Charles de Gaulle"));
}

TEST_F(HandEntry, AVariableWindKeepsItsNegativeSpeedAndTheFlag) {
    Store(QStringLiteral("LFBO 021000Z VRB03KT 200V260 CAVOK 12/10 Q1020"));
    EXPECT_EQ(Column(QStringLiteral("lieu")).toString(), QStringLiteral("Toulouse - Blagnac"));
    EXPECT_EQ(Column(QStringLiteral("forcenoeuds")).toInt(), -3);
    EXPECT_NE(Column(QStringLiteral("zefirvariable")).toInt(), 0);
    EXPECT_EQ(Column(QStringLiteral("secteur1")).toInt(), 200);
    EXPECT_EQ(Column(QStringLiteral("secteur2")).toInt(), 260);
}

TEST_F(HandEntry, TheStoredDateHasTheMonthAndYearOfTheDayOfEntry) {
    // A message of the 28th typed on the 1st of March is dated in March, whatever its own month.
    clock.Set(QDateTime(QDate(2005, 3, 1), QTime(0, 10)));
    EXPECT_EQ(Store(QStringLiteral("LFPG 282350Z 22013KT 9999 22/06 Q1016")), QString());
    EXPECT_EQ(Column(QStringLiteral("daterelevé")).toString(), QStringLiteral("2005-03-28"));
    EXPECT_EQ(Column(QStringLiteral("heurerelevé")).toString(), QStringLiteral("23:50:00"));
}

TEST_F(HandEntry, AnUnknownStationStoresNothingAndLogsNothing) {
    EXPECT_EQ(Store(QStringLiteral("KJFK 021051Z 22013KT 10SM FEW250 22/06 A2992")), NoAirport);
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 0);
    EXPECT_EQ(LogText(), QString());
}

TEST_F(HandEntry, AnEmptyTextStoresTheSampleWithAnEmptyMetaf) {
    EXPECT_EQ(Store(QString()), QString());
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(Column(QStringLiteral("lieu")).toString(), QStringLiteral("Toulouse - Francazal"));
    EXPECT_EQ(Column(QStringLiteral("daterelevé")).toString(), QStringLiteral("2004-11-02"));
    EXPECT_EQ(Column(QStringLiteral("heurerelevé")).toString(), QStringLiteral("10:00:00"));
    EXPECT_EQ(Column(QStringLiteral("forcenoeuds")).toInt(), 13);
    EXPECT_EQ(Column(QStringLiteral("pression")).toInt(), 1016);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM Zefir WHERE METAF = ''")).toInt(), 1);
}

TEST_F(HandEntry, ARepeatedMessageFailsInUpdateAndTheWordsGoToTheLog) {
    ASSERT_EQ(Store(Paris), QString());
    const QString result = Store(Paris);
    EXPECT_TRUE(result.startsWith(QStringLiteral("Error : The changes you requested to the table were not successful")))
        << result.toStdString();
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_EQ(LogText(), QStringLiteral("15/11/2004 14:30:05 ") + result + QStringLiteral("\r\n"));
}

TEST_F(HandEntry, TheSameObservationOfAnotherAirportIsNoRepeat) {
    ASSERT_EQ(Store(QStringLiteral("LFTH 021000Z 22013KT 9999 22/06 Q1016")), QString());
    EXPECT_EQ(Store(QStringLiteral("LFBO 021000Z 22013KT 9999 22/06 Q1016")), QString());
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 2);
}

TEST_F(HandEntry, AFailureOfAnyEarlierStepDecidesTheResultEvenWhenTheRowIsStored) {
    // A lone station code decodes to no date and no time: those two assignments fail, the row is
    // stored all the same, and the last failure is still there when the result is made.
    const QString result = Store(QStringLiteral("LFPG"));
    EXPECT_EQ(result, QStringLiteral("Error : Data type conversion error."));
    EXPECT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    EXPECT_FALSE(Column(QStringLiteral("daterelevé")).isValid());
    EXPECT_EQ(LogText(), QStringLiteral("15/11/2004 14:30:05 Error : Data type conversion error.\r\n"));
}

TEST_F(HandEntry, AStationCodeWithAnApostropheIsAFailedSearch) {
    // The search fails (3077) without moving off the first airport, which the test that follows
    // takes for a match: the row is stored with that place, and the failure is reported.
    const QString result = Store(QStringLiteral("LF'X 021000Z 22013KT 9999 22/06 Q1016"));
    EXPECT_EQ(result, QStringLiteral("Error : Syntax error (missing operator) in expression."));
    EXPECT_EQ(Column(QStringLiteral("lieu")).toString(), QStringLiteral("Paris - Charles de Gaulle"));
    EXPECT_TRUE(LogText().endsWith(result + QStringLiteral("\r\n")));
}

TEST_F(HandEntry, AMissingDatabaseFileIsTakenForAnUnknownStation) {
    EXPECT_EQ(EnregistrerMetaf(Paris, db.Folder() + QStringLiteral("/nothing.mdb"), clock), NoAirport);
    EXPECT_EQ(LogText(), QString());
}

TEST_F(HandEntry, WithoutALogFolderAFailureIsStillReported) {
    ASSERT_TRUE(QDir().rmdir(QStringLiteral("log")));
    Store(Paris);
    EXPECT_TRUE(Store(Paris).startsWith(QStringLiteral("Error : ")));
    EXPECT_FALSE(QFile::exists(QStringLiteral("log/log.txt")));
}

TEST_F(HandEntry, ATypedObservationIsNotInTheChartOfItsAirport) {
    TestObservation fetched;
    fetched.numAeroport = 1;
    fetched.day = QDate(2004, 11, 2);
    fetched.time = QTime(9, 0);
    fetched.forcenoeuds = 7;
    db.AddObservation(fetched);
    ASSERT_EQ(Store(Paris), QString());
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 2);

    // The day query of the chart, as the main window sends it for airport 1 on 2 November 2004.
    Database base = OpenDatabase(db.Path());
    Recordset jour = base.OpenRecordset(
        QStringLiteral("select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir where numaéroport = 1 "
                       "and daterelevé = #11/02/04# order by Format([HeureRelevé],'Short Time')"),
        dbOpenSnapshot);
    QStringList hours;
    while (!jour.Eof()) {
        hours.append(jour.Fields(QStringLiteral("HR")).ToText());
        jour.MoveNext();
    }
    jour.Close();
    base.Close();
    EXPECT_EQ(hours, QStringList{QStringLiteral("09:00")});
}
