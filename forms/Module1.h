// The few values that Skelda's procedures share for the whole run, beside the forms: the table of
// station codes by list line, the wind colours and the news flag. One instance lives in Forms.
#pragma once

#include "Airports.h"
#include "Colour.h"
#include "Variant.h"

#include <array>

namespace skelda {

// The 11 colours of the wind classes, calm (0) to strong (10), as RGB values.
struct PaletteForceTable {
    std::array<Color, 11> colours{};
    // The colour of a class; a class outside 0 to 10 is a "Subscript out of range" (9).
    Color operator()(int classe) const;
};

// Fills the table with its fixed colours (a darker blue for a stronger wind).
void FillPaletteForce(PaletteForceTable& palette);

struct Module1 {
    TableIDAType TableIDA;
    PaletteForceTable PaletteForce;
    Variant NouvellesVues;  // "vu" once the news were shown in this run
};

}  // namespace skelda
