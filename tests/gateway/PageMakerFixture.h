// What the page maker's tests share: the forecast's own reader run on a page with a limit on its
// passes, the source replies kept beside the tests, and a reply made for any time.
#pragma once

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <ostream>
#include <stdexcept>

#include "Failure.h"
#include "ForecastParser.h"
#include "PageMaker.h"
#include "Places.h"
#include "Printing.h"
#include "forecast/ForecastPages.h"

namespace skelda::test {

// What Skelda's forecast reader made of a page: the headings and texts it gave the window, in
// order, or the run-time error it ended in, or that it went round for ever.
struct Lu {
    bool lu = false;       // the page had its start marker, and the reader walked it to the end
    int erreur = 0;        // the run-time error's number, 0 when none
    bool sansFin = false;  // the tag loop passed its limit
    QStringList titres;
    QStringList textes;
};

// A page of six blocks takes a few dozen passes; ten thousand is a loop that doesn't end.
inline Lu LireAvecLeLecteur(const QString& page) {
    struct Fenetre : AffichagePrevision {
        explicit Fenetre(Lu& lu) : lu(lu) {}
        void Montrer() override {}
        void Bloc(int, const QString& Titre, const QString& Corps) override {
            lu.titres << Titre;
            lu.textes << Corps;
        }
        Lu& lu;
    };
    Lu lu;
    Fenetre fenetre(lu);
    int passes = 0;
    try {
        lu.lu = LirePrevision(page, fenetre, [&passes] {
            if (++passes > 10000) throw BoucleSansFin();
        });
    } catch (const RuntimeError& e) {
        lu.erreur = e.Number();
    } catch (const BoucleSansFin&) {
        lu.sansFin = true;
    }
    return lu;
}

// A reply kept in tests/gateway/replies/.
inline QByteArray Reponse(const QString& nom) {
    QFile file(QStringLiteral(SKELDA_REPLIES_DIR "/") + nom + QStringLiteral(".json"));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no reply " + nom.toStdString());
    return file.readAll();
}

inline QDateTime Utc(const char* iso) {
    QDateTime time = QDateTime::fromString(QString::fromLatin1(iso), Qt::ISODate);
    return time.toUTC();
}

inline PagePlace LieuDe(const char* code) {
    const std::optional<Place> place = FindPlace(QString::fromLatin1(code));
    if (!place) throw std::runtime_error(std::string("no place ") + code);
    return PagePlaceOf(*place);
}

// One step of a reply made by a test.
struct Pas {
    double temperature = 20;
    double vent = 3;
    double direction = 270;
    double nuages = 50;
    QString symbole = QStringLiteral("partlycloudy_day");
    double pluie = 0;
};

// A reply in the source's format: hourly steps from Debut for Heures hours, then six-hourly steps
// at 00, 06, 12 and 18 UTC up to nine days, each the step Valeurs gives for its time.
template <class Valeurs>
QByteArray ReponseFaite(const QDateTime& debut, int heures, Valeurs valeurs) {
    QJsonArray series;
    QDateTime t = debut;
    const QDateTime fin = debut.addDays(9);
    for (int i = 0; t < fin; ++i) {
        const Pas pas = valeurs(t);
        const QJsonObject instant{
            {QStringLiteral("details"), QJsonObject{{QStringLiteral("air_temperature"), pas.temperature},
                                                    {QStringLiteral("wind_speed"), pas.vent},
                                                    {QStringLiteral("wind_from_direction"), pas.direction},
                                                    {QStringLiteral("cloud_area_fraction"), pas.nuages}}}};
        const auto suite = [&pas](double facteur) {
            return QJsonObject{{QStringLiteral("summary"), QJsonObject{{QStringLiteral("symbol_code"), pas.symbole}}},
                               {QStringLiteral("details"),
                                QJsonObject{{QStringLiteral("precipitation_amount"), pas.pluie * facteur}}}};
        };
        QJsonObject data{{QStringLiteral("instant"), instant}, {QStringLiteral("next_6_hours"), suite(6)}};
        const bool horaire = i < heures;
        if (horaire) data.insert(QStringLiteral("next_1_hours"), suite(1));
        series.append(
            QJsonObject{{QStringLiteral("time"), t.toUTC().toString(Qt::ISODate)}, {QStringLiteral("data"), data}});
        if (horaire && i + 1 < heures) {
            t = t.addSecs(3600);
        } else {
            t = t.addSecs(3600);
            while (t.time().hour() % 6 != 0) t = t.addSecs(3600);
        }
    }
    const QJsonObject reply{{QStringLiteral("type"), QStringLiteral("Feature")},
                            {QStringLiteral("properties"), QJsonObject{{QStringLiteral("timeseries"), series}}}};
    return QJsonDocument(reply).toJson(QJsonDocument::Compact);
}

// The same steps all through.
inline QByteArray ReponseReguliere(const QDateTime& debut, const Pas& pas = {}) {
    return ReponseFaite(debut, 60, [pas](const QDateTime&) { return pas; });
}

}  // namespace skelda::test
