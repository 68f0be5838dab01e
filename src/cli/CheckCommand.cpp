#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "check/Accuracy.h"
#include "check/Check.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "engine/Chainage.h"
#include "project/LoadTables.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"

#include <ostream>

namespace {

std::string projectFolder() { return gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder; }

GridText gridOf(const std::vector<std::vector<std::string>>& rows)
{
    GridText grid;
    grid.setRows(static_cast<int>(rows.size()));
    grid.setCols(static_cast<int>(rows[0].size()));
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            grid.setText(static_cast<int>(r), static_cast<int>(c), rows[r][c]);
    return grid;
}

/// To standard output or to the file of -o. @param plain  what a person reads; the grid is for the other forms
/// @return whether it was written
bool deliver(const Call& call, const std::string& plain, const GridText& grid)
{
    const std::string path = call.args.value("-o");
    const bool table = call.format == Format::Table;
    if (!path.empty())
        return WriteOutput(call, path, [&] { return table ? plain : FileBytes(path, {grid}, call.format); });
    call.out << (table ? plain : Rendered({grid}, call.format));
    return true;
}

int listFindings(const Call& call)
{
    const auto findings = CheckProject(projectFolder());
    std::vector<std::vector<std::string>> rows{{"文件", "行", "项", "说明"}};
    std::string plain;
    for (const auto& f : findings) {
        rows.push_back({f.file, f.line ? std::to_string(f.line) : "", f.field ? std::to_string(f.field) : "", f.text});
        plain += FindingText(f) + "\n";
    }
    const bool written = deliver(call, findings.empty() ? "没有发现问题\n" : plain, gridOf(rows));
    return written && findings.empty() ? kDone : kRefused;
}

std::string tenths(double mm) { return FormatFixed3(Round(checked(mm), 3)); }

int deliverAccuracy(const Call& call, const Accuracy& accuracy, bool cut)
{
    std::vector<std::vector<std::string>> rows;
    if (accuracy.byPoints)
        rows.push_back({"交点", "ZH偏差(mm)", "HY偏差(mm)", "YH偏差(mm)", "HZ偏差(mm)", "HZ里程差(mm)", "原因"});
    else
        rows.push_back({"积木", "终点偏差(mm)", "原因"});
    for (const auto& row : accuracy.rows) {
        std::vector<std::string> cells{row.name};
        for (const double mm : row.mm) cells.push_back(tenths(mm));
        if (accuracy.byPoints) cells.push_back(tenths(row.stakeMm));
        cells.push_back(row.why);
        rows.push_back(cells);
    }
    const GridText grid = gridOf(rows);
    std::string plain = AlignedTable(grid) + "\n终点里程差：" + tenths(accuracy.endStakeMm) + " mm\n";
    for (const auto& warning : accuracy.warnings) plain += "注意：" + warning + "\n";
    return deliver(call, plain, grid) && !cut ? kDone : kRefused;
}

int listAccuracy(const Call& call)
{
    Tables tables;
    const Loaded loaded = loadTables(projectFolder(), tables);
    if (loaded.cutAtGap) call.err << kStakeInGap << '\n';
    if (loaded.neverEnds) {
        call.err << ParameterFile(loaded.neverEnds->file) << "：没有一行含有逗号，打开项目时程序会停住不动\n";
        return kRefused;
    }
    for (const FileError& error : loaded.unreadable) call.err << error.what() << '\n';
    if (!loaded.unreadable.empty()) return kRefused;
    std::vector<std::string> lines;
    if (const auto settings = ParameterFile(files::settings); FileExists(settings))
        lines = SplitLines(Utf8FromCp936(WithoutBlankLines(ReadBytes(settings))));
    try {
        return deliverAccuracy(call, CheckAccuracy(tables, !lines.empty() && lines[0] == model::byIntersectionPoints),
                               loaded.cutAtGap);
    } catch (const FileError&) {
        throw;
    } catch (const RunTimeError& error) {
        call.err << ParameterFile(files::horizontal) << "：平曲线的数据有误，不能和精确几何比较（" << error.what()
                 << "）\n";
        return kRefused;
    }
}

int run(const Call& call) { return call.args.has("--accuracy") ? listAccuracy(call) : listFindings(call); }

constexpr Option kOptions[] = {
    {"--accuracy", "", "不检查文件，而是把程序的平曲线与精确几何逐个曲线比较"},
};

}  // namespace

const Command kCheckCommand{
    .name = "check",
    .summary = "检查参数文件，或与精确几何比较",
    .help = R"(逐行检查项目的参数文件，说出打开项目时不会提示的问题。每个问题一行：
  文件:行:项: 说明（行和项从1数起，针对整个文件时不写）
不改动任何文件。没有问题时结束代码为0，有问题时为1。

--accuracy 列出每个曲线的ZH、HY、YH、HZ点与精确几何（真圆周率、精确缓和曲线）相差的毫米数，
超过5毫米时说明原因；最后是终点里程差，和坐标反算不可靠的末段。

例子：
  velumark-calc 示例一 check
  velumark-calc --folder /data/某某高速 check --accuracy
)",
    .ways = {},
    .options = kOptions,
    .loads = false,
    .forms = "table csv json",
    .run = run,
};
