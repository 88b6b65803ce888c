// The hand-entry form: the user pastes METAF texts, one to a line, and "Lire" stores them.
#pragma once

#include "Clock.h"
#include "Services.h"

#include <QWidget>

#include <cstdint>
#include <string_view>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace skelda {

// "Reading a Metaf". Loading the form puts it above all other windows and shows it, without the
// focus, with the prompt in Text1. Command2 ("Lire") stores each line of Text1 that a line end
// closes, through EnregistrerMetaf, and says nothing: the results are only in the log. The form
// closes by its window frame.
class FormMetaf : public QWidget {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "tray";

    // Takes the database's folder (applicationPath) and the clock from services; shows the form.
    explicit FormMetaf(const Services& services, QWidget* parent = nullptr);

    // The text of Text1 with CR LF line ends, as a multi-line text box gives it.
    QString Text1Text() const;
    // Sets the text of Text1; CR LF, a lone CR or a lone LF each make one line end.
    void SetText1Text(const QString& text);
    // The text colour of Text1 as an RGB value (0 is black, 32768 green, 255 red).
    int32_t Text1ForeColor() const;

    // Gives the whole of Text1 to EnregistrerMetaf as one text and shows the outcome on the box:
    // green text when it was stored, red otherwise, and the result's words as its tool tip. No
    // control calls it.
    void VerifierMetaf();

private:
    // ---- Controls, under their design names.
    QLabel* Label1;
    QPlainTextEdit* Text1;
    QPushButton* Command2;

    void Form_Load();
    void Text1_Change();
    void Command2_Click();
    void SetText1ForeColor(int32_t rgb);

    QString databasePath_;
    const Clock& clock_;
};

}  // namespace skelda
