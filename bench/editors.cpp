// An editor on a file of 2,000 rows: opening until it is painted, one key typed in a cell until it is painted.
// Run it with QT_QPA_PLATFORM=offscreen.

#include "editors/windows/frmCg.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmWfz.h"
#include "support/ProjectFolder.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int kRows = 2000;

std::string rows(int fields)
{
    std::string line = "1000.123";
    for (int i = 1; i < fields; ++i) line += "," + std::to_string(i % 10) + ".5";
    std::string all;
    for (int row = 0; row < kRows; ++row) all += line + "\r\n";
    return all;
}

template <class F>
void open(benchmark::State& state)
{
    const ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n5\r\n10\r\n0\r\n"},
                               {"超高参数.txt", rows(6)},
                               {"导线点参数.txt", rows(4)},
                               {"左幅挖方参数.txt", rows(60)}};
    for (auto _ : state) {
        F form;
        form.show();
        QCoreApplication::processEvents();
        form.grab();
        if (form.template findChild<MSFlexGrid*>()->Rows() != kRows + 1) state.SkipWithError("rows are missing");
    }
}
BENCHMARK(open<frmCg>)->Unit(benchmark::kMillisecond);
BENCHMARK(open<frmDxd>)->Unit(benchmark::kMillisecond);
BENCHMARK(open<frmWfz>)->Unit(benchmark::kMillisecond);

void typeOneKey(benchmark::State& state)
{
    const ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n5\r\n10\r\n0\r\n"}, {"左幅挖方参数.txt", rows(60)}};
    frmWfz form;
    form.show();
    const auto press = [&](int key, const QString& text) {
        QWidget* focus = form.focusWidget() ? form.focusWidget() : &form;
        QKeyEvent event(QEvent::KeyPress, key, {}, text);
        QApplication::sendEvent(focus, &event);
    };
    press(Qt::Key_Return, QStringLiteral("\r"));
    auto* box = form.findChild<QLineEdit*>(QStringLiteral("txtWfzInput"));
    for (auto _ : state) {
        press(Qt::Key_7, QStringLiteral("7"));
        QCoreApplication::processEvents();
        if (box->text().size() > 40) box->clear();
    }
}
BENCHMARK(typeOneKey)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    applyTheme(app);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
