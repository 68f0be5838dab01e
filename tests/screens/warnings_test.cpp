// Quiet warnings: when they speak, and that they move nothing.

#include "screens/Rows.h"

#include "engine/Route.h"
#include "support/ScreenTest.h"

namespace {

struct Warnings : FreshTables<testing::Test> {
    Warnings() { straightNorth(); }
    static std::string misses(const std::string& stake, const std::string& offset, double x, double y)
    {
        gOutLcText = stake;
        gOutOffsetText = offset;
        gInX = x;
        gInY = y;
        return warning::Misses();
    }
};

}  // namespace

TEST_F(Warnings, AStakeThatAnElementHoldsIsFine)
{
    EXPECT_EQ(warning::OffRoute(0), "");
    EXPECT_EQ(warning::OffRoute(999.999), "");
}

TEST_F(Warnings, AStakeThatNoElementHoldsIsNamed)
{
    for (const double stake : {-0.001, 1000.0, 5000.0})
        EXPECT_EQ(warning::OffRoute(stake), "桩号不在任何线元内，坐标和切线方位角沿用上一次计算的结果") << stake;
}

TEST_F(Warnings, BeyondTheProfile)
{
    sharpProfile();
    EXPECT_EQ(warning::OffProfile(0), "");
    EXPECT_EQ(warning::OffProfile(1000), "");
    EXPECT_EQ(warning::OffProfile(-0.001), "桩号超出竖曲线范围，高程按端部坡度推算");
    EXPECT_EQ(warning::OffProfile(1000.001), "桩号超出竖曲线范围，高程按端部坡度推算");
}

TEST_F(Warnings, AnInverseRowThatComesBackIsFine)
{
    EXPECT_EQ(misses("K0+100.000", "左2.500米", 1100, 1997.5), "");
    EXPECT_EQ(misses("K0+100.000", "中", 1100, 2000), "");
    EXPECT_EQ(misses("K0+100.000", "右2.500米", 1100, 2002.504), "") << "4 mm";
    EXPECT_EQ(misses("K1+000.000", "右2.500米", 2000, 2002.5), "") << "the end of the road can be laid out too";
}

TEST_F(Warnings, AnInverseRowThatMissesSaysByHowMuch)
{
    EXPECT_EQ(misses("K0+100.000", "右2.500米", 1100, 2002.506), "按反算的里程和偏距复核，与输入点相差0.006米");
    EXPECT_EQ(misses("K0+100.000", "右2.500米", 1100, 1997.5), "按反算的里程和偏距复核，与输入点相差5.000米");
}

TEST_F(Warnings, TheSecondPassOfAnOverlapIsLaidOutAsSuch)
{
    setBreaks({{500, 480}});
    EXPECT_EQ(misses("-K0+490.000", "中", 1510, 2000), "");
    EXPECT_EQ(misses("K0+490.000", "中", 1490, 2000), "");
    EXPECT_NE(misses("K0+490.000", "中", 1510, 2000), "");
}

TEST_F(Warnings, AStakeThatCannotBeLaidOutSaysSo)
{
    setBreaks({{500, 600}});
    EXPECT_EQ(misses("K0+550.000", "中", 1500, 2000), "反算的里程和偏距无法复核");
    EXPECT_EQ(misses("--K0+550.000", "中", 1500, 2000), "反算的里程和偏距无法复核");
}

TEST_F(Warnings, MoveNothing)
{
    sharpProfile();
    setBreaks({{500, 480}});
    gInX = 1510;
    gInY = 2003;
    XYToStakeFromStart();
    const Shared before = shared;
    warning::Misses();
    warning::OffRoute(100);
    warning::OffProfile(5000);
    EXPECT_EQ(shared, before);
}

TEST_F(Warnings, TwoAreJoined)
{
    EXPECT_EQ(warning::Join("甲", "乙"), "甲；乙");
    EXPECT_EQ(warning::Join("", "乙"), "乙");
    EXPECT_EQ(warning::Join("甲", ""), "甲");
}
