#include "exchange/Compare.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "cli/Commands.h"
#include "exchange/ExchangeError.h"
#include "exchange/ProjectExport.h"
#include "exchange/Xlsx.h"
#include "project/Workspace.h"

#include <algorithm>
#include <ostream>

namespace {

std::optional<double> tolerance(const Arguments& args, std::string_view option)
{
    if (!args.has(option)) return std::nullopt;
    double value = 0;
    if (!attempt([&] { value = ParseNumber(args.value(option)); }) || value < 0)
        throw WrongUsage(std::string(option) + " " + args.value(option) + "：应是不小于 0 的数");
    return value;
}

int compare(const Call& call)
{
    const auto& args = call.args;
    if (args.words().size() != 1) throw WrongUsage("compare 后面应是一个实测点的文件");
    const auto read = [](const std::string& path) { return ReadMeasured(path, ReadBytes(path)); };
    const Tables tables = TablesOfProject(gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder);
    const auto planned = args.has("--setout") ? read(args.value("--setout")) : std::vector<MeasuredPoint>();
    const auto points = Compare(tables, read(args.words().front()), planned,
                                {tolerance(args, "--tolerance"), tolerance(args, "--tolerance-h")});
    const GridText grid = ComparedRows(points);
    const OutputTable table{grid};
    const std::string path = args.value("-o");
    bool written = true;
    if (path.empty()) {
        call.out << Rendered(table, call.format);
    } else if (call.format == Format::Workbook) {
        std::vector<bool> marked{false};
        for (const auto& point : points) marked.push_back(point.beyond);
        written = WriteOutput(call, path, [&] { return XlsxBytes({grid, gProject, marked}); });
    } else {
        written = WriteOutput(call, path, [&] { return FileBytes(path, table, call.format); });
    }
    const auto lost = std::count_if(points.begin(), points.end(), [](const auto& p) { return !p.found; });
    const auto beyond = std::count_if(points.begin(), points.end(), [](const auto& p) { return p.beyond; });
    if (!args.has("--quiet")) {
        call.err << points.size() << " 个点，超限 " << beyond << " 个\n";
        if (lost) call.err << lost << " 个点没有找到对应的桩号\n";
    }
    return written && !lost ? kDone : kRefused;
}

int run(const Call& call)
{
    try {
        return compare(call);
    } catch (const ExchangeError& error) {
        call.err << error.what() << '\n';
    } catch (const FileError& error) {
        call.err << error.what() << '\n';
    }
    return kRefused;
}

constexpr Option kOptions[] = {
    {"--setout", "文件", "放样用的点（.dat、.csv、.txt、.gsi），按点号比较"},
    {"--tolerance", "米", "点位偏差的限差"},
    {"--tolerance-h", "米", "高差的限差"},
};

}  // namespace

const Command kCompareCommand{
    .name = "compare",
    .summary = "实测点与设计比较：桩号、偏距、高差、点位偏差",
    .help = R"(读实测点（.dat、.csv、.txt 或 .gsi：点号、X、Y、高程），给出每个点的桩号、偏距、该处的设计高程和高差；
给了放样的点时，还有同名点的偏差。超过限差的行在最后一列写“超限”，在 .xlsx 里用颜色标出。

例子：
  velumark-calc 示例一 compare 实测.dat --setout 放样.dat --tolerance 0.05 --tolerance-h 0.02 -o 检查.xlsx
)",
    .ways = {},
    .options = kOptions,
    .takesWords = true,
    .loads = false,
    .forms = "table csv json xlsx",
    .run = run,
};
