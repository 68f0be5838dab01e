#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/Results.h"
#include "engine/Chainage.h"
#include "engine/Route.h"
#include "exchange/ExchangeError.h"
#include "exchange/FieldFile.h"
#include "exchange/NumberText.h"
#include "exchange/ProjectExport.h"
#include "project/Workspace.h"
#include "screens/Jgw.h"

#include <ostream>
#include <utility>

namespace {

constexpr double kMostPoints = 32767;

double number(const std::string& text, std::string_view what)
{
    double value = 0;
    if (!attempt([&] { value = ParseNumber(StakeNumber(text)); }))
        throw ExchangeError(std::string(what) + "：“" + text + "”不是数");
    return value;
}

FieldFormat formatOf(const Call& call)
{
    const auto& args = call.args;
    auto format = FieldFormatOf(args.value("-o"));
    if (!format) throw WrongUsage("-o " + args.value("-o") + "：只能是 .dat、.csv、.txt 或 .gsi");
    if (args.has("--columns")) format->columns = FieldColumnsOf(args.value("--columns"));
    if (args.has("--separator")) {
        const std::string text = args.value("--separator");
        format->separator = text == "tab" ? "\t" : text;
        if (text.empty()) throw WrongUsage("--separator 不能是空的");
    }
    if (args.has("--encoding")) {
        const std::string name = args.value("--encoding");
        if (name != "utf-8" && name != "gbk") throw WrongUsage("--encoding " + name + "：只能是 utf-8 或 gbk");
        format->codePage936 = name == "gbk";
    }
    if (args.has("--gsi8")) {
        if (format->kind != FieldFormat::Gsi16) throw WrongUsage("--gsi8 只用于 .gsi 文件");
        format->kind = FieldFormat::Gsi8;
    }
    return *format;
}

/// The four corners of each structure of a file: stake, K前, K后, Z左, Z右, and a skew angle where one stands.
void addCorners(const Tables& tables, const std::string& path, std::vector<ExtraPoint>& extra)
{
    std::size_t lineNumber = 0, structure = 0;
    for (const auto& line : SplitLines(ReadBytes(path))) {
        ++lineNumber;
        const std::string place = path + " 第" + std::to_string(lineNumber) + "行";
        if (Trim(line).empty()) continue;
        const auto fields = SplitFields(line);
        if (fields.size() < 5) throw ExchangeError(place + "：应有 桩号,K前,K后,Z左,Z右");
        const auto at = [&](std::size_t i) { return number(fields[i], place); };
        const auto stake = ResolveStake(tables, at(0), kDgdZb);
        const auto centre = stake ? pointAt(tables, *stake, 0, 0) : std::nullopt;
        if (!centre || centre->error) throw ExchangeError(place + "：桩号 " + fields[0] + " 不在线路上");
        const double angle = fields.size() > 5 && !Trim(fields[5]).empty() ? WorkingAngle(at(5)) : 90;
        const auto corners =
            StructureCorners({centre->x, centre->y}, centre->fwjDeg, {at(1), at(2), at(3), at(4)}, angle, true);
        ++structure;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const bool front = i < 2, left = i % 2 == 0;
            extra.push_back({.continuous = *stake,
                             .offset = left ? -at(3) : at(4),
                             .code = "JGW",
                             .name = "J" + std::to_string(structure) + (front ? "Q" : "H") + (left ? "L" : "R"),
                             .x = corners[i].x,
                             .y = corners[i].y});
        }
    }
}

FieldRun runOf(const Call& call, const Tables& tables, const RoadFiles& files)
{
    const auto& args = call.args;
    FieldRun run;
    run.from = number(args.value("--from"), "--from");
    run.to = number(args.value("--to"), "--to");
    run.step = number(args.value("--step"), "--step");
    if (!(run.step > 0)) throw ExchangeError("--step 应大于 0");
    if (args.has("--offset")) {
        run.offsets.clear();
        for (const auto& text : SplitFields(args.value("--offset"))) run.offsets.push_back(number(text, "--offset"));
    }
    if (args.has("--name")) run.pattern = args.value("--name");
    const auto add = [&](const std::vector<ExtraPoint>& points) {
        run.extra.insert(run.extra.end(), points.begin(), points.end());
    };
    if (args.has("--main")) add(MainPoints(tables, files));
    if (args.has("--breaks")) add(BreakPoints(tables));
    if (args.has("--corners")) addCorners(tables, args.value("--corners"), run.extra);
    return run;
}

int write(const Call& call)
{
    const FieldFormat format = formatOf(call);
    const std::string folder = gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder;
    const Tables tables = TablesOfProject(folder);
    const FieldRun run = runOf(call, tables, ReadRoadFiles(folder));
    FieldPoints points(tables, run);
    if (points.count() > kMostPoints && !call.args.has("--no-limit"))
        throw ExchangeError("点太多（超过 " + FixedText(kMostPoints, 0) + " 个）；确实要写，请加 --no-limit");
    FieldWriter writer(format);
    std::string piece = writer.begin();
    std::size_t count = 0;
    WriteResult(call.args.value("-o"), [&] {
        constexpr std::size_t kPiece = 1 << 16;
        while (piece.size() < kPiece) {
            const auto point = points.next();
            if (!point) break;
            piece += writer.line(*point);
            ++count;
        }
        return std::exchange(piece, {});
    });
    if (!call.args.has("--quiet")) {
        call.err << "写了 " << count << " 个点\n";
        if (points.beyondProfile()) call.err << points.beyondProfile() << " 个点在纵断面以外，没有高程\n";
    }
    return kDone;
}

int run(const Call& call)
{
    try {
        return write(call);
    } catch (const ExchangeError& error) {
        call.err << error.what() << '\n';
    } catch (const FileError& error) {
        call.err << error.what() << '\n';
    }
    return kRefused;
}

constexpr Way kWays[] = {"--from --to --step -o [--offset] [--main] [--breaks] [--corners] [--name] [--columns] "
                         "[--separator] [--encoding] [--gsi8] [--no-limit]"};
constexpr Option kOptions[] = {
    {"--from", "桩号", "开始里程"},
    {"--to", "桩号", "结束里程"},
    {"--step", "间距", "米"},
    {"-o", "文件", ".dat（点号,编码,Y,X,H）、.csv、.txt 或 .gsi"},
    {"--offset", "偏距,…", "每个桩号上的点，负数为左，0 为中桩；不给时只有中桩"},
    {"--main", "", "加上曲线的主点"},
    {"--breaks", "", "加上断链点"},
    {"--corners", "文件", "加上结构物的角点：每行 桩号,K前,K后,Z左,Z右[,夹角]"},
    {"--name", "样式", "点号的样式，可用 {stake}、{side}、{offset}、{code}；不给时如 12345678R05"},
    {"--columns", "列,…", ".csv 和 .txt 的列：name,code,stake,offset,x,y,h"},
    {"--separator", "符号", ".csv 和 .txt 的分隔符；tab 为制表符"},
    {"--encoding", "编码", "utf-8 或 gbk；.dat 不给时为 gbk，其余为 utf-8"},
    {"--gsi8", "", ".gsi 写成 GSI-8，放不下的数被拒绝；不给时为 GSI-16"},
    {"--no-limit", "", "允许超过 32767 个点"},
};

}  // namespace

const Command kPointsCommand{
    .name = "points",
    .summary = "给全站仪和 GNSS 接收机的点：逐桩坐标表，带设计高程",
    .help = R"(按里程的顺序写出逐桩的点、曲线主点、断链点和结构物角点，坐标和高程与计算界面相同。

例子：
  velumark-calc 示例一 points --from 12000 --to 13000 --step 20 --offset -12.5,0,12.5 --main -o 放样.dat
  velumark-calc 示例一 points --from 12000 --to 18000 --step 20 -o 全线.gsi
)",
    .ways = kWays,
    .options = kOptions,
    .loads = false,
    .forms = "",
    .run = run,
};
