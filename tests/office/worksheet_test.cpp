#include "office/Worksheet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

namespace {

const CellValue kNothing;

std::vector<int> weights(const Worksheet& sheet, CellRef cell)
{
    std::vector<int> found;
    for (int index = xlDiagonalDown; index <= xlEdgeRight; ++index)
        found.push_back(sheet.style(cell).line(index).weight);
    return found;
}

}  // namespace

TEST(Worksheet, NumberTextBecomesNumberUnlessTheCellIsText)
{
    Worksheet sheet;
    sheet.setNumberFormat("a1:b2", "@");
    sheet.setValue("a1", "012.50");
    sheet.setValue("c1", "012.50");
    sheet.setValue("c2", "K0+012.500");
    sheet.setText("c3", "12");
    EXPECT_EQ(sheet.value("A1"), CellValue("012.50"));
    EXPECT_EQ(sheet.value("C1"), CellValue(12.5));
    EXPECT_EQ(sheet.value("C2"), CellValue("K0+012.500"));
    EXPECT_EQ(sheet.value("C3"), CellValue("12"));
    EXPECT_EQ(sheet.text("c1"), "12.5");
}

TEST(Worksheet, FormatSetLaterLeavesTheValue)
{
    Worksheet sheet;
    sheet.setValue("a1", "007");
    sheet.setNumberFormat("a1", "@");
    EXPECT_EQ(sheet.value("a1"), CellValue(7.0));
    sheet.setValue("a1", "007");
    EXPECT_EQ(sheet.value("a1"), CellValue("007"));
}

TEST(Worksheet, NumberOfACell)
{
    Worksheet sheet;
    sheet.setNumber("a1", -2.5);
    sheet.setText("a2", "3");
    EXPECT_EQ(sheet.number("a1"), -2.5);
    EXPECT_EQ(sheet.number("a2"), std::nullopt);
    EXPECT_EQ(sheet.number("a3"), 0);
    EXPECT_EQ(sheet.number("iv65536"), 0);
}

TEST(Worksheet, RefusesWhatACellCannotHold)
{
    Worksheet sheet;
    EXPECT_THROW(sheet.setNumber("a1", std::numeric_limits<double>::quiet_NaN()), std::invalid_argument);
    EXPECT_THROW(sheet.setNumber("a1", -std::numeric_limits<double>::infinity()), std::invalid_argument);
    std::string longest;
    for (int i = 0; i < 32767; ++i) longest += "桩";
    sheet.setText("a1", longest);
    EXPECT_THROW(sheet.setText("a2", longest + "x"), std::length_error);
    std::string pairs;
    for (int i = 0; i < 16384; ++i) pairs += "𠀀";
    EXPECT_THROW(sheet.setText("a2", pairs), std::length_error);
    EXPECT_EQ(sheet.value("a2"), kNothing);
}

TEST(Worksheet, EmptyTextEmpties)
{
    Worksheet sheet;
    sheet.setValue("b2", "x");
    sheet.setValue("b2", "");
    EXPECT_EQ(sheet, Worksheet());
    EXPECT_EQ(sheet.rows(), 0);
    EXPECT_EQ(sheet.cols(), 0);
}

TEST(Worksheet, RowsAndColsCountValuesLooksMergesAndSizes)
{
    Worksheet sheet;
    sheet.setValue("c4", "x");
    EXPECT_EQ(sheet.rows(), 4);
    EXPECT_EQ(sheet.cols(), 3);
    sheet.merge("a1:e2");
    EXPECT_EQ(sheet.cols(), 5);
    sheet.setBold("b9", true);
    EXPECT_EQ(sheet.rows(), 9);
    sheet.setNumberFormat("g:g", "@");
    EXPECT_EQ(sheet.rows(), 9);
    EXPECT_EQ(sheet.cols(), 7);
    sheet.setRowHeight("a12", 20);
    sheet.setColumnWidth("j:j", 20);
    EXPECT_EQ(sheet.rows(), 12);
    EXPECT_EQ(sheet.cols(), 10);
}

TEST(Worksheet, LookAtTheFootCountsAsRowsUnlessTheColumnHasIt)
{
    Worksheet sheet;
    sheet.setBold({2, 1, kSheetRows, 1}, true);
    EXPECT_EQ(sheet.rows(), 1);
    sheet.setBold({kSheetRows, 2}, true);
    EXPECT_EQ(sheet.rows(), kSheetRows);
    EXPECT_EQ(sheet.columnStyle(2), 0);
    EXPECT_TRUE(sheet.styles()[static_cast<std::size_t>(sheet.columnStyle(1))].bold);
}

TEST(Worksheet, MergeKeepsTheUpperLeftValue)
{
    Worksheet sheet;
    sheet.setValue("a1", "title");
    sheet.setValue("b1", "lost");
    sheet.setValue("c2", "stays");
    sheet.merge("A1:C1");
    EXPECT_EQ(sheet.value("a1"), CellValue("title"));
    EXPECT_EQ(sheet.value("b1"), kNothing);
    EXPECT_EQ(sheet.value("c2"), CellValue("stays"));
    EXPECT_EQ(sheet.mergeArea("b1"), CellRange("a1:c1"));
    EXPECT_EQ(sheet.mergeArea("b2"), CellRange("b2"));
}

TEST(Worksheet, MergesNeverOverlap)
{
    Worksheet sheet;
    sheet.merge("a4:a5");
    sheet.merge("a6:a7");
    sheet.merge("c1:d1");
    sheet.merge("a5:a6");
    EXPECT_EQ(sheet.merges(), (std::set<CellRange>{"c1:d1", "a5:a6"}));
    sheet.merge("a6");
    EXPECT_EQ(sheet.merges(), std::set<CellRange>{"c1:d1"});
}

TEST(Worksheet, TallMergeFarAboveIsFound)
{
    Worksheet sheet;
    sheet.merge("a1:a5000");
    for (int row = 1; row < 5000; row += 2) sheet.merge({row, 2, row + 1, 3});
    EXPECT_EQ(sheet.mergeArea("a4999"), CellRange("a1:a5000"));
    EXPECT_EQ(sheet.mergeArea("c4000"), CellRange("b3999:c4000"));
    sheet.merge("a5000:b5001");
    EXPECT_EQ(sheet.mergeArea("a1"), CellRange("a1"));
    EXPECT_EQ(sheet.mergeArea("c5000"), CellRange("c5000"));
    EXPECT_EQ(sheet.merges().size(), 2500u);
}

TEST(Worksheet, OutlineMediumInsideThin)
{
    Worksheet sheet;
    for (const int index : {5, 6}) sheet.borders("A2:c5", index, xlNone);
    for (int index = 7; index <= 12; ++index) sheet.borders("A2:c5", index, 1, 2, -4105);
    for (int index = 7; index <= 10; ++index) sheet.borders("A2:c5", index, 1, -4138, -4105);
    for (const int index : {11, 12}) sheet.borders("A2:c5", index, 1, 2, -4105);
    const int no = xlNone, thin = xlThin, medium = xlMedium;
    EXPECT_EQ(weights(sheet, "a2"), (std::vector{no, no, medium, medium, thin, thin}));
    EXPECT_EQ(weights(sheet, "b2"), (std::vector{no, no, thin, medium, thin, thin}));
    EXPECT_EQ(weights(sheet, "b3"), (std::vector{no, no, thin, thin, thin, thin}));
    EXPECT_EQ(weights(sheet, "c5"), (std::vector{no, no, thin, thin, medium, medium}));
    EXPECT_EQ(weights(sheet, "b1"), std::vector(6, no));
    EXPECT_EQ(weights(sheet, "d3"), std::vector(6, no));
    EXPECT_EQ(weights(sheet, "a6"), std::vector(6, no));
}

TEST(Worksheet, LastWordOnASharedLineHoldsForBothCells)
{
    Worksheet sheet;
    sheet.borders("b2", xlEdgeBottom, xlContinuous, xlMedium);
    EXPECT_EQ(sheet.style("b3").line(xlEdgeTop).weight, xlNone);
    sheet.borders("b3:c4", xlEdgeTop, xlContinuous, xlThin);
    EXPECT_EQ(sheet.style("b2").line(xlEdgeBottom).weight, xlThin);
    EXPECT_EQ(sheet.style("c2").line(xlEdgeBottom).weight, xlNone);
    sheet.borders("a1:b2", xlEdgeBottom, xlNone);
    EXPECT_EQ(sheet.style("b3").line(xlEdgeTop).weight, xlNone);
    EXPECT_EQ(sheet.style("c3").line(xlEdgeTop).weight, xlThin);
}

TEST(Worksheet, InsideLinesOfASingleCellAreNone)
{
    Worksheet sheet;
    sheet.borders("b2", xlInsideVertical, xlContinuous);
    sheet.borders("b2", xlInsideHorizontal, xlContinuous);
    EXPECT_EQ(sheet, Worksheet());
}

TEST(Worksheet, RefusesUnknownConstants)
{
    Worksheet sheet;
    EXPECT_THROW(sheet.borders("a1", 4, 1), std::invalid_argument);
    EXPECT_THROW(sheet.borders("a1", 13, 1), std::invalid_argument);
    EXPECT_THROW(sheet.borders("a1", 7, 1, 3), std::invalid_argument);
    EXPECT_THROW(sheet.borders("a1", 7, -4115), std::invalid_argument);
    EXPECT_THROW(sheet.borders("a1", 7, 1, 2, 57), std::invalid_argument);
    EXPECT_THROW(sheet.setHorizontalAlignment("a1", xlTop), std::invalid_argument);
    EXPECT_THROW(sheet.setVerticalAlignment("a1", xlLeft), std::invalid_argument);
    EXPECT_THROW(sheet.setInterior("a1", 0), std::invalid_argument);
    EXPECT_THROW(sheet.setInterior("a1", 35, 9), std::invalid_argument);
    EXPECT_THROW(sheet.setFont("a1", "", 12), std::invalid_argument);
    EXPECT_THROW(sheet.setFont("a1", "黑体", std::nan("")), std::invalid_argument);
    EXPECT_THROW(sheet.setRowHeight("a1", 410), std::invalid_argument);
    EXPECT_THROW(sheet.setColumnWidth("a1", -1), std::invalid_argument);
    EXPECT_EQ(sheet, Worksheet());
}

TEST(Worksheet, WholeSheetOfLooksIsAFewRuns)
{
    Worksheet sheet;
    const CellRange all(1, 1, kSheetRows, kSheetCols);
    sheet.center(all);
    sheet.borders(all, xlInsideVertical, xlContinuous);
    sheet.borders(all, xlInsideHorizontal, xlContinuous);
    for (int col = 1; col <= kSheetCols; ++col) EXPECT_LE(sheet.styleRuns(col).size(), 3u);
    EXPECT_LE(sheet.styles().size(), 32u);
}

TEST(Worksheet, EqualityLooksAtWhatIsThereNotAtHowItCame)
{
    Worksheet a, b;
    a.setBold("a1:c9", true);
    a.setItalic("b2", true);
    a.setValue("d9", "gone");
    a.clearValue("d9");
    b.setItalic("b2", true);
    for (int row = 9; row >= 1; --row) b.setBold({row, 1, row, 3}, true);
    EXPECT_EQ(a, b);
    b.setBold("c9", false);
    EXPECT_NE(a, b);
    b = a;
    b.page.left = 0.5;
    EXPECT_NE(a, b);
    b = a;
    b.select("c3");
    EXPECT_NE(a, b);
    b = a;
    b.setNumber("a1", 0);
    EXPECT_NE(a, b);
}

// Against a plain table of one style a cell.
TEST(Worksheet, RandomFormattingMatchesAPlainTable)
{
    std::mt19937 random(20);
    constexpr int size = 12;
    for (int round = 0; round < 300; ++round) {
        Worksheet sheet;
        CellStyle plain[size + 2][size + 2];
        for (int step = 0; step < 25; ++step) {
            const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)) + 1; };
            const CellRange range({pick(size), pick(size)}, {pick(size), pick(size)});
            const int what = pick(3);
            const bool on = pick(2) == 1;
            if (what == 1) sheet.setBold(range, on);
            if (what == 2) sheet.setHorizontalAlignment(range, on ? xlCenter : xlGeneral);
            if (what == 3) sheet.borders(range, xlDiagonalUp, on ? xlContinuous : xlNone);
            for (int row = range.first.row; row <= range.last.row; ++row)
                for (int col = range.first.col; col <= range.last.col; ++col) {
                    auto& style = plain[row][col];
                    if (what == 1) style.bold = on;
                    if (what == 2) style.horizontal = on ? xlCenter : xlGeneral;
                    if (what == 3) style.line(xlDiagonalUp).weight = on ? xlThin : xlNone;
                }
        }
        for (int col = 1; col <= size + 1; ++col) {
            for (int row = 1; row <= size + 1; ++row) ASSERT_EQ(sheet.style({row, col}), plain[row][col]);
            int previous = 0;
            for (const auto& run : sheet.styleRuns(col)) ASSERT_NE(std::exchange(previous, run.style), run.style);
        }
    }
}
