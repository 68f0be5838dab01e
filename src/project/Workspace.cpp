#include "project/Workspace.h"

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/FileError.h"
#include "project/FilePath.h"
#include "project/TextFile.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <system_error>

namespace {

std::string catalogue() { return WorkspacePath() + "/项目名称.txt"; }
std::string phoneCatalogue() { return PhonePath() + "/XMMC.txt"; }

/// `name` below `folder`; below the file `list`, where nothing can exist, if it is no direct child.
std::string childOf(const std::string& folder, const std::string& list, const std::string& name)
{
    return IsFolderName(name) ? folder + "/" + name : list + "/-";
}

bool isDeviceName(std::string_view name)
{
    constexpr std::array<std::string_view, 24> devices{
        "CONIN$", "CONOUT$", "CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6",
        "COM7",   "COM8",    "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};
    // An extension makes no difference: con.txt is the console too.
    std::string stem(Trim(name.substr(0, name.find('.'))));
    std::transform(stem.begin(), stem.end(), stem.begin(), [](unsigned char c) { return std::toupper(c); });
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

void makeFolder(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::create_directory(filePath(path), error)) return;
    throw FileError(path, FileError::Writing, error ? error : std::make_error_code(std::errc::file_exists));
}

Outcome refused(std::string text) { return {Refusal{{std::move(text), "错误", Icon::Critical}, "txtNewProjects"}}; }

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

std::vector<std::string> OpenCatalogue()
{
    if (!FolderExists(WorkspacePath())) makeFolder(WorkspacePath());
    auto names = linesOf(ReadBytesCreating(catalogue()));
    for (auto& name : names) name = Utf8FromCp936(name);
    return names;
}

std::vector<std::string> ReadPhoneCatalogue()
{
    if (!FileExists(phoneCatalogue())) return {};
    auto names = SplitLines(ReadUtf16File(phoneCatalogue()));
    if (!names.empty()) names.pop_back();
    return names;
}

Outcome CreateProject(const std::string& typed)
{
    gProject = Trim(typed);
    try {
        const auto listed = ReadBytes(catalogue());
        const auto lines = linesOf(listed);
        const auto name = Cp936FromUtf8(gProject);
        if (std::find(lines.begin(), lines.end(), name) != lines.end())
            return refused("项目名称已存在，请重新输入项目名称！");
        if (!IsFolderName(gProject)) throw RunTimeError(RunTimeError::PathAccess);
        makeFolder(ProjectPath(gProject));
        const bool open = !listed.empty() && !listed.ends_with("\r\n");  // a line of its own, whatever stands before
        WriteBytes(catalogue(), listed + (open ? "\r\n" : "") + name + "\r\n");
        const auto unset = Cp936FromUtf8("未设置");
        WriteBytes(ProjectPath(gProject) + "/" + std::string(files::settings),
                   JoinLines(std::vector<std::string>(4, unset)));
    } catch (const RunTimeError&) {
        return refused("项目名称只能是中文、英文或者数字");
    }
    return {};
}

void DeleteProject(int index, const std::string& name)
{
    if (FileExists(catalogue())) DeleteLine(catalogue(), toInt16(index + 1LL));
    DeleteFolderTree(ProjectPath(name));
}
