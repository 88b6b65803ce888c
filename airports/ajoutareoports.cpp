#include "ajoutareoports.h"

#include "AirportsTable.h"
#include "Convert.h"
#include "Dao.h"
#include "Forms.h"
#include "Log.h"
#include "MenuWindows.h"
#include "MessageBoxes.h"
#include "PollingForm.h"
#include "ResumeNext.h"
#include "RunTime.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>

namespace skelda {

namespace {

constexpr double Ligne = 420;          // from one field's row to the next, in twips
constexpr double ColonneChamp = 2040;  // where the fields start

template <class W>
W* Nomme(W* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

}  // namespace

ajoutareoports::ajoutareoports(Forms& forms) : forms_(forms) { BuildControls(); }

void ajoutareoports::BuildControls() {
    setObjectName(QStringLiteral("ajoutareoports"));
    setWindowTitle(QStringLiteral("Add Airport(s) Form."));
    SetWidth(this, 6600);
    SetHeight(this, 4500);

    // One row per field: its label on the left, the field on the right.
    int rang = 0;
    auto rangee = [&](Label*& label, const QString& labelName, const QString& caption, QWidget* champ, double largeur) {
        const double y = 240 + Ligne * rang++;
        label = Nomme(new Label(this), labelName);
        label->SetCaption(caption);
        Place(label, 120, y, 1815, 285);
        Place(champ, ColonneChamp, y - 30, largeur, 315);
    };
    auto texte = [this](const QString& name, const QString& tip) {
        auto* champ = Nomme(new QLineEdit(this), name);
        champ->setToolTip(tip);
        return champ;
    };

    identificationaéroport = texte(QStringLiteral("identificationaéroport"),
                                   QStringLiteral("Identification de quatre lettres de l'aréoport."));
    identificationaéroport->setMaxLength(4);
    rangee(Label1, QStringLiteral("Label1"), QStringLiteral("Identification"), identificationaéroport, 1200);
    nomareoport = texte(QStringLiteral("nomareoport"), QStringLiteral("Le Bourget"));
    rangee(nomaéropotlabel, QStringLiteral("nomaéropotlabel"), QStringLiteral("Airport Name"), nomareoport, 4320);
    villeareoport = texte(QStringLiteral("villeareoport"), QStringLiteral("Ex: Paris"));
    rangee(nomvillelabel, QStringLiteral("nomvillelabel"), QStringLiteral("City Name"), villeareoport, 4320);
    fuseauhorraire = texte(QStringLiteral("fuseauhorraire"), QStringLiteral("Ex: +12 -6 -9 etc"));
    rangee(Label2, QStringLiteral("Label2"), QStringLiteral("Time Zone"), fuseauhorraire, 1200);
    longitude = texte(QStringLiteral("longitude"), {});
    rangee(Label3, QStringLiteral("Label3"), QStringLiteral("Longitude"), longitude, 1800);
    latitude = texte(QStringLiteral("latitude"), {});
    rangee(Label4, QStringLiteral("Label4"), QStringLiteral("Latitude"), latitude, 1800);
    forcastcode = texte(QStringLiteral("forcastcode"), {});
    rangee(Label5, QStringLiteral("Label5"), QStringLiteral("Forecast Code"), forcastcode, 1800);
    areoportvalidck = Nomme(new QCheckBox(this), QStringLiteral("areoportvalidck"));
    rangee(validationareoport, QStringLiteral("validationareoport"), QStringLiteral("Airport Valid"), areoportvalidck,
           315);

    compteareoport = Nomme(new Label(this), QStringLiteral("compteareoport"));
    compteareoport->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Place(compteareoport, 4200, 240, 2160, 285);

    auto bouton = [this](const QString& name, const QString& caption, double left) {
        auto* b = Nomme(new QPushButton(caption, this), name);
        Place(b, left, 3780, 1215, 495);
        return b;
    };
    addbtn = bouton(QStringLiteral("addbtn"), QStringLiteral("Add"), 120);
    Command1 = bouton(QStringLiteral("Command1"), QStringLiteral("Delete"), 1440);
    confirmerbtn = bouton(QStringLiteral("confirmerbtn"), QStringLiteral("Confirm"), 3825);
    annulerbtn = bouton(QStringLiteral("annulerbtn"), QStringLiteral("Cancel"), 5145);

    // Add and Delete have no handler: they do nothing.
    RunTimeGuard& guard = forms_.services().guard;
    On(guard, confirmerbtn, &QPushButton::clicked, this, [this] { confirmerbtn_Click(); });
    On(guard, annulerbtn, &QPushButton::clicked, this, [this] { annulerbtn_Click(); });
}

void ajoutareoports::Form_Load() {
    // Open the airports, by city.
    Database base = OpenDatabase(CheminBase(forms_));
    Recordset aeroports = base.OpenRecordset(TousLesAeroports, dbOpenDynaset);
    // Show the count. Right after opening, it is that of the rows reached so far: 1 (or 0 for an
    // empty table), not the table's size. It is shown as it stands.
    compteareoport->SetCaption(QString::number(aeroports.RecordCount()));
    // Look for the airport of the selection form's first line. That form is still loaded: its
    // Edit button loads this form before it goes. The row found isn't used, and the recordset and
    // the database are let go at the end of the load without a Close.
    aeroports.FindFirst(QStringLiteral("idx = ") + QString::number(forms_.Get<AirportsWindow>().IdxPremiereLigne()));
}

void ajoutareoports::confirmerbtn_Click() {
    MessageBoxes& boxes = forms_.services().boxes;
    // No message ends the procedure: each check is followed by the next, and all of them by the
    // refill and the unload.
    // Open the airports, by city.
    Database base = OpenDatabase(CheminBase(forms_));
    Recordset aeroports = base.OpenRecordset(TousLesAeroports, dbOpenDynaset);
    // The code. One of four characters goes to upper case, in the box itself.
    if (identificationaéroport->text().size() == 4)
        identificationaéroport->setText(identificationaéroport->text().toUpper());
    else
        boxes.MsgBox(QStringLiteral("Identification doit avoir quatre lettres"), vbOKOnly, {});
    // The names of the airport and of the city.
    if (nomareoport->text().isEmpty())
        boxes.MsgBox(QStringLiteral("Vous devez inscrire un nom d'aéroport"), vbOKOnly, {});
    if (villeareoport->text().isEmpty())
        boxes.MsgBox(QStringLiteral("Vous devez inscrire le nom de la ville"), vbOKOnly, {});
    // The time zone alone decides whether the row is written; an empty one writes nothing and says
    // nothing.
    if (!fuseauhorraire->text().isEmpty()) {
        if (IsNumeric(fuseauhorraire->text()))
            EnregistrerAeroport(base, aeroports);
        else
            boxes.MsgBox(QStringLiteral("Le fuseau horraire doit être numérique"), vbOKOnly, {});
    }
    // Refill the main window's list and close. The new airport is active at once: the main window
    // lists it, and polls it.
    forms_.Get<PollingForm>().ChargerAeroportsList1();
    Unload();
}

void ajoutareoports::EnregistrerAeroport(Database& base, Recordset& aeroports) {
    // Write the row, active and not preferred. idx comes from the database; codeforecast isn't
    // written and stays Null, so the new airport's line has no forecast mark.
    aeroports.AddNew();
    aeroports.SetField(QStringLiteral("IDA"), identificationaéroport->text());
    aeroports.SetField(QStringLiteral("aéroport"), nomareoport->text());
    aeroports.SetField(QStringLiteral("timezone"), fuseauhorraire->text());
    aeroports.SetField(QStringLiteral("ville"), villeareoport->text());
    aeroports.SetField(QStringLiteral("activé"), true);
    aeroports.SetField(QStringLiteral("préféré"), false);
    aeroports.Update();
    // Close the recordset and the database.
    aeroports.Close();
    base.Close();
    aeroports = Recordset();
    base = Database();
    // Log the outcome. The procedure has no handler of its own: a failed AddNew or Update has
    // already left it for the run-time error box, so the error number found here is always 0. The
    // error's log line stands all the same, as it always has.
    const ResumeNext erreur;
    if (erreur.Number() != NoError)
        EcrireLog(QStringLiteral("ERROR UPDATE : ") + erreur.Description(), forms_.services().clock);
    else
        EcrireLog(QStringLiteral("Nouvelle Aéroport enregistré ") + nomareoport->text(), forms_.services().clock);
}

void ajoutareoports::annulerbtn_Click() {
    // Only hidden: the next opening shows the same texts and count, and its load doesn't run.
    hide();
}

void ajoutareoports::Unload() { forms_.UnloadLater<ajoutareoports>(); }

void ajoutareoports::closeEvent(QCloseEvent* event) {
    forms_.services().guard.Handle([this] { Unload(); });
    event->accept();
}

}  // namespace skelda
