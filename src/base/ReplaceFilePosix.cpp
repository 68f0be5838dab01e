#include "base/Descriptor.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/ReplaceWhole.h"
#include "base/SignalsHeld.h"
#include "base/TemporaryName.h"

#include <csignal>
#include <cstdio>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& path, std::error_code why) { throw FileError(path, FileError::Writing, why); }
[[noreturn]] void fail(const std::string& path, int why) { fail(path, std::error_code(why, std::generic_category())); }

/// What earlier writers of the same file left more than a day before `now`, the clock of the file system itself.
void removeLeftovers(const fs::path& folder, const std::string& beginning, time_t now)
{
    constexpr time_t day = 24 * 60 * 60;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (!IsNameByChance(entry->path().filename().string(), beginning)) continue;
        struct stat status {};
        if (::lstat(entry->path().c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_mtime < now - day)
            ::unlink(entry->path().c_str());
    }
}

/// The new bytes beside the old ones, gone with this object unless they have taken the place of the file.
class Beside {
public:
    Beside(const fs::path& file, mode_t mode) : m_file(file)
    {
        const auto beginning = TemporaryNames(file);
        for (int i = 0; !m_opened && (i == 0 || (errno == EEXIST && i < 100)); ++i) {
            m_path = FolderOf(file) / NameByChance(beginning);
            m_opened.emplace(m_path, O_WRONLY | O_CREAT | O_EXCL, mode);
            if (!*m_opened) m_opened.reset();
        }
        struct stat status {};
        if (m_opened && m_opened->look(status)) removeLeftovers(FolderOf(file), beginning, status.st_mtime);
    }
    ~Beside()
    {
        if (m_opened) ::unlink(m_path.c_str());
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    explicit operator bool() const { return m_opened.has_value(); }
    bool take(const struct stat& old) const { return takeOwner(old) && takeRights(old); }
    bool write(const PiecesOfFile& next)
    {
        for (auto piece = next(); !piece.empty(); piece = next())
            if (!m_opened->write(piece)) return false;
        return m_opened->flush() && m_opened->close();
    }
    bool replace()
    {
        if (::rename(m_path.c_str(), m_file.c_str()) != 0) return false;
        m_opened.reset();
        return true;
    }

private:
    /// There are file systems without rights or owners of their own, and users who may not give a file away.
    static bool unlessUnknownHere(int result)
    {
        return result == 0 || errno == EPERM || errno == ENOTSUP || errno == EOPNOTSUPP || errno == ENOSYS;
    }
    bool takeOwner(const struct stat& old) const
    {
        struct stat mine {};
        if (!m_opened->look(mine)) return false;
        const bool otherUser = mine.st_uid != old.st_uid && ::geteuid() == 0;
        if (!otherUser && mine.st_gid == old.st_gid) return true;
        const uid_t sameUser = static_cast<uid_t>(-1);
        return unlessUnknownHere(::fchown(m_opened->number(), otherUser ? old.st_uid : sameUser, old.st_gid));
    }
    bool takeRights(const struct stat& old) const
    {
        struct stat mine {};
        if (!m_opened->look(mine)) return false;
        const mode_t rights = old.st_mode & 07777;
        return (mine.st_mode & 07777) == rights || unlessUnknownHere(::fchmod(m_opened->number(), rights));
    }

    fs::path m_file, m_path;
    std::optional<Descriptor> m_opened;
};

void flushFolder(const fs::path& folder)
{
    if (const Descriptor opened(folder, O_RDONLY | O_DIRECTORY); opened) opened.flush();
}

/// A reader that leaves a pipe early is a failed write, not the end of the program.
class WithoutPipeSignal {
public:
    WithoutPipeSignal()
    {
        sigset_t pending;
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        sigpending(&pending);
        m_wasPending = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    ~WithoutPipeSignal()
    {
        const int why = errno;
        const timespec now{};
        if (!m_wasPending) sigtimedwait(&m_pipe, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        errno = why;
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;

private:
    sigset_t m_pipe, m_before;
    bool m_wasPending;
};

void writeStraight(const std::string& path, const PiecesOfFile& next)
{
    const WithoutPipeSignal quiet;
    Descriptor file(filePath(path), O_WRONLY);
    if (!file) fail(path, errno);
    for (auto piece = next(); !piece.empty(); piece = next())
        if (!file.write(piece)) fail(path, errno);
    if (!file.close()) fail(path, errno);
}

/// The file at the end of all links, where it may be replaced.
fs::path replaceable(const std::string& path, struct stat& old)
{
    std::error_code error;
    const auto real = fs::canonical(filePath(path), error);
    if (error) fail(path, error);
    // No right to write at all keeps everybody out, root too: somebody has protected the file.
    if ((old.st_mode & 0222) == 0) fail(path, EACCES);
    const Descriptor opened(real, O_RDWR | O_NONBLOCK);
    if (!opened || !opened.look(old)) fail(path, errno);
    return real;
}

}  // namespace

void ReplaceWhole(const std::string& path, const PiecesOfFile& next, bool straight)
{
    struct stat old {};
    const int why = lookFollowingLinks(filePath(path), old);
    if (why != 0 && why != ENOENT) fail(path, why);
    const bool exists = why == 0;
    fs::path file = filePath(path);
    if (exists) {
        if (S_ISDIR(old.st_mode)) fail(path, EISDIR);
        if (!S_ISREG(old.st_mode)) return straight ? writeStraight(path, next) : fail(path, EINVAL);
        file = replaceable(path, old);
    }
    const SignalsHeld held;
    Beside beside(file, exists ? old.st_mode & 0777 : 0666);
    if (!beside || (exists && !beside.take(old)) || !beside.write(next) || !beside.replace()) fail(path, errno);
    flushFolder(FolderOf(file));
}
