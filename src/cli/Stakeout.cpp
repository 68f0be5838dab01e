#include "cli/Commands.h"
#include "cli/Results.h"
#include "screens/Doubts.h"
#include "screens/Handler.h"
#include "screens/Plfy.h"

namespace {

int run(const Call& call)
{
    const auto& args = call.args;
    const auto station = ReadStationOption(call);
    if (!station) return kRefused;
    Results results(call, kCoordinateResult);
    results.stationPick = station->pick;
    if (args.has("--file")) {
        // The file run of the screen looks from the station in memory.
        if (!results.press([&] { return Handle(Trap::Words, [&] { ReadStation(*station, {}); }); })) return kRefused;
        const std::string unseen = warning::NoStation(*station);
        results.pressLines([&](const std::string& line) {
            results.press([&] {
                return Handle(Trap::Words,
                              [&] { AddPlfyLine(ParseBatchLine(line, kPlfyFields), results.rows(), unseen); });
            });
            return true;
        });
    } else {
        const PlfyInput in{.start = StakeNumber(args.value("--from")),
                           .end = StakeNumber(args.value("--to")),
                           .step = args.value("--step"),
                           .offset = args.value("--offset"),
                           .skewed = args.has("--skew"),
                           .skew = args.value("--skew"),
                           .station = *station};
        results.beforeWalk([&] { RefuseLongWalk(call); });
        results.press([&] { return CalcPlfy(in, results.rows()); });
    }
    return results.finish();
}

constexpr Way kWays[] = {"--from --to --step [--offset] [--skew] [--station] [--no-limit]",
                         "--file [--station] [--no-limit]"};
constexpr Option kOptions[] = {
    {"--from", "桩号", "开始里程"},
    {"--to", "桩号", "结束里程；不足一个间距的零头没有单独的一行"},
    {"--step", "间距", "米"},
    {"--offset", "偏距", "米；给出时每个桩号另有左、右边桩各一行"},
    {"--skew", "夹角", "度.分秒；给出时边桩换成一个斜交点"},
    kStationOption,
    {"--file", "文件", "每行一个点：桩号,偏距，偏距负数为左；- 为标准输入"},
    kNoLimitOption,
};

}  // namespace

const Command kStakeoutCommand{
    .name = "stakeout",
    .summary = "批量放样",
    .help = R"(从开始里程到结束里程按间距列出中桩，以及给出偏距时的边桩。断链跳过的里程没有行。

例子：
  velumark-calc 示例一 stakeout --from 12000 --to 13000 --step 20 --offset 5 --station GP01
  velumark-calc 示例一 stakeout --file 边桩.txt -o 放样.xls
)",
    .ways = kWays,
    .options = kOptions,
    .run = run,
};
