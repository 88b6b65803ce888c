#include "Module1.h"

#include "Failure.h"

namespace skelda {

Color PaletteForceTable::operator()(int classe) const {
    if (classe < 0 || classe > 10) throw RuntimeError(SubscriptOutOfRange);
    return colours[static_cast<size_t>(classe)];
}

void FillPaletteForce(PaletteForceTable& palette) {
    palette.colours = {RGB(227, 240, 255), RGB(193, 222, 255), RGB(153, 201, 255), RGB(111, 179, 255),
                       RGB(67, 156, 255),  RGB(33, 138, 255),  RGB(1, 121, 255),   RGB(0, 106, 226),
                       RGB(0, 90, 192),    RGB(0, 77, 164),    RGB(0, 59, 126)};
}

}  // namespace skelda
