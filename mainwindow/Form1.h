// Form1: Skelda's main window, and the owner of the acquisition machinery (its poll cycle, with
// the timers and the socket). It loads at start, stays loaded for the whole run, and is only ever
// hidden and shown.
//
// The form is itself a drawing surface (the day chart is drawn on it, in twips). Every control
// carries its design name as its objectName; array elements are named "FKNT(12)".
#pragma once

#include "Controls.h"
#include "Dao.h"
#include "FormParts.h"
#include "HiddenTextBox.h"
#include "Images.h"
#include "Inet.h"
#include "Module1.h"
#include "PageFetcher.h"
#include "PollWindow.h"
#include "PollingForm.h"
#include "SessionEnd.h"
#include "SurfaceWidget.h"

#include <QGroupBox>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>

namespace skelda {

class Forms;
class PollCycle;
class RunTimeGuard;
struct Form1Builder;

class Form1 : public SurfaceWidget, public PollingForm, public PollWindow, public PageFetcher {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "mainwindow";

    // Builds the form with all its controls at their design places, and its poll cycle; nothing
    // is read yet.
    explicit Form1(Forms& forms);
    ~Form1() override;

    // Loading the form: builds it and runs Form_Load, as the first touch of Form1 does. This is
    // the maker that the program gives to Forms::Provide. A failure of Form_Load (a missing
    // database, say) reaches the caller, and the half-loaded form is dropped.
    static Form1* Load(Forms& forms) { return LoadForm<Form1>(forms); }

    Forms& forms() const { return forms_; }

    // ---- The line controls of the chart and its image list, in twips.
    LineControl MaxFKNT;
    LineControl Line1015;
    std::map<int, LineControl> Line1;  // indices 0 to 8, 11, 16
    std::array<LineControl, 48> Vline{};
    ImageList ImageList2;

    // The poll cycle, which owns the timers T and TimerWinsock and the socket W (children of the
    // form under those names) and the counters kept between their events.
    PollCycle& Cycle() const { return *cycle_; }

    // ---- Form-level values.
    QString Tag;                 // "VISIBLE", "VU", "MASQUE", or "" before the window was first asked for
    int16_t ChargementFini = 0;  // -1 once Form_Load has filled both lists
    Database BaseReleves;
    Recordset JeuReleves;
    int16_t DerniereColonne = 0;  // kept between calls of Form_MouseMove
    int16_t DernierIndex = 0;     // kept between calls of FKNT_MouseMove

    // Where TracerCourbe draws its chart from now on: the form itself from the start, or a surface
    // through which a test watches the drawing. The surface must outlive the form or the next call.
    void DrawOn(Surface& surface) { drawingSurface_ = &surface; }
    Surface& DrawingSurface() const { return *drawingSurface_; }

    // ---- Procedures of the form.
    // The start of the whole system: the wind colours, "Skelda Starting" in the log, the window
    // in the bottom right corner, the pressure line, the airports, the dates, and the first chart.
    // No protection: a missing database or a failing airport list reaches the caller.
    void Form_Load();
    // Refills ChoixDate with the days that have observations, oldest first, and leaves the index
    // of the newest in its Tag ("0" with none); an empty table gives today's date alone.
    // Database failures reach the caller.
    void RemplirDates() override;
    // Redraws the day chart of the airport selected in List1 on the day of ChoixDate, from the
    // database, with the day's bulletin and the airport's picture. Does nothing until Form_Load
    // has filled both lists. No handling: a failure stops the drawing where it stands.
    void TracerCourbe() override;
    // Shows the picture of airport Idx (its idx as text) from Images/ under the current folder,
    // or the common picture with a log line. A missing common picture or an unreadable bitmap
    // reaches the caller.
    void AfficherImage(const QString& Idx);
    // The readout of the half-hour slot under the pointer, X in twips; FKNT_MouseMove is the same
    // readout on a slot label's own event, with its own wording.
    void Form_MouseMove(int Button, int Shift, double X, double Y);
    void FKNT_MouseMove(int Index, int Button, int Shift, double X, double Y);
    // The right button pops up the tray's menu.
    void Form_MouseDown(int Button, int Shift, double X, double Y);
    // Cancel comes back 1 whatever UnloadMode says: the window only hides.
    void Form_QueryUnload(int& Cancel, int UnloadMode);
    // The end of the desktop session asks the form to close, as a shutdown of the system does
    // (UnloadMode 2): the window hides, and the end is refused wherever the session manager
    // lets the program refuse it (Fin allows interaction). A forced end can't be refused.
    void FinDeSession(SessionEnd& Fin);
    void ChoixDate_Click();
    void List1_Click();
    void List1_MouseMove(int Button, int Shift, double X, double Y);
    // The left button draws the chart. The right button fetches the forecast of the selected
    // airport: T stops for the blocking fetch, the airport is looked up by its idx, the forecast
    // window gets "city - airport", and the portal's page is fetched (ChargerPrevision), or the
    // box "No forecast code for city" comes for an airport without a code; then T starts again.
    // Nothing is handled: a failure reaches the caller with T off and the database open.
    void List1_MouseDown(int Button, int Shift, double X, double Y);
    // Fetches the forecast of the code "test". Nothing calls it.
    void TestPrevision();
    // The caption of the window (its title).
    QString Caption() const { return windowTitle(); }
    void SetCaption(const QString& text) override { setWindowTitle(text); }
    // The path of database.mdb beside the program.
    QString DatabasePath() const override;

    // What the other forms ask (PollingForm): T, the refill of List1, a poll, the Tag.
    bool TEnabled() const override;
    void SetTEnabled(bool enabled) override;
    void ChargerAeroportsList1() override;
    void Connect() override;
    QString TagFenetre() const override { return Tag; }
    void SetTag(const QString& tag) override { Tag = tag; }

    // What the poll cycle asks (PollWindow).
    QWidget& Fenetre() override { return *this; }
    ListBox& ListeAeroports() override { return *List1; }
    void SetHorloges(const QString& locale, const QString& zulu) override;
    QString Releve(ChampReleve champ) const override;
    void SetReleve(ChampReleve champ, const QString& text) override;
    void SetTitreReleve(const QString& text) override;
    void DessinerCadran(ResumeNext& Step, const QString& OrientationDegre) override;
    Database& Base() override { return BaseReleves; }
    Recordset& Jeu() override { return JeuReleves; }
    void ChoisirDateRecente() override;

    // What the forecast and the news ask (PageFetcher): a page through Inet1 into wwwsource.
    QString Recevoir(const QString& Url) override;

protected:
    void closeEvent(QCloseEvent* event) override;  // Form_QueryUnload
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // ---- Controls, under their design names.
    QGroupBox* Frame4 = nullptr;  // "Aiarport"
    ListBox* List1 = nullptr;
    ComboBox* ChoixDate = nullptr;
    QGroupBox* Frame1 = nullptr;  // "Wind & &Temp."
    Label* TXTtitre = nullptr;
    QGroupBox* LeBulletin = nullptr;  // "Prévisions :"
    Label* TXTbulletin = nullptr;
    Label* Label1 = nullptr;
    Label* Label2 = nullptr;
    Label* Label3 = nullptr;
    Label* Label6 = nullptr;
    Label* TXTforce = nullptr;
    SurfaceWidget* PV = nullptr;
    std::array<Label*, 4> TxtDir{};
    Label* Label4 = nullptr;
    Label* Label5 = nullptr;
    Label* Label7 = nullptr;
    Label* Label11 = nullptr;
    Label* Label12 = nullptr;
    std::array<Label*, 48> FKNT{};
    std::array<Label*, 24> Label8{};
    std::array<Label*, 11> Label9{};
    std::array<Label*, 3> Label10{};
    std::array<Image*, 24> ICO{};
    PictureBox* Picture1 = nullptr;
    QWidget* Shape1 = nullptr;
    QWidget* Shape2 = nullptr;
    HiddenTextBox* wwwsource = nullptr;  // the text of a fetched page, never shown
    Inet Inet1;

    RunTimeGuard& guard() const;
    void BuildControls();
    void WireEvents();
    // The builder of the controls (Form1Controls.cpp) places them.
    friend struct Form1Builder;
    Label* ChampDuReleve(ChampReleve champ) const;
    Forms& forms_;
    Surface* drawingSurface_ = this;
    std::unique_ptr<PollCycle> cycle_;
};

// Tells Forms how the main window is made (Form1::Load), also as the PollingForm of the other
// forms and the PageFetcher of the forecast and the news.
void ProvideMainWindow(Forms& forms);

}  // namespace skelda
