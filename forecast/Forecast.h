// The forecast and the news: the two procedures that fetch a page with the main window's
// page-fetch control (through PageFetcher) and show it, the one taken apart, the other as it
// comes.
#pragma once

#include "ForecastParser.h"

#include <QString>

namespace skelda {

class Forms;

// Fetches "http://<forecast portal>/forecast/<Code>.html" through Form1's Inet1 into its
// wwwsource, blocking the window meanwhile, and pours the page's text into forecastform, shown
// before the first block is read. A page without "<!--TEXT FORECAST-->" gives the box "Unable
// to retrieve forecast!!!" and the same words with the code in the log, and no window. Nothing
// is handled: a failed fetch or a page that breaks the parser (see ForecastParser.h) reaches the
// caller. Passe watches the passes of the tag loop (tests end the endless ones with it).
void ChargerPrevision(QString& Code, Forms& forms, const PasseDeBoucle& Passe = {});

// The part of ChargerPrevision behind the fetch: Page, as fetched for the city Code, taken apart
// into forecastform, or the box and the log line when it has no forecast text.
void AfficherPrevision(const QString& Page, const QString& Code, Forms& forms, const PasseDeBoucle& Passe = {});

// The news of the run: the first call fetches "http://<news server>/Skelda/promo.html" into
// Form1's wwwsource (blocking), shows the page as plain text in the window promo, and only then
// sets Module1's NouvellesVues to "vu"; every later call returns at once. Inutile isn't used.
// A failed fetch reaches the caller with the flag still empty, so a later call tries again.
void AfficherNouvelles(const QString& Inutile, Forms& forms);

// The address of a page on a server: "http://host/path", with ":port" after the host when the
// port isn't 80.
QString AdressePage(const QString& host, quint16 port, const QString& path);

}  // namespace skelda
