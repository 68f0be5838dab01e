#include "editors/EditorRules.h"

#include "base/Numbers.h"
#include "editors/EditorText.h"
#include "support/Tables.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

namespace {

using Cells = std::vector<CellText>;
using Row = std::vector<std::string>;
constexpr auto kAdd = MouseRule::AddRow, kBack = MouseRule::BackToIncomplete;

struct EditorRules : FreshTables<testing::Test> {};

// The rule of the left button

TEST_F(EditorRules, OneBlankRowStandsUnderTheFilledHeader)
{
    for (const EditorTable& t : everyTable()) EXPECT_EQ(MouseRuleAt(t, gridOf(t, {{}}), 1), kAdd) << t.stem;
}

TEST_F(EditorRules, LastRowUnderACompleteOneAddsARow)
{
    for (const EditorTable& t : everyTable()) EXPECT_EQ(MouseRuleAt(t, gridOf(t, {fullRow(t), {}}), 2), kAdd) << t.stem;
}

TEST_F(EditorRules, AnyRowButTheLastAddsNone)
{
    for (const EditorTable& t : everyTable())
        EXPECT_EQ(MouseRuleAt(t, gridOf(t, {fullRow(t), {}}), 1), MouseRule::None) << t.stem;
}

/// Column by column: what an empty cell above the last row does to the add-row rule and to the incomplete-row rule.
TEST_F(EditorRules, EachEmptyColumnAboveTheLastRow)
{
    for (const EditorTable& t : everyTable())
        for (int col = 1; col <= t.lastColumn(); ++col) {
            const bool remark = t.stem == "Dxd" && col == 4;
            const bool oddShoulder = t.stem == "Cgkd" && col == 11;
            EXPECT_EQ(MouseRuleAt(t, gridOf(t, {rowWithout(t, col), {}}), 2), remark || oddShoulder ? kAdd : kBack)
                << t.stem << col;
            EXPECT_EQ(MouseRuleAt(t, gridOf(t, {rowWithout(t, col), {}, {}}), 2), remark ? MouseRule::None : kBack)
                << t.stem << col;
        }
}

TEST_F(EditorRules, WidthsWithOnlyTheRightEndShoulderEmptyAddARowButDrawTheEntryBack)
{
    const EditorTable& t = CgkdTable();
    EXPECT_EQ(MouseRuleAt(t, gridOf(t, {rowWithout(t, 11), {}}), 2), kAdd);
    EXPECT_EQ(MouseRuleAt(t, gridOf(t, {rowWithout(t, 11), {}, {}}), 2), kBack);
}

// Fill-in

TEST_F(EditorRules, NoFillInOnTheEditorsWithoutOne)
{
    for (const EditorTable& t : {JdpqxTable(), SqxTable(), DxdTable(), DlTable()})
        for (const MouseRule branch : {kAdd, kBack}) {
            const FillIn f = FillInRow(t, gridOf(t, {fullRow(t), {}, {}}), 2, branch);
            EXPECT_TRUE(f.cells.empty()) << t.stem;
            EXPECT_FALSE(f.refreshBox) << t.stem;
        }
}

TEST_F(EditorRules, TheFirstRowIsTypedByHand)
{
    for (const EditorTable& t : everyTable())
        for (const MouseRule branch : {kAdd, kBack}) {
            const FillIn f = FillInRow(t, gridOf(t, {{}, {}}), 1, branch);
            EXPECT_TRUE(f.cells.empty()) << t.stem;
            EXPECT_FALSE(f.refreshBox) << t.stem;
        }
}

TEST_F(EditorRules, ARowWithAStartStakeIsLeftAlone)
{
    for (const EditorTable& t : everyTable())
        for (const MouseRule branch : {kAdd, kBack}) {
            const FillIn f = FillInRow(t, gridOf(t, {fullRow(t), {"7"}, {}}), 2, branch);
            EXPECT_TRUE(f.cells.empty()) << t.stem;
            EXPECT_FALSE(f.refreshBox) << t.stem;
        }
}

TEST_F(EditorRules, SuperelevationStartsWhereTheRowAboveEnded)
{
    const GridText cells = gridOf(CgTable(), {{"0", "-2", "-3", "100", "4", "-4"}, {}, {}});
    for (const MouseRule branch : {kAdd, kBack}) {
        const FillIn f = FillInRow(CgTable(), cells, 2, branch);
        EXPECT_EQ(f.cells, (Cells{{2, 1, "100"}, {2, 2, "4"}, {2, 3, "-4"}}));
        EXPECT_TRUE(f.refreshBox);
        EXPECT_FALSE(f.refusal);
    }
}

TEST_F(EditorRules, WidthsStartWhereTheRowAboveEndedButMedianAndShoulderSlopeAreNotCopied)
{
    const GridText cells =
        gridOf(CgkdTable(), {{"0", "100", "2", "5", "5.1", ".75", ".76", "6", "6.1", ".85", ".86", "-4"}, {}, {}});
    for (const MouseRule branch : {kAdd, kBack})
        EXPECT_EQ(FillInRow(CgkdTable(), cells, 2, branch).cells,
                  (Cells{{2, 1, "100"}, {2, 4, "6"}, {2, 5, "6.1"}, {2, 6, ".85"}, {2, 7, ".86"}}));
}

TEST_F(EditorRules, ASlopeSectionStartsWithTheEndBlockOfTheOneAbove)
{
    for (const SlopeKind& kind : {kTfz, kTfy, kWfz, kWfy})
        for (int g = 1; g <= kind.gradeLimit; ++g) {
            const EditorTable t = SlopeTable(kind, g);
            Row above;
            for (int col = 1; col <= 6 * g; ++col) above.push_back("c" + std::to_string(col));
            Cells expected;
            for (int k = 1; k <= 3 * g; ++k) expected.push_back({2, k, "c" + std::to_string(3 * g + k)});
            for (const MouseRule branch : {kAdd, kBack}) {
                const FillIn f = FillInRow(t, gridOf(t, {above, {}, {}}), 2, branch);
                EXPECT_EQ(f.cells, expected) << t.stem << g;
                EXPECT_TRUE(f.refreshBox);
            }
        }
}

TEST_F(EditorRules, EmptyCellsAboveAreCopiedToo)
{
    EXPECT_EQ(FillInRow(CgTable(), gridOf(CgTable(), {{}, {"", "x", "y"}, {}}), 2, kBack).cells,
              (Cells{{2, 1, ""}, {2, 2, ""}, {2, 3, ""}}));
}

// The block editor

const Row kStraight{"0", "100", "1000", "2000", "0", "0", "0"};  // 100 m to the north

TEST_F(EditorRules, ABlockStartsAtTheEndOfTheOneAbove)
{
    const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {kStraight, {}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells, (Cells{{2, 1, "100"}, {2, 6, "0"}, {2, 3, "1100"}, {2, 4, "2000"}, {2, 5, "0"}}));
    EXPECT_TRUE(f.refreshBox);
    EXPECT_FALSE(f.refusal);
}

TEST_F(EditorRules, ABlockResultBelowOneHasNoZeroBeforeThePoint)
{
    const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", ".5", "0", "0", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells, (Cells{{2, 1, ".5"}, {2, 6, "0"}, {2, 3, ".5"}, {2, 4, "0"}, {2, 5, "0"}}));
}

TEST_F(EditorRules, AQuarterCircleToTheRight)
{
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", "157.0796327", "0", "0", "0", "100", "100"}, {}}), 2, kAdd);
    ASSERT_EQ(f.cells.size(), 5u);
    EXPECT_EQ(f.cells[1], (CellText{2, 6, "100"}));
    EXPECT_NEAR(ParseNumber(f.cells[2].text), 100, 0.001);
    EXPECT_NEAR(ParseNumber(f.cells[3].text), 100, 0.001);
    EXPECT_NEAR(DmsToDeg(ParseNumber(f.cells[4].text)), 90, 0.0001);
}

TEST_F(EditorRules, ABlockTypedBackwardsHasItsLength)
{
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"100", "0", "1000", "2000", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells[2], (CellText{2, 3, "1100"}));
}

TEST_F(EditorRules, AnAddedBlockMeasuresContinuousStakes)
{
    setBreaks({{50, 70}});  // the numbers 50 to 70 do not exist: 0 to 120 is 100 m
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", "120", "1000", "2000", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells[2], (CellText{2, 3, "1100"}));
}

TEST_F(EditorRules, TheAheadStakeOfAJumpItselfIsNotMeasuredContinuously)
{
    setBreaks({{50, 70}});
    const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", "70", "0", "0", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells[2], (CellText{2, 3, "70"}));
}

TEST_F(EditorRules, AStakeOnTheSecondPassOfAnOverlapIsNegative)
{
    setBreaks({{120, 100}});  // 100 to 120 occurs twice: -110 is continuous 130
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"90", "-110", "0", "0", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells[2], (CellText{2, 3, "40"}));
}

/// |-110| is above 100 and not above 120, so the second break's amount comes on top of the first one's.
TEST_F(EditorRules, TheSecondPassIsDecidedOnceForAllBreaks)
{
    setBreaks({{120, 100}, {135, 120}});
    gDlBack = {120, 135}, gDlAhead = {100, 120}, gDlCum = {-20, -15};
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", "-110", "0", "0", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells[2], (CellText{2, 3, "145"}));  // 110 + 20 = 130, then 130 + 15
}

TEST_F(EditorRules, AStakeInAGapIsRefusedAndTheCopiesStay)
{
    setBreaks({{50, 70}});
    for (const Row& block : {Row{"0", "60", "0", "0", "0", "0", "5"}, Row{"60", "100", "0", "0", "0", "0", "5"}}) {
        const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {block, {}}), 2, kAdd);
        EXPECT_EQ(f.cells, (Cells{{2, 1, block[1]}, {2, 6, "5"}}));
        EXPECT_EQ(f.refusal, (Msg{"桩号不存在，请检查断链数据！", "注意", Icon::Exclamation}));
        EXPECT_FALSE(f.refreshBox);
    }
}

/// Back in an incomplete row the length is taken from its own stakes as typed, and the row below gets the results.
TEST_F(EditorRules, BackInAnIncompleteBlockTheRowBelowIsWrittenWithoutConversion)
{
    setBreaks({{150, 170}});
    const GridText cells = gridOf(JmpqxTable(), {kStraight, {"", "220", "1100", "2000", "0", "", "0"}, {}});
    const FillIn f = FillInRow(JmpqxTable(), cells, 2, kBack);
    EXPECT_EQ(f.cells, (Cells{{2, 1, "100"}, {2, 6, "0"}, {3, 3, "1220"}, {3, 4, "2000"}, {3, 5, "0"}}));
    EXPECT_TRUE(f.refreshBox);
}

TEST_F(EditorRules, BackInAnIncompleteBlockAGapIsNoMatter)
{
    setBreaks({{150, 170}});
    const GridText cells = gridOf(JmpqxTable(), {kStraight, {"", "160", "1100", "2000", "0", "", "0"}, {}});
    const FillIn f = FillInRow(JmpqxTable(), cells, 2, kBack);
    EXPECT_FALSE(f.refusal);
    EXPECT_EQ(f.cells[2], (CellText{3, 3, "1160"}));
}

TEST_F(EditorRules, BackInABlockThatStaysIncompleteNothingIsComputed)
{
    const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {kStraight, {"", "220"}, {}}), 2, kBack);
    EXPECT_EQ(f.cells, (Cells{{2, 1, "100"}, {2, 6, "0"}}));
    EXPECT_TRUE(f.refreshBox);
}

TEST_F(EditorRules, AnIncompleteBlockAboveAnAddedRowIsNotComputed)
{
    for (int col = 3; col <= 7; ++col) {
        Row above = kStraight;
        above[static_cast<std::size_t>(col - 1)].clear();
        const FillIn f = FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {above, {}}), 2, kAdd);
        EXPECT_EQ(f.cells.size(), 2u);
        EXPECT_TRUE(f.refreshBox);
    }
}

TEST_F(EditorRules, TwoPointsInABlockLeaveItsCopies)
{
    const FillIn f =
        FillInRow(JmpqxTable(), gridOf(JmpqxTable(), {{"0", "1.2.3", "0", "0", "0", "0", "0"}, {}}), 2, kAdd);
    EXPECT_EQ(f.cells, (Cells{{2, 1, "1.2.3"}, {2, 6, "0"}}));
    EXPECT_FALSE(f.refusal);
}

// Filters

TEST_F(EditorRules, KeysOfEachFilter)
{
    EXPECT_EQ(KeySetOf(KeyFilter::Any), nullptr);
    for (int key = 1; key < 128; ++key) {
        const bool digit = (key >= '0' && key <= '9') || key == '.' || key == 8;
        EXPECT_EQ(KeySetOf(KeyFilter::Unsigned)(key), digit) << key;
        EXPECT_EQ(KeySetOf(KeyFilter::Signed)(key), digit || key == '-') << key;
    }
}

// Paste

TEST_F(EditorRules, ABlockHoldsATabOrALineEnd)
{
    for (const auto* text : {"1\t2", "1\n2", "1\r\n", "\t"}) EXPECT_TRUE(IsBlock(text));
    for (const auto* text : {"", "1.2.3", "K1+200 a,b"}) EXPECT_FALSE(IsBlock(text));
}

TEST_F(EditorRules, CellsOfABlock)
{
    using Rows = std::vector<Row>;
    EXPECT_EQ(BlockCells("1\t 2 \r\n3\t\r\n"), (Rows{{"1", "2"}, {"3", ""}}));
    EXPECT_EQ(BlockCells("1\r2\n\n3"), (Rows{{"1"}, {"2"}, {""}, {"3"}}));
    EXPECT_EQ(BlockCells(""), (Rows{{""}}));
}

TEST_F(EditorRules, AQuotedCellWithALineEndInsideIsOneCell)
{
    using Rows = std::vector<Row>;
    EXPECT_EQ(BlockCells("A\t\"left\nof the \"\"old\"\" bridge\"\t1\r\nB\tx\t2\r\n"),
              (Rows{{"A", "left of the \"old\" bridge", "1"}, {"B", "x", "2"}}));
    EXPECT_EQ(BlockCells("\"1\r\n2\r3\""), (Rows{{"1 2 3"}}));
    EXPECT_EQ(BlockCells("\"1\t2\"\t3"), (Rows{{"1 2", "3"}}));
    EXPECT_EQ(BlockCells("\"6\"\" pipe\"\t3"), (Rows{{"6\" pipe", "3"}}));
}

TEST_F(EditorRules, OtherQuotesAreText)
{
    using Rows = std::vector<Row>;
    EXPECT_EQ(BlockCells("\"A\"\t5\"\n"), (Rows{{"\"A\"", "5\""}}));
    EXPECT_EQ(BlockCells("\"A\n1\t2"), (Rows{{"\"A"}, {"1", "2"}}));        // never closed
    EXPECT_EQ(BlockCells("\"A\nB\"C\t2"), (Rows{{"\"A"}, {"B\"C", "2"}}));  // text goes on behind it
}

TEST_F(EditorRules, AFrameTakesABlockCellByCell)
{
    using Texts = std::vector<std::pair<std::size_t, std::string>>;
    EXPECT_EQ(PlanFramePaste(SqxTable(), 0, "1\t2\r\n3\t4\r\n").texts, (Texts{{0, "1"}, {1, "2"}, {2, "3"}, {3, "4"}}));
    EXPECT_EQ(PlanFramePaste(SqxTable(), 1, "1\t\t3\t\t\r\n").texts, (Texts{{1, "1"}, {3, "3"}}));
    EXPECT_EQ(PlanFramePaste(SqxTable(), 0, "\"1\n2\"\n").texts, (Texts{{0, "1 2"}}));
}

TEST_F(EditorRules, ABlockThatDoesNotFitAFrameIsRefusedByName)
{
    const FramePaste p = PlanFramePaste(SqxTable(), 2, "1\t2\t3\t4\t5\t6\r\n");
    EXPECT_TRUE(p.texts.empty());
    EXPECT_EQ(p.refusal, (Msg{"粘贴已取消：“3”超出了最后一个输入框“终点高程”！", "注意", Icon::Exclamation}));
    EXPECT_TRUE(PlanFramePaste(JdpqxTable(), 4, "1\n2\n").refusal);
    EXPECT_FALSE(PlanFramePaste(JdpqxTable(), 0, "1\t2\t3\t4\t5\n").refusal);
}

TEST_F(EditorRules, ABlockFillsCellsAndSaysHowManyRowsItNeeds)
{
    const BlockPaste p = PlanPaste(DlTable(), gridOf(DlTable(), {{}}), 1, 1, "100\t120\r\n 200 \t190\r\n");
    EXPECT_FALSE(p.refusal);
    EXPECT_EQ(p.cells, (Cells{{1, 1, "100"}, {1, 2, "120"}, {2, 1, "200"}, {2, 2, "190"}}));
    EXPECT_EQ(p.rows, 3);
}

TEST_F(EditorRules, ABlockWithinTheGridNeedsNoRow)
{
    const BlockPaste p = PlanPaste(SqxTable(), gridOf(SqxTable(), {{}, {}, {}, {}}), 2, 2, "1\t2\n3\t4");
    EXPECT_EQ(p.cells, (Cells{{2, 2, "1"}, {2, 3, "2"}, {3, 2, "3"}, {3, 3, "4"}}));
    EXPECT_EQ(p.rows, 5);
}

TEST_F(EditorRules, ACellThatTheFilterRefusesStopsThePasteWithRowAndColumn)
{
    const BlockPaste p = PlanPaste(SqxTable(), gridOf(SqxTable(), {{}}), 1, 1, "1\t2\t3\n4\t5\t-6\n");
    EXPECT_EQ(p.refusal, (Msg{"粘贴已取消：第 2 行“竖曲线半径”不能填“-6”！", "注意", Icon::Exclamation}));
    EXPECT_TRUE(p.cells.empty());
}

TEST_F(EditorRules, ABlockWiderThanTheGridIsRefused)
{
    const BlockPaste p = PlanPaste(DlTable(), gridOf(DlTable(), {{}}), 1, 2, "1\t2\n");
    EXPECT_EQ(p.refusal, (Msg{"粘贴已取消：第 1 行的“2”超出了最后一列！", "注意", Icon::Exclamation}));
    EXPECT_FALSE(PlanPaste(DlTable(), gridOf(DlTable(), {{}}), 1, 2, "1\t\t\n").refusal);
}

TEST_F(EditorRules, FreeTextColumnsTakeAnyBlock)
{
    const BlockPaste p = PlanPaste(DxdTable(), gridOf(DxdTable(), {{}}), 1, 1, "点A\t1\t2\t路边 石\n");
    EXPECT_EQ(p.cells, (Cells{{1, 1, "点A"}, {1, 2, "1"}, {1, 3, "2"}, {1, 4, "路边 石"}}));
}

TEST_F(EditorRules, AnEmptyPieceFollowsTheRuleOfAnEmptiedBox)
{
    EXPECT_EQ(PlanPaste(SqxTable(), gridOf(SqxTable(), {{"a", "b", "c"}}), 1, 1, "1\t\t3").cells,
              (Cells{{1, 1, "1"}, {1, 3, "3"}}));
    EXPECT_EQ(PlanPaste(DlTable(), gridOf(DlTable(), {{"a", "b"}}), 1, 1, "1\t").cells,
              (Cells{{1, 1, "1"}, {1, 2, ""}}));
}

// Numbers as design tables print them

TEST_F(EditorRules, APrintedTableGoesInAsNumbersAndSaysWhich)
{
    const GridText cells = gridOf(JmpqxTable(), {{}});
    const BlockPaste p = PlanPaste(JmpqxTable(), cells, 1, 1,
                                   "K12+000\tK12+345.678\t2,856,486.512\t512730.907\t123°45′30″\t0\t－６００\r\n");
    EXPECT_FALSE(p.refusal);
    EXPECT_EQ(p.cells, (Cells{{1, 1, "12000"},
                              {1, 2, "12345.678"},
                              {1, 3, "2856486.512"},
                              {1, 4, "512730.907"},
                              {1, 5, "123.4530"},
                              {1, 6, "0"},
                              {1, 7, "-600"}}));
    EXPECT_EQ(p.converted, (std::vector<Converted>{{"第 1 行“起点里程”", "K12+000", "12000"},
                                                   {"第 1 行“终点里程”", "K12+345.678", "12345.678"},
                                                   {"第 1 行“起点X坐标”", "2,856,486.512", "2856486.512"},
                                                   {"第 1 行“起点方位角”", "123°45′30″", "123.4530"},
                                                   {"第 1 行“终点半径”", "－６００", "-600"}}));
}

TEST_F(EditorRules, WhatAColumnTakesAsItIsIsNotConverted)
{
    const BlockPaste p = PlanPaste(SqxTable(), gridOf(SqxTable(), {{}}), 1, 1, "1.2.3\t-\t007\n");
    EXPECT_EQ(p.cells, (Cells{{1, 1, "1.2.3"}, {1, 2, "-"}, {1, 3, "007"}}));
    EXPECT_TRUE(p.converted.empty());
}

TEST_F(EditorRules, WhatDoesNotFitItsColumnIsRefusedByCell)
{
    for (const auto& [block, why] : {std::pair{"1\tK1+200\t3", "第 1 行“变坡点高程”不能填“K1+200”！"},
                                     {"1\t2\t－6", "第 1 行“竖曲线半径”不能填“－6”！"},
                                     {"K1+200\t2\t3\nK1+2\t2\t3", "第 2 行“变坡点里程”不能填“K1+2”！"},
                                     {"1\t2%\t3", "第 1 行“变坡点高程”不能填“2%”！"},
                                     {"1\t1,234\t3", "第 1 行“变坡点高程”不能填“1,234”！"},
                                     {"1\t12°00′00″\t3", "第 1 行“变坡点高程”不能填“12°00′00″”！"}}) {
        const BlockPaste p = PlanPaste(SqxTable(), gridOf(SqxTable(), {{}}), 1, 1, block);
        EXPECT_EQ(p.refusal, (Msg{"粘贴已取消：" + std::string(why), "注意", Icon::Exclamation}));
        EXPECT_TRUE(p.cells.empty());
        EXPECT_TRUE(p.converted.empty());
    }
}

TEST_F(EditorRules, WordsAreNeverConverted)
{
    const BlockPaste p = PlanPaste(DxdTable(), gridOf(DxdTable(), {{}}), 1, 1, "K12+345\t1\t2\t１２％　K1+200 处\n");
    EXPECT_EQ(p.cells, (Cells{{1, 1, "K12+345"}, {1, 2, "1"}, {1, 3, "2"}, {1, 4, "１２％　K1+200 处"}}));
    EXPECT_TRUE(p.converted.empty());
}

TEST_F(EditorRules, WideBlanksAloneAreAnEmptyPiece)
{
    EXPECT_EQ(PlanPaste(SqxTable(), gridOf(SqxTable(), {{}}), 1, 1, "1\t　\t\u00A0").cells, (Cells{{1, 1, "1"}}));
    const BlockPaste p = PlanPaste(DlTable(), gridOf(DlTable(), {{}}), 1, 1, "1\t　");
    EXPECT_EQ(p.cells, (Cells{{1, 1, "1"}, {1, 2, ""}}));
    EXPECT_TRUE(p.converted.empty());
}

TEST_F(EditorRules, AFrameTakesPrintedNumbersToo)
{
    using Texts = std::vector<std::pair<std::size_t, std::string>>;
    const FramePaste p = PlanFramePaste(SqxTable(), 0, "K0+000\t1,012.5\r\nK1+200\tK1+200\r\n");
    EXPECT_EQ(p.texts, (Texts{{0, "0"}, {1, "1012.5"}, {2, "1200"}, {3, "K1+200"}}));  // no elevation: as it is
    EXPECT_EQ(p.converted, (std::vector<Converted>{{"“起点里程”", "K0+000", "0"},
                                                   {"“起点高程”", "1,012.5", "1012.5"},
                                                   {"“终点里程”", "K1+200", "1200"}}));
}

/// What each column of each editor is: stakes, percent and angles are few, and a mistake would take a wrong number.
TEST_F(EditorRules, QuantitiesOfEveryColumn)
{
    for (const EditorTable& table : everyTable())
        for (int col = 1; col <= table.lastColumn(); ++col) {
            const EditorColumn& column = table.columns[static_cast<std::size_t>(col)];
            const auto has = [&](const char* word) { return column.header.find(word) != std::string::npos; };
            const bool side = std::string_view("TfzTfyWfzWfy").find(table.stem) != std::string_view::npos;
            const Quantity wanted = has("里程")            ? Quantity::Stake
                                    : has("方位角")        ? Quantity::Angle
                                    : has("坡度") && !side ? Quantity::Slope
                                                           : Quantity::Plain;
            EXPECT_EQ(column.quantity, wanted) << table.stem << " " << column.header;
            EXPECT_TRUE(wanted == Quantity::Plain || column.filter == KeyFilter::Signed) << column.header;
        }
    for (const EditorTable* table : {&JdpqxTable(), &SqxTable()})
        for (const FrameBox& box : table->frameBoxes())
            EXPECT_EQ(box.quantity == Quantity::Stake, box.label.find("里程") != std::string_view::npos) << box.label;
}

TEST_F(EditorRules, NoPasteGoesPastTheLastRowNumber)
{
    const std::string lines(40000, '\n');
    EXPECT_TRUE(PlanPaste(DlTable(), gridOf(DlTable(), {{}}), 1, 1, lines).refusal);
}

}  // namespace
