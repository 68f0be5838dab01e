#include "Traverse.h"
#include "base/RunTimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using Point = Drawing::Point;

/// Points of a sheet with coordinates that no two share: point k at X = 1000k, Y = 500k + 7.
Worksheet plottedSheet(int n)
{
    Worksheet sheet;
    gFhdxN = static_cast<std::int16_t>(n);
    LayOutFhdx(sheet, true);
    for (int k = 1; k <= n; ++k) {
        sheet.setValue(cell('a', 2 * k + 2), "点" + std::to_string(k));
        sheet.setNumber(cell('l', 2 * k + 2), 1000.0 * k);
        sheet.setNumber(cell('m', 2 * k + 2), 500.0 * k + 7);
    }
    return sheet;
}
/// Where point k stands in the plan.
Point at(int k) { return {500.0 * k + 7, 1000.0 * k}; }

template <class Kind>
std::vector<Kind> all(const Drawing& drawing)
{
    std::vector<Kind> found;
    for (const auto& entity : drawing.entities)
        if (const auto* kind = std::get_if<Kind>(&entity)) found.push_back(*kind);
    return found;
}

TEST(FhdxDraw, PolylineRunsThroughAllPointsEastingFirst)
{
    for (const int n : {5, 6, 60, 103}) {
        std::vector<Point> points;
        for (int k = 1; k <= n; ++k) points.push_back(at(k));
        EXPECT_THAT(all<Drawing::Polyline>(DrawFhdx(plottedSheet(n))), ElementsAre(Drawing::Polyline{points}));
    }
}

TEST(FhdxDraw, LabelsStandFiftyToTheRight)
{
    const auto drawing = DrawFhdx(plottedSheet(6));
    const auto labels = all<Drawing::Text>(drawing);
    ASSERT_EQ(labels.size(), 6u);
    for (int k = 1; k <= 6; ++k)
        EXPECT_EQ(labels[static_cast<std::size_t>(k - 1)],
                  (Drawing::Text{{at(k).x + 50, at(k).y}, 100, "点" + std::to_string(k), "自己设置文本样式1"}));
    EXPECT_THAT(drawing.styles, ElementsAre(Drawing::TextStyle{"自己设置文本样式1", "宋体", true, true, 1, 17}));
    EXPECT_EQ(drawing.activeStyle, "自己设置文本样式1");
}

TEST(FhdxDraw, BlockIsATriangleAndAPolylineOfNoLength)
{
    const auto drawing = DrawFhdx(plottedSheet(6));
    const Drawing::Block triangle{
        "三角形",
        {4.0, 1.67},
        {Drawing::Polyline{{{0, 0}, {0, 0}, {0, 0}, {0, 0}}}, Drawing::Polyline{{{0, 0}, {10, 0}, {5, 5}, {0, 0}}}}};
    EXPECT_THAT(drawing.blocks, ElementsAre(triangle));
    const auto insert = [](int k) { return Drawing::Insert{"三角形", at(k), 5, 0}; };
    EXPECT_THAT(all<Drawing::Insert>(drawing), ElementsAre(insert(1), insert(2), insert(5), insert(6)));
}

TEST(FhdxDraw, CirclesAtTheUnknownPoints)
{
    EXPECT_THAT(all<Drawing::Circle>(DrawFhdx(plottedSheet(5))), ElementsAre(Drawing::Circle{at(3), 15}));
    EXPECT_THAT(all<Drawing::Circle>(DrawFhdx(plottedSheet(7))),
                ElementsAre(Drawing::Circle{at(3), 15}, Drawing::Circle{at(4), 15}, Drawing::Circle{at(5), 15}));
}

TEST(FhdxDraw, KnownLinesAreDoubledTenToTheSide)
{
    const auto side = [](int k) { return Point{at(k).x + 10, at(k).y}; };
    EXPECT_THAT(all<Drawing::Line>(DrawFhdx(plottedSheet(6))),
                ElementsAre(Drawing::Line{side(1), side(2)}, Drawing::Line{side(5), side(6)}));
}

TEST(FhdxDraw, Order)
{
    std::string order;
    for (const auto& entity : DrawFhdx(plottedSheet(6)).entities) order += "PLCTI"[entity.index()];
    EXPECT_EQ(order, "PTTTTTTIIIICCLL");
}

TEST(FhdxDraw, LeavesItsLastLoopInTheCount)
{
    for (const int n : {5, 6, 60, 103}) {
        DrawFhdx(plottedSheet(n));
        EXPECT_EQ(gFhdxN, 2 * n - 4) << n;
    }
}

TEST(FhdxDraw, SecondDrawingWorksFromWhatTheFirstLeft)
{
    // Five points leave 6: the sheet is read one point further, where no coordinates stand.
    const Worksheet sheet = plottedSheet(5);
    DrawFhdx(sheet);
    const auto second = DrawFhdx(sheet);
    EXPECT_THAT(all<Drawing::Polyline>(second),
                ElementsAre(Drawing::Polyline{{at(1), at(2), at(3), at(4), at(5), {0, 0}}}));
    EXPECT_EQ(all<Drawing::Text>(second).back().text, "");
    EXPECT_THAT(all<Drawing::Circle>(second), ElementsAre(Drawing::Circle{at(3), 15}, Drawing::Circle{at(4), 15}));
    EXPECT_EQ(gFhdxN, 8);
}

TEST(FhdxDraw, AdjustmentAfterADrawingWorksFromThatCountToo)
{
    const Traverse traverse = eastward({100, 100}, 0.01);
    Worksheet sheet = sheetOf(traverse);
    AdjustFhdx(sheet, true);
    DrawFhdx(sheet);
    EXPECT_EQ(gFhdxN, 6);
    EXPECT_THROW(AdjustFhdx(sheet, true), RunTimeError);
    // Six points: the end line leads from row 12, where D stands, to the empty row 14, nearly due west.
    EXPECT_NEAR(numberAt(sheet, 'd', 13), 270 + 0.01 / 1200 * 180 / 3.14159265, 1e-5);
    EXPECT_EQ(numberAt(sheet, 'd', 5), 90);
    EXPECT_EQ(sheet.text("b6"), "180°0′0″");
}

TEST(FhdxDraw, TextWhereACoordinateShouldBeFailsInItsLoop)
{
    Worksheet sheet = plottedSheet(6);
    sheet.setValue("l10", "X");
    EXPECT_THROW(DrawFhdx(sheet), RunTimeError);
    EXPECT_EQ(gFhdxN, 8);  // the pass that reads row 10
    sheet = plottedSheet(6);
    sheet.setValue("m4", "Y");
    EXPECT_THROW(DrawFhdx(sheet), RunTimeError);
    EXPECT_EQ(gFhdxN, 16);  // behind the loop of the names
}

TEST(FhdxDraw, EmptyCoordinatesAreZero)
{
    Worksheet sheet = plottedSheet(5);
    sheet.setValue("l8", "");
    EXPECT_EQ(all<Drawing::Circle>(DrawFhdx(sheet)).front().centre, (Point{at(3).x, 0}));
}

TEST(FhdxDraw, NamesOfAnyKind)
{
    Worksheet sheet = plottedSheet(5);
    sheet.setNumber("a4", 12.5);
    sheet.setValue("a6", "");
    const auto labels = all<Drawing::Text>(DrawFhdx(sheet));
    EXPECT_EQ(labels[0].text, "12.5");
    EXPECT_EQ(labels[1].text, "");
}

TEST(FhdxDraw, DrawingAgainAndAgainOverflowsInTheEnd)
{
    const Worksheet sheet = plottedSheet(103);
    int drawings = 0;
    const auto draw = [&] {
        for (;; ++drawings) DrawFhdx(sheet);
    };
    EXPECT_THROW(draw(), RunTimeError);
    // N - 4 doubles each time: 99 * 2^7 + 4 points have rows within 16 bits, 99 * 2^8 + 4 do not.
    EXPECT_EQ(drawings, 8);
}

}  // namespace
