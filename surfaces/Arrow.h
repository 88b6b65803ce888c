// The wind arrow: the one drawing of a wind direction in Skelda, on any surface (the day chart,
// the wind dial, the month view, the printed report).
#pragma once

#include "Surface.h"

#include <cstdint>

namespace skelda {

// Draws a stroke centred on (X, Y), in the surface's own scale, with a filled dot at the end on
// the side the wind comes from: Angle is in compass degrees (0 north, 90 east, clockwise), so for
// a wind from the north the dot stands above the centre.
//
// Longueur is the stroke's length before a factor 0.9; 0 or less selects 140, and the caller's
// variable takes that value too. The stroke is drawn in colour 150 (dark red) and the dot with a
// radius of 30 whatever the length. Leaves the surface with DrawWidth 1, FillStyle 0 (solid) and
// FillColor 150: callers that draw filled shapes after the first arrow rely on that.
//
// Fails with an Overflow (RuntimeError 6) when Angle + 90, or twice that, leaves the 16-bit
// range: any Angle above 16294.
void TracerFleche(double X, double Y, int16_t Angle, Surface& Surface, int16_t& Longueur);

}  // namespace skelda
