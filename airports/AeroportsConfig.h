// AeroportsConfig: the user chooses which airports are active (polled and listed) and which one is
// preferred (selected at start).
//
// The tray's menu stops the poll timer T of the main window before showing this form, and the
// form starts T again when it unloads, however that comes about: nothing polls while table
// Aéroports and the main window's list may disagree. All of the form's state is in its controls;
// nothing reaches the table before Validate, which writes every row.
#pragma once

#include "Controls.h"
#include "FormParts.h"
#include "MenuWindows.h"

#include <QWidget>
#include <string_view>

class QPushButton;

namespace skelda {

class Forms;
class Image;
class RunTimeGuard;

class AeroportsConfig : public QWidget, public AirportsWindow {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "airports";

    // Builds the form with its controls; nothing is read yet.
    explicit AeroportsConfig(Forms& forms);
    ~AeroportsConfig() override;

    // Loading the form: builds it and runs Form_Load. The maker that the program gives to
    // Forms::Provide. A failure of the database reaches the caller, and the form is dropped.
    static AeroportsConfig* Load(Forms& forms) { return LoadForm<AeroportsConfig>(forms); }

    // ---- Procedures of the form. None handles a failure of the database: it reaches the
    // run-time error box.
    // Every airport by city, "ville - aéroport" with its idx in ItemData; the active ones
    // selected (each selection raises List1's Click at once), the preferred one in PREF.
    void Form_Load();
    // Counts the selected lines into NBS, and judges the choice: the preferred airport must be
    // among them (or the count reads -1), and one line at least must be. Either fault says so in
    // a box and disables Command1; a valid choice enables it.
    void List1_Click();
    // Selects the line at ListIndex (which raises Click, judged with the old preferred airport)
    // and makes it the preferred one.
    void List1_DblClick();
    // Writes activé and préféré of every row, refills the main window's list, and unloads.
    void Command1_Click();
    // Unloads without writing.
    void Command2_Click();
    // Loads and shows the add-airport form, which reads List1 as it loads, then unloads.
    void ajouterbtn_Click();
    // Starts the main window's poll timer again.
    void Form_Unload();

    // What the add form asks (AirportsWindow): the idx of List1's first line.
    int32_t IdxPremiereLigne() const override { return List1->ItemData(0); }

    // The Unload statement on this form, from any of its handlers: Form_Unload, then the form
    // goes; it is deleted once the event has ended. A second call does nothing.
    void Unload();

    QString Caption() const { return windowTitle(); }

protected:
    // The close box unloads the form, as Command2 does.
    void closeEvent(QCloseEvent* event) override;

private:
    // ---- Controls, under their design names.
    ListBox* List1 = nullptr;  // every airport; a selected line is an active airport
    Label* PREF = nullptr;     // the line of the preferred airport; its Tag is that airport's idx
    Label* NBS = nullptr;      // how many lines are selected
    Label* Label1 = nullptr;
    Image* Image1 = nullptr;
    QPushButton* Command1 = nullptr;    // "Validate"
    QPushButton* Command2 = nullptr;    // "Cancel"
    QPushButton* ajouterbtn = nullptr;  // "Edit"

    RunTimeGuard& guard() const;
    void BuildControls();
    void WireEvents();

    Forms& forms_;
    bool unloaded_ = false;
};

// Tells Forms how the airport forms are made: AeroportsConfig, also as the tray's AirportsWindow,
// and ajoutareoports.
void ProvideAirportForms(Forms& forms);

}  // namespace skelda
