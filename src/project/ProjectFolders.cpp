#include "project/ProjectFolders.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/RunTimeError.h"
#include "dialogs/Messages.h"
#include "project/Catalogue.h"
#include "project/Workspace.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace {

/// Bytes by name. @throws FileError also where the folder cannot be listed
std::map<std::string, std::string> parameterFilesIn(const std::string& folder)
{
    std::map<std::string, std::string> files;
    std::error_code error;
    std::filesystem::directory_iterator at(filePath(folder), error);
    for (; !error && at != std::filesystem::directory_iterator(); at.increment(error)) {
        const auto utf8 = at->path().filename().u8string();
        const std::string name(utf8.begin(), utf8.end());
        if (name.ends_with("参数.txt")) files[name] = ReadBytes(folder + "/" + name);
    }
    if (error) throw FileError(folder, FileError::Reading, error);
    return files;
}

bool liesInWorkspace(const std::string& folder, const std::string& name)
{
    std::error_code error;
    return IsFolderName(name) && std::filesystem::equivalent(filePath(folder), filePath(ProjectPath(name)), error);
}

/// Names of the folders in a folder, sorted; none where it cannot be listed.
std::vector<std::string> foldersIn(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator at(filePath(folder), error);
    for (; !error && at != std::filesystem::directory_iterator(); at.increment(error)) {
        const auto utf8 = at->path().filename().u8string();
        if (FolderExists(folder + "/" + std::string(utf8.begin(), utf8.end())))
            names.emplace_back(utf8.begin(), utf8.end());
    }
    std::sort(names.begin(), names.end());
    return names;
}

Outcome refused(const std::string& text) { return {Refusal{Notice(text), {}}}; }

}  // namespace

Outcome CopyProject(const std::string& from, const std::string& to)
{
    return AddProject(to, parameterFilesIn(ProjectPath(from)));
}

TakenFolder TakeFolder(const std::string& path)
{
    const auto files = parameterFilesIn(path);
    if (files.empty()) return {refused("这个文件夹里没有参数文件！"), {}};
    const auto utf8 = filePath(path).filename().u8string();
    const std::string name(utf8.begin(), utf8.end());
    if (liesInWorkspace(path, name)) {
        const auto names = OpenCatalogue();
        if (std::find(names.begin(), names.end(), name) != names.end())
            return {refused("“" + name + "”已经在项目列表中！"), {}};
        appendToCatalogue(name);
        return {{}, name};
    }
    Outcome outcome = AddProject(name, files);
    if (!outcome) return {std::move(outcome), {}};
    return {{}, name};
}

void TakeSamples()
{
    if (FileExists(WorkspacePath())) return;
    const std::string samples = gAppPath + "/示例";
    for (const auto& name : foldersIn(samples))
        attempt([&] {
            if (const auto files = parameterFilesIn(samples + "/" + name); !files.empty()) AddProject(name, files);
        });
}
