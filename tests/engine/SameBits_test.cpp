// The engine's ways against the plain ways, bit for bit, on random inputs.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Element.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "support/RandomRoute.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>

namespace {

/// All results as they stand, doubles as bits, so that -0 differs from 0.
auto results()
{
    const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
    return std::tuple(bits(gOutX), bits(gOutY), bits(gOutFwj), bits(gOutDist), bits(gInLc), gOutLcText, gOutOffsetText);
}

void clearResults()
{
    gOutX = gOutY = gOutFwj = gOutDist = gInLc = -1;
    gOutLcText = gOutOffsetText = "-";
}

/// Rows that nothing ties together: stakes that may run backward or stand still, any azimuth, radii of all sizes.
void setWildRows(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> step(-20, 60), coordinate(-200, 200), azimuth(0, 360), unit(0, 1);
    std::vector<ElementRow> rows;
    double lc = coordinate(random);
    const int count = 2 + static_cast<int>(random() % 7);
    for (int i = 0; i <= count; ++i) {
        const auto radius = [&] {
            const double u = unit(random);
            return u < 0.3 ? 0 : u < 0.35 ? coordinate(random) / 100 : coordinate(random) * 5;
        };
        const double r1 = radius();
        rows.push_back({lc, coordinate(random), coordinate(random), DegToDms(azimuth(random)), r1,
                        unit(random) < 0.4 ? r1 : radius()});
        if (i > 0 && unit(random) < 0.05) rows.back().x = rows[rows.size() - 2].x;
        const double s = step(random);
        lc += unit(random) < 0.1 ? 0 : unit(random) < 0.1 ? 0.01 : unit(random) < 0.5 ? std::abs(s) : s;
    }
    setElements(rows);
}

/// Shards of the same test, so that they run side by side.
class SameBits : public testing::TestWithParam<unsigned> {
public:
    SameBits() { shared = {}; }
    ~SameBits() override { shared = {}; }

protected:
    static constexpr int kInputs = 16'000 / 8;
    std::mt19937_64 random{GetParam()};

    double draw(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }
    void setTables(int round)
    {
        shared = {};
        if (round % 3 == 0)
            setWildRows(random);
        else
            setRoute(randomVertices(random, 1 + round % 4));
        if (round % 5 == 0) {
            const double middle = gElemLc.front() + 60;
            setBreaks({{middle, middle + 20}, {middle + 90, middle + 70}});
        }
    }
};

TEST_P(SameBits, StakeToXY)
{
    for (int n = 0; n < kInputs; ++n) {
        if (n % 100 == 0) setTables(n / 100);
        const double stake = draw(gElemLc.front() - 10, gElemLc.back() + 10);
        const double skew = draw(-400, 400), offset = n % 4 ? draw(-50, 50) : 0;
        gInX = draw(-100, 100);
        gInY = draw(-100, 100);
        clearResults();
        plain::StakeToXY(stake, skew, offset);
        const auto expected = results();
        clearResults();
        StakeToXY(stake, skew, offset);
        ASSERT_EQ(results(), expected) << n;
    }
}

TEST_P(SameBits, ElementEnd)
{
    for (int n = 0; n < kInputs; ++n) {
        const double total = draw(-50, 400), len = n % 2 ? total : draw(0, total);
        const double k1 = n % 3 ? draw(-0.05, 0.05) : 0, k2 = n % 5 ? draw(-0.05, 0.05) : k1;
        const double az = DegToDms(draw(0, 360)), x0 = draw(-1e6, 1e6), y0 = draw(-1e6, 1e6);
        plain::ElementEnd(len, k1, k2, az, x0, y0, total);
        const auto expected = results();
        ElementEnd(len, k1, k2, az, x0, y0, total);
        ASSERT_EQ(results(), expected) << n;
    }
}

TEST_P(SameBits, XYToStake)
{
    int unsettled = 0;
    for (int n = 0; n < kInputs; ++n) {
        if (n % 50 == 0) setTables(n / 50);
        if (n % 10 == 0) {
            gInX = gElemX[0] + draw(-150, 150);  // anywhere
            gInY = n % 20 ? gElemY[0] + draw(-150, 150) : gElemY[random() % gElemY.size()];
        } else {
            StakeToXY(draw(gElemLc.front(), gElemLc.back()), 90, n % 3 ? draw(-40, 40) : 0);
            gInX = gOutX;
            gInY = gOutY;
        }
        clearResults();
        const bool settled = attempt([] { XYToStakeFromStart(); });
        // A walk that does not settle is 32,767 rounds of the plain way; a handful of them will do.
        if (!settled && ++unsettled > 3) continue;
        const auto got = results();
        clearResults();
        ASSERT_EQ(attempt([] { plain::XYToStake(gElemLc[0], gElemFwj[0], gElemX[0], gElemY[0]); }), settled) << n;
        ASSERT_EQ(got, results()) << n;
    }
    EXPECT_GT(unsettled, 0);
}

INSTANTIATE_TEST_SUITE_P(, SameBits, testing::Range(0u, 8u));

}  // namespace
