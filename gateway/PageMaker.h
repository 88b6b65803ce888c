// The forecast portal's pages, made on demand from MET Norway's Locationforecast by the program
// skelda-forecast-page, which the gateway runs for "GET /forecast/<code>.html".
//
// Every page is read by Skelda's forecast reader, which takes the page apart by position and by
// a handful of markers, and ends Skelda with the run-time error box, or loops for ever, on a page
// that strays. So each page keeps to these rules, each for what the reader does:
//
// - ASCII only, and lines end in a line feed alone. The reader counts characters; after a
//   carriage return the next block's "<b>" sits behind a character that is neither a line feed
//   nor part of a tag, and the tag and its heading are lost.
// - "<!--TEXT FORECAST-->", then each block as "<b>Heading:</b> text<p>", each followed by
//   exactly one line feed, no blank line and no indentation, then "<!--ENDTEXT FORECAST-->". The
//   reader drops one line feed behind a tag: a second one (or a blank) puts the next "<b>" out of
//   its place, which costs the heading, and a character alone in front of the next tag makes it
//   go round the same place for ever.
// - No "/" in a heading: the heading is cut at the first "/" it finds, which must be the one of
//   "</b>".
// - No "<" nor ">" in a block's text: every tag takes all that stands before it, and a ">" before
//   a "<" makes a cut of negative length, a run-time error.
// - A text of at least two characters (with its leading blank): with one, "<p>" stands second,
//   and the reader loops for ever.
// - One temperature per block, at its end, as two characters and a capital F ("High 75F."). The
//   reader takes the two characters before each F as a number in Fahrenheit and writes Celsius
//   behind it, dropping all that stood before an earlier F: a second temperature would eat the
//   sentences, and two characters that aren't a number ("Fog", "Freezing", "For", "Friday") end
//   Skelda. So no other capital F anywhere in a block's text: "fog", "freezing rain" in lower
//   case, weekday names only in headings. From -9F to 9F the number still reads ("Low -5F.",
//   "High 5F."); below and above it is said in words (see TemperatureSentence).
// - Six blocks, always: the forecast window keeps a seventh's text and reads it again, and a
//   window still open keeps the old text of any block a shorter page leaves out.
// - "-- FORECAST --" after the text, then four picture names with at least two characters before
//   ".gif" (the reader cuts two characters and the extension, and a cut that starts before the
//   table is a run-time error), then "<!--ENDFC-->", all within the first 32,767 characters (the
//   reader holds that position in 16 bits).
//
// MakeForecastPage builds its blocks from a fixed vocabulary and checks each against these rules
// before the page leaves; a block that strays gives the "not available" page instead.
#pragma once

#include "Places.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTimeZone>

#include <functional>
#include <optional>

namespace skelda {

// What a page says, which decides how long the gateway keeps it.
enum class PageKind {
    Forecast,       // a forecast from the source: an hour
    UnknownCity,    // no place has this code: an hour
    NotAvailable,   // no source, or the source's reply was unusable: a minute
    SourceFailure,  // the source couldn't be reached: a minute
};

struct ForecastPage {
    PageKind kind;
    QString text;
};

// The airport or city a page is for: its name (ASCII) and its time zone.
struct PagePlace {
    QString name;
    QTimeZone zone;
};

// The page of SourceReply, a reply of Locationforecast 2.0 compact for Place, made at NowUtc: six
// blocks from the hour under way in Place's zone. When the reply isn't the expected JSON, is
// truncated, doesn't cover the six periods, or holds a value out of range or leaves one out (a
// temperature of 1,000 degrees, a missing wind), the "not available" page. Never fails.
ForecastPage MakeForecastPage(const QByteArray& sourceReply, const QDateTime& nowUtc, const PagePlace& place);

// The pages without a forecast, in the same layout, their blocks saying why: no source
// configured (NotAvailable), the source not reached (SourceFailure), a code no place has.
ForecastPage NotAvailablePage(const QDateTime& nowUtc, const PagePlace& place);
ForecastPage SourceFailurePage(const QDateTime& nowUtc, const PagePlace& place);
ForecastPage UnknownCityPage(const QDateTime& nowUtc);

// The place of a page: the table's name and its IANA zone (UTC if the system doesn't know it).
PagePlace PagePlaceOf(const Place& place);

// True for a code of one to 32 ASCII letters and digits, the only ones a place can have.
bool IsWellFormedCode(QStringView code);

// Asks the source for the forecast of a place; nullopt when it can't be reached or doesn't answer
// with a forecast.
using SourceFetch = std::function<std::optional<QByteArray>(const Place&)>;

// The page for Code at NowUtc. An ill-formed or unknown code gives the unknown city page, and
// Fetch isn't called; no Fetch (no source configured) gives the "not available" page.
ForecastPage PageForCode(QStringView code, const QDateTime& nowUtc, const SourceFetch& fetch);

// How long the gateway keeps a page, in seconds: an hour for a forecast or an unknown city, a
// minute for the others, so that a source that comes back is asked again soon.
int CacheSeconds(PageKind kind);

// The page as a CGI reply: "Status: 200 OK", "Content-Type: text/html", "X-Accel-Expires: " and
// the seconds to keep it, a blank line, the page.
QByteArray CgiReply(const ForecastPage& page);

}  // namespace skelda
