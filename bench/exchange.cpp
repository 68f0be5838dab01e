// Roads and points between programs: the import of a long road, and the list of many points.
#include <benchmark/benchmark.h>

#include "../tests/exchange/RoadXml.h"
#include "exchange/FieldFile.h"
#include "exchange/Import.h"

namespace {

/// Right and left curves with spirals and a straight behind each: eight elements a pair.
std::vector<ChainPiece> bends(std::int64_t elements)
{
    std::vector<ChainPiece> chain;
    while (static_cast<std::int64_t>(chain.size()) < elements)
        for (const double r : {600.0, -600.0})
            for (const ChainPiece& piece :
                 {ChainPiece{60, 0, r}, ChainPiece{90, r, r}, ChainPiece{60, r, 0}, ChainPiece{120, 0, 0}})
                chain.push_back(piece);
    return chain;
}

/// The same without straights, and radii that change: nothing but blocks can hold it.
std::vector<ChainPiece> chained(std::int64_t elements)
{
    std::vector<ChainPiece> chain;
    while (static_cast<std::int64_t>(chain.size()) < elements)
        for (const double side : {1.0, -1.0})
            for (const ChainPiece& piece : {ChainPiece{60, 0, side * 600}, ChainPiece{90, side * 600, side * 600},
                                            ChainPiece{60, side * 600, side * 400}, ChainPiece{50, side * 400, 0}})
                chain.push_back(piece);
    return chain;
}

/// Nothing but arcs that turn to either side: each is an intersection point of its own.
std::vector<ChainPiece> arcs(std::int64_t elements)
{
    std::vector<ChainPiece> chain;
    while (static_cast<std::int64_t>(chain.size()) < elements)
        for (const double r : {600.0, -600.0}) chain.push_back({90, r, r});
    return chain;
}

void import(benchmark::State& state, const std::vector<ChainPiece>& chain)
{
    RoadXml xml;
    const std::string text = xml.text(chain);
    for (auto _ : state) benchmark::DoNotOptimize(ImportRoad(landxml::File::fromBytes(text), 0, {}));
}
void importVertices(benchmark::State& state) { import(state, bends(state.range(0))); }
void importArcs(benchmark::State& state) { import(state, arcs(state.range(0))); }
void importBlocks(benchmark::State& state) { import(state, chained(state.range(0))); }

/// From start to end of a road at steps that give about so many points, each a line of a file.
void listPoints(benchmark::State& state)
{
    RoadXml xml;
    const auto road = ImportRoad(landxml::File::fromBytes(xml.text(bends(160))), 0, {});
    const auto compiled = Compile(road.files);
    const double length = 20 * 660.0;
    std::size_t points = 0;
    for (auto _ : state) {
        const FieldRun run{.from = 1000, .to = 1000 + length, .step = length / static_cast<double>(state.range(0))};
        FieldPoints all(compiled.tables, run);
        FieldWriter writer(*FieldFormatOf("a.csv"));
        points = 0;
        while (const auto point = all.next()) {
            benchmark::DoNotOptimize(writer.line(*point));
            ++points;
        }
    }
    state.counters["points"] = static_cast<double>(points);
}

BENCHMARK(importVertices)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(importArcs)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(importBlocks)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(listPoints)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
