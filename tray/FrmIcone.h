// FrmIcone: the form Skelda starts with, and its face in the notification area.
//
// Its big picture stands as the start-up screen for about a second; then it hides for good. What
// stays is the notification icon, whose tip names the last observation, and the popup menu from
// which every other window is reached. Its timer ends the start (and starts the poll cycle), then
// copies the form's caption, where the ingestion leaves the tip's text, into the tip.
#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <string_view>

#include "Controls.h"
#include "FormParts.h"
#include "NotificationArea.h"
#include "TrayForm.h"

class QAction;
class QLabel;
class QMenu;

namespace skelda {

class Forms;
class Image;
class RunTimeGuard;

class FrmIcone : public QWidget, public TrayForm {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "tray";

    // Builds the form with its controls; nothing else happens yet.
    explicit FrmIcone(Forms& forms);
    ~FrmIcone() override;

    // Loading the start form: builds it and runs Form_Load, which loads Form1 first. This is the
    // maker that the program gives to Forms::Provide. A failure of Form1's load reaches the caller.
    static FrmIcone* Load(Forms& forms) { return LoadForm<FrmIcone>(forms); }

    // ---- Form-level values.
    NotifyIconData IconeNotif;
    int16_t FormIconeActif = 0;  // -1 while an icon message is being handled
    int32_t MessageSouris = 0;   // the last icon message decoded

    // ---- Procedures of the form.
    // Form1 loaded (through its icon), T stopped, out of the task list, the icon added with the
    // tip "Skelda". No protection.
    void Form_Load();
    // The icon's message rides in X, in twips (message x 15). 515 (left double click) shows
    // Form1; 517 (right button released) pops up Menu and waits until it closes; any other
    // message is ignored, as is any message that comes while one is being handled.
    void Form_MouseMove(int Button, int Shift, double X, double Y);
    // Sets the tip to the first 64 characters of titre.
    void NewTitle(QString& titre);
    // Shows Form1 and marks it "VISIBLE" for the next tick of T.
    void ZefirDemand();
    // Removes the icon, logs "Skelda Terminated" and ends the process (the services' end, at
    // once, without unloading any form); no failure stops it.
    void Quitter_Click();
    // The first tick ends the start; every later one copies the caption to the tip.
    void Timer1_Timer();

    QString Caption() const override { return windowTitle(); }
    void SetCaption(const QString& text) override { setWindowTitle(text); }
    // Pops up Menu at the pointer and waits until it closes.
    void PopupMenu() override;
    // The tip the notification area shows: the record's text up to its end (a NUL, or the
    // blanks that fill the field and the line end before them).
    QString TipText() const { return skelda::TipText(IconeNotif); }

protected:
    // The icon's messages, which the notification area sends to this window.
    bool event(QEvent* event) override;

private:
    // ---- Controls, under their design names.
    QLabel* Picture1 = nullptr;  // the start-up picture
    Image* Image1 = nullptr;     // holds Form1's icon, the notification icon's picture
    Timer Timer1{1000, true, this};
    QMenu* Menu = nullptr;  // the popup menu, objectName "Menu"
    QAction* MenuCourbe = nullptr;
    QAction* MenuStatistiqueMensuelle = nullptr;
    QAction* MenuAeroport = nullptr;
    QAction* viewlog = nullptr;
    QAction* MenuMetaf = nullptr;
    QAction* MenuPrerences = nullptr;
    QAction* Quit = nullptr;

    RunTimeGuard& guard() const;
    void BuildControls();
    void BuildMenu();
    void WireEvents();
    // The notification area's one call, about the icon that IconeNotif describes.
    void Shell_NotifyIconA(int dwMessage);

    Forms& forms_;
};

// Tells Forms how the tray's forms are made: FrmIcone, also as the others' TrayForm, and the
// hand-entry form FormMetaf.
void ProvideTrayForms(Forms& forms);

}  // namespace skelda
