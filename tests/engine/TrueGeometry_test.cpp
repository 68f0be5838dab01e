// The measure that others are measured with: closed formulas and series against support/TrueGeometry.h.

#include "support/RandomRoute.h"
#include "support/TrueGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using truth::Real;

TEST(TrueGeometry, ArcIsACircle)
{
    for (const Real k : {1 / 30.0L, -1 / 250.0L}) {
        const Real length = 2.5L / std::abs(k);
        const truth::Pose end = truth::walk({10, 20, 0.3L}, {length, k, k}, length);
        EXPECT_NEAR(static_cast<double>(end.x - (10 + (std::sin(0.3L + k * length) - std::sin(0.3L)) / k)), 0, 1e-14);
        EXPECT_NEAR(static_cast<double>(end.y - (20 - (std::cos(0.3L + k * length) - std::cos(0.3L)) / k)), 0, 1e-14);
        EXPECT_NEAR(static_cast<double>(end.az - (0.3L + k * length)), 0, 1e-17);
    }
}

TEST(TrueGeometry, ClothoidIsItsSeries)
{
    // x = sum (-1)^n L (L/2R)^2n / ((4n+1) (2n)!), y the odd terms.
    for (const Real r : {50.0L, 400.0L}) {
        const Real length = 120, beta = length / (2 * r);
        Real x = 0, y = 0, power = 1, factorial = 1;
        for (int n = 0; n < 40; ++n) {
            (n % 2 ? y : x) += (n / 2 % 2 ? -1 : 1) * length * power / (factorial * (2 * n + 1));
            power *= beta;
            factorial *= n + 1;
        }
        const truth::Pose end = truth::walk({}, {length, 0, 1 / r}, length);
        EXPECT_NEAR(static_cast<double>(end.x - x), 0, 1e-15);
        EXPECT_NEAR(static_cast<double>(end.y - y), 0, 1e-15);
        EXPECT_NEAR(static_cast<double>(end.az - beta), 0, 1e-17);
    }
}

TEST(TrueGeometry, CurveEndsOnTheLegThatGoesOn)
{
    std::mt19937_64 random(5);
    for (int n = 0; n < 200; ++n) {
        const auto v = randomVertices(random, 1);
        const truth::Curve c = truth::curveAt(v[0], v[1], v[2]);
        const Real az2 = std::atan2(v[2].y - v[1].y, v[2].x - v[1].x);
        EXPECT_NEAR(static_cast<double>(c.hz.x - (v[1].x + c.t2 * std::cos(az2))), 0, 1e-11);
        EXPECT_NEAR(static_cast<double>(c.hz.y - (v[1].y + c.t2 * std::sin(az2))), 0, 1e-11);
        EXPECT_NEAR(static_cast<double>(truth::wrapped(c.hz.az - az2)), 0, 1e-16);
    }
}

TEST(TrueGeometry, UnpacksAngles)
{
    EXPECT_NEAR(static_cast<double>(truth::toDeg(truth::fromDms(123.4530)) - (123 + 45 / 60.0L + 30 / 3600.0L)), 0,
                1e-15);
    EXPECT_NEAR(static_cast<double>(truth::toDeg(truth::fromDms(-10.3))), -10.5, 1e-15);
    EXPECT_NEAR(static_cast<double>(truth::toDeg(truth::fromDms(134.596))), 135, 1e-13);
}

}  // namespace
