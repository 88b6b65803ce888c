#include "AeroportsConfig.h"

#include "AirportsTable.h"
#include "Convert.h"
#include "Dao.h"
#include "Forms.h"
#include "Images.h"
#include "MessageBoxes.h"
#include "PollingForm.h"
#include "RunTime.h"
#include "ajoutareoports.h"

#include <QCloseEvent>
#include <QPushButton>

namespace skelda {

namespace {

// A boolean column read as the test "column = True": a Null counts as false, as in the lists of
// the main window, so that a row with no value is simply not active.
bool EstVrai(const Variant& valeur) { return !valeur.IsNull() && valeur.ToBool(); }

QPushButton* Bouton(QWidget* parent, const char* name, const QString& caption) {
    auto* bouton = new QPushButton(caption, parent);
    bouton->setObjectName(QLatin1String(name));
    return bouton;
}

}  // namespace

AeroportsConfig::AeroportsConfig(Forms& forms) : forms_(forms) {
    BuildControls();
    WireEvents();
}

AeroportsConfig::~AeroportsConfig() = default;

RunTimeGuard& AeroportsConfig::guard() const { return forms_.services().guard; }

void AeroportsConfig::BuildControls() {
    setObjectName(QStringLiteral("AeroportsConfig"));
    // The caption has always read "Cancel"; it stays so.
    setWindowTitle(QStringLiteral("Cancel"));
    SetWidth(this, 6120);
    SetHeight(this, 6330);

    Image1 = new Image(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setScaledContents(true);
    Image1->SetPicture(QPixmap(QStringLiteral(":/app/skelda.png")));
    Place(Image1, 120, 120, 480, 480);

    Label1 = new Label(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->SetCaption(QStringLiteral("Here is where you manage all your airports list."));
    Place(Label1, 720, 120, 5280, 480);

    List1 = new ListBox(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->SetMultiSelect(vbMultiSelectSimple);
    Place(List1, 120, 720, 5880, 3840);

    PREF = new Label(this);
    PREF->setObjectName(QStringLiteral("PREF"));
    PREF->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    Place(PREF, 120, 4680, 5880, 315);

    NBS = new Label(this);
    NBS->setObjectName(QStringLiteral("NBS"));
    Place(NBS, 120, 5100, 5880, 285);

    ajouterbtn = Bouton(this, "ajouterbtn", QStringLiteral("Edit"));
    Place(ajouterbtn, 120, 5640, 1215, 495);
    Command1 = Bouton(this, "Command1", QStringLiteral("Validate"));
    Place(Command1, 3420, 5640, 1215, 495);
    Command2 = Bouton(this, "Command2", QStringLiteral("Cancel"));
    Place(Command2, 4785, 5640, 1215, 495);
}

void AeroportsConfig::WireEvents() {
    On(guard(), List1, &ListBox::Click, this, [this] { List1_Click(); });
    On(guard(), List1, &ListBox::DblClick, this, [this] { List1_DblClick(); });
    On(guard(), Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    On(guard(), Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    On(guard(), ajouterbtn, &QPushButton::clicked, this, [this] { ajouterbtn_Click(); });
}

void AeroportsConfig::Form_Load() {
    // No preferred airport until a row says so.
    PREF->Tag = QStringLiteral("0");
    // Every airport, by city.
    Database base = OpenDatabase(CheminBase(forms_));
    Recordset aeroports = base.OpenRecordset(TousLesAeroports, dbOpenSnapshot);
    int ligne = 0;
    // One line per airport, selected when active. Selecting an active line raises Click at once,
    // so the choice is judged line by line as the list fills: a preferred airport met before its
    // row is found active (or one that isn't active at all) gives the "preferred" box already
    // here, on purpose.
    while (!aeroports.Eof()) {
        List1->AddItem(aeroports.Fields(QStringLiteral("ville")).Concat() + QStringLiteral(" - ") +
                       aeroports.Fields(QStringLiteral("aéroport")).Concat());
        List1->SetItemData(ligne, aeroports.Fields(QStringLiteral("idx")).ToInt32());
        if (EstVrai(aeroports.Fields(QStringLiteral("activé")))) List1->SetSelected(ligne, true);
        if (EstVrai(aeroports.Fields(QStringLiteral("préféré")))) {
            PREF->SetCaption(List1->List(ligne));
            PREF->Tag = QString::number(List1->ItemData(ligne));
        }
        ++ligne;
        aeroports.MoveNext();
    }
    // Close the recordset and the database.
    aeroports.Close();
    base.Close();
}

void AeroportsConfig::List1_Click() {
    // Count the selected lines. A preferred line that isn't selected ends the count at -1.
    const int32_t prefere = CLng(PREF->Tag);
    int compte = 0;
    for (int i = 0; i < List1->ListCount(); ++i) {
        if (List1->Selected(i)) ++compte;
        if (prefere == List1->ItemData(i) && !List1->Selected(i)) {
            compte = -1;
            break;
        }
    }
    // Show the count as it stands, -1 included.
    NBS->SetCaption(QString::number(compte) + QStringLiteral(" Selected Airports"));
    // Judge the choice: it can be stored only with the preferred airport among one or more
    // selected.
    MessageBoxes& boxes = forms_.services().boxes;
    if (compte < 0) {
        boxes.MsgBox(QStringLiteral("You must have a prefered airpor selected."), vbOKOnly, QStringLiteral("Hum Hum"));
        Command1->setEnabled(false);
    } else if (compte == 0) {
        boxes.MsgBox(QStringLiteral("You must select at least one airport...."), vbOKOnly, QStringLiteral("Hum Hum"));
        Command1->setEnabled(false);
    } else {
        Command1->setEnabled(true);
    }
}

void AeroportsConfig::List1_DblClick() {
    // The user's double click has raised Click already. Selecting the line raises it once more,
    // still with the old preferred airport: the new one is set only after.
    const int ligne = List1->ListIndex();
    List1->SetSelected(ligne, true);
    PREF->SetCaption(List1->List(ligne));
    PREF->Tag = QString::number(List1->ItemData(ligne));
}

void AeroportsConfig::Command1_Click() {
    // Every airport, by city.
    Database base = OpenDatabase(CheminBase(forms_));
    Recordset aeroports = base.OpenRecordset(TousLesAeroports, dbOpenDynaset);
    // Store each line's active and preferred marks. Every row is written, changed or not: this is
    // how the old preferred airport loses its mark, so that one row at most ends up preferred.
    const int32_t prefere = CLng(PREF->Tag);
    for (int i = 0; i < List1->ListCount(); ++i) {
        aeroports.FindFirst(QStringLiteral("idx = ") + QString::number(List1->ItemData(i)));
        aeroports.Edit();
        aeroports.SetField(QStringLiteral("activé"), List1->Selected(i));
        aeroports.SetField(QStringLiteral("préféré"), prefere == aeroports.Fields(QStringLiteral("idx")).ToInt32());
        aeroports.Update();
    }
    // Close the recordset and the database.
    aeroports.Close();
    base.Close();
    // The main window's list and TableIDA follow the new choice. More active airports than
    // TableIDA has room for fail there, and end the program.
    forms_.Get<PollingForm>().ChargerAeroportsList1();
    Unload();
}

void AeroportsConfig::Command2_Click() { Unload(); }

void AeroportsConfig::ajouterbtn_Click() {
    // The add form reads the first line of List1 while it loads, so it loads before this form
    // goes.
    forms_.Widget<ajoutareoports>().show();
    Unload();
}

void ProvideAirportForms(Forms& forms) {
    forms.Provide<AeroportsConfig>(&AeroportsConfig::Load);
    forms.ProvideAs<AirportsWindow, AeroportsConfig>();
    forms.Provide<ajoutareoports>(&ajoutareoports::Load);
}

void AeroportsConfig::Form_Unload() { forms_.Get<PollingForm>().SetTEnabled(true); }

void AeroportsConfig::Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    Form_Unload();
    forms_.UnloadLater<AeroportsConfig>();
}

void AeroportsConfig::closeEvent(QCloseEvent* event) {
    guard().Handle([this] { Unload(); });
    event->accept();
}

}  // namespace skelda
