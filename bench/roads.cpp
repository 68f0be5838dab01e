// The long ways of the program, in milliseconds: a click until its rows are painted, a folder into tables, rows into a
// workbook. No window of this process reaches a screen.

#include "LongRoad.h"
#include "Rows.h"
#include "base/Numbers.h"
#include "engine/FastRoute.h"
#include "office/Xls.h"
#include "project/LoadTables.h"
#include "screens/Export.h"
#include "screens/windows/frmPlfy.h"
#include "support/RandomRoute.h"
#include "ui/MSFlexGrid.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>

#include <cstdlib>
#include <ctime>
#include <random>
#include <sstream>

namespace {

constexpr int kRuns = 7;

/// Milliseconds that this process has had a processor.
double processorTime() { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; }

template <class Work>
void rowOf(const char* what, const char* wanted, const Work& work)
{
    std::vector<double> times, processor;
    for (int run = 0; run < kRuns; ++run) {
        const double before = processorTime();
        times.push_back(milliseconds(work));
        processor.push_back(processorTime() - before);
    }
    char remark[40];
    std::snprintf(remark, sizeof remark, "%.1f ms on a processor", medianOf(processor));
    timeRow(what, medianOf(times), wanted, remark);
}

/// Counts what a widget paints.
class Paints : public QObject {
public:
    explicit Paints(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

void clicks()
{
    std::mt19937_64 random(100);
    setRoute(randomVertices(random, 100));
    prepareRoute(shared.tables);
    const double length = gElemLc.back() - gElemLc.front();
    frmPlfy form;
    form.show();
    QCoreApplication::processEvents();
    const auto fill = [&](const char* box, double number) {
        form.findChild<QLineEdit*>(QString::fromUtf8(box))->setText(QString::fromStdString(NumText(number)));
    };
    fill("txtPlzbQdlc", gElemLc.front());
    fill("txtPlzbZdlc", gElemLc.back());
    fill("txtPlzbBc", length / 32766.5);
    auto& grid = *form.findChild<MSFlexGrid*>();
    auto* calculate = form.findChild<XPButton*>(QStringLiteral("butPlzbCalc"));
    auto& paints = *new Paints(grid.viewport());
    rowOf("frmPlfy, 32,767 rows: click until the grid is painted", "", [&] {
        paints.count = 0;
        emit calculate->Click();
        while (paints.count == 0) QCoreApplication::processEvents();
    });
    if (grid.Rows() != 32768) std::printf("but %d rows\n", grid.Rows() - 1), std::exit(1);

    grid.setRows(32766);  // the most that a save takes
    rowOf("32,765 of these rows: grid to .xls in memory", "", [&] {
        std::ostringstream file;
        SaveXls(ResultSheet(kPlfyExport, {grid.text(), 32765, ""}), file);
    });
}

void loads(const char* samples)
{
    const auto load = [](const char* what, const std::string& folder) {
        rowOf(what, "", [&] {
            Tables tables;
            loadTables(folder, tables);
            if (tables.elemCount < 1) std::printf("but no road\n"), std::exit(1);
        });
    };
    load("示例一: folder to tables", std::string(samples) + "/示例一");
    load("示例二: folder to tables", std::string(samples) + "/示例二");
    const ProjectFolder folder;
    writeRoad(folder, 500);
    load("500 intersection points: folder to tables", ProjectPath(gProject));
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    applyTheme(app);
    QtDialogs qtDialogs;
    setDialogs(&qtDialogs);
    loads(argc > 1 ? argv[1] : "samples");
    clicks();
}
