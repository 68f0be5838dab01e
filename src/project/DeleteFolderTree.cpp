#include "project/DeleteFolderTree.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/Machine.h"
#include "dialogs/Dialogs.h"

#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, std::error_code why)
{
    const auto name = path.u8string();
    throw FileError({name.begin(), name.end()}, FileError::Writing, why);
}

void removeOne(const fs::path& path)
{
    std::error_code error;
    Unprotect(path);
    fs::remove(path, error);
    if (error) fail(path, error);
}

void removeTree(const fs::path& folder)
{
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);  // a write-protected one goes too
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(*entry);
    if (error) fail(folder, error);
    for (const auto& entry : entries) {
        if (!IsLink(entry.path()) && fs::is_directory(entry.symlink_status(error)))
            removeTree(entry.path());
        else
            removeOne(entry.path());
        dialogs().turn();
    }
    removeOne(folder);
}

}  // namespace

void DeleteFolderTree(const std::string& path)
{
    std::error_code error;
    const auto root = filePath(path);
    const auto status = fs::symlink_status(root, error);
    if (IsLink(root))
        removeOne(root);
    else if (fs::is_directory(status))
        removeTree(root);
    else if (status.type() == fs::file_type::none)  // not missing: it could not be looked at
        fail(root, error);
}
