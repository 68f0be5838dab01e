#pragma once
// An open file of the operating system (not on Windows). Failures are false and errno; the caller decides what they
// mean.

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

class Descriptor {
public:
    Descriptor(const std::filesystem::path& path, int flags, mode_t mode = 0)
    {
        do m_fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
        while (m_fd < 0 && errno == EINTR);
    }
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return m_fd >= 0; }
    int number() const { return m_fd; }

    bool look(struct stat& status) const { return ::fstat(m_fd, &status) == 0; }
    /// Everything up to the end is appended to `bytes`.
    bool read(std::string& bytes) const
    {
        char block[16384];
        while (true) {
            const auto got = ::read(m_fd, block, sizeof block);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) return got == 0;
            bytes.append(block, static_cast<std::size_t>(got));
        }
    }
    bool write(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const auto written = ::write(m_fd, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written == 0) errno = EIO;
            if (written <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    bool flush() const { return ::fsync(m_fd) == 0; }
    /// True: what was written is with the file system; some say only here that it had no room.
    bool close()
    {
        const int fd = std::exchange(m_fd, -1);
        return fd < 0 || ::close(fd) == 0 || errno == EINTR;
    }

private:
    int m_fd;
};

/// stat, but a link that leads nowhere is not missing. 0, or the number of the failure: ENOENT for missing alone.
inline int lookFollowingLinks(const std::filesystem::path& path, struct stat& status)
{
    if (::stat(path.c_str(), &status) == 0) return 0;
    if (errno != ENOENT) return errno;
    return ::lstat(path.c_str(), &status) == 0 ? ELOOP : errno;
}
