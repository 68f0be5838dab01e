// The compile of intersection points: rows, oddities and what a failed statement leaves.

#include "base/Numbers.h"
#include "engine/Element.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using Column = std::vector<double>;

struct IntersectionPoints : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"}};

    void load(const std::string& text)
    {
        folder.write("平曲线参数.txt", text);
        LoadProject();
    }
    /// A right angle at (100, 0): north, then east (right) or west (left).
    void corner(const std::string& curve, bool right = true)
    {
        load("1000,0,0\r\nJ," + curve + "\r\n" + (right ? "100,100\r\n" : "100,-100\r\n"));
    }
};

/// Tangent length of a circle with equal spirals, straight from the two-term series.
double tangent(double r, double ls, double degrees)
{
    const double p = ls * ls / (24 * r) - std::pow(ls, 4) / (2688 * r * r * r);
    const double q = ls / 2 - ls * ls * ls / (240 * r * r);
    return (r + p) * std::tan(degrees * std::numbers::pi / 360) + q;
}

}  // namespace

TEST_F(IntersectionPoints, FourRowsAVertexBetweenStartAndClosingRow)
{
    corner("100,0,20,30,50");
    ASSERT_EQ(gElemCount, 5);
    EXPECT_EQ(gZdCount, 1);
    EXPECT_EQ(gElemR1, (Column{0, 0, 50, 50, 0, 0}));
    EXPECT_EQ(gElemR2, (Column{0, 50, 50, 0, 0, 0}));
    EXPECT_EQ(gElemLc[0], 1000);
    EXPECT_EQ(gElemX[0], 0);
    EXPECT_EQ(gElemFwj[0], 0);
    EXPECT_EQ(gElemLc[1], 1100 - gJdT1[1]);
    EXPECT_EQ(gElemFwj[1], 0);
    EXPECT_EQ(gElemLc[2], gElemLc[1] + 20);
    EXPECT_EQ(gElemLc[3], (gJdL[1] - 30) + gElemLc[1]);
    EXPECT_EQ(gElemLc[4], (1100 - gJdT1[1]) + gJdL[1]);
    EXPECT_NEAR(gElemFwj[4], 90, 1e-4);
    EXPECT_EQ(gElemLc[5], gJdLc[2] + 0.01);
    EXPECT_EQ(gElemX[5], 0);
    EXPECT_EQ(gElemY[5], 0);
    // HZ lies T2 behind the vertex on the leg to the east; the series of p and q leave under a millimetre and a half.
    EXPECT_NEAR(gElemX[4], 100, 0.0015);
    EXPECT_NEAR(gElemY[4], gJdT2[1], 0.0015);
}

TEST_F(IntersectionPoints, EachSpiralKeepsItsOwnSide)
{
    corner("100,0,20,30,50");
    const double t1 = gJdT1[1], t2 = gJdT2[1];
    corner("100,0,30,20,50");
    EXPECT_EQ(gJdT1[1], t2);
    EXPECT_EQ(gJdT2[1], t1);
}

TEST_F(IntersectionPoints, EqualSpiralsHaveEqualTangents)
{
    load("0,0,0\r\nJ,300,0,40,40,200\r\n500,150\r\n");
    EXPECT_NEAR(gJdT1[1], gJdT2[1], 1e-9);
    const double deflection = std::atan2(150, 200) * 180 / std::numbers::pi;
    EXPECT_NEAR(gJdT1[1], tangent(200, 40, deflection), 1e-4);
}

TEST_F(IntersectionPoints, MainPointsAreTheRows)
{
    load("0,0,0\r\n甲1,300,0,40,50,200\r\nJ2,500,150,0,30,300\r\n600,500\r\n");
    EXPECT_EQ(gZdCount, 2);
    EXPECT_EQ(gZdJd[1], "甲1");
    EXPECT_EQ(gZdJd[2], "J2");
    for (std::size_t i = 1; i <= 2; ++i) {
        const auto row = 4 * i - 3;
        EXPECT_EQ((Column{gZdZhLc[i], gZdZhX[i], gZdZhY[i], gZdZhFwj[i]}),
                  (Column{gElemLc[row], gElemX[row], gElemY[row], gElemFwj[row]}));
        EXPECT_EQ((Column{gZdHyLc[i], gZdHyX[i], gZdHyY[i], gZdHyFwj[i]}),
                  (Column{gElemLc[row + 1], gElemX[row + 1], gElemY[row + 1], gElemFwj[row + 1]}));
        EXPECT_EQ((Column{gZdYhLc[i], gZdYhX[i], gZdYhY[i], gZdYhFwj[i]}),
                  (Column{gElemLc[row + 2], gElemX[row + 2], gElemY[row + 2], gElemFwj[row + 2]}));
        EXPECT_EQ((Column{gZdHzLc[i], gZdHzX[i], gZdHzY[i], gZdHzFwj[i]}),
                  (Column{gElemLc[row + 3], gElemX[row + 3], gElemY[row + 3], gElemFwj[row + 3]}));
        EXPECT_EQ(gZdT1[i], gJdT1[i]);
        EXPECT_EQ(gZdT2[i], gJdT2[i]);
    }
    EXPECT_EQ(gZdJd[0], "");
    EXPECT_EQ(gZdT1[0], 0);
}

TEST_F(IntersectionPoints, SpiralsOfLengthZeroAreAMillionthAndShowAsZero)
{
    corner("100,0,0,0,50");
    EXPECT_EQ(gJdLs1[1], 0.000001);
    EXPECT_EQ(gJdLs2[1], 0.000001);
    EXPECT_EQ(gZdLs1[1], 0);
    EXPECT_EQ(gZdLs2[1], 0);
    EXPECT_NEAR(gElemLc[2] - gElemLc[1], 0.000001, 1e-12);
    EXPECT_NEAR(gElemLc[4] - gElemLc[3], 0.000001, 1e-12);
    EXPECT_NEAR(gJdT1[1], 50, 1e-4);
}

TEST_F(IntersectionPoints, LeftTurnNegatesTheRadius)
{
    corner("100,0,20,20,50", false);
    EXPECT_EQ(gJdR[1], -50);
    EXPECT_EQ(gElemR1, (Column{0, 0, -50, -50, 0, 0}));
    EXPECT_NEAR(gElemY[4], -gJdT2[1], 0.0015);
}

TEST_F(IntersectionPoints, NegativeRadiusOnARightTurnBendsTheWrongWayWithTangentsThatAreRight)
{
    corner("100,0,20,20,50");
    const double t1 = gJdT1[1], l = gJdL[1], y = gElemY[2];
    corner("100,0,20,20,-50");
    EXPECT_EQ(gJdR[1], -50);
    EXPECT_EQ(gJdT1[1], t1);
    EXPECT_EQ(gJdL[1], l);
    EXPECT_NEAR(gElemY[2], -y, 1e-5);  // ZH itself lies 3e-6 beside the leg, by the pi of the house
}

TEST_F(IntersectionPoints, NegativeRadiusOnALeftTurnBecomesPositive)
{
    corner("100,0,20,20,-50", false);
    EXPECT_EQ(gJdR[1], 50);
}

TEST_F(IntersectionPoints, DeflectionOfExactly90UsesTheShortSeries)
{
    corner("100,0,40,40,50");
    const double p = 40.0 * 40 / (24 * 50) - std::pow(40, 4) / (2688 * std::pow(50, 3));
    const double q = 20 - 64000.0 / (240 * 50 * 50);
    EXPECT_NEAR(gJdT1[1], (50 + p) + q, 1e-5);  // tan 45 degrees, with the pi of the house
}

TEST_F(IntersectionPoints, DeflectionOver90UsesTheLongSeriesWithPowersOfTheSpiral)
{
    load("0,0,0\r\nJ,100,0,40,40,50\r\n99,100\r\n");
    const double a = 90 + std::atan(0.01) * 180 / std::numbers::pi;
    const double ls = 40, r = 50;
    const double p = ls * ls / (24 * r) - std::pow(ls, 4) / (2688 * std::pow(r, 3)) +
                     std::pow(ls, 6) / (506880 * std::pow(r, 5)) - std::pow(ls, 8) / (154828800 * std::pow(r, 7)) +
                     std::pow(ls, 10) / (70601932800 * std::pow(r, 9)) -
                     std::pow(ls, 12) / (1880240947000 * std::pow(r, 11));
    const double q =
        ls / 2 - std::pow(ls, 3) / (240 * r * r) + ls / 34560 - ls / 8386560 + ls / 3158507520 - ls / 1716741734000;
    // Azimuths are packed to a hundredth of a second: 5e-8 rad on 100 m of tangent.
    EXPECT_NEAR(gJdT1[1], (r + p) * std::tan(a * std::numbers::pi / 360) + q, 2e-5);
    EXPECT_GT(std::abs(ls / 34560), 1e-3);  // so the term tells
}

TEST_F(IntersectionPoints, DeflectionOfExactly180IsRight)
{
    load("0,0,0\r\nJ,0,100,10,10,20\r\n0,50\r\n");  // 90 degrees, then 270
    EXPECT_EQ(gJdR[1], 20);
}

TEST_F(IntersectionPoints, DeflectionOfExactlyMinus180IsLeft)
{
    load("0,0,0\r\nJ,0,-100,10,10,20\r\n0,-50\r\n");  // 270 degrees, then 90
    EXPECT_EQ(gJdR[1], -20);
}

TEST_F(IntersectionPoints, DeflectionIsReducedAcrossNorth)
{
    load("0,0,0\r\nJ,100,-10,0,0,50\r\n200,0\r\n");  // 354 degrees, then 6: 11 degrees to the right
    EXPECT_EQ(gJdR[1], 50);
    load("0,0,0\r\nJ,100,10,0,0,50\r\n200,0\r\n");
    EXPECT_EQ(gJdR[1], -50);
}

TEST_F(IntersectionPoints, DeflectionZeroLeavesTheTangentsZero)
{
    load("0,0,0\r\nJ,0,100,10,20,50\r\n0,300\r\n");
    EXPECT_EQ(gJdT1[1], 0);
    EXPECT_EQ(gJdT2[1], 0);
    EXPECT_EQ(gZdT1[1], 0);
    EXPECT_EQ(gJdL[1], 15);
    EXPECT_EQ(gElemLc[1], 100);
    EXPECT_EQ(gElemLc[4], 115);
    EXPECT_EQ(gElemR2[1], 50);
}

TEST_F(IntersectionPoints, RadiusZeroAtTheFirstVertexTakesWhatTheResultFieldsHold)
{
    gOutX = 11, gOutY = 22, gOutFwj = 33.5;
    corner("100,0,20,30,0");
    // p and q are still 0 and |R| is 0: the tangents are 0 too.
    EXPECT_EQ(gJdT1[1], 0);
    EXPECT_EQ(gJdT2[1], 0);
    EXPECT_EQ(gJdL[1], 25);
    for (const std::size_t row : {2u, 3u, 4u}) {
        EXPECT_EQ(gElemX[row], 11);
        EXPECT_EQ(gElemY[row], 22);
        EXPECT_EQ(gElemFwj[row], DegToDms(33.5));
        EXPECT_EQ(gElemR1[row], 0);
    }
    EXPECT_EQ(gElemX[1], 100);
    EXPECT_EQ((Column{gOutX, gOutY, gOutFwj}), (Column{11, 22, 33.5}));
}

TEST_F(IntersectionPoints, RadiusZeroLeavesTheWholeStateBesideTheTables)
{
    gOutX = 11, gOutY = 22, gOutFwj = 33.5, gOutDist = 4, gOutLcText = "K1", gOutOffsetText = "中";
    gInX = 5, gInY = 6, gInLc = 7;
    gStationX = 8, gPlStart = 9, gPqxModel = "交点法";
    const Shared before = shared;
    corner("100,0,20,30,0");
    EXPECT_EQ(shared.results, before.results) << "the calls that fail leave what the last one left";
    EXPECT_EQ(shared.session, before.session);
    // Nothing but the one road: the vertex, its rows, and the main points that copy them.
    EXPECT_EQ(gElemCount, 5);
    EXPECT_EQ(gElemX, (Column{0, 100, 11, 11, 11, 0}));
    EXPECT_EQ(gElemY, (Column{0, 0, 22, 22, 22, 0}));
    EXPECT_EQ(gElemR1, Column(6));
    EXPECT_EQ(gElemR2, Column(6));
    EXPECT_EQ((Column{gZdHyX[1], gZdYhX[1], gZdHzX[1]}), (Column{11, 11, 11}));
    EXPECT_EQ((Column{gZdHyY[1], gZdYhY[1], gZdHzY[1]}), (Column{22, 22, 22}));
}

TEST_F(IntersectionPoints, RadiusZeroKeepsShiftsAndTangentPartsOfTheVertexBefore)
{
    load("0,0,0\r\nA,100,0,20,30,50\r\nB,100,300,20,30,0\r\n400,300\r\n");
    // The second turn is 90 degrees to the left, with |R| = 0: T1 = (p2 - p1 cos 90)/sin 90 + q1 = p2 + q1.
    const double p2 = 900.0 / 1200 - std::pow(30, 4) / (2688 * std::pow(50, 3));
    const double q1 = 10 - 8000.0 / (240 * 2500);
    EXPECT_NEAR(gJdT1[2], p2 + q1, 1e-7);
    EXPECT_EQ(gJdL[2], 25);
}

TEST_F(IntersectionPoints, RadiusZeroTakesTheEndsOfTheVertexBeforeKindByKind)
{
    load("0,0,0\r\nA,100,0,20,30,50\r\nB,100,300,20,30,0\r\nC,400,300,20,30,60\r\n400,600\r\n");
    // Rows are filled by kind, so a failed call takes the point of that kind of the vertex before.
    for (const std::size_t row : {2u, 3u, 4u}) {
        EXPECT_EQ(gElemX[row + 4], gElemX[row]);
        EXPECT_EQ(gElemY[row + 4], gElemY[row]);
        EXPECT_EQ(gElemFwj[row + 4], gElemFwj[row]);
    }
    // The next ZH row is right again: on the leg at T1 before its vertex.
    EXPECT_NEAR(gElemX[9], 400 - gJdT1[3], 1e-6);
    EXPECT_NEAR(gElemY[9], 300, 1e-5);
}

TEST_F(IntersectionPoints, TwoLinesAreOneStraight)
{
    gZdCount = 9;
    load("500,10,20\r\n40,60\r\n");
    EXPECT_EQ(gElemCount, 1);
    EXPECT_EQ(gZdCount, 0);
    EXPECT_EQ(gElemLc, (Column{500, 550.01}));
    EXPECT_EQ(gElemX, (Column{10, 0}));
    EXPECT_EQ(gElemY, (Column{20, 0}));
    EXPECT_EQ(gElemFwj, (Column{Azimuth(30, 40), 0}));
}

TEST_F(IntersectionPoints, ASingleLineIsLeftUncompiled)
{
    corner("100,0,20,30,50");
    const Shared before = shared;
    load("5,6,7\r\n");
    EXPECT_EQ(differences(shared, before), "");
}

TEST_F(IntersectionPoints, ClosingRowHasTheAzimuthOfTheLastLegButOne)
{
    corner("100,0,20,20,50");
    EXPECT_EQ(gElemFwj[5], 0);  // north, though the last leg runs east
    load("0,0,0\r\nA,0,100,5,5,30\r\nB,100,100,5,5,30\r\n100,300\r\n");
    EXPECT_EQ(gElemFwj[9], 0);
    load("0,0,0\r\nA,100,0,5,5,30\r\nB,100,100,5,5,30\r\n300,100\r\n");
    EXPECT_EQ(gElemFwj[9], 90);
}

TEST_F(IntersectionPoints, TangentsThatOverlapLetTheStakesRunBackward)
{
    load("0,0,0\r\nA,100,0,5,5,90\r\nB,100,100,5,5,90\r\n300,100\r\n");
    EXPECT_LT(gElemLc[5], gElemLc[4]);
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(IntersectionPoints, ALegDueSouthHasAzimuthZero)
{
    load("0,0,0\r\nA,-100,0,5,5,30\r\n-100,100\r\n");
    EXPECT_EQ(gElemFwj[0], 0);
    EXPECT_EQ(gElemFwj[1], 0);
    EXPECT_EQ(gJdR[1], 30);
}

TEST_F(IntersectionPoints, MainPointsStopAt500AndTheRouteGoesOn)
{
    std::string text = "0,0,0\r\n";
    for (int i = 1; i <= 501; ++i)
        text += "J" + std::to_string(i) + "," + std::to_string(i * 100) + "," + (i % 2 ? "0" : "20") + ",5,5,60\r\n";
    load(text + "50200,0\r\n");
    EXPECT_EQ(gZdCount, 501);
    EXPECT_EQ(gElemCount, 4 * 501 + 1);
    EXPECT_EQ(gZdJd.size(), 501u);
    EXPECT_EQ(gZdJd[500], "J500");
    EXPECT_EQ(gZdHzLc[500], gElemLc[2000]);
    EXPECT_NE(gElemLc[2004], 0);
    EXPECT_NEAR(gElemLc[2005], gJdLc[502] + 0.01, 1e-9);
}

TEST_F(IntersectionPoints, MoreVerticesThanElementRowsCanBeCountedKeepTheElementsOfBefore)
{
    corner("100,0,20,30,50");
    const Shared before = shared;
    std::string text = "0,0,0\r\n";
    for (int i = 1; i <= 8192; ++i) text += "J," + std::to_string(i * 100) + "," + (i % 2 ? "0" : "20") + ",5,5,60\r\n";
    load(text + "900000,0\r\n");
    EXPECT_EQ(gElemCount, before.tables.elemCount);
    EXPECT_EQ(gElemLc.size(), before.tables.elemLc.size());
    EXPECT_EQ(gZdCount, 8192);
}

TEST_F(IntersectionPoints, NothingThatPassesTheRangeOfADoubleIsStored)
{
    load("0,0,0\r\nA,1e308,-1e308,5,5,30\r\nB,-1e308,1e308,1e200,1e-200,1e-200\r\n1e308,1e308\r\n");
    for (const auto* column :
         {&gElemLc, &gElemX, &gElemY, &gElemFwj, &gElemR1, &gElemR2, &gJdLc, &gJdT1, &gJdT2, &gJdL})
        for (const double value : *column) EXPECT_TRUE(std::isfinite(value));
}
