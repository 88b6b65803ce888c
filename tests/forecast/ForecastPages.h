// Forecast pages made for the tests, in the portal's one layout: the text forecast between its
// markers, one block per heading, then the table of four pictures.
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace skelda::test {

using Blocs = QList<QPair<QString, QString>>;  // heading (with its colon), text

// What a test's watcher of the reader's tag loop throws to end a loop that would never end.
struct BoucleSansFin : std::runtime_error {
    BoucleSansFin() : std::runtime_error("the tag loop went on") {}
};

// The six blocks of a usual page.
inline Blocs SixBlocs() {
    return {{QStringLiteral("Today:"), QStringLiteral(" Sunny. High 75F.")},
            {QStringLiteral("Tonight:"), QStringLiteral(" Clear. Low 54F.")},
            {QStringLiteral("Wednesday:"), QStringLiteral(" Showers. High 62F.")},
            {QStringLiteral("Wednesday night:"), QStringLiteral(" Cloudy. Low 48F.")},
            {QStringLiteral("Thursday:"), QStringLiteral(" Windy. High 59F.")},
            {QStringLiteral("Thursday night:"), QStringLiteral(" Rain. Low 41F.")}};
}

// The text part: the start marker, each block as "<b>heading</b>text<p>" and the line end, the
// end marker.
inline QString TextePrevision(const Blocs& blocs, const QString& finDeLigne = QStringLiteral("\n")) {
    QString texte = QStringLiteral("<!--TEXT FORECAST-->") + finDeLigne;
    for (const auto& [titre, corps] : blocs) texte += QStringLiteral("<b>%1</b>%2<p>").arg(titre, corps) + finDeLigne;
    return texte + QStringLiteral("<!--ENDTEXT FORECAST-->");
}

// The table of pictures, with these names under /icons/.
inline QString TableImages(const QStringList& noms = {QStringLiteral("28"), QStringLiteral("11"), QStringLiteral("30"),
                                                      QStringLiteral("12")}) {
    QString table = QStringLiteral("<table><tr><td>-- FORECAST --</td>");
    for (const QString& nom : noms) table += QStringLiteral("<td><img src=\"/icons/%1.gif\"></td>").arg(nom);
    return table + QStringLiteral("</tr></table><!--ENDFC-->");
}

// A whole page around a text part and a table.
inline QString Page(const QString& texte, const QString& table = TableImages()) {
    return QStringLiteral("<html><head><title>Local forecast</title></head><body>\n") + texte + u'\n' + table +
           QStringLiteral("\n</body></html>\n");
}

inline QString PageDe(const Blocs& blocs) { return Page(TextePrevision(blocs)); }

}  // namespace skelda::test
