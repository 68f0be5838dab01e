#include "base/FileError.h"
#include "cli/Commands.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"
#include "exchange/TakeOver.h"

#include <ostream>

namespace {

int list(const Call& call, const landxml::File& file)
{
    GridText grid;
    const auto roads = file.alignments();
    const auto metres = [](std::optional<double> value) { return value ? FixedText(*value, 3) : std::string(); };
    constexpr std::string_view kHeaders[] = {"线路", "起点桩号", "长度", "单元", "纵断面"};
    grid.setRows(static_cast<int>(roads.size()) + 1);
    grid.setCols(5);
    for (int c = 0; c < 5; ++c) grid.setText(0, c, std::string(kHeaders[c]));
    for (int r = 1; r < grid.rows(); ++r) {
        const auto& road = roads[static_cast<std::size_t>(r - 1)];
        int c = 0;
        for (const auto& text : {road.name, metres(road.staStart), metres(road.length), std::to_string(road.elements),
                                 std::string(road.profile ? "有" : "无")})
            grid.setText(r, c++, text);
    }
    const OutputTable table{grid};
    const std::string path = call.args.value("-o");
    if (path.empty()) {
        call.out << Rendered(table, call.format);
        return kDone;
    }
    return WriteOutput(call, path, [&] { return FileBytes(path, table, call.format); }) ? kDone : kRefused;
}

int take(const Call& call, const landxml::File& file)
{
    const std::string name = call.args.value("--name");
    const ImportWishes wishes{.shift = ShiftOfText(call.args.value("--shift")),
                              .breaks = BreaksOfText(call.args.value("--break"))};
    const ImportedRoad road = ImportRoad(file, FindAlignment(file, call.args.value("--alignment")), wishes);
    const Outcome made = MakeProject(name, road);
    if (!made) {
        call.err << made.refusal->msg.text << '\n';
        return kRefused;
    }
    if (!call.args.has("--quiet"))
        for (const auto& line : road.report) call.err << line << '\n';
    return kDone;
}

int run(const Call& call)
{
    if (call.args.words().size() != 1) throw WrongUsage("import 后面应是一个 LandXML 文件");
    const std::string path = call.args.words().front();
    try {
        const landxml::File file(path);
        return call.args.has("--list") ? list(call, file) : take(call, file);
    } catch (const ExchangeError& error) {
        call.err << path << "：" << error.what() << '\n';
    } catch (const FileError& error) {
        call.err << error.what() << '\n';
    }
    return kRefused;
}

constexpr Way kWays[] = {"--name [--alignment] [--break] [--shift]", "--list"};
constexpr Option kOptions[] = {
    {"--name", "项目", "新项目的名称；已有的项目从不改动"},
    {"--alignment", "线路", "文件里有几条线路时，要导入的那一条"},
    {"--break", "来向,去向", "文件里没有写的断链；几个断链之间用分号"},
    {"--shift", "米", "给全部桩号加上的整米数：起点桩号小于 0 的线路不能输入"},
    {"--list", "", "列出文件里的线路，不导入"},
};

}  // namespace

const Command kImportCommand{
    .name = "import",
    .summary = "从 LandXML 文件导入一条线路，成为一个新项目",
    .help = R"(读 LandXML 1.2：直线、圆曲线、回旋线、竖曲线、断链和超高。线路由交点组成时导入成交点法，否则成积木法。
不能导入的内容逐项写在报告里；报告写到标准错误，也放在新项目的目录里（导入报告.txt）。

例子：
  velumark-calc import 设计.xml --list
  velumark-calc import 设计.xml --name K线 --alignment K
  velumark-calc import 铁路.xml --name 铁路 --shift 200 --break 850,5350
)",
    .ways = kWays,
    .options = kOptions,
    .takesWords = true,
    .needsProject = false,
    .loads = false,
    .forms = "table csv json",
    .run = run,
};
