#include "cli/Companion.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "cli/Command.h"
#include "dialogs/Dialogs.h"
#include "phone/Phone.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <ostream>
#include <system_error>

namespace {

constexpr Option kGlobalOptions[] = {
    {"--workspace", "目录", "工作目录，里面有 参数文件；不给时用程序所在的目录"},
    {"--folder", "目录", "直接给出一个项目目录，可以在任何位置"},
    {"--help", "", "显示帮助"},
    {"--version", "", "显示版本"},
};

/// Boxes go to standard error; nobody answers, so every question gets No and every dialog Cancel.
/// In use as long as it lives.
class ConsoleDialogs : public Dialogs {
public:
    explicit ConsoleDialogs(std::ostream& err) : m_err(err) { setDialogs(this); }
    ~ConsoleDialogs() override { setDialogs(nullptr); }
    ConsoleDialogs(const ConsoleDialogs&) = delete;
    ConsoleDialogs& operator=(const ConsoleDialogs&) = delete;
    bool box(const Msg& msg) override
    {
        m_err << msg.text << '\n';
        return msg.buttons == Msg::Ok;
    }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }

private:
    std::ostream& m_err;
};

std::string withoutSeparator(std::string path)
{
    const std::string_view separators = kSeparators;
    while (path.size() > 1 && separators.find(path.back()) != std::string_view::npos) path.pop_back();
    return path;
}

/// The folder's own name, also of "." and the like.
std::string nameOf(const std::string& folder)
{
    std::error_code error;
    const auto name = std::filesystem::weakly_canonical(filePath(folder), error).filename().u8string();
    return {name.begin(), name.end()};
}

bool holdsParameterFile(const std::string& folder)
{
    return std::any_of(kPhoneFiles.begin(), kPhoneFiles.end(),
                       [&](const PhoneFile& file) { return FileExists(folder + "/" + std::string(file.source)); });
}

/// Loads gProject. Nothing: refused, its text is on `err`.
std::optional<Loaded> loadProject(const std::string& folder, std::ostream& err)
{
    const Loaded loaded = loadOpenProject();
    for (const auto& lost : loaded.notKept) err << lost << '\n';
    if (const auto& place = loaded.neverEnds) {
        err << "参数文件无法读取：" << folder << "/" << place->file << "，第" << place->line
            << (place->line > 1 ? "行及以前没有一行含有逗号\n" : "行没有逗号\n");
        return std::nullopt;
    }
    for (const FileError& error : loaded.unreadable) err << error.what() << '\n';
    return loaded.unreadable.empty() ? std::optional(loaded) : std::nullopt;
}

/// Finds the project that the options name, and loads it if `load`. Nothing: refused, its text is on `err`.
std::optional<Loaded> openProject(const Arguments& global, const std::string& project, bool load, std::ostream& err)
{
    const bool anywhere = global.has("--folder");
    gProjectFolder = withoutSeparator(global.value("--folder"));
    gProject = anywhere ? nameOf(gProjectFolder) : project;
    const std::string folder = anywhere ? gProjectFolder : ProjectPath(gProject);
    if (!FolderExists(folder)) {
        err << "没有这个项目：" << (anywhere ? folder : project) << '\n';
        return std::nullopt;
    }
    // A load makes the files that are missing: not in a folder that only looks like a project.
    if (anywhere && !holdsParameterFile(folder)) {
        err << "--folder " << folder << "：这个目录里没有参数文件\n";
        return std::nullopt;
    }
    return load ? loadProject(folder, err) : Loaded{};
}

struct CommandLine {
    Arguments global;
    std::string project;
    const Command* command = nullptr;
    bool needsProject = true;
    std::vector<std::string> rest;
};

/// Options before the first word are global; then the project, unless a folder stands for it, then the command.
CommandLine parse(const std::vector<std::string>& args)
{
    CommandLine line;
    std::size_t i = 0;
    while (i < args.size() && args[i].starts_with("-")) {
        const bool takesNext = args[i].find('=') == std::string::npos && FindOption(kGlobalOptions, args[i]) &&
                               !FindOption(kGlobalOptions, args[i])->value.empty();
        i += takesNext ? 2 : 1;
    }
    i = std::min(i, args.size());
    line.global = Arguments(std::span(args).first(i), kGlobalOptions);

    const auto next = [&](const char* what) {
        if (i >= args.size()) throw WrongUsage(std::string("缺少") + what);
        return args[i++];
    };
    if (line.global.has("--help") || line.global.has("--version")) return line;
    std::string word = next(line.global.has("--folder") ? "命令" : "项目");
    const Command* command = FindCommand(word);
    // With an option that asks for all projects, none stands before the command.
    const auto alone = [&](const Command& c) {
        return !c.alone.empty() &&
               std::any_of(args.begin() + static_cast<std::ptrdiff_t>(i), args.end(), [&](const std::string& arg) {
                   return arg == c.alone || arg.starts_with(std::string(c.alone) + "=");
               });
    };
    if (command && alone(*command)) {
        if (line.global.has("--folder")) throw WrongUsage(std::string(command->alone) + " 不和 --folder 一起用");
        line.command = command;
        line.needsProject = false;
        line.rest.assign(args.begin() + static_cast<std::ptrdiff_t>(i), args.end());
        return line;
    }
    // A project may have the name of a command that works without one.
    const bool isProject = command && !command->takesWords && i < args.size() && FindCommand(args[i]);
    if (!line.global.has("--folder") && (isProject || !(command && !command->needsProject))) {
        line.project = word;
        if (i + 1 == args.size() && !command && args[i] == "--help") return line;
        if (i >= args.size() && command) throw WrongUsage("命令 " + word + " 前面缺少项目");
        word = next("命令");
        if (word == "--help" && command) {  // velumark-calc coords --help
            line.command = command;
            line.rest = {word};
            return line;
        }
    }
    line.command = FindCommand(word);
    if (!line.command) throw WrongUsage("没有命令 " + word);
    if (alone(*line.command)) throw WrongUsage(std::string(line.command->alone) + " 前面不写项目");
    line.needsProject = line.command->needsProject;
    line.rest.assign(args.begin() + static_cast<std::ptrdiff_t>(i), args.end());
    return line;
}

/// Input files are never changed, also not by naming one for the result.
void refuseSameFile(const Arguments& args)
{
    std::vector<std::pair<std::string, std::string>> inputs;
    for (const char* option : {"--file", "--corners", "--setout"}) inputs.emplace_back(option, args.value(option));
    for (const auto& word : args.words()) inputs.emplace_back("输入", word);
    for (const auto& [name, input] : inputs) {
        if (input.empty() || LookAt(input) != Look::Regular) continue;
        for (const char* option : {"-o", "--dxf"}) {
            std::error_code error;
            if (args.has(option) && std::filesystem::equivalent(filePath(input), filePath(args.value(option)), error))
                throw WrongUsage(std::string(option) + " 和 " + name + " 是同一个文件：" + args.value(option));
        }
    }
}

int run(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err)
{
    if (line.global.has("--version")) {
        out << "velumark-calc " VM_VERSION "\n";
        return kDone;
    }
    if (!line.command) {
        out << GeneralHelp();
        return kDone;
    }
    std::vector<Option> known(line.command->options.begin(), line.command->options.end());
    const auto common = CommonOptions(*line.command);
    known.insert(known.end(), common.begin(), common.end());
    const Arguments args(line.rest, known);
    const auto& words = args.words();
    if (args.has("--help")) {
        out << CommandHelp(*line.command);
        return kDone;
    }
    if (!words.empty() && !line.command->takesWords) throw WrongUsage("多余的参数：" + words.front());
    const Format format = line.command->forms.empty() ? Format::Table : FormatOf(args, line.command->forms);
    refuseSameFile(args);
    const Way way = line.command->ways.empty() ? Way() : args.choose(line.command->ways);

    std::optional<Loaded> loaded = Loaded{};
    if (line.needsProject) loaded = openProject(line.global, line.project, line.command->loads, err);
    if (!loaded) return kRefused;
    const int code = line.command->run({args, way, format, in, out, err});
    // A load that a gap cut short has said so; what was computed from half the tables is no success.
    return loaded->cutAtGap ? std::max<int>(code, kRefused) : code;
}

}  // namespace

int RunCompanion(const std::vector<std::string>& args, const std::string& programFolder, std::istream& in,
                 std::ostream& out, std::ostream& err)
{
    const ConsoleDialogs console(err);
    const CommandLine* parsed = nullptr;
    CommandLine line;
    try {
        line = parse(args);
        parsed = &line;
        gAppPath = withoutSeparator(line.global.has("--workspace") ? line.global.value("--workspace") : programFolder);
        const int code = run(line, in, out, err);
        if (!out.flush()) throw FileError("标准输出", FileError::Writing, std::make_error_code(std::errc::io_error));
        return code;
    } catch (const WrongUsage& wrong) {
        err << "velumark-calc: " << wrong.what() << "\n用 velumark-calc "
            << (parsed && line.command ? std::string(line.command->name) + " " : "") << "--help 查看用法\n";
        return kWrongUsage;
    } catch (const RunTimeError& error) {
        err << error.what() << '\n';
    } catch (const std::bad_alloc&) {
        err << "内存不足，没有完成\n";
    } catch (const std::filesystem::filesystem_error& error) {
        const auto path = error.path1().u8string();
        err << FileError({path.begin(), path.end()}, FileError::Reading, error.code()).what() << '\n';
    }
    return kRefused;
}
