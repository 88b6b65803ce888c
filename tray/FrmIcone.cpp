#include "FrmIcone.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QLabel>
#include <QMenu>

#include "Convert.h"
#include "FormMetaf.h"
#include "Forms.h"
#include "Images.h"
#include "Log.h"
#include "MenuWindows.h"
#include "NotifyIcon.h"
#include "PollingForm.h"
#include "ResumeNext.h"
#include "RunTime.h"
#include "StartUpPicture.h"
#include "Text.h"

namespace skelda {

namespace {

constexpr int TailleTip = 64;  // the tip field's fixed width, in characters

// The record's fixed-width tip field: the text from the left, cut to the field, blanks behind.
QString ChampTip(const QString& texte) { return texte.left(TailleTip).leftJustified(TailleTip, u' '); }

}  // namespace

FrmIcone::FrmIcone(Forms& forms) : forms_(forms) {
    BuildControls();
    BuildMenu();
    WireEvents();
}

FrmIcone::~FrmIcone() = default;

void ProvideTrayForms(Forms& forms) {
    forms.Provide<FrmIcone>(&FrmIcone::Load);
    forms.ProvideAs<TrayForm, FrmIcone>();
    forms.Provide<FormMetaf>([](Forms& f) { return new FormMetaf(f.services()); });
}

void FrmIcone::BuildControls() {
    setObjectName(QStringLiteral("FrmIcone"));
    SetCaption(StartFormCaption());
    // The start-up screen: the size, the place and the picture, as StartUpPicture shows them
    // alone while an earlier database is brought up to date.
    Picture1 = PlaceStartUpPicture(*this);

    // The image stands behind the picture box, as lightweight controls do: it only holds the
    // notification icon's picture.
    Image1 = new Image(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setScaledContents(true);
    Place(Image1, 3780, 60, 435, 435);
    Image1->lower();

    Timer1.setObjectName(QStringLiteral("Timer1"));
}

void FrmIcone::BuildMenu() {
    Menu = new QMenu(QStringLiteral("Menu"), this);
    Menu->setObjectName(QStringLiteral("Menu"));
    // "Not visible" at design: the menu is only ever popped up; the first tick of Timer1 makes it
    // visible, which changes nothing for a popup.
    Menu->menuAction()->setVisible(false);
    auto item = [this](const char* name, const QString& caption, bool enabled) {
        QAction* action = Menu->addAction(caption);
        action->setObjectName(QLatin1String(name));
        action->setEnabled(enabled);
        return action;
    };
    MenuCourbe = item("MenuCourbe", QStringLiteral("Daily Cruve"), true);
    MenuStatistiqueMensuelle = item("MenuStatistiqueMensuelle", QStringLiteral("&Monthly Curve"), true);
    MenuAeroport = item("MenuAeroport", QStringLiteral("&Airports"), true);
    // Disabled at design, and no code enables them: the hand entry can't be reached from here.
    viewlog = item("viewlog", QStringLiteral("&View Log"), false);
    MenuMetaf = item("MenuMetaf", QStringLiteral("&Metaf Reader"), false);
    MenuPrerences = item("MenuPrerences", QStringLiteral("&Préférences"), false);
    Quit = item("Quit", QStringLiteral("&Quit"), true);
}

RunTimeGuard& FrmIcone::guard() const { return forms_.services().guard; }

void FrmIcone::WireEvents() {
    On(guard(), &Timer1, &Timer::Tick, this, [this] { Timer1_Timer(); });
    // Unlike ZefirDemand, the menu's item leaves Form1's Tag as it is.
    On(guard(), MenuCourbe, &QAction::triggered, this, [this] { forms_.Widget<PollingForm>().show(); });
    // The monthly window loads at this first touch and shows without holding the menu.
    On(guard(), MenuStatistiqueMensuelle, &QAction::triggered, this, [this] { forms_.Widget<MonthWindow>().show(); });
    // No poll while the airports are being chosen: the selection form starts T again when it
    // unloads. Not modal: the menu comes back at once.
    On(guard(), MenuAeroport, &QAction::triggered, this, [this] {
        forms_.Get<PollingForm>().SetTEnabled(false);
        forms_.Widget<AirportsWindow>().show();
    });
    // Should the item ever be enabled, the hand-entry form loads, which shows it.
    On(guard(), MenuMetaf, &QAction::triggered, this, [this] { forms_.Get<FormMetaf>().show(); });
    On(guard(), Quit, &QAction::triggered, this, [this] { Quitter_Click(); });
}

void FrmIcone::Form_Load() {
    // The main window's icon, for the start-up screen. This first touch of Form1 loads it and runs
    // its whole Form_Load, so the log line "Skelda Starting", the database reads and the first
    // chart come before the icon.
    QWidget& form1 = forms_.Widget<PollingForm>();
    Image1->SetPicture(form1.windowIcon().pixmap(QSize(64, 64)));
    // No poll before the start is over.
    forms_.Get<PollingForm>().SetTEnabled(false);
    // Out of the task list: the start form is a tool window.
    setWindowFlag(Qt::Tool, true);
    // Add the icon to the notification area, with the tip "Skelda".
    IconeNotif.cbSize = 88;
    IconeNotif.hWnd = uintptr_t(winId());
    IconeNotif.uID = 1;
    IconeNotif.uFlags = 7;
    IconeNotif.uCallbackMessage = MsgMouseMove;
    IconeNotif.hIcon = QIcon(Image1->Picture());
    IconeNotif.szTip = ChampTip(QStringLiteral("Skelda") + QChar(u'\0'));
    Shell_NotifyIconA(NIM_ADD);
}

void FrmIcone::Form_MouseMove(int /*Button*/, int /*Shift*/, double X, double /*Y*/) {
    // The platform delivers the icon's message in X, in twips.
    MessageSouris = CLng(X / TwipsPerPixel);
    // The popup menu keeps this handler open; messages that come meanwhile are dropped.
    if (FormIconeActif != 0) return;
    // A left double click shows the main window, a right click the menu; others are ignored.
    FormIconeActif = -1;
    if (MessageSouris == MsgLeftDoubleClick)
        ZefirDemand();
    else if (MessageSouris == MsgRightUp)
        PopupMenu();
    FormIconeActif = 0;
}

void FrmIcone::PopupMenu() { Menu->exec(QCursor::pos()); }

void FrmIcone::NewTitle(QString& titre) {
    IconeNotif.szTip = ChampTip(titre);
    Shell_NotifyIconA(NIM_MODIFY);
}

void FrmIcone::ZefirDemand() {
    QWidget& form1 = forms_.Widget<PollingForm>();
    form1.show();
    form1.raise();
    form1.activateWindow();
    forms_.Get<PollingForm>().SetTag(QStringLiteral("VISIBLE"));
}

void FrmIcone::Quitter_Click() {
    // Nothing may stop the exit: each statement that fails is skipped.
    ResumeNext step;
    // Take the icon away.
    step([&] {
        IconeNotif.cbSize = 88;
        IconeNotif.hWnd = uintptr_t(winId());
        IconeNotif.uID = 1;
    });
    step([&] { Shell_NotifyIconA(NIM_DELETE); });
    // Let the notification area take the icon away before the process goes.
    step([&] { QCoreApplication::processEvents(); });
    // Log the end.
    step([&] { EcrireLog(QStringLiteral("Skelda Terminated"), forms_.services().clock); });
    // End the process at once, without unloading any form.
    step([&] { forms_.services().processEnd.End(0); });
}

void FrmIcone::Timer1_Timer() {
    if (Timer1.Interval() != 10000) {
        // The first tick ends the start: the interval is the flag that says so.
        Timer1.SetInterval(10000);
        hide();
        Menu->menuAction()->setVisible(true);
        PollingForm& form1 = forms_.Get<PollingForm>();
        form1.SetTEnabled(true);
        // The first poll, for the preferred airport selected by Form1's load.
        form1.Connect();
        return;
    }
    // Every 10 seconds, changed or not. Until the first reception the caption is the design
    // caption, and so is the tip. The line end stands between the text and the field's blanks.
    QString titre = Trim(Caption()).toString() + QString::fromUtf16(CrLf);
    NewTitle(titre);
}

void FrmIcone::Shell_NotifyIconA(int dwMessage) {
    forms_.services().notificationArea.Shell_NotifyIconA(dwMessage, IconeNotif);
}

bool FrmIcone::event(QEvent* event) {
    if (event->type() != IconMessageEvent::EventType()) return QWidget::event(event);
    // Every message of the icon comes to Form_MouseMove in X, in twips.
    const int32_t message = static_cast<IconMessageEvent*>(event)->Message();
    guard().Handle([&] { Form_MouseMove(0, 0, double(message) * TwipsPerPixel, 0); });
    return true;
}

}  // namespace skelda
