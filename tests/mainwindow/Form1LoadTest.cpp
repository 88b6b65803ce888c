// Form1's load and its life as a window: the start in ten steps, the list of dates, closing that
// only hides, the tray's menu on a right click, and the lists' clicks.
#include "MainWindowFixture.h"
#include "TrayStandIn.h"

#include "Failures.h"
#include "Regional.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QSessionManager>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace skelda;
using namespace skelda::test;

namespace {

class Form1Load : public MainWindow {
protected:
    void SendMouse(QWidget* w, QEvent::Type type, Qt::MouseButton button, QPoint at) {
        QMouseEvent event(type, QPointF(at), w->mapToGlobal(QPointF(at)), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(w, &event);
    }
    void Provide() { TrayStandIn::ProvideTo(forms); }
};

QStringList Items(const ComboBox& box) {
    QStringList items;
    for (int i = 0; i < box.ListCount(); ++i) items.append(box.itemText(i));
    return items;
}

}  // namespace

// ---- Form_Load

TEST_F(Form1Load, FillsTheWindColours) {
    Form();
    const PaletteForceTable& palette = forms.module1().PaletteForce;
    EXPECT_EQ(palette(0), RGB(227, 240, 255));
    EXPECT_EQ(palette(5), RGB(33, 138, 255));
    EXPECT_EQ(palette(10), RGB(0, 59, 126));
}

TEST_F(Form1Load, LogsSkeldaStarting) {
    Form();
    EXPECT_TRUE(LogText().startsWith(QStringLiteral("20/11/2004 15:07:09 Skelda Starting\r\n")));
}

TEST_F(Form1Load, StandsInTheBottomRightCornerOfTheWholeScreen) {
    // The headless screen is 800 by 800 pixels, 12000 by 12000 twips; the window, which has no
    // frame here, 11715 by 4515 twips. Left = 12000 - 11715 - 15 = 270 twips, 18 pixels, and
    // Top = 12000 - 4515 - 15 = 7470 twips, 498 pixels; the taskbar isn't counted. The figures
    // below are those of that screen and of the frame that platform gives.
    if (QGuiApplication::platformName() != QStringLiteral("offscreen") ||
        QGuiApplication::primaryScreen()->geometry() != QRect(0, 0, 800, 800))
        GTEST_SKIP() << "made for the headless platform's screen of 800 by 800 pixels";
    Form1& form = Form();
    ASSERT_EQ(form.frameGeometry().size(), QSize(781, 301));
    EXPECT_EQ(form.pos(), QPoint(18, 498));
    EXPECT_EQ(LeftOf(&form), 270);
    EXPECT_EQ(TopOf(&form), 7470);
    // Shown, it gets a frame of 2 pixels on each side, 785 by 305 pixels in all, and is placed
    // again from it: the frame's last column and row are 798, one pixel inside the screen.
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.pos() != QPoint(18, 498); }, 5000));
    EXPECT_EQ(form.frameGeometry(), QRect(14, 494, 785, 305));
    EXPECT_EQ(form.frameGeometry().bottomRight(), QPoint(798, 798));
    // Hidden and shown again, it stays where it is.
    form.hide();
    form.show();
    EXPECT_EQ(form.frameGeometry(), QRect(14, 494, 785, 305));
    form.hide();
}

TEST_F(Form1Load, LaysThePressureLineAt55PartsOf80) {
    Form1& form = Form();
    EXPECT_DOUBLE_EQ(form.Line1015.Y1, 3662 - (3662.0 - 1261) * 55 / 80);
    EXPECT_DOUBLE_EQ(form.Line1015.Y2, form.Line1015.Y1);
    EXPECT_EQ(form.Line1015.X1, 2341);
    EXPECT_EQ(form.Line1015.X2, 10983);
}

TEST_F(Form1Load, FillsTheAirportsAndSelectsThePreferredOne) {
    Form1& form = Form();
    ASSERT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListCount(), 3);
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->List(0), QStringLiteral("   London - Heathrow"));
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ItemData(0), Heathrow);
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->Tag, QStringLiteral("1"));
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListIndex(), LigneLeBourget);
    EXPECT_EQ(forms.module1().TableIDA[0].ToText(), QStringLiteral("EGLL"));
    EXPECT_EQ(forms.module1().TableIDA[1].ToText(), QStringLiteral("LFPB"));
}

TEST_F(Form1Load, FillsTheDatesOldestFirstAndSelectsTheNewest) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    TestObservation earlier = Releve(Heathrow, 9, 0);
    earlier.day = QDate(2004, 2, 11);
    db.AddObservation(earlier);
    TestObservation later = Releve(Heathrow, 9, 0);
    later.day = QDate(2004, 11, 3);
    db.AddObservation(later);
    db.AddObservation(Releve(Heathrow, 11, 0));  // the same day again: one entry
    Form1& form = Form();
    EXPECT_EQ(Items(*Named<ComboBox>(form, QStringLiteral("ChoixDate"))),
              QStringList({"11/02/2004", "02/11/2004", "03/11/2004"}));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Tag, QStringLiteral("2"));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->ListIndex(), 2);
}

TEST_F(Form1Load, EndsWithTheFirstDrawingOfThePreferredAirportsNewestDay) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    db.AddObservation(Releve(Heathrow, 11, 0));
    Form1& form = Form();
    EXPECT_EQ(form.ChargementFini, -1);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, QStringLiteral("LFPB 021000Z 24010KT CAVOK 12/08 Q1015"));
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 22))->Tag, QString());  // Heathrow's row isn't Le Bourget's
    EXPECT_TRUE(Named<Label>(form, QStringLiteral("TXTbulletin"))
                    ->Caption()
                    .startsWith(QStringLiteral("02/11/2004 10:00:00\r\n")));
    // Filling the lists drew nothing before: one drawing, one picture lookup, one log line.
    EXPECT_EQ(LogCount(QStringLiteral("File Not Found: Images/LFPB.BMP")), 1);
}

TEST_F(Form1Load, AnEmptyTableGivesTodayAloneAndAnEmptyChart) {
    Form1& form = Form();
    EXPECT_EQ(Items(*Named<ComboBox>(form, QStringLiteral("ChoixDate"))), QStringList({"20/11/2004"}));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Tag, QStringLiteral("0"));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->ListIndex(), 0);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(), QString());
    for (Label* slot : NamedArray<Label>(form, "FKNT", 0, 47)) EXPECT_EQ(slot->Tag, QString());
}

TEST_F(Form1Load, NoActiveAirportEndsTheStartAtTheAirportList) {
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET \"activé\" = 0")));
    Form1 form(forms);
    EXPECT_EQ(ErrorOf([&] { form.Form_Load(); }), InvalidPropertyValue);
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListCount(), 0);
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListIndex(), -1);
    // The dates come after the airports, and the first chart at the end.
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->ListCount(), 0);
    EXPECT_EQ(form.ChargementFini, 0);
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Starting")), 1);
}

TEST_F(Form1Load, AMissingDatabaseEndsTheStartAfterTheLogLine) {
    ASSERT_TRUE(QFile::remove(db.Path()));
    try {
        Form();
        FAIL() << "the start went on without a database";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), DaoFileNotFound);
    }
    EXPECT_FALSE(forms.Loaded<Form1>());
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Starting")), 1);
}

// ---- RemplirDates

TEST_F(Form1Load, RemplirDatesSetsItsTagToTheNewestAndKeepsTheSelectionToTheCaller) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    Form1& form = Form();
    TestObservation next = Releve(LeBourget, 0, 10);
    next.day = QDate(2004, 11, 3);
    db.AddObservation(next);
    form.RemplirDates();
    EXPECT_EQ(Items(*Named<ComboBox>(form, QStringLiteral("ChoixDate"))), QStringList({"02/11/2004", "03/11/2004"}));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Tag, QStringLiteral("1"));
    EXPECT_TRUE(form.BaseReleves.IsNothing());
    EXPECT_TRUE(form.JeuReleves.IsNothing());
}

TEST_F(Form1Load, ANewDateEntersOnlyAtTheNextRefresh) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    Form1& form = Form();
    TestObservation next = Releve(LeBourget, 0, 10);
    next.day = QDate(2004, 11, 3);
    db.AddObservation(next);
    Named<ListBox>(form, QStringLiteral("List1"))
        ->SetListIndex(LigneHeathrow);  // redraws, as a new row's reception does
    form.TracerCourbe();
    EXPECT_EQ(Items(*Named<ComboBox>(form, QStringLiteral("ChoixDate"))), QStringList({"02/11/2004"}));
    form.RemplirDates();
    Named<ComboBox>(form, QStringLiteral("ChoixDate"))
        ->SetListIndex(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Tag.toInt());
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Text(), QStringLiteral("03/11/2004"));
}

TEST_F(Form1Load, RemplirDatesOnAnEmptyTableTakesTodayFromTheClock) {
    Form1& form = Form();
    clock.Set(QDateTime(QDate(2005, 1, 9), QTime(0, 0, 1)));
    form.RemplirDates();
    EXPECT_EQ(Items(*Named<ComboBox>(form, QStringLiteral("ChoixDate"))), QStringList({"09/01/2005"}));
    EXPECT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Tag, QStringLiteral("0"));
}

// ---- Closing

TEST_F(Form1Load, ClosingTheWindowOnlyHidesIt) {
    Form1& form = Form();
    form.show();
    EXPECT_FALSE(form.close());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
    EXPECT_TRUE(forms.Loaded<Form1>());
}

TEST_F(Form1Load, AnyRequestToCloseIsRefusedWhateverItsReason) {
    Form1& form = Form();
    form.show();
    form.Tag = QStringLiteral("VU");
    QCloseEvent event;  // as a system shutdown asks
    QCoreApplication::sendEvent(&form, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_TRUE(form.isHidden());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
    for (int mode : {0, 1, 2, 3, 4}) {
        int cancel = 0;
        form.Form_QueryUnload(cancel, mode);
        EXPECT_EQ(cancel, 1) << mode;
    }
}

TEST_F(Form1Load, ClosingLeavesThePollCycleRunning) {
    Form1& form = Form();
    form.show();
    ASSERT_FALSE(form.close());  // refused
    EXPECT_TRUE(form.isHidden());
    // T runs by itself, at a short interval that stands for its second. The hidden window counts
    // down on its caption, and the eleventh tick polls the next entry of the round, line 1; the
    // poll's own caption stops T, before the poll lets events run.
    QStringList captions;
    QObject::connect(&T(form), &Timer::Tick, &form, [&] { captions.append(form.Caption()); });
    QObject::connect(&form, &QWidget::windowTitleChanged, &form, [&](const QString& caption) {
        if (caption == QStringLiteral("Connection in progress...")) T(form).SetEnabled(false);
    });
    T(form).SetInterval(10);
    T(form).SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return captions.size() >= 11; }, 5000));
    ASSERT_EQ(captions.size(), 11);
    EXPECT_EQ(captions[0], QStringLiteral("   Paris - Le Bourget - 9 secondes..."));
    EXPECT_EQ(captions[9], QStringLiteral("   Paris - Le Bourget - 0 secondes..."));
    EXPECT_EQ(captions[10], QStringLiteral("Connection in progress..."));
    EXPECT_EQ(form.Cycle().IndexReleve, 1);
    EXPECT_EQ(form.Cycle().SecondesAttente, 0);
    EXPECT_TRUE(form.isHidden());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
    EXPECT_TRUE(runTimeEnds.empty());
}

// ---- The end of the desktop session

namespace {

// A session manager's request, as the desktop makes it, that remembers the refusal.
struct EndOfSession : SessionEnd {
    explicit EndOfSession(bool interaction) : interaction(interaction) {}
    bool AllowsInteraction() override {
        ++asked;
        return interaction;
    }
    void Cancel() override { ++cancelled; }
    bool interaction;
    int asked = 0;
    int cancelled = 0;
};

}  // namespace

TEST_F(Form1Load, TheEndOfTheSessionIsRefusedAndTheWindowOnlyHides) {
    Form1& form = Form();
    form.show();
    T(form).SetEnabled(true);
    EndOfSession end(true);
    form.FinDeSession(end);
    EXPECT_EQ(end.cancelled, 1);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
    EXPECT_TRUE(forms.Loaded<Form1>());
    EXPECT_TRUE(T(form).Enabled());
    EXPECT_EQ(LogCount(QStringLiteral("Skelda Terminated")), 0);
    T(form).SetEnabled(false);
}

TEST_F(Form1Load, AForcedEndOfTheSessionIsNotRefused) {
    Form1& form = Form();
    form.show();
    EndOfSession end(false);
    form.FinDeSession(end);
    EXPECT_EQ(end.asked, 1);
    EXPECT_EQ(end.cancelled, 0);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
}

TEST_F(Form1Load, TheSessionManagersRequestReachesTheForm) {
    Form1& form = Form();
    form.show();
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    ASSERT_NE(application, nullptr);
    QSessionManager* manager = application->findChild<QSessionManager*>();
    if (manager == nullptr) GTEST_SKIP() << "this Qt has no session management";
    emit application->commitDataRequest(*manager);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Tag, QStringLiteral("MASQUE"));
    EXPECT_TRUE(forms.Loaded<Form1>());
    EXPECT_TRUE(runTimeEnds.empty());
}

// ---- The tray's menu on the background

TEST_F(Form1Load, ARightClickOnTheBackgroundPopsUpTheTraysMenu) {
    Provide();
    Form1& form = Form();
    form.show();
    bool shown = false;
    QTimer::singleShot(0, [&] {
        auto& icone = forms.Get<TrayStandIn>();
        shown = icone.menu->isVisible();
        icone.courbe->trigger();  // the same effect as from the tray
        icone.menu->close();
    });
    SendMouse(&form, QEvent::MouseButtonPress, Qt::RightButton, QPoint(400, 150));
    EXPECT_TRUE(shown);
    EXPECT_EQ(forms.Get<TrayStandIn>().courbeClicks, 1);
    EXPECT_FALSE(forms.Get<TrayStandIn>().menu->isVisible());
    form.hide();
}

TEST_F(Form1Load, ALeftClickPopsUpNothing) {
    Provide();
    Form1& form = Form();
    SendMouse(&form, QEvent::MouseButtonPress, Qt::LeftButton, QPoint(400, 150));
    form.Form_MouseDown(vbMiddleButton, 0, 6000, 2000);
    EXPECT_FALSE(forms.Loaded<TrayStandIn>());
}

// ---- The controls' own mouse events

namespace {

// A tray form that counts the menus asked of it instead of showing one.
struct CountingTray : QWidget, TrayForm {
    QString Caption() const override { return {}; }
    void SetCaption(const QString&) override {}
    void PopupMenu() override { ++popups; }
    int popups = 0;
};

}  // namespace

TEST_F(Form1Load, ARightPressOnALabelOrAFrameIsTheirsAndPopsUpNoMenu) {
    forms.Provide<CountingTray>([](Forms&) { return new CountingTray; });
    forms.ProvideAs<TrayForm, CountingTray>();
    Form1& form = Form();
    form.show();
    Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->setVisible(true);
    Named<Label>(form, QStringLiteral("TXTbulletin"))->SetCaption(QStringLiteral("Vent 240 ° 10 Kts"));
    CountingTray& tray = forms.Get<CountingTray>();
    const QList<QWidget*> controls{
        Named<Label>(form, QStringLiteral("TXTbulletin")),   Named<QGroupBox>(form, QStringLiteral("LeBulletin")),
        Named<QGroupBox>(form, QStringLiteral("Frame1")),    Named<Label>(form, Indexed("Label8", 5)),
        Named<Label>(form, Indexed("Label8", 23)),           Named<Image>(form, Indexed("ICO", 7)),
        Named<Label>(form, QStringLiteral("Label5")),        Named<Label>(form, Indexed("Label9", 3)),
        Named<Label>(form, QStringLiteral("Label12")),       Named<SurfaceWidget>(form, QStringLiteral("PV")),
        Named<PictureBox>(form, QStringLiteral("Picture1")), Named<QGroupBox>(form, QStringLiteral("Frame4"))};
    for (QWidget* control : controls) {
        const QPoint inside(control->width() / 2, control->height() / 2);
        QTest::mousePress(control, Qt::RightButton, {}, inside);
        QTest::mouseRelease(control, Qt::RightButton, {}, inside);
        EXPECT_EQ(tray.popups, 0) << control->objectName().toStdString();
    }
    // The bare background of the form still does.
    QTest::mousePress(&form, Qt::RightButton, {}, QPoint(400, 150));
    QTest::mouseRelease(&form, Qt::RightButton, {}, QPoint(400, 150));
    EXPECT_EQ(tray.popups, 1);
    form.hide();
}

TEST_F(Form1Load, MovingOverALabelOrAFrameLeavesTheReadoutAlone) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    Form1& form = Form();
    form.show();
    // Over the background, in the left part of the column of slot 20 (10:00): pixel 398, whose
    // middle stands at 5977.5 twips, 20.2 columns of 180 right of the axis at 2341.
    const QPoint colonne(398, 130);
    QTest::mouseMove(&form, colonne);
    ASSERT_EQ(form.DerniereColonne, 20);
    ASSERT_TRUE(Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->isVisibleTo(&form));
    // The hour labels and pictures stand under other columns of the chart; the bulletin and the
    // frame of the last observation left of it and above it.
    // The pointer goes over each with no button down, then drags across it with the left one.
    for (QWidget* control : QList<QWidget*>{
             Named<Label>(form, Indexed("Label8", 3)), Named<Image>(form, Indexed("ICO", 12)),
             Named<Label>(form, QStringLiteral("TXTbulletin")), Named<QGroupBox>(form, QStringLiteral("LeBulletin")),
             Named<QGroupBox>(form, QStringLiteral("Frame1")), Named<Label>(form, Indexed("Label8", 23))}) {
        const QPoint inside(control->width() / 2, control->height() / 2);
        QTest::mouseMove(control, inside);
        QTest::mousePress(control, Qt::LeftButton, {}, inside);
        QTest::mouseMove(control, inside + QPoint(2, 1));
        QTest::mouseRelease(control, Qt::LeftButton, {}, inside + QPoint(2, 1));
        EXPECT_EQ(form.DerniereColonne, 20) << control->objectName().toStdString();
        EXPECT_TRUE(Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->isVisibleTo(&form))
            << control->objectName().toStdString();
    }
    form.hide();
}

// ---- The lists

TEST_F(Form1Load, SelectingAnAirportRedrawsAtOnceButDoesntPoll) {
    db.AddObservation(Releve(Heathrow, 11, 0));
    Form1& form = FormOnRecording();
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 22))->Tag, QString());
    Named<ListBox>(form, QStringLiteral("List1"))->SetListIndex(LigneHeathrow);
    EXPECT_GT(recording.Count(DrawOp::Cls), 0);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 22))->Tag, QStringLiteral("LFPB 021100Z 24010KT CAVOK 12/08 Q1015"));
    // The poll cycle is wired, and no poll began: W wasn't asked to connect, and the caption
    // isn't Connect's.
    EXPECT_EQ(W(form).State(), sckClosed);
    EXPECT_EQ(form.Caption(), QStringLiteral("Skelda"));
    EXPECT_TRUE(Named<ListBox>(form, QStringLiteral("List1"))->isEnabled());
}

TEST_F(Form1Load, ADoubleClickRedrawsFirstThenAsksForThePoll) {
    db.AddObservation(Releve(Heathrow, 11, 0));
    Form1& form = FormOnRecording();
    form.show();
    // The chart as it stood when the poll began: Connect's caption marks that moment.
    QString tagAtPoll = QStringLiteral("<no poll>");
    QObject::connect(&form, &QWidget::windowTitleChanged, &form, [&](const QString& caption) {
        if (caption == QStringLiteral("Connection in progress..."))
            tagAtPoll = Named<Label>(form, Indexed("FKNT", 22))->Tag;
    });
    const QPoint line = Named<ListBox>(form, QStringLiteral("List1"))
                            ->visualItemRect(Named<ListBox>(form, QStringLiteral("List1"))->item(LigneHeathrow))
                            .center();
    QTest::mouseDClick(Named<ListBox>(form, QStringLiteral("List1"))->viewport(), Qt::LeftButton, {}, line);
    EXPECT_EQ(tagAtPoll, QStringLiteral("LFPB 021100Z 24010KT CAVOK 12/08 Q1015"));
    EXPECT_EQ(form.Caption(), QStringLiteral("Connection in progress..."));
    form.hide();
}

TEST_F(Form1Load, AClickOnTheAirportAlreadySelectedRedrawsOnItsClickAndItsMouseDown) {
    db.AddObservation(Releve(LeBourget, 11, 0));
    Form1& form = FormOnRecording();
    form.show();
    ASSERT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListIndex(), LigneLeBourget);
    recording.Clear();
    const QPoint line = Named<ListBox>(form, QStringLiteral("List1"))
                            ->visualItemRect(Named<ListBox>(form, QStringLiteral("List1"))->item(LigneLeBourget))
                            .center();
    QTest::mouseClick(Named<ListBox>(form, QStringLiteral("List1"))->viewport(), Qt::LeftButton, {}, line);
    // List1_Click draws the chart, and so does List1_MouseDown for the left button.
    EXPECT_EQ(recording.Count(DrawOp::Cls), 2);
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListIndex(), LigneLeBourget);
    EXPECT_EQ(W(form).State(), sckClosed);
    form.hide();
}

TEST_F(Form1Load, ChoosingADateRedrawsThatDay) {
    TestObservation other = Releve(LeBourget, 9, 0);
    other.day = QDate(2004, 11, 3);
    db.AddObservation(other);
    db.AddObservation(Releve(LeBourget, 10, 0));
    Form1& form = Form();
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 18))->Tag, QStringLiteral("LFPB 020900Z 24010KT CAVOK 12/08 Q1015"));
    Named<ComboBox>(form, QStringLiteral("ChoixDate"))->SetListIndex(0);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 18))->Tag, QString());
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, QStringLiteral("LFPB 021000Z 24010KT CAVOK 12/08 Q1015"));
}

TEST_F(Form1Load, WhileLoadingIsUnfinishedTheChartDrawsNothing) {
    Form1 form(forms);
    form.DrawOn(recording);
    Named<Label>(form, Indexed("FKNT", 3))->Tag = QStringLiteral("kept");
    form.TracerCourbe();
    EXPECT_TRUE(recording.Calls().empty());
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 3))->Tag, QStringLiteral("kept"));
}

TEST_F(Form1Load, MovingOverTheListTakesTheReadoutAway) {
    db.AddObservation(Releve(LeBourget, 10, 0));
    Form1& form = Form();
    form.Form_MouseMove(0, 0, 2340 + 180 * 20 + 90, 2000);
    ASSERT_FALSE(Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->isHidden());
    SendMouse(Named<ListBox>(form, QStringLiteral("List1"))->viewport(), QEvent::MouseMove, Qt::NoButton,
              QPoint(20, 10));
    EXPECT_TRUE(Named<QGroupBox>(form, QStringLiteral("LeBulletin"))->isHidden());
}
