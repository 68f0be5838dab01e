// Compiled main points against true geometry: real pi, exact clothoids.
//
// Where the arithmetic departs from it, for one curve of radius R, deflection a and spirals Ls1, Ls2:
//
// 1. p and q of a spiral are series in b = Ls / 2R, cut off. With the terms
//        p_n = (-1)^n Ls b^(2n+1) (1 / ((4n+3) (2n+1)!) - 1 / (2 (2n+2)!))
//        q_n = (-1)^n Ls b^(2n)   (1 / ((4n+1) (2n)!)   - 1 / (2 (2n+1)!))
//    the compile keeps n = 0 and 1. Over 90 degrees it keeps six of p, with coefficients of its own, and its q goes on
//    with Ls / 34560 and its like, no series at all. The departures dp, dq are summed up here term by term. The
//    tangents are linear in them: dT1 = (dp2 - dp1 cos a) / sin a + dq1, dT2 = (dp1 - dp2 cos a) / sin a + dq2.
// 2. An azimuth of a leg is off by the pi of its arc tangent (90 degrees at most), by half a hundredth of a second from
//    packing and by a hundredth from unpacking, and by pi again where it becomes radians (a turn at most).
// 3. So is the deflection, from two azimuths. It moves T1 by ((R+p1) - (R+p2) cos a) / sin^2 a a radian, T2 likewise,
// and
//    the curve length by R a radian.
// 4. Along the curve the direction is packed again at HY and at YH, and may pass 360 degrees.
// 5. Simpson's rule adds length h^4 / 180 (k^4 + 6 k^2 k' + 3 k'^2), h = length / 192.
//
// A main point is off by dT1 and by what the direction error moves it over T1 and the curve so far; its stake by dT1
// and by dT1 + dT2 and the length errors of all curves before: the cut-off pile up in the stakes.

#include "base/Lines.h"
#include "base/Numbers.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/RandomRoute.h"
#include "support/ScriptedDialogs.h"
#include "support/TrueGeometry.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

using truth::Real;

constexpr Real kPiError = (truth::kPi - 3.1415926L) / truth::kPi;               // relative
constexpr Real kHundredthSecond = truth::kPi / 180 / 3600 / 100;                // rad
constexpr Real kPacking = 1.5L * kHundredthSecond + 2 * truth::kPi * kPiError;  // and what a turn of pi adds
constexpr Real kDirection = truth::kPi / 2 * kPiError + kPacking;               // of a leg
constexpr Real kDeflection = 2 * kDirection;
constexpr Real kRounding = 1e-7L;  // doubles of 3,500,000 m, a few dozen operations

/// Terms from n = `from` on, to the last that counts.
Real seriesP(Real ls, Real r, int from)
{
    const Real b = ls / (2 * r);
    Real sum = 0;
    for (int n = from; n < 30; ++n)
        sum += (n % 2 ? -1 : 1) * ls * std::pow(b, Real(2 * n + 1)) *
               (1 / ((4 * n + 3) * std::tgamma(Real(2 * n + 2))) - 1 / (2 * std::tgamma(Real(2 * n + 3))));
    return sum;
}
Real seriesQ(Real ls, Real r, int from)
{
    const Real b = ls / (2 * r);
    Real sum = 0;
    for (int n = from; n < 30; ++n)
        sum += (n % 2 ? -1 : 1) * ls * std::pow(b, Real(2 * n)) *
               (1 / ((4 * n + 1) * std::tgamma(Real(2 * n + 1))) - 1 / (2 * std::tgamma(Real(2 * n + 2))));
    return sum;
}

/// True p less that of the arithmetic.
Real cutOffP(Real ls, Real r, bool big)
{
    if (!big) return seriesP(ls, r, 2);
    const Real kept = std::pow(ls, 6.0L) / (506880 * std::pow(r, 5.0L)) -
                      std::pow(ls, 8.0L) / (154828800 * std::pow(r, 7.0L)) +
                      std::pow(ls, 10.0L) / (70601932800 * std::pow(r, 9.0L)) -
                      std::pow(ls, 12.0L) / (1880240947000 * std::pow(r, 11.0L));
    return seriesP(ls, r, 2) - kept;
}
Real cutOffQ(Real ls, Real r, bool big)
{
    if (!big) return seriesQ(ls, r, 2);
    return seriesQ(ls, r, 2) - (ls / 34560 - ls / 8386560 + ls / 3158507520 - ls / 1716741734000);
}

Real simpson(const truth::Stretch& s)
{
    if (s.length == 0) return 0;
    const Real k = std::max(std::abs(s.k0), std::abs(s.k1)), slope = std::abs((s.k1 - s.k0) / s.length);
    return std::abs(s.length) * std::pow(s.length / 192, 4.0L) / 180 *
           (std::pow(k, 4.0L) + 6 * k * k * slope + 3 * slope * slope);
}

/// What a curve's tangents and length may be off, and its points.
struct Bounds {
    Real t1, t2, length;          ///< m
    Real cutOff1, cutOff2;        ///< the part of t1, t2 that comes from the series alone
    Real zh, hy, yh, hz;          ///< of the points, m
    Real hyTurn, yhTurn, hzTurn;  ///< of the directions, rad
};
Bounds boundsOf(const truth::Vertex& v, const truth::Curve& curve)
{
    const Real a = std::abs(curve.turn), c = std::cos(a), s = std::sin(a), r = std::abs(v.r);
    const bool big = a > truth::kPi / 2;
    const Real ls1 = v.ls1, ls2 = v.ls2;
    const Real dp1 = cutOffP(ls1, r, big), dp2 = cutOffP(ls2, r, big);
    const Real r1 = r + truth::shiftOf(ls1, r).p, r2 = r + truth::shiftOf(ls2, r).p;
    Bounds b{};
    b.cutOff1 = (dp2 - dp1 * c) / s + cutOffQ(ls1, r, big);
    b.cutOff2 = (dp1 - dp2 * c) / s + cutOffQ(ls2, r, big);
    // A second-order share for the change of the slope itself.
    b.t1 = std::abs(b.cutOff1) + std::abs(r1 - r2 * c) / (s * s) * kDeflection * 1.01L + kRounding;
    b.t2 = std::abs(b.cutOff2) + std::abs(r2 - r1 * c) / (s * s) * kDeflection * 1.01L + kRounding;
    b.length = r * kDeflection + kRounding;
    b.zh = b.t1 + curve.t1 * kDirection;
    b.hy = b.zh + ls1 * kDirection + simpson(curve.in);
    b.hyTurn = kDirection + kPacking;
    b.yh = b.hy + curve.arc.length * b.hyTurn + b.length + simpson(curve.arc);
    b.yhTurn = b.hyTurn + b.length / r + kPacking;
    b.hz = b.yh + ls2 * b.yhTurn + simpson(curve.out);
    b.hzTurn = b.yhTurn + kPacking;
    return b;
}

/// What a comparison has met, m.
struct Met {
    Real point = 0, stake = 0;
    Real tightest = 0;  ///< largest share of its bound
};

class TrueMainPoints : public testing::Test {
protected:
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    Met met;

    void expectNear(Real got, Real expected, Real bound, Real& largest, const std::string& what)
    {
        const Real off = std::abs(got - expected);
        EXPECT_LE(static_cast<double>(off), static_cast<double>(bound)) << what;
        largest = std::max(largest, off);
        met.tightest = std::max(met.tightest, off / bound);
    }
    void expectPoint(double x, double y, double dms, const truth::Pose& truePose, Real bound, Real turn,
                     const std::string& what)
    {
        expectNear(std::hypot(x - truePose.x, y - truePose.y), 0, bound, met.point, what);
        Real unused = 0;
        expectNear(truth::wrapped(truth::fromDms(dms) - truePose.az), 0, turn, unused, what + ", azimuth");
    }

    /// The compiled main points of `vertices` against the truth.
    void compare(const std::vector<truth::Vertex>& vertices, Real startStake)
    {
        const truth::Route route = truth::routeOf(vertices, startStake);
        ASSERT_EQ(gZdCount, std::ssize(route.curves));
        Real before = 0;  // what the stakes may be off when a curve's own leg begins
        for (std::size_t i = 1; i <= route.curves.size(); ++i) {
            const truth::Curve& c = route.curves[i - 1];
            const Bounds b = boundsOf(vertices[i], c);
            const std::string at = "point " + std::to_string(i) + ", ";
            Real unused = 0;
            expectNear(gZdT1[i], c.t1, b.t1, unused, at + "T1");
            expectNear(gZdT2[i], c.t2, b.t2, unused, at + "T2");
            const Real stake = before + b.t1;
            expectNear(gZdZhLc[i], c.zhStake, stake, met.stake, at + "ZH stake");
            expectNear(gZdHyLc[i], c.zhStake + c.in.length, stake + kRounding, met.stake, at + "HY stake");
            expectNear(gZdYhLc[i], c.zhStake + c.length - c.out.length, stake + b.length, met.stake, at + "YH stake");
            expectNear(gZdHzLc[i], c.zhStake + c.length, stake + b.length, met.stake, at + "HZ stake");
            expectPoint(gZdZhX[i], gZdZhY[i], gZdZhFwj[i], c.zh, b.zh, kDirection, at + "ZH");
            expectPoint(gZdHyX[i], gZdHyY[i], gZdHyFwj[i], c.hy, b.hy, b.hyTurn, at + "HY");
            expectPoint(gZdYhX[i], gZdYhY[i], gZdYhFwj[i], c.yh, b.yh, b.yhTurn, at + "YH");
            expectPoint(gZdHzX[i], gZdHzY[i], gZdHzFwj[i], c.hz, b.hz, b.hzTurn, at + "HZ");
            before += std::abs(b.cutOff1 + b.cutOff2) + (b.t1 - std::abs(b.cutOff1)) + (b.t2 - std::abs(b.cutOff2)) +
                      b.length;
        }
        expectNear(gElemLc[static_cast<std::size_t>(gElemCount)], route.endStake + 0.01L, before + kRounding, met.stake,
                   "end stake");
    }

    void write(const std::vector<truth::Vertex>& vertices, double startStake)
    {
        const auto text = [](Real v) { return FormatFixed3(static_cast<double>(v)); };
        std::string file = text(startStake) + ',' + text(vertices[0].x) + ',' + text(vertices[0].y) + "\r\n";
        for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
            const auto& v = vertices[i];
            file += "JD" + std::to_string(i) + ',' + text(v.x) + ',' + text(v.y) + ',' + text(v.ls1) + ',' +
                    text(v.ls2) + ',' + text(v.r) + "\r\n";
        }
        folder.write("平曲线参数.txt", file + text(vertices.back().x) + ',' + text(vertices.back().y) + "\r\n");
    }
};

TEST_F(TrueMainPoints, SampleWithinItsBound)
{
    std::vector<std::vector<std::string>> rows;
    for (const auto& line : SplitLines(ProjectFolder::bytesOf(VM_SOURCE_DIR "/samples/示例一/平曲线参数.txt")))
        if (!line.empty()) rows.push_back(SplitFields(line));
    const auto vertex = [](const std::vector<std::string>& fields, std::size_t first) {
        truth::Vertex v{ParseNumber(fields[first]), ParseNumber(fields[first + 1])};
        if (fields.size() >= 6)
            v.ls1 = ParseNumber(fields[3]), v.ls2 = ParseNumber(fields[4]), v.r = ParseNumber(fields[5]);
        return v;
    };
    std::vector<truth::Vertex> vertices;
    for (std::size_t i = 0; i < rows.size(); ++i) vertices.push_back(vertex(rows[i], i + 1 < rows.size() ? 1 : 0));
    ASSERT_GE(vertices.size(), 10u);

    gProjectFolder = VM_SOURCE_DIR "/samples/示例一";
    std::filesystem::copy(gProjectFolder, folder.root() + "/sample");  // a load may clean its files
    gProjectFolder = folder.root() + "/sample";
    LoadProject();
    compare(vertices, ParseNumber(rows[0][0]));
    std::printf("sample: points within %.3f mm, stakes within %.3f mm\n", static_cast<double>(met.point * 1000),
                static_cast<double>(met.stake * 1000));
}

TEST_F(TrueMainPoints, AThousandRandomRoutesWithinTheirBounds)
{
    std::mt19937_64 random(9);
    folder.write("其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n");
    for (int n = 0; n < 1000 && !HasFailure(); ++n) {
        const auto vertices = randomVertices(random, 1 + n % 12);
        const double start = 1000 * (n % 50);
        write(vertices, start);
        LoadProject();
        compare(vertices, start);
    }
    std::printf("random routes: points within %.3f mm, stakes within %.3f mm, at most %.2f of a bound\n",
                static_cast<double>(met.point * 1000), static_cast<double>(met.stake * 1000),
                static_cast<double>(met.tightest));
    EXPECT_GT(met.tightest,
              0.9L);  // the bound is no loose one: where the series is cut off, it is the departure itself
}

TEST_F(TrueMainPoints, MotorwayWithinTenthsOfAMillimetre)
{
    folder.write("其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n");
    const std::vector<truth::Vertex> vertices{
        {3000000, 500000}, {3000900, 500300, 150, 180, 1200}, {3001800, 500100, 200, 160, 1500}, {3002700, 500500}};
    write(vertices, 0);
    LoadProject();
    compare(vertices, 0);
    EXPECT_LT(static_cast<double>(met.point), 0.0005);
    EXPECT_LT(static_cast<double>(met.stake), 0.0005);
}

}  // namespace
