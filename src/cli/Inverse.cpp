#include "cli/Commands.h"
#include "cli/Culprit.h"
#include "cli/Results.h"
#include "screens/Fs.h"
#include "screens/Handler.h"

namespace {

int run(const Call& call)
{
    Results results(call, kInverseResult);
    const auto solve = [&](const std::string& line) {
        bool found = true;
        const bool went = results.press(
            [&] {
                return Handle(Trap::Words, [&] {
                    const BatchLine point = ParseBatchLine(line, kFsFields);
                    found = AddFsPoint(point[0], point[1], results.rows());
                });
            },
            "--at");
        if (went && !found)
            results.refuse((call.args.has("--at") ? NamedValue(call, "--at") : "") + "没有找到对应的桩号");
        return true;
    };
    if (call.args.has("--file"))
        results.pressLines(solve);
    else
        solve(call.args.value("--at"));
    return results.finish();
}

constexpr Way kWays[] = {"--at", "--file"};
constexpr Option kOptions[] = {
    {"--at", "X,Y", "点的坐标，米"},
    {"--file", "文件", "每行一个点：X,Y；- 为标准输入"},
};

}  // namespace

const Command kInverseCommand{
    .name = "inverse",
    .summary = "由坐标求桩号（坐标反算桩号）",
    .help = R"(给出坐标，得到里程和离中线的偏距。断链重复段的第二次读数前面带负号。
没有对应桩号的点没有结果行，写到标准错误，最后以 1 结束。

例子：
  velumark-calc 示例一 inverse --at 2856575.1,512894.7
  velumark-calc 示例一 inverse --file 实测点.txt -o 反算.xls
)",
    .ways = kWays,
    .options = kOptions,
    .run = run,
};
