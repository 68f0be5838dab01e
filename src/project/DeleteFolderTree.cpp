#include "desk/Desk.h"
#include "engine/RunTimeError.h"
#include "project/FilePath.h"
#include "project/TextFile.h"

#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

void removeOne(const fs::path& path)
{
    std::error_code error;
    fs::remove(path, error);
    if (error) throw RunTimeError(RunTimeError::PathAccess);
}

void removeTree(const fs::path& folder)
{
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);  // a write-protected one goes too
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(*entry);
    if (error) throw RunTimeError(RunTimeError::PathAccess);
    for (const auto& entry : entries) {
        if (fs::is_directory(entry.symlink_status(error)))
            removeTree(entry.path());
        else
            removeOne(entry.path());
        desk().turn();
    }
    removeOne(folder);
}

}  // namespace

void DeleteFolderTree(const std::string& path)
{
    std::error_code error;
    const auto root = filePath(path);
    const auto status = fs::symlink_status(root, error);
    if (fs::is_directory(status))
        removeTree(root);
    else if (fs::is_symlink(status))
        removeOne(root);
}
