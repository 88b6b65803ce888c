// The add-airport form, reached through the selection form's Edit button and driven through its
// named controls on a real database: its design, its load, Confirm with its thin checks in order,
// Cancel, and the buttons that do nothing.
#include <QFileInfo>
#include <QLabel>

#include "AirportsFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class AddAirport : public AirportsFixture {
protected:
    // Fills the four fields that are read, key by key.
    void Fill(ajoutareoports& form, const QString& code, const QString& name, const QString& city,
              const QString& zone) {
        Type(Named<QLineEdit>(form, QStringLiteral("identificationaéroport")), code);
        Type(Named<QLineEdit>(form, QStringLiteral("nomareoport")), name);
        Type(Named<QLineEdit>(form, QStringLiteral("villeareoport")), city);
        Type(Named<QLineEdit>(form, QStringLiteral("fuseauhorraire")), zone);
    }
    void Confirm(ajoutareoports& form) {
        QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("confirmerbtn")), Qt::LeftButton);
    }

    int Airports() const { return db.Count(QStringLiteral("Aéroports")); }
    // A column of the last airport added.
    QVariant Added(const QString& column) const {
        return db.Value(QStringLiteral("SELECT \"%1\" FROM \"Aéroports\" ORDER BY idx DESC LIMIT 1").arg(column));
    }
};

const QString CodeMessage = QStringLiteral("Identification doit avoir quatre lettres");
const QString NameMessage = QStringLiteral("Vous devez inscrire un nom d'aéroport");
const QString CityMessage = QStringLiteral("Vous devez inscrire le nom de la ville");
const QString ZoneMessage = QStringLiteral("Le fuseau horraire doit être numérique");

// ---- Design and load

TEST_F(AddAirport, TheFormHasEveryControlLabelAndToolTipOfItsDesign) {
    ajoutareoports& form = OpenAddForm();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Add Airport(s) Form."));
    const struct {
        const char* name;
        const char* tip;
    } boxes[] = {{"identificationaéroport", "Identification de quatre lettres de l'aréoport."},
                 {"nomareoport", "Le Bourget"},
                 {"villeareoport", "Ex: Paris"},
                 {"fuseauhorraire", "Ex: +12 -6 -9 etc"},
                 {"longitude", ""},
                 {"latitude", ""},
                 {"forcastcode", ""}};
    for (const auto& box : boxes) {
        QLineEdit* edit = Named<QLineEdit>(form, QString::fromUtf8(box.name));
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->toolTip(), QString::fromUtf8(box.tip)) << box.name;
    }
    EXPECT_EQ(Named<QLineEdit>(form, QStringLiteral("identificationaéroport"))->maxLength(), 4);
    const struct {
        const char* name;
        const char* caption;
    } labels[] = {{"Label1", "Identification"},   {"nomaéropotlabel", "Airport Name"},
                  {"nomvillelabel", "City Name"}, {"Label2", "Time Zone"},
                  {"Label3", "Longitude"},        {"Label4", "Latitude"},
                  {"Label5", "Forecast Code"},    {"validationareoport", "Airport Valid"}};
    for (const auto& label : labels) {
        QLabel* l = Named<QLabel>(form, QString::fromUtf8(label.name));
        ASSERT_NE(l, nullptr);
        EXPECT_EQ(l->text(), QString::fromUtf8(label.caption)) << label.name;
    }
    const struct {
        const char* name;
        const char* caption;
    } buttons[] = {{"confirmerbtn", "Confirm"}, {"annulerbtn", "Cancel"}, {"addbtn", "Add"}, {"Command1", "Delete"}};
    for (const auto& button : buttons) {
        QPushButton* b = Named<QPushButton>(form, QString::fromUtf8(button.name));
        ASSERT_NE(b, nullptr);
        EXPECT_EQ(b->text(), QString::fromUtf8(button.caption)) << button.name;
    }
    EXPECT_NE(Named<QCheckBox>(form, QStringLiteral("areoportvalidck")), nullptr);
    EXPECT_NE(Named<QLabel>(form, QStringLiteral("compteareoport")), nullptr);
}

TEST_F(AddAirport, TheCountShowsRecordCountAsItStandsRightAfterOpening) {
    ajoutareoports& form = OpenAddForm();
    // Three airports, but only the first row has been reached.
    EXPECT_EQ(Named<Label>(form, QStringLiteral("compteareoport"))->Caption(), QStringLiteral("1"));
}

TEST_F(AddAirport, TheLoadLooksUpTheSelectionFormsFirstLineWhileThatFormIsStillLoaded) {
    // The selection form is loaded once, from the menu: the add form's load reads its list and
    // doesn't load a second one.
    int loads = 0;
    forms.Provide<AeroportsConfig>([&loads](Forms& f) {
        ++loads;
        return AeroportsConfig::Load(f);
    });
    OpenAddForm();
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(AddAirport, WithAnEmptyTableTheLookUpOfTheFirstLineEndsTheProgram) {
    // Emptied once the program has started, which it can't do without an active airport.
    StartForm();
    db.Exec(QStringLiteral("DELETE FROM \"Aéroports\""));
    AeroportsConfig& selection = OpenSelection();
    QTest::mouseClick(Named<QPushButton>(selection, QStringLiteral("ajouterbtn")), Qt::LeftButton);
    EXPECT_EQ(runTimeEnds, std::vector<int>{SubscriptOutOfRange});
}

// ---- Confirm

TEST_F(AddAirport, IdentificationLfthWithTheOtherFieldsFilledIsStoredAsLFTH) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("lfth"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("+1"));
    QPointer<QWidget> gone(&form);
    Confirm(form);
    EXPECT_TRUE(boxes.shown.empty());
    ASSERT_EQ(Airports(), 4);
    EXPECT_EQ(Added(QStringLiteral("IDA")).toString(), QStringLiteral("LFTH"));
    EXPECT_EQ(Added(QStringLiteral("aéroport")).toString(), QStringLiteral("Francazal"));
    EXPECT_EQ(Added(QStringLiteral("ville")).toString(), QStringLiteral("Toulouse"));
    EXPECT_EQ(Added(QStringLiteral("timezone")).toString(), QStringLiteral("+1"));
    EXPECT_EQ(Added(QStringLiteral("activé")).toInt(), 1);
    EXPECT_EQ(Added(QStringLiteral("préféré")).toInt(), 0);
    EXPECT_EQ(Added(QStringLiteral("idx")).toInt(), 4);
    EXPECT_EQ(LogCount(QStringLiteral("Nouvelle Aéroport enregistré Francazal\r\n")), 1);
    EXPECT_FALSE(forms.Loaded<ajoutareoports>());
    EXPECT_TRUE(Deleted(gone));
}

TEST_F(AddAirport, TheNewRowHasCodeforecastNullAndItsLineHasNoStar) {
    ajoutareoports& form = OpenAddForm();
    Type(Named<QLineEdit>(form, QStringLiteral("forcastcode")), QStringLiteral("toulouse"));  // never read
    Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("1"));
    Confirm(form);
    EXPECT_EQ(
        db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE codeforecast IS NULL AND idx = 4")).toInt(),
        1);
    ListBox* list = Named<ListBox>(Form(), QStringLiteral("List1"));
    ASSERT_EQ(list->ListCount(), 4);
    EXPECT_EQ(list->List(3), QStringLiteral("   Toulouse - Francazal"));
    EXPECT_EQ(list->ItemData(3), 4);
    EXPECT_EQ(forms.module1().TableIDA[3].ToText(), QStringLiteral("LFTH"));
}

TEST_F(AddAirport, AThreeLetterIdentificationGivesTheMessageAndIsStoredAsTyped) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("lft"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("-6"));
    Confirm(form);
    ASSERT_EQ(boxes.shown, std::vector<QString>{CodeMessage});
    // A plain message box: OK alone, and the program's own title.
    EXPECT_EQ(boxes.styles.back(), int(vbOKOnly));
    EXPECT_EQ(boxes.titles.back(), QString());
    EXPECT_EQ(Named<QLineEdit>(form, QStringLiteral("identificationaéroport"))->text(), QStringLiteral("lft"));
    ASSERT_EQ(Airports(), 4);
    EXPECT_EQ(Added(QStringLiteral("IDA")).toString(), QStringLiteral("lft"));
}

TEST_F(AddAirport, TimeZonesOfPlus12AndMinus6AreNumericAndAccepted) {
    for (const QString& zone : {QStringLiteral("+12"), QStringLiteral("-6")}) {
        ajoutareoports& form = OpenAddForm();
        Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), zone);
        Confirm(form);
        EXPECT_EQ(Added(QStringLiteral("timezone")).toString(), zone);
    }
    EXPECT_EQ(Airports(), 5);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(AddAirport, ATimeZoneOfUtcGivesTheMessageAndStoresNothing) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("UTC"));
    Confirm(form);
    EXPECT_EQ(boxes.shown, std::vector<QString>{ZoneMessage});
    EXPECT_EQ(Airports(), 3);
    EXPECT_EQ(LogCount(QStringLiteral("Nouvelle Aéroport")), 0);
    EXPECT_FALSE(forms.Loaded<ajoutareoports>());
}

TEST_F(AddAirport, EmptyNamesGiveTheirMessagesAndTheRowIsStoredAllTheSame) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFTH"), {}, {}, QStringLiteral("1"));
    Confirm(form);
    EXPECT_EQ(boxes.shown, (std::vector<QString>{NameMessage, CityMessage}));
    ASSERT_EQ(Airports(), 4);
    EXPECT_EQ(Added(QStringLiteral("aéroport")).toString(), QString());
    EXPECT_EQ(LogCount(QStringLiteral("Nouvelle Aéroport enregistré \r\n")), 1);
}

TEST_F(AddAirport, AllFieldsEmptyGiveThreeMessagesInARowStoreNothingAndCloseTheForm) {
    ajoutareoports& form = OpenAddForm();
    QPointer<QWidget> gone(&form);
    Confirm(form);
    EXPECT_EQ(boxes.shown, (std::vector<QString>{CodeMessage, NameMessage, CityMessage}));
    EXPECT_EQ(Airports(), 3);
    EXPECT_FALSE(forms.Loaded<ajoutareoports>());
    EXPECT_TRUE(Deleted(gone));
    // The main window's list was refilled all the same.
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListCount(), 3);
}

TEST_F(AddAirport, TwoConfirmationsNeverHappenOnOneLoad) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("1"));
    Confirm(form);
    ASSERT_FALSE(forms.Loaded<ajoutareoports>());
    // The next opening is a fresh load, with empty fields.
    ajoutareoports& again = OpenAddForm();
    EXPECT_NE(&again, &form);
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("identificationaéroport"))->text(), QString());
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("nomareoport"))->text(), QString());
    EXPECT_EQ(Airports(), 4);
}

TEST_F(AddAirport, AfterCancelTheNextOpeningShowsTheOldTextsAndTheOldCount) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("lfth"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("1"));
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("annulerbtn")), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    ASSERT_TRUE(forms.Loaded<ajoutareoports>());
    EXPECT_EQ(Airports(), 3);
    ASSERT_EQ(Named<Label>(form, QStringLiteral("compteareoport"))->Caption(), QStringLiteral("1"));
    // A load now would count no row at all and then fail on the selection form's empty list: the
    // next opening shows the first load's count, and nothing fails, because no load runs.
    db.Exec(QStringLiteral("DELETE FROM \"Aéroports\""));
    ajoutareoports& again = OpenAddForm();
    EXPECT_EQ(&again, &form);
    EXPECT_TRUE(again.isVisible());
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("identificationaéroport"))->text(), QStringLiteral("lfth"));
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("nomareoport"))->text(), QStringLiteral("Francazal"));
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("villeareoport"))->text(), QStringLiteral("Toulouse"));
    EXPECT_EQ(Named<QLineEdit>(again, QStringLiteral("fuseauhorraire"))->text(), QStringLiteral("1"));
    EXPECT_EQ(Named<Label>(again, QStringLiteral("compteareoport"))->Caption(), QStringLiteral("1"));
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(AddAirport, AddAndDeleteDoNothing) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("1"));
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("addbtn")), Qt::LeftButton);
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_EQ(Airports(), 3);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(forms.Loaded<ajoutareoports>());
}

TEST_F(AddAirport, ADuplicateStationCodeIsNotTestedFor) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFPB"), QStringLiteral("Le Bourget"), QStringLiteral("Paris"), QStringLiteral("1"));
    Confirm(form);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE IDA = 'LFPB'")).toInt(), 2);
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(AddAirport, AFailingUpdateEndsTheProgramWithTheRunTimeErrorBox) {
    ajoutareoports& form = OpenAddForm();
    Fill(form, QStringLiteral("LFTH"), QStringLiteral("Francazal"), QStringLiteral("Toulouse"), QStringLiteral("1"));
    {
        const WriteLock lock(db.Path());
        ASSERT_TRUE(lock.Held());
        Confirm(form);
    }
    ASSERT_EQ(runTimeEnds, std::vector<int>{3260});
    EXPECT_EQ(Airports(), 3);
    // The error's log line is never written: the failure left the procedure before it.
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE")), 0);
    EXPECT_EQ(LogCount(QStringLiteral("Nouvelle Aéroport")), 0);
}

TEST_F(AddAirport, TheCloseBoxUnloadsTheForm) {
    ajoutareoports& form = OpenAddForm();
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(forms.Loaded<ajoutareoports>());
    EXPECT_EQ(Airports(), 3);
}

}  // namespace
