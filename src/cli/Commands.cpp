#include "cli/Commands.h"

#include "cli/Output.h"

#include <algorithm>
#include <iterator>

std::span<const Command* const> Commands()
{
    static constexpr const Command* kAll[] = {
        &kCoordsCommand,     &kInverseCommand, &kStakeoutCommand, &kElevationCommand, &kCornersCommand,
        &kMainPointsCommand, &kPhoneCommand,   &kTraverseCommand, &kTablesCommand,    &kCheckCommand,
        &kPlotCommand,       &kImportCommand,  &kExportCommand,   &kPointsCommand,    &kCompareCommand,
        &kListCommand,       &kHelpCommand,
    };
    return kAll;
}

const Command* FindCommand(std::string_view name)
{
    for (const Command* command : Commands())
        if (command->name == name) return command;
    return nullptr;
}

std::span<const Option> CommonOptions(const Command& command)
{
    static constexpr Option kFormat{"--format", "table|csv|json",
                                    "输出的形式：对齐的表格、CSV 或 JSON；不给时为 table"};
    static constexpr Option kQuiet{"--quiet", "", "不把提示写到标准错误"};
    static constexpr Option kHelp{"--help", "", "显示这个命令的帮助"};
    static constexpr Option kSheets[] = {
        kFormat,
        {"-o", "文件",
         "写到文件：.xls 是和界面保存的一样的表格，.xlsx 里的数是数值，.csv 可直接用电子表格打开，.json 是 "
         "JSON，其余同 --format"},
        kQuiet,
        kHelp};
    static constexpr Option kTexts[] = {
        kFormat, {"-o", "文件", "写到文件：.csv 和 .json 按扩展名，其余同 --format"}, kQuiet, kHelp};
    static constexpr Option kPlain[] = {kQuiet, kHelp};
    if (command.forms.empty()) return kPlain;
    return command.forms.find("xls") != std::string_view::npos ? std::span<const Option>(kSheets) : kTexts;
}

namespace {

std::string withValue(const Option& option)
{
    return std::string(option.name) + (option.value.empty() ? "" : " " + std::string(option.value));
}

/// One line an option, the explanations in one column.
std::string optionList(std::span<const Option> options)
{
    int width = 0;
    for (const auto& option : options) width = std::max(width, DisplayWidth(withValue(option)));
    std::string text;
    for (const auto& option : options) {
        const std::string left = withValue(option);
        text += "  " + left + std::string(static_cast<std::size_t>(width - DisplayWidth(left) + 2), ' ') +
                std::string(option.help) + (option.alias.empty() ? "" : "；也可写作 " + std::string(option.alias)) +
                "\n";
    }
    return text;
}

std::string usage(const Command& command, Way way)
{
    std::string line =
        "  velumark-calc " +
        std::string(command.needsProject && (command.alone.empty() || !way.starts_with(command.alone)) ? "项目 " : "") +
        std::string(command.name);
    if (command.takesWords) line += " [命令]";
    for (const auto& [name, required] : OptionsOf(way)) {
        const std::string option = withValue(*FindOption(command.options, name));
        line += required ? " " + option : " [" + option + "]";
    }
    return line + "\n";
}

}  // namespace

std::string CommandHelp(const Command& command)
{
    std::string text = std::string(command.name) + "：" + std::string(command.summary) + "\n\n用法：\n";
    if (command.ways.empty()) text += usage(command, {});
    for (const Way way : command.ways) text += usage(command, way);
    text += "\n" + std::string(command.help);
    if (!command.options.empty()) text += "\n选项：\n" + optionList(command.options);
    return text + "\n各命令共有的选项：\n" + optionList(CommonOptions(command));
}

std::string GeneralHelp()
{
    std::string text = R"(velumark-calc：在命令行里做 Velumark 各计算界面的工作，结果逐行逐字相同。

用法：
  velumark-calc [--workspace 目录] 项目 命令 选项…
  velumark-calc --folder 项目目录 命令 选项…
  velumark-calc [--workspace 目录] list
  velumark-calc help [命令]

项目是工作目录下 参数文件 里的一个目录；不给 --workspace 时，工作目录是程序所在的目录。
--folder 直接给出一个项目目录，可以在任何位置。

命令：
)";
    std::size_t width = 0;
    for (const Command* command : Commands()) width = std::max(width, command->name.size());
    for (const Command* command : Commands())
        text += "  " + std::string(command->name) + std::string(width - command->name.size() + 2, ' ') +
                std::string(command->summary) + "\n";
    return text + R"(
每个命令的选项和例子：velumark-calc 命令 --help

例子：
  velumark-calc 示例一 coords --at 12500 --side left --offset 5
  velumark-calc --folder /data/某某高速 stakeout --from 12000 --to 13000 --step 20 -o 放样.xls

JSON 里每行除了界面上的文字还有数值：stake、x、y、elevation、offset（左为负）、distance，单位米；azimuth_deg、
tangent_deg、skew_deg，单位度；没有值时为 null。CSV 里像公式的文字前面加一个 '，电子表格不会去计算。

结束代码：0 完成；1 被拒绝（原因在标准错误）；2 用法不对。
)";
}
