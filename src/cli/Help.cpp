#include "cli/Commands.h"

#include <ostream>

namespace {

int run(const Call& call)
{
    const auto& words = call.args.words();
    if (words.empty()) {
        call.out << GeneralHelp();
        return kDone;
    }
    const Command* command = FindCommand(words.front());
    if (words.size() > 1) throw WrongUsage("多余的参数：" + words[1]);
    if (!command) throw WrongUsage("没有命令 " + words.front());
    call.out << CommandHelp(*command);
    return kDone;
}

}  // namespace

const Command kHelpCommand{
    .name = "help",
    .summary = "显示帮助，或一个命令的帮助",
    .help = R"(和 --help 相同；后面写上命令的名字时显示那个命令的帮助。

例子：
  velumark-calc help
  velumark-calc help coords
)",
    .ways = {},
    .options = {},
    .takesWords = true,
    .needsProject = false,
    .loads = false,
    .forms = "",
    .run = run,
};
