#include "cli/Accuracy.h"
#include "cli/Check.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "engine/Numbers.h"
#include "project/CalcTables.h"
#include "project/LoadProject.h"
#include "project/TextFile.h"
#include "project/Workspace.h"

#include <filesystem>
#include <ostream>
#include <random>

namespace {

namespace fs = std::filesystem;

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

/// To standard output or to the file of -o. @param plain  what a person reads; the grid is for --format and .csv
void deliver(const Call& call, const std::string& plain, const GridText& grid)
{
    const Format format = FormatOf(call.args);
    const std::string path = call.args.value("-o");
    const std::vector<std::string> warnings(static_cast<std::size_t>(grid.rows()));
    const bool table = format == Format::Table && !EndsWithNoCase(path, ".csv");
    if (path.empty())
        call.out << (table ? plain : Rendered(grid, warnings, format));
    else
        WriteBytes(path, table ? plain : FileBytes(path, grid, warnings, format));
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
    deliver(call, findings.empty() ? "没有发现问题\n" : plain, gridOf(rows));
    return findings.empty() ? kDone : kRefused;
}

/// A copy of the project to load: loading cleans and upgrades files.
class Copy {
public:
    explicit Copy(const std::string& folder)
        : m_folder(fs::temp_directory_path() / ("velumark-check-" + std::to_string(std::random_device{}())))
    {
        fs::create_directory(m_folder);
        for (const auto& entry : fs::directory_iterator(fs::u8path(folder)))
            if (entry.is_regular_file()) fs::copy_file(entry.path(), m_folder / entry.path().filename());
        gProjectFolder = m_folder.string();
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

private:
    fs::path m_folder;
};

std::string tenths(double mm) { return FormatFixed3(Round(mm, 3)); }

int listAccuracy(const Call& call)
{
    const Copy copy(projectFolder());
    SetHang(Hang::Throw);
    try {
        LoadProject();
    } catch (const LoadWouldHang& hang) {
        call.err << hang.file << "：没有一行含有逗号，打开项目时程序会停住不动\n";
        return kRefused;
    }
    const auto lines = SplitLines(Utf8FromCp936(ReadBytesCreating(ParameterFile("其他参数.txt"))));
    const Accuracy accuracy = CheckAccuracy(!lines.empty() && lines[0] == "交点法");
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
    deliver(call, plain, grid);
    return kDone;
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
    .run = run,
};
