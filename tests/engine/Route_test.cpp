#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/Tables.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

int errorOfWalk()
{
    try {
        XYToStakeFromStart();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}

/// Sets the target and walks to it.
void find(double x, double y)
{
    gInX = x;
    gInY = y;
    XYToStakeFromStart();
}

class StakeToXYTest : public FreshTables<testing::Test> {};
class XYToStakeTest : public FreshTables<testing::Test> {};

/// 100 m of straight at the azimuth, from (1000, 2000) at stake 500.
void setStraight(double fwj) { setElements({{500, 1000, 2000, fwj, 0, 0}, {600, 0, 0, fwj, 0, 0}}); }

TEST_F(StakeToXYTest, StraightRunsAlongItsAzimuth)
{
    setStraight(30.3000);
    const double a0 = DmsToDeg(30.3000);
    StakeToXY(540, 0, 0);
    EXPECT_EQ(gOutX, Fixed3(1000 + 40 * std::cos(a0 * 3.1415926 / 180)));
    EXPECT_EQ(gOutY, Fixed3(2000 + 40 * std::sin(a0 * 3.1415926 / 180)));
    EXPECT_EQ(gOutFwj, a0);
}

TEST_F(StakeToXYTest, ArcTurnsByLengthOverRadius)
{
    for (const double r : {250.0, -250.0}) {
        setElements({{0, 0, 0, 45.0000, r, r}, {100, 0, 0, 0, 0, 0}});
        StakeToXY(80, 0, 0);
        EXPECT_NEAR(gOutFwj, 45 + 80 / r * 180 / 3.1415926, 1e-12);
        // Chord of the arc, from its start along half the turn.
        const double half = 80 / r / 2, chord = 2 * r * std::sin(half);
        EXPECT_NEAR(gOutX, chord * std::cos(radians(45) + half), 0.0005 + 1e-9);
        EXPECT_NEAR(gOutY, chord * std::sin(radians(45) + half), 0.0005 + 1e-9);
    }
}

TEST_F(StakeToXYTest, SpiralTurnsByHalfItsLengthOverRadiusAtItsEnd)
{
    setElements({{0, 0, 0, 10.0000, 0, 200}, {60, 0, 0, 0, 0, 0}});
    StakeToXY(std::nextafter(60, 0), 0, 0);
    EXPECT_NEAR(gOutFwj, 10 + 60.0 / (2 * 200) * 180 / 3.1415926, 1e-12);
    // The first terms of the clothoid series: x = L - L^5/(40 R^2 L^2), y = L^2/(6R) - L^4/(336 R^3).
    const double x = 60 - std::pow(60, 3) / (40 * 200.0 * 200) + std::pow(60, 5) / (3456 * std::pow(200.0, 4));
    const double y = 60 * 60 / (6 * 200.0) - std::pow(60, 4) / (336 * std::pow(200.0, 3));
    EXPECT_NEAR(gOutX, x * std::cos(radians(10)) - y * std::sin(radians(10)), 0.0006);
    EXPECT_NEAR(gOutY, x * std::sin(radians(10)) + y * std::cos(radians(10)), 0.0006);
}

TEST_F(StakeToXYTest, SpiralBetweenTwoRadiiEndsWhereElementEndSays)
{
    setElements({{0, 100, 200, 75.1234, -150, -60}, {45, 0, 0, 0, 0, 0}});
    ElementEnd(45, 1 / -150.0, 1 / -60.0, 75.1234, 100, 200, 45);
    const double x = gOutX, y = gOutY, fwj = gOutFwj;
    StakeToXY(std::nextafter(45, 0), 0, 0);
    EXPECT_NEAR(gOutX, x, 0.0005 + 1e-9);
    EXPECT_NEAR(gOutY, y, 0.0005 + 1e-9);
    EXPECT_NEAR(gOutFwj, fwj, 1e-9);
}

TEST_F(StakeToXYTest, StakeOfARowBelongsToTheElementThatBeginsThere)
{
    setElements({{0, 0, 0, 0, 0, 0}, {50, 50.00062, 7.0005, 12.0000, 300, 300}, {90, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    EXPECT_EQ(gOutX, Fixed3(50.00062));
    EXPECT_EQ(gOutY, 7);  // the tie goes to the even neighbour
    EXPECT_EQ(gOutFwj, 12);
}

TEST_F(StakeToXYTest, EndStakeKeepsLastPoint)
{
    setStraight(0);
    gInX = 1040;
    gInY = 2003;
    StakeToXY(540, 90, 7);
    EXPECT_EQ(gOutDist, 4);
    for (const double outside : {600.0, 600.5, 499.999}) {
        gInX = 1040;
        gInY = 2000;
        StakeToXY(outside, 90, 1000);
        EXPECT_EQ(gOutX, 1040) << outside;
        EXPECT_EQ(gOutY, 2007) << outside;
        EXPECT_EQ(gOutFwj, 0) << outside;
        EXPECT_EQ(gOutDist, 7) << outside;  // only the distance is new
        EXPECT_FALSE(StakeOnElement(shared.tables, outside));
        gInY = 2003;
    }
    EXPECT_TRUE(StakeOnElement(shared.tables, 500));
}

TEST_F(StakeToXYTest, FirstCallOutsideShowsZeros)
{
    setStraight(0);
    gInX = 3;
    gInY = 4;
    StakeToXY(600, 0, 0);
    EXPECT_EQ(gOutX, 0);
    EXPECT_EQ(gOutY, 0);
    EXPECT_EQ(gOutDist, 5);
}

TEST_F(StakeToXYTest, NoAlignmentChangesTheDistanceAlone)
{
    gInX = 3;
    gInY = 4;
    StakeToXY(0, 0, 0);
    EXPECT_EQ(gOutDist, 5);
    EXPECT_FALSE(StakeOnElement(shared.tables, 0));
}

TEST_F(StakeToXYTest, AzimuthIsNotReduced)
{
    setElements({{0, 0, 0, 350.0000, 100, 100}, {100, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    EXPECT_NEAR(gOutFwj, 350 + 50 / 100.0 * 180 / 3.1415926, 1e-10);
    setElements({{0, 0, 0, 10.0000, -100, -100}, {100, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    EXPECT_NEAR(gOutFwj, 10 - 50 / 100.0 * 180 / 3.1415926, 1e-10);
    EXPECT_LT(gOutFwj, 0);
}

TEST_F(StakeToXYTest, SkewCountsClockwiseFromTheTangent)
{
    setStraight(0);
    StakeToXY(540, 90, 5);
    EXPECT_EQ(gOutX, 1040);
    EXPECT_EQ(gOutY, 2005);
    StakeToXY(540, 270, 5);
    EXPECT_EQ(gOutX, 1040);
    EXPECT_EQ(gOutY, 1995);
    StakeToXY(540, 30, 10);
    EXPECT_EQ(gOutX, Fixed3(1040 + 10 * std::cos(radians(30))));
    EXPECT_EQ(gOutY, 2005);
    StakeToXY(540, -30, 10);
    EXPECT_EQ(gOutY, 1995);
}

TEST_F(StakeToXYTest, SkewWithoutOffsetHasNoEffect)
{
    setStraight(33.1);
    StakeToXY(540, 0, 0);
    const Shared straight = shared;
    StakeToXY(540, 77, 0);
    EXPECT_EQ(shared, straight);
}

TEST_F(StakeToXYTest, ElementOfZeroLengthNeverHits)
{
    setElements({{0, 0, 0, 0, 0, 0}, {50, 777, 777, 0, 0, 0}, {50, 50, 0, 0, 0, 0}, {90, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    EXPECT_EQ(gOutX, 50);
    EXPECT_EQ(gOutY, 0);
}

TEST_F(StakeToXYTest, WhereSeveralElementsHoldTheStakeTheLastOneWins)
{
    setElements({{0, 0, 0, 0, 0, 0}, {60, 100, 100, 0, 0, 0}, {40, 500, 500, 0, 0, 0}, {90, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    EXPECT_EQ(gOutX, 510);
    EXPECT_EQ(gOutY, 500);
    StakeToXY(30, 0, 0);
    EXPECT_EQ(gOutX, 30);
}

TEST_F(StakeToXYTest, ChangesNothingButItsResults)
{
    setStraight(10.2);
    Shared before = shared;
    StakeToXY(512, 90, 3);
    before.results.outX = gOutX, before.results.outY = gOutY, before.results.outFwj = gOutFwj,
    before.results.outDist = gOutDist;
    EXPECT_EQ(shared, before);
}

TEST_F(StakeToXYTest, NumbersOutOfAllBoundsOverflow)
{
    setElements({{0, 1e306, 0, 0, 0, 0}, {100, 0, 0, 0, 0, 0}});
    EXPECT_THROW(StakeToXY(50, 0, 0), RunTimeError);
}

TEST_F(StakeToXYTest, RadiusTooSmallToDivideByOverflowsAndKeepsTheLastResults)
{
    setElements({{0, 1, 2, 30, 0, 0}, {100, 1, 2, 30, 1e-320, 0}, {200, 1, 2, 30, 0, 1e-320}, {300, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    const double x = gOutX, y = gOutY;
    for (const double stake : {150.0, 250.0}) {
        EXPECT_THROW(StakeToXY(stake, 0, 0), RunTimeError) << stake;
        EXPECT_EQ(gOutX, x);
        EXPECT_EQ(gOutY, y);
        EXPECT_EQ(gOutFwj, 30);
    }
}

TEST_F(XYToStakeTest, PointOnTheLineIsInTheMiddle)
{
    setStraight(45);
    StakeToXY(540, 0, 0);
    find(gOutX, gOutY);
    EXPECT_EQ(gOutLcText, "K0+540.000");
    EXPECT_EQ(gOutOffsetText, "中");
}

TEST_F(XYToStakeTest, SidesAreNamedAsSeenForward)
{
    setElements({{500, 1000, 2000, 45.0000, 0, 0}, {600, 1070.711, 2070.711, 45.0000, 0, 0}});
    StakeToXY(540, 90, 3);
    find(gOutX, gOutY);
    EXPECT_EQ(gOutLcText, "K0+540.000");
    EXPECT_EQ(gOutOffsetText, "右3.000米");
    StakeToXY(540, 270, 3);
    find(gOutX, gOutY);
    EXPECT_EQ(gOutLcText, "K0+540.000");
    EXPECT_EQ(gOutOffsetText, "左3.000米");
}

TEST_F(XYToStakeTest, LessThanHalfAMillimetreIsInTheMiddle)
{
    // A straight to the east: the target's departure is in X alone, left is north.
    setElements({{0, 0, 0, 90, 0, 0}, {100, 0, 100, 90, 0, 0}});
    for (const double departure : {0.0004, -0.0004}) {
        find(departure, 40);
        EXPECT_EQ(gOutOffsetText, "中") << departure;
        EXPECT_EQ(gOutLcText, "K0+040.000");
    }
    find(0.0006, 40);
    EXPECT_EQ(gOutOffsetText, "左0.001米");
    find(-0.0006, 40);
    EXPECT_EQ(gOutOffsetText, "右0.001米");
}

TEST_F(XYToStakeTest, SameYShowsTheBareDistanceToTheRight)
{
    // To the east, the target north of the start: it lies to the left.
    setElements({{0, 0, 0, 90, 0, 0}, {100, 0, 100, 90, 0, 0}});
    gInLc = -7;
    find(5, 0);
    EXPECT_EQ(gOutLcText, "K0+000.000");
    EXPECT_EQ(gOutOffsetText, "右5.000米");
    EXPECT_EQ(gInLc, -7);  // no round of correction

    // To the north, the target on the line: its stake stays that of the start.
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}});
    find(40, 0);
    EXPECT_EQ(gOutLcText, "K0+000.000");
    EXPECT_EQ(gOutOffsetText, "右40.000米");
}

TEST_F(XYToStakeTest, FirstRoundReadsThePackedAzimuthAsDecimal)
{
    // 45 degrees 30 minutes is 45.5 degrees, but the first round takes 45.3. A target 0.4 m along the line seems 1.4 mm
    // to the right of it (0.4 m times the sine of 0.2 degrees), which is near enough to end there.
    setElements({{500, 1000, 2000, 45.3000, 0, 0}, {600, 1070.091, 2071.325, 45.3000, 0, 0}});
    find(1000 + 0.4 * std::cos(radians(45.5)), 2000 + 0.4 * std::sin(radians(45.5)));
    EXPECT_EQ(gOutLcText, "K0+500.400");
    EXPECT_EQ(gOutOffsetText, "右0.001米");
    // Further out the later rounds, with true degrees, put it right.
    find(1000 + 40 * std::cos(radians(45.5)), 2000 + 40 * std::sin(radians(45.5)));
    EXPECT_EQ(gOutLcText, "K0+540.000");
    EXPECT_EQ(gOutOffsetText, "中");
}

TEST_F(XYToStakeTest, WalkLeavesItsStakeAndAzimuth)
{
    setElements({{0, 0, 0, 20, 200, 200}, {150, 100, 120, 62, 0, 0}, {151, 0, 0, 0, 0, 0}});
    StakeToXY(90, 90, 4);
    find(gOutX, gOutY);
    EXPECT_EQ(gOutLcText, "K0+090.000");
    EXPECT_EQ(gOutOffsetText, "右4.000米");
    // The walk ends where the step along the tangent is below 0.002 m; that last step is not in gInLc.
    EXPECT_NEAR(gInLc, 90, 0.0025);
    EXPECT_NEAR(gOutFwj, 20 + gInLc / 200 * 180 / 3.1415926, 1e-9);
}

TEST_F(XYToStakeTest, ResultsKeepTheMiddleOfTheLastCandidate)
{
    // Two parallel straights; the target between them, nearer to the first.
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 30, 0, 0, 0}, {101, 0, 30, 0, 0, 0}, {201, 100, 30, 0, 0, 0}});
    gElemX[1] = 100, gElemY[1] = 0;
    find(60, 8);
    EXPECT_EQ(gOutLcText, "K0+060.000");
    EXPECT_EQ(gOutX, 50);
    EXPECT_EQ(gOutY, 30);
    EXPECT_EQ(gOutDist, std::sqrt(22.0 * 22 + 10 * 10));
}

TEST_F(XYToStakeTest, OfEquallyNearElementsTheEarlierWins)
{
    // Out to the north and back to the south, 20 m apart; the target half way between the two.
    setElements(
        {{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 10, 10}, {131.416, 100, 20, 180, 0, 0}, {231.416, 0, 20, 180, 0, 0}});
    find(50, 10);
    EXPECT_EQ(gOutLcText, "K0+050.000");
    EXPECT_EQ(gOutOffsetText, "右10.000米");
    find(50, 10.001);
    EXPECT_EQ(gOutLcText, "K0+181.416");
    EXPECT_EQ(gOutOffsetText, "右9.999米");
}

TEST_F(XYToStakeTest, MiddleAHundredKilometresAwayIsNeverPicked)
{
    // Two straights to the north, 300 km long, the second 10 km to the east of the first and behind it in stakes.
    setElements({{0, 0, 0, 0, 0, 0},
                 {300000, 300000, 0, 0, 0, 0},
                 {300000.005, 0, 10000, 0, 0, 0},
                 {600000, 300000, 10000, 0, 0, 0}});
    // Beside the second near its middle, then 110 km ahead of it: the walk then starts at row 0 and stays on the first.
    find(150000, 10001);
    EXPECT_EQ(gOutLcText, "K450+000.005");
    find(260000, 10001);
    EXPECT_EQ(gOutLcText, "K260+000.000");
    EXPECT_EQ(gOutOffsetText, "右10001.000米");
}

TEST_F(XYToStakeTest, ACandidateLiesAheadOfItsStartAndBehindItsEnd)
{
    // One straight to the north from 0 to 100. A candidate leaves the distance of its middle.
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}});
    const auto isLookedAt = [](double x, double y) {
        gOutDist = -1;
        gInX = x, gInY = y;
        errorOfWalk();
        return gOutDist != -1;
    };
    EXPECT_TRUE(isLookedAt(50, 7));
    EXPECT_TRUE(isLookedAt(0.001, 7));
    EXPECT_TRUE(isLookedAt(99.999, -7));
    EXPECT_FALSE(isLookedAt(-0.001, 7));  // behind both ends
    EXPECT_FALSE(isLookedAt(-50, -7));
    EXPECT_FALSE(isLookedAt(100.001, 7));  // ahead of both
    EXPECT_FALSE(isLookedAt(150, -7));
    // The end turned about: a target behind the start is ahead of the end, or behind it for an end that looks back.
    gElemFwj[1] = 180;
    EXPECT_FALSE(isLookedAt(50, 7));
    EXPECT_TRUE(isLookedAt(150, 7));
    EXPECT_FALSE(isLookedAt(-50, 7));
}

TEST_F(XYToStakeTest, TheNearestMiddleWinsOnlyAmongCandidates)
{
    // Three straights to the north, 100 m each, side by side 20 m apart; the second is shifted so that the target,
    // nearest to its middle of all, is ahead of it.
    setElements({{0, 0, 0, 0, 0, 0},
                 {100, 100, 0, 0, 0, 0},
                 {100.005, -60, 20, 0, 0, 0},
                 {200.005, 40, 20, 0, 0, 0},
                 {200.01, 0, 40, 0, 0, 0},
                 {300.01, 100, 40, 0, 0, 0}});
    find(41, 21);
    EXPECT_EQ(gOutLcText, "K0+241.010");
    EXPECT_EQ(gOutOffsetText, "左19.000米");
}

TEST_F(XYToStakeTest, WhereTheStakesDoNotRiseEveryElementIsLookedAt)
{
    // Three straights to the north, 20 m apart; the stakes fall between the second and the third.
    setElements({{0, 0, 0, 0, 0, 0},
                 {100, 100, 0, 0, 0, 0},
                 {100.005, 0, 20, 0, 0, 0},
                 {200.005, 100, 20, 0, 0, 0},
                 {150, 0, 40, 0, 0, 0},
                 {250, 100, 40, 0, 0, 0}});
    find(30, 1);  // beside the first
    EXPECT_EQ(gOutLcText, "K0+030.000");
    EXPECT_EQ(gOutOffsetText, "右1.000米");
    find(20, 19);  // beside the second
    EXPECT_EQ(gOutLcText, "K0+120.005");
    EXPECT_EQ(gOutOffsetText, "左1.000米");
    find(80, 39);  // beside the third, the last; two elements hold its stakes up to 200.005
    EXPECT_EQ(gOutLcText, "K0+230.000");
    EXPECT_EQ(gOutOffsetText, "左1.000米");
    // The results keep the middle of the last candidate, whichever was the nearest.
    find(50, 1);
    EXPECT_EQ(gOutLcText, "K0+050.000");
    EXPECT_EQ(gOutDist, 39);
    // Of equally near ones the earlier wins.
    find(50, 10);
    EXPECT_EQ(gOutLcText, "K0+050.000");
    EXPECT_EQ(gOutOffsetText, "右10.000米");
}

TEST_F(XYToStakeTest, ElementOfACentimetreOrLessIsSkipped)
{
    const auto looksAtIt = [](double length) {
        setElements({{0, 0, 0, 90, 0, 0}, {length, 0, length, 90, 0, 0}});
        gOutDist = -1;
        find(1, length / 2);
        return gOutDist != -1;
    };
    EXPECT_FALSE(looksAtIt(0.01));
    EXPECT_TRUE(looksAtIt(0.0101));
}

TEST_F(XYToStakeTest, WithoutACandidateTheWalkStartsAtRowZero)
{
    // The closing row at (0, 0) keeps the second straight from being a candidate; the walk from row 0 still gets there.
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}, {300, 0, 0, 0, 0, 0}});
    gOutDist = -1;
    find(200, 5);
    EXPECT_EQ(gOutDist, -1);  // no candidate was looked at
    EXPECT_EQ(gOutLcText, "K0+200.000");
    EXPECT_EQ(gOutOffsetText, "右5.000米");
}

TEST_F(XYToStakeTest, LastElementCanLoseItsTargetsToAnotherBranch)
{
    // North, a turn to the right of 100 m radius, and back south; the closing row at (0, 0) with azimuth 0 has the
    // target ahead, so that the last straight, 10 m away, is no candidate and the first, 190 m away, is picked.
    const double turn = 100 * kPi;
    setElements({{0, 0, 0, 0, 0, 0},
                 {500, 500, 0, 0, 100, 100},
                 {500 + turn, 500, 200, 180, 0, 0},
                 {1000 + turn, 0, 0, 0, 0, 0}});
    find(300, 190);
    EXPECT_EQ(gOutLcText, "K0+300.000");
    EXPECT_EQ(gOutOffsetText, "右190.000米");
}

TEST_F(XYToStakeTest, PointBehindTheStartIsClampedToIt)
{
    setStraight(45);
    StakeToXY(500, 0, 0);
    gInX = 990, gInY = 2000.5;  // behind and beside
    EXPECT_EQ(errorOfWalk(), RunTimeError::Overflow);
    EXPECT_EQ(gInLc, 500);
}

TEST_F(XYToStakeTest, ExitsComeBeforeTheClamp)
{
    setStraight(45);
    find(1000 - 5 * std::cos(radians(45)), 2000 - 5 * std::sin(radians(45)));
    EXPECT_EQ(gOutLcText, "K0+495.000");
    EXPECT_EQ(gOutOffsetText, "中");
}

TEST_F(XYToStakeTest, PointPastTheEndDoesNotSettle)
{
    setStraight(45);
    gOutLcText = "before";
    gInX = 1080, gInY = 2082;
    EXPECT_EQ(errorOfWalk(), RunTimeError::Overflow);
    EXPECT_EQ(gOutLcText, "before");
}

TEST_F(XYToStakeTest, ClosingRowTakesPartWithItsZeros)
{
    // The last element runs from (0, 100) to the east; the closing row lies at (0, 0) with azimuth 90. No target ahead
    // of (0, 0) is behind it, so the last element is no candidate, and the walk from row 0 still gets there.
    setElements({{0, 0, 0, 90, 0, 0}, {100, 0, 100, 90, 0, 0}, {200, 0, 0, 90, 0, 0}});
    find(3, 150);
    EXPECT_EQ(gOutDist, 0) << "no candidate was looked at";
    EXPECT_EQ(gOutLcText, "K0+150.000");
    EXPECT_EQ(gOutOffsetText, "左3.000米");
}

TEST_F(XYToStakeTest, NoAlignmentIsASubscriptError) { EXPECT_EQ(errorOfWalk(), RunTimeError::Subscript); }

TEST_F(XYToStakeTest, SecondPassOfAnOverlapHasAMinusBeforeTheK)
{
    setElements({{10000, 0, 0, 45, 0, 0}, {10300, 0, 0, 45, 0, 0}});
    setBreaks({{10120, 10100}});
    const auto textAt = [](double stake) {
        StakeToXY(stake, 90, 2);
        find(gOutX, gOutY);
        return gOutLcText;
    };
    EXPECT_EQ(textAt(10110), "K10+110.000");
    EXPECT_EQ(textAt(10130), "-K10+110.000");
    EXPECT_EQ(textAt(10170), "K10+150.000");
    setBreaks({{10100, 10120}});
    EXPECT_EQ(textAt(10130), "K10+150.000");
}

TEST_F(XYToStakeTest, FifthArgumentIsNeverRead)
{
    setStraight(45);
    gInX = 1030, gInY = 2025;
    XYToStake(500, 45, 1000, 2000, 1e9);
    const Shared one = shared;
    XYToStake(500, 45, 1000, 2000, -3);
    EXPECT_EQ(shared, one);
}

TEST_F(XYToStakeTest, ArgumentsStartTheWalkWhereNoElementIsPicked)
{
    setElements({{0, 0, 0, 45, 0, 0}, {100, 0, 0, 45, 0, 0}});
    // Behind the start no element is picked; the arguments say that the target is 1 mm off their own point.
    gInX = -50, gInY = -20.00005;
    XYToStake(77, 45, -50, -20, 0);
    EXPECT_EQ(gOutLcText, "K0+077.000");
}

TEST_F(StakeToXYTest, AnErrorBetweenXAndYLeavesXAndTheAzimuth)
{
    setElements({{0, 10, 20, 30, 0, 0}, {100, 5, 1e306, 45, 0, 0}, {200, 0, 0, 0, 0, 0}});
    StakeToXY(50, 0, 0);
    Shared expected = shared;
    EXPECT_THROW(StakeToXY(100, 0, 0), RunTimeError);
    expected.results.outX = 5;
    expected.results.outFwj = 45;
    EXPECT_EQ(shared, expected) << "Y and the distance are the last call's";
}

TEST_F(StakeToXYTest, PointAtGivesTheSameAndMovesNothing)
{
    setElements({{500, 1000, 2000, 45, 0, 0}, {600, 1070, 2070, 45, 0, 300}, {700, 0, 0, 0, 0, 0}});
    const Shared before = shared;
    for (const double stake : {500.0, 555.5, 600.0, 650.125}) {
        const auto p = pointAt(shared.tables, stake, 270, 3.5);
        EXPECT_EQ(shared, before);
        ASSERT_TRUE(p) << stake;
        StakeToXY(stake, 270, 3.5);
        EXPECT_EQ(p->x, gOutX);
        EXPECT_EQ(p->y, gOutY);
        EXPECT_EQ(p->fwjDeg, gOutFwj);
        shared = before;
    }
    EXPECT_FALSE(pointAt(shared.tables, 499.999, 0, 0));
    EXPECT_FALSE(pointAt(shared.tables, 700, 0, 0));
    EXPECT_EQ(shared, before);
}

TEST_F(XYToStakeTest, AnUnsettledWalkLeavesItsLastRoundAndNoTexts)
{
    setStraight(45);
    gOutLcText = "before", gOutOffsetText = "too", gOutDist = 3;
    gInX = 990, gInY = 2000.5;  // behind and beside: no candidate, and every round is clamped to the start
    Shared expected = shared;
    EXPECT_EQ(errorOfWalk(), RunTimeError::Overflow);
    expected.results.inLc = 500;
    expected.results.outFwj = 45;
    EXPECT_EQ(shared, expected);
}

TEST_F(XYToStakeTest, FootOfGivesTheSameAndMovesNothing)
{
    setElements({{10000, 0, 0, 45, 0, 0}, {10300, 212.132, 212.132, 45, 0, 0}});
    setBreaks({{10120, 10100}});
    const Shared before = shared;
    for (const double offset : {0.0, -2.5, 7.125}) {
        const auto p = pointAt(shared.tables, 10130, 90, offset);
        const Foot foot = footOf(shared.tables, p->x, p->y);
        EXPECT_EQ(shared, before);
        find(p->x, p->y);
        EXPECT_EQ(foot.lcText, gOutLcText);
        EXPECT_EQ(foot.offsetText, gOutOffsetText);
        EXPECT_EQ(foot.nominal.value, 10110);
        EXPECT_TRUE(foot.nominal.secondPass);
        EXPECT_EQ(foot.offset, offset);
        EXPECT_EQ(foot.element, 1u);
        EXPECT_EQ(foot.stake, 10130);
        shared = before;
    }
}

}  // namespace
