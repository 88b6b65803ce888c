#include "Colour.h"

#include <gtest/gtest.h>

using namespace skelda;

TEST(Colour, PartsAreRedGreenBlueFromTheLowByte) {
    EXPECT_EQ(RGB(150, 0, 0), 150);
    EXPECT_EQ(RGB(0, 0, 255), 255 * 65536);
    EXPECT_EQ(RGB(192, 192, 192), 192 + 192 * 256 + 192 * 65536);
    EXPECT_EQ(RedOf(RGB(1, 2, 3)), 1);
    EXPECT_EQ(GreenOf(RGB(1, 2, 3)), 2);
    EXPECT_EQ(BlueOf(RGB(1, 2, 3)), 3);
}

TEST(Colour, APartAbove255CountsAs255) {
    // The warmer edge of the newest pressure dots is written with a red part of 1230.
    EXPECT_EQ(RGB(1230, 230, 170), RGB(255, 230, 170));
    EXPECT_EQ(RGB(256, 300, 1000), RGB(255, 255, 255));
}
