#include "base/ReplaceFile.h"

#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/SignalsHeld.h"

#include <cstdint>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include "base/Descriptor.h"

#include <csignal>
#include <cstdio>
#else
#include <fstream>
#endif

namespace fs = std::filesystem;

namespace {

/// The bytes of a file piece by piece; an empty one ends them.
using Pieces = std::function<std::string()>;

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

// Names of temporary files: ".vm", 16 digits that stand for the file's own name, "-", 8 letters by chance, ".tmp".
// Short, so that they fit where the file's own name does, and told from those of any other file.
constexpr std::string_view kAlphabet = "0123456789abcdefghijklmnopqrstuvwxyz", kEnding = ".tmp";
constexpr std::size_t kChance = 8;

std::string beginningFor(const fs::path& file)
{
    std::uint64_t hash = 14695981039346656037u;  // FNV-1a
    for (const unsigned char byte : file.filename().u8string()) hash = (hash ^ byte) * 1099511628211u;
    std::string digits;
    for (int i = 0; i < 16; ++i, hash >>= 4) digits += kAlphabet[hash & 15];
    return ".vm" + digits + "-";
}

std::string nameByChance(const std::string& beginning)
{
    std::random_device chance;
    std::uniform_int_distribution<std::size_t> letter(0, kAlphabet.size() - 1);
    std::string name = beginning;
    for (std::size_t i = 0; i < kChance; ++i) name += kAlphabet[letter(chance)];
    return name.append(kEnding);
}

[[noreturn]] void fail(const std::string& path, std::error_code why) { throw FileError(path, FileError::Writing, why); }

#ifndef _WIN32

[[noreturn]] void fail(const std::string& path, int why) { fail(path, std::error_code(why, std::generic_category())); }

bool isNameByChance(const std::string& name, const std::string& beginning)
{
    return name.size() == beginning.size() + kChance + kEnding.size() && name.starts_with(beginning) &&
           name.ends_with(kEnding) &&
           name.find_first_not_of(kAlphabet, beginning.size()) == name.size() - kEnding.size();
}

/// What earlier writers of the same file left more than a day before `now`, the clock of the file system itself.
void removeLeftovers(const fs::path& folder, const std::string& beginning, time_t now)
{
    constexpr time_t day = 24 * 60 * 60;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (!isNameByChance(entry->path().filename().string(), beginning)) continue;
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
        const auto beginning = beginningFor(file);
        for (int i = 0; !m_opened && (i == 0 || (errno == EEXIST && i < 100)); ++i) {
            m_path = folderOf(file) / nameByChance(beginning);
            m_opened.emplace(m_path, O_WRONLY | O_CREAT | O_EXCL, mode);
            if (!*m_opened) m_opened.reset();
        }
        struct stat status {};
        if (m_opened && m_opened->look(status)) removeLeftovers(folderOf(file), beginning, status.st_mtime);
    }
    ~Beside()
    {
        if (m_opened) ::unlink(m_path.c_str());
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    explicit operator bool() const { return m_opened.has_value(); }
    bool take(const struct stat& old) const { return takeOwner(old) && takeRights(old); }
    bool write(const Pieces& next)
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

void writeStraight(const std::string& path, const Pieces& next)
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

void replace(const std::string& path, const Pieces& next, bool straight)
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
    flushFolder(folderOf(file));
}

#else

void replace(const std::string& path, const Pieces& next, bool)
{
    const auto file = filePath(path);
    std::error_code error;
    if (!fs::is_directory(folderOf(file), error))
        fail(path, std::make_error_code(std::errc::no_such_file_or_directory));
    const auto beside = folderOf(file) / nameByChance(beginningFor(file));
    std::ofstream out(beside, std::ios::binary);
    for (auto piece = next(); !piece.empty(); piece = next())
        out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    out.close();
    if (!out.good()) error = std::make_error_code(std::errc::io_error);
    if (!error) fs::rename(beside, file, error);
    if (!error) return;
    std::error_code ignored;
    fs::remove(beside, ignored);
    fail(path, error);
}

#endif

}  // namespace

namespace {

/// All bytes as one piece.
Pieces once(std::string_view bytes)
{
    return [bytes]() mutable {
        const std::string all(bytes);
        bytes = {};
        return all;
    };
}

}  // namespace

void WriteBytes(const std::string& path, std::string_view bytes) { replace(path, once(bytes), false); }

void WriteResult(const std::string& path, std::string_view bytes) { replace(path, once(bytes), true); }

void WriteResult(const std::string& path, const std::function<std::string()>& next) { replace(path, next, true); }
