// StatistiqueMensuelle: the window that shows one month of one airport. A plot over 31 day cells
// with wind bars, pressure and temperature curves and a wind arrow per day, the text of the day
// under the pointer, and the same month printed on one page.
//
// The form is loaded from the tray's menu and lives until its menu's "Fermer" or its close box.
// Every control carries its design name as its objectName; array elements are named "Jour(12)".
// The drawing is AfficherMois (MonthView.cpp), the printing MenuStatImprimer_Click
// (MonthReport.cpp); this file's companion StatistiqueMensuelle.cpp holds the controls and the
// small handlers.
#pragma once

#include "Controls.h"
#include "Dao.h"
#include "FormParts.h"
#include "MenuWindows.h"
#include "StatisticsControls.h"

#include <QMainWindow>

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

class QAction;
class QMenu;

namespace skelda {

class Forms;
class RunTimeGuard;

class StatistiqueMensuelle : public QMainWindow, public MonthWindow {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "statistics";

    // Builds the form with all its controls at their design places; nothing is read yet.
    explicit StatistiqueMensuelle(Forms& forms);
    ~StatistiqueMensuelle() override;

    // Loading the form: builds it and runs Form_Load, as the first touch of the form does. This is
    // the maker that the program gives to Forms::Provide. A failure of Form_Load reaches the
    // caller (a year other than 2003 to 2005, a missing database), and the half-loaded form goes.
    static StatistiqueMensuelle* Load(Forms& forms) { return LoadForm<StatistiqueMensuelle>(forms); }

    // ---- The line controls and the frame drawn above Picture1, in twips.
    LineControl Lverticale;
    LineControl Lhorizontale;
    LineControl Line2;
    LineControl Line3;
    std::array<LineControl, 2> Line1{};
    QRect Shape1;  // in twips, relative to Picture1

    // ---- Form-level values.
    int16_t StatPrete = 0;  // -1 from the end of Form_Load until Form_Unload
    // The month's database and rows, open only within one call of AfficherMois.
    Database BaseMois;
    Recordset JeuMois;

    // ---- Procedures of the form.
    // The wind colours, the day numbers, the airports, today's month and year, the wind scale,
    // then StatPrete. No protection: a failure reaches the caller.
    void Form_Load();
    // Rebuilds the month view from the database: the grid, the day texts, the bars, the curves
    // and the arrows. Every statement is skipped on failure; does nothing until StatPrete.
    void AfficherMois();
    // Asks, then prints the month on one page of the printer; any failure drops the whole page
    // with the box "Impossible d'imprimer ...".
    void MenuStatImprimer_Click();
    void MenuStatFermer_Click();
    void Aeroports_Click();
    void Mois_Click();
    void CheckCourbe_Click(int Index);
    void Jour_MouseMove(int Index, int Button, int Shift, double X, double Y);
    void Form_MouseMove(int Button, int Shift, double X, double Y);
    void Form_Unload(int& Cancel);
    // The path of database.mdb beside the program.
    QString DatabasePath() const;
    // The text of the month's query for the selections of the three lists. With no airport
    // selected it fails: "Subscript out of range" (9).
    QString MonthQuery() const;

    // Where AfficherMois draws from now on: Picture1 from the start, or a surface through which
    // a test watches the drawing. The surface must outlive the form or the next call.
    void DrawOn(Surface& surface) { drawingSurface_ = &surface; }
    Surface& DrawingSurface() const { return *drawingSurface_; }
    // Pass is called at each test of AfficherMois' row loop, before the test. Only tests give one:
    // they watch a loop that the program never leaves (no database, no airport) and end it by
    // throwing.
    void WatchRowLoop(std::function<void()> Pass) { passageDeBoucle_ = std::move(Pass); }

protected:
    void closeEvent(QCloseEvent* event) override;  // Form_Unload
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // ---- Controls, under their design names.
    SurfaceWidget* Client = nullptr;  // the form's own surface, under the menu bar
    Label* Label1 = nullptr;
    ListBox* Aeroports = nullptr;
    ListBox* Annee = nullptr;  // objectName "Année"
    Label* Label2 = nullptr;
    ListBox* Mois = nullptr;
    std::map<int, CheckBox*> CheckCourbe;  // 1 pressure, 2 temperature, 3 wind
    std::map<int, Label*> TxtTemp;         // 0 at design, 5 to 50 loaded by Form_Load
    std::array<Label*, 4> TxtDeg{};
    PlotPicture* Picture1 = nullptr;
    std::array<Label*, 32> Jour{};  // 1 to 31; 0 stays empty
    Label* Bulletin = nullptr;      // the pop-up text of the day under the pointer
    QMenu* MenuStat = nullptr;      // "Menu"
    QAction* MenuStatImprimer = nullptr;
    QAction* MenuStatFermer = nullptr;

    RunTimeGuard& guard() const;
    void BuildControls();
    void BuildMenu();
    void WireEvents();
    // The day cell of a day of the month; "Subscript out of range" (9) outside 1 to 31.
    Label& JourCell(int index) const;
    Forms& forms_;
    Surface* drawingSurface_ = nullptr;
    std::function<void()> passageDeBoucle_;
};

// Tells Forms how the monthly window is made (StatistiqueMensuelle::Load), also as the tray's
// MonthWindow.
void ProvideMonthWindow(Forms& forms);

}  // namespace skelda
