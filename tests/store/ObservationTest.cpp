// The one writer of an observation row, on real files: the row committed at once, the refusal of
// a repeated observation (3022) with the first row left standing, and what counts as a repeat.
#include <gtest/gtest.h>

#include "Dao.h"
#include "Failures.h"
#include "Observation.h"
#include "TestDatabase.h"

using namespace skelda;
using namespace skelda::test;
using namespace Qt::StringLiterals;

namespace {

class ObservationRow : public ::testing::Test {
protected:
    TestDatabase db{{Airport(u"LFPB"_s, u"Paris"_s, u"Le Bourget"_s, true, true),
                     Airport(u"LFLL"_s, u"Lyon"_s, u"Saint-Exupéry"_s)}};
    Database base = OpenDatabase(db.Path());

    // One observation as ingestion writes it, through the store's writer. A failed statement
    // comes back as the failure of this call, so that a test reads it as it reads any other.
    void StoreObservation(Recordset& zefir, int airport, const QString& day, const QString& time, int knots,
                          const QString& metaf) {
        Bulletin releve;
        releve.DateReleve = day;
        releve.HeureReleve = time;
        releve.ForceNoeuds = int16_t(knots);
        releve.OrientationDegre = u"240"_s;
        releve.Visibilite = u"10 km or more"_s;
        releve.Nuage = u"Few clouds at 1600 feet"_s;
        releve.Temperature = 12;
        releve.Pression = 1015;
        ResumeNext step;
        AjouterReleve(
            zefir, step, u"NumAéroport"_s, [&] { return Variant(int32_t(airport)); }, releve, metaf);
        if (step.Number() != 0) throw RuntimeError(step.Number(), step.Description());
    }

    // The value of one column of the only Zefir row, as stored.
    QVariant Stored(const QString& column) const { return db.Value(u"SELECT \"%1\" FROM Zefir"_s.arg(column)); }
};

}  // namespace

TEST_F(ObservationRow, AnObservationIsStoredAndCommittedAtOnce) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 12, u"LFPB 021000Z 24012KT"_s);
    // Seen from another connection while the recordset is still open.
    EXPECT_EQ(db.Count(u"Zefir"_s), 1);
    EXPECT_EQ(Stored(u"daterelevé"_s).toString(), u"2004-11-02"_s);
    EXPECT_EQ(Stored(u"heurerelevé"_s).toString(), u"10:00:00"_s);
    EXPECT_EQ(Stored(u"forcenoeuds"_s).toInt(), 12);
    EXPECT_EQ(Stored(u"zefirvariable"_s).toInt(), 0);
    EXPECT_EQ(Stored(u"orientationdegré"_s).toString(), u"240"_s);
    EXPECT_FALSE(Stored(u"lieu"_s).isValid());
}

TEST_F(ObservationRow, TheSecondStoreOfOneObservationIs3022AndTheFirstRowStands) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 12, u"first"_s);
    zefir.Close();

    zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    EXPECT_EQ(ErrorOf([&] { StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 30, u"second"_s); }),
              DaoDuplicateKey);
    EXPECT_EQ(DescriptionOf([&] { zefir.Update(); }),
              u"The changes you requested to the table were not successful because they would create duplicate "
              "values in the index, primary key, or relationship. Change the data in the field or fields that "
              "contain duplicate data, remove the index, or redefine the index to permit duplicate entries and try "
              "again."_s);
    EXPECT_EQ(db.Count(u"Zefir"_s), 1);
    EXPECT_EQ(Stored(u"METAF"_s).toString(), u"first"_s);
    EXPECT_EQ(Stored(u"forcenoeuds"_s).toInt(), 12);
}

TEST_F(ObservationRow, ARefusedRowStaysPendingUntilCancelled) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 12, u"first"_s);
    EXPECT_EQ(ErrorOf([&] { StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 30, u"second"_s); }),
              DaoDuplicateKey);
    EXPECT_EQ(zefir.Fields(u"METAF"_s), Variant(u"second"_s));
    zefir.SetField(u"heurerelevé"_s, u"10:30"_s);
    EXPECT_NO_THROW(zefir.Update());
    EXPECT_EQ(db.Count(u"Zefir"_s), 2);
    EXPECT_EQ(ErrorOf([&] { zefir.CancelUpdate(); }), DaoUpdateWithoutEdit);
}

TEST_F(ObservationRow, OtherAirportsAndOtherTimesAreNoRepeats) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 12, u"a"_s);
    StoreObservation(zefir, 2, u"02/11/2004"_s, u"10:00"_s, 12, u"b"_s);
    StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:30"_s, 12, u"c"_s);
    StoreObservation(zefir, 1, u"03/11/2004"_s, u"10:00"_s, 12, u"d"_s);
    StoreObservation(zefir, 0, u"02/11/2004"_s, u"10:00"_s, 12, u"unknown station"_s);
    EXPECT_EQ(db.Count(u"Zefir"_s), 5);
    EXPECT_EQ(ErrorOf([&] { StoreObservation(zefir, 0, u"02/11/2004"_s, u"10:00"_s, 12, u"again"_s); }),
              DaoDuplicateKey);
}

TEST_F(ObservationRow, ATypedObservationRepeatedIsRefusedToo) {
    const auto typed = [&](const QString& lieu) {
        Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
        zefir.AddNew();
        zefir.SetField(u"lieu"_s, lieu);
        zefir.SetField(u"daterelevé"_s, u"02/11/2004"_s);
        zefir.SetField(u"heurerelevé"_s, u"10:00"_s);
        zefir.SetField(u"forcenoeuds"_s, int16_t(5));
        zefir.Update();
    };
    EXPECT_NO_THROW(typed(u"Paris - Le Bourget"_s));
    EXPECT_EQ(ErrorOf([&] { typed(u"Paris - Le Bourget"_s); }), DaoDuplicateKey);
    EXPECT_NO_THROW(typed(u"Lyon - Saint-Exupéry"_s));
    // The same moment fetched for airport 1 is another row: the typed one isn't tied to it.
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    EXPECT_NO_THROW(StoreObservation(zefir, 1, u"02/11/2004"_s, u"10:00"_s, 12, u"fetched"_s));
    EXPECT_EQ(db.Count(u"Zefir"_s), 3);
}

TEST_F(ObservationRow, EachColumnIsOneStatementAndAFailedOneLeavesTheOthersWritten) {
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    Bulletin releve;
    releve.DateReleve = u"02/11/2004"_s;
    releve.HeureReleve = u"10:00"_s;
    releve.ForceNoeuds = 12;
    releve.Pression = 1015;
    ResumeNext step;
    // The place's value can't be found: that column alone is skipped, and the row goes in.
    AjouterReleve(
        zefir, step, u"NumAéroport"_s, []() -> Variant { throw RuntimeError(DaoSyntaxInCriteria); }, releve,
        u"LFPB 021000Z"_s);
    EXPECT_EQ(step.Number(), int(DaoSyntaxInCriteria));
    EXPECT_EQ(db.Count(u"Zefir"_s), 1);
    EXPECT_FALSE(Stored(u"NumAéroport"_s).isValid());
    EXPECT_EQ(Stored(u"pression"_s).toInt(), 1015);
    EXPECT_EQ(Stored(u"METAF"_s).toString(), u"LFPB 021000Z"_s);
}

// Null in the airport, date or time of an observation counts as a value: the same unreadable
// report stored twice is one observation, refused the second time like any other repeat.
namespace {

class NullInTheKey : public ObservationRow {
protected:
    // Stores a reply's row whose airport lookup fails, so that NumAéroport stays Null, as a station
    // code with an apostrophe leaves it. Gives the last failure of the writer's statements.
    int StoreUnresolved(const QString& day, const QString& time, const QString& metaf) {
        Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
        Bulletin releve;
        releve.DateReleve = day;
        releve.HeureReleve = time;
        releve.ForceNoeuds = 7;
        ResumeNext step;
        AjouterReleve(
            zefir, step, u"NumAéroport"_s, []() -> Variant { throw RuntimeError(DaoSyntaxInCriteria); }, releve, metaf);
        return step.Number();
    }
    int StoreAt(const Variant& airport, const QString& day, const QString& time) {
        Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
        Bulletin releve;
        releve.DateReleve = day;
        releve.HeureReleve = time;
        ResumeNext step;
        AjouterReleve(
            zefir, step, u"NumAéroport"_s, [&] { return airport; }, releve, u"x"_s);
        return step.Number();
    }
    // A typed row, each statement a step as hand entry runs it; gives the last failure.
    int Typed(const QString& lieu, const QString& day, const QString& time) {
        Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
        ResumeNext step;
        step([&] { zefir.AddNew(); });
        step([&] { zefir.SetField(u"lieu"_s, lieu); });
        step([&] { zefir.SetField(u"daterelevé"_s, day); });
        step([&] { zefir.SetField(u"heurerelevé"_s, time); });
        step([&] { zefir.Update(); });
        return step.Number();
    }
};

}  // namespace

TEST_F(NullInTheKey, AnUnresolvedStationStoredTwiceIsOneRowAndTheSecondIs3022) {
    EXPECT_EQ(StoreUnresolved(u"02/11/2004"_s, u"10:00"_s, u"L'FB 021000Z"_s), int(DaoSyntaxInCriteria));
    EXPECT_EQ(StoreUnresolved(u"02/11/2004"_s, u"10:00"_s, u"L'FB 021000Z"_s), int(DaoDuplicateKey));
    EXPECT_EQ(db.Count(u"Zefir"_s), 1);
    EXPECT_FALSE(Stored(u"NumAéroport"_s).isValid());
}

TEST_F(NullInTheKey, AnUnreadableDateOrTimeStoredTwiceIsOneRow) {
    // Null date (the text isn't a date: its statement is skipped), then Null time, then both (an
    // empty text isn't a date or a time either).
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u"32/13/2004"_s, u"10:00"_s), int(DaoConversionError));
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u"32/13/2004"_s, u"10:00"_s), int(DaoDuplicateKey));
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u"02/11/2004"_s, u"99:99"_s), int(DaoConversionError));
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u"02/11/2004"_s, u"99:99"_s), int(DaoDuplicateKey));
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u""_s, u""_s), int(DaoConversionError));
    EXPECT_EQ(StoreAt(Variant(int32_t(1)), u""_s, u""_s), int(DaoDuplicateKey));
    EXPECT_EQ(db.Count(u"Zefir"_s), 3);
    EXPECT_EQ(db.Value(u"SELECT count(*) FROM Zefir WHERE daterelevé IS NULL AND heurerelevé IS NULL"_s).toInt(), 1);
}

TEST_F(NullInTheKey, NullIsAValueOfItsOwnNotZeroNorAnotherDayOrTime) {
    EXPECT_EQ(StoreAt(Variant::Null(), u"02/11/2004"_s, u"10:00"_s), 0);
    EXPECT_EQ(StoreAt(Variant(int32_t(0)), u"02/11/2004"_s, u"10:00"_s), 0);
    EXPECT_EQ(StoreAt(Variant::Null(), u""_s, u"10:00"_s), int(DaoConversionError));  // stored, date Null
    EXPECT_EQ(StoreAt(Variant::Null(), u"02/11/2004"_s, u""_s), int(DaoConversionError));
    EXPECT_EQ(StoreAt(Variant::Null(), u"02/11/2004"_s, u"10:30"_s), 0);
    EXPECT_EQ(db.Count(u"Zefir"_s), 5);
}

TEST_F(NullInTheKey, ATypedRowWithAnUnreadableDayIsRefusedTheSecondTime) {
    EXPECT_EQ(Typed(u"Paris - Le Bourget"_s, u""_s, u"10:00"_s), int(DaoConversionError));  // stored
    EXPECT_EQ(Typed(u"Paris - Le Bourget"_s, u""_s, u"10:00"_s), int(DaoDuplicateKey));
    EXPECT_EQ(Typed(u"Paris - Le Bourget"_s, u"02/11/2004"_s, u""_s), int(DaoConversionError));
    EXPECT_EQ(Typed(u"Paris - Le Bourget"_s, u"02/11/2004"_s, u""_s), int(DaoDuplicateKey));
    // Another place at the same unreadable moment is another observation.
    EXPECT_EQ(Typed(u"Lyon - Saint-Exupéry"_s, u""_s, u"10:00"_s), int(DaoConversionError));
    // A typed row and an unresolved reply never collide: the reply has no place.
    EXPECT_EQ(StoreAt(Variant::Null(), u""_s, u"10:00"_s), int(DaoConversionError));
    EXPECT_EQ(db.Count(u"Zefir"_s), 4);
}
