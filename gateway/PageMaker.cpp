#include "PageMaker.h"

#include "Periods.h"
#include "SourceReply.h"
#include "Wording.h"

#include <QList>
#include <QStringList>

namespace skelda {

namespace {

struct Block {
    QString heading;
    QString text;  // with its leading blank
};

bool IsPlainAscii(QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; }

// A heading the reader gives whole: plain ASCII, no "/" (it is cut at the first one), no tag
// characters and no colon of its own.
bool HeadingFollowsTheRules(const QString& heading) {
    if (heading.isEmpty()) return false;
    for (const QChar c : heading)
        if (!IsPlainAscii(c) || c == u'/' || c == u'<' || c == u'>' || c == u':') return false;
    return true;
}

// A text the reader takes as written: see the rules in PageMaker.h.
bool TextFollowsTheRules(const QString& text) {
    if (text.size() < 2 || !text.startsWith(u' ')) return false;
    for (const QChar c : text)
        if (!IsPlainAscii(c) || c == u'<' || c == u'>') return false;
    const qsizetype f = text.indexOf(u'F');
    if (f < 0) return true;
    if (text.indexOf(u'F', f + 1) >= 0 || f < 3 || f != text.size() - 2 || !text.endsWith(u'.')) return false;
    // The two characters before it read as a whole number: "75", " 5" or "-5".
    const QChar tens = text[f - 2];
    const QChar units = text[f - 1];
    return units.isDigit() && (tens.isDigit() || tens == u' ' || tens == u'-');
}

// Only letters, digits and a few marks of a name reach the page, and never two hyphens in a row
// (that would begin a marker).
QString SafeName(const QString& name) {
    QString safe;
    for (const QChar c : name) {
        const bool kept = (c.unicode() < 0x80 && c.isLetterOrNumber()) || QStringView(u" -.,'()").contains(c);
        safe += kept ? c : u' ';
    }
    while (safe.contains(QStringLiteral("--"))) safe.replace(QStringLiteral("--"), QStringLiteral("-"));
    return safe.simplified();
}

QString Layout(const QString& name, const QList<Block>& blocks, const QStringList& pictures, const QString& footer) {
    QString page;
    page.reserve(2048);
    page +=
        QStringLiteral("<html>\n<head>\n<title>Skelda forecast: %1</title>\n</head>\n<body>\n<h1>%1</h1>\n").arg(name);
    page += QStringLiteral("<!--TEXT FORECAST-->\n");
    for (const Block& block : blocks) page += QStringLiteral("<b>%1:</b>%2<p>\n").arg(block.heading, block.text);
    page += QStringLiteral("<!--ENDTEXT FORECAST-->\n<table><tr><td>-- FORECAST --</td>");
    for (qsizetype i = 0; i < pictures.size(); ++i)
        page += QStringLiteral("<td><img src=\"%1\" alt=\"%2\"></td>").arg(pictures[i], blocks[i].heading);
    page += QStringLiteral("</tr></table>\n<!--ENDFC-->\n");
    page += footer;
    page += QStringLiteral("</body>\n</html>\n");
    return page;
}

// A page without a forecast: the headings of the six periods, the first block saying why, the
// others a short word, and four pictures that say "not available".
ForecastPage MessagePage(PageKind kind, const QString& name, const QDateTime& nowUtc, const QTimeZone& zone,
                         const QString& message, const QString& others) {
    QList<Block> blocks;
    for (const Period& period : SixPeriods(nowUtc, zone))
        blocks.append({period.heading, u' ' + (blocks.isEmpty() ? message : others)});
    const QStringList pictures(4, QStringLiteral("notavailable.gif"));
    return {kind, Layout(SafeName(name), blocks, pictures, QString())};
}

}  // namespace

ForecastPage NotAvailablePage(const QDateTime& nowUtc, const PagePlace& place) {
    return MessagePage(PageKind::NotAvailable, place.name, nowUtc, place.zone,
                       QStringLiteral("The forecast is not available. Try again later."),
                       QStringLiteral("Not available."));
}

ForecastPage SourceFailurePage(const QDateTime& nowUtc, const PagePlace& place) {
    return MessagePage(PageKind::SourceFailure, place.name, nowUtc, place.zone,
                       QStringLiteral("The forecast source can't be reached. Try again in a minute."),
                       QStringLiteral("Not available."));
}

ForecastPage UnknownCityPage(const QDateTime& nowUtc) {
    return MessagePage(PageKind::UnknownCity, QStringLiteral("Unknown city"), nowUtc, QTimeZone::utc(),
                       QStringLiteral("This city is unknown to the forecast portal."), QStringLiteral("Unknown city."));
}

ForecastPage MakeForecastPage(const QByteArray& sourceReply, const QDateTime& nowUtc, const PagePlace& place) {
    const std::optional<QList<SourceStep>> steps = ReadSourceReply(sourceReply);
    if (!steps) return NotAvailablePage(nowUtc, place);
    QList<Block> blocks;
    QStringList pictures;
    for (const Period& period : SixPeriods(nowUtc, place.zone)) {
        const std::optional<PeriodWeather> weather = Summarise(*steps, period);
        if (!weather) return NotAvailablePage(nowUtc, place);
        Block block{period.heading, u' ' + BlockText(*weather)};
        if (!HeadingFollowsTheRules(block.heading) || !TextFollowsTheRules(block.text))
            return NotAvailablePage(nowUtc, place);
        blocks.append(block);
        if (pictures.size() < 4) pictures.append(PictureName(*weather));
    }
    const QString footer = QStringLiteral("<p>Data from MET Norway. Made %1 UTC.</p>\n")
                               .arg(nowUtc.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm")));
    return {PageKind::Forecast, Layout(SafeName(place.name), blocks, pictures, footer)};
}

PagePlace PagePlaceOf(const Place& place) {
    QTimeZone zone(place.zone.toLatin1());
    return {place.name, zone.isValid() ? zone : QTimeZone::utc()};
}

bool IsWellFormedCode(QStringView code) {
    if (code.isEmpty() || code.size() > 32) return false;
    for (const QChar c : code)
        if (c.unicode() >= 0x80 || !c.isLetterOrNumber()) return false;
    return true;
}

ForecastPage PageForCode(QStringView code, const QDateTime& nowUtc, const SourceFetch& fetch) {
    if (!IsWellFormedCode(code)) return UnknownCityPage(nowUtc);
    const std::optional<Place> place = FindPlace(code);
    if (!place) return UnknownCityPage(nowUtc);
    const PagePlace pagePlace = PagePlaceOf(*place);
    if (!fetch) return NotAvailablePage(nowUtc, pagePlace);
    const std::optional<QByteArray> reply = fetch(*place);
    if (!reply) return SourceFailurePage(nowUtc, pagePlace);
    return MakeForecastPage(*reply, nowUtc, pagePlace);
}

int CacheSeconds(PageKind kind) { return kind == PageKind::Forecast || kind == PageKind::UnknownCity ? 3600 : 60; }

QByteArray CgiReply(const ForecastPage& page) {
    return "Status: 200 OK\nContent-Type: text/html\nX-Accel-Expires: " + QByteArray::number(CacheSeconds(page.kind)) +
           "\n\n" + page.text.toLatin1();
}

}  // namespace skelda
