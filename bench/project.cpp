// Opening a project: the files of a road of 500 intersection points with all its tables, from disk to CalcTables.

#include "LongRoad.h"
#include "project/LoadProject.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

struct SilentDialogs : Dialogs {
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

void open(benchmark::State& state)
{
    SilentDialogs silent;
    setDialogs(&silent);
    const ProjectFolder folder;
    writeRoad(folder, static_cast<int>(state.range(0)));
    bool cut = false;
    for (auto _ : state) cut = LoadProject().cutAtGap;
    if (gZdCount != state.range(0) || cut) state.SkipWithError("the road did not load");
    setDialogs(nullptr);
}
BENCHMARK(open)->Arg(10)->Arg(500)->Unit(benchmark::kMillisecond);

/// The same with every number damaged, so that every assignment fails.
void openDamaged(benchmark::State& state)
{
    SilentDialogs silent;
    setDialogs(&silent);
    const ProjectFolder folder;
    writeRoad(folder, 500);
    for (const auto* file : {"平曲线参数.txt", "竖曲线参数.txt", "超高参数.txt", "超高宽度参数.txt"}) {
        auto text = folder.text(file);
        for (auto& c : text)
            if (c == '.') c = 'x';
        folder.write(file, text);
    }
    for (auto _ : state) LoadProject();
    setDialogs(nullptr);
}
BENCHMARK(openDamaged)->Unit(benchmark::kMillisecond);

}  // namespace
