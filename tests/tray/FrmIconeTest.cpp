// The start form: its design, its load, the icon's messages, the menu, the timer that ends the
// start and feeds the tip, and the quit.
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QTimer>

#include "TrayFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class Tray : public TrayFixture {};

const QString DesignCaption = QStringLiteral("SKELDA - le zefir en temps réel");

// ---- Design

TEST_F(Tray, TheStartFormHasItsCaptionSizeAndPicture) {
    FrmIcone& tray = StartForm();
    EXPECT_EQ(tray.windowTitle(), DesignCaption);
    EXPECT_EQ(tray.size(), QSize(255, 427));  // 3825 by 6405 twips
    ASSERT_NE(tray.findChild<QLabel*>(QStringLiteral("Picture1")), nullptr);
    EXPECT_TRUE(Named<QLabel>(tray, QStringLiteral("Picture1"))->geometry().contains(QRect(QPoint(0, 0), tray.size())));
    EXPECT_EQ(Named<QLabel>(tray, QStringLiteral("Picture1"))->pixmap().size(), QSize(324, 537));
    EXPECT_EQ(timer1AtLoad.enabled, true);
    EXPECT_EQ(timer1AtLoad.interval, 1000);
}

TEST_F(Tray, TheMenuHasItsSevenItemsInOrderWithThreeDisabled) {
    FrmIcone& tray = StartForm();
    QMenu* menu = tray.findChild<QMenu*>(QStringLiteral("Menu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->title(), QStringLiteral("Menu"));
    EXPECT_FALSE(menu->menuAction()->isVisible());
    const struct {
        const char* name;
        const char* caption;
        bool enabled;
    } items[] = {
        {"MenuCourbe", "Daily Cruve", true},
        {"MenuStatistiqueMensuelle", "&Monthly Curve", true},
        {"MenuAeroport", "&Airports", true},
        {"viewlog", "&View Log", false},
        {"MenuMetaf", "&Metaf Reader", false},
        {"MenuPrerences", "&Préférences", false},
        {"Quit", "&Quit", true},
    };
    const QList<QAction*> actions = menu->actions();
    ASSERT_EQ(actions.size(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(actions[i]->objectName(), QLatin1String(items[i].name));
        EXPECT_EQ(actions[i]->text(), QString::fromUtf8(items[i].caption));
        EXPECT_EQ(actions[i]->isEnabled(), items[i].enabled) << items[i].name;
    }
}

// ---- Load

TEST_F(Tray, LoadingTheStartFormLoadsForm1FirstAndAddsTheIconWithTipSkelda) {
    ASSERT_FALSE(forms.Loaded<Form1>());
    FrmIcone& tray = StartForm();
    EXPECT_TRUE(forms.Loaded<Form1>());
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Starting")), 1);
    Form1& f = Form();
    EXPECT_FALSE(T(f).Enabled());
    EXPECT_FALSE(f.isVisible());
    EXPECT_FALSE(Named<Image>(tray, QStringLiteral("Image1"))->Picture().isNull());
    EXPECT_FALSE(tray.IconeNotif.hIcon.isNull());
    EXPECT_TRUE(tray.windowFlags().testFlag(Qt::Tool));
    EXPECT_EQ(tray.IconeNotif.cbSize, 88u);
    EXPECT_EQ(tray.IconeNotif.uID, 1u);
    EXPECT_EQ(tray.IconeNotif.uFlags, 7u);
    EXPECT_EQ(tray.IconeNotif.uCallbackMessage, 512u);
    EXPECT_EQ(tray.IconeNotif.szTip.size(), 64);
    EXPECT_TRUE(tray.IconeNotif.szTip.startsWith(QStringLiteral("Skelda") + QChar(u'\0')));
    EXPECT_EQ(tray.TipText(), QStringLiteral("Skelda"));
}

TEST_F(Tray, TheRealNotificationIconShowsWhereTheDesktopHasOne) {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        EXPECT_EQ(Icone(StartForm()), nullptr);
        GTEST_SKIP() << "no notification area on this desktop";
    }
    FrmIcone& tray = StartForm();
    ASSERT_NE(Icone(tray), nullptr);
    EXPECT_TRUE(Icone(tray)->isVisible());
    EXPECT_EQ(Icone(tray)->toolTip(), QStringLiteral("Skelda"));
    emit Icone(tray)->activated(QSystemTrayIcon::DoubleClick);
    EXPECT_TRUE(Form().isVisible());
}

// ---- The icon's messages

TEST_F(Tray, AMouseMoveOverTheIconIsDecodedAndIgnored) {
    FrmIcone& tray = StartForm();
    Message(tray, 512);
    EXPECT_EQ(tray.MessageSouris, 512);
    EXPECT_EQ(tray.FormIconeActif, 0);
    EXPECT_FALSE(Form().isVisible());
    EXPECT_TRUE(Form().TagFenetre().isEmpty());
}

TEST_F(Tray, ALeftSingleClickDoesNothing) {
    FrmIcone& tray = StartForm();
    Message(tray, 513);
    Message(tray, 514);
    EXPECT_EQ(tray.MessageSouris, 514);
    EXPECT_FALSE(Form().isVisible());
    EXPECT_FALSE(Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible());
}

TEST_F(Tray, ARightPressDoesNothingUntilItsReleasePopsUpTheMenu) {
    FrmIcone& tray = StartForm();
    Message(tray, 516);
    EXPECT_FALSE(Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible());

    bool shownDuringPopup = false;
    int16_t guardDuringPopup = 0;
    QTimer::singleShot(0, &tray, [&] {
        shownDuringPopup = Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible();
        guardDuringPopup = tray.FormIconeActif;
        // A double click while the menu is up finds the handler busy and is dropped.
        Message(tray, 515);
        Named<QMenu>(tray, QStringLiteral("Menu"))->close();
    });
    Message(tray, 517);
    EXPECT_TRUE(shownDuringPopup);
    EXPECT_EQ(guardDuringPopup, -1);
    EXPECT_EQ(tray.FormIconeActif, 0);
    EXPECT_EQ(tray.MessageSouris, 515);  // decoded before the guard, and dropped
    EXPECT_FALSE(Form().isVisible());
    EXPECT_FALSE(Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible());
}

TEST_F(Tray, TwoDoubleClicksShowForm1TwiceAndSetVisibleAgain) {
    FrmIcone& tray = StartForm();
    Form1& f = Form();
    Message(tray, 515);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("VISIBLE"));
    Tick(f);
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("VU"));
    Message(tray, 515);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("VISIBLE"));
    // No other effect: no poll, no count.
    EXPECT_EQ(f.Cycle().SecondesAttente, 1);
    ASSERT_TRUE(RoundTrip());  // a connection begun by now would have been accepted
    EXPECT_EQ(server.Connections(), 0);
}

// ---- The tip

TEST_F(Tray, ATipLongerThan64CharactersIsCut) {
    FrmIcone& tray = StartForm();
    QString titre;
    for (int i = 0; i < 10; ++i) titre += QString::number(i) + QStringLiteral("1234567890");
    ASSERT_EQ(titre.size(), 110);
    tray.NewTitle(titre);
    const QString cut = QStringLiteral("0123456789011234567890212345678903123456789041234567890512345678");
    EXPECT_EQ(tray.IconeNotif.szTip, cut);
    EXPECT_EQ(tray.TipText(), cut);
    // One call to the notification area, a modification, with the record's tip cut to 64.
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].dwMessage, 1);
    EXPECT_EQ(notifications[0].record.szTip, cut);
    EXPECT_EQ(notifications[0].record.uID, 1u);
    // The whole text stays with the caller.
    EXPECT_EQ(titre.size(), 110);
}

TEST_F(Tray, AShortTipIsPaddedWithBlanksInTheRecordOnly) {
    FrmIcone& tray = StartForm();
    QString titre = QStringLiteral("Paris\r\nNorth Force 2\r\n");
    tray.NewTitle(titre);
    EXPECT_EQ(tray.IconeNotif.szTip.size(), 64);
    EXPECT_EQ(tray.IconeNotif.szTip, titre + QString(64 - titre.size(), u' '));
    EXPECT_EQ(tray.TipText(), QStringLiteral("Paris\r\nNorth Force 2"));
}

// ---- Timer1

TEST_F(Tray, TheFirstTickOfTimer1EndsTheStartAndPollsThePreferredAirport) {
    FrmIcone& tray = StartForm();
    tray.show();
    Form1& f = Form();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    EXPECT_EQ(Named<Timer>(tray, QStringLiteral("Timer1"))->Interval(), 10000);
    EXPECT_FALSE(tray.isVisible());
    EXPECT_TRUE(Named<QMenu>(tray, QStringLiteral("Menu"))->menuAction()->isVisible());
    EXPECT_TRUE(T(f).Enabled());
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.Caption(), QStringLiteral("Connection in progress..."));
    ASSERT_TRUE(server.WaitForRequests(1));
    EXPECT_EQ(server.Requests()[0], ExpectedRequest("LFPB"));
    T(f).SetEnabled(false);
}

TEST_F(Tray, WithThreeEntriesAndTheSecondPreferredPollsGoTo11201) {
    FrmIcone& tray = StartForm();
    Form1& f = Form();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    T(f).SetEnabled(false);  // ticked by the test alone
    ASSERT_TRUE(server.WaitForRequests(1));
    for (int poll = 2; poll <= 5; ++poll) {
        Tick(f, 11);
        ASSERT_TRUE(server.WaitForRequests(poll)) << poll;
    }
    EXPECT_EQ(server.Codes(), (QList<QByteArray>{"LFPB", "LFPB", "LFPG", "EGLL", "LFPB"}));
}

TEST_F(Tray, LaterTicksPassTheCaptionOnEvenTheDesignCaption) {
    FrmIcone& tray = StartForm();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    T(Form()).SetEnabled(false);
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    EXPECT_EQ(tray.TipText(), DesignCaption);
    EXPECT_TRUE(tray.IconeNotif.szTip.startsWith(DesignCaption + QStringLiteral("\r\n ")));
    EXPECT_EQ(Named<Timer>(tray, QStringLiteral("Timer1"))->Interval(), 10000);
}

TEST_F(Tray, AReceptionReachesTheTipThroughTheCaption) {
    server.answer = [](const QByteArray& request) -> QList<QByteArray> {
        if (request == ExpectedRequest("LFPB")) return {StationReply(Bourget)};
        return {"HTTP/1.0 404 Not Found\r\n\r\n"};
    };
    FrmIcone& tray = StartForm();
    Form1& f = Form();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    T(f).SetEnabled(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return LogCount(QStringLiteral("New Metaf Recorded ")) == 1; }, 5000));
    // Le Bourget's entry with its three blanks trimmed, then the wind of the report.
    const QString attendu = QStringLiteral("Paris - Le Bourget\r\nWest South West Force 4");
    EXPECT_EQ(tray.Caption(), attendu);
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    EXPECT_EQ(tray.TipText(), attendu);
    ASSERT_FALSE(notifications.empty());
    EXPECT_EQ(notifications.back().dwMessage, 1);
    EXPECT_TRUE(notifications.back().record.szTip.startsWith(attendu + QStringLiteral("\r\n ")));
}

// ---- The menu's items

TEST_F(Tray, DailyCurveShowsForm1AndLeavesItsTag) {
    FrmIcone& tray = StartForm();
    Form1& f = Form();
    f.SetTag(QStringLiteral("MASQUE"));
    Named<QAction>(tray, QStringLiteral("MenuCourbe"))->trigger();
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("MASQUE"));
}

TEST_F(Tray, MonthlyCurveLoadsTheMonthlyWindowAndShowsItWithoutWaiting) {
    FrmIcone& tray = StartForm();
    EXPECT_FALSE(forms.Loaded<StatistiqueMensuelle>());
    Named<QAction>(tray, QStringLiteral("MenuStatistiqueMensuelle"))->trigger();  // returns: the window isn't modal
    ASSERT_TRUE(forms.Loaded<StatistiqueMensuelle>());
    StatistiqueMensuelle& stat = forms.Get<StatistiqueMensuelle>();
    EXPECT_TRUE(stat.isVisible());
    EXPECT_FALSE(stat.isModal());
    EXPECT_EQ(stat.StatPrete, -1);
    EXPECT_EQ(Named<ListBox>(stat, QStringLiteral("Mois"))->ListIndex(), 10);  // the clock's November
    EXPECT_TRUE(runTimeEnds.empty());
    // A second click shows the same window.
    Named<QAction>(tray, QStringLiteral("MenuStatistiqueMensuelle"))->trigger();
    EXPECT_EQ(&forms.Get<StatistiqueMensuelle>(), &stat);
}

TEST_F(Tray, WithNoActiveAirportTheStartEndsInTheRunTimeBoxBeforeTheIcon) {
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0")));
    // As the program starts: the start form's load, inside the guard of the first event.
    guard.Handle([&] { StartForm(); });
    EXPECT_EQ(runTimeEnds, std::vector<int>{InvalidPropertyValue});
    EXPECT_EQ(boxes.shown, std::vector<QString>{QStringLiteral("Run-time error '380': Invalid property value")});
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Starting")), 1);
    EXPECT_FALSE(forms.Loaded<Form1>());
    EXPECT_FALSE(forms.Loaded<FrmIcone>());
}

TEST_F(Tray, MonthlyCurveInAYearOutsideItsListEndsInTheRunTimeBox) {
    FrmIcone& tray = StartForm();
    clock.Set(QDateTime(QDate(2006, 1, 3), QTime(9, 0)));
    Named<QAction>(tray, QStringLiteral("MenuStatistiqueMensuelle"))->trigger();
    EXPECT_EQ(runTimeEnds, std::vector<int>{InvalidPropertyValue});
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].startsWith(QStringLiteral("Run-time error '380'")));
    EXPECT_FALSE(forms.Loaded<StatistiqueMensuelle>());
}

TEST_F(Tray, TheMetafReaderWouldShowTheHandEntryForm) {
    FrmIcone& tray = StartForm();
    Named<QAction>(tray, QStringLiteral("MenuMetaf"))->trigger();  // disabled: nothing
    EXPECT_FALSE(forms.Loaded<FormMetaf>());
    Named<QAction>(tray, QStringLiteral("MenuMetaf"))->setEnabled(true);
    Named<QAction>(tray, QStringLiteral("MenuMetaf"))->trigger();
    ASSERT_TRUE(forms.Loaded<FormMetaf>());
    EXPECT_TRUE(forms.Widget<FormMetaf>().isVisible());
}

TEST_F(Tray, TheMainWindowsRightClickGivesTheTraysMenu) {
    FrmIcone& tray = StartForm();
    bool shown = false;
    QTimer::singleShot(0, &tray, [&] {
        shown = Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible();
        Named<QMenu>(tray, QStringLiteral("Menu"))->close();
    });
    Form().Form_MouseDown(vbRightButton, 0, 100, 100);
    EXPECT_TRUE(shown);
}

TEST_F(Tray, AMenuItemWhoseHandlerFailsEndsInTheBoxNotInTheMenu) {
    FrmIcone& tray = StartForm();
    // Daily Cruve loads Form1 anew, and its load fails on a database that is gone.
    forms.Unload<Form1>();
    ASSERT_TRUE(QFile::remove(db.Path()));
    bool returned = false;
    EXPECT_NO_THROW({
        Named<QAction>(tray, QStringLiteral("MenuCourbe"))->trigger();
        returned = true;
    });
    EXPECT_TRUE(returned);
    EXPECT_EQ(runTimeEnds, std::vector<int>{DaoFileNotFound});
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].startsWith(QStringLiteral("Run-time error '3024': Could not find file")));
    EXPECT_FALSE(forms.Loaded<Form1>());
}

// ---- Quit

TEST_F(Tray, QuitRemovesTheIconLogsAndEndsTheProcess) {
    FrmIcone& tray = StartForm();
    Named<QAction>(tray, QStringLiteral("Quit"))->trigger();
    EXPECT_EQ(ended, 1);
    // The icon is deleted first, with the record's size, window and number, before the log line.
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].dwMessage, 2);
    EXPECT_EQ(notifications[0].record.cbSize, 88u);
    EXPECT_EQ(notifications[0].record.uID, 1u);
    EXPECT_EQ(notifications[0].record.hWnd, uintptr_t(tray.winId()));
    EXPECT_EQ(notifications[0].terminatedLines, 0);
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Terminated")), 1);
    const QString log = LogText();
    EXPECT_LT(log.indexOf(QStringLiteral("Skelda Starting")), log.indexOf(QStringLiteral("Skelda Terminated")));
    // No form unloads on the way out.
    EXPECT_TRUE(forms.Loaded<Form1>());
    EXPECT_TRUE(forms.Loaded<FrmIcone>());
}

TEST_F(Tray, QuitEndsTheProcessEvenWhenTheLogCantBeWritten) {
    FrmIcone& tray = StartForm();
    // A file stands where the log's folder should be: the line can't be written.
    ASSERT_TRUE(QDir(QStringLiteral("log")).removeRecursively());
    QFile obstacle(QStringLiteral("log"));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    tray.Quitter_Click();
    EXPECT_EQ(ended, 1);
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].dwMessage, 2);
    EXPECT_TRUE(QFileInfo(QStringLiteral("log")).isFile());
    EXPECT_EQ(QFileInfo(QStringLiteral("log")).size(), 0);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(Tray, QuitGoesOnPastAStatementThatFails) {
    FrmIcone& tray = StartForm();
    // The notification area fails to delete the icon: the log line and the end come all the same.
    failingNotification = 2;
    failingNotificationError = 5;
    EXPECT_NO_THROW(tray.Quitter_Click());
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Terminated")), 1);
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(Tray, ClosingForm1LeavesTheIconAndThePollsGoingOn) {
    FrmIcone& tray = StartForm();
    Form1& f = Form();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();  // the start ends: T runs, the first poll goes out
    ASSERT_TRUE(server.WaitForRequests(1));
    // A short interval stands for T's second, so that the next poll comes within the test.
    T(f).SetInterval(10);
    Named<QAction>(tray, QStringLiteral("MenuCourbe"))->trigger();
    ASSERT_TRUE(f.isVisible());
    EXPECT_FALSE(f.close());
    EXPECT_TRUE(f.isHidden());
    EXPECT_EQ(f.TagFenetre(), QStringLiteral("MASQUE"));
    EXPECT_TRUE(server.WaitForRequests(2));
    T(f).SetEnabled(false);
    EXPECT_TRUE(forms.Loaded<Form1>());
    EXPECT_TRUE(forms.Loaded<FrmIcone>());
    EXPECT_EQ(ended, 0);
    for (const Notification& n : notifications) EXPECT_NE(n.dwMessage, 2);  // the icon stays
}

}  // namespace
