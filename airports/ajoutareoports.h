// ajoutareoports: adds one airport to table Aéroports.
//
// Reached from the airport selection form, which unloads itself once this form is shown, so the
// poll cycle runs while the user types. Its checks are deliberately thin: each fault gives its
// message and the next check runs; the time zone alone decides whether the row is written; and
// Confirm closes the form whatever happened, so a mistake can't be corrected and tried again
// without opening the form anew. Longitude, latitude, forecast code and the check box are never
// read.
#pragma once

#include "Controls.h"
#include "FormParts.h"

#include <QWidget>
#include <string_view>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace skelda {

class Database;
class Forms;
class Recordset;

class ajoutareoports : public QWidget {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "airports";

    // Builds the form with its controls; nothing is read yet.
    explicit ajoutareoports(Forms& forms);

    // Loading the form: builds it and runs Form_Load, which reads the selection form's list (that
    // form must be loaded). The maker that the program gives to Forms::Provide. Failures reach
    // the caller.
    static ajoutareoports* Load(Forms& forms) { return LoadForm<ajoutareoports>(forms); }

    // ---- Procedures of the form. Failures of the database aren't handled: they reach the
    // run-time error box.
    // Shows RecordCount right after opening the table (1 with any row, not the number of rows),
    // and looks up the airport of the selection form's first line, a search whose result nobody
    // uses.
    void Form_Load();
    // Checks the fields in order, each fault with its message, writes the row when the time zone
    // is numeric, refills the main window's list and unloads the form.
    void confirmerbtn_Click();
    // Hides the form, which stays loaded with its texts.
    void annulerbtn_Click();

    // The Unload statement on this form, from any of its handlers; the form is deleted once the
    // event has ended.
    void Unload();

protected:
    // The close box unloads the form.
    void closeEvent(QCloseEvent* event) override;

private:
    // ---- Controls, under their design names.
    QLineEdit* identificationaéroport = nullptr;  // at most 4 characters; goes to IDA
    QLineEdit* nomareoport = nullptr;             // goes to aéroport
    QLineEdit* villeareoport = nullptr;           // goes to ville
    QLineEdit* fuseauhorraire = nullptr;          // goes to timezone
    QLineEdit* longitude = nullptr;
    QLineEdit* latitude = nullptr;
    QLineEdit* forcastcode = nullptr;
    QCheckBox* areoportvalidck = nullptr;
    Label* compteareoport = nullptr;  // the table's RecordCount as it stood at load
    QPushButton* confirmerbtn = nullptr;
    QPushButton* annulerbtn = nullptr;
    QPushButton* addbtn = nullptr;
    QPushButton* Command1 = nullptr;
    Label* Label1 = nullptr;
    Label* nomaéropotlabel = nullptr;
    Label* nomvillelabel = nullptr;
    Label* Label2 = nullptr;
    Label* Label3 = nullptr;
    Label* Label4 = nullptr;
    Label* Label5 = nullptr;
    Label* validationareoport = nullptr;

    void BuildControls();
    // Writes the new airport through the recordset of Confirm.
    void EnregistrerAeroport(Database& base, Recordset& aeroports);

    Forms& forms_;
};

}  // namespace skelda
