#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Results.h"
#include "engine/Chainage.h"
#include "plot/Drawings.h"
#include "plot/ProjectPlot.h"
#include "plot/Svg.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"

#include <ostream>

namespace {

double numberOf(const Call& call, std::string_view option, const std::string& text)
{
    double value = 0;
    if (!attempt([&] { value = ParseNumber(text); }))
        throw WrongUsage(std::string(option) + " " + call.args.value(option) + "：不是数字");
    return value;
}

/// A typed stake as a continuous one. Nothing: refused, and it said so.
std::optional<double> stakeOf(const Call& call, std::string_view option)
{
    const double typed = numberOf(call, option, StakeNumber(call.args.value(option)));
    const auto stake = ResolveStake(typed, kDgdZb);
    if (!stake) call.err << option << " " << call.args.value(option) << "：" << kStakeInGap << '\n';
    return stake;
}

double scaleOf(const Call& call)
{
    std::string text = call.args.value("--scale");
    if (text.starts_with("1:")) text.erase(0, 2);
    const double scale = numberOf(call, "--scale", text);
    if (!(scale >= 1 && scale <= 1e7)) throw WrongUsage("--scale 要写作 1:2000，从 1:1 到 1:10000000");
    return scale;
}

plot::Paper paperOf(const Call& call)
{
    const std::string name = call.args.has("--paper") ? call.args.value("--paper") : "A3";
    for (const plot::Paper paper : {plot::kA3, plot::kA4})
        if (paper.name == name) return paper;
    throw WrongUsage("--paper 只能是 A3 或 A4");
}

/// 平面图.svg, or 平面图-1.svg, 平面图-2.svg where there are several.
std::string nameOf(const std::string& path, std::size_t number, std::size_t count)
{
    if (count == 1) return path;
    const std::string digits = std::to_string(number), most = std::to_string(count);
    return path.substr(0, path.size() - 4) + "-" + std::string(most.size() - digits.size(), '0') + digits + ".svg";
}

std::string ownFolder() { return gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder; }

int run(const Call& call)
{
    const auto& args = call.args;
    const std::string path = args.value("-o");
    const bool svg = EndsWithNoCase(path, ".svg");
    if (!svg && !EndsWithNoCase(path, ".dxf")) throw WrongUsage("-o 的文件要以 .svg 或 .dxf 结尾");
    const plot::Road road(shared.tables);
    plot::Order order = plot::orderOf(road, args.has("--plan")      ? plot::Order::Plan
                                            : args.has("--profile") ? plot::Order::Profile
                                                                    : plot::Order::Section);
    order.project = gProject;
    order.paper = paperOf(call);
    if (args.has("--scale")) order.scale = scaleOf(call);
    if (args.has("--thickness")) order.thickness = numberOf(call, "--thickness", args.value("--thickness"));
    if (args.has("--exaggeration")) {
        order.exaggeration = numberOf(call, "--exaggeration", args.value("--exaggeration"));
        if (!(order.exaggeration > 0 && order.exaggeration <= 1000)) throw WrongUsage("--exaggeration 要大于 0");
    }
    const std::pair<const char*, double*> stakes[] = {
        {"--from", &order.from}, {"--to", &order.to}, {"--section", &order.stake}};
    for (const auto& [option, value] : stakes) {
        if (!args.has(option)) continue;
        const auto stake = stakeOf(call, option);
        if (!stake) return kRefused;
        *value = *stake;
    }
    std::unique_ptr<plot::OwnRoad> other;
    if (args.has("--with")) {
        const std::string name = args.value("--with");
        other = plot::roadOf(name.find('/') == std::string::npos ? ProjectPath(name) : name);
        if (!other->refusal.empty()) {
            call.err << "--with " << name << "：" << other->refusal << '\n';
            return kRefused;
        }
        order.other = other->road.get();
    }
    order.stale = plot::doubtsOf(shared.tables).groups;
    if (const auto refusal = plot::refusalOf(road, order); !refusal.empty()) {
        call.err << refusal << '\n';
        return kRefused;
    }
    const auto slopes = plot::slopesOf(ownFolder(), shared.tables);
    if (!svg) return WriteOutput(call, path, [&] { return plot::dxfOf(road, order, slopes); }) ? kDone : kRefused;
    const auto sheets = plot::sheetsOf(road, order, slopes);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const std::string name = nameOf(path, i + 1, sheets.size());
        if (!WriteOutput(call, name, [&] { return plot::svgOf(sheets[i]); })) return kRefused;
        call.out << name << '\n';
    }
    return kDone;
}

constexpr Way kWays[] = {
    "--plan -o [--scale] [--paper] [--from] [--to] [--with]",
    "--profile -o [--scale] [--paper] [--from] [--to] [--exaggeration]",
    "--section -o [--scale] [--paper] [--thickness]",
};
constexpr Option kOptions[] = {
    {"--plan", "", "线路平面图"},
    {"--profile", "", "纵断面图"},
    {"--section", "桩号", "这个里程的横断面图；没有地面线，边坡是示意"},
    {"-o", "文件", ".dxf 是真坐标的图，单位米；.svg 是图纸，不止一张时文件名后面加 -1、-2"},
    {"--scale", "1:2000", "比例；不给时 .svg 画在一张图纸上"},
    {"--paper", "A3|A4", "图纸；不给时为 A3"},
    {"--from", "桩号", "开始里程；不给时从起点"},
    {"--to", "桩号", "结束里程；不给时到终点"},
    {"--exaggeration", "倍数", "高程放大的倍数"},
    {"--thickness", "厚度", "扣除的路面厚度，米"},
    {"--with", "项目", "用灰线叠加另一个项目的线路"},
};

}  // namespace

const Command kPlotCommand{
    .name = "plot",
    .summary = "线路平面图、纵断面图、横断面图",
    .help = R"(把线路画成图：.dxf 在 CAD 里打开，.svg 按比例打印。

例子：
  velumark-calc 示例一 plot --plan --scale 1:2000 -o 平面图.svg
  velumark-calc 示例一 plot --plan -o 平面图.dxf
  velumark-calc 示例一 plot --profile --from 13000 --to 15000 -o 纵断面图.svg
  velumark-calc 示例一 plot --section 12560 --thickness 0.18 -o 横断面图.dxf
)",
    .ways = kWays,
    .options = kOptions,
    .forms = "",
    .run = run,
};
