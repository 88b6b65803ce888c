// forecastform: the passive window that shows one forecast. The name of the place, six blocks of
// heading and text in three columns and two rows, four empty picture places, and a button that
// closes it. Everything in it is written from outside, by ChargerPrevision.
#pragma once

#include "Controls.h"
#include "ForecastWindow.h"

#include <QFrame>
#include <QPushButton>
#include <QWidget>

#include <array>
#include <string_view>

namespace skelda {

class Forms;

class ForecastForm : public QWidget, public ForecastWindow {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "forecast";

    // Builds the form with its controls at their design places, all captions blank. The platform
    // chooses where the window goes; it isn't shown until asked.
    explicit ForecastForm(Forms& forms, QWidget* parent = nullptr);

    // Writes block Numero (0 to 5) of the grid: its text Corps (Label1..Label6), then its heading
    // Titre (titre1..titre6).
    void EcrireBloc(int Numero, const QString& Titre, const QString& Corps);

    // Unloads the form: what was written goes with it.
    void Command1_Click();

    // ForecastWindow
    void SetNomvilleaeroport(const QString& text) override;
    void ChargerPrevision(QString& Code) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // ---- Controls, under their design names.
    Label* Nomvilleaeroport = nullptr;
    Label* titre1 = nullptr;
    Label* titre2 = nullptr;
    Label* titre3 = nullptr;
    Label* titre4 = nullptr;
    Label* titre5 = nullptr;
    Label* titre6 = nullptr;
    Label* Label1 = nullptr;
    Label* Label2 = nullptr;
    Label* Label3 = nullptr;
    Label* Label4 = nullptr;
    Label* Label5 = nullptr;
    Label* Label6 = nullptr;
    QFrame* temp1 = nullptr;  // the places of the forecast pictures: nothing is ever drawn there
    QFrame* temp2 = nullptr;
    QFrame* temp3 = nullptr;
    QFrame* temp4 = nullptr;
    QPushButton* Command1 = nullptr;  // "Close"

    void BuildControls();
    Forms& forms_;
    std::array<Label*, 6> titres_{};
    std::array<Label*, 6> textes_{};
};

// Tells Forms how the forecast's windows are made: forecastform, also as the main window's
// ForecastWindow, and promo.
void ProvideForecastForms(Forms& forms);

}  // namespace skelda
