#include "base/RunTimeError.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "support/RandomRoute.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

struct Target {
    double x, y;
};

/// Points beside a road of 100 intersection points (401 elements), up to 20 m to either side.
std::vector<Target> targetsOfLongRoad(std::size_t count)
{
    std::mt19937_64 random(100);
    setRoute(randomVertices(random, 100));
    std::uniform_real_distribution<double> stake(gElemLc.front(), gElemLc.back()), offset(-20, 20);
    std::vector<Target> targets;
    while (targets.size() < count) {
        StakeToXY(stake(random), 90, offset(random));
        targets.push_back({gOutX, gOutY});
    }
    return targets;
}

template <class Solve>
void solveAll(benchmark::State& state, Solve solve)
{
    const auto targets = targetsOfLongRoad(10000);
    int unsettled = 0;
    for (auto _ : state)
        for (const auto& t : targets) {
            gInX = t.x;
            gInY = t.y;
            unsettled += !attempt(solve);
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(targets.size()));
    state.counters["unsettled"] = unsettled;
}

void inverse(benchmark::State& state)
{
    solveAll(state, [] { XYToStakeFromStart(); });
}
BENCHMARK(inverse)->Unit(benchmark::kMillisecond);

void inversePlain(benchmark::State& state)
{
    solveAll(state, [] { plain::XYToStake(gElemLc[0], gElemFwj[0], gElemX[0], gElemY[0]); });
}
BENCHMARK(inversePlain)->Unit(benchmark::kMillisecond);

void forward(benchmark::State& state)
{
    targetsOfLongRoad(1);
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> stake(gElemLc.front(), gElemLc.back());
    for (auto _ : state) StakeToXY(stake(random), 90, 5);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(forward);

}  // namespace
