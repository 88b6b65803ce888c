// Colours as the run time writes them: one number, red + 256 x green + 65536 x blue.
#pragma once

#include <cstdint>

namespace skelda {

using Color = int32_t;

// The colour of red, green and blue parts; a part above 255 counts as 255, one below 0 as 0.
constexpr Color RGB(int red, int green, int blue) {
    auto clamp = [](int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); };
    return clamp(red) + 256 * clamp(green) + 65536 * clamp(blue);
}
constexpr int RedOf(Color c) { return c & 0xff; }
constexpr int GreenOf(Color c) { return (c >> 8) & 0xff; }
constexpr int BlueOf(Color c) { return (c >> 16) & 0xff; }

}  // namespace skelda
