// Saving rows of ten distinct texts each, all with one look, to a file.

#include "office/Xls.h"

#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kCols = 10;

std::string path(const char* name) { return (std::filesystem::temp_directory_path() / name).string(); }

void writeText(char (&text)[40], int row, int col)
{
    std::snprintf(text, sizeof text, "K%d+%03d.%d 左%d", row / 1000, row % 1000, col, row * kCols + col);
}

/// The most memory held since begin(), in MB of 1,000,000 bytes.
class PeakMemory {
public:
    void begin() { std::ofstream("/proc/self/clear_refs") << 5; }
    double megabytes() const
    {
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;)
            if (double kilobytes = 0; word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024 / 1e6;
        return 0;
    }
};

template <class Save>
void measure(benchmark::State& state, const Save& save)
{
    PeakMemory memory;
    memory.begin();
    for (auto _ : state) save(static_cast<int>(state.range(0)));
    state.counters["peak_MB"] = memory.megabytes();
    state.SetComplexityN(state.range(0));
}

void velumark(benchmark::State& state)
{
    measure(state, [](int rows) {
        Worksheet sheet;
        const CellRange all(1, 1, rows, kCols);
        sheet.center(all);
        sheet.setNumberFormat(all, "@");
        for (int index = xlEdgeLeft; index <= xlInsideHorizontal; ++index) sheet.borders(all, index, xlContinuous);
        char text[40];
        for (int row = 1; row <= rows; ++row)
            for (int col = 1; col <= kCols; ++col) {
                writeText(text, row, col);
                sheet.setValue({row, col}, text);
            }
        std::ofstream out(path("velumark_bench.xls"), std::ios::binary);
        SaveXls(sheet, out);
    });
}

void libxlsxwriter(benchmark::State& state)
{
    measure(state, [](int rows) {
        lxw_workbook* book = workbook_new(path("velumark_bench.xlsx").c_str());
        lxw_worksheet* sheet = workbook_add_worksheet(book, "Sheet1");
        lxw_format* format = workbook_add_format(book);
        format_set_align(format, LXW_ALIGN_CENTER);
        format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
        format_set_num_format(format, "@");
        format_set_border(format, LXW_BORDER_THIN);
        char text[40];
        for (int row = 1; row <= rows; ++row)
            for (int col = 1; col <= kCols; ++col) {
                writeText(text, row, col);
                worksheet_write_string(sheet, static_cast<lxw_row_t>(row - 1), static_cast<lxw_col_t>(col - 1), text,
                                       format);
            }
        workbook_close(book);
    });
}

BENCHMARK(velumark)->RangeMultiplier(2)->Range(2000, 32000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(libxlsxwriter)->Arg(32000)->Unit(benchmark::kMillisecond);

}  // namespace
