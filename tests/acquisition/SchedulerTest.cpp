// The tick of T: the clocks, the countdown, the round of the airports and the hourly refresh,
// driven tick by tick through the timer itself.
#include "AcquisitionFixture.h"

#include <QTimer>

using namespace skelda;
using namespace skelda::test;

namespace {

class Scheduler : public AcquisitionFixture {};

// ---- The clocks

TEST_F(Scheduler, MidnightOnA12HourClockStays12AndZuluReads17) {
    Form1& f = Form();
    clock.SetTimeText(QStringLiteral("12:30:15 AM"));
    Tick(f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QStringLiteral("12:30:15"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QStringLiteral("17:30:15"));
}

TEST_F(Scheduler, ElevenPmReads23AndZuluWrapsTo4) {
    Form1& f = Form();
    clock.SetTimeText(QStringLiteral("11:05:00 PM"));
    Tick(f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QStringLiteral("23:05:00"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QStringLiteral("4:05:00"));
}

TEST_F(Scheduler, AfternoonIsFoundWhateverTheCaseOfPm) {
    Form1& f = Form();
    clock.SetTimeText(QStringLiteral("3:07:09 pm"));
    Tick(f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QStringLiteral("15:07:09"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QStringLiteral("20:07:09"));
}

TEST_F(Scheduler, MorningOnA12HourClockKeepsTheHourAsWritten) {
    Form1& f = Form();
    clock.SetTimeText(QStringLiteral("09:07:09 AM"));
    Tick(f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QStringLiteral("09:07:09"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QStringLiteral("14:07:09"));
}

TEST_F(Scheduler, A24HourClockPassesUnchanged) {
    Form1& f = Form();
    const struct {
        const char* clock;
        const char* local;
        const char* zulu;
    } cases[] = {
        {"10:05:00", "10:05:00", "15:05:00"}, {"09:05:00", "09:05:00", "14:05:00"}, {"21:40:30", "21:40:30", "2:40:30"},
        {"00:00:59", "00:00:59", "5:00:59"},  {"19:00:00", "19:00:00", "0:00:00"},
    };
    for (const auto& c : cases) {
        clock.SetTimeText(QLatin1String(c.clock));
        Tick(f);
        EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QLatin1String(c.local)) << c.clock;
        EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QLatin1String(c.zulu)) << c.clock;
    }
}

TEST_F(Scheduler, TheClockTextComesFromTheClockSeam) {
    Form1& f = Form();
    clock.Set(QDateTime(QDate(2004, 11, 2), QTime(15, 7, 9)));
    Tick(f);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label5"))->Caption(), QStringLiteral("15:07:09"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label11"))->Caption(), QStringLiteral("20:07:09"));
}

// ---- The countdown

TEST_F(Scheduler, CountdownShows9OnTheFirstTickAnd0OnTheTenthAndPollsOnTheEleventh) {
    Form1& f = Form();
    const QString entree = Named<ListBox>(f, QStringLiteral("List1"))->Text();
    ASSERT_FALSE(entree.isEmpty());

    Tick(f);
    EXPECT_EQ(f.Caption(), entree + QStringLiteral(" - 9 secondes..."));
    Tick(f, 9);
    EXPECT_EQ(f.Caption(), entree + QStringLiteral(" - 0 secondes..."));
    EXPECT_EQ(f.Cycle().SecondesAttente, 10);
    ASSERT_TRUE(RoundTrip());  // a connection begun by now would have been accepted
    EXPECT_EQ(server.Connections(), 0);

    Tick(f);
    EXPECT_EQ(f.Caption(), QStringLiteral("Connection in progress..."));
    EXPECT_EQ(f.Cycle().SecondesAttente, 0);
    ASSERT_TRUE(server.WaitForRequests(1));
}

TEST_F(Scheduler, TheCountdownFollowsTheSelectedEntryButNotItsIndex) {
    Form1& f = Form();
    Tick(f, 3);
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneRoissy);  // a user's click
    Tick(f);
    EXPECT_EQ(f.Caption(),
              Named<ListBox>(f, QStringLiteral("List1"))->List(LigneRoissy) + QStringLiteral(" - 6 secondes..."));
    EXPECT_EQ(f.Cycle().IndexReleve, 0);
    EXPECT_EQ(f.Cycle().SecondesAttente, 4);
}

TEST_F(Scheduler, CountersKeepTheirValuesWhileTIsStopped) {
    Form1& f = Form();
    // T runs by itself, at a short interval that stands for its second, and its fourth and fifth
    // ticks stop it, as the program stops it from an event.
    QSignalSpy ticks(&T(f), &Timer::Tick);
    QObject::connect(&T(f), &Timer::Tick, &f, [&] {
        if (ticks.count() == 4 || ticks.count() == 5) T(f).SetEnabled(false);
    });
    T(f).SetInterval(10);
    T(f).SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.count() >= 4; }, 5000));
    EXPECT_FALSE(T(f).Enabled());
    // A timer of ten such intervals, started now: had T gone on, it would have ticked first.
    QTimer plusTard;
    plusTard.setSingleShot(true);
    QSignalSpy fini(&plusTard, &QTimer::timeout);
    plusTard.start(100);
    ASSERT_TRUE(fini.wait(5000));
    EXPECT_EQ(ticks.count(), 4);
    EXPECT_EQ(f.Cycle().SecondesAttente, 4);
    EXPECT_EQ(f.Cycle().SecondesHeure, 4);
    EXPECT_EQ(f.Caption(), QStringLiteral("   Paris - Le Bourget - 6 secondes..."));

    // Started again, the countdown goes on from where it stood.
    T(f).SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.count() >= 5; }, 5000));
    EXPECT_EQ(f.Cycle().SecondesAttente, 5);
    EXPECT_EQ(f.Cycle().SecondesHeure, 5);
    EXPECT_EQ(f.Caption(), QStringLiteral("   Paris - Le Bourget - 5 secondes..."));
}

// ---- The round of the airports

TEST_F(Scheduler, ClosingTheWindowLeavesThePollsGoingOn) {
    Form1& f = Form();
    f.show();
    f.close();
    EXPECT_TRUE(f.isHidden());
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("MASQUE"));
    Tick(f, 11);
    ASSERT_TRUE(server.WaitForRequests(1));
    EXPECT_EQ(f.Cycle().SecondesAttente, 0);
}

TEST_F(Scheduler, PollsGoToEntries1122012WithTheSecondPreferred) {
    Form1& f = Form();
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListIndex(), LigneBourget);
    // The first poll of the run is the one the tray starts, for the entry selected at start.
    f.Cycle().Connect();
    ASSERT_TRUE(server.WaitForRequests(1));
    QList<int> lignes{Named<ListBox>(f, QStringLiteral("List1"))->ListIndex()};
    for (int poll = 2; poll <= 5; ++poll) {
        Tick(f, 11);
        ASSERT_TRUE(server.WaitForRequests(poll)) << poll;
        lignes.append(Named<ListBox>(f, QStringLiteral("List1"))->ListIndex());
    }
    EXPECT_EQ(lignes, (QList<int>{1, 1, 2, 0, 1}));
    EXPECT_EQ(server.Codes(), (QList<QByteArray>{"LFPB", "LFPB", "LFPG", "EGLL", "LFPB"}));
}

TEST_F(Scheduler, SelectingTheNextEntryRedrawsItsChart) {
    db.AddObservation({.numAeroport = 3,
                       .day = QDate(2004, 11, 2),
                       .time = QTime(10, 0),
                       .forcenoeuds = 8,
                       .metaf = QStringLiteral("LFPG 021000Z 24008KT CAVOK 12/08 Q1015")});
    Form1& f = Form();
    f.Cycle().IndexReleve = 1;
    Tick(f, 11);
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListIndex(), LigneRoissy);
    EXPECT_EQ(Named<Label>(f, Indexed("FKNT", 20))->Tag, QStringLiteral("LFPG 021000Z 24008KT CAVOK 12/08 Q1015"));
}

TEST_F(Scheduler, AListOfOneEntryPollsItEveryTime) {
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0 WHERE IDA <> 'LFPG'")));
    Form1& f = Form();
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListCount(), 1);
    for (int poll = 1; poll <= 3; ++poll) {
        Tick(f, 11);
        ASSERT_TRUE(server.WaitForRequests(poll));
    }
    EXPECT_EQ(server.Codes(), (QList<QByteArray>{"LFPG", "LFPG", "LFPG"}));
}

TEST_F(Scheduler, AnEmptyListSkipsThePollAndCountsAgain) {
    // The start itself fails without an active airport, so the list is emptied after it.
    Form1& f = Form();
    Named<ListBox>(f, QStringLiteral("List1"))->Clear();
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListCount(), 0);
    EXPECT_NO_THROW(Tick(f, 11));
    EXPECT_EQ(f.Cycle().SecondesAttente, 0);
    Tick(f);
    EXPECT_EQ(f.Caption(), QStringLiteral(" - 9 secondes..."));
    ASSERT_TRUE(RoundTrip());  // a connection begun by now would have been accepted
    EXPECT_EQ(server.Connections(), 0);
}

TEST_F(Scheduler, ADoubleClickPollsTheSelectedEntryAndLeavesTheCountdownRunning) {
    Form1& f = Form();
    f.show();
    Tick(f, 5);
    const QRect ligne = Named<ListBox>(f, QStringLiteral("List1"))
                            ->visualItemRect(Named<ListBox>(f, QStringLiteral("List1"))->item(LigneRoissy));
    QTest::mouseDClick(Named<ListBox>(f, QStringLiteral("List1"))->viewport(), Qt::LeftButton, {}, ligne.center());
    ASSERT_TRUE(server.WaitForRequests(1));
    EXPECT_EQ(server.Codes(), (QList<QByteArray>{"LFPG"}));
    EXPECT_EQ(f.Cycle().SecondesAttente, 5);
    EXPECT_EQ(f.Cycle().IndexReleve, 0);

    Tick(f);
    EXPECT_EQ(f.Caption(),
              Named<ListBox>(f, QStringLiteral("List1"))->List(LigneRoissy) + QStringLiteral(" - 4 secondes..."));
    // The scheduled poll comes on its own time, for the next entry of the round, and closes the
    // manual one.
    Tick(f, 5);
    ASSERT_TRUE(server.WaitForRequests(2));
    EXPECT_EQ(server.Codes(), (QList<QByteArray>{"LFPG", "LFPB"}));
    EXPECT_TRUE(server.WaitForDisconnections(1));
}

// ---- The hourly refresh

TEST_F(Scheduler, TheHourlyRefreshFallsOnThe3601stTick) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 1), .time = QTime(10, 0)});
    // The polls of the hour are refused at once: only the dates matter here.
    services.observationServer.port = ClosedPort();
    Form1& f = Form();
    ASSERT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListCount(), 1);
    // A day that begins during the run.
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 2), .time = QTime(0, 10)});

    Tick(f, 3600);
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListCount(), 1);
    EXPECT_EQ(f.Cycle().SecondesHeure, 3600);
    Tick(f);
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListCount(), 2);
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->Text(), QStringLiteral("02/11/2004"));
    EXPECT_EQ(f.Cycle().SecondesHeure, 0);
    EXPECT_TRUE(f.Base().IsNothing());
}

TEST_F(Scheduler, TheHourlyRefreshTakesAnOlderDateBackToTheNewest) {
    db.AddObservation({.numAeroport = 1, .day = QDate(2004, 11, 1), .time = QTime(10, 0)});
    db.AddObservation({.numAeroport = 1,
                       .day = QDate(2004, 11, 2),
                       .time = QTime(10, 0),
                       .metaf = QStringLiteral("LFPB 021000Z 24010KT CAVOK 12/08 Q1015")});
    Form1& f = Form();
    Named<ComboBox>(f, QStringLiteral("ChoixDate"))->SetListIndex(0);  // the user looks at the day before
    ASSERT_EQ(Named<Label>(f, Indexed("FKNT", 20))->Tag, QString());
    f.Cycle().SecondesHeure = 3600;
    Tick(f);
    EXPECT_EQ(Named<ComboBox>(f, QStringLiteral("ChoixDate"))->ListIndex(), 1);
    // The chart follows through the combo's Click.
    EXPECT_EQ(Named<Label>(f, Indexed("FKNT", 20))->Tag, QStringLiteral("LFPB 021000Z 24010KT CAVOK 12/08 Q1015"));
}

// ---- The tick after the window was shown

TEST_F(Scheduler, TheTickAfterTheWindowWasShownTurnsVisibleIntoVu) {
    Form1& f = Form();
    f.SetTag(QStringLiteral("visible"));
    Tick(f);
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("VU"));
    Tick(f);
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("VU"));
    f.SetTag(QStringLiteral("MASQUE"));
    Tick(f);
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("MASQUE"));
}

TEST_F(Scheduler, OnlyThatTickSkipsItsFailures) {
    Form1& f = Form();
    ASSERT_TRUE(QFile::remove(db.Path()));
    f.Cycle().SecondesHeure = 3600;
    f.Cycle().SecondesAttente = 10;
    f.SetTag(QStringLiteral("VISIBLE"));
    // The refresh fails on the missing database; the poll behind it still starts.
    EXPECT_NO_THROW(Tick(f));
    EXPECT_EQ(f.Cycle().SecondesHeure, 0);
    EXPECT_EQ(f.Cycle().SecondesAttente, 0);
    EXPECT_EQ(f.Caption(), QStringLiteral("Connection in progress..."));
    ASSERT_TRUE(server.WaitForRequests(1));

    // Any other tick lets the failure through, to the run-time error box, which ends the program.
    EXPECT_TRUE(runTimeEnds.empty());
    f.Cycle().SecondesHeure = 3600;
    EXPECT_NO_THROW(Tick(f));
    EXPECT_EQ(runTimeEnds, std::vector<int>{DaoFileNotFound});
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].startsWith(QStringLiteral("Run-time error '3024': Could not find file")));
}

// ---- The time-out

TEST_F(Scheduler, TheTimeOutStopsItselfAndClosesTheSocketSilently) {
    Form1& f = Form();
    f.Cycle().Connect();
    ASSERT_TRUE(server.WaitForRequests(1));
    ASSERT_TRUE(TimerWinsock(f).Enabled());
    const QString log = LogText();
    TimerWinsock(f).Fire();
    EXPECT_FALSE(TimerWinsock(f).Enabled());
    EXPECT_EQ(W(f).State(), sckClosed);
    EXPECT_TRUE(server.WaitForDisconnections(1));
    EXPECT_EQ(LogText(), log);
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
