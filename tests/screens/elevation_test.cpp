// Single point and batch elevation.

#include "base/ReplaceFile.h"
#include "screens/DgdGc.h"
#include "screens/PlGc.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

#include <filesystem>
#include <unistd.h>

namespace {

/// 100 at 0, 110 at 500, 105 at 1000: 2 cm a metre up, then 1 cm a metre down. Half width 8, falling 2 % to the right
/// and rising 2 % to the left, no shoulders and no median.
struct Elevation : FreshTables<testing::Test> {
    Elevation()
    {
        straightNorth();
        sharpProfile();
        gCgkdG = {0, 1000.0001};
        gCgkdA = gCgkdB = {8, 8};
        gCgkdC = gCgkdD = gCgkdE = gCgkdF = {0, 0};
        gCgkdCount = 1;
        gCgLc = {0, 1000.0001};
        gCgA = {0.02, 0.02};
        gCgB = {-0.02, -0.02};
        gCgC = {0, 0};
        gCgCount = 1;
        gCgType = "0";
    }
};

struct DgdGc : Elevation {
    Screen screen{kElevationColumns};
    Outcome calc(const DgdGcInput& in) { return CalcDgdGc(in, screen.rows); }
    Outcome at(const std::string& stake, const std::string& thickness = {})
    {
        return calc({.stake = stake, .offset = {}, .thickness = thickness});
    }
};

Refusal bare(const std::string& text) { return refusal(text, "注意", "", Icon::None); }

}  // namespace

TEST_F(DgdGc, CentreAndSides)
{
    EXPECT_TRUE(at(" 100 "));
    EXPECT_TRUE(calc({.stake = "100", .side = "左边桩", .offset = "5", .thickness = {}}));
    EXPECT_TRUE(calc({.stake = "100", .side = "右边桩", .offset = "5", .thickness = {}}));
    EXPECT_EQ(screen.row(1), (Texts{"1", "K0+100.000", "中桩", "102"}));
    EXPECT_EQ(screen.row(2), (Texts{"2", "K0+100.000", "左5米", "102.1"}));
    EXPECT_EQ(screen.row(3), (Texts{"3", "K0+100.000", "右5米", "101.9"}));
    EXPECT_EQ(screen.state, (ScreenState{3, true}));
}

TEST_F(DgdGc, TheSideTextShowsTheAmountOfTheOffset)
{
    EXPECT_TRUE(calc({.stake = "100", .side = "左边桩", .offset = "-5", .thickness = {}}));
    EXPECT_EQ(screen.row(1)[2], "左5米");
    EXPECT_EQ(screen.row(1)[3], "101.9") << "minus 5 to the left is 5 to the right";
}

TEST_F(DgdGc, TheCellCarriesNoPadding)
{
    EXPECT_TRUE(at("20"));
    EXPECT_TRUE(at("0", "0.18"));
    EXPECT_TRUE(at("50", " "));
    EXPECT_EQ(screen.column(3), (Texts{"100.4", "99.82", "101"}));
}

TEST_F(DgdGc, RoundedBeforeTheThicknessComesOff)
{
    EXPECT_TRUE(at("0.123", "0.0004"));  // 100.00246 is 100.002
    EXPECT_EQ(screen.row(1)[3], "100.0016");
}

TEST_F(DgdGc, ANegativeThicknessRaises)
{
    EXPECT_TRUE(at("0", "-0.5"));
    EXPECT_EQ(screen.row(1)[3], "100.5");
}

TEST_F(DgdGc, RefusalsInOrder)
{
    setBreaks({{300, 400}});
    const DgdGcInput good{.stake = "100", .side = "左边桩", .offset = "5", .thickness = "0"};
    expectOrder<DgdGcInput>(
        good,
        {
            {"stake", [](auto& in) { in.stake = " "; }, refusal("计算里程不能为空！", "错误", "txtDgdGcFylc")},
            {"offset", [](auto& in) { in.offset = ""; }, refusal("偏距不能为空！", "错误", "txtDgdGcPj")},
            {"thickness", [](auto& in) { in.thickness = "1.2.3"; }, notANumber()},
            {"gap", [](auto& in) { in.stake = "350"; }, gap()},
        },
        [this](const DgdGcInput& in) { return calc(in); });
    gSqxCount = 0;
    expectRefusal(at("350"), gap(), "the breaks before the profile");
    expectRefusal(at("5000"), bare("还未输入竖曲线参数！"));
    expectRefusal(at("1.2.3"), notANumber(), "the fields before the profile");
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(DgdGc, LimitsAreThoseOfTheProfile)
{
    gSqxLc = {10, 500, 990};
    expectRefusal(at("9.999"), bare("计算里程不能小于竖曲线起点里程！"));
    expectRefusal(at("990.001"), bare("计算里程不能大于竖曲线终点里程！"));
    EXPECT_TRUE(at("10"));
    EXPECT_TRUE(at("990")) << "the last stake itself passes";
    setElements({{400, 0, 0, 0, 0, 0}, {500, 100, 0, 0, 0, 0}});
    EXPECT_TRUE(at("100")) << "the alignment is not looked at";
}

TEST_F(DgdGc, ASingleGradeEndsInTheTrap)
{
    gSqxLc = {0, 1000};
    gSqxGc = {100, 110};
    gSqxR = {0, 0};
    gSqxCount = 1;
    expectRefusal(at("100"), notANumber());
}

TEST_F(DgdGc, TheGapTestLooksAtTheTypedStake)
{
    // Overlap of 50, then a jump whose typed row 300 to 340 is shifted to 350 to 390. Typed 330 runs on as 380: above
    // the back side, and not at the ahead side. The elevation screen compares the typed 330, which is not there either;
    // typed 345 runs on as 395, beyond 390, where the coordinate screen lets it pass and this one does not.
    setBreaks({{200, 150}, {300, 340}});
    expectRefusal(at("330"), gap());
    expectRefusal(at("345"), gap());
    EXPECT_TRUE(at("390"));
}

TEST_F(DgdGc, ANegativeStakeIsTheSecondReadingOfAnOverlap)
{
    setBreaks({{500, 480}});
    EXPECT_TRUE(at("490"));
    // The gap test of a negative stake: 490 is not above 500, so it passes.
    EXPECT_TRUE(at("-490"));
    EXPECT_EQ(screen.column(1), (Texts{"K0+490.000", "-K0+490.000"}));
    EXPECT_EQ(screen.column(3), (Texts{"109.8", "109.9"}));  // continuous 490 and 510
}

namespace {

struct PlGc : Elevation {
    Screen screen{kElevationRunColumns};
    PlGcInput good{.start = "0", .end = "100", .offset = "5", .step = "50", .thickness = {}};
    Outcome calc(const PlGcInput& in) { return CalcPlGc(in, screen.rows); }
};

}  // namespace

TEST_F(PlGc, OneRowAStakeWithBothSides)
{
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(1), (Texts{"1", "K0+000.000", "中桩", "100", "左5米", "100.1", "右5米", "99.9"}));
    EXPECT_EQ(screen.row(3), (Texts{"3", "K0+100.000", "中桩", "102", "左5米", "102.1", "右5米", "101.9"}));
    EXPECT_EQ(screen.state, (ScreenState{3, true}));
}

TEST_F(PlGc, AnEmptyOffsetMeansTheCentreOnly)
{
    good.offset = " ";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(2), (Texts{"2", "K0+050.000", "中桩", "101"}));
}

TEST_F(PlGc, ThicknessComesOffEveryElevation)
{
    good.thickness = "0.25";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(1), (Texts{"1", "K0+000.000", "中桩", "99.75", "左5米", "99.85", "右5米", "99.65"}));
}

TEST_F(PlGc, RefusalsInOrder)
{
    setBreaks({{300, 400}});
    expectOrder<PlGcInput>(
        good,
        {
            {"start", [](auto& in) { in.start = " "; }, refusal("开始里程不能为空！", "错误", "txtPlGcQdlc")},
            {"end", [](auto& in) { in.end = ""; }, refusal("结束里程不能为空！", "错误", "txtPlGcZdlc")},
            {"start in a gap", [](auto& in) { in.start = "360"; }, gap()},
            {"end in a gap", [](auto& in) { in.end = "350"; }, gap()},
            {"offset", [](auto& in) { in.offset = "x"; }, notANumber()},
            {"thickness", [](auto& in) { in.thickness = "x"; }, notANumber()},
            {"step", [](auto& in) { in.step = " "; }, refusal("间距不能为空！", "错误", "txtPlGcJj")},
        },
        [this](const PlGcInput& in) { return calc(in); });
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(PlGc, EqualStakesThenTheProfileThenTheGap)
{
    setBreaks({{300, 400}});
    gSqxCount = 0;
    good.start = good.end = "350";
    expectRefusal(calc(good), refusal("开始里程不能等于结束里程！", "错误"));
    good.end = "1";
    expectRefusal(calc(good), refusal("还未输入竖曲线参数！", "注意"));
    gSqxCount = 2;
    expectRefusal(calc(good), gap());
}

TEST_F(PlGc, LimitsAreThoseOfTheAlignment)
{
    setElements({{100, 0, 0, 0, 0, 0}, {900, 800, 0, 0, 0, 0}});
    good.start = "99";
    good.end = "901";
    expectRefusal(calc(good), refusal("开始里程不能小于起点里程！", "错误"));
    good.start = "100";
    expectRefusal(calc(good), refusal("结束里程不能大于终点里程！", "错误"));
    good.end = "900";
    EXPECT_TRUE(calc(good));
}

TEST_F(PlGc, WithoutAnAlignmentThereAreNoLimits)
{
    setElements({{0, 0, 0, 0, 0, 0}});
    good.start = "5000";
    good.end = "5050";
    good.offset = "";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(3), (Texts{"65", "64.5"})) << "the last grade goes on: 105 - 0.01 * 4000";
    EXPECT_NE(screen.warnings()[0], "");
}

TEST_F(PlGc, BeyondTheProfileRowsComeWithoutAMessage)
{
    gSqxLc = {20, 500, 1000};
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.grid.text().rows(), 4);
    EXPECT_NE(screen.warnings()[0], "") << "a quiet warning says so";
    EXPECT_EQ(screen.warnings()[1], "");
}

TEST_F(PlGc, ARunClearsTheGrid)
{
    EXPECT_TRUE(calc(good));
    good.end = "50";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.grid.text().rows(), 3);
}

TEST_F(PlGc, AStepOfZeroWalksUntilTheCounterOverflows)
{
    good.step = "0";
    good.offset = "";
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state, (ScreenState{32767, false}));
}

TEST_F(PlGc, BelowZeroTheWalkLooksAtTheStakeItself)
{
    setElements({{-1000, 0, 0, 0, 0, 0}, {1000, 2000, 0, 0, 0, 0}});
    gSqxLc = {-1000, 0, 1000};
    gSqxGc = {0, 1000, 2000};  // the elevation is the continuous stake plus 1000
    setBreaks({{100, 120}});
    gInLc = 500;  // not looked at here
    good = {.start = "-130", .end = "-110", .offset = {}, .step = "10", .thickness = {}};
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(3), (Texts{"1110", "1100", "890"})) << "130 - 20, 120 - 20, and -110 as it is";
}

TEST_F(PlGc, GapsAreSkippedByWholeSteps)
{
    setBreaks({{310, 350}});
    good = {.start = "270", .end = "400", .offset = {}, .step = "30", .thickness = {}};
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(1), (Texts{"K0+270.000", "K0+300.000", "K0+360.000", "K0+390.000"}));
    EXPECT_EQ(screen.column(3), (Texts{"105.4", "106", "106.4", "107"}));
    EXPECT_EQ(screen.warnings(), (Texts{"", "", "从K0+330.000起的桩号在断链中不存在，已跳过", ""}));
}

namespace {

struct PlGcFile : PlGc {
    ScriptedDialogs dialogs;
    std::string path = std::filesystem::temp_directory_path().string() + "/velumark-plgc-" + std::to_string(getpid());

    ~PlGcFile() override { std::filesystem::remove(path); }
    Outcome run(const std::string& bytes, const std::string& thickness = {})
    {
        WriteBytes(path, bytes);
        dialogs.open(path);
        return CalcPlGcFile(thickness, screen.rows);
    }
};

}  // namespace

TEST_F(PlGcFile, EverySideStandsInColumnsTwoAndThree)
{
    EXPECT_TRUE(run("100,-5\r\n100,5\r\n100,0\r\n", "0.5"));
    EXPECT_EQ(screen.row(1), (Texts{"1", "K0+100.000", "左5米", "101.6"}));
    EXPECT_EQ(screen.row(2), (Texts{"2", "K0+100.000", "右5米", "101.4"}));
    EXPECT_EQ(screen.row(3), (Texts{"3", "K0+100.000", "中桩", "101.5"}));
    EXPECT_EQ(screen.state, (ScreenState{3, true}));
}

TEST_F(PlGcFile, AppendsWithoutLimits)
{
    EXPECT_TRUE(calc(good));
    EXPECT_TRUE(run("2000,0\r\n"));
    EXPECT_EQ(screen.grid.text().rows(), 5);
    EXPECT_EQ(screen.row(4)[3], "95");
}

TEST_F(PlGcFile, AGapEndsTheRun)
{
    setBreaks({{300, 400}});
    expectRefusal(run("100,0\r\n350,0\r\n"), gap());
    EXPECT_EQ(screen.state, (ScreenState{1, false}));
}

TEST_F(PlGcFile, WithoutAProfileItEndsWithoutAWord)
{
    gSqxLc.clear();
    gSqxGc.clear();
    gSqxR.clear();
    gSqxCount = 0;
    EXPECT_TRUE(run("100,0\r\n"));
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(PlGcFile, ABadThicknessOrFieldEndsItWithoutAWord)
{
    EXPECT_TRUE(run("100,0\r\n", "x"));
    EXPECT_TRUE(run("100,0\r\n100,x\r\n"));
    EXPECT_EQ(screen.state, ScreenState{});
    dialogs.cancelOpen();
    EXPECT_TRUE(CalcPlGcFile("", screen.rows));
}
