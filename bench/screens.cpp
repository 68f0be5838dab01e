// Batches of the calculation screens, without their windows.

#include "base/Numbers.h"
#include "dialogs/ResultTable.h"
#include "engine/FastRoute.h"
#include "engine/FootRun.h"
#include "engine/Route.h"
#include "screens/Columns.h"
#include "screens/Export.h"
#include "screens/Fs.h"
#include "screens/Plfy.h"
#include "support/RandomRoute.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

/// A road of 100 intersection points.
void longRoad()
{
    std::mt19937_64 random(100);
    setRoute(randomVertices(random, 100));
    prepareRoute(shared.tables);
}

/// As many rows as the 16-bit row counter takes.
void stakeout(benchmark::State& state)
{
    longRoad();
    const double length = gElemLc.back() - gElemLc.front();
    const PlfyInput in{.start = NumText(gElemLc.front()),
                       .end = NumText(gElemLc.back()),
                       .step = NumText(length / 32766.5),
                       .offset = {},
                       .skew = {},
                       .station = {}};
    for (auto _ : state) {
        PlainRows grid(Headers(kCoordinateColumns));
        ResultTable rows(grid);
        benchmark::DoNotOptimize(CalcPlfy(in, rows));
        state.counters["rows"] = rows.state.rows;
    }
}

/// 10,000 points beside the road, up to 20 m to either side, each checked for its quiet warning.
void inverse(benchmark::State& state)
{
    longRoad();
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> stake(gElemLc.front(), gElemLc.back()), offset(-20, 20);
    std::vector<std::pair<double, double>> points;
    for (int i = 0; i < 10000; ++i) {
        StakeToXY(stake(random), 90, offset(random));
        points.emplace_back(gOutX, gOutY);
    }
    for (auto _ : state) {
        PlainRows grid(Headers(kInverseColumns));
        ResultTable rows(grid);
        FootRun run;
        for (const auto& [x, y] : points) AddFsPoint(run, x, y, rows);
        state.counters["rows"] = rows.state.rows;
    }
}

/// The sheet of 32,765 rows, the most that a save takes.
void sheet(benchmark::State& state)
{
    PlainRows grid(Headers(kCoordinateColumns));
    ResultTable rows(grid);
    for (int i = 0; i < 32765; ++i) {
        const std::string n = std::to_string(i);
        rows.row(
            {{"K12+" + n, "中桩", "无", n + "度01分02秒", n + ".001", n + ".002", n + ".003", n + "度03分04秒"}, {}});
    }
    for (auto _ : state) benchmark::DoNotOptimize(ResultSheet(kPlfyExport, {grid.text(), rows.state.rows, "GP01"}));
}

BENCHMARK(stakeout)->Unit(benchmark::kMillisecond);
BENCHMARK(inverse)->Unit(benchmark::kMillisecond);
BENCHMARK(sheet)->Unit(benchmark::kMillisecond);

}  // namespace
