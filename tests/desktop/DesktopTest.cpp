// Skelda on a real desktop: the notification icon in an X11 notification area, read press and
// release apart on the icon's own window, and the main window's place in the screen's bottom right
// corner with the frame that the window manager gives it.
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "Desktop.h"
#include "TrayFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class RealTray : public TrayFixture {
protected:
    void SetUp() override {
        if (!Desktop::HasNotificationArea()) GTEST_SKIP() << "no notification area on this display";
        TrayFixture::SetUp();
    }

    // The start form, loaded, with its icon on the desktop and the icon's window taken in.
    FrmIcone& TrayWithIcon() {
        FrmIcone& tray = StartForm();
        EXPECT_NE(Icone(tray), nullptr);
        if (Icone(tray) == nullptr) return tray;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return Icone(tray)->Window() != nullptr && Icone(tray)->Window()->isVisible(); }, 5000));
        return tray;
    }

    // The icon's window as it stands now, waited for: the desktop may make it again at any time
    // (a notification area that announces itself once more), and the icon takes the new one.
    static QWidget* IconWindow(FrmIcone& tray) {
        (void)QTest::qWaitFor([&] { return Icone(tray)->Window() != nullptr && Icone(tray)->Window()->isVisible(); },
                              5000);
        return Icone(tray)->Window();
    }

    // Closes the menu whenever it comes up, and counts how often it did.
    void CloseTheMenuWhenItComes(FrmIcone& tray) {
        QObject::connect(&menuWatch, &QTimer::timeout, &menuWatch, [this, &tray] {
            if (!Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible()) return;
            ++menusShown;
            Named<QMenu>(tray, QStringLiteral("Menu"))->close();
        });
        menuWatch.start(10);
    }

    QTimer menuWatch;
    int menusShown = 0;
};

TEST_F(RealTray, TheIconStandsInTheNotificationAreaWithItsTipAndReadsItsOwnWindow) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    EXPECT_TRUE(Icone(tray)->isVisible());
    EXPECT_EQ(Icone(tray)->toolTip(), QStringLiteral("Skelda"));
    ASSERT_TRUE(Icone(tray)->ReadsItsWindow());
    ASSERT_NE(IconWindow(tray), nullptr);
    EXPECT_TRUE(IconWindow(tray)->inherits("QSystemTrayIconSys"));
}

TEST_F(RealTray, ARightPressOnTheIconDoesNothingUntilItsReleasePopsUpTheMenu) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    QWidget* icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    CloseTheMenuWhenItComes(tray);
    const QPoint centre = icone->rect().center();

    QTest::mousePress(icone, Qt::RightButton, Qt::NoModifier, centre);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tray.MessageSouris == MsgRightDown; }, 5000));
    EXPECT_EQ(menusShown, 0);
    EXPECT_FALSE(Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible());

    icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    QTest::mouseRelease(icone, Qt::RightButton, Qt::NoModifier, centre);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menusShown == 1; }, 5000));
    EXPECT_EQ(tray.MessageSouris, MsgRightUp);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tray.FormIconeActif == 0; }, 5000));
}

TEST_F(RealTray, ALeftDoubleClickOnTheIconShowsForm1AndALeftClickDoesNothing) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    QWidget* icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    CloseTheMenuWhenItComes(tray);
    const QPoint centre = icone->rect().center();

    QTest::mouseClick(icone, Qt::LeftButton, Qt::NoModifier, centre);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tray.MessageSouris == MsgLeftUp; }, 5000));
    EXPECT_FALSE(Form().isVisible());

    icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    QTest::mouseDClick(icone, Qt::LeftButton, Qt::NoModifier, centre);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Form().isVisible(); }, 5000));
    EXPECT_EQ(Form().Tag, QStringLiteral("VISIBLE"));
    EXPECT_EQ(menusShown, 0);
}

TEST_F(RealTray, APointerMovingOverTheIconIsMessage512AndIgnored) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    QWidget* icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    QMouseEvent move(QEvent::MouseMove, QPointF(icone->rect().center()),
                     icone->mapToGlobal(QPointF(icone->rect().center())), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(icone, &move);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tray.MessageSouris == MsgMouseMove; }, 5000));
    EXPECT_FALSE(Form().isVisible());
    EXPECT_FALSE(Named<QMenu>(tray, QStringLiteral("Menu"))->isVisible());
}

TEST_F(RealTray, ATipLongerThan64CharactersIsCutOnTheIcon) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    QString titre;
    for (int i = 0; i < 10; ++i) titre += QString::number(i) + QStringLiteral("1234567890");
    ASSERT_EQ(titre.size(), 110);
    tray.NewTitle(titre);
    EXPECT_EQ(Icone(tray)->toolTip(),
              QStringLiteral("0123456789011234567890212345678903123456789041234567890512345678"));
}

TEST_F(RealTray, QuitTakesTheIconAndItsWindowAwayAndEndsTheProcess) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    ASSERT_TRUE(Icone(tray)->isVisible());
    Named<QAction>(tray, QStringLiteral("Quit"))->trigger();
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(Icone(tray)->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Icone(tray)->Window() == nullptr; }, 5000));
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Terminated")), 1);
}

TEST_F(RealTray, AWindowMadeAgainForTheIconIsReadInItsTurn) {
    FrmIcone& tray = TrayWithIcon();
    ASSERT_NE(Icone(tray), nullptr);
    QPointer<QWidget> ancienne = Icone(tray)->Window();
    ASSERT_FALSE(ancienne.isNull());
    // Hidden and shown again by Qt itself, as when the notification area changes: Qt deletes the
    // icon's window and makes another.
    Icone(tray)->hide();
    Icone(tray)->show();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return ancienne.isNull() && Icone(tray)->Window() != nullptr && Icone(tray)->Window()->isVisible(); },
        5000));
    CloseTheMenuWhenItComes(tray);
    QWidget* icone = IconWindow(tray);
    ASSERT_NE(icone, nullptr);
    const QPoint centre = icone->rect().center();
    QTest::mousePress(icone, Qt::RightButton, Qt::NoModifier, centre);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tray.MessageSouris == MsgRightDown; }, 5000));
    EXPECT_EQ(menusShown, 0);
    QTest::mouseRelease(IconWindow(tray), Qt::RightButton, Qt::NoModifier, centre);
    EXPECT_TRUE(QTest::qWaitFor([&] { return menusShown == 1; }, 5000));
}

// ---- The main window's place

class WindowPlace : public TrayFixture {
protected:
    void SetUp() override {
        if (!Desktop::HasWindowManager()) GTEST_SKIP() << "no window manager on this display";
        TrayFixture::SetUp();
    }
};

TEST_F(WindowPlace, Form1StandsInTheBottomRightCornerWithTheFrameItGets) {
    Form1& form = Form();
    const QRect screen = form.screen()->geometry();
    ASSERT_EQ(screen, QRect(0, 0, 1280, 1024));
    // Shown as the tray shows it: the window manager frames it then.
    StartForm().ZefirDemand();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    // The frame's outer edges stand one pixel (15 twips) inside the screen's right and bottom
    // edges: pixel column 1278 and row 1022 are the frame's last.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const QRect frame = form.frameGeometry();
            return frame.right() == 1278 && frame.bottom() == 1022;
        },
        5000))
        << "frame " << form.frameGeometry().x() << "," << form.frameGeometry().y() << " "
        << form.frameGeometry().width() << "x" << form.frameGeometry().height();
    // A title bar there is, and the client area is 11715 by 4515 twips within it.
    EXPECT_GT(form.frameGeometry().height(), form.height());
    EXPECT_EQ(form.size(), QSize(781, 301));
    EXPECT_LT(form.geometry().bottom(), 1023);
}

}  // namespace
