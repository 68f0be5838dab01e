// Single point coordinates.

#include "screens/DgdZb.h"

#include "support/ScreenTest.h"

namespace {

struct DgdZb : FreshTables<testing::Test> {
    Screen screen{kCoordinateColumns};

    DgdZb()
    {
        straightNorth();
        gDxdName = {"GP1", "GP2"};
        gDxdX = {1100, 900};
        gDxdY = {1900, 2000};
        gDxdCount = 1;
    }
    Outcome calc(const DgdZbInput& in) { return CalcDgdZb(in, screen.rows); }
    static DgdZbInput at(const std::string& stake) { return {.stake = stake, .offset = {}, .skew = {}, .station = {}}; }
    static DgdZbInput beside(const std::string& stake, const std::string& side, const std::string& offset)
    {
        auto in = at(stake);
        in.side = side;
        in.offset = offset;
        return in;
    }
    static DgdZbInput skewed(const std::string& stake, const std::string& skew, const std::string& offset)
    {
        auto in = at(stake);
        in.skewed = true;
        in.skew = skew;
        in.offset = offset;
        return in;
    }
};

}  // namespace

TEST_F(DgdZb, CentreLineSeenFromTheOrigin)
{
    // X 1100, Y 2000: azimuth atan(2000/1100) = 61°11'21", distance root(1100² + 2000²) = 2282.542
    EXPECT_TRUE(calc(at(" 100 ")));
    EXPECT_EQ(screen.row(1), (Texts{"1", "K0+100.000", "中桩", "无", "61度11分21秒", "2282.542", "1100.000", "2000.000",
                                    "0度00分00秒"}));
    EXPECT_EQ(screen.state, (ScreenState{1, true}));
}

TEST_F(DgdZb, EachPressAppendsOneRow)
{
    EXPECT_TRUE(calc(at("100")));
    EXPECT_TRUE(calc(at("200")));
    EXPECT_EQ(screen.column(0), (Texts{"1", "2"}));
    EXPECT_EQ(screen.column(6), (Texts{"1100.000", "1200.000"}));
}

TEST_F(DgdZb, SidesLieOnTheNormals)
{
    EXPECT_TRUE(calc(beside("100", "左边桩", "12.5")));
    EXPECT_TRUE(calc(beside("100", "右边桩", "0.5")));
    EXPECT_EQ(screen.column(2), (Texts{"左12.5米", "右.5米"}));
    EXPECT_EQ(screen.column(6), (Texts{"1100.000", "1100.000"}));
    EXPECT_EQ(screen.column(7), (Texts{"1987.500", "2000.500"}));
    EXPECT_EQ(screen.column(3), (Texts{"无", "无"}));
}

TEST_F(DgdZb, TheTypedOffsetKeepsItsSign)
{
    EXPECT_TRUE(calc(beside("100", "左边桩", "-2")));
    EXPECT_EQ(screen.row(1)[2], "左-2米");
    EXPECT_EQ(screen.row(1)[7], "2002.000");
}

TEST_F(DgdZb, CentreDoesNotLookAtTheOffset)
{
    EXPECT_TRUE(calc(beside("100", "中桩", "no number")));
    EXPECT_EQ(screen.row(1)[7], "2000.000");
}

TEST_F(DgdZb, SkewRunsClockwiseFromTheTangent)
{
    // 30°: along the tangent 10 cos 30 = 8.660, to the right 10 sin 30 = 5.000
    EXPECT_TRUE(calc(skewed("100", "30", "10")));
    EXPECT_EQ(screen.row(1)[2], "斜交10米");
    EXPECT_EQ(screen.row(1)[3], "30度00分00秒");
    EXPECT_EQ(screen.row(1)[6], "1108.660");
    EXPECT_EQ(screen.row(1)[7], "2005.000");
    EXPECT_EQ(screen.row(1)[8], "0度00分00秒") << "the tangent, without the skew";
}

TEST_F(DgdZb, SkewIsPackedAndANegativeOneRunsCounterClockwise)
{
    // 45.3000 is 45.5 degrees: 100 cos 45.5 = 70.091, 100 sin 45.5 = 71.325
    EXPECT_TRUE(calc(skewed("100", "-45.3000", "100")));
    EXPECT_EQ(screen.row(1)[3], "-45度30分00秒");
    EXPECT_EQ(screen.row(1)[6], "1170.091");
    EXPECT_EQ(screen.row(1)[7], "1928.675");
}

TEST_F(DgdZb, SkewOfZeroShowsAMinus)
{
    EXPECT_TRUE(calc(skewed("100", "0", "10")));
    EXPECT_EQ(screen.row(1)[3], "-0度00分00秒");
    EXPECT_EQ(screen.row(1)[6], "1110.000");
}

TEST_F(DgdZb, InSkewModeThePickedSideIsIgnored)
{
    auto in = skewed("100", "90", "10");
    in.side = "左边桩";
    EXPECT_TRUE(calc(in));
    EXPECT_EQ(screen.row(1)[2], "斜交10米");
    EXPECT_EQ(screen.row(1)[7], "2010.000");
}

TEST_F(DgdZb, RefusalsInOrder)
{
    setBreaks({{300, 400}});
    auto good = skewed("100", "90", "5");
    good.station = {.typed = true, .pick = {}, .x = "1", .y = "2"};
    expectOrder<DgdZbInput>(
        good,
        {
            {"stake", [](auto& in) { in.stake = "  "; }, refusal("计算里程不能为空！", "错误", "txtDgdZbFylc")},
            {"skew", [](auto& in) { in.skew = " "; }, refusal("夹角不能为空！", "错误", "txtDgdJj")},
            {"offset", [](auto& in) { in.offset = ""; }, refusal("偏距不能为空！", "错误", "txtDgdPj")},
            {"gap", [](auto& in) { in.stake = "350"; }, gap()},
            {"X", [](auto& in) { in.station.x = " "; }, refusal("测站X坐标不能为空！", "错误", "txtDgdCzX")},
            {"Y", [](auto& in) { in.station.y = ""; }, refusal("测站Y坐标不能为空！", "错误", "txtDgdCzY")},
            {"range", [](auto& in) { in.stake = in.stake == "350" ? "350" : "1200"; },
             refusal("不能大于终点里程！", "错误")},
        },
        [this](const DgdZbInput& in) { return calc(in); });
    EXPECT_EQ(screen.grid.text().rows(), 1) << "no refusal leaves a row";
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(DgdZb, ANumberThatIsNoneSpeaksBeforeALaterEmptyField)
{
    auto in = skewed("1.2.3", "", "");
    expectRefusal(calc(in), notANumber());
    in = skewed("100", "12-3", "");
    expectRefusal(calc(in), notANumber());
    in = skewed("100", "90", "-");
    expectRefusal(calc(in), notANumber());
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_FALSE(screen.state.changed);
}

TEST_F(DgdZb, SideWithoutAnOffsetIsRefused)
{
    expectRefusal(calc(beside("100", "左边桩", " ")), refusal("偏距不能为空！", "错误", "txtDgdPj"));
    expectRefusal(calc(beside("100", "右边桩", "")), refusal("偏距不能为空！", "错误", "txtDgdPj"));
}

TEST_F(DgdZb, RangeComesAfterTheStationIsWritten)
{
    auto in = at("1000.001");
    in.station = {.typed = true, .pick = {}, .x = "7", .y = "8"};
    expectRefusal(calc(in), refusal("不能大于终点里程！", "错误"));
    EXPECT_EQ(gStationX, 7);
    EXPECT_EQ(gStationY, 8);
}

TEST_F(DgdZb, BeforeTheStart)
{
    setElements({{100, 0, 0, 0, 0, 0}, {200, 100, 0, 0, 0, 0}});
    expectRefusal(calc(at("99.999")), refusal("不能小于起点里程！", "错误"));
    EXPECT_TRUE(calc(at("100")));
}

TEST_F(DgdZb, StationFromAPickedTraversePoint)
{
    // X 1000 + 100 - 1100 = 0, Y 2000 - 1900 = 100: due east, 100 m
    auto in = at("100");
    in.station = {.pick = "GP1", .pickIndex = 0, .x = {}, .y = {}};
    EXPECT_TRUE(calc(in));
    EXPECT_EQ(screen.row(1)[4], "90度00分00秒");
    EXPECT_EQ(screen.row(1)[5], "100.000");
    EXPECT_EQ(gStationX, 1100);
}

TEST_F(DgdZb, NothingPickedMeansTheOriginWithoutAWord)
{
    gStationX = 55;
    gStationY = 66;
    EXPECT_TRUE(calc(at("100")));
    EXPECT_EQ(gStationX, 0);
    EXPECT_EQ(gStationY, 0);
}

TEST_F(DgdZb, RefusalAtYLeavesStationXChanged)
{
    auto in = at("100");
    in.station = {.typed = true, .pick = {}, .x = "1234.5", .y = " "};
    expectRefusal(calc(in), refusal("测站Y坐标不能为空！", "错误", "txtDgdCzY"));
    EXPECT_EQ(gStationX, 1234.5);
    EXPECT_EQ(gStationY, 0);
    in.station.x = "99";
    in.station.y = "1.2.3";
    expectRefusal(calc(in), notANumber());
    EXPECT_EQ(gStationX, 99) << "also where Y is no number";
}

TEST_F(DgdZb, TypedStationWinsOverThePick)
{
    auto in = at("100");
    in.station = {.typed = true, .pick = "GP1", .pickIndex = 0, .x = "1000", .y = "2000"};
    EXPECT_TRUE(calc(in));
    EXPECT_EQ(screen.row(1)[5], "100.000");
    EXPECT_EQ(screen.row(1)[4], "0度00分00秒");
}

TEST_F(DgdZb, StationOnThePointHasNoDistance)
{
    auto in = at("100");
    in.station = {.typed = true, .pick = {}, .x = "1100", .y = "2000"};
    EXPECT_TRUE(calc(in));
    EXPECT_EQ(screen.row(1)[4], "0度00分00秒");
    EXPECT_EQ(screen.row(1)[5], "0.000");
}

TEST_F(DgdZb, ATextThatIsNoTraversePointEndsInTheTrap)
{
    auto in = at("100");
    in.station = {.pick = "GP9", .pickIndex = -1, .x = {}, .y = {}};
    expectRefusal(calc(in), notANumber());
}

TEST_F(DgdZb, EndStakeShowsTheLastPoint)
{
    EXPECT_TRUE(calc(beside("250", "右边桩", "3")));
    EXPECT_TRUE(calc(at("1000")));
    EXPECT_EQ(screen.row(2)[1], "K1+000.000");
    EXPECT_EQ(screen.row(2)[6], "1250.000");
    EXPECT_EQ(screen.row(2)[7], "2003.000");
    EXPECT_NE(screen.grid.text().warning(2), "") << "a quiet warning says so";
    EXPECT_EQ(screen.grid.text().warning(1), "");
}

TEST_F(DgdZb, EndStakeAfterStartShowsZero)
{
    EXPECT_TRUE(calc(at("1000")));
    EXPECT_EQ(screen.row(1)[6], "0.000");
    EXPECT_EQ(screen.row(1)[7], "0.000");
}

TEST_F(DgdZb, NegativeStakeWithoutBreaksIsItsAmountAndKeepsItsSign)
{
    EXPECT_TRUE(calc(at("-200")));
    EXPECT_EQ(screen.row(1)[1], "-K0+200.000");
    EXPECT_EQ(screen.row(1)[6], "1200.000");
}

TEST_F(DgdZb, TheRowShowsTheTypedStakeNotTheContinuousOne)
{
    setBreaks({{300, 400}});
    EXPECT_TRUE(calc(at("450")));
    EXPECT_EQ(screen.row(1)[1], "K0+450.000");
    EXPECT_EQ(screen.row(1)[6], "1350.000");
}

TEST_F(DgdZb, ANegativeStakeIsTheSecondReadingOfAnOverlap)
{
    setBreaks({{500, 480}});  // 480 to 500 occurs twice: continuous 480..500 and 500..520
    EXPECT_TRUE(calc(at("490")));
    EXPECT_TRUE(calc(at("-490")));
    EXPECT_EQ(screen.column(6), (Texts{"1490.000", "1510.000"}));
    EXPECT_EQ(screen.column(1), (Texts{"K0+490.000", "-K0+490.000"}));
}

TEST_F(DgdZb, TwoBreaksBelowANegativeStakeShiftItTwice)
{
    setBreaks({{100, 110}, {500, 480}});
    // 490: 10 off at the jump (480), before the overlap. The minus takes 10 off once more and adds 20: 490.
    EXPECT_TRUE(calc(at("-490")));
    EXPECT_EQ(screen.row(1)[6], "1490.000");
}

TEST_F(DgdZb, WithoutARoadTheTrapSpeaks)
{
    setElements({});
    gElemCount = 0;
    expectRefusal(calc(at("100")), notANumber());
}

TEST_F(DgdZb, AStationThatIsReadOutlivesAFailureBehindIt)
{
    setElements({});
    gElemCount = 0;
    auto in = at("100");
    in.station = {.typed = true, .pick = {}, .x = "3", .y = "4"};
    expectRefusal(calc(in), notANumber());
    EXPECT_EQ(gStationX, 3);
    EXPECT_EQ(gStationY, 4);
}
