#include "cli/Commands.h"
#include "cli/Results.h"
#include "screens/DgdGc.h"
#include "screens/Handler.h"
#include "screens/PlGc.h"

namespace {

DgdGcInput single(const Arguments& args)
{
    const SignedOffset offset(args.value("--offset"));
    return {.stake = StakeNumber(args.value("--at")),
            .side = offset.side,
            .offset = offset.length,
            .thickness = args.value("--thickness")};
}

int run(const Call& call)
{
    const auto& args = call.args;
    if (args.has("--at")) {
        Results results(call, kElevationResult);
        results.press([&] { return CalcDgdGc(single(args), results.rows()); });
        return results.finish();
    }
    Results results(call, kElevationRunResult);
    if (args.has("--file")) {
        results.pressLines([&](const std::string& line) {
            results.press([&] {
                return Handle(Trap::Words, [&] {
                    AddPlGcLine(ParseBatchLine(line, kPlGcFields), args.value("--thickness"), results.rows());
                });
            });
            return true;
        });
    } else {
        const PlGcInput in{.start = StakeNumber(args.value("--from")),
                           .end = StakeNumber(args.value("--to")),
                           .offset = args.value("--offset"),
                           .step = args.value("--step"),
                           .thickness = args.value("--thickness")};
        results.beforeWalk([&] { RefuseLongWalk(call); });
        results.press([&] { return CalcPlGc(in, results.rows()); });
    }
    return results.finish();
}

constexpr Way kWays[] = {"--at [--offset] [--thickness]", "--from --to --step [--offset] [--thickness] [--no-limit]",
                         "--file [--thickness] [--no-limit]"};
constexpr Option kOptions[] = {
    {"--at", "桩号", "计算里程"},
    {"--from", "桩号", "开始里程"},
    {"--to", "桩号", "结束里程"},
    {"--step", "间距", "米"},
    {"--offset", "偏距", "米；--at 时负数为左、正数为右，批量时左右都算"},
    {"--thickness", "厚度", "扣除的路面厚度，米"},
    {"--file", "文件", "每行一个点：桩号,偏距，偏距负数为左；- 为标准输入"},
    kNoLimitOption,
};

}  // namespace

const Command kElevationCommand{
    .name = "elevation",
    .summary = "设计高程（单个点和批量）",
    .help = R"(给出里程和偏距，得到设计高程，可以扣除路面厚度。

例子：
  velumark-calc 示例一 elevation --at 12560 --offset -4.25 --thickness 0.18
  velumark-calc 示例一 elevation --from 12000 --to 13000 --step 20 --offset 5
  velumark-calc 示例一 elevation --file 点.txt --format json
)",
    .ways = kWays,
    .options = kOptions,
    .run = run,
};
