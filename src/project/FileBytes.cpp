// Whole files as bytes, and the one way a file is replaced.

#include "engine/RunTimeError.h"
#include "project/FilePath.h"
#include "project/TextFile.h"

#include <atomic>
#include <fstream>
#include <system_error>

#ifndef _WIN32
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

/// A name beside `file` that nobody uses: short, so that it fits where the file's own name does.
fs::path nameBeside(const fs::path& file)
{
    static std::atomic<unsigned> count{0};
#ifndef _WIN32
    const auto process = std::to_string(::getpid());
#else
    const std::string process = "0";
#endif
    return folderOf(file) / (".vm" + process + "-" + std::to_string(++count) + ".tmp");
}

#ifndef _WIN32

/// An open file; failures are false, the caller decides what they mean.
class Descriptor {
public:
    Descriptor(const fs::path& path, int flags, mode_t mode = 0) : m_fd(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {}
    ~Descriptor()
    {
        if (m_fd >= 0) ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return m_fd >= 0; }
    bool write(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const auto written = ::write(m_fd, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    bool permissionsOf(const fs::path& file) const
    {
        struct stat old {};
        return ::stat(file.c_str(), &old) != 0 || ::fchmod(m_fd, old.st_mode & 07777) == 0;
    }
    bool flush() const { return ::fsync(m_fd) == 0; }

private:
    int m_fd;
};

bool writeNew(const fs::path& path, const fs::path& like, std::string_view bytes)
{
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    return file && file.permissionsOf(like) && file.write(bytes) && file.flush();
}

void flushFolder(const fs::path& folder)
{
    if (const Descriptor opened(folder, O_RDONLY | O_DIRECTORY); opened) opened.flush();
}

#else

bool writeNew(const fs::path& path, const fs::path&, std::string_view bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return out.good();
}

void flushFolder(const fs::path&) {}

#endif

}  // namespace

bool FileExists(const std::string& path)
{
    std::error_code error;
    const auto status = fs::status(filePath(path), error);
    return fs::exists(status) && !fs::is_directory(status);
}

bool FolderExists(const std::string& path)
{
    std::error_code error;
    return fs::is_directory(filePath(path), error);
}

std::string ReadBytes(const std::string& path)
{
    const auto file = filePath(path);
    if (!FileExists(path)) {
        if (FolderExists(path)) throw RunTimeError(RunTimeError::PathAccess);
        std::error_code error;
        const bool folder = fs::is_directory(folderOf(file), error);
        throw RunTimeError(folder ? RunTimeError::FileNotFound : RunTimeError::PathNotFound);
    }
    std::ifstream in(file, std::ios::binary);
    std::string bytes;
    char block[16384];
    while (in.read(block, sizeof block) || in.gcount() > 0) bytes.append(block, static_cast<std::size_t>(in.gcount()));
    if (!in.is_open() || in.bad()) throw RunTimeError(RunTimeError::PathAccess);
    return bytes;
}

std::string ReadBytesCreating(const std::string& path)
{
    if (!FileExists(path)) WriteBytes(path, {});
    return ReadBytes(path);
}

void WriteBytes(const std::string& path, std::string_view bytes)
{
    const auto file = filePath(path);
    std::error_code error;
    if (!fs::is_directory(folderOf(file), error)) throw RunTimeError(RunTimeError::PathNotFound);
    const auto beside = nameBeside(file);
    bool written = writeNew(beside, file, bytes);
    if (written) {
        fs::rename(beside, file, error);
        written = !error;
    }
    if (!written) {
        fs::remove(beside, error);
        throw RunTimeError(RunTimeError::PathAccess);
    }
    flushFolder(folderOf(file));
}
