#include "ForecastForm.h"

#include "Forecast.h"
#include "FormParts.h"
#include "Forms.h"
#include "Promo.h"
#include "RunTime.h"

#include <QCloseEvent>

#include <tuple>

namespace skelda {

namespace {

constexpr Color Grey224 = RGB(224, 224, 224);

// The six blocks: heading place (left, top) and text place (left, top), in twips. The columns
// aren't quite aligned, as the form was drawn by hand.
struct PlaceDeBloc {
    double titreLeft, titreTop, texteLeft, texteTop;
};
constexpr std::array<PlaceDeBloc, 6> Blocs{{
    {540, 924, 540, 1392},
    {3924, 924, 3912, 1392},
    {7272, 972, 7272, 1392},
    {552, 3516, 540, 3960},
    {3948, 3504, 3924, 3960},
    {7296, 3504, 7296, 3960},
}};

QFrame* NewPictureBox(QWidget* parent, const QString& name, double left, double top) {
    auto* box = new QFrame(parent);
    box->setObjectName(name);
    box->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Place(box, left, top, 888, 456);
    return box;
}

}  // namespace

ForecastForm::ForecastForm(Forms& forms, QWidget* parent) : QWidget(parent), forms_(forms) {
    BuildControls();
    On(forms_.services().guard, Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
}

void ForecastForm::BuildControls() {
    setObjectName(QStringLiteral("forecastform"));
    setWindowTitle(QStringLiteral("Forecast"));
    SetClientSize(this, 10830, 6765);
    QFont police = font();
    police.setPointSizeF(8);
    setFont(police);

    Nomvilleaeroport = NewPlainLabel(this, QStringLiteral("Nomvilleaeroport"), QString(), 660, 216, 4020, 540);
    SetBackColour(Nomvilleaeroport, Grey224);
    Nomvilleaeroport->setFont(NearestFont(QStringLiteral("Arial Black"), 16.5, QFont::SansSerif, QFont::Black));

    const QFont terminal = NearestFont(QStringLiteral("Terminal"), 9, QFont::TypeWriter, QFont::Bold);
    for (int i = 0; i < 6; ++i) {
        const PlaceDeBloc& at = Blocs[i];
        titres_[i] =
            NewPlainLabel(this, QStringLiteral("titre%1").arg(i + 1), QString(), at.titreLeft, at.titreTop, 1488, 372);
        titres_[i]->setFont(terminal);
        textes_[i] =
            NewPlainLabel(this, QStringLiteral("Label%1").arg(i + 1), QString(), at.texteLeft, at.texteTop, 2940, 1992);
        SetBackColour(textes_[i], Grey224);
    }
    std::tie(titre1, titre2, titre3, titre4, titre5, titre6) =
        std::tie(titres_[0], titres_[1], titres_[2], titres_[3], titres_[4], titres_[5]);
    std::tie(Label1, Label2, Label3, Label4, Label5, Label6) =
        std::tie(textes_[0], textes_[1], textes_[2], textes_[3], textes_[4], textes_[5]);

    temp1 = NewPictureBox(this, QStringLiteral("temp1"), 2592, 900);
    temp2 = NewPictureBox(this, QStringLiteral("temp2"), 9324, 912);
    temp3 = NewPictureBox(this, QStringLiteral("temp3"), 5964, 3468);
    temp4 = NewPictureBox(this, QStringLiteral("temp4"), 9336, 3456);

    Command1 = new QPushButton(QStringLiteral("Close"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Place(Command1, 4632, 6240, 1368, 390);
}

// The button's own handler still runs: the form leaves now, its window once the handler is done.
void ForecastForm::Command1_Click() { forms_.UnloadLater<ForecastForm>(); }

void ForecastForm::closeEvent(QCloseEvent* event) {
    // Closed by its window frame, the form unloads as by its button.
    forms_.services().guard.Handle([this] { forms_.UnloadLater<ForecastForm>(); });
    event->accept();
}

void ForecastForm::EcrireBloc(int Numero, const QString& Titre, const QString& Corps) {
    textes_.at(Numero)->SetCaption(Corps);
    titres_.at(Numero)->SetCaption(Titre);
}

void ForecastForm::SetNomvilleaeroport(const QString& text) { Nomvilleaeroport->SetCaption(text); }

void ForecastForm::ChargerPrevision(QString& Code) { skelda::ChargerPrevision(Code, forms_); }

void ProvideForecastForms(Forms& forms) {
    forms.Provide<ForecastForm>([](Forms& f) { return new ForecastForm(f); });
    forms.ProvideAs<ForecastWindow, ForecastForm>();
    forms.Provide<Promo>([](Forms& f) { return new Promo(f); });
}

}  // namespace skelda
