// The views on a road of 500 points (2,001 elements): opening, a repaint while panning and zooming, the read-out.

#include "plot/ReadOut.h"
#include "support/RandomRoute.h"
#include "views/PlanArea.h"
#include "views/ProfileArea.h"
#include "views/frmPmt.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include <chrono>
#include <random>

namespace {

void longRoad()
{
    static const bool once = [] {
        std::mt19937_64 random(500);
        setRoute(randomVertices(random, 500));
        return true;
    }();
    (void)once;
}

void opening(benchmark::State& state)
{
    longRoad();
    for (auto _ : state) {
        frmPmt form;
        form.resize(1900, 1000);
        form.show();
        QImage image(form.size(), QImage::Format_RGB32);
        form.render(&image);
    }
}
BENCHMARK(opening)->Unit(benchmark::kMillisecond);

/// Frames of 1920 x 1080 while the road goes by at some pixels a metre.
void frames(benchmark::State& state)
{
    longRoad();
    const plot::Road road(shared.tables);
    PlanArea area;
    area.resize(1920, 1080);
    area.setRoad(&road);
    const double scale = static_cast<double>(state.range(0)) / 1000;
    QImage image(1920, 1080, QImage::Format_RGB32);
    double stake = road.start() + 100, worst = 0;
    for (auto _ : state) {
        const auto pose = road.poseAt(stake);
        area.flyTo(pose->at, scale);
        stake += 20 / scale;
        if (stake > road.end()) stake = road.start() + 100;
        const auto begin = std::chrono::steady_clock::now();
        area.render(&image);
        worst = std::max(worst,
                         std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    state.counters["worst_ms"] = worst;
    state.counters["elements"] = static_cast<double>(road.elements().size());
}
BENCHMARK(frames)->Arg(5)->Arg(20)->Arg(100)->Arg(500)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

void zooming(benchmark::State& state)
{
    longRoad();
    const plot::Road road(shared.tables);
    PlanArea area;
    area.resize(1920, 1080);
    area.setRoad(&road);
    area.showAll();
    QImage image(1920, 1080, QImage::Format_RGB32);
    const plot::Point there = road.poseAt(road.end() / 2)->at;
    int step = 0;
    double worst = 0;
    for (auto _ : state) {
        area.zoomAt(area.onScreen(there), step++ % 120 < 60 ? 1.1 : 1 / 1.1);
        const auto begin = std::chrono::steady_clock::now();
        area.render(&image);
        worst = std::max(worst,
                         std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    state.counters["worst_ms"] = worst;
}
BENCHMARK(zooming)->Unit(benchmark::kMillisecond);

void cursor(benchmark::State& state)
{
    longRoad();
    const plot::Road road(shared.tables);
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> stake(road.start(), road.end()), offset(-500, 500);
    for (auto _ : state) {
        const auto pose = road.poseAt(stake(random));
        benchmark::DoNotOptimize(plot::readOutAt(road, pose->at + plot::Point{offset(random), offset(random)}));
    }
}
BENCHMARK(cursor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
