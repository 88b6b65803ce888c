// The airport selection form, driven through its named controls on a real database, from the
// tray's menu: its design, its load, the judging of the choice, the double click, Validate,
// Cancel, Edit and the close box.
#include <QFileInfo>
#include <QLabel>
#include <QSignalSpy>

#include "AirportsFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class Selection : public AirportsFixture {};

constexpr int LineHeathrow = 0;
constexpr int LineBourget = 1;
constexpr int LineRoissy = 2;

// ---- Design and load

TEST_F(Selection, TheFormHasItsControlsUnderTheirNamesWithTheirTexts) {
    AeroportsConfig& form = OpenSelection();
    EXPECT_EQ(form.objectName(), QStringLiteral("AeroportsConfig"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Cancel"));
    EXPECT_EQ(Named<QLabel>(form, QStringLiteral("Label1"))->text(),
              QStringLiteral("Here is where you manage all your airports list."));
    EXPECT_EQ(Named<QPushButton>(form, QStringLiteral("Command1"))->text(), QStringLiteral("Validate"));
    EXPECT_EQ(Named<QPushButton>(form, QStringLiteral("Command2"))->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(Named<QPushButton>(form, QStringLiteral("ajouterbtn"))->text(), QStringLiteral("Edit"));
    EXPECT_NE(Named<QLabel>(form, QStringLiteral("PREF")), nullptr);
    EXPECT_NE(Named<QLabel>(form, QStringLiteral("NBS")), nullptr);
    Image* image = Named<Image>(form, QStringLiteral("Image1"));
    ASSERT_NE(image, nullptr);
    EXPECT_FALSE(image->Picture().isNull());
    ListBox* list = Named<ListBox>(form, QStringLiteral("List1"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->MultiSelect(), vbMultiSelectSimple);
}

TEST_F(Selection, TheListHoldsEveryAirportByCityWithoutAMarkAndItsIdxInItemData) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0, codeforecast = 'paris' WHERE idx = 1"));
    AeroportsConfig& form = OpenSelection();
    ListBox* list = Named<ListBox>(form, QStringLiteral("List1"));
    ASSERT_EQ(list->ListCount(), 3);
    EXPECT_EQ(list->List(LineHeathrow), QStringLiteral("London - Heathrow"));
    EXPECT_EQ(list->List(LineBourget), QStringLiteral("Paris - Le Bourget"));
    EXPECT_EQ(list->List(LineRoissy), QStringLiteral("Roissy - Charles de Gaulle"));
    EXPECT_EQ(list->ItemData(LineHeathrow), IdxHeathrow);
    EXPECT_EQ(list->ItemData(LineBourget), IdxBourget);
    EXPECT_EQ(list->ItemData(LineRoissy), IdxRoissy);
    // The inactive airport is listed, not selected.
    EXPECT_TRUE(list->Selected(LineHeathrow));
    EXPECT_FALSE(list->Selected(LineBourget));
    EXPECT_TRUE(list->Selected(LineRoissy));
}

TEST_F(Selection, TheActiveAirportsAreSelectedAndThePreferredOneIsInPref) {
    AeroportsConfig& form = OpenSelection();
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Caption(), QStringLiteral("Paris - Le Bourget"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("1"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("3 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Selection, WithNoPreferredAirportPrefIsEmptyAndItsTagIsZero) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"préféré\" = 0"));
    AeroportsConfig& form = OpenSelection();
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Caption(), QString());
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("0"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("3 Selected Airports"));
}

TEST_F(Selection, APreferredAirportThatIsntActiveGivesTheFirstMessageDuringTheLoad) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0 WHERE idx = 1"));
    AeroportsConfig& form = OpenSelection();
    // London's selection came before Paris was read; Roissy's, behind it, finds Paris unselected.
    ASSERT_EQ(Shown(PreferredMessage), 1);
    EXPECT_EQ(boxes.titles.back(), QStringLiteral("Hum Hum"));
    EXPECT_EQ(boxes.styles.back(), int(vbOKOnly));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("-1 Selected Airports"));
    EXPECT_FALSE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(Selection, APreferredAirportListedLastAndInactiveRaisesNoMessageAtLoad) {
    // No selected line comes behind Roissy to judge it: the load stays silent.
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"préféré\" = (idx = 3), \"activé\" = (idx <> 3)"));
    AeroportsConfig& form = OpenSelection();
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("2 Selected Airports"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("3"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
}

// ---- Judging the choice

TEST_F(Selection, ClickingAwayThePreferredLineShowsTheFirstMessageAndMinusOneUntilItIsSelectedAgain) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineBourget);
    EXPECT_FALSE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineBourget));
    EXPECT_EQ(Shown(PreferredMessage), 1);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("-1 Selected Airports"));
    EXPECT_FALSE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    // Another line changes nothing while the preferred one stays unselected.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_EQ(Shown(PreferredMessage), 2);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("-1 Selected Airports"));
    // Selecting it again gives a valid choice.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineBourget);
    EXPECT_EQ(Shown(PreferredMessage), 2);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("2 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
}

TEST_F(Selection, AClickTogglesOnlyTheLineClicked) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_TRUE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineHeathrow));
    EXPECT_TRUE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineBourget));
    EXPECT_FALSE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineRoissy));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("2 Selected Airports"));
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_TRUE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineRoissy));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("3 Selected Airports"));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Selection, DeselectingEveryLineWithNoPreferredAirportShowsTheSecondMessage) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"préféré\" = 0"));
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineBourget);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown.back(), NoneMessage);
    EXPECT_EQ(boxes.titles.back(), QStringLiteral("Hum Hum"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("0 Selected Airports"));
    EXPECT_FALSE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    // One line again is enough.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("1 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
}

TEST_F(Selection, WithATagOfZeroThePreferredTestFiresOnlyForARowNumberedZero) {
    // The database numbers its rows from 1, so a Tag of 0 matches no line, and "no preferred
    // airport" needs no case of its own. A row given the number 0 by hand, Aix, shows that the
    // Tag is compared like any other number: its line alone can fire the test.
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"préféré\" = 0"));
    db.Exec(
        QStringLiteral("INSERT INTO \"Aéroports\" (idx, IDA, \"aéroport\", ville, timezone, \"activé\", \"préféré\") "
                       "VALUES (0, 'LFMA', 'Les Milles', 'Aix', '1', 1, 0)"));
    AeroportsConfig& form = OpenSelection();
    ASSERT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("0"));
    ASSERT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->List(0), QStringLiteral("Aix - Les Milles"));
    ASSERT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ItemData(0), 0);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("4 Selected Airports"));
    // Aix stands first, the others one line lower. Their lines unselected and selected again:
    // never the first message.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 1 + LineBourget);
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 1 + LineHeathrow);
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 1 + LineRoissy);
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 1 + LineBourget);
    EXPECT_EQ(Shown(PreferredMessage), 0);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("2 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    // Aix unselected: its idx equals the Tag.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 0);
    EXPECT_EQ(Shown(PreferredMessage), 1);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("-1 Selected Airports"));
    EXPECT_FALSE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
}

// ---- The double click

TEST_F(Selection, DoubleClickingALineThatWasntSelectedSelectsItAndMakesItPreferred) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0 WHERE idx = 3"));
    AeroportsConfig& form = OpenSelection();
    ASSERT_FALSE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineRoissy));
    DoubleClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_TRUE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineRoissy));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Caption(), QStringLiteral("Roissy - Charles de Gaulle"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("3"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("3 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Selection, TheDoubleClickIsPrecededByTheClickJudgedWithTheOldPreferredAirport) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0 WHERE idx = 2"));
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")),
              LineBourget);  // the preferred line unselected: the first message
    ASSERT_EQ(Shown(PreferredMessage), 1);
    // Each judging of the double click, with the PREF it saw.
    QStringList tagsAtClick;
    QObject::connect(Named<ListBox>(form, QStringLiteral("List1")), &ListBox::Click,
                     [&] { tagsAtClick.append(Named<Label>(form, QStringLiteral("PREF"))->Tag); });
    bool doubleClicked = false;
    QObject::connect(Named<ListBox>(form, QStringLiteral("List1")), &ListBox::DblClick, [&] { doubleClicked = true; });
    DoubleClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    ASSERT_TRUE(doubleClicked);
    // The user's click, then the one that selecting the line raises: both with Paris still
    // preferred and unselected, so both give the message, and the new choice isn't judged.
    EXPECT_EQ(tagsAtClick, QStringList({QStringLiteral("1"), QStringLiteral("1")}));
    EXPECT_EQ(Shown(PreferredMessage), 3);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("2"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Caption(), QStringLiteral("London - Heathrow"));
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("-1 Selected Airports"));
    EXPECT_FALSE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    // The next click judges the new choice.
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineRoissy);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("1 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
}

// ---- Validate, Cancel, Edit, the close box

TEST_F(Selection, ValidateWritesTheChoiceAndTheOldPreferredAirportLosesItsMark) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);  // London no longer active
    DoubleClickLine(Named<ListBox>(form, QStringLiteral("List1")),
                    LineRoissy);  // Roissy preferred (it was selected: off, then on)
    ASSERT_EQ(Named<Label>(form, QStringLiteral("PREF"))->Tag, QStringLiteral("3"));
    ASSERT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    QPointer<QWidget> gone(&form);
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_EQ(Column(IdxHeathrow, QStringLiteral("activé")).toInt(), 0);
    EXPECT_EQ(Column(IdxBourget, QStringLiteral("activé")).toInt(), 1);
    EXPECT_EQ(Column(IdxRoissy, QStringLiteral("activé")).toInt(), 1);
    EXPECT_EQ(Column(IdxBourget, QStringLiteral("préféré")).toInt(), 0);
    EXPECT_EQ(Column(IdxRoissy, QStringLiteral("préféré")).toInt(), 1);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE \"préféré\"")).toInt(), 1);
    EXPECT_FALSE(forms.Loaded<AeroportsConfig>());
    EXPECT_TRUE(Deleted(gone));
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(Selection, ValidateWritesEveryRowChangedOrNot) {
    db.Exec(QStringLiteral("CREATE TABLE writes (idx INTEGER)"));
    db.Exec(
        QStringLiteral("CREATE TRIGGER counted AFTER UPDATE ON \"Aéroports\" "
                       "BEGIN INSERT INTO writes VALUES (new.idx); END"));
    AeroportsConfig& form = OpenSelection();
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_EQ(db.Count(QStringLiteral("writes")), 3);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT group_concat(idx) FROM writes")).toString(), QStringLiteral("2,1,3"));
}

TEST_F(Selection, ValidateWithATagOfZeroLeavesNoAirportPreferred) {
    db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"préféré\" = 0"));
    AeroportsConfig& form = OpenSelection();
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE \"préféré\"")).toInt(), 0);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE \"activé\"")).toInt(), 3);
}

TEST_F(Selection, ValidateRefillsTheMainWindowsListAndStartsThePollTimer) {
    AeroportsConfig& form = OpenSelection();
    ASSERT_FALSE(T(Form()).Enabled());
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    ExpectBourgetAndRoissyPolled();
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListIndex(), 0);
    EXPECT_TRUE(T(Form()).Enabled());
}

TEST_F(Selection, CancelStoresNothingAndStartsThePollTimer) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    QPointer<QWidget> gone(&form);
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command2")), Qt::LeftButton);
    EXPECT_EQ(Column(IdxHeathrow, QStringLiteral("activé")).toInt(), 1);
    EXPECT_FALSE(forms.Loaded<AeroportsConfig>());
    EXPECT_TRUE(T(Form()).Enabled());
    EXPECT_TRUE(Deleted(gone));
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListCount(), 3);
}

TEST_F(Selection, TheCloseBoxUnloadsTheFormAndStartsThePollTimer) {
    AeroportsConfig& form = OpenSelection();
    QPointer<QWidget> gone(&form);
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(forms.Loaded<AeroportsConfig>());
    EXPECT_TRUE(T(Form()).Enabled());
    EXPECT_TRUE(Deleted(gone));
}

TEST_F(Selection, TheAirportsItemWhileTheFormIsOpenShowsTheSameForm) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    Named<QAction>(StartForm(), QStringLiteral("MenuAeroport"))->trigger();
    EXPECT_EQ(&forms.Get<AeroportsConfig>(), &form);
    EXPECT_FALSE(Named<ListBox>(form, QStringLiteral("List1"))->Selected(LineHeathrow));  // the change still stands
    EXPECT_FALSE(T(Form()).Enabled());
}

TEST_F(Selection, TheFormIsLoadedAnewEachTimeItIsOpened) {
    AeroportsConfig& first = OpenSelection();
    ClickLine(Named<ListBox>(first, QStringLiteral("List1")), LineHeathrow);  // a change that isn't stored
    QTest::mouseClick(Named<QPushButton>(first, QStringLiteral("Command2")), Qt::LeftButton);
    AeroportsConfig& second = OpenSelection();
    EXPECT_TRUE(Named<ListBox>(second, QStringLiteral("List1"))->Selected(LineHeathrow));
    EXPECT_EQ(Named<Label>(second, QStringLiteral("NBS"))->Caption(), QStringLiteral("3 Selected Airports"));
}

TEST_F(Selection, EditShowsTheAddFormAndUnloadsTheSelection) {
    AeroportsConfig& form = OpenSelection();
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("ajouterbtn")), Qt::LeftButton);
    ASSERT_TRUE(forms.Loaded<ajoutareoports>());
    EXPECT_TRUE(forms.Widget<ajoutareoports>().isVisible());
    EXPECT_FALSE(forms.Loaded<AeroportsConfig>());
    // Polling runs again while the user types.
    EXPECT_TRUE(T(Form()).Enabled());
    EXPECT_TRUE(runTimeEnds.empty());
}

// ---- Failures

TEST_F(Selection, MoreThan101ActiveAirportsFailAtTheMainWindowsRefillAndEndTheProgram) {
    StartForm();      // the main window loads with the three airports
    AddAirports(99);  // 102 active airports with the three of the test
    AeroportsConfig& form = OpenSelection();
    EXPECT_EQ(Named<Label>(form, QStringLiteral("NBS"))->Caption(), QStringLiteral("102 Selected Airports"));
    EXPECT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());  // the form sets no upper limit
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    ASSERT_EQ(runTimeEnds, std::vector<int>{SubscriptOutOfRange});
    EXPECT_EQ(boxes.shown.back(), QStringLiteral("Run-time error '9': Subscript out of range"));
    // The table was written before the refill failed; the 102nd line stands in the list.
    EXPECT_EQ(db.Value(QStringLiteral("SELECT count(*) FROM \"Aéroports\" WHERE \"activé\"")).toInt(), 102);
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListCount(), 102);
}

TEST_F(Selection, Exactly101ActiveAirportsFillTheMainWindowsList) {
    AddAirports(98);
    AeroportsConfig& form = OpenSelection();
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListCount(), 101);
    EXPECT_EQ(forms.module1().TableIDA[100].ToText(), QStringLiteral("LFPG"));  // Roissy comes last
    EXPECT_TRUE(T(Form()).Enabled());
}

TEST_F(Selection, ADatabaseThatAnotherProgramHoldsFailsValidateWithTheRunTimeErrorBox) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    {
        const WriteLock lock(db.Path());
        ASSERT_TRUE(lock.Held());
        QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    }
    ASSERT_EQ(runTimeEnds, std::vector<int>{3260});
    EXPECT_EQ(boxes.shown.back(), QStringLiteral("Run-time error '3260': Couldn't update; currently locked."));
    EXPECT_EQ(Column(IdxHeathrow, QStringLiteral("activé")).toInt(), 1);
}

TEST_F(Selection, AReadOnlyDatabaseFailsValidateWithTheRunTimeErrorBox) {
    AeroportsConfig& form = OpenSelection();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), LineHeathrow);
    ASSERT_TRUE(QFile::setPermissions(db.Path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    if (QFileInfo(db.Path()).isWritable()) GTEST_SKIP() << "this user writes read-only files";
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);
    ASSERT_EQ(runTimeEnds, std::vector<int>{DaoReadOnly});
    EXPECT_EQ(boxes.shown.back(),
              QStringLiteral("Run-time error '3027': Cannot update. Database or object is read-only."));
    EXPECT_EQ(Column(IdxHeathrow, QStringLiteral("activé")).toInt(), 1);
}

TEST_F(Selection, AMissingDatabaseFailsTheLoadWithTheRunTimeErrorBox) {
    StartForm();
    T(Form()).SetEnabled(true);
    ASSERT_TRUE(QFile::remove(db.Path()));
    Named<QAction>(StartForm(), QStringLiteral("MenuAeroport"))->trigger();
    ASSERT_EQ(runTimeEnds, std::vector<int>{DaoFileNotFound});
    EXPECT_FALSE(forms.Loaded<AeroportsConfig>());
    // T was stopped first, and no unload comes to start it again.
    EXPECT_FALSE(T(Form()).Enabled());
}

}  // namespace
