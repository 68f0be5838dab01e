#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "cli/Commands.h"
#include "cli/ProjectNames.h"
#include "engine/Chainage.h"
#include "project/LoadTables.h"
#include "project/Workspace.h"
#include "screens/Messages.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>
#include <vector>

namespace {

struct Project {
    Cell name, from, to, remark;
};

constexpr TypedColumn kTyped[] = {{1, "from"}, {2, "to"}};

Cell stakeCell(const Tables& t, double continuous)
{
    const NominalStake nominal = ToNominal(t, RoundHalfUp3(continuous));
    return {(nominal.secondPass ? "-" : "") + FormatStake(nominal.value),
            {nominal.value, ShownNumber::As::Shortest, nominal.secondPass}};
}

/// Where the road begins and ends; the closing row lies this far beyond the end.
void readEnds(const Tables& t, Project& project)
{
    const bool byPoints = !t.jdLc.empty();
    if (t.elemCount < 1) {
        project.remark = "没有平曲线参数";
        return;
    }
    project.from = stakeCell(t, at(t.elemLc, 0));
    project.to = stakeCell(t, at(t.elemLc, t.elemCount) - (byPoints ? 0.01 : 0.0001));
}

Project look(const std::string& name)
{
    Project project{name, {}, {}, {}};
    if (!FolderExists(ProjectPath(name))) {
        project.remark = "项目的参数文件夹不存在";
        return project;
    }
    Tables tables;
    const Loaded loaded = loadTables(ProjectPath(name), tables);
    if (loaded.cutAtGap) project.remark = std::string(kStakeInGap);
    if (loaded.neverEnds) {
        project.remark = loaded.neverEnds->file + "没有一行含有逗号，打开项目时程序会停住不动";
    } else if (!loaded.unreadable.empty()) {
        project.remark = loaded.unreadable.front().what();
    } else {
        try {
            readEnds(tables, project);
        } catch (const RunTimeError& error) {
            project.remark = error.what();
        }
    }
    return project;
}

int run(const Call& call)
{
    if (!FolderExists(WorkspacePath())) {
        call.err << "没有工作目录：" << WorkspacePath() << '\n';
        return kRefused;
    }
    GridText grid;
    const auto names = ProjectNames();
    grid.setCols(4);
    grid.setRows(static_cast<int>(names.size()) + 1);
    const auto put = [&grid](int row, const Project& project) {
        int col = 0;
        for (const auto& cell : {project.name, project.from, project.to, project.remark})
            grid.setCell(row, col++, cell);
    };
    put(0, {"项目", "起点", "终点", "说明"});
    int row = 0;
    for (const auto& name : names) put(++row, look(name));

    const OutputTable table{grid, kTyped};
    const std::string path = call.args.value("-o");
    if (!path.empty())
        return WriteOutput(call, path, [&] { return FileBytes(path, table, call.format); }) ? kDone : kRefused;
    call.out << Rendered(table, call.format);
    return kDone;
}

}  // namespace

const Command kListCommand{
    .name = "list",
    .summary = "列出工作目录里的项目",
    .help = R"(每个项目一行，带平曲线的起点和终点里程；读不出里程的项目在说明一栏写出原因。
先按项目列表的次序，再列出参数文件里有而项目列表里没有的目录。不改动任何文件。

例子：
  velumark-calc list
  velumark-calc --workspace /data/某某高速 list --format json
)",
    .ways = {},
    .options = {},
    .needsProject = false,
    .loads = false,
    .forms = "table csv json",
    .run = run,
};
