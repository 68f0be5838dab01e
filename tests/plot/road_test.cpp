// The road of the tables as shapes.

#include "PlotTest.h"
#include "engine/XYToStake.h"

#include "engine/Route.h"
#include "plot/Angles.h"
#include "plot/Road.h"
#include "support/RandomRoute.h"

#include <cmath>
#include <random>

using namespace plot;

namespace {

struct RoadTest : FreshTables<testing::Test> {};

double distance(Point a, Point b) { return length(a - b); }

}  // namespace

TEST_F(RoadTest, ElementsHaveKindLengthAndParameter)
{
    setPlainRoad();
    const Road road(shared.tables);
    ASSERT_EQ(road.elements().size(), 3u);
    EXPECT_EQ(road.elements()[0].bend, Bend::Straight);
    EXPECT_EQ(road.elements()[1].bend, Bend::Spiral);
    EXPECT_EQ(road.elements()[2].bend, Bend::Arc);
    EXPECT_FALSE(road.elements()[0].parameter());
    EXPECT_NEAR(*road.elements()[1].parameter(), std::sqrt(60 * 200.0), 1e-9);  // A squared is R times L
    EXPECT_NEAR(road.elements()[2].length(), 50, 1e-9) << "without what the closing row adds";
    EXPECT_NEAR(road.end(), 210, 1e-9);
}

TEST_F(RoadTest, ASpiralBetweenTwoRadiiHasTheParameterOfItsChange)
{
    // Egg curve: A squared is L over the difference of curvatures.
    setElements({{0, 0, 0, 0, 300, 100}, {40.0001, 0, 0, 0, 0, 0}});
    const Road road(shared.tables);
    EXPECT_NEAR(*road.elements()[0].parameter(), std::sqrt(40 / (1 / 100.0 - 1 / 300.0)), 1e-9);
}

TEST_F(RoadTest, PosesAreThoseOfTheEngine)
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 5; ++round) {
        setRoute(randomVertices(random, 8), 1000);
        const Road road(shared.tables);
        std::uniform_real_distribution<double> stake(road.start(), road.end());
        for (int i = 0; i < 200; ++i) {
            const double s = stake(random);
            const auto pose = road.poseAt(s);
            const auto point = pointAt(shared.tables, s, 0, 0);
            ASSERT_TRUE(pose && point);
            EXPECT_LT(distance(pose->at, road.local(point->x, point->y)), 1.5e-3) << s;  // the engine's has 3 decimals
            EXPECT_NEAR(std::remainder(pose->azDeg - point->fwjDeg, 360), 0, 1e-6);
        }
    }
}

TEST_F(RoadTest, ChordsStayWithinTheToleranceOfTheTrueLine)
{
    std::mt19937_64 random(8);
    setRoute(randomVertices(random, 12));
    const Road road(shared.tables);
    for (const double tolerance : {0.001, 0.05, 2.0})
        for (const auto& e : road.elements()) {
            const auto points = road.flattened(e, e.from, e.to, tolerance);
            for (std::size_t i = 1; i < points.size(); ++i) {
                const double middle = (points[i - 1].stake + points[i].stake) / 2;
                const Point a = points[i - 1].pose.at, b = points[i].pose.at, p = road.poseOn(e, middle).at;
                const Point d = b - a;
                const double off = std::abs(d.x * (p.y - a.y) - d.y * (p.x - a.x)) / length(d);
                EXPECT_LT(off, tolerance * 1.02) << e.row;
            }
        }
}

TEST_F(RoadTest, ArcsPassThroughTheirPoints)
{
    std::mt19937_64 random(9);
    setRoute(randomVertices(random, 20));
    const Road road(shared.tables);
    int arcs = 0;
    for (const auto& e : road.elements()) {
        if (e.bend != Bend::Arc) continue;
        ++arcs;
        const Arc arc = road.arcOf(e, e.from, e.to);
        const auto at = [&](double degrees) { return arc.centre + arc.radius * directionOf(degrees); };
        const Point first = e.r1 > 0 ? at(arc.to) : at(arc.from), last = e.r1 > 0 ? at(arc.from) : at(arc.to);
        EXPECT_LT(distance(first, e.start.at), 1e-6);
        EXPECT_LT(distance(last, e.end.at), 1e-6);
        EXPECT_NEAR(degreesOf(e.length() / arc.radius), arc.to - arc.from, 1e-9);
        const Element& next = road.elements()[static_cast<std::size_t>(&e - road.elements().data()) + 1];
        EXPECT_LT(distance(last, next.start.at), 2e-3);
    }
    EXPECT_GT(arcs, 10);
}

TEST_F(RoadTest, TheFootOfAPointIsItsStakeAndOffset)
{
    std::mt19937_64 random(10);
    setRoute(randomVertices(random, 30));
    const Road road(shared.tables);
    std::uniform_real_distribution<double> stake(road.start() + 1, road.end() - 1), offset(-15, 15);
    for (int i = 0; i < 500; ++i) {
        const double s = stake(random), o = offset(random);
        const Pose pose = *road.poseAt(s);
        const auto foot = road.footOf(pose.at + o * rightOf(pose.azDeg));
        ASSERT_TRUE(foot);
        EXPECT_NEAR(foot->stake, s, 2e-3);
        EXPECT_NEAR(foot->offset, o, 2e-3);
    }
}

TEST_F(RoadTest, BeforeTheStartTheFootIsTheStart)
{
    setPlainRoad();
    const Road road(shared.tables);
    const auto foot = road.footOf(road.local(990, 503));
    ASSERT_TRUE(foot);
    EXPECT_NEAR(foot->stake, 0, 1e-9);
    EXPECT_NEAR(foot->offset, std::hypot(10, 3), 1e-9);
}

TEST_F(RoadTest, NumbersJumpAtBreaksAndShowBothValues)
{
    setPlainRoad();
    setBreaks({{50, 70}, {150, 140}});  // 20 m are left out, then 10 m come twice
    const Road road(shared.tables);
    ASSERT_EQ(road.breaks().size(), 2u);
    EXPECT_NEAR(road.breaks()[0].stake, 50, 1e-9);
    EXPECT_NEAR(road.breaks()[1].stake, 130, 1e-9);
    EXPECT_NEAR(road.breaks()[1].back, 150, 1e-9);
    EXPECT_NEAR(road.breaks()[1].ahead, 140, 1e-9);
    EXPECT_EQ(road.shortStakeText(40), "K0+040");
    EXPECT_EQ(road.shortStakeText(60), "K0+080");
    ASSERT_GE(road.pieces().size(), 2u);
    EXPECT_NEAR(road.pieces()[0].to, 50, 2e-3);
    EXPECT_NEAR(road.pieces()[1].shift, 20, 1e-9);
    double at = road.start();
    for (const auto& piece : road.pieces()) {
        EXPECT_NEAR(piece.from, at, 1e-6);
        at = piece.to;
        const double middle = (piece.from + piece.to) / 2;
        EXPECT_NEAR(ToNominal(shared.tables, middle).value, middle + piece.shift, 1e-3);
    }
    EXPECT_NEAR(at, road.end(), 1e-6);
}

TEST_F(RoadTest, OverlappingCurvesRunBackwardAndAreDrawn)
{
    // The straight between them is -20 m long: its end lies behind its start.
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}, {80, 80, 0, 0, 0, 0}, {130.0001, 0, 0, 0, 0, 0}});
    const Road road(shared.tables);
    ASSERT_EQ(road.elements().size(), 3u);
    EXPECT_LT(road.elements()[1].to, road.elements()[1].from);
    EXPECT_NEAR(road.elements()[1].end.at.y, 80, 1e-9);
}

TEST_F(RoadTest, TheSampleHasItsPolygonAndMainPoints)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    ASSERT_EQ(road.polygon().size(), 12u);
    EXPECT_EQ(road.polygon()[1].name, "JD1");
    EXPECT_EQ(road.polygon()[1].radius, 420);
    EXPECT_GT(road.polygon()[1].turnDeg, 0);
    int spirals = 0;
    for (const auto& p : road.mainPoints()) {
        if (p.name != "ZH") continue;
        ++spirals;
        bool found = false;
        for (std::size_t i = 1; i <= static_cast<std::size_t>(gZdCount); ++i)
            found = found || distance(p.pose.at, road.local(gZdZhX[i], gZdZhY[i])) < 1e-3;
        EXPECT_TRUE(found) << p.label;
    }
    EXPECT_EQ(spirals, 9) << "JD6 has no spirals";
}

TEST_F(RoadTest, NothingSharedMoves)
{
    const Sample sample("示例一");
    const Shared before = shared;
    const Road road(shared.tables);
    (void)road.footOf({100, 100});
    (void)road.stakeText(13000);
    EXPECT_EQ(shared, before);
}

TEST_F(RoadTest, NoAlignmentIsNoRoad)
{
    const Road road(shared.tables);
    EXPECT_TRUE(road.empty());
    EXPECT_FALSE(road.poseAt(0));
    EXPECT_FALSE(road.footOf({0, 0}));
}

TEST(PlotNumbers, StepsAreOneTwoOrFive)
{
    EXPECT_EQ(niceStep(1), 1);
    EXPECT_EQ(niceStep(1.1), 2);
    EXPECT_EQ(niceStep(3), 5);
    EXPECT_EQ(niceStep(0.07), 0.1);
    EXPECT_EQ(niceStep(501), 1000);
}

TEST(PlotNumbers, AStepOfAPowerOfTenIsTheNearestNumber)
{
    for (int exponent = -12; exponent <= 12; ++exponent) {
        const double power = std::stod("1e" + std::to_string(exponent));
        EXPECT_EQ(niceStep(power), power) << exponent;
        EXPECT_EQ(niceStep(1.5 * power), 2 * power) << exponent;
    }
}

TEST(PlotNumbers, ZeroHasNoSign)
{
    EXPECT_EQ(fixed(-0.0004, 3), "0.000");
    EXPECT_EQ(shortest(12.500, 3), "12.5");
    EXPECT_EQ(shortest(-0.0, 3), "0");
}
