// The airport forms with the whole program's forms loaded and its poll cycle running against an
// observation server of the test's own: the tray's Airports item stops the polling, a new choice
// changes what the main window lists and polls, and an added airport is polled at once.
#include "AirportsFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class AirportsEndToEnd : public AirportsFixture {
protected:
    // The end of the start: the first tick of the tray's timer starts T and polls once.
    FrmIcone& Started() {
        FrmIcone& tray = StartForm();
        Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
        EXPECT_TRUE(T(Form()).Enabled());
        EXPECT_TRUE(server.WaitForRequests(1));
        return tray;
    }
    // Eleven ticks of T: the next poll.
    void NextPoll(int requests) {
        Tick(Form(), 11);
        EXPECT_TRUE(server.WaitForRequests(requests));
    }
};

TEST_F(AirportsEndToEnd, TheAirportsItemStopsThePollTimerUntilTheFormCloses) {
    FrmIcone& tray = Started();
    Named<QAction>(tray, QStringLiteral("MenuAeroport"))->trigger();
    ASSERT_TRUE(forms.Loaded<AeroportsConfig>());
    AeroportsConfig& form = forms.Get<AeroportsConfig>();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.isModal());
    EXPECT_FALSE(T(Form()).Enabled());
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command2")), Qt::LeftButton);
    EXPECT_TRUE(T(Form()).Enabled());
}

TEST_F(AirportsEndToEnd, ANewChoiceChangesTheListTableIDAAndThePreferredAirportAndThePollFollows) {
    FrmIcone& tray = Started();
    EXPECT_EQ(server.Codes().back(), QByteArray("LFPB"));  // the preferred airport, polled first
    Named<QAction>(tray, QStringLiteral("MenuAeroport"))->trigger();
    AeroportsConfig& form = forms.Get<AeroportsConfig>();
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")),
              1);  // Paris - Le Bourget: the preferred airport, unselected
    DoubleClickLine(Named<ListBox>(form, QStringLiteral("List1")),
                    2);  // Roissy preferred (it was selected: off, then on again)
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 1);  // Paris selected again: the choice is valid
    ASSERT_TRUE(Named<QPushButton>(form, QStringLiteral("Command1"))->isEnabled());
    ClickLine(Named<ListBox>(form, QStringLiteral("List1")), 0);  // London no longer active
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("Command1")), Qt::LeftButton);

    ExpectBourgetAndRoissyPolled();
    EXPECT_EQ(Named<ListBox>(Form(), QStringLiteral("List1"))->ListIndex(), 1);  // the new preferred airport
    EXPECT_EQ(db.Value(QStringLiteral("SELECT idx FROM \"Aéroports\" WHERE \"préféré\"")).toInt(), IdxRoissy);
    EXPECT_TRUE(T(Form()).Enabled());
    // The poll goes on over the new list, from where its index stood (the start's poll took the
    // preferred line without moving it): line 1, Roissy, then line 0, Le Bourget. London is gone.
    NextPoll(2);
    NextPoll(3);
    EXPECT_EQ(server.Codes().mid(1), (QList<QByteArray>{"LFPG", "LFPB"}));
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(AirportsEndToEnd, AddingLfthStoresItActiveListsItAndPollsIt) {
    FrmIcone& tray = Started();
    Named<QAction>(tray, QStringLiteral("MenuAeroport"))->trigger();
    QTest::mouseClick(Named<QPushButton>(forms.Get<AeroportsConfig>(), QStringLiteral("ajouterbtn")), Qt::LeftButton);
    ajoutareoports& form = forms.Get<ajoutareoports>();
    EXPECT_TRUE(T(Form()).Enabled());  // polling runs while the user types
    Type(Named<QLineEdit>(form, QStringLiteral("identificationaéroport")), QStringLiteral("lfth"));
    Type(Named<QLineEdit>(form, QStringLiteral("nomareoport")), QStringLiteral("Francazal"));
    Type(Named<QLineEdit>(form, QStringLiteral("villeareoport")), QStringLiteral("Toulouse"));
    Type(Named<QLineEdit>(form, QStringLiteral("fuseauhorraire")), QStringLiteral("+1"));
    QTest::mouseClick(Named<QPushButton>(form, QStringLiteral("confirmerbtn")), Qt::LeftButton);

    EXPECT_EQ(db.Value(QStringLiteral("SELECT \"activé\" FROM \"Aéroports\" WHERE IDA = 'LFTH'")).toInt(), 1);
    ListBox* list = Named<ListBox>(Form(), QStringLiteral("List1"));
    ASSERT_EQ(list->ListCount(), 4);
    EXPECT_EQ(list->List(3), QStringLiteral("   Toulouse - Francazal"));
    EXPECT_EQ(forms.module1().TableIDA[3].ToText(), QStringLiteral("LFTH"));
    EXPECT_EQ(list->ListIndex(), 1);  // still the preferred airport
    // Line 1 polled, then line 2, then the new airport on line 3.
    NextPoll(2);
    NextPoll(3);
    NextPoll(4);
    EXPECT_EQ(server.Codes().mid(1), (QList<QByteArray>{"LFPB", "LFPG", "LFTH"}));
    EXPECT_TRUE(runTimeEnds.empty());
}

}  // namespace
