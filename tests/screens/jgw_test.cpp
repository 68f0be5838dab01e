// Structure corner points, and the run that frmPl hands over.

#include "screens/Jgw.h"

#include "base/ReplaceFile.h"
#include "screens/Pl.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

#include <cmath>
#include <filesystem>
#include <unistd.h>

namespace {

struct Jgw : FreshTables<testing::Test> {
    Screen screen{kCornerColumns};
    JgwStructures structures;
    JgwInput good{.stake = "100", .kq = "5", .kh = "5", .zz = "3", .zy = "4", .skew = {}, .station = {}};

    Jgw() { straightNorth(); }
    Outcome calc(const JgwInput& in) { return CalcJgw(in, structures, screen.rows); }
};

constexpr double kRealPi = 3.14159265358979323846;

/// The corners by plane geometry, with the true pi: the sides run along the skew line at their distance Z; the ends
/// are parallel to it (parallelogram), or the front stands at right angles to it (rectangle).
std::array<PlanePoint, 4> cornersByGeometry(double azDeg, double kq, double kh, double zz, double zy, double skewDeg,
                                            bool skewEnds)
{
    const double az = azDeg * kRealPi / 180, line = (azDeg + skewDeg) * kRealPi / 180;
    const double ux = std::cos(line), uy = std::sin(line);  // along the skew line, to the right
    // Where the ends meet the road: the distance between end and centre is measured square to the skew line, and so
    // along the tangent it is longer; the rectangle goes along the square itself.
    const double square = (azDeg + skewDeg - 90) * kRealPi / 180;
    const auto base = [&](double k) {
        if (!skewEnds) return PlanePoint{std::cos(square) * k, std::sin(square) * k};
        const double along = k / std::sin(skewDeg * kRealPi / 180);
        return PlanePoint{std::cos(az) * along, std::sin(az) * along};
    };
    const auto corner = [&](double k, double z) {
        const PlanePoint b = base(k);
        return PlanePoint{b.x + ux * z, b.y + uy * z};
    };
    return {corner(kq, -zz), corner(kq, zy), corner(-kh, -zz), corner(-kh, zy)};
}

}  // namespace

TEST_F(Jgw, SquareOnAStraightToTheNorthInBothModes)
{
    for (const bool skewEnds : {true, false}) {
        good.skewEnds = skewEnds;
        EXPECT_TRUE(calc(good));
    }
    for (const int first : {1, 5}) {
        for (int i = 0; i < 4; ++i) EXPECT_EQ(screen.row(first + i)[1], "K0+100.000");
        EXPECT_EQ(screen.row(first)[2], "左前点");
        EXPECT_EQ(screen.row(first + 1)[2], "右前点");
        EXPECT_EQ(screen.row(first + 2)[2], "左后点");
        EXPECT_EQ(screen.row(first + 3)[2], "右后点");
        const auto xy = [&](int row) { return screen.row(row)[6] + "," + screen.row(row)[7]; };
        EXPECT_EQ(xy(first), "1105.000,1997.000");
        EXPECT_EQ(xy(first + 1), "1105.000,2004.000");
        EXPECT_EQ(xy(first + 2), "1095.000,1997.000");
        EXPECT_EQ(xy(first + 3), "1095.000,2004.000");
    }
    EXPECT_EQ(screen.column(3), Texts(8, "无"));
    EXPECT_EQ(screen.column(8), Texts(8, "0度00分00秒"));
    EXPECT_EQ(screen.state, (ScreenState{8, true}));
    EXPECT_EQ(structures.count, 2);
}

TEST_F(Jgw, AzimuthAndDistanceAreSeenFromTheStation)
{
    good.station = {.typed = true, .pick = {}, .x = "1105", .y = "1990"};
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(1)[4], "90度00分00秒");
    EXPECT_EQ(screen.row(1)[5], "7.000");
}

TEST(StructureCorners, AgreeWithPlaneGeometry)
{
    // The pi of the house is 5.4e-8 short: at 50 m from the centre that is less than 1e-5 m.
    for (const double az : {0.0, 33.25, 121.5, 240.0, 359.0})
        for (const double skew : {20.0, 45.0, 90.0, 110.0, 160.0})
            for (const bool skewEnds : {true, false}) {
                const auto corners = StructureCorners({1000, 2000}, az, {5, 6, 30, 40}, skew, skewEnds);
                const auto wanted = cornersByGeometry(az, 5, 6, 30, 40, skew, skewEnds);
                for (std::size_t i = 0; i < 4; ++i) {
                    EXPECT_NEAR(corners[i].x, 1000 + wanted[i].x, 1e-5) << az << " " << skew << " " << i;
                    EXPECT_NEAR(corners[i].y, 2000 + wanted[i].y, 1e-5) << az << " " << skew << " " << i;
                }
            }
}

TEST(StructureCorners, SquareOnesAreAlikeInBothModes)
{
    const auto a = StructureCorners({1000, 2000}, 77, {5, 6, 7, 8}, 90, true);
    const auto b = StructureCorners({1000, 2000}, 77, {5, 6, 7, 8}, 90, false);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(a[i].x, b[i].x, 1e-6);
        EXPECT_NEAR(a[i].y, b[i].y, 1e-6);
    }
}

TEST(StructureCorners, AnAngleOfZeroGoesLeftBehindAndRightBehind)
{
    // Left A - 180, right A + 180: both sides point back along the road. No guard stands against it.
    const auto corners = StructureCorners({0, 0}, 0, {0, 0, 3, 4}, 0, false);
    EXPECT_NEAR(corners[0].x, -3, 1e-6);
    EXPECT_NEAR(corners[1].x, -4, 1e-6);
}

TEST(StructureCorners, AnAngleOfZeroWithSkewEndsThrowsTheCornersFarAway)
{
    const auto corners = StructureCorners({0, 0}, 0, {5, 5, 3, 4}, 0, true);
    EXPECT_GT(std::abs(corners[0].x), 1e6);
}

TEST(StructureCorners, AnAngleBelowZeroAfterAdding180IsTakenAsItIs)
{
    EXPECT_EQ(WorkingAngle(-30), 150);
    EXPECT_EQ(WorkingAngle(30), 30);
    EXPECT_EQ(WorkingAngle(-200), -20);
    EXPECT_NEAR(WorkingAngle(-0.3), 179.7, 1e-9) << "packed numbers, added as plain ones";
    // Left A + J, right J + 180 + A.
    const auto corners = StructureCorners({0, 0}, 0, {0, 0, 1, 1}, -20, false);
    EXPECT_NEAR(corners[0].y, std::sin(-20 * kRealPi / 180), 1e-6);
    EXPECT_NEAR(corners[1].y, std::sin(160 * kRealPi / 180), 1e-6);
}

TEST_F(Jgw, ANegativeAngleWorksAs150AndShowsAsTyped)
{
    good.skewed = true;
    good.skew = "-30.0000";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.column(3), Texts(4, "-30度00分00秒"));
    const auto wanted = cornersByGeometry(0, 5, 5, 3, 4, 150, true);
    EXPECT_NEAR(std::stod(screen.row(1)[6]), 1100 + wanted[0].x, 0.001);
    EXPECT_NEAR(std::stod(screen.row(1)[7]), 2000 + wanted[0].y, 0.001);
}

TEST_F(Jgw, TheAngleIsPacked)
{
    good.skewed = true;
    good.skew = "60.3000";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(1)[3], "60度30分00秒");
    const auto wanted = cornersByGeometry(0, 5, 5, 3, 4, 60.5, true);
    EXPECT_NEAR(std::stod(screen.row(2)[7]), 2000 + wanted[1].y, 0.001);
}

TEST_F(Jgw, RefusalsInOrder)
{
    setBreaks({{300, 400}});
    good.skewed = true;
    good.skew = "90";
    good.station = {.typed = true, .pick = {}, .x = "1", .y = "2"};
    expectOrder<JgwInput>(
        good,
        {
            {"stake", [](auto& in) { in.stake = " "; }, refusal("结构物中心里程不能为空！", "错误", "txtJgwFylc")},
            {"skew", [](auto& in) { in.skew = ""; }, refusal("夹角不能为空！", "错误", "txtJgwJj")},
            {"K front", [](auto& in) { in.kq = " "; }, refusal("K前不能为空！", "错误", "txtJgwKq")},
            {"K back", [](auto& in) { in.kh = ""; }, refusal("K后不能为空！", "错误", "txtJgwKh")},
            {"Z left", [](auto& in) { in.zz = ""; }, refusal("Z左不能为空！", "错误", "txtJgwZz")},
            {"Z right", [](auto& in) { in.zy = ""; }, refusal("Z右不能为空！", "错误", "txtJgwZy")},
            {"gap", [](auto& in) { in.stake = "350"; }, gap()},
            {"X", [](auto& in) { in.station.x = ""; }, refusal("测站X坐标不能为空！", "错误", "txtJgwCzX")},
            {"Y", [](auto& in) { in.station.y = ""; }, refusal("测站Y坐标不能为空！", "错误", "txtJgwCzY")},
        },
        [this](const JgwInput& in) { return calc(in); });
    EXPECT_EQ(screen.state, ScreenState{});
    EXPECT_EQ(structures.count, 0);
}

TEST_F(Jgw, RangeWorksOnTheTypedFigureBeforeTheBreaks)
{
    setElements({{100, 0, 0, 0, 0, 0}, {1000, 900, 0, 0, 0, 0}});
    setBreaks({{300, 400}});
    good.kq = "";
    good.stake = "99";
    expectRefusal(calc(good), refusal("不能小于起点里程！", "错误"));
    good.stake = "-1000.5";
    expectRefusal(calc(good), refusal("不能大于终点里程！", "错误"));
    good.kq = "5";
    good.stake = "1050";  // continuous 950: on the road, and yet refused
    expectRefusal(calc(good), refusal("不能大于终点里程！", "错误"));
    good.stake = "1000";
    EXPECT_TRUE(calc(good));
}

TEST_F(Jgw, TheAngleIsReadBeforeTheSizesAreMissed)
{
    good.skewed = true;
    good.skew = "1.2.3";
    good.kq = "";
    expectRefusal(calc(good), notANumber());
    good.skewed = false;
    good.kq = "1.2.3";
    good.zy = "";
    expectRefusal(calc(good), refusal("Z右不能为空！", "错误", "txtJgwZy"), "sizes are read when all are there");
    good.zy = "4";
    expectRefusal(calc(good), notANumber());
}

TEST_F(Jgw, EndOfTheRoadUsesTheLastCentre)
{
    EXPECT_TRUE(calc(good));
    good.stake = "1000";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(screen.row(5)[1], "K1+000.000");
    EXPECT_EQ(screen.row(5)[6], screen.row(1)[6]);
    for (const int row : {4, 5, 6, 7}) EXPECT_NE(screen.warnings()[static_cast<std::size_t>(row)], "");
}

TEST_F(Jgw, TextsOfEachStructureAreKeptTrimmed)
{
    good.kq = " 5.0 ";
    good.zy = "04";
    EXPECT_TRUE(calc(good));
    EXPECT_EQ(structures.kq[0], "") << "element 0 is never written";
    EXPECT_EQ(structures.kq[1], "5.0");
    EXPECT_EQ(structures.zy[1], "04");
}

TEST_F(Jgw, DeletingARowLeavesTheStructures)
{
    EXPECT_TRUE(calc(good));
    const auto before = structures;
    screen.rows.deleteCursorRow();
    EXPECT_EQ(screen.state.rows, 3);
    EXPECT_EQ(structures, before);
}

TEST_F(Jgw, The101stStructureWritesItsRowsAndFails)
{
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(calc(good));
    screen.state.changed = false;
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state, (ScreenState{404, true}));
    EXPECT_EQ(structures.count, 101);
    expectRefusal(calc(good), notANumber());
    EXPECT_EQ(screen.state.rows, 408);
}

namespace {

struct Pl : Jgw {
    PlInput run{.start = "100", .end = "300", .step = "100"};

    Pl() { good.stake = ""; }
    Outcome ok(const PlInput& in) { return CalcPl(in, good); }
    /// What the OK button does in the end.
    Outcome okAndCalculate()
    {
        const auto outcome = ok(run);
        return outcome ? calc(good) : outcome;
    }
};

}  // namespace

TEST_F(Pl, HandsOverStartEndAndStep)
{
    EXPECT_TRUE(ok(run));
    EXPECT_EQ(gPlStart, 100);
    EXPECT_EQ(gPlEnd, 300);
    EXPECT_EQ(gPlStep, 100);
    EXPECT_TRUE(gPlBatch);
}

TEST_F(Pl, ARunAppendsFourRowsAStake)
{
    EXPECT_TRUE(okAndCalculate());
    EXPECT_TRUE(okAndCalculate());
    EXPECT_EQ(screen.state, (ScreenState{24, true}));
    EXPECT_EQ(screen.row(5)[1], "K0+200.000");
    EXPECT_EQ(screen.row(12)[1], "K0+300.000");
    EXPECT_EQ(structures.count, 6);
    EXPECT_EQ(structures.kq[6], "5");
    EXPECT_FALSE(gPlBatch);
}

TEST_F(Pl, RefusalsInOrder)
{
    const auto notice = [](const char* text) { return refusal(text, "注意"); };
    good.skewed = true;
    good.skew = "90";
    good.station = {.typed = true, .pick = {}, .x = "1", .y = "2"};
    expectOrder<PlInput>(run,
                         {
                             {"start", [](auto& in) { in.start = " "; }, notice("批量计算起点不能为空！")},
                             {"end", [](auto& in) { in.end = ""; }, notice("批量计算终点不能为空！")},
                             {"step", [](auto& in) { in.step = " "; }, notice("批量计算间距不能为空！")},
                         },
                         [this](const PlInput& in) { return ok(in); });
    run.step = "0";
    run.start = run.end = "100";
    expectRefusal(ok(run), notice("批量计算间距不能为0！"));
    run.step = "1";
    expectRefusal(ok(run), notice("批量计算起点不能等于批量计算终点！"));
    EXPECT_FALSE(gPlBatch);
    EXPECT_EQ(gPlStart, 0) << "the numbers are taken after these checks";
}

TEST_F(Pl, RangeAndGapsComeAfterTheNumbersAreTaken)
{
    setElements({{100, 0, 0, 0, 0, 0}, {900, 800, 0, 0, 0, 0}});
    setBreaks({{300, 400}});
    good.kq = "";
    run = {.start = "99", .end = "2000", .step = "-7"};
    expectRefusal(ok(run), refusal("开始里程不能小于起点里程！", "错误"));
    EXPECT_EQ(gPlStart, 0);
    EXPECT_EQ(gPlEnd, 2000);
    EXPECT_EQ(gPlStep, -7);
    run.start = "200";
    expectRefusal(ok(run), refusal("结束里程不能大于终点里程！", "错误"));
    EXPECT_EQ(gPlStart, 200);
    EXPECT_EQ(gPlEnd, 0);
    run.end = "350";
    expectRefusal(ok(run), gap());
    EXPECT_EQ(gPlEnd, 350) << "a gap leaves it";
    run.start = "360";
    run.end = "2000";
    expectRefusal(ok(run), gap());
    run = {.start = "200", .end = "500", .step = "10"};
    expectRefusal(ok(run), refusal("K前不能为空！", "错误", "txtJgwKq"), "then the boxes on frmJgw");
    EXPECT_FALSE(gPlBatch);
}

TEST_F(Pl, BoxesOfTheOtherFormAreMissedInOrder)
{
    good.skewed = true;
    good.skew = "90";
    good.station = {.typed = true, .pick = {}, .x = "1", .y = "2"};
    expectOrder<JgwInput>(
        good,
        {
            {"skew", [](auto& in) { in.skew = ""; }, refusal("夹角不能为空！", "错误", "txtJgwJj")},
            {"K front", [](auto& in) { in.kq = " "; }, refusal("K前不能为空！", "错误", "txtJgwKq")},
            {"K back", [](auto& in) { in.kh = ""; }, refusal("K后不能为空！", "错误", "txtJgwKh")},
            {"Z left", [](auto& in) { in.zz = ""; }, refusal("Z左不能为空！", "错误", "txtJgwZz")},
            {"Z right", [](auto& in) { in.zy = ""; }, refusal("Z右不能为空！", "错误", "txtJgwZy")},
            {"X", [](auto& in) { in.station.x = ""; }, refusal("测站X坐标不能为空！", "错误", "txtJgwCzX")},
            {"Y", [](auto& in) { in.station.y = ""; }, refusal("测站Y坐标不能为空！", "错误", "txtJgwCzY")},
        },
        [this](const JgwInput& in) { return CalcPl(run, in); });
    EXPECT_FALSE(gPlBatch);
}

TEST_F(Pl, NumbersThatAreNone)
{
    for (auto field : {&PlInput::start, &PlInput::end, &PlInput::step}) {
        auto in = run;
        in.*field = "1.2.3";
        expectRefusal(ok(in), notANumber());
    }
    EXPECT_FALSE(gPlBatch);
}

TEST_F(Pl, TheRunResolvesTheStakeBoxWhateverItHolds)
{
    setBreaks({{300, 400}});
    good.stake = "350";
    expectRefusal(okAndCalculate(), gap());
    EXPECT_TRUE(gPlBatch) << "the next press runs the batch";
    EXPECT_EQ(screen.state.rows, 0);
    good.stake = "x";
    expectRefusal(calc(good), notANumber());
    EXPECT_TRUE(gPlBatch);
    good.stake = "";
    EXPECT_TRUE(calc(good)) << "nothing reads as 0";
    EXPECT_EQ(screen.state.rows, 12);
    EXPECT_FALSE(gPlBatch);
}

TEST_F(Pl, ANegativeStepFailsAtThe101stStructure)
{
    run = {.start = "300", .end = "400", .step = "-1"};
    expectRefusal(okAndCalculate(), notANumber());
    EXPECT_EQ(screen.state, (ScreenState{404, true}));
    EXPECT_EQ(structures.count, 101);
    EXPECT_TRUE(gPlBatch) << "after an error the next press runs the batch again";
}

TEST_F(Pl, GapsAreSkippedByWholeSteps)
{
    setBreaks({{310, 350}});
    run = {.start = "270", .end = "400", .step = "30"};
    EXPECT_TRUE(okAndCalculate());
    EXPECT_EQ(screen.row(9)[1], "K0+360.000");
    EXPECT_EQ(screen.row(9)[6], "1325.000") << "continuous 320, and 5 m in front";
    EXPECT_EQ(screen.state.rows, 16);
    EXPECT_NE(screen.warnings()[8], "");
    EXPECT_EQ(screen.warnings()[9], "") << "the first row after the gap alone";
    EXPECT_EQ(screen.warnings()[12], "");
}

TEST_F(Pl, BelowZeroTheWalkLooksAtTheStakeItself)
{
    setElements({{-1000, 0, 2000, 0, 0, 0}, {1000, 2000, 2000, 0, 0, 0}});  // X is stake + 1000
    setBreaks({{100, 120}});
    gInLc = 500;
    good.kq = "0";
    run = {.start = "-130", .end = "-110", .step = "10"};
    EXPECT_TRUE(okAndCalculate());
    EXPECT_EQ(screen.row(1)[6], "1110.000");
    EXPECT_EQ(screen.row(5)[6], "1100.000");
    EXPECT_EQ(screen.row(9)[6], "890.000");
}

TEST_F(Pl, AnAbandonedRunEndsTheBatch)
{
    struct Impatient : ResultTable {
        using ResultTable::ResultTable;
        int asked = 0;
        bool abandoned() override { return ++asked > 1; }
    } rows(screen.grid);
    EXPECT_TRUE(ok(run));
    EXPECT_TRUE(CalcJgw(good, structures, rows));
    EXPECT_EQ(rows.state, (ScreenState{4, true}));
    EXPECT_FALSE(gPlBatch);
}

namespace {

struct JgwFile : Jgw {
    ScriptedDialogs dialogs;
    std::string path = std::filesystem::temp_directory_path().string() + "/velumark-jgw-" + std::to_string(getpid());

    ~JgwFile() override { std::filesystem::remove(path); }
    Outcome run(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        dialogs.open(path);
        return CalcJgwFile(good, structures, screen.rows);
    }
};

}  // namespace

TEST_F(JgwFile, AStructureALine)
{
    EXPECT_TRUE(run("100,5,6,3,4\r\n200,1.50,1,2,2\r\n"));
    EXPECT_EQ(screen.state, (ScreenState{8, true}));
    EXPECT_EQ(screen.row(3)[6], "1094.000");
    EXPECT_EQ(screen.row(5)[6], "1201.500");
    EXPECT_EQ(structures.count, 2);
    EXPECT_EQ(structures.kq[2], "1.5") << "the text of the double";
}

TEST_F(JgwFile, IsLaidOutSquareAndShowsAnAngleThatNothingSets)
{
    good.skewed = true;
    good.skew = "45";
    EXPECT_TRUE(run("100,5,5,3,4\r\n"));
    EXPECT_EQ(screen.column(3), Texts(4, "-0度00分00秒"));
    EXPECT_EQ(screen.row(1)[6], "1105.000");
    EXPECT_EQ(screen.row(1)[7], "1997.000");
}

TEST_F(JgwFile, ReadsTheStationForEachLine)
{
    good.station = {.typed = true, .pick = {}, .x = "7", .y = ""};
    expectRefusal(run("100,5,5,3,4\r\n"), refusal("测站Y坐标不能为空！", "错误", "txtJgwCzY"));
    EXPECT_EQ(gStationX, 7);
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(JgwFile, AGapEndsTheRunAndKeepsTheRowsBefore)
{
    setBreaks({{300, 400}});
    expectRefusal(run("100,5,5,3,4\r\n350,5,5,3,4\r\n"), gap());
    EXPECT_EQ(screen.state, (ScreenState{4, true})) << "each structure sets the flag";
}

TEST_F(JgwFile, ErrorsEndItWithoutAWordAndWithTheRowsMadeSoFar)
{
    EXPECT_TRUE(run("100,5,5,3\r\n"));
    EXPECT_TRUE(run("100,5,5,3,4\r\n200,5,5,x,4\r\n"));
    EXPECT_EQ(screen.state, ScreenState{}) << "all lines are parsed first";
    std::string text;
    for (int i = 0; i < 102; ++i) text += "100,5,5,3,4\r\n";
    EXPECT_TRUE(run(text));
    EXPECT_EQ(screen.state, (ScreenState{404, true}));
    dialogs.cancelOpen();
    EXPECT_TRUE(CalcJgwFile(good, structures, screen.rows));
}
