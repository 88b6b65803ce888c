#include <gtest/gtest.h>

#include "Failure.h"
#include "RecordingSurface.h"

using namespace skelda;

namespace {

TEST(RecordingSurface, RecordsEachDrawingWithItsArgumentsAndTheStateOfTheMoment) {
    RecordingSurface surface;
    surface.SetDrawWidth(1);
    surface.Line(1000, 1063, 1000, 937, 150);
    surface.SetFillStyle(vbFSSolid);
    surface.SetFillColor(150);
    surface.Circle(1000, 937, 30);

    const auto lines = surface.Lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_DOUBLE_EQ(lines[0].x1, 1000);
    EXPECT_DOUBLE_EQ(lines[0].y1, 1063);
    EXPECT_DOUBLE_EQ(lines[0].x2, 1000);
    EXPECT_DOUBLE_EQ(lines[0].y2, 937);
    EXPECT_EQ(lines[0].color, std::optional<Color>(150));
    EXPECT_EQ(lines[0].fillStyle, vbFSTransparent);

    const auto circles = surface.Circles();
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_DOUBLE_EQ(circles[0].radius, 30);
    EXPECT_DOUBLE_EQ(circles[0].aspect, 1);
    EXPECT_FALSE(circles[0].color.has_value());
    EXPECT_EQ(circles[0].EdgeColor(), 0);
    EXPECT_EQ(circles[0].fillStyle, vbFSSolid);
    EXPECT_EQ(circles[0].fillColor, 150);
    EXPECT_TRUE(circles[0].Filled());
    EXPECT_EQ(circles[0].drawWidth, 1);

    EXPECT_EQ(surface.Ops(), (std::vector<DrawOp>{DrawOp::SetDrawWidth, DrawOp::Line, DrawOp::SetFillStyle,
                                                  DrawOp::SetFillColor, DrawOp::Circle}));
    EXPECT_EQ(surface.Count(DrawOp::SetFillStyle), 1);
    EXPECT_EQ(surface.Calls(DrawOp::SetFillColor)[0].color, std::optional<Color>(150));
    EXPECT_EQ(surface.Calls(DrawOp::SetFillColor)[0].fillColor, 0);  // the state before the change
}

TEST(RecordingSurface, KeepsTheCurrentPointAsTheRealSurfacesDo) {
    RecordingSurface surface;
    surface.Line(1, 2, 3, 4);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 3);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 4);
    surface.BoxStep(10, 500, 100, -200);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 110);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 300);
    const auto box = surface.Boxes().at(0);
    EXPECT_DOUBLE_EQ(box.x2, 110);
    EXPECT_DOUBLE_EQ(box.y2, 300);
    surface.Circle(70, 80, 5);
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 70);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 80);
    surface.Cls();
    EXPECT_DOUBLE_EQ(surface.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 0);
}

TEST(RecordingSurface, TextMetricsAreFixedAndFollowFontSize) {
    RecordingSurface surface;
    EXPECT_DOUBLE_EQ(surface.FontSize(), 8);
    EXPECT_DOUBLE_EQ(surface.TextWidth(QStringLiteral("99 Nds ")), 700);
    EXPECT_DOUBLE_EQ(surface.TextHeight(QStringLiteral("99 Nds ")), 200);
    EXPECT_DOUBLE_EQ(surface.TextHeight(QStringLiteral("a\r\nbcd")), 400);
    EXPECT_DOUBLE_EQ(surface.TextWidth(QStringLiteral("a\r\nbcd")), 300);
    surface.SetFontSize(6);
    EXPECT_DOUBLE_EQ(surface.TextWidth(QStringLiteral("12:30")), 375);
    EXPECT_DOUBLE_EQ(surface.TextHeight(QStringLiteral("12:30")), 150);
}

TEST(RecordingSurface, PrintRecordsTheTextWhereItStartsAndMovesToTheNextLine) {
    RecordingSurface surface;
    surface.SetCurrentX(500);
    surface.SetCurrentY(1000);
    surface.SetFontSize(6);
    surface.Print(QStringLiteral("50 nds"));
    surface.Print(QStringLiteral("01"));
    const auto prints = surface.Prints();
    ASSERT_EQ(prints.size(), 2u);
    EXPECT_DOUBLE_EQ(prints[0].x1, 500);
    EXPECT_DOUBLE_EQ(prints[0].y1, 1000);
    EXPECT_DOUBLE_EQ(prints[0].fontSize, 6);
    EXPECT_DOUBLE_EQ(prints[1].x1, 0);
    EXPECT_DOUBLE_EQ(prints[1].y1, 1150);
    EXPECT_EQ(surface.Texts(), (QStringList{QStringLiteral("50 nds"), QStringLiteral("01")}));
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 1300);
}

TEST(RecordingSurface, StandsForThePrintedPage) {
    RecordingSurface surface;
    EXPECT_DOUBLE_EQ(surface.Width(), 11906);
    EXPECT_DOUBLE_EQ(surface.Height(), 16838);
    EXPECT_LT(surface.ScaleWidth(), surface.Width());
    surface.SetPage(12240, 15840, 11520, 15120);
    EXPECT_DOUBLE_EQ(surface.Height(), 15840);
    EXPECT_DOUBLE_EQ(surface.ScaleWidth(), 11520);
    surface.Line(0, 0, 10, 10);
    surface.KillDoc();
    surface.EndDoc();
    EXPECT_EQ(surface.Count(DrawOp::KillDoc), 1);
    EXPECT_EQ(surface.Count(DrawOp::EndDoc), 1);
    surface.Clear();
    EXPECT_TRUE(surface.Calls().empty());
}

TEST(RecordingSurface, RefusesBadValuesLikeTheRealSurfaces) {
    RecordingSurface surface;
    EXPECT_THROW(surface.SetDrawWidth(0), RuntimeError);
    EXPECT_THROW(surface.SetFillStyle(-1), RuntimeError);
    EXPECT_THROW(surface.SetFontSize(0), RuntimeError);
    EXPECT_THROW(surface.Circle(0, 0, 10, {}, -1), RuntimeError);
    EXPECT_TRUE(surface.Calls().empty());
}

}  // namespace
