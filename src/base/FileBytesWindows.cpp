#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/HandleWindows.h"

namespace {

[[noreturn]] void fail(const std::string& path, FileError::Doing doing, std::error_code why)
{
    throw FileError(path, doing, why);
}

[[noreturn]] void fail(const std::string& path, FileError::Doing doing, std::errc why)
{
    fail(path, doing, std::make_error_code(why));
}

bool saysMissing(DWORD why)
{
    return why == ERROR_FILE_NOT_FOUND || why == ERROR_PATH_NOT_FOUND || why == ERROR_INVALID_NAME ||
           why == ERROR_DIRECTORY;
}

/// A file stands where the path needs a folder.
bool belowAFile(std::filesystem::path path)
{
    while (path.has_relative_path() && path.has_parent_path() && path.parent_path() != path) {
        path = path.parent_path();
        const DWORD attributes = GetFileAttributesW(path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    }
    return false;
}

/// An open of what is there failed: the system calls a folder forbidden.
[[noreturn]] void failAtOpen(const std::string& path)
{
    const auto why = lastFailure();
    DWORD attributes = 0;
    if (const auto look = attributesOf(filePath(path), attributes); look)
        fail(path, FileError::Reading, look);
    else if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        fail(path, FileError::Reading, std::errc::is_a_directory);
    fail(path, FileError::Reading, why);
}

std::string bytesOf(const std::string& path, const Handle& file)
{
    std::string bytes;
    if (!file.read(bytes)) fail(path, FileError::Reading, lastFailure());
    return bytes;
}

std::string readRegular(const std::string& path, const Handle& file)
{
    if (!file.isOnDisk()) fail(path, FileError::Reading, std::errc::invalid_argument);
    return bytesOf(path, file);
}

}  // namespace

std::error_code attributesOf(const std::filesystem::path& path, DWORD& attributes)
{
    attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const auto why = lastFailure();
        if (!saysMissing(static_cast<DWORD>(why.value()))) return why;
        return std::make_error_code(belowAFile(path) ? std::errc::not_a_directory
                                                     : std::errc::no_such_file_or_directory);
    }
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return {};
    const Handle followed(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION status{};
    if (followed && GetFileInformationByHandle(followed.get(), &status)) {
        attributes = status.dwFileAttributes;
        return {};
    }
    const auto why = lastFailure();
    return saysMissing(static_cast<DWORD>(why.value())) ? std::make_error_code(std::errc::too_many_symbolic_link_levels)
                                                        : why;
}

Look LookAt(const std::string& path)
{
    DWORD attributes = 0;
    if (const auto why = attributesOf(filePath(path), attributes); why)
        return why == std::errc::no_such_file_or_directory ? Look::Missing : Look::Unreadable;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) return Look::Folder;
    return attributes & FILE_ATTRIBUTE_DEVICE ? Look::Other : Look::Regular;
}

std::string ReadBytes(const std::string& path)
{
    const Handle file(filePath(path), GENERIC_READ, OPEN_EXISTING);
    if (!file) failAtOpen(path);
    return readRegular(path, file);
}

std::string ReadBytesCreating(const std::string& path)
{
    const auto name = filePath(path);
    DWORD attributes = 0;
    if (attributesOf(name, attributes) != std::errc::no_such_file_or_directory) return ReadBytes(path);
    const Handle made(name, GENERIC_WRITE, CREATE_NEW);
    if (made) return {};
    if (GetLastError() == ERROR_FILE_EXISTS) return ReadBytes(path);  // somebody was quicker
    fail(path, FileError::Writing, lastFailure());
}

std::string ReadStream(const std::string& path)
{
    const Handle file(filePath(path), GENERIC_READ, OPEN_EXISTING);
    if (!file) failAtOpen(path);
    return bytesOf(path, file);
}
