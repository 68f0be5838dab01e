// The geometry that the check compares with, against closed formulas.

#include "geometry/TrueRoad.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

constexpr double kDegree = std::numbers::pi / 180;

TEST(TrueRoad, ArcEndsOnItsCircle)
{
    const TruePoint end = TrueElementEnd({100, 200, 90}, 150 * std::numbers::pi / 2, 150, 150);
    EXPECT_NEAR(end.x, 100 - 150, 1e-9);  // a quarter turn to the right from east
    EXPECT_NEAR(end.y, 200 + 150, 1e-9);
    EXPECT_NEAR(end.azDeg, 180, 1e-9);
}

TEST(TrueRoad, SpiralFollowsTheFresnelSeries)
{
    // x = L - L^5/(40 A^4) + L^9/(3456 A^8) - L^13/(599040 A^12), y = L^3/(6 A^2) - L^7/(336 A^6) + L^11/(42240 A^10) -
    // ...
    const double l = 60, r = 80, a2 = l * r;
    const double x = l - std::pow(l, 5) / (40 * std::pow(a2, 2)) + std::pow(l, 9) / (3456 * std::pow(a2, 4)) -
                     std::pow(l, 13) / (599040 * std::pow(a2, 6)) + std::pow(l, 17) / (175472640 * std::pow(a2, 8));
    const double y = std::pow(l, 3) / (6 * a2) - std::pow(l, 7) / (336 * std::pow(a2, 3)) +
                     std::pow(l, 11) / (42240 * std::pow(a2, 5)) - std::pow(l, 15) / (9676800 * std::pow(a2, 7)) +
                     std::pow(l, 19) / (3530096640 * std::pow(a2, 9));
    const TruePoint end = TrueElementEnd({0, 0, 0}, l, 0, r);
    EXPECT_NEAR(end.x, x, 1e-9);
    EXPECT_NEAR(end.y, y, 1e-9);
    EXPECT_NEAR(end.azDeg, l / (2 * r) / kDegree, 1e-12);
}

TEST(TrueRoad, CurveClosesOnItsOutgoingLeg)
{
    for (const double deflection : {24.0, -37.0, 89.0, 118.0}) {
        const double a = 31 * kDegree, b = (31 + deflection) * kDegree;
        const std::vector<TrueVertex> vertices = {
            {-900 * std::cos(a), -900 * std::sin(a)}, {0, 0, 60, 85, 150}, {900 * std::cos(b), 900 * std::sin(b)}};
        const auto curve = TrueCurves(vertices).at(0);
        ASSERT_TRUE(curve.valid);
        EXPECT_NEAR(curve.hz.x, curve.t2 * std::cos(b), 1e-8) << deflection;
        EXPECT_NEAR(curve.hz.y, curve.t2 * std::sin(b), 1e-8) << deflection;
        EXPECT_NEAR(std::remainder(curve.hz.azDeg - 31 - deflection, 360), 0, 1e-9);
        EXPECT_NEAR(TrueEndStake(1000, vertices), 1000 + 1800 - curve.t1 - curve.t2 + curve.length, 1e-9);
    }
}

}  // namespace
