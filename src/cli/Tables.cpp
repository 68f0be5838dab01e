#include "base/Numbers.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "tables/TableList.h"

#include <algorithm>
#include <ostream>

namespace {

std::string cell(const TableColumn& column, std::size_t row)
{
    if (row >= column.size(shared.tables)) return {};
    return column.texts ? (shared.tables.*column.texts)[row] : NumText((shared.tables.*column.numbers)[row]);
}

std::string forPeople()
{
    std::string text = "断链标志 gHasDl = " + NumText(gHasDl) + "，超高类型 gCgType = " + gCgType + "\n";
    for (const auto& group : kTableList) {
        text += "\n" + std::string(group.title) + "，" + std::string(group.countName) + " = " +
                NumText(group.countOf(shared.tables)) + "\n";
        const std::size_t rows = group.rows(shared.tables);
        if (rows <= group.first) continue;
        GridText grid;
        grid.setCols(static_cast<int>(group.columns.size()) + 1);
        grid.setRows(static_cast<int>(rows - group.first) + 1);
        grid.setText(0, 0, "行");
        for (std::size_t c = 0; c < group.columns.size(); ++c) {
            const int col = static_cast<int>(c) + 1;
            grid.setText(0, col, std::string(group.columns[c].name));
            for (std::size_t row = group.first; row < rows; ++row)
                grid.setText(static_cast<int>(row - group.first) + 1, col, cell(group.columns[c], row));
        }
        for (std::size_t row = group.first; row < rows; ++row)
            grid.setText(static_cast<int>(row - group.first) + 1, 0, std::to_string(row));
        text += AlignedTable(grid);
    }
    return text;
}

std::string asJson()
{
    std::vector<std::pair<std::string, JsonValue>> members{{"gHasDl", gHasDl}, {"gCgType", gCgType}};
    for (const auto& group : kTableList) {
        members.emplace_back(group.countName, group.countOf(shared.tables));
        const auto rows = static_cast<std::ptrdiff_t>(group.rows(shared.tables));
        for (const auto& column : group.columns)
            column.with(shared.tables, [&](const auto& all) {
                members.emplace_back(column.name,
                                     std::vector(all.begin(), all.begin() + std::min(rows, std::ssize(all))));
            });
    }
    return JsonObject(members);
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
