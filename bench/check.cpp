// The check of a project of 500 intersection points: as a whole, its longest piece, the turns that the main window
// takes for it, and what they cost the one who opens the project.
//
//     bench_check [folder of a project...]
//
// Milliseconds. -O2, two cores at load 18, 2026-11-22, 500 points: whole 24.9 and longest piece 0.19 of processor time;
// by the clock 6 turns, the longest pass of the event loop 25.5 (others had the processor meanwhile); a load 86, from
// the click to its box 90, until checked and painted 140.

#include "LongRoad.h"
#include "app/CheckTurns.h"
#include "app/ListBox.h"
#include "app/frmMain.h"
#include "controls/XPButton.h"
#include "project/LoadProject.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <utility>
#include <vector>

namespace {

/// Processor time of this thread: what else the machine does is not counted.
double cpu() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

double clockNow()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

/// Remembers when the box of a load comes up.
struct BoxTime : Dialogs {
    double at = 0;

    bool box(const Msg&) override
    {
        at = clockNow();
        return true;
    }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianOf(int runs, const std::function<double()>& run)
{
    std::vector<double> values;
    for (int i = 0; i < runs; ++i) values.push_back(run());
    return median(std::move(values));
}

void wholeAndPieces(const std::string& name, const std::string& folder)
{
    std::vector<double> wholes, longest;
    std::size_t pieces = 0, found = 0;
    for (int i = 0; i < 9; ++i) {
        const double start = cpu();
        CheckRun run(folder);
        double most = 0;
        for (pieces = 0; !run.done(); ++pieces) {
            const double before = cpu();
            run.step();
            most = std::max(most, cpu() - before);
        }
        wholes.push_back(cpu() - start);
        longest.push_back(most);
        found = run.take().size();
    }
    std::printf("%-28s whole %7.1f   longest piece %6.3f   pieces %7zu   findings %zu\n", name.c_str(), median(wholes),
                median(longest), pieces, found);
}

/// The longest time between two passes of the event loop, and the turns.
void turns(const std::string& name)
{
    CheckTurns check;
    double longest = 0;
    int count = 0;
    for (int i = 0; i < 9; ++i) {
        check.start();
        for (double before = clockNow(), now = 0; check.running(); before = now) {
            QApplication::processEvents();
            now = clockNow();
            longest = std::max(longest, now - before);
        }
        count = check.turns();
    }
    std::printf("%-28s turns %d, longest pass of the event loop %.1f (clock)\n", name.c_str(), count, longest);
}

void opening()
{
    BoxTime dialogs;
    setDialogs(&dialogs);
    frmMain main;
    main.show();
    auto* list = main.findChild<ListBox*>(QStringLiteral("lstProjects"));
    auto* button = main.findChild<XPButton*>(QStringLiteral("cmdOpenProjects"));
    auto* check = main.findChild<CheckTurns*>();
    list->setCurrentRow(0);
    const auto settle = [&] {
        while (check->running()) QApplication::processEvents();
        QApplication::processEvents();
    };
    const double alone = medianOf(21, [] {
        const double start = clockNow();
        LoadProject();
        return clockNow() - start;
    });
    const double toBox = medianOf(21, [&] {
        settle();
        const double start = clockNow();
        emit button->Click();
        return dialogs.at - start;
    });
    const double toEnd = medianOf(21, [&] {
        settle();
        const double start = clockNow();
        emit button->Click();
        settle();
        return clockNow() - start;
    });
    std::printf("opening, 500 points: load %.1f, click to the box %.1f, until checked and painted %.1f (clock)\n",
                alone, toBox, toEnd);
    setDialogs(nullptr);
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    applyTheme(*qApp);
    for (int i = 1; i < argc; ++i) wholeAndPieces(argv[i], argv[i]);
    for (const int points : {10, 500, 8000}) {
        const ProjectFolder folder;
        writeRoad(folder, points);
        const std::string name = std::to_string(points) + " points";
        wholeAndPieces(name, ProjectPath(gProject));
        turns(name);
    }
    const ProjectFolder folder;
    writeRoad(folder, 500);
    opening();
    return 0;
}
