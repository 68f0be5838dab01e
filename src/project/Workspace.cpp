#include "project/Workspace.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "base/Utf16File.h"
#include "dialogs/Messages.h"
#include "project/Backups.h"
#include "project/Catalogue.h"
#include "project/DeleteFolderTree.h"
#include "project/OpenRoad.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <system_error>

namespace {

std::string catalogue() { return WorkspacePath() + "/项目名称.txt"; }
std::string phoneCatalogue() { return PhonePath() + "/XMMC.txt"; }

std::string withoutCase(std::string_view ascii)
{
    std::string text(ascii);
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

/// A folder of that name beside `list` would take its place, on some platform at least.
bool namesTheList(const std::string& list, std::string_view name)
{
    return withoutCase(name) == withoutCase(std::string_view(list).substr(list.find_last_of('/') + 1));
}

/// `name` below `folder`; below the file `list`, where nothing can exist, if it is no direct child, or the list itself.
std::string childOf(const std::string& folder, const std::string& list, const std::string& name)
{
    return IsFolderName(name) && !namesTheList(list, name) ? folder + "/" + name : list + "/-";
}

bool isDeviceName(std::string_view name)
{
    constexpr std::array<std::string_view, 24> devices{
        "CONIN$", "CONOUT$", "CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6",
        "COM7",   "COM8",    "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};
    // An extension makes no difference: con.txt is the console too.
    const std::string stem = withoutCase(Trim(name.substr(0, name.find('.'))));
    return std::find(devices.begin(), devices.end(), stem) != devices.end();
}

bool inCodePage(std::string_view name)
{
    return attempt([&] { Cp936FromUtf8(name); });
}

/// Lines as they are read one by one: nothing follows the last CR LF.
std::vector<std::string> linesOf(const std::string& bytes)
{
    auto lines = SplitLines(bytes);
    if (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

/// The names of a catalogue, UTF-8.
std::vector<std::string> namesOf(const std::string& bytes)
{
    auto names = linesOf(bytes);
    for (auto& name : names) name = Utf8FromCp936(name);
    return names;
}

/// @param name  bytes. It gets a line of its own, whatever stands before.
std::string withLine(const std::string& before, const std::string& name)
{
    const bool open = !before.empty() && !before.ends_with("\r\n");
    return before + (open ? "\r\n" : "") + name + "\r\n";
}

void makeFolder(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::create_directory(filePath(path), error)) return;
    throw FileError(path, FileError::Writing, error ? error : std::make_error_code(std::errc::file_exists));
}

Outcome refused(std::string text)
{
    return {Refusal{{std::move(text), std::string(message::kError), Icon::Critical}, "txtNewProjects"}};
}

}  // namespace

std::string WorkspacePath() { return gAppPath + "/参数文件"; }
std::string PhonePath() { return gAppPath + "/SJCS"; }
std::string ProjectPath(const std::string& project) { return childOf(WorkspacePath(), catalogue(), project); }
std::string PhoneProjectPath(const std::string& name) { return childOf(PhonePath(), phoneCatalogue(), name); }

std::string ParameterFile(std::string_view file)
{
    return (gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder) + "/" + std::string(file);
}

bool IsFolderName(std::string_view name)
{
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;  // "." and ".." are among these
    const bool forbidden = std::any_of(name.begin(), name.end(), [](unsigned char c) {
        return c < 0x20 || c == 0x7F ||
               std::string_view("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos;
    });
    return !forbidden && !isDeviceName(name) && inCodePage(name);
}

bool IsPhoneProjectName(std::string_view name) { return IsFolderName(name) && !namesTheList(phoneCatalogue(), name); }

std::optional<std::ptrdiff_t> LineOf(const std::vector<std::string>& names, std::ptrdiff_t index,
                                     const std::string& name)
{
    const auto count = std::ssize(names);
    const auto is = [&](std::ptrdiff_t i) { return names[static_cast<std::size_t>(i)] == name; };
    for (auto i = std::min(index, count - 1); i >= 0; --i)
        if (is(i)) return i;
    for (auto i = index + 1; i < count; ++i)
        if (is(i)) return i;
    return std::nullopt;
}

Refusal NoLongerListed(const std::string& name) { return {Notice("“" + name + "”已不在项目列表中！"), {}}; }

std::vector<std::string> OpenCatalogue()
{
    if (!FolderExists(WorkspacePath())) makeFolder(WorkspacePath());
    return namesOf(ReadBytesCreating(catalogue()));
}

std::vector<std::string> ReadPhoneCatalogue()
{
    if (!FileExists(phoneCatalogue())) return {};
    auto names = SplitLines(ReadUtf16File(phoneCatalogue()));
    if (!names.empty()) names.pop_back();
    return names;
}

void appendToCatalogue(const std::string& name)
{
    WriteBytes(catalogue(), withLine(ReadBytes(catalogue()), Cp936FromUtf8(name)));
}

Outcome CreateProject(const std::string& typed, const std::function<void()>& listed)
{
    gProject = Trim(typed);
    try {
        const auto before = ReadBytes(catalogue());
        const auto lines = linesOf(before);
        const auto name = Cp936FromUtf8(gProject);
        if (std::find(lines.begin(), lines.end(), name) != lines.end())
            return refused("项目名称已存在，请重新输入项目名称！");
        if (!IsFolderName(gProject)) throw RunTimeError(RunTimeError::PathAccess);
        makeFolder(ProjectPath(gProject));
        WriteBytes(catalogue(), withLine(before, name));
        if (listed) listed();
        const auto unset = Cp936FromUtf8("未设置");
        WriteBytes(ProjectPath(gProject) + "/" + std::string(files::settings),
                   JoinLines(std::vector<std::string>(4, unset)));
    } catch (const RunTimeError&) {
        return refused("项目名称只能是中文、英文或者数字");
    }
    return {};
}

Outcome AddProject(const std::string& name, const std::map<std::string, std::string>& files)
{
    if (!IsFolderName(name)) return refused("“" + name + "”不能作为项目名称！");
    const auto names = OpenCatalogue();
    if (std::find(names.begin(), names.end(), name) != names.end())
        return refused("项目名称已存在，请重新输入项目名称！");
    const std::string folder = ProjectPath(name);
    if (FileExists(folder)) return refused("“" + name + "”的目录已存在，请重新输入项目名称！");
    makeFolder(folder);
    try {
        for (const auto& [file, bytes] : files) WriteBytes(folder + "/" + file, bytes);
        appendToCatalogue(name);
    } catch (const FileError&) {
        attempt([&] { DeleteFolderTree(folder); });
        throw;
    }
    return {};
}

Outcome DeleteProject(int index, const std::string& name)
{
    const auto before = FileExists(catalogue()) ? ReadBytes(catalogue()) : std::string();
    const auto line = LineOf(namesOf(before), index, name);
    if (!line) return {NoLongerListed(name)};
    DeleteLine(catalogue(), toInt16(*line + 1));
    try {
        DeleteFolderTree(ProjectPath(name));
    } catch (const FileError&) {  // what is left of the folder stays in reach
        attempt([&] { WriteBytes(catalogue(), before); });
        throw;
    }
    setBackupsAside(name);
    openRoad.projectDeleted(std::string(Trim(name)));
    return {};
}
