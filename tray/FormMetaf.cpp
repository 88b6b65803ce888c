#include "FormMetaf.h"

#include "Colour.h"
#include "Controls.h"
#include "HandEntry.h"
#include "RunTime.h"
#include "Text.h"
#include "Window.h"

#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace skelda {

FormMetaf::FormMetaf(const Services& services, QWidget* parent)
    : QWidget(parent),
      Label1(new QLabel(QStringLiteral("METAF"), this)),
      Text1(new QPlainTextEdit(this)),
      Command2(new QPushButton(QStringLiteral("Lire"), this)),
      databasePath_(QDir(services.applicationPath).filePath(QStringLiteral("database.mdb"))),
      clock_(services.clock) {
    setObjectName(QStringLiteral("FormMetaf"));
    setWindowTitle(QStringLiteral("Reading a Metaf"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Text1->setObjectName(QStringLiteral("Text1"));
    Command2->setObjectName(QStringLiteral("Command2"));

    SetWidth(this, 6120);
    SetHeight(this, 3360);
    Place(Label1, 120, 120, 1200, 255);
    Place(Text1, 120, 420, 5880, 2220);
    Place(Command2, 4740, 2820, 1260, 375);

    On(services.guard, Text1, &QPlainTextEdit::textChanged, this, [this] { Text1_Change(); });
    On(services.guard, Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });

    // The form loads when it is first asked for, and its load shows it.
    Form_Load();
}

QString FormMetaf::Text1Text() const {
    // The box keeps its lines apart with a bare line feed; the procedures of the form split on
    // CR LF, the line end of the multi-line text box they were written for, so the text is given
    // back with CR LF between the lines.
    return Replace(Text1->toPlainText(), u"\n", CrLf);
}

void FormMetaf::SetText1Text(const QString& text) {
    Text1->setPlainText(Replace(Replace(text, CrLf, u"\n"), u"\r", u"\n"));
}

int32_t FormMetaf::Text1ForeColor() const {
    const QColor c = Text1->palette().color(QPalette::Text);
    return RGB(c.red(), c.green(), c.blue());
}

void FormMetaf::SetText1ForeColor(int32_t rgb) {
    QPalette palette = Text1->palette();
    palette.setColor(QPalette::Text, QColor(RedOf(rgb), GreenOf(rgb), BlueOf(rgb)));
    Text1->setPalette(palette);
}

void FormMetaf::Form_Load() {
    GarderAuDessus(*this);
    SetText1Text(QStringLiteral("Saisir le message METAF..."));
}

void FormMetaf::Text1_Change() {
    // Typing undoes the verdict colour of VerifierMetaf.
    SetText1ForeColor(0);
}

void FormMetaf::Command2_Click() {
    const QStringList lignes = Split(Text1Text(), QString::fromUtf16(CrLf));
    // The last piece is left out on purpose: behind a final line end it is empty, and a line
    // that no line end closes (the untouched prompt, too) isn't stored. The results are dropped:
    // the form says nothing, and what went wrong is only in the log.
    for (qsizetype i = 0; i < lignes.size() - 1; ++i) EnregistrerMetaf(lignes[i], databasePath_, clock_);
}

void FormMetaf::VerifierMetaf() {
    const QString resultat = EnregistrerMetaf(Text1Text(), databasePath_, clock_);
    SetText1ForeColor(resultat.isEmpty() ? 32768 : 255);
    Text1->setToolTip(resultat);
}

}  // namespace skelda
