// The main window as its poll cycle sees it: the airport list that the cycle walks and locks,
// the panel of the last observation with its wind dial, the clocks, the caption and its Tag, the
// dates, the chart, and the database handles that the window's procedures share.
#pragma once

#include "Dao.h"

#include <QString>

class QWidget;

namespace skelda {

class ListBox;
class ResumeNext;

// The labels of the last observation, in the panel Frame1.
enum class ChampReleve {
    Date,       // Label1: "date - time"
    Vitesse,    // Label2: the speed in knots and km/h
    Direction,  // Label3: the direction in degrees
    Secteur,    // Label6: the compass point
    Force,      // TXTforce: the Beaufort force, and that of the gust
};

class PollWindow {
public:
    virtual ~PollWindow() = default;
    // The window itself: the parent of the cycle's timers and socket, and the context of their
    // events.
    virtual QWidget& Fenetre() = 0;
    // The airport list (List1), one line per active airport.
    virtual ListBox& ListeAeroports() = 0;
    // The window's caption (its title).
    virtual void SetCaption(const QString& text) = 0;
    // The window's Tag: "VISIBLE" once the window was asked for, until the next tick of T.
    virtual QString TagFenetre() const = 0;
    virtual void SetTag(const QString& tag) = 0;
    // The two clocks: the local time (Label5) and the Zulu time (Label11).
    virtual void SetHorloges(const QString& locale, const QString& zulu) = 0;
    // A label of the last observation.
    virtual QString Releve(ChampReleve champ) const = 0;
    virtual void SetReleve(ChampReleve champ, const QString& text) = 0;
    // The title of the panel of the last observation (Frame1).
    virtual void SetTitreReleve(const QString& text) = 0;
    // Draws the wind dial (PV) for a direction in degrees, each statement through Step: a
    // direction that isn't a number draws the dial without its arrow.
    virtual void DessinerCadran(ResumeNext& Step, const QString& OrientationDegre) = 0;
    // The window's database and recordset (BaseReleves, JeuReleves), which its procedures share.
    virtual Database& Base() = 0;
    virtual Recordset& Jeu() = 0;
    // The path of database.mdb beside the program.
    virtual QString DatabasePath() const = 0;
    // Refills the list of dates (RemplirDates), then selects the newest (the list's Tag), which
    // redraws the chart. Database failures reach the caller.
    virtual void RemplirDates() = 0;
    virtual void ChoisirDateRecente() = 0;
    // Redraws the day chart of the selected airport and date.
    virtual void TracerCourbe() = 0;
};

}  // namespace skelda
