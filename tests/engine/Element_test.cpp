#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Element.h"
#include "engine/Route.h"
#include "support/PublishedData.h"
#include "support/Tables.h"
#include "support/TrueGeometry.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

class ElementEndTest : public FreshTables<testing::Test> {};

/// How far Simpson's rule on 192 intervals may be off, for a stretch of this length whose curvature stays below k and
/// changes by k' a metre: length * h^4 / 180 * |f''''|, with f'''' of cos and sin of the direction.
double simpsonError(double length, double k, double kPrime)
{
    const double h = length / 192;
    return length * std::pow(h, 4) / 180 * (std::pow(k, 4) + 6 * k * k * kPrime + 3 * kPrime * kPrime);
}

TEST_F(ElementEndTest, StraightRunsAlongItsAzimuth)
{
    ElementEnd(100, 0, 0, 30.0000, 5, 6, 100);
    EXPECT_NEAR(gOutX, 5 + 100 * std::cos(30 * 3.1415926 / 180), 1e-11);
    EXPECT_NEAR(gOutY, 6 + 100 * std::sin(30 * 3.1415926 / 180), 1e-11);
    EXPECT_EQ(gOutFwj, 30);
}

TEST_F(ElementEndTest, AzimuthGrowsByMeanCurvatureTimesLength)
{
    ElementEnd(60, 0, 1 / 200.0, 10.0000, 0, 0, 60);
    EXPECT_NEAR(gOutFwj, 10 + 60 / (2 * 200.0) * 180 / 3.1415926, 1e-12);
    ElementEnd(30, 0, 1 / 200.0, 10.0000, 0, 0, 60);  // half of it: a quarter of the turn
    EXPECT_NEAR(gOutFwj, 10 + 15 / (2 * 200.0) * 180 / 3.1415926, 1e-12);
    ElementEnd(60, -1 / 200.0, -1 / 200.0, 10.0000, 0, 0, 60);
    EXPECT_NEAR(gOutFwj, 10 - 60 / 200.0 * 180 / 3.1415926, 1e-12);
    EXPECT_LT(gOutFwj, 0);  // not reduced
}

TEST_F(ElementEndTest, AgreesWithTrueGeometryWithinSimpsonsError)
{
    std::mt19937_64 random(6);
    const auto draw = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    for (int n = 0; n < 2000; ++n) {
        const double total = draw(10, 400), k1 = draw(-0.02, 0.02), k2 = draw(-0.02, 0.02), len = draw(0, total);
        const double az = DegToDms(draw(0, 360));
        ElementEnd(len, k1, k2, az, 1000, 2000, total);
        // The direction starts at the packed azimuth in this system's radians; what is turned is exact in any pi.
        const truth::Pose end = truth::walk({1000, 2000, radians(DmsToDeg(az))}, {total, k1, k2}, len);
        const double bound = simpsonError(len, std::max(std::abs(k1), std::abs(k2)), std::abs(k2 - k1) / total) + 1e-11;
        EXPECT_NEAR(gOutX, static_cast<double>(end.x), bound);
        EXPECT_NEAR(gOutY, static_cast<double>(end.y), bound);
        EXPECT_NEAR(radians(gOutFwj), static_cast<double>(end.az), 1e-13);
    }
}

TEST_F(ElementEndTest, PointsAreNotRounded)
{
    ElementEnd(1.0 / 3, 0, 0, 0, 0, 0, 1);
    EXPECT_NEAR(gOutX, 1.0 / 3, 1e-15);
    EXPECT_NE(gOutX, 0.333);
}

TEST_F(ElementEndTest, TotalOfZeroLeavesTheResults)
{
    gOutX = 1, gOutY = 2, gOutFwj = 3, gOutDist = 4;
    const Shared before = shared;
    try {
        ElementEnd(0, 0.01, 0.01, 0, 0, 0, 0);
        FAIL();
    } catch (const RunTimeError& e) {
        EXPECT_EQ(e.number(), RunTimeError::DivisionByZero);
    }
    EXPECT_EQ(shared, before);
}

TEST_F(ElementEndTest, OverflowLeavesTheResults)
{
    gOutX = 1, gOutY = 2, gOutFwj = 3;
    const Shared before = shared;
    EXPECT_THROW(ElementEnd(1e300, 1e300, 0, 0, 0, 0, 1), RunTimeError);
    EXPECT_EQ(shared, before);
}

TEST_F(ElementEndTest, ArcOfNegativeLengthRunsBackward)
{
    ElementEnd(-20, 0.01, 0.01, 0, 0, 0, -20);
    const truth::Pose end = truth::walk({}, {-20, 0.01L, 0.01L}, -20);
    EXPECT_NEAR(gOutX, static_cast<double>(end.x), 1e-9);
    EXPECT_NEAR(gOutY, static_cast<double>(end.y), 1e-9);
}

TEST(ForwardElement, TwoStraightRadiiGoAlongTheAzimuth)
{
    const ElementPoint end = ForwardElement(100, 0, 0, 30.0000, 1000, 2000);
    EXPECT_EQ(end.x, Fixed3(1000 + 100 * std::cos(radians(30))));
    EXPECT_EQ(end.y, Fixed3(2000 + 100 * std::sin(radians(30))));
    EXPECT_EQ(end.fwj, 30);
}

TEST(ForwardElement, SignOfTheLengthIsDropped)
{
    const ElementPoint ahead = ForwardElement(55.5, 0, -120, 200.3045, 1000, 2000);
    const ElementPoint back = ForwardElement(-55.5, 0, -120, 200.3045, 1000, 2000);
    EXPECT_EQ(back.x, ahead.x);
    EXPECT_EQ(back.y, ahead.y);
    EXPECT_EQ(back.fwj, ahead.fwj);
}

TEST(ForwardElement, RadiusTooSmallToDivideByOverflows)
{
    EXPECT_THROW(ForwardElement(100, 1e-320, 0, 0, 0, 0), RunTimeError);
    EXPECT_THROW(ForwardElement(100, 0, -1e-320, 0, 0, 0), RunTimeError);
}

TEST(ForwardElement, LengthOfZeroIsItsStart)
{
    const ElementPoint end = ForwardElement(0, 100, -50, 12.3456, 7.12345, 8);
    EXPECT_EQ(end.x, 7.123);
    EXPECT_EQ(end.y, 8);
    EXPECT_EQ(end.fwj, 12.3456);
}

TEST(ForwardElement, IsElementEndRoundedToMillimetresAndPacked)
{
    std::mt19937_64 random(7);
    const auto draw = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    for (int n = 0; n < 2000; ++n) {
        const double len = draw(1, 300), r1 = n % 3 ? draw(30, 500) : 0, r2 = n % 5 ? -draw(30, 500) : 0;
        const double az = DegToDms(draw(0, 360)), x = draw(-1e6, 1e6), y = draw(-1e6, 1e6);
        const ElementPoint end = ForwardElement(len, r1, r2, az, x, y);
        const auto curvature = [](double r) { return r == 0 ? 0 : 1 / r; };
        ElementEnd(len, curvature(r1), curvature(r2), az, x, y, len);
        EXPECT_NEAR(end.x, gOutX, 0.0005 + 1e-9);
        EXPECT_NEAR(end.y, gOutY, 0.0005 + 1e-9);
        EXPECT_EQ(end.x, Fixed3(end.x));
        EXPECT_EQ(end.y, Fixed3(end.y));
        EXPECT_NEAR(DmsToDeg(end.fwj), DmsToDeg(DegToDms(gOutFwj)), 1e-9);
    }
    shared = {};
}

TEST(ForwardElement, AzimuthWrapsOnce)
{
    EXPECT_NEAR(DmsToDeg(ForwardElement(100, 100, 100, 340.0000, 0, 0).fwj), 340 + 180 / kPi - 360, 0.01 / 3600);
    EXPECT_NEAR(DmsToDeg(ForwardElement(100, -100, -100, 20.0000, 0, 0).fwj), 20 - 180 / kPi + 360, 0.01 / 3600);
}

/// A published chain of arc, spiral between two radii and arc, all left: its element starts by their makers.
class EggCurve : public FreshTables<testing::Test> {
protected:
    const ReadJson data = publishedData("alignment_egg_elements.json");
    const ReadJson elements = data["input"]["elements"];
    const ReadJson points = data["expected"]["points"];
    const ReadJson start = data["input"]["start"];
};

TEST_F(EggCurve, BlocksChainToThePublishedPoints)
{
    ASSERT_EQ(elements.size(), 3u);
    ElementPoint at{start["N"].number(), start["E"].number(), DegToDms(start["azimuth_deg"].number())};
    for (std::size_t i = 0; i < elements.size(); ++i) {
        EXPECT_NEAR(at.x, points[i]["N"].number(), 0.001) << i;
        EXPECT_NEAR(at.y, points[i]["E"].number(), 0.001) << i;
        // Three hundredths of a second: packed at the start and at each end, a hundredth each.
        EXPECT_NEAR(DmsToDeg(at.fwj), points[i]["azimuth_deg"].number(), 0.03 / 3600) << i;
        at = ForwardElement(elements[i]["length"].number(), elements[i]["R_start"].number(),
                            elements[i]["R_end"].number(), at.fwj, at.x, at.y);
    }
}

TEST_F(EggCurve, StakesGiveThePublishedPoints)
{
    std::vector<ElementRow> rows;
    double stake = start["station"].number();
    ElementPoint at{start["N"].number(), start["E"].number(), DegToDms(start["azimuth_deg"].number())};
    for (const ReadJson& e : elements.elements()) {
        rows.push_back({stake, at.x, at.y, at.fwj, e["R_start"].number(), e["R_end"].number()});
        at = ForwardElement(e["length"].number(), e["R_start"].number(), e["R_end"].number(), at.fwj, at.x, at.y);
        stake += e["length"].number();
    }
    rows.push_back({stake + 0.0001, 0, 0, 0, 0, 0});
    setElements(rows);
    for (const ReadJson& point : points.elements()) {
        const double station = point["station"].number();
        // Just before a joint too: the end of the element before has to meet it.
        for (const double s : {station, station == 0 ? station : station - 1e-9}) {
            StakeToXY(s, 0, 0);
            EXPECT_NEAR(gOutX, point["N"].number(), 0.001) << s;
            EXPECT_NEAR(gOutY, point["E"].number(), 0.001) << s;
            EXPECT_NEAR(gOutFwj, point["azimuth_deg"].number(), 0.03 / 3600) << s;
        }
    }
}

}  // namespace
