#include "Traverse.h"
#include "base/RunTimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using testing::UnorderedElementsAreArray;

Worksheet formOf(int n, bool left = true)
{
    Worksheet sheet;
    gFhdxN = static_cast<std::int16_t>(n);
    LayOutFhdx(sheet, left);
    return sheet;
}

std::string range(char first, int firstRow, char last, int lastRow)
{
    return cell(first, firstRow) + ":" + cell(last, lastRow);
}

TEST(FhdxSheet, TitleAndHeaders)
{
    const Worksheet sheet = formOf(6);
    EXPECT_EQ(sheet.text("A1"), "附　合　导　线　计　算　表");
    EXPECT_EQ(sheet.rowHeight(1), 28.5);
    EXPECT_EQ(sheet.style("A1").fontName, "黑体");
    EXPECT_EQ(sheet.style("A1").fontSize, 20);
    const std::map<std::string, std::string> texts = {{"a2", "点 号"},
                                                      {"b2", " 观测左角               (  °′ ″ )"},
                                                      {"c2", "改正数  ( ″)"},
                                                      {"d2", " 方位角                         (  °′ ″ )"},
                                                      {"e2", " 平距(m)"},
                                                      {"f2", "坐标增量(m)"},
                                                      {"f3", "△X"},
                                                      {"g3", "△Y"},
                                                      {"h2", "改正数(mm)"},
                                                      {"h3", "X"},
                                                      {"i3", "Y"},
                                                      {"j2", "改正后坐标增量(m)"},
                                                      {"j3", "△X"},
                                                      {"k3", "△Y"},
                                                      {"l2", "平差后坐标(m)"},
                                                      {"l3", "X"},
                                                      {"m3", "Y"}};
    for (const auto& [address, text] : texts) EXPECT_EQ(sheet.text(address), text) << address;
    EXPECT_EQ(formOf(6, false).text("b2"), " 观测右角               (  °′ ″ )");
    for (int row = 1; row <= 3; ++row)
        for (int col = 1; col <= 13; ++col) {
            EXPECT_EQ(sheet.style(CellRef(row, col)).horizontal, xlCenter);
            EXPECT_EQ(sheet.style(CellRef(row, col)).vertical, xlCenter);
            EXPECT_EQ(sheet.style(CellRef(row, col)).wrap, row > 1 && col >= 2 && col <= 5);
        }
}

TEST(FhdxSheet, Widths)
{
    const std::map<int, double> widths = {{2, 13}, {3, 6}, {4, 16}, {5, 8}, {8, 5}, {9, 5}, {12, 13}, {13, 13}};
    EXPECT_EQ(formOf(6).columnWidths(), widths);
    EXPECT_EQ(formOf(6).rowHeights(), (std::map<int, double>{{1, 28.5}}));
}

TEST(FhdxSheet, MergesAreStaggered)
{
    for (const int n : {5, 6, 60}) {
        std::vector<CellRange> merges;
        for (const char* address :
             {"A1:M1", "A2:A3", "B2:B3", "C2:C3", "D2:D3", "E2:E3", "F2:G2", "H2:I2", "J2:K2", "L2:M2"})
            merges.push_back(CellRange(address));
        for (int row = 4; row <= 2 * n + 2; row += 2)
            for (const char column : {'a', 'b', 'c', 'l', 'm'})
                merges.push_back(CellRange(range(column, row, column, row + 1)));
        for (int row = 5; row <= 2 * n + 1; row += 2)
            for (const char column : {'d', 'e', 'f', 'g', 'h', 'i', 'j', 'k'})
                merges.push_back(CellRange(range(column, row, column, row + 1)));
        const Worksheet sheet = formOf(n);
        EXPECT_THAT(sheet.merges(), UnorderedElementsAreArray(merges)) << n;
        for (const auto& merge : merges) {
            EXPECT_EQ(sheet.style(merge.last).horizontal, xlCenter) << merge.address();
            EXPECT_EQ(sheet.style(merge.last).vertical, xlCenter) << merge.address();
        }
    }
}

TEST(FhdxSheet, Lines)
{
    const int n = 6, last = 2 * n + 7;
    const Worksheet sheet = formOf(n);
    for (int row = 2; row <= last; ++row)
        for (int col = 1; col <= 13; ++col) {
            const CellStyle& style = sheet.style(CellRef(row, col));
            const bool table = row <= 2 * n + 3;
            const auto expected = [&](bool outer, bool thin) { return outer ? xlMedium : thin ? xlThin : xlNone; };
            const std::string where = CellRef(row, col).address();
            EXPECT_EQ(style.line(xlEdgeLeft).weight, expected(col == 1, table)) << where;
            EXPECT_EQ(style.line(xlEdgeRight).weight, expected(col == 13, table)) << where;
            EXPECT_EQ(style.line(xlEdgeTop).weight, expected(row == 2, table)) << where;
            EXPECT_EQ(style.line(xlEdgeBottom).weight, expected(row == last, table)) << where;
            EXPECT_EQ(style.line(xlEdgeLeft).colorIndex, xlColorIndexAutomatic) << where;
            EXPECT_EQ(style.line(xlDiagonalUp).weight, xlNone) << where;
        }
    EXPECT_EQ(sheet.style("A1").line(xlEdgeTop).weight, xlNone);
}

TEST(FhdxSheet, ShadedCellsAreThoseToFill)
{
    const int n = 6;
    const Worksheet sheet = formOf(n);
    for (int row = 1; row <= 2 * n + 8; ++row)
        for (int col = 1; col <= 14; ++col) {
            const bool shaded =
                (col == 1 && row >= 4 && row <= 2 * n + 3) || (col == 2 && row >= 6 && row <= 2 * n + 1) ||
                (col == 5 && row >= 7 && row <= 2 * n) ||
                ((col == 12 || col == 13) && ((row >= 4 && row <= 7) || (row >= 2 * n && row <= 2 * n + 2)));
            EXPECT_EQ(sheet.style(CellRef(row, col)).fillColor, shaded ? 35 : xlNone) << CellRef(row, col).address();
        }
}

TEST(FhdxSheet, WhatIsFilledInIsANameAnAngleOrANumber)
{
    for (const int n : {5, 6, 30}) {
        const Worksheet sheet = formOf(n);
        const auto covered = [&](CellRef at) {
            return std::any_of(sheet.merges().begin(), sheet.merges().end(),
                               [&](const CellRange& area) { return area.contains(at) && area.first != at; });
        };
        for (int row = 1; row <= 2 * n + 8; ++row)
            for (int col = 1; col <= 14; ++col) {
                const CellRef at(row, col);
                const bool typed = sheet.style(at).fillColor == 35 && !covered(at) && col != 1;
                const auto quantity =
                    typed ? std::optional(col == 2 ? Quantity::Angle : Quantity::Plain) : std::nullopt;
                EXPECT_EQ(FhdxQuantity(at, n), quantity) << at.address() << " of " << n;
            }
    }
}

TEST(FhdxSheet, NamesAndFooterAreText)
{
    const int n = 6;
    const Worksheet sheet = formOf(n);
    for (int row = 1; row <= 2 * n + 8; ++row)
        for (int col = 1; col <= 14; ++col) {
            const bool text =
                (col == 1 && row >= 4 && row <= 2 * n + 2) || (col <= 13 && row >= 2 * n + 4 && row <= 2 * n + 7);
            EXPECT_EQ(sheet.style(CellRef(row, col)).numberFormat, text ? "@" : "General")
                << CellRef(row, col).address();
        }
    Worksheet named = sheet;
    named.setValue("a4", "007");
    EXPECT_EQ(named.value("a4"), CellValue("007"));
}

TEST(FhdxSheet, Page)
{
    const PageSetup page = formOf(6).page;
    EXPECT_EQ(page.left, 0.5);
    EXPECT_EQ(page.right, 0.5);
    EXPECT_FALSE(page.landscape);
    EXPECT_FALSE(page.fitToWidth);
}

// --- The button ------------------------------------------------------------------------------------------------------

struct Press {
    Worksheet sheet;
    int opened = 0;
    Outcome operator()(const char* typed, bool left = true)
    {
        return MakeFhdxSheet(typed, left, [&]() -> Worksheet& {
            ++opened;
            return sheet;
        });
    }
};

TEST(FhdxMake, EmptyCountIsAskedFor)
{
    Press press;
    gFhdxN = 77;
    const auto outcome = press("");
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(*outcome.refusal, (Refusal{{"请输入导线点个数", "注意", Icon::Exclamation}, "txtDxd"}));
    EXPECT_EQ(gFhdxN, 77);
    EXPECT_EQ(press.opened, 0);
}
TEST(FhdxMake, FourPointsAreTooFewButStayTheCount)
{
    Press press;
    const auto outcome = press("4");
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(*outcome.refusal, (Refusal{{"导线点个数不能小于5", "错误", Icon::Exclamation}, ""}));
    EXPECT_EQ(gFhdxN, 4);
    EXPECT_EQ(press.opened, 0);
}
TEST(FhdxMake, FiveAndMoreMakeTheForm)
{
    for (const auto& [typed, n] : {std::pair{"5", 5}, {"6", 6}, {" 60 ", 60}, {"103", 103}, {"5.5", 6}, {"6.5", 6}}) {
        Press press;
        EXPECT_TRUE(press(typed, false));
        EXPECT_EQ(gFhdxN, n);
        EXPECT_EQ(press.opened, 1);
        EXPECT_EQ(press.sheet, formOf(n, false));
    }
}
TEST(FhdxMake, CountThatIsNoNumberOrTooLargeFails)
{
    Press press;
    EXPECT_THROW(press("五"), RunTimeError);
    EXPECT_THROW(press("-"), RunTimeError);
    EXPECT_THROW(press("32768"), RunTimeError);
    EXPECT_THROW(press("99999999999999999999"), RunTimeError);
    EXPECT_EQ(press.opened, 0);
    EXPECT_FALSE(press("-6"));
}
TEST(FhdxMake, RowsPastSixteenBitsLeaveTheSheetAsFarAsItGot)
{
    Press press;
    EXPECT_THROW(press("16384"), RunTimeError);
    EXPECT_EQ(press.opened, 1);
    EXPECT_EQ(press.sheet.text("A1"), "附　合　导　线　计　算　表");
    EXPECT_EQ(press.sheet.text("m3"), "Y");
    EXPECT_EQ(press.sheet.style("a4").fillColor, xlNone);
}

}  // namespace
