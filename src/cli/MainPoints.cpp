#include "cli/Commands.h"
#include "cli/Results.h"
#include "screens/Handler.h"
#include "screens/Zdcs.h"
#include "tables/CalcTables.h"

namespace {

int run(const Call& call)
{
    Results results(call, kMainPointResult);
    results.press([&] {
        return Handle(Trap::None, [&] {
            if (gZdCount < 1) Refuse(message::kNoMainPoints, {}, message::kNotice);
            LoadZdcs(results.rows());
        });
    });
    return results.finish();
}

}  // namespace

const Command kMainPointsCommand{
    .name = "mainpoints",
    .summary = "主点参数表（交点法）",
    .help = R"(列出每个交点的切线长、缓曲长，以及 ZH、HY、YH、HZ 点的里程、坐标和切线方位角。

例子：
  velumark-calc 示例一 mainpoints
  velumark-calc 示例一 mainpoints -o 主点.xls
)",
    .ways = {},
    .options = {},
    .run = run,
};
