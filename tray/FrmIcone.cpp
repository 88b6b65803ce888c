#include "FrmIcone.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <cstdlib>
#include <memory>

#include "Acquisition.h"
#include "AeroportsConfig.h"
#include "Convert.h"
#include "Form1.h"
#include "FormMetaf.h"
#include "Forms.h"
#include "Images.h"
#include "Log.h"
#include "ResumeNext.h"
#include "RunTime.h"
#include "StartUpPicture.h"
#include "StatistiqueMensuelle.h"
#include "Text.h"

namespace skelda {

namespace {

constexpr int NIM_ADD = 0;
constexpr int NIM_MODIFY = 1;
constexpr int NIM_DELETE = 2;
constexpr int TailleTip = 64;  // the tip field's fixed width, in characters

// The record's fixed-width tip field: the text from the left, cut to the field, blanks behind.
QString ChampTip(const QString& texte) { return texte.left(TailleTip).leftJustified(TailleTip, u' '); }

}  // namespace

FrmIcone::FrmIcone(Forms& forms) : forms_(forms) {
    // The process ends at once, as the run time's End does: no form unloads, nothing is closed.
    // The log line was written and closed before.
    TerminerProcessus = [] { std::_Exit(0); };
    Shell_NotifyIconA = [this](int dwMessage) { ZoneDeNotification(dwMessage); };
    BuildControls();
    BuildMenu();
    WireEvents();
}

FrmIcone::~FrmIcone() = default;

FrmIcone* FrmIcone::Load(Forms& forms) {
    auto form = std::make_unique<FrmIcone>(forms);
    form->Form_Load();
    return form.release();
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
    On(guard(), MenuCourbe, &QAction::triggered, this, [this] { forms_.Get<Form1>().show(); });
    // The monthly window loads at this first touch and shows without holding the menu.
    On(guard(), MenuStatistiqueMensuelle, &QAction::triggered, this,
       [this] { forms_.Get<StatistiqueMensuelle>().show(); });
    // No poll while the airports are being chosen: the selection form starts T again when it
    // unloads. Not modal: the menu comes back at once.
    On(guard(), MenuAeroport, &QAction::triggered, this, [this] {
        forms_.Get<Form1>().T.SetEnabled(false);
        forms_.Widget<AeroportsConfig>().show();
    });
    // Should the item ever be enabled, the hand-entry form loads, which shows it.
    On(guard(), MenuMetaf, &QAction::triggered, this, [this] { forms_.Get<FormMetaf>().show(); });
    On(guard(), Quit, &QAction::triggered, this, [this] { Quitter_Click(); });
}

void FrmIcone::Form_Load() {
    // The main window's icon, for the start-up screen. This first touch of Form1 loads it and runs
    // its whole Form_Load, so the log line "Skelda Starting", the database reads and the first
    // chart come before the icon.
    Form1& form1 = forms_.Get<Form1>();
    Image1->SetPicture(form1.windowIcon().pixmap(QSize(64, 64)));
    // No poll before the start is over.
    form1.T.SetEnabled(false);
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
    Form1& form1 = forms_.Get<Form1>();
    form1.show();
    form1.raise();
    form1.activateWindow();
    form1.Tag = QStringLiteral("VISIBLE");
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
    step([&] { TerminerProcessus(); });
}

void FrmIcone::Timer1_Timer() {
    if (Timer1.Interval() != 10000) {
        // The first tick ends the start: the interval is the flag that says so.
        Timer1.SetInterval(10000);
        hide();
        Menu->menuAction()->setVisible(true);
        Form1& form1 = forms_.Get<Form1>();
        form1.T.SetEnabled(true);
        // The first poll, for the preferred airport selected by Form1's load.
        Connect(form1);
        return;
    }
    // Every 10 seconds, changed or not. Until the first reception the caption is the design
    // caption, and so is the tip. The line end stands between the text and the field's blanks.
    QString titre = Trim(Caption()).toString() + QString::fromUtf16(CrLf);
    NewTitle(titre);
}

QString FrmIcone::TipText() const {
    // Qt's tip is a text, not a fixed field: it ends at a NUL, and the field's blanks and the
    // line end before them, which would show as an empty line, aren't part of it.
    QString tip = IconeNotif.szTip;
    const qsizetype nul = tip.indexOf(QChar(u'\0'));
    if (nul >= 0) tip.truncate(nul);
    while (!tip.isEmpty() && (tip.back() == u' ' || tip.back() == u'\r' || tip.back() == u'\n')) tip.chop(1);
    return tip;
}

void FrmIcone::ZoneDeNotification(int dwMessage) {
    // The notification area's answers aren't looked at, and a desktop without one gets no icon.
    switch (dwMessage) {
        case NIM_ADD:
            if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
            if (Icone == nullptr) {
                Icone = new NotifyIcon(this);
                Icone->setObjectName(QStringLiteral("IconeNotif"));
                // Every message of the icon comes to Form_MouseMove in X, in twips.
                On(guard(), Icone, &NotifyIcon::Message, this,
                   [this](int32_t message) { Form_MouseMove(0, 0, double(message) * TwipsPerPixel, 0); });
            }
            Icone->setIcon(IconeNotif.hIcon);
            Icone->setToolTip(TipText());
            Icone->Show();
            break;
        case NIM_MODIFY:
            if (Icone != nullptr) Icone->setToolTip(TipText());
            break;
        case NIM_DELETE:
            if (Icone != nullptr) Icone->hide();
            break;
        default:
            break;
    }
}

}  // namespace skelda
