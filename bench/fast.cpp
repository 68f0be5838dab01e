// The quick ways between stakes and points beside the plain ones, in one run and one thread, as one table.

#include "base/RunTimeError.h"
#include "engine/FastRoute.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "support/RandomRoute.h"

#include <chrono>
#include <cstdio>
#include <random>
#include <vector>

namespace {

/// A road of so many intersection points; on a local grid its coordinates are a few thousand.
void setRoad(int points, bool local)
{
    std::mt19937_64 random(40);
    setRoute(randomVertices(random, points));
    if (local) {
        const double x = gElemX[0] - 3000, y = gElemY[0] - 5000;
        for (std::size_t i = 0; i + 1 < gElemX.size(); ++i)
            gElemX[i] = Fixed3(gElemX[i] - x), gElemY[i] = Fixed3(gElemY[i] - y);
    }
    prepareRoute(shared.tables);
}

struct Call {
    double stake, skew, offset, x, y;
};

/// Random stakes, and points within 50 m of the line.
std::vector<Call> calls(std::size_t count)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> stake(gElemLc.front(), gElemLc.back() - 0.01), offset(0, 50);
    std::vector<Call> all;
    while (all.size() < count) {
        Call c{stake(random), random() % 2 ? 90.0 : 270.0, offset(random), 0, 0};
        const auto p = pointAt(shared.tables, c.stake, c.skew, c.offset);
        c.x = p->x, c.y = p->y;
        all.push_back(c);
    }
    return all;
}

/// Nanoseconds a call, the least of three runs.
template <class Work>
double nanoseconds(const std::vector<Call>& all, std::size_t count, Work work)
{
    double least = 1e300;
    for (int run = 0; run < 3; ++run) {
        const auto begin = std::chrono::steady_clock::now();
        for (std::size_t n = 0; n < count; ++n) work(all[n % all.size()]);
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - begin;
        least = std::min(least, taken.count() / static_cast<double>(count));
    }
    return least;
}

void row(const char* what, double plain, double fast, const char* wanted, double fallbacks)
{
    std::printf("%-44s %10.0f %10.0f %8.1f  %-28s %.1e\n", what, plain, fast, plain / fast, wanted, fallbacks);
}

double share(long some, long all) { return all ? static_cast<double>(some) / static_cast<double>(all) : 0; }

void forward(const char* what, const char* wanted)
{
    const auto all = calls(100000);
    const double plain = nanoseconds(all, 5000, [](const Call& c) { plain::StakeToXY(c.stake, c.skew, c.offset); });
    fastCounts = {};
    const double fast = nanoseconds(all, 1000000, [](const Call& c) { StakeToXY(c.stake, c.skew, c.offset); });
    row(what, plain, fast, wanted, share(fastCounts.plainPoints, fastCounts.points));
}

double inverse(const char* what, const char* wantedFoot, const char* wantedFull)
{
    const auto all = calls(100000);
    const double plain = nanoseconds(all, 600, [](const Call& c) {
        gInX = c.x, gInY = c.y;
        attempt([] { plain::XYToStake(gElemLc[0], gElemFwj[0], gElemX[0], gElemY[0]); });
    });
    fastCounts = {};
    const double foot = nanoseconds(all, 100000, [](const Call& c) { footOf(shared.tables, c.x, c.y); });
    std::printf("footOf, ");
    row(what, plain, foot, wantedFoot, share(fastCounts.plainFeet, fastCounts.feet));
    fastCounts = {};
    const double full = nanoseconds(all, 20000, [](const Call& c) {
        gInX = c.x, gInY = c.y;
        attempt([] { XYToStakeFromStart(); });
    });
    std::printf("XYToStake, ");
    row(what, plain, full, wantedFull, share(fastCounts.plainDoubles, fastCounts.doubles));
    return foot;
}

}  // namespace

int main()
{
    std::printf("%-44s %10s %10s %8s  %-28s %s\n", "", "plain ns", "ns", "times", "wanted", "the plain way's share");
    setRoad(40, false);
    std::printf("%d elements, %.1f km\n", gElemCount, (gElemLc.back() - gElemLc.front()) / 1000);
    forward("StakeToXY, national coordinates", "40 (peers: 19.5; exactest 2.1)");
    const double few = inverse("national coordinates", "30", "15");
    setRoad(40, true);
    forward("StakeToXY, local grid", "40");
    inverse("local grid", "30", "3");
    setRoad(500, false);
    std::printf("%d elements, %.1f km\n", gElemCount, (gElemLc.back() - gElemLc.front()) / 1000);
    const double many = inverse("national coordinates", "", "");
    std::printf("footOf on 500 points costs %.2f times that on 40 points (wanted: 3 at most)\n", many / few);
}
