#include "cli/ProjectNames.h"
#include "base/CodePage.h"
#include "base/Lines.h"

#include "base/FileBytes.h"
#include "base/FilePath.h"
#include "project/Workspace.h"

#include <algorithm>
#include <filesystem>
#include <set>

std::vector<std::string> ProjectNames()
{
    std::vector<std::string> names;
    const std::string catalogue = WorkspacePath() + "/项目名称.txt";
    if (FileExists(catalogue))
        for (const auto& line : SplitLines(ReadBytes(catalogue)))
            if (!line.empty()) names.push_back(Utf8FromCp936(line));
    std::set<std::string> unlisted;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(filePath(WorkspacePath()), error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename().u8string();
        if (entry->is_directory(error)) unlisted.insert({name.begin(), name.end()});
    }
    for (const auto& name : names) unlisted.erase(name);
    names.insert(names.end(), unlisted.begin(), unlisted.end());
    return names;
}
