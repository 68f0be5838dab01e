#include "base/Descriptor.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"

namespace {

[[noreturn]] void fail(const std::string& path, FileError::Doing doing, int why)
{
    throw FileError(path, doing, {why, std::generic_category()});
}

/// ENOENT of an open, but a link that leads nowhere is not missing.
int whyNotThere(const std::string& path)
{
    struct stat status {};
    const int why = lookFollowingLinks(filePath(path), status);
    return why != 0 ? why : ENOENT;
}

std::string bytesOf(const std::string& path, const Descriptor& file)
{
    std::string bytes;
    if (!file.read(bytes)) fail(path, FileError::Reading, errno);
    return bytes;
}

/// Opened without waiting for whoever writes a pipe.
std::string readRegular(const std::string& path, const Descriptor& file)
{
    struct stat status {};
    if (!file.look(status)) fail(path, FileError::Reading, errno);
    if (!S_ISREG(status.st_mode)) fail(path, FileError::Reading, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    return bytesOf(path, file);
}

}  // namespace

Look LookAt(const std::string& path)
{
    struct stat status {};
    const int why = lookFollowingLinks(filePath(path), status);
    if (why != 0) return why == ENOENT ? Look::Missing : Look::Unreadable;
    return S_ISREG(status.st_mode) ? Look::Regular : S_ISDIR(status.st_mode) ? Look::Folder : Look::Other;
}

std::string ReadBytes(const std::string& path)
{
    const Descriptor file(filePath(path), O_RDONLY | O_NONBLOCK);
    if (!file) fail(path, FileError::Reading, errno == ENOENT ? whyNotThere(path) : errno);
    return readRegular(path, file);
}

std::string ReadBytesCreating(const std::string& path)
{
    if (const Descriptor file(filePath(path), O_RDONLY | O_NONBLOCK); file)
        return readRegular(path, file);
    else if (errno != ENOENT)
        fail(path, FileError::Reading, errno);
    const Descriptor made(filePath(path), O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (made) return {};
    if (errno == EEXIST) return ReadBytes(path);  // a link that leads nowhere, or somebody was quicker
    fail(path, FileError::Writing, errno);
}

std::string ReadStream(const std::string& path)
{
    const Descriptor file(filePath(path), O_RDONLY);
    if (!file) fail(path, FileError::Reading, errno == ENOENT ? whyNotThere(path) : errno);
    return bytesOf(path, file);
}
