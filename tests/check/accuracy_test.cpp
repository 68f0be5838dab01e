// What the accuracy report says of good roads and of roads on which the truncated series show.

#include "check/Accuracy.h"

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "tables/CalcTables.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdio>

namespace {

/// One intersection point at (2000, 500) with equal spirals, its legs 1500 m long at azimuth 0 and at `deflection`.
Accuracy oneCurve(double deflectionDeg, int ls, int radius)
{
    const double a = deflectionDeg * 3.14159265358979323846 / 180;
    char text[200];
    std::snprintf(text, sizeof text, "0,500,500.1\r\nJD1,2000,500,%d,%d,%d\r\n%.4f,%.4f\r\n", ls, ls, radius,
                  2000 + 1500 * std::cos(a), 500 + 1500 * std::sin(a));
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", text}};
    LoadProject();
    return CheckAccuracy(shared.tables, true);
}

TEST(Accuracy, MotorwayCurveIsGoodToATenthOfAMillimetre)
{
    const auto accuracy = oneCurve(25, 120, 1500);
    ASSERT_EQ(accuracy.rows.size(), 1u);
    EXPECT_EQ(accuracy.rows[0].name, "JD1");
    ASSERT_EQ(accuracy.rows[0].mm.size(), 4u);
    for (const double mm : accuracy.rows[0].mm) EXPECT_LT(mm, 0.2);
    EXPECT_EQ(accuracy.rows[0].why, "");
}

TEST(Accuracy, SpiralAsLongAsItsRadiusShowsTheDroppedTermOfQ)
{
    // The first term dropped of q is Ls^5 / (34560 R^4), of p Ls^6 / (506880 R^5); on a symmetric curve the tangent
    // length misses them by q + p tan(a/2).
    const auto accuracy = oneCurve(80, 200, 200);
    const double dropped = 200000.0 / 34560 + 200000.0 / 506880 * std::tan(40 * 3.14159265 / 180);
    EXPECT_NEAR(accuracy.rows.at(0).mm[0], dropped, 0.3);
    EXPECT_THAT(accuracy.rows[0].why, testing::HasSubstr("缓和曲线长"));
    EXPECT_THAT(accuracy.rows[0].why, testing::Not(testing::HasSubstr("大于90度")));
}

TEST(Accuracy, DeflectionOverNinetyShowsItsOwnTermOfQ)
{
    // Beyond 90 degrees q has Ls / 34560 where the series wants Ls^5 / (34560 R^4).
    const auto accuracy = oneCurve(100, 200, 700);
    const double excess = 200000.0 / 34560 * (1 - std::pow(200.0 / 700, 4));
    EXPECT_NEAR(accuracy.rows.at(0).mm[0], excess, 0.3);
    EXPECT_THAT(accuracy.rows[0].why, testing::HasSubstr("转角大于90度"));
    EXPECT_THAT(accuracy.rows[0].why, testing::Not(testing::HasSubstr("缓和曲线长（")));
}

TEST(Accuracy, EndStakeTakesTheTangentErrorsTwice)
{
    const auto accuracy = oneCurve(100, 200, 700);
    const double excess = 200000.0 / 34560 * (1 - std::pow(200.0 / 700, 4));
    EXPECT_NEAR(accuracy.endStakeMm, -2 * excess, 0.5);
}

TEST(Accuracy, LeavesTheTablesAndResultsAlone)
{
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,100,1000,2000,45,0,100\r\n100,180,1070,2071,73.38,100,100\r\n"}};
    LoadProject();
    const Shared before = shared;
    const auto accuracy = CheckAccuracy(shared.tables, false);
    EXPECT_EQ(accuracy.rows.size(), 2u);
    EXPECT_EQ(shared, before);
}

/// North 500 m, a half turn to the right, south 400 m: X and Y are those of the field, the closing row's are 0, 0.
Accuracy hairpin(const std::string& y0, const std::string& y1)
{
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,500,0," + y0 + ",0,0,0\r\n500,657.08,500," + y0 +
                                                ",0,50,50\r\n657.08,1057.08,500," + y1 + ",180,0,0\r\n"}};
    LoadProject();
    return CheckAccuracy(shared.tables, false);
}

TEST(Accuracy, WarnsOfALastElementThatTheInverseCannotFind)
{
    // Seen from the closing row (0, 0), whose azimuth is 0, the points of the last straight lie ahead of its end, so
    // the first straight, which they lie beside, is picked for them.
    const auto accuracy = hairpin("10", "110");
    ASSERT_EQ(accuracy.warnings.size(), 1u);
    EXPECT_THAT(accuracy.warnings[0], testing::HasSubstr("K0+657.080"));
}

TEST(Accuracy, KeepsQuietWhereTheLastElementIsFound)
{
    // A road at X below 0: from (0, 0), looking north, its points lie behind. X and Y are 400 m along azimuth 20.
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,400,-1900,10,20,0,0\r\n400,800,-1524.123,146.808,20,0,0\r\n"}};
    LoadProject();
    EXPECT_TRUE(CheckAccuracy(shared.tables, false).warnings.empty());
}

}  // namespace
