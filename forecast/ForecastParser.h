// The taking apart of a forecast portal's page. The portal has no feed: its pages are ordinary
// web pages, read by position and by a handful of fixed markers. The parser knows exactly one
// layout, and a page of another layout ends in a failure or an empty window; that fragility is
// kept on purpose, as the markers are:
//
//     <!--TEXT FORECAST-->
//     <b>Today:</b> Sunny. High 75F.<p>\n        one block, up to six of them shown
//     ...
//     <!--ENDTEXT FORECAST-->
//     ... -- FORECAST -- ... four names ending in ".gif" ... <!--ENDFC-->
//
// All searches are exact and case-sensitive, positions count from 1. Failures are RuntimeError
// with the run time's numbers: 5 for a cut from position 0 or of a negative length, 6 for the
// picture table's end beyond 32767, 13 for a temperature that isn't a number ("Fog"), 9 for
// more than 16 blocks.
#pragma once

#include <QString>

#include <functional>

namespace skelda {

// Where the text of a page goes, in the order in which the parser produces it.
class AffichagePrevision {
public:
    virtual ~AffichagePrevision() = default;
    // The window is loaded and shown, before the first block is read.
    virtual void Montrer() = 0;
    // Block Numero (0 to 5) is read: its heading and its text, temperatures converted.
    virtual void Bloc(int Numero, const QString& Titre, const QString& Corps) = 0;
};

// Called at every pass of the tag loop. Some pages make that loop run for ever (a character
// other than a line feed right after a tag, at the second position); a watcher can end it by
// throwing.
using PasseDeBoucle = std::function<void()>;

// The picture names of the table between "-- FORECAST --" and "<!--ENDFC-->" of Page: four
// times, the two characters before ".gif" and the extension, appended to Liste with a ",".
// Fails (5) when either marker is missing or fewer than four ".gif" stand there, (6) when the
// table ends beyond position 32767.
void ExtrairePrevision(const QString& Page, QString& Liste);

// The text part of ChargerPrevision on a fetched Page: gives false, touching nothing, when the
// page has no "<!--TEXT FORECAST-->". Otherwise scans the picture table (and drops what it
// found; a page on which that scan fails doesn't get further), has the window shown, then walks
// the tags from the start marker and gives each block to Ecran as its "<p>" closes it, up to the
// end marker. Gives true when the walk reached its end.
bool LirePrevision(const QString& Page, AffichagePrevision& Ecran, const PasseDeBoucle& Passe = {});

// A block's text with its Fahrenheit temperatures given in Celsius too: "75F" becomes
// "75F(24)c". Each further conversion drops what stood before the previous F, so only the last
// temperature keeps its text. An F within the first three characters of what is left ends the
// conversions; two characters before an F that aren't a number fail with (13).
QString ConvertirTemperatures(const QString& Corps);

}  // namespace skelda
