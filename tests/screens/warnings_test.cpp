// Quiet warnings: when they speak, and that they move nothing.

#include "screens/Rows.h"

#include "engine/XYToStake.h"
#include "support/ScreenTest.h"

namespace {

struct Warnings : FreshTables<testing::Test> {
    Warnings() { straightNorth(); }
    /// Of a foot with that stake (nominal, on the second pass if `again`) and offset, for the point (x, y).
    static std::string misses(NominalStake stake, double offset, double x, double y)
    {
        Foot foot;
        foot.nominal = stake;
        foot.offset = offset;
        return warning::Misses(foot, x, y);
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
    EXPECT_EQ(misses({100}, -2.5, 1100, 1997.5), "");
    EXPECT_EQ(misses({100}, 0, 1100, 2000), "");
    EXPECT_EQ(misses({100}, 2.5, 1100, 2002.504), "") << "4 mm";
    EXPECT_EQ(misses({1000}, 2.5, 2000, 2002.5), "") << "the end of the road can be laid out too";
}

TEST_F(Warnings, AnInverseRowThatMissesSaysByHowMuch)
{
    EXPECT_EQ(misses({100}, 2.5, 1100, 2002.506), "按反算的里程和偏距复核，与输入点相差0.006米");
    EXPECT_EQ(misses({100}, 2.5, 1100, 1997.5), "按反算的里程和偏距复核，与输入点相差5.000米");
}

TEST_F(Warnings, TheSecondPassOfAnOverlapIsLaidOutAsSuch)
{
    setBreaks({{500, 480}});
    EXPECT_EQ(misses({490, true}, 0, 1510, 2000), "");
    EXPECT_EQ(misses({490}, 0, 1490, 2000), "");
    EXPECT_NE(misses({490}, 0, 1510, 2000), "");
}

TEST_F(Warnings, AStakeThatCannotBeLaidOutSaysSo)
{
    setBreaks({{500, 600}});
    EXPECT_EQ(misses({550}, 0, 1500, 2000), "反算的里程和偏距无法复核");
    EXPECT_EQ(misses({-550, true}, 0, 1500, 2000), "反算的里程和偏距无法复核");
}

TEST_F(Warnings, MoveNothing)
{
    sharpProfile();
    setBreaks({{500, 480}});
    gInX = 1510;
    gInY = 2003;
    const Foot foot = XYToStakeFromStart();
    const Shared before = shared;
    warning::Misses(foot, gInX, gInY);
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
