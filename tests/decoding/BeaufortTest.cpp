// Beaufort forces of a speed in knots.
#include "DecodingTestSupport.h"

#include <gtest/gtest.h>

#include <array>

using namespace skelda;

namespace {

struct Edge {
    int16_t knots;
    const char16_t* force;
};

}  // namespace

TEST(Beaufort, EveryRowEdgeGivesItsForce) {
    const std::array<Edge, 25> edges{{
        {0, u"Force 0"},   {1, u"Force 1"},   {3, u"Force 1"},   {4, u"Force 2"},   {6, u"Force 2"},
        {7, u"Force 3"},   {10, u"Force 3"},  {11, u"Force 4"},  {16, u"Force 4"},  {17, u"Force 5"},
        {21, u"Force 5"},  {22, u"Force 6"},  {27, u"Force 6"},  {28, u"Force 7"},  {33, u"Force 7"},
        {34, u"Force 8"},  {40, u"Force 8"},  {41, u"Force 9"},  {47, u"Force 9"},  {48, u"Force 10"},
        {55, u"Force 10"}, {56, u"Force 11"}, {63, u"Force 11"}, {64, u"Force 12"}, {99, u"Force 12"},
    }};
    for (const Edge& edge : edges) EXPECT_EQ(ForceBeaufort(edge.knots), QString::fromUtf16(edge.force)) << edge.knots;
}

TEST(Beaufort, NegatedVariableSpeedIsForceZero) {
    EXPECT_EQ(ForceBeaufort(-3), u"Force 0");
    EXPECT_EQ(ForceBeaufort(-32768), u"Force 0");
}

TEST(Beaufort, HundredKnotsOrMoreIsForceZero) {
    EXPECT_EQ(ForceBeaufort(99), u"Force 12");
    EXPECT_EQ(ForceBeaufort(100), u"Force 0");
    EXPECT_EQ(ForceBeaufort(32767), u"Force 0");
}

TEST(Beaufort, DecodedVariableWindIsForceZero) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z VRB03KT 9999 12/10 Q1016"));
    EXPECT_EQ(ForceBeaufort(b.ForceNoeuds), u"Force 0");
}
