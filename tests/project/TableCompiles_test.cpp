// Which field of which row goes where: traverse points, breaks, blocks, vertical alignment, superelevation, widths.

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"

#include <gtest/gtest.h>

namespace {

using Column = std::vector<double>;
using Names = std::vector<std::string>;

struct TableCompiles : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder;

    void load(const std::string& file, const std::string& text)
    {
        folder.write("其他参数.txt", "积木法\r\n线性\r\n2\r\n3\r\n12\r\n");
        folder.write(file, text);
        LoadProject();
        EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
    }
};

}  // namespace

TEST_F(TableCompiles, TraversePoints)
{
    load("导线点参数.txt", "GP 1,2856355.635,512438.128,起点左侧\r\nD03,-1.5,.25,\r\n");
    EXPECT_EQ(gDxdCount, 1);
    EXPECT_EQ(gDxdName, (Names{"GP 1", "D03"}));
    EXPECT_EQ(gDxdX, (Column{2856355.635, -1.5}));
    EXPECT_EQ(gDxdY, (Column{512438.128, .25}));
}

TEST_F(TableCompiles, TraversePointNamesAreDecodedAndMayBeEmpty)
{
    load("导线点参数.txt", "点甲,1,2,\r\n,3,4,\r\n");
    EXPECT_EQ(gDxdName, (Names{"点甲", ""}));
    EXPECT_EQ(gDxdX, (Column{1, 3}));
}

TEST_F(TableCompiles, LineWithoutACommaInsideATableIsARow)
{
    load("导线点参数.txt", "A,1,2,\r\nabc\r\nB,3,4,\r\n");
    EXPECT_EQ(gDxdCount, 2);
    EXPECT_EQ(gDxdName, (Names{"A", "abc", "B"}));
    EXPECT_EQ(gDxdX, (Column{1, 0, 3}));
    load("竖曲线参数.txt", "1,2\r\n7\r\n3,4\r\n");
    EXPECT_EQ(gSqxLc, (Column{1, 7, 3}));
    EXPECT_EQ(gSqxGc, (Column{2, 0, 4}));
}

TEST_F(TableCompiles, LinesBehindTheLastCommaAreIgnored)
{
    load("导线点参数.txt", "A,1,2,\r\nabc\r\nend\r\n");
    EXPECT_EQ(gDxdCount, 0);
    EXPECT_EQ(gDxdName, Names{"A"});
}

TEST_F(TableCompiles, TwoBreaksTheSecondIsShiftedByTheFirst)
{
    load("断链参数.txt", "100,120\r\n500,490\r\n");
    EXPECT_EQ(gHasDl, -1);
    EXPECT_EQ(gDlCount, 1);
    EXPECT_EQ(gDlBack, (Column{100, 480}));
    EXPECT_EQ(gDlAhead, (Column{120, 470}));
    EXPECT_EQ(gDlCum, (Column{20, -10}));
}

TEST_F(TableCompiles, ABreakOfAmountZeroShiftsNothing)
{
    load("断链参数.txt", "100,100\r\n500,490\r\n");
    EXPECT_EQ(gDlBack, (Column{100, 500}));
    EXPECT_EQ(gDlAhead, (Column{100, 490}));
    EXPECT_EQ(gDlCum, (Column{0, -10}));
}

TEST_F(TableCompiles, AmountOfABreakIsTakenFromTheMagnitudes)
{
    load("断链参数.txt", "-100,120\r\n");
    EXPECT_EQ(gDlCum, Column{20});
    EXPECT_EQ(gDlBack, Column{-100});
}

TEST_F(TableCompiles, ABreakLineWithOneFieldHasTheAmountOfItsBackStake)
{
    load("断链参数.txt", "100\r\n200,210\r\n");
    EXPECT_EQ(gDlAhead, (Column{0, 210 + 100}));
    EXPECT_EQ(gDlCum, (Column{-100, 10}));
}

TEST_F(TableCompiles, WithoutBreakRowsNothingSaysThereAreBreaks)
{
    load("断链参数.txt", "");
    EXPECT_EQ(gHasDl, 0);
}

TEST_F(TableCompiles, BlocksAreCopiedAndTheEndStakeOfTheLastCloses)
{
    load("平曲线参数.txt", "12000,12100,1,2,30.3015,0,-250\r\n12100,12200,3,4,40,-250,-250\r\n");
    EXPECT_EQ(gElemCount, 2);
    EXPECT_EQ(gElemLc, (Column{12000, 12100, 12200 + 0.0001}));
    EXPECT_EQ(gElemX, (Column{1, 3, 0}));
    EXPECT_EQ(gElemY, (Column{2, 4, 0}));
    EXPECT_EQ(gElemFwj, (Column{30.3015, 40, 0}));
    EXPECT_EQ(gElemR1, (Column{0, -250, 0}));
    EXPECT_EQ(gElemR2, (Column{-250, -250, 0}));
}

TEST_F(TableCompiles, ASingleBlockIsTwoRows)
{
    load("平曲线参数.txt", "0,50,1,2,3,0,0\r\n");
    EXPECT_EQ(gElemCount, 1);
    EXPECT_EQ(gElemLc, (Column{0, 50 + 0.0001}));
}

TEST_F(TableCompiles, EveryBlockEndsWhereTheNextStartsWhateverItsEndStakeSays)
{
    load("平曲线参数.txt", "0,9999,0,0,0,0,0\r\n50,60,0,0,0,0,0\r\n");
    EXPECT_EQ(gElemLc, (Column{0, 50, 60 + 0.0001}));
}

TEST_F(TableCompiles, BlocksThatDoNotChainAreLoadedAsTheyStand)
{
    load("平曲线参数.txt", "100,200,1,1,1,0,0\r\n50,60,2,2,2,0,0\r\n");
    EXPECT_EQ(gElemLc, (Column{100, 50, 60 + 0.0001}));
}

TEST_F(TableCompiles, BlockStakesGoThroughTheBreaks)
{
    folder.write("断链参数.txt", "100,120\r\n500,490\r\n");
    load("平曲线参数.txt", "0,1,0,0,0,0,0\r\n130,1,0,0,0,0,0\r\n495,1,0,0,0,0,0\r\n505,600,0,0,0,0,0\r\n");
    // Behind the jump everything is 20 less; beyond continuous 480 the overlap gives its 10 back.
    EXPECT_EQ(gElemLc, (Column{0, 110, 475, 485 + 10, (600 + 0.0001) - 20 + 10}));
}

TEST_F(TableCompiles, BlocksLeaveTheMainPointsOfTheRouteBefore)
{
    gZdCount = 3;
    gZdJd[1] = "JD1";
    gZdT1[1] = 50;
    const Shared before = shared;
    load("平曲线参数.txt", "0,50,1,2,3,0,0\r\n");
    EXPECT_EQ(gZdCount, 3);
    EXPECT_EQ(gZdJd, before.tables.zdJd);
    EXPECT_EQ(gZdT1, before.tables.zdT1);
}

TEST_F(TableCompiles, NegativeTableRowNeverGetsTheSecondReading)
{
    folder.write("断链参数.txt", "10120,10100\r\n");
    load("竖曲线参数.txt", "10110,0\r\n-10110,0,0\r\n10150,0\r\n");
    EXPECT_EQ(gSqxLc, (Column{10110, -10110 + 20, 10170}));
}

TEST_F(TableCompiles, VerticalEndsHaveNoCurveWhateverTheFileSays)
{
    load("竖曲线参数.txt", "0,100,777\r\n50,101.5,900\r\n80,99,1200,extra\r\n200,98,888\r\n");
    EXPECT_EQ(gSqxCount, 3);
    EXPECT_EQ(gSqxLc, (Column{0, 50, 80, 200}));
    EXPECT_EQ(gSqxGc, (Column{100, 101.5, 99, 98}));
    EXPECT_EQ(gSqxR, (Column{0, 900, 1200, 0}));
}

TEST_F(TableCompiles, VerticalFileOfTwoLinesHasNoCurveRows)
{
    load("竖曲线参数.txt", "0,100\r\n200,98\r\n");
    EXPECT_EQ(gSqxCount, 1);
    EXPECT_EQ(gSqxR, (Column{0, 0}));
}

TEST_F(TableCompiles, VerticalFileOfOneLineIsOneRow)
{
    load("竖曲线参数.txt", "5,100,3\r\n");
    EXPECT_EQ(gSqxCount, 0);
    EXPECT_EQ(gSqxLc, Column{5});
    EXPECT_EQ(gSqxR, Column{0});
}

TEST_F(TableCompiles, Superelevation)
{
    load("超高参数.txt", "0,-2,-2,50,4,-4\r\n60,4,-4,100,-2,-3\r\n");
    EXPECT_EQ(gCgCount, 2);
    EXPECT_EQ(gCgLc, (Column{0, 60, 100 + 0.0001}));
    EXPECT_EQ(gCgA, (Column{-2.0 / 100, 4.0 / 100, -2.0 / 100}));
    EXPECT_EQ(gCgB, (Column{-2.0 / 100, -4.0 / 100, -3.0 / 100}));
    EXPECT_EQ(gCgC, (Column{2, 2, 2}));
}

TEST_F(TableCompiles, SingleSuperelevationLineHasTwoRows)
{
    load("超高参数.txt", "0,1,2,50,3,4\r\n");
    EXPECT_EQ(gCgA, (Column{1.0 / 100, 3.0 / 100}));
    EXPECT_EQ(gCgB, (Column{2.0 / 100, 4.0 / 100}));
}

TEST_F(TableCompiles, SideMarkIsZeroWhereBothSidesAreAlikeTwoWhereTheRightIsLowerOneWhereTheLeftIs)
{
    const auto mark = [&](const std::string& line) {
        load("超高参数.txt", line + "\r\n");
        return gCgC;
    };
    EXPECT_EQ(mark("0,2,2,50,2,2"), (Column{0, 0}));
    EXPECT_EQ(mark("0,0,0,50,2,-2"), (Column{2, 2}));
    EXPECT_EQ(mark("0,0,0,50,-2,2"), (Column{1, 1}));
}

TEST_F(TableCompiles, SideMarkMixesPercentAndFraction)
{
    // Row 0: left (0 - 0.9)/2 is below right (-0.5 + 0)/2. Row 1: left (0 - 0.4)/2 is above it, though 40 percent down
    // are far below half a percent.
    load("超高参数.txt", "0,-90,0,50,0,-0.5\r\n60,-40,0,70,0,-0.5\r\n");
    EXPECT_EQ(gCgC, (Column{1, 2, 2}));
}

TEST_F(TableCompiles, SideMarkComesFromTheRowsOwnLine)
{
    load("超高参数.txt", "0,0,0,50,3,-3\r\n50,3,-3,60,-3,3\r\n60,-3,3,70,0,0\r\n");
    EXPECT_EQ(gCgC, (Column{2, 1, 1, 0}));
}

TEST_F(TableCompiles, SideMarkWithADamagedFieldKeepsTheValueOfTheRowBefore)
{
    load("超高参数.txt", "0,0,0,50,1,3\r\n50,0,0,60,x,2\r\n60,0,0,70,5,x\r\n");
    // v: 0.5, kept 0.5, 2.5, then the closing row's x/100 + x fails and 2.5 stays; w: 1.5, 1, kept 1.
    EXPECT_EQ(gCgC, (Column{1, 1, 2, 2}));
}

TEST_F(TableCompiles, Widths)
{
    load("超高宽度参数.txt", "0,100,2,5,6,1,1.5,7,8,.75,.5,-4\r\n100,200,3,9,10,2,2.5,11,12,3,3.5,4\r\n");
    EXPECT_EQ(gCgkdCount, 2);
    EXPECT_EQ(gCgkdG, (Column{0, 100, 200 + 0.0001}));
    EXPECT_EQ(gCgkdC, (Column{2, 3, 3}));
    EXPECT_EQ(gCgkdA, (Column{5, 9, 11}));
    EXPECT_EQ(gCgkdB, (Column{6, 10, 12}));
    EXPECT_EQ(gCgkdD, (Column{1, 2, 3}));
    EXPECT_EQ(gCgkdE, (Column{1.5, 2.5, 3.5}));
    EXPECT_EQ(gCgkdF, (Column{-4.0 / 100, 4.0 / 100, 4.0 / 100}));
}

TEST_F(TableCompiles, SuperelevationAndWidthStakesGoThroughTheBreaksClosingRowIncluded)
{
    folder.write("断链参数.txt", "100,120\r\n");
    load("超高参数.txt", "0,1,1,130,1,1\r\n");
    EXPECT_EQ(gCgLc, (Column{0, (130 + 0.0001) - 20}));
    load("超高宽度参数.txt", "120,140,1,1,1,1,1,1,1,1,1,1\r\n");
    EXPECT_EQ(gCgkdG, (Column{100, (140 + 0.0001) - 20}));
}

TEST_F(TableCompiles, ARowOfTwoFieldsInAFileOfSixLoadsWithZeros)
{
    load("超高参数.txt", "12.5,7\r\n");
    EXPECT_EQ(gCgLc, (Column{12.5, 0}));  // the closing stake is dropped whole, its 0.0001 too
    EXPECT_EQ(gCgA, (Column{7.0 / 100, 0}));
    EXPECT_EQ(gCgB, (Column{0, 0}));
    EXPECT_EQ(gCgC, (Column{0, 0}));
}

TEST_F(TableCompiles, ExtraFieldsAreIgnored)
{
    load("超高参数.txt", "0,1,2,3,4,5,6,7,x\r\n");
    EXPECT_EQ(gCgLc, (Column{0, 3 + 0.0001}));
    EXPECT_EQ(gCgB, (Column{2.0 / 100, 5.0 / 100}));
}

TEST_F(TableCompiles, NumberTextsAsTyped)
{
    load("竖曲线参数.txt", " 1.50 ,+2\r\n1e2,.5,-0\r\n3.,1E+1\r\n");
    EXPECT_EQ(gSqxLc, (Column{1.5, 100, 3}));
    EXPECT_EQ(gSqxGc, (Column{2, .5, 10}));
}

TEST_F(TableCompiles, TextsThatAreNoNumbersStayZero)
{
    load("竖曲线参数.txt", "9,9\r\n,1.2.3,0x10\r\n1 2,12-3,1e\r\nK1+200,１２,1e999\r\nnan,inf\r\n");
    EXPECT_EQ(gSqxLc, (Column{9, 0, 0, 0, 0}));
    EXPECT_EQ(gSqxGc, (Column{9, 0, 0, 0, 0}));
    EXPECT_EQ(gSqxR, (Column{0, 0, 0, 0, 0}));
}

TEST_F(TableCompiles, BlockRowsUnderTheIntersectionPointModelAreReadAsIntersectionPoints)
{
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
    folder.write("平曲线参数.txt", "0,100,0,0,0,0,0\r\n100,200,50,10,20,300,7\r\n200,300,1,1,1,1,1\r\n");
    LoadProject();
    EXPECT_EQ(gElemCount, 5);
    EXPECT_EQ(gZdJd[1], "100");
    EXPECT_EQ(gJdX, (Column{100, 200, 200}));
    EXPECT_EQ(gJdY, (Column{0, 50, 300}));
    EXPECT_EQ(gZdLs1[1], 10);
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(TableCompiles, IntersectionPointRowsUnderAnyOtherModelAreReadAsBlocks)
{
    load("平曲线参数.txt", "0,100,200\r\nJD1,300,400,50,60,500\r\n700,800\r\n");
    EXPECT_EQ(gElemCount, 3);
    EXPECT_EQ(gElemLc, (Column{0, 0, 700, 800 + 0.0001}));
    EXPECT_EQ(gElemX, (Column{200, 400, 0, 0}));
    EXPECT_EQ(gElemY, (Column{0, 50, 0, 0}));
    EXPECT_EQ(gElemFwj, (Column{0, 60, 0, 0}));
    EXPECT_EQ(gElemR1, (Column{0, 500, 0, 0}));
}
