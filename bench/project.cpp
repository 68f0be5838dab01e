// Opening a project: the files of a road of 500 intersection points with all its tables, from disk to CalcTables.

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

struct SilentDialogs : Dialogs {
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

std::string number(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.3f", value);
    return text;
}

/// A zigzag of `points` intersection points 400 m apart, with one row of every other table a point.
void writeRoad(const ProjectFolder& folder, int points)
{
    std::string route = "0,3000000,500000\r\n", profile = "0,100\r\n", slopes, widths;
    for (int i = 1; i <= points; ++i) {
        const std::string stake = number(i * 390.0), next = number((i + 1) * 390.0);
        route += "JD" + std::to_string(i) + "," + number(3000000 + i * 400.0) + "," + number(500000 + i % 2 * 120.0) +
                 ",50,60," + number(250 + i % 90) + "\r\n";
        profile += stake + "," + number(100 + i % 7) + ",6000\r\n";
        slopes += stake + ",-2,-2," + next + ",4,-4\r\n";
        widths += stake + "," + next + ",2,5,5,1,1,6,6,1,1,-4\r\n";
    }
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
    folder.write("平曲线参数.txt", route + number(3000000 + (points + 1) * 400.0) + ",500000\r\n");
    folder.write("竖曲线参数.txt", profile + number((points + 1) * 390.0) + ",100\r\n");
    folder.write("超高参数.txt", slopes);
    folder.write("超高宽度参数.txt", widths);
    folder.write("断链参数.txt", "50000,50030\r\n90000,89980\r\n");
    folder.write("导线点参数.txt", "导线点一,3000000,500000,\r\n");
}

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
