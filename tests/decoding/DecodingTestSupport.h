// Helpers of the decoder's tests: a decode on a fixed day, and readable failure messages.
#pragma once

#include "Bulletin.h"
#include "Clock.h"
#include "Printing.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <ostream>

namespace skelda {

inline void PrintTo(const Bulletin& b, std::ostream* os) {
    *os << "{Ida=\"" << b.Ida.toStdString() << "\" DateReleve=\"" << b.DateReleve.toStdString() << "\" HeureReleve=\""
        << b.HeureReleve.toStdString() << "\" OrientationDegre=\"" << b.OrientationDegre.toStdString()
        << "\" ForceNoeuds=" << b.ForceNoeuds << " ZefirVariable=" << b.ZefirVariable << " Secteur1=" << b.Secteur1
        << " Secteur2=" << b.Secteur2 << " ForceRafale=" << b.ForceRafale << " Visibilite=\""
        << b.Visibilite.toStdString() << "\" Temps=\"" << b.Temps.toStdString() << "\" Nuage=\""
        << b.Nuage.toStdString() << "\" Temperature=" << b.Temperature << " Pression=" << b.Pression << "}";
}

// Decodes Text as on Today (by default a day of November 2004).
inline Bulletin Decode(const QString& text, QDate today = QDate(2004, 11, 15)) {
    const FixedClock clock(QDateTime(today, QTime(12, 0)));
    return DecoderMetaf(text, clock);
}

// The record of a text that only names its station.
inline Bulletin StationOnly(const QString& ida) {
    Bulletin b;
    b.Ida = ida;
    return b;
}

}  // namespace skelda
