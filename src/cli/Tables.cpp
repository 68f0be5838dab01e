#include "cli/Commands.h"
#include "cli/Output.h"
#include "engine/Numbers.h"
#include "project/CalcTables.h"
#include "project/TextFile.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace {

struct TableColumn {
    const char* name;
    const Shared::Column* numbers = nullptr;
    const std::vector<std::string>* texts = nullptr;

    std::size_t size() const { return numbers ? numbers->size() : texts->size(); }
};

/// A table of CalcTables: rows `first` to its upper index.
struct TableGroup {
    const char* title;
    const char* countName;
    std::int16_t count;
    std::vector<TableColumn> columns;
    std::size_t first = 0;
};

std::vector<TableGroup> groups()
{
    return {
        {"平曲线单元（末行为闭合行）",
         "gElemCount",
         gElemCount,
         {{"gElemLc", &gElemLc},
          {"gElemX", &gElemX},
          {"gElemY", &gElemY},
          {"gElemFwj", &gElemFwj},
          {"gElemR1", &gElemR1},
          {"gElemR2", &gElemR2}}},
        {"导线点", "gDxdCount", gDxdCount, {{"gDxdName", nullptr, &gDxdName}, {"gDxdX", &gDxdX}, {"gDxdY", &gDxdY}}},
        {"断链", "gDlCount", gDlCount, {{"gDlBack", &gDlBack}, {"gDlAhead", &gDlAhead}, {"gDlCum", &gDlCum}}},
        {"竖曲线", "gSqxCount", gSqxCount, {{"gSqxLc", &gSqxLc}, {"gSqxGc", &gSqxGc}, {"gSqxR", &gSqxR}}},
        {"超高（末行为闭合行）",
         "gCgCount",
         gCgCount,
         {{"gCgLc", &gCgLc}, {"gCgA", &gCgA}, {"gCgB", &gCgB}, {"gCgC", &gCgC}}},
        {"超高宽度（末行为闭合行）",
         "gCgkdCount",
         gCgkdCount,
         {{"gCgkdG", &gCgkdG},
          {"gCgkdC", &gCgkdC},
          {"gCgkdA", &gCgkdA},
          {"gCgkdB", &gCgkdB},
          {"gCgkdD", &gCgkdD},
          {"gCgkdE", &gCgkdE},
          {"gCgkdF", &gCgkdF}}},
        {"主点",
         "gZdCount",
         gZdCount,
         {{"gZdJd", nullptr, &gZdJd}, {"gZdT1", &gZdT1},     {"gZdT2", &gZdT2},   {"gZdLs1", &gZdLs1},
          {"gZdLs2", &gZdLs2},        {"gZdZhLc", &gZdZhLc}, {"gZdZhX", &gZdZhX}, {"gZdZhY", &gZdZhY},
          {"gZdZhFwj", &gZdZhFwj},    {"gZdHyLc", &gZdHyLc}, {"gZdHyX", &gZdHyX}, {"gZdHyY", &gZdHyY},
          {"gZdHyFwj", &gZdHyFwj},    {"gZdYhLc", &gZdYhLc}, {"gZdYhX", &gZdYhX}, {"gZdYhY", &gZdYhY},
          {"gZdYhFwj", &gZdYhFwj},    {"gZdHzLc", &gZdHzLc}, {"gZdHzX", &gZdHzX}, {"gZdHzY", &gZdHzY},
          {"gZdHzFwj", &gZdHzFwj}},
         1},
        {"交点推算",
         "n",
         static_cast<std::int16_t>(gJdLc.empty() ? 0 : gJdLc.size() - 1),
         {{"gJdLc", &gJdLc},
          {"gJdX", &gJdX},
          {"gJdY", &gJdY},
          {"gJdLs1", &gJdLs1},
          {"gJdLs2", &gJdLs2},
          {"gJdR", &gJdR},
          {"gJdT1", &gJdT1},
          {"gJdT2", &gJdT2},
          {"gJdL", &gJdL}}},
    };
}

std::size_t rowsOf(const TableGroup& group)
{
    std::size_t filled = 0;
    for (const auto& column : group.columns) filled = std::max(filled, column.size());
    return std::min(filled, static_cast<std::size_t>(std::max<int>(group.count, -1) + 1));
}

std::string cell(const TableColumn& column, std::size_t row)
{
    if (row >= column.size()) return {};
    return column.texts ? (*column.texts)[row] : NumText((*column.numbers)[row]);
}

std::string forPeople()
{
    std::string text = "断链标志 gHasDl = " + NumText(gHasDl) + "，超高类型 gCgType = " + gCgType + "\n";
    for (const auto& group : groups()) {
        text += "\n" + std::string(group.title) + "，" + group.countName + " = " + NumText(group.count) + "\n";
        const std::size_t rows = rowsOf(group);
        if (rows <= group.first) continue;
        GridText grid;
        grid.setCols(static_cast<int>(group.columns.size()) + 1);
        grid.setRows(static_cast<int>(rows - group.first) + 1);
        grid.setText(0, 0, "行");
        for (std::size_t c = 0; c < group.columns.size(); ++c) {
            const int col = static_cast<int>(c) + 1;
            grid.setText(0, col, group.columns[c].name);
            for (std::size_t row = group.first; row < rows; ++row)
                grid.setText(static_cast<int>(row - group.first) + 1, col, cell(group.columns[c], row));
        }
        for (std::size_t row = group.first; row < rows; ++row)
            grid.setText(static_cast<int>(row - group.first) + 1, 0, std::to_string(row));
        text += AlignedTable(grid);
    }
    return text;
}

/// Doubles are written so that they read back the same.
std::string asJson()
{
    nlohmann::ordered_json json;
    json["gHasDl"] = gHasDl;
    json["gCgType"] = gCgType;
    for (const auto& group : groups()) {
        json[group.countName] = group.count;
        const auto rows = static_cast<std::ptrdiff_t>(rowsOf(group));
        const auto firstRows = [rows](const auto& all) {
            return std::vector(all.begin(), all.begin() + std::min(rows, std::ssize(all)));
        };
        for (const auto& column : group.columns) {
            if (column.texts)
                json[column.name] = firstRows(*column.texts);
            else
                json[column.name] = firstRows(*column.numbers);
        }
    }
    return JsonText(json);
}

int run(const Call& call)
{
    const auto text = [&] { return call.format == Format::Json ? asJson() : forPeople(); };
    if (call.args.has("-o")) return WriteOutput(call, call.args.value("-o"), text) ? kDone : kRefused;
    call.out << text();
    return kDone;
}

}  // namespace

const Command kTablesCommand{
    .name = "tables",
    .summary = "列出打开项目后的全部计算表",
    .help = R"(打开项目时由参数文件生成的各个表，里程为连续里程，方位角为 度.分秒。JSON 里的数可以原样读回。

例子：
  velumark-calc 示例一 tables
  velumark-calc 示例一 tables --format json -o 表.json
)",
    .ways = {},
    .options = {},
    .forms = "table json",
    .run = run,
};
