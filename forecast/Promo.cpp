#include "Promo.h"

#include "Clock.h"
#include "FormParts.h"
#include "Forms.h"
#include "RunTime.h"

#include <QCloseEvent>

#include <QGuiApplication>
#include <QScreen>

namespace skelda {

Promo::Promo(Forms& forms, QWidget* parent) : QWidget(parent), forms_(forms) {
    setObjectName(QStringLiteral("promo"));
    setWindowTitle(QStringLiteral("News form Skelda"));
    SetClientSize(this, 7560, 4050);
    QFont police = font();
    police.setPointSizeF(8);
    setFont(police);

    Frame1 = new QGroupBox(QStringLiteral("News......"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Place(Frame1, 1320, 240, 4935, 3015);
    Label1 = NewPlainLabel(Frame1, QStringLiteral("Label1"), QString(), 240, 360, 4455, 2535);
    Command1 = new QPushButton(QStringLiteral("Close"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Place(Command1, 3120, 3360, 1335, 375);
    Label2 = NewPlainLabel(this, QStringLiteral("Label2"), QStringLiteral("now"), 6060, 3768, 1404, 216);
    Label2->setWordWrap(false);
    // The label is as narrow as the design made it: a smaller type keeps the whole date and time
    // inside it with the fonts of this platform.
    police.setPointSizeF(7);
    Label2->setFont(police);

    // Centred on the screen, whatever its size.
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.center() - rect().center());

    On(forms_.services().guard, Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    Form_Load();
}

void Promo::AfficherPage(const QString& page) { Label1->SetCaption(page); }

// The present moment in the general format of date values, which leaves out a time of exactly
// midnight.
void Promo::Form_Load() { Label2->SetCaption(NowText(forms_.services().clock)); }

// The button's own handler still runs: the form leaves now, its window once the handler is done.
void Promo::Command1_Click() { forms_.UnloadLater<Promo>(); }

void Promo::closeEvent(QCloseEvent* event) {
    // Closed by its window frame, the form unloads as by its button.
    forms_.services().guard.Handle([this] { forms_.UnloadLater<Promo>(); });
    event->accept();
}

}  // namespace skelda
