// Batch stake-out: the run of stakes and the file run.

#include "base/ReplaceFile.h"
#include "screens/Plfy.h"

#include "support/ProjectFolder.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

namespace {

struct Plfy : FreshTables<testing::Test> {
    Screen screen{kCoordinateColumns};
    PlfyInput good{.start = "0", .end = "100", .step = "30", .offset = {}, .skew = {}, .station = {}};

    Plfy() { straightNorth(); }
    Outcome calc(const PlfyInput& in) { return CalcPlfy(in, screen.rows); }
    Texts stakes() const { return screen.column(1); }
};

Texts stakeTexts(std::initializer_list<const char*> metres)
{
    Texts texts;
    for (const char* m : metres) texts.push_back("K0+" + std::string(m) + ".000");
    return texts;
}

}  // namespace

TEST_F(Plfy, TheEndIsNotForced)
{
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"000", "030", "060", "090"}));
    EXPECT_EQ(screen.state, (ScreenState{4, true}));
}

TEST_F(Plfy, TheEndIsReachedByWholeSteps)
{
    good.end = "90";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"000", "030", "060", "090"}));
}

TEST_F(Plfy, TheLastRowMayPassTheEndByLessThanATenthOfAMillimetre)
{
    good.end = "89.99995";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes().back(), "K0+090.000");
    good.end = "89.9999";  // 89.9999 + 0.0001 is not above 90
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes().back(), 89.9999 + 0.0001 <= 90 ? "K0+060.000" : "K0+090.000");
}

TEST_F(Plfy, CentreLeftRight)
{
    good.end = "30";
    good.offset = "5";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(2), (Texts{"中桩", "左5米", "右5米", "中桩", "左5米", "右5米"}));
    EXPECT_EQ(screen.column(7), (Texts{"2000.000", "1995.000", "2005.000", "2000.000", "1995.000", "2005.000"}));
    EXPECT_EQ(screen.column(3), Texts(6, "无"));
}

TEST_F(Plfy, CentreAndSkewedPoint)
{
    good.end = "30";
    good.skewed = true;
    good.skew = "-90";
    good.offset = "5";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(2), (Texts{"中桩", "斜交5米", "中桩", "斜交5米"}));
    EXPECT_EQ(screen.column(3), (Texts{"无", "-90度00分00秒", "无", "-90度00分00秒"}));
    EXPECT_EQ(screen.column(7), (Texts{"2000.000", "1995.000", "2000.000", "1995.000"}));
}

TEST_F(Plfy, AnEmptyOffsetMeansCentreLineOnly)
{
    good.offset = " ";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(2), Texts(4, "中桩"));
}

TEST_F(Plfy, ASkewedOffsetOfZeroMakesNoSecondRow)
{
    good.skewed = true;
    good.skew = "30";
    good.offset = "0";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(2), Texts(4, "中桩"));
}

TEST_F(Plfy, RefusalsInOrder)
{
    setBreaks({{300, 400}});
    good.skewed = true;
    good.skew = "90";
    good.offset = "5";
    good.station = {.typed = true, .pick = {}, .x = "1", .y = "2"};
    expectOrder<PlfyInput>(
        good,
        {
            {"start", [](auto& in) { in.start = " "; }, refusal("开始里程不能为空！", "错误", "txtPlzbQdlc")},
            {"end", [](auto& in) { in.end = ""; }, refusal("结束里程不能为空！", "错误", "txtPlzbZdlc")},
            {"start in a gap", [](auto& in) { in.start = "360"; }, gap()},
            {"end in a gap", [](auto& in) { in.end = "350"; }, gap()},
            {"skew", [](auto& in) { in.skew = " "; }, refusal("夹角不能为空！", "错误", "txtPlzbJj")},
            {"offset", [](auto& in) { in.offset = ""; }, refusal("偏距不能为空！", "错误", "txtPlzbPj")},
            {"step", [](auto& in) { in.step = ""; }, refusal("间距不能为空！", "错误", "txtPlzbBc")},
            {"X", [](auto& in) { in.station.x = " "; }, refusal("测站X坐标不能为空！", "错误", "txtPlzbCzX")},
            {"Y", [](auto& in) { in.station.y = ""; }, refusal("测站Y坐标不能为空！", "错误", "txtPlzbCzY")},
        },
        [this](const PlfyInput& in) { return calc(in); });
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(Plfy, EqualStakesAreRefusedBeforeTheGap)
{
    setBreaks({{300, 400}});
    good.start = "350";
    good.end = " 350.0 ";
    expectRefusal(calc(good), refusal("开始里程不能等于结束里程！", "错误"));
}

TEST_F(Plfy, RangeRefusalsStandBetweenTheGaps)
{
    setElements({{100, 0, 0, 0, 0, 0}, {900, 800, 0, 0, 0, 0}});
    setBreaks({{300, 400}});
    const auto low = refusal("开始里程不能小于起点里程！", "错误"),
               high = refusal("结束里程不能大于终点里程！", "错误");
    good.start = "99";
    good.end = "350";
    expectRefusal(calc(good), low, "start before the road, end in a gap");
    good.start = "100";
    expectRefusal(calc(good), gap(), "end in a gap");
    good.end = "1000.5";  // continuous 900.5
    good.step = "";
    expectRefusal(calc(good), high, "end beyond the road, no step");
    good.end = "1000";
    expectRefusal(calc(good), refusal("间距不能为空！", "错误", "txtPlzbBc"), "the end itself passes");
    good.step = "0";
    good.station = {.typed = true, .pick = {}, .x = {}, .y = {}};
    expectRefusal(calc(good), refusal("间距不能为0！", "错误"), "step 0 before the station");
}

TEST_F(Plfy, NumbersThatAreNone)
{
    for (auto field : {&PlfyInput::start, &PlfyInput::end, &PlfyInput::step, &PlfyInput::offset}) {
        auto in = good;
        in.*field = "1.2.3";
        expectRefusal(calc(in), notANumber());
    }
    good.skewed = true;
    good.offset = "5";
    good.skew = "-";
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(Plfy, ARunClearsTheGridWithoutAQuestion)
{
    EXPECT_TRUE(calc(good));
    good.start = "500";
    good.end = "560";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"500", "530", "560"}));
    EXPECT_EQ(screen.state.rows, 3);
}

TEST_F(Plfy, ARefusalKeepsTheGrid)
{
    EXPECT_TRUE(calc(good));
    good.step = "";
    EXPECT_FALSE(calc(good));
    EXPECT_EQ(screen.grid.text().rows(), 5);
}

TEST_F(Plfy, StartAboveTheEndClearsTheGridAndKeepsTheCounter)
{
    EXPECT_TRUE(calc(good));
    screen.state.changed = false;
    good.start = "200";
    good.end = "100";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_EQ(screen.state, (ScreenState{4, true}));
}

TEST_F(Plfy, EndOfTheRoadRepeatsTheRowBefore)
{
    good.start = "900";
    good.end = "1000";
    good.step = "50";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(6), (Texts{"1900.000", "1950.000", "1950.000"}));
    EXPECT_EQ(screen.warnings()[1], "");
    EXPECT_NE(screen.warnings()[2], "");
}

TEST_F(Plfy, StakesInAGapAreSkippedByWholeSteps)
{
    setBreaks({{310, 350}});  // 310 to 350 exists nowhere; 350 is continuous 310
    good.start = "270";
    good.end = "420";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"270", "300", "360", "390", "420"}));
    EXPECT_EQ(screen.column(6), (Texts{"1270.000", "1300.000", "1320.000", "1350.000", "1380.000"}));
    EXPECT_EQ(screen.warnings(), (Texts{"", "", "从K0+330.000起的桩号在断链中不存在，已跳过", "", ""}));
}

TEST_F(Plfy, SkippingCanCarryOneRowPastTheEnd)
{
    // The end is the back stake itself: 270, 300 = end. A step of 30 from 285 goes 285, then 315 in the gap of 310 to
    // 400: on to 405, past the end of 400.
    setBreaks({{310, 400}});
    good.start = "285";
    good.end = "400";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"285", "405"}));
    EXPECT_EQ(screen.column(6), (Texts{"1285.000", "1315.000"}));
}

TEST_F(Plfy, SkippingDropsWhatEarlierBreaksTookOff)
{
    // First jump 100 to 150, second 300 to 400 as typed: the table row is shifted to 250 and 350. The walk compares the
    // nominal 260 with them, finds it in the gap of the second row, steps on to 360 and forgets the 50 of the first:
    // only the 100 of the second comes off.
    setBreaks({{100, 150}, {300, 400}});
    good.start = "160";
    good.end = "360";
    good.step = "100";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(stakes(), stakeTexts({"160", "360"}));
    EXPECT_EQ(screen.column(6), (Texts{"1110.000", "1260.000"}));
}

TEST_F(Plfy, OverlapShiftsBehindItsBackStake)
{
    setBreaks({{500, 480}});
    good.start = "490";
    good.end = "520";
    good.step = "10";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(6), (Texts{"1490.000", "1500.000", "1530.000", "1540.000"}));
}

TEST_F(Plfy, BelowZeroTheWalkLooksAtTheLastInverseStake)
{
    setElements({{-1000, 0, 2000, 0, 0, 0}, {1000, 2000, 2000, 0, 0, 0}});  // X is stake + 1000
    setBreaks({{100, 120}});
    good.start = "-300";
    good.end = "-200";
    good.step = "50";
    gInLc = 0;  // not at or beyond the ahead stake: the stakes stay
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(6), (Texts{"700.000", "750.000", "800.000"}));
    gInLc = -120;  // now it is: |cur| less the amount of the break
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(6), (Texts{"1280.000", "1230.000", "1180.000"}));
    EXPECT_EQ(stakes(), (Texts{"-K0+300.000", "-K0+250.000", "-K0+200.000"}));
}

TEST_F(Plfy, ANegativeStartIsBeforeARoadThatStartsAtZero)
{
    good.start = "-50";
    expectRefusal(calc(good), refusal("开始里程不能小于起点里程！", "错误"));
}

TEST_F(Plfy, ANegativeStepWalksUntilTheCounterOverflows)
{
    good.start = "90";
    good.end = "100";
    good.step = "-30";
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state, (ScreenState{32767, false}));
}

TEST_F(Plfy, AsManyRowsAsTheCounterHolds)
{
    good.end = "327.66";
    good.step = "0.01";
    // Repeated addition decides whether the last hundredth makes a row: count as the walk does.
    int count = 0;
    for (double cur = 0; !(327.66 + 0.0001 <= cur); cur += 0.01) ++count;
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.state.rows, count);
    EXPECT_EQ(count, 32767);
    good.end = "327.67";
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state.rows, 32767);
}

TEST_F(Plfy, AnAbandonedRunKeepsItsRowsAndSetsTheFlag)
{
    struct Impatient : ResultTable {
        using ResultTable::ResultTable;
        int asked = 0;
        bool abandoned() override { return ++asked > 2; }
    } rows(screen.grid);
    EXPECT_TRUE(CalcPlfy(good, rows));
    EXPECT_EQ(stakes(), stakeTexts({"000", "030"}));
    EXPECT_EQ(rows.state, (ScreenState{2, true}));
}

TEST_F(Plfy, AGapThatAStepNeverLeavesEndsInTheTrap)
{
    // The start passes by its running value, the walk compares the nominal one; a step too small to move it would look
    // at the same stake for ever.
    setElements({{0, 0, 2000, 0, 0, 0}, {100000, 100000, 2000, 0, 0, 0}});
    setBreaks({{100, 150}, {300, 400}});
    good.start = "260";
    good.end = "99999";
    good.step = "1e-300";
    expectRefusal(calc(good), notANumber());
}

TEST_F(Plfy, TheWayOutOfAGapCanBeAbandonedToo)
{
    struct Impatient : ResultTable {
        using ResultTable::ResultTable;
        int asked = 0;
        bool abandoned() override { return ++asked > 1; }
    } rows(screen.grid);
    setElements({{0, 0, 2000, 0, 0, 0}, {100000, 100000, 2000, 0, 0, 0}});
    setBreaks({{100, 150}, {300, 50000}});
    good.start = "260";
    good.end = "60000";
    good.step = "1e-9";  // the way to 49950 would take days
    EXPECT_TRUE(CalcPlfy(good, rows));
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_TRUE(rows.state.changed);
}

TEST_F(Plfy, TheStationIsReadBeforeTheGridIsCleared)
{
    EXPECT_TRUE(calc(good));
    good.station = {.typed = true, .pick = {}, .x = "5", .y = ""};
    EXPECT_FALSE(calc(good));
    EXPECT_EQ(screen.grid.text().rows(), 5);
    EXPECT_EQ(gStationX, 5);
}

namespace {

struct PlfyFile : Plfy {
    ProjectFolder folder;
    ScriptedDialogs dialogs;
    std::string path = folder.root() + "/点.txt";

    PlfyFile() { straightNorth(); }
    Outcome run(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        dialogs.open(path);
        return CalcPlfyFile(screen.rows);
    }
};

}  // namespace

TEST_F(PlfyFile, OneRowALineOnTheSideOfTheSign)
{
    EXPECT_TRUE(run("100,-2.5\r\n200,3\r\n300,0\r\n"));
    EXPECT_EQ(dialogs.filters, (Texts{"(*.txt)|*.txt|"}));
    EXPECT_EQ(screen.column(1), (Texts{"K0+100.000", "K0+200.000", "K0+300.000"}));
    EXPECT_EQ(screen.column(2), (Texts{"左2.5米", "右3米", "中桩"}));
    EXPECT_EQ(screen.column(3), Texts(3, "无"));
    EXPECT_EQ(screen.column(6), (Texts{"1100.000", "1200.000", "1300.000"}));
    EXPECT_EQ(screen.column(7), (Texts{"1997.500", "2003.000", "2000.000"}));
    EXPECT_EQ(screen.state, (ScreenState{3, true}));
}

TEST_F(PlfyFile, AppendsAndLooksFromTheStationInMemory)
{
    EXPECT_TRUE(calc(good));
    gStationX = 1100;
    gStationY = 1900;
    EXPECT_TRUE(run("100,0\r\n"));
    EXPECT_EQ(screen.grid.text().rows(), 6);
    EXPECT_EQ(screen.row(5)[4], "90度00分00秒");
    EXPECT_EQ(screen.row(5)[5], "100.000");
    EXPECT_EQ(gStationX, 1100);
}

TEST_F(PlfyFile, FurtherFieldsAreIgnored)
{
    EXPECT_TRUE(run("100,1,abc\r\n"));
    EXPECT_EQ(screen.row(1)[2], "右1米");
}

TEST_F(PlfyFile, BeyondTheRoadTheRowBeforeStays)
{
    EXPECT_TRUE(run("100,0\r\n5000,0\r\n"));
    EXPECT_EQ(screen.column(6), (Texts{"1100.000", "1100.000"}));
    EXPECT_NE(screen.warnings()[1], "");
}

TEST_F(PlfyFile, AGapEndsTheRunAndKeepsTheRowsBefore)
{
    setBreaks({{300, 400}});
    expectRefusal(run("100,0\r\n350,0\r\n500,0\r\n"), gap());
    EXPECT_EQ(screen.column(1), (Texts{"K0+100.000"}));
    EXPECT_EQ(screen.state, (ScreenState{1, false}));
}

TEST_F(PlfyFile, TheSecondPassWantsTheAheadStakeExceeded)
{
    setElements({{-1000, 0, 2000, 0, 0, 0}, {1000, 2000, 2000, 0, 0, 0}});  // X is stake + 1000
    setBreaks({{500, 480}});
    EXPECT_TRUE(run("-480,0\r\n-481,0\r\n"));
    EXPECT_EQ(screen.column(6), (Texts{"520.000", "539.000"})) << "-480 stays, -481 is moved by 20";
}

TEST_F(PlfyFile, CancelEndsWithoutAWord)
{
    dialogs.cancelOpen();
    EXPECT_TRUE(CalcPlfyFile(screen.rows));
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(PlfyFile, ABadFieldMakesNoRowAtAll)
{
    for (const char* bytes : {"100,0\r\n1.2.3,0\r\n", "100,0\r\nno comma\r\n200,0\r\n", "100,x\r\n"}) {
        EXPECT_TRUE(run(bytes));
        EXPECT_EQ(screen.state, ScreenState{}) << bytes;
    }
}
