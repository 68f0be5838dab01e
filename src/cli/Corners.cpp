#include "cli/Commands.h"
#include "cli/Results.h"
#include "screens/Handler.h"
#include "screens/Jgw.h"
#include "screens/Pl.h"

namespace {

bool skewEnds(const Arguments& args)
{
    const std::string mode = args.value("--mode");
    if (!args.has("--mode") || mode == "skew" || mode == "xz") return true;
    if (mode == "square" || mode == "zz") return false;
    throw WrongUsage("--mode " + mode + "：只能是 square（斜交正做）或 skew（斜交斜做）");
}

int run(const Call& call)
{
    const auto& args = call.args;
    const auto station = ReadStationOption(call);
    if (!station) return kRefused;
    const JgwInput in{.stake = StakeNumber(args.value("--at")),
                      .skewEnds = skewEnds(args),
                      .kq = args.value("--front"),
                      .kh = args.value("--back"),
                      .zz = args.value("--left"),
                      .zy = args.value("--right"),
                      .skewed = args.has("--skew"),
                      .skew = args.value("--skew"),
                      .station = *station};
    Results results(call, kCornerResult);
    JgwStructures structures;
    results.stationPick = station->pick;
    results.own = [&](int row) { return JgwParameters(structures, in.skewEnds, row); };
    if (args.has("--file")) {
        results.pressLines([&](const std::string& line) {
            const bool went = results.press([&] {
                return Handle(Trap::Words,
                              [&] { AddJgwLine(ParseBatchLine(line, kJgwFields), in, structures, results.rows()); });
            });
            return went ||
                   structures.count < std::ssize(structures.kq);  // where the screen's memory ends, so does the run
        });
    } else if (args.has("--from")) {
        const PlInput run{.start = StakeNumber(args.value("--from")),
                          .end = StakeNumber(args.value("--to")),
                          .step = args.value("--step")};
        if (results.press([&] {
                const Outcome batch = CalcPl(run, in);
                return batch ? Handle(Trap::None, [&] { RefuseLongWalk(call); }) : batch;
            }))
            results.press([&] { return CalcJgw(in, structures, results.rows()); });
    } else {
        results.press([&] { return CalcJgw(in, structures, results.rows()); });
    }
    return results.finish();
}

constexpr Way kWays[] = {
    "--at --front --back --left --right [--mode] [--skew] [--station]",
    "--from --to --step --front --back --left --right [--mode] [--skew] [--station]",
    "--file [--mode] [--station]",
};
constexpr Option kOptions[] = {
    {"--at", "桩号", "结构物中心里程"},
    {"--from", "桩号", "批量计算起点"},
    {"--to", "桩号", "批量计算终点"},
    {"--step", "间距", "米"},
    {"--front", "长度", "K前：中心到前端的长度，米", "--kq"},
    {"--back", "长度", "K后：中心到后端的长度，米", "--kh"},
    {"--left", "宽度", "Z左：中心到左边的宽度，米", "--zz"},
    {"--right", "宽度", "Z右：中心到右边的宽度，米", "--zy"},
    {"--mode", "square|skew", "square 斜交正做（矩形），skew 斜交斜做（平行四边形），也可写作 zz、xz；不给时为 skew"},
    {"--skew", "夹角", "度.分秒，从前进方向顺时针；不给时为 90 度"},
    kStationOption,
    {"--file", "文件", "每行一个结构物：桩号,K前,K后,Z左,Z右；- 为标准输入"},
};

}  // namespace

const Command kCornersCommand{
    .name = "corners",
    .summary = "结构物角点放样",
    .help = R"(给出结构物的中心里程和尺寸，得到四个角点，次序为左前点、右前点、左后点、右后点。
一次最多 100 个结构物。

例子：
  velumark-calc 示例一 corners --at 12500 --front 2 --back 2 --left 12 --right 12 --skew 60.0000
  velumark-calc 示例一 corners --from 12500 --to 12900 --step 100 --front 2 --back 2 --left 12 --right 12 --mode square
  velumark-calc 示例一 corners --file 涵洞.txt --station D03 -o 角点.xls
)",
    .ways = kWays,
    .options = kOptions,
    .run = run,
};
