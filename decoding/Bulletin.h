// The decoded result of one METAF text, and the decoder that makes it.
//
// This is the chief header of the decoding library: it also brings in the compass and Beaufort
// conversions (Compass.h), so that a caller of the decoder has the words for the wind at hand.
#pragma once

#include "Clock.h"
#include "Compass.h"

#include <QString>

#include <cstdint>

namespace skelda {

// One observation, as the decoder reads it. A plain record returned by value: every field keeps
// its initial value when the decoder couldn't read it, and the caller stores the record all the
// same.
struct Bulletin {
    QString Ida;                // station code: the first group, whole
    QString DateReleve;         // day/month/year, such as 02/11/2004 (month and year from the clock)
    QString HeureReleve;        // hour:minute of the message's own clock, such as 10:00
    QString OrientationDegre;   // wind direction as written (three characters); empty for VRB
    int16_t ForceNoeuds = 0;    // knots, the bare MPS figure, or the negated VRB upper bound
    int16_t ZefirVariable = 0;  // a VRB group was seen: -1 for true, 0 for false
    int16_t Secteur1 = 0;       // first bound in degrees of the shifting wind sector
    int16_t Secteur2 = 0;       // second bound in degrees of the shifting wind sector
    int16_t ForceRafale = 0;    // gust speed in knots
    QString Visibilite;         // visibility phrase
    QString Temps;              // present-weather phrases, each with a leading blank
    QString Nuage;              // sky phrases, each with a leading blank
    int16_t Temperature = 0;    // air temperature in whole degrees Celsius
    int16_t Pression = 0;       // pressure in hectopascals

    bool operator==(const Bulletin& other) const = default;
};

// Decodes one METAF text (blank-separated groups: station, day and time, wind, visibility,
// runway range, weather, sky, temperature, pressure) into a Bulletin.
//
// Takes the text and the clock that gives the current month and year for DateReleve (only the
// day comes from the message). An empty text decodes the built-in sample report of station
// LFTH instead. Never fails and never reports: whatever can't be read leaves its field at the
// initial value. Keeps nothing between calls.
Bulletin DecoderMetaf(const QString& Texte, const Clock& clock);

}  // namespace skelda
