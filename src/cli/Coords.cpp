#include "base/Lines.h"
#include "cli/Commands.h"
#include "cli/Results.h"
#include "screens/DgdZb.h"

namespace {

/// The boxes of the screen for a stake, a signed offset (negative left) and, where it is given, a skew.
DgdZbInput boxes(const std::string& stake, const std::string& offset, const std::string* skew,
                 const StationInput& station)
{
    DgdZbInput in{.stake = StakeNumber(stake), .offset = offset, .skew = {}, .station = station};
    if (skew) {
        in.skewed = true;
        in.skew = *skew;
    } else {
        const SignedOffset number(offset);
        in.side = number.side;
        in.offset = number.length;
    }
    return in;
}

DgdZbInput fromOptions(const Arguments& args, const StationInput& station)
{
    const std::string skew = args.value("--skew");
    if (!args.has("--side"))
        return boxes(args.value("--at"), args.value("--offset"), args.has("--skew") ? &skew : nullptr, station);
    const std::string side = args.value("--side");
    if (side != "left" && side != "right") throw WrongUsage("--side " + side + "：只能是 left 或 right");
    if (args.has("--skew")) throw WrongUsage("--side 和 --skew 只能用一个");
    return {.stake = StakeNumber(args.value("--at")),
            .side = side == "left" ? "左边桩" : "右边桩",
            .offset = args.value("--offset"),
            .skew = {},
            .station = station};
}

int run(const Call& call)
{
    const auto station = ReadStationOption(call);
    if (!station) return kRefused;
    Results results(call, kCoordinateResult);
    results.stationPick = station->pick;
    if (call.args.has("--file")) {
        results.pressLines([&](const std::string& line) {
            auto fields = SplitFields(line);
            const std::string* skew = fields.size() > 2 ? &fields[2] : nullptr;
            fields.resize(std::max<std::size_t>(fields.size(), 2));
            results.press([&] { return CalcDgdZb(boxes(fields[0], fields[1], skew, *station), results.rows()); });
            return true;
        });
    } else {
        const auto in = fromOptions(call.args, *station);
        results.press([&] { return CalcDgdZb(in, results.rows()); });
    }
    return results.finish();
}

constexpr Way kWays[] = {"--at [--side] [--offset] [--skew] [--station]", "--file [--station] [--no-limit]"};
constexpr Option kOptions[] = {
    {"--at", "桩号", "里程，12345.678 或 K12+345.678；断链重复段的第二次读数前面加负号"},
    {"--side", "left|right", "左边桩或右边桩，和 --offset 一起用"},
    {"--offset", "偏距", "米；不给 --side 和 --skew 时，负数为左，正数为右"},
    {"--skew", "夹角", "从前进方向顺时针到偏距方向的角度，度.分秒，45.3000 是 45度30分"},
    kStationOption,
    {"--file", "文件", "每行一个点：桩号,偏距[,夹角]，偏距负数为左；- 为标准输入"},
    kNoLimitOption,
};

}  // namespace

const Command kCoordsCommand{
    .name = "coords",
    .summary = "由桩号求坐标（计算单个点坐标）",
    .help = R"(给出里程和偏距，得到坐标、切线方位角，以及从测站到该点的方位角和距离。
文件的每一行相当于按一次“计 算”；被拒绝的行写到标准错误，其余各行照算，最后以 1 结束。

例子：
  velumark-calc 示例一 coords --at 12500
  velumark-calc 示例一 coords --at K12+500 --side left --offset 12.5 --station D03
  velumark-calc 示例一 coords --at 12500 --skew 45.3000 --offset 8 --station 2856000,512000
  velumark-calc 示例一 coords --file 放样点.txt --format csv -o 放样点.csv
)",
    .ways = kWays,
    .options = kOptions,
    .run = run,
};
