// The quick ways against the plain ones: bit for bit, and within their bounds, which are neither broken nor idle.

#include "base/RunTimeError.h"
#include "engine/FastRoute.h"
#include "engine/FootRun.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "support/SweepRoute.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

std::uint64_t bits(double v) { return std::bit_cast<std::uint64_t>(v); }

auto results()
{
    return std::tuple(bits(gOutX), bits(gOutY), bits(gOutFwj), bits(gOutDist), bits(gInLc), gOutLcText, gOutOffsetText);
}

void clearResults()
{
    gOutX = gOutY = gOutFwj = gOutDist = gInLc = -1;
    gOutLcText = gOutOffsetText = "-";
}

constexpr double kSizes[] = {1e3, 4e6, 5e7};
constexpr int kShards = 8;

class FastRoute_ : public testing::TestWithParam<int> {
public:
    FastRoute_() { shared = {}; }
    ~FastRoute_() override { shared = {}; }

protected:
    Sweep sweep{static_cast<std::uint64_t>(GetParam()) + 1};
    const int m_calls = sweepCalls(kShards);
    void renew(int n)
    {
        sweep.setRoute(1 + static_cast<int>(sweep.below(n % 5 == 0 ? 40 : 8)), kSizes[n % 3]);
        if (n % 4 == 0) {
            const double middle = Fixed3((gElemLc.front() + gElemLc.back()) / 2);
            setBreaks({{middle, middle + 20}, {middle + 90, middle + 70}});
        } else {
            setBreaks({});
        }
    }
};

TEST_P(FastRoute_, StakeToXY)
{
    fastCounts = {};
    for (int n = 0; n < m_calls; ++n) {
        if (n % 200 == 0) renew(n / 200);
        const double stake = sweep.stake(), skew = sweep.skew(), offset = sweep.offset();
        gInX = sweep.draw(-100, 100);
        gInY = sweep.draw(-100, 100);
        clearResults();
        plain::StakeToXY(stake, skew, offset);
        const auto expected = results();
        clearResults();
        StakeToXY(stake, skew, offset);
        ASSERT_EQ(results(), expected) << n << ": " << stake << ' ' << skew << ' ' << offset;
    }
    std::cout << fastCounts.points << " points, " << fastCounts.plainPoints << " by the plain sums\n";
    EXPECT_GT(fastCounts.points, m_calls / 2);
}

TEST_P(FastRoute_, XYToStakeAndFootOf)
{
    fastCounts = {};
    int unsettled = 0, slow = 0;
    for (int n = 0; n < m_calls; ++n) {
        if (n % 100 == 0) renew(n / 100);
        sweep.setTarget();
        clearResults();
        const long rounds = fastCounts.doubles;
        const bool settled = attempt([] { XYToStakeFromStart(); });
        // A walk that does not settle is 32,767 rounds of the plain way; a handful of them will do, and of those that
        // take hundreds.
        if (!settled && ++unsettled > 3) continue;
        if (fastCounts.doubles - rounds > 60 && ++slow > m_calls / 200) continue;
        const auto got = results();
        const Foot foot = footOf(shared.tables, gInX, gInY);
        ASSERT_EQ(results(), got) << n;
        ASSERT_EQ(foot.error.has_value(), !settled) << n;
        clearResults();
        plain::Walk walk;
        ASSERT_EQ(attempt([&] { walk = plain::XYToStake(gElemLc[0], gElemFwj[0], gElemX[0], gElemY[0]); }), settled)
            << n;
        ASSERT_EQ(got, results()) << n << ": " << gInX << ' ' << gInY;
        if (!settled) continue;
        ASSERT_EQ(foot.lcText, gOutLcText) << n << ": " << gInX << ' ' << gInY;
        ASSERT_EQ(foot.offsetText, gOutOffsetText) << n << ": " << gInX << ' ' << gInY;
        ASSERT_EQ(foot.element, static_cast<std::size_t>(walk.element)) << n;
        ASSERT_EQ(bits(foot.stake), bits(RoundHalfUp3(walk.stake))) << n;
        ASSERT_EQ(bits(foot.offset), bits(RoundHalfUp3(walk.offset))) << n;
    }
    std::cout << fastCounts.feet << " feet, " << fastCounts.plainFeet << " by the plain walk; " << fastCounts.doubles
              << " points of walks, " << fastCounts.plainDoubles << " by the plain sums\n";
    EXPECT_LT(fastCounts.plainFeet, fastCounts.feet / 4);
}

/// A file of points asks for feet alone; what it leaves is what each point asked in full would have left.
TEST_P(FastRoute_, FootRunLeavesWhatTheLastPointsWould)
{
    for (int n = 0; n < m_calls / 20; ++n) {
        if (n % 50 == 0) renew(n / 50);
        struct Point {
            double x, y;
        };
        std::vector<Point> points;
        for (auto count = sweep.below(4); count > 0; --count) {
            sweep.setTarget();
            points.push_back({gInX, gInY});
        }
        clearResults();
        const Shared before = shared;
        for (const auto& p : points) {
            gInX = p.x;
            gInY = p.y;
            attempt([] { XYToStakeFromStart(); });
        }
        const Shared expected = std::exchange(shared, before);
        {
            FootRun run;
            for (const auto& p : points) run.next(p.x, p.y);
        }
        ASSERT_EQ(shared, expected) << n;
    }
}

INSTANTIATE_TEST_SUITE_P(, FastRoute_, testing::Range(0, kShards));

/// How far the quick coordinates are from the plain ones, in bounds.
struct Tightness {
    double most = 0;
    long calls = 0;
};

/// A class of elements at coordinates of a size: kind 0 arcs, 1 spirals, 2 straights with an offset.
void setOneElement(Sweep& sweep, int kind, double size)
{
    const double side = sweep.chance(0.5) ? 1 : -1, radius = side * sweep.draw(30, 1500);
    const double length = kind == 2 ? sweep.draw(10, 800) : std::abs(radius) * sweep.draw(0.02, kind == 1 ? 0.9 : 2);
    const double next = side * sweep.draw(30, 1500), x = size * sweep.draw(0.5, 1), y = size * sweep.draw(0.5, 1);
    const double from = kind == 2 || (kind == 1 && sweep.chance(0.4)) ? 0 : radius;
    const double to = kind == 2 ? 0 : kind == 0 ? radius : sweep.chance(0.4) && from != 0 ? 0 : next;
    setElements({{100, x, y, DegToDms(sweep.draw(0, 360)), from, to}, {100 + length, 0, 0, 0, 0, 0}});
    prepareRoute(shared.tables);
}

/// The plain coordinates before they are rounded; on a straight by the engine's own sums, which know that all their
/// angles are one.
void plainPoint(int kind, double stake, double skew, double offset, double& x, double& y)
{
    CurvePoint p;
    if (kind == 2)
        p = pointOn(shared.tables, 1, stake);
    else
        plain::pointAt(stake, p.x, p.y, p.fwjDeg);
    x = p.x + offset * plain::cosDeg(p.fwjDeg + skew);
    y = p.y + offset * plain::sinDeg(p.fwjDeg + skew);
}

/// A random call at the element; `planted` bounds are added to what the quick way says.
void measure(Sweep& sweep, int kind, double planted, Tightness& found)
{
    const double stake = sweep.draw(gElemLc[0], gElemLc[1]), skew = sweep.chance(0.5) ? 90 : 270;
    const double offset = kind == 2 || sweep.chance(0.3) ? sweep.draw(1, 60) : 0;
    const auto p = boundedPoint(*fastRoute(shared.tables), 1, stake, skew, offset);
    if (!p) return;
    double x = 0, y = 0;
    plainPoint(kind, stake, skew, offset, x, y);
    found.most = std::max({found.most, std::abs(p->x + planted * p->boundX - x) / p->boundX,
                           std::abs(p->y + planted * p->boundY - y) / p->boundY});
    ++found.calls;
}

class FastBound : public testing::TestWithParam<std::tuple<int, double>> {
public:
    FastBound() { shared = {}; }
    ~FastBound() override { shared = {}; }
};

TEST_P(FastBound, IsHeldAndTight)
{
    const auto [kind, size] = GetParam();
    Sweep sweep(static_cast<std::uint64_t>(kind) + 77);
    Tightness found;
    const int calls = allSweepCalls(kind == 2 ? 1 : 9);  // under the sanitizers too: few calls show nothing
    for (int n = 0; n < calls; ++n) {
        if (n % 50 == 0) setOneElement(sweep, kind, size);
        measure(sweep, kind, 0, found);
    }
    std::cout << (kind == 0   ? "arc"
                  : kind == 1 ? "spiral"
                              : "straight with offset")
              << " at " << size << ": " << found.most << " of the bound at most, " << found.calls << " calls\n";
    EXPECT_GT(found.calls, calls * 3 / 4);
    EXPECT_LE(found.most, 1);
    // Where coordinates are large, two ways seldom round to different doubles: one call in 10^4, of straights in 10^6.
    const bool shows = size < (kind == 2 ? 1e6 : 1e7) || calls > 1'000'000;
    if (shows) {
        EXPECT_GE(found.most, 0.01);
    }
}

TEST_P(FastBound, AnErrorOfThreeBoundsIsNoticed)
{
    const auto [kind, size] = GetParam();
    Sweep sweep(5);
    setOneElement(sweep, kind, size);
    Tightness found;
    while (found.calls == 0) measure(sweep, kind, 3, found);
    EXPECT_GT(found.most, 1);
}

INSTANTIATE_TEST_SUITE_P(, FastBound, testing::Combine(testing::Range(0, 3), testing::ValuesIn(kSizes)));

/// What the comparison of digits would say about an error of 10^-8 m in what is kept of the elements.
TEST(FastRouteErrors, TenNanometresAreNoticed)
{
    Sweep sweep(3);
    shared = {};
    int differences = 0;
    for (int route = 0; route < 200 && differences == 0; ++route) {
        sweep.setRoute(8, 1e3, false);
        FastRoute wrong = *shared.tables.fast.route;
        for (auto& element : wrong.elements) element.x += 1e-8;
        shared.tables.fast.route = std::make_shared<FastRoute>(wrong);
        for (int n = 0; n < 500; ++n) {
            const double stake = sweep.draw(gElemLc.front(), gElemLc.back());
            clearResults();
            plain::StakeToXY(stake, 90, 5.25);
            const auto expected = results();
            clearResults();
            StakeToXY(stake, 90, 5.25);
            differences += results() != expected;
        }
    }
    shared = {};
    EXPECT_GT(differences, 0);
}

/// What is kept counts only for as many rows as it was made from, and a load that is out of all bounds keeps nothing.
TEST(FastRouteErrors, NothingIsKeptOfARouteOutOfAllBounds)
{
    shared = {};
    setElements({{0, 1e9, 0, 0, 0, 0}, {100, 1e9, 100, 0, 0, 0}});
    prepareRoute(shared.tables);
    EXPECT_EQ(fastRoute(shared.tables), nullptr);
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}, {50, 0, 0, 0, 0, 0}});  // stakes that fall
    prepareRoute(shared.tables);
    EXPECT_EQ(fastRoute(shared.tables), nullptr);
    setElements({{0, 0, 0, 0, 0, 0}, {100, 100, 0, 0, 0, 0}, {150, 0, 0, 0, 0, 0}});
    prepareRoute(shared.tables);
    EXPECT_NE(fastRoute(shared.tables), nullptr);
    gElemCount = 1;
    EXPECT_EQ(fastRoute(shared.tables), nullptr);
    shared = {};
    prepareRoute(shared.tables);
    EXPECT_EQ(fastRoute(shared.tables), nullptr);
}

/// The sums of the engine itself, which it falls back to, give what is given with them kept.
TEST(FastRouteErrors, WithoutWhatIsKeptTheResultsAreTheSame)
{
    Sweep sweep(9);
    shared = {};
    for (int n = 0; n < 300; ++n) {
        if (n % 30 == 0) sweep.setRoute(6, 4e6);
        const double stake = sweep.stake();
        clearResults();
        StakeToXY(stake, 90, 7);
        const auto fast = results();
        const auto kept = shared.tables.fast;
        shared.tables.fast = {};
        clearResults();
        StakeToXY(stake, 90, 7);
        EXPECT_EQ(results(), fast);
        shared.tables.fast = kept;
    }
    shared = {};
}

/// Every digit that a table shows is one division away from its text and back.
TEST(Fixed3, IsItsTextAndBack)
{
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> unit(-1, 1), exponent(-5, 9.5);
    for (int n = 0; n < 200'000; ++n) {
        double value = unit(random) * std::pow(10, exponent(random));
        if (n % 4 == 0) value = (std::floor(value * 1000) + 0.5) / 1000;
        ASSERT_EQ(bits(Fixed3(value)), bits(ParseNumber(FormatFixed3(value)))) << value;
    }
    for (const double value :
         {0.0, -0.0, -0.0004, -0.0005, 0.0005, 0.0015, 999999999.9995, 1e9, 1e12, 123456789012.3456})
        EXPECT_EQ(bits(Fixed3(value)), bits(ParseNumber(FormatFixed3(value)))) << value;
}

}  // namespace
