#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Utf8.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "cli/Results.h"
#include "exchange/Xlsx.h"
#include "office/Dxf.h"
#include "office/Xls.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace {

/// The lines with a point, taken apart at commas.
std::vector<std::vector<std::string>> pointsOf(std::string bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    if (!IsUtf8(bytes)) bytes = Utf8FromCp936(bytes);
    std::vector<std::vector<std::string>> points;
    for (const auto& line : AnyLines(bytes)) {
        if (line.find_first_not_of(" ,\t") == std::string::npos || line[0] == '#' || line.starts_with("点名")) continue;
        points.push_back(SplitFields(line));
        points.back().resize(5);
    }
    return points;
}

/// Where the columns of the file stand in the sheet: a distance belongs to the row below its point.
constexpr struct {
    int column, rowsBelow;
} kInputs[] = {{1, 0}, {2, 0}, {5, 1}, {12, 0}, {13, 0}};

void typeInto(Worksheet& sheet, const std::vector<std::vector<std::string>>& points)
{
    for (std::size_t k = 0; k < points.size(); ++k)
        for (std::size_t i = 0; i < std::size(kInputs); ++i)
            if (!points[k][i].empty())
                sheet.setValue({static_cast<int>(2 * k) + 4 + kInputs[i].rowsBelow, kInputs[i].column}, points[k][i]);
}

std::optional<double> numberOf(std::string_view text)
{
    std::optional<double> value;
    attempt([&] { value = ParseNumber(text); });
    return value;
}

/// A text of the sheet, into which people write too, with the number that it shows.
Cell cellOf(const std::string& text)
{
    const auto number = numberOf(text);
    return number ? Cell(text, {*number, ShownNumber::As::Exact}) : Cell(text);
}

/// One row a point; what lies on the way to the next point stands in its row.
GridText tableOf(const Worksheet& sheet, const FhdxResult& found, int n)
{
    const char* const headers[] = {"点号",   "观测角", "改正数(″)", "方位角",   "平距(m)", "△X(m)", "△Y(m)",
                                   "vX(mm)", "vY(mm)", "改正后△X",  "改正后△Y", "X(m)",    "Y(m)"};
    GridText table;
    table.setCols(static_cast<int>(std::size(headers)));
    table.setRows(n + 1);
    for (int col = 0; col < table.cols(); ++col) {
        table.setText(0, col, headers[col]);
        const bool between = col >= 3 && col <= 10;
        for (int k = 1; k <= n; ++k) {
            const int row = 2 * k + 2 + between;
            Cell cell = cellOf(sheet.shown({row, col + 1}));
            if (const auto angle = found.angles.find(row); (col == 1 || col == 3) && angle != found.angles.end())
                cell.value = {angle->second, ShownNumber::As::Degrees};
            table.setCell(k, col, std::move(cell));
        }
    }
    return table;
}

/// The closures in words, line by line.
std::string closuresOf(const Worksheet& sheet, int n)
{
    std::string text;
    for (int row = 2 * n + 4; row <= 2 * n + 7; ++row) {
        std::string line;
        for (int col = 1; col <= 13; ++col)
            if (const auto cell = sheet.text({row, col}); !cell.empty()) line += (line.empty() ? "" : "   ") + cell;
        text += line + "\n";
    }
    return text;
}

constexpr TypedColumn kTyped[] = {
    {1, "angle_deg"},    {2, "angle_correction"},
    {3, "azimuth_deg"},  {4, "distance"},
    {5, "dx"},           {6, "dy"},
    {7, "vx_mm"},        {8, "vy_mm"},
    {9, "dx_corrected"}, {10, "dy_corrected"},
    {11, "x"},           {12, "y"},
};

/// The points, then the closures: fβ in seconds, fx, fy and f in metres, K as the ratio that it is, with what is said
/// of them in words.
std::string asJson(const OutputTable& table, const Worksheet& sheet, const FhdxResult& found, int n)
{
    const auto words = [&](char column) { return sheet.text({2 * n + 7, column - 'a' + 1}); };
    return JsonObject({{"points", table},
                       {"fβ", found.angleClosure},
                       {"fx", found.fx},
                       {"fy", found.fy},
                       {"f", found.f},
                       {"K", found.lengthPerClosure != 0 ? JsonValue(1 / found.lengthPerClosure) : JsonValue()},
                       {"角度闭合差", words('b')},
                       {"相对闭合差", words('g')},
                       {"精度", words('k')}});
}

int refused(const Call& call, const std::string& text)
{
    call.err << text << '\n';
    return kRefused;
}

int run(const Call& call)
{
    const Arguments& args = call.args;
    if (args.has("--left") && args.has("--right")) throw WrongUsage("--left 和 --right 只能给一个");
    const bool left = args.has("--left");
    const std::string report = args.value("-o"), plan = args.value("--dxf");
    std::string bytes;
    try {
        bytes = InputBytes(call);
    } catch (const RunTimeError& error) {
        return refused(call, error.what());
    }
    const auto points = pointsOf(std::move(bytes));

    Worksheet sheet;
    Outcome made;
    if (!attempt(
            [&] { made = MakeFhdxSheet(std::to_string(points.size()), left, [&]() -> Worksheet& { return sheet; }); }))
        return refused(call, FhdxCalcFault().text);
    if (!made) return refused(call, made.refusal->msg.text);
    const int n = gFhdxN;
    typeInto(sheet, points);
    FhdxResult found;
    if (!attempt([&] { found = AdjustFhdx(sheet, left); })) return refused(call, FhdxCalcFault().text);

    const GridText grid = tableOf(sheet, found, n);
    const OutputTable table{grid, kTyped};
    const std::string closures = closuresOf(sheet, n);
    const auto result = [&] {
        switch (call.format) {
        case Format::Sheet:
            return XlsBytes(sheet);
        case Format::Workbook:
            return XlsxBytes({grid, ""});
        case Format::Json:
            return asJson(table, sheet, found, n);
        case Format::Csv:
            return FileBytes(report, table, call.format);
        case Format::Table:
            break;
        }
        return Rendered(table, call.format) + "\n" + closures;
    };
    if (call.format == Format::Csv && !args.has("--quiet"))
        call.err << closures;  // a table of rows has no place for them
    bool written = true;
    if (report.empty())
        call.out << result();
    else
        written = WriteOutput(call, report, result);
    if (!plan.empty()) written = WriteOutput(call, plan, [&] { return DxfBytes(DrawFhdx(sheet)); }) && written;
    return written ? kDone : kRefused;
}

constexpr Way kWays[] = {"--file [--left] [--right] [--dxf]"};
constexpr Option kOptions[] = {
    {"--file", "文件", "导线数据；- 为标准输入"},
    {"--left", "", "观测角是左角"},
    {"--right", "", "观测角是右角；都不给时为右角"},
    {"--dxf", "文件", "把导线图写到这个 .dxf 文件"},
};

}  // namespace

const Command kTraverseCommand{
    .name = "traverse",
    .summary = "附合导线一般平差",
    .help = R"(文件里一行一个点，从 A、B 经各未知点到 C、D，至少五个点，用逗号分开：
  点名,观测角,平距,X,Y
观测角写作 度.分分秒秒，如 99.0100，从 B 到 C 每点一个；平距是到下一点的，从 B 到最后一个未知点；
X、Y 只有 A、B、C、D 四点有。没有的写空。空行、# 开头的行和 点名 开头的行不算。编码为 UTF-8 或 GBK。

结果是一个点一行的表（方位角、平距、坐标增量是到下一点的）和闭合差；-o 写到 .xls 时是和界面一样的计算表。
给出 -o 时结果只在文件里，屏幕上不再显示。CSV 里没有闭合差，它们写到标准错误。JSON 里点在 points 中，
fβ 以秒计，fx、fy、f 以米计，K 是比值。

例子：
  velumark-calc traverse --file 附合导线.csv --left
  velumark-calc traverse --file 附合导线.csv --left -o 计算表.xls --dxf 导线图.dxf
)",
    .ways = kWays,
    .options = kOptions,
    .needsProject = false,
    .run = run,
};
