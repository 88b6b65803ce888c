// What Form1 shows of itself to the others: the narrow views through which the other forms
// (PollingForm), its poll cycle (PollWindow) and the forecast and the news (PageFetcher) reach
// it, and the wind dial that the cycle has drawn after each reception.
#include "Arrow.h"
#include "Convert.h"
#include "Form1.h"
#include "Forms.h"
#include "PollCycle.h"
#include "ResumeNext.h"

namespace skelda {

// ---- PollingForm

bool Form1::TEnabled() const { return cycle_->T.Enabled(); }

void Form1::SetTEnabled(bool enabled) { cycle_->T.SetEnabled(enabled); }

void Form1::Connect() { cycle_->Connect(); }

// ---- PollWindow

void Form1::SetHorloges(const QString& locale, const QString& zulu) {
    Label5->SetCaption(locale);
    Label11->SetCaption(zulu);
}

Label* Form1::ChampDuReleve(ChampReleve champ) const {
    switch (champ) {
        case ChampReleve::Date:
            return Label1;
        case ChampReleve::Vitesse:
            return Label2;
        case ChampReleve::Direction:
            return Label3;
        case ChampReleve::Secteur:
            return Label6;
        case ChampReleve::Force:
            break;
    }
    return TXTforce;
}

QString Form1::Releve(ChampReleve champ) const { return ChampDuReleve(champ)->Caption(); }

void Form1::SetReleve(ChampReleve champ, const QString& text) { ChampDuReleve(champ)->SetCaption(text); }

void Form1::SetTitreReleve(const QString& text) { Frame1->setTitle(text); }

void Form1::ChoisirDateRecente() { ChoixDate->SetListIndex(CInt(ChoixDate->Tag)); }

// The wind dial on PV: a pale dial in PV's own scale with the arrow of the direction on top.
void Form1::DessinerCadran(ResumeNext& step, const QString& OrientationDegre) {
    constexpr Color Noir = RGB(0, 0, 0);
    constexpr Color Blanc = RGB(255, 255, 255);
    // Clear the dial and keep the direction in its Tag.
    step([&] { PV->Cls(); });
    step([&] { PV->Tag = OrientationDegre; });
    // The radius, 15 units inside half the width, and the centre; the circles are filled solid.
    int16_t Rayon = 0;
    step.Set(Rayon, CIntOf(PV->ScaleWidth() / 2 - 15));
    const double Cx = PV->ScaleWidth() / 2;
    const double Cy = PV->ScaleHeight() / 2;
    step([&] { PV->SetFillStyle(vbFSSolid); });
    // The sand-coloured rim.
    step([&] { PV->SetFillColor(RGB(250, 218, 106)); });
    step([&] { PV->Circle(Cx, Cy, Rayon, Noir); });
    // The pale blue face.
    step([&] { PV->SetFillColor(RGB(192, 255, 255)); });
    step([&] { PV->Circle(Cx, Cy, Rayon * 0.87, Noir); });
    // A white gleam left of the centre, taller than wide.
    step([&] { PV->SetFillColor(Blanc); });
    step([&] { PV->Circle(Cx - Rayon / 3.0, Cy, Rayon * 0.6, Blanc, 1.5); });
    // The arrow of the direction on top; a direction that isn't a number draws none.
    step([&] {
        int16_t Longueur = CInt(Rayon * 0.95);
        TracerFleche(Cx, Cy, CInt(OrientationDegre), *PV, Longueur);
    });
}

// ---- PageFetcher

QString Form1::Recevoir(const QString& Url) {
    wwwsource->SetText(Inet1.OpenURL(Url));
    return wwwsource->Text();
}

void ProvideMainWindow(Forms& forms) {
    forms.Provide<Form1>(&Form1::Load);
    forms.ProvideAs<PollingForm, Form1>();
    forms.ProvideAs<PageFetcher, Form1>();
}

}  // namespace skelda
