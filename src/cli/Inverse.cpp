#include "base/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/Culprit.h"
#include "cli/ProjectNames.h"
#include "cli/Results.h"
#include "engine/FootRun.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "exchange/Compare.h"
#include "exchange/ExchangeError.h"
#include "exchange/ProjectExport.h"
#include "exchange/Xlsx.h"
#include "project/Workspace.h"
#include "screens/Fs.h"
#include "screens/Handler.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace {

/// A road of the workspace by which the point lies.
struct Found {
    std::string project;
    Foot foot;
};

int everyRoad(const Call& call)
{
    std::optional<BatchLine> point;
    if (!attempt([&] { point = ParseBatchLine(call.args.value("--all"), kFsFields); }))
        throw WrongUsage("--all " + call.args.value("--all") + "：应是 X,Y");
    const double x = (*point)[0], y = (*point)[1];
    std::vector<Found> found;
    for (const auto& name : ProjectNames()) {
        try {
            const Tables tables = TablesOfProject(ProjectPath(name));
            if (tables.elemLc.empty()) continue;
            const Foot foot = footOf(tables, x, y);
            if (!foot.error && LeadsBack(tables, foot, x, y)) found.push_back({name, foot});
        } catch (const ExchangeError& error) {
            call.err << name << "：" << error.what() << '\n';
        } catch (const RunTimeError& error) {
            call.err << name << "：" << error.what() << '\n';
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Found& a, const Found& b) { return std::abs(a.foot.offset) < std::abs(b.foot.offset); });
    if (found.empty()) {
        call.err << "这个点不在任何一条线路旁\n";
        return kRefused;
    }
    GridText grid;
    constexpr const char* kHeaders[] = {"序号", "项目", "里程", "偏距"};
    grid.setCols(4);
    grid.setRows(static_cast<int>(found.size()) + 1);
    for (int c = 0; c < 4; ++c) grid.setText(0, c, kHeaders[c]);
    for (int r = 1; r < grid.rows(); ++r) {
        const auto& [project, foot] = found[static_cast<std::size_t>(r - 1)];
        grid.setCell(r, 0, NumberCell(r));
        grid.setText(r, 1, project);
        grid.setCell(r, 2, {foot.lcText, {foot.nominal.value, ShownNumber::As::Shortest, foot.nominal.secondPass}});
        grid.setCell(r, 3, {foot.offsetText, {foot.offset, ShownNumber::As::Exact}});
    }
    static constexpr TypedColumn kTyped[] = {{2, "stake"}, {3, "offset"}};
    const OutputTable table{grid, kTyped};
    const std::string path = call.args.value("-o");
    if (path.empty()) {
        call.out << Rendered(table, call.format == Format::Sheet ? Format::Table : call.format);
        return kDone;
    }
    if (call.format == Format::Sheet) throw WrongUsage("-o " + path + "：--all 不写 .xls 文件");
    const auto bytes = [&] {
        return call.format == Format::Workbook ? XlsxBytes({grid, ""}) : FileBytes(path, table, call.format);
    };
    return WriteOutput(call, path, bytes) ? kDone : kRefused;
}

int run(const Call& call)
{
    if (call.args.has("--all")) return everyRoad(call);
    Results results(call, kInverseResult);
    FootRun feet;
    const auto solve = [&](const std::string& line) {
        bool found = true;
        const bool went = results.press(
            [&] {
                return Handle(Trap::Words, [&] {
                    const BatchLine point = ParseBatchLine(line, kFsFields);
                    found = AddFsPoint(feet, point[0], point[1], results.rows());
                });
            },
            "--at");
        if (went && !found)
            results.refuse((call.args.has("--at") ? NamedValue(call, "--at") : "") + "没有找到对应的桩号");
        return true;
    };
    if (call.args.has("--file"))
        results.pressLines(solve);
    else
        solve(call.args.value("--at"));
    return results.finish();
}

constexpr Way kWays[] = {"--at", "--file [--no-limit]", "--all"};
constexpr Option kOptions[] = {
    {"--at", "X,Y", "点的坐标，米"},
    {"--file", "文件", "每行一个点：X,Y；- 为标准输入"},
    {"--all", "X,Y", "在工作目录的全部线路里找，偏距最小的在前；前面不写项目"},
    kNoLimitOption,
};

}  // namespace

const Command kInverseCommand{
    .name = "inverse",
    .summary = "由坐标求桩号（坐标反算桩号）",
    .help = R"(给出坐标，得到里程和离中线的偏距。断链重复段的第二次读数前面带负号。
没有对应桩号的点没有结果行，写到标准错误，最后以 1 结束。

例子：
  velumark-calc 示例一 inverse --at 2856575.1,512894.7
  velumark-calc 示例一 inverse --file 实测点.txt -o 反算.xls
  velumark-calc inverse --all 2856575.1,512894.7
)",
    .ways = kWays,
    .options = kOptions,
    .alone = "--all",
    .run = run,
};
