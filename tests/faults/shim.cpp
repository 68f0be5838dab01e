// See Shim.h. Each function of the C library that opens, looks at, reads, writes, flushes, renames, makes or removes
// something stands here under its own name and hands the call on to the next library.

#include "faults/Shim.h"
#include "faults/Errors.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Faults {
    bool armed = false, inside = false;
    char root[4096] = {}, hit[4200] = {};
    std::size_t rootLength = 0;
    long count = 0, at = 0;
    int error = 0, report = -1;
    int tornFd = -1;  ///< the write before stopped half way for want of room: the next one on it finds none
    void (*changed)() = nullptr;
} state;

/// What a call works on: a path from a folder, or an open file.
struct Place {
    int folder;
    const char* path;  ///< nullptr: the open file itself
};
Place at(const char* path) { return {AT_FDCWD, path}; }
Place at(int folder, const char* path) { return {folder, path}; }
Place open(int fd) { return {fd, nullptr}; }

/// The absolute path of an open file or, for AT_FDCWD, of the working folder.
bool pathOf(int fd, char* to, std::size_t size)
{
    char link[64] = "/proc/self/cwd";
    if (fd != AT_FDCWD) std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    const long length = syscall(SYS_readlinkat, AT_FDCWD, link, to, size - 1);
    to[length > 0 ? length : 0] = 0;
    return length > 0;
}

bool absolute(Place place, char* to, std::size_t size)
{
    if (!place.path) return pathOf(place.folder, to, size);
    to[0] = 0;
    if (place.path[0] != '/' && !pathOf(place.folder, to, size)) return false;
    const auto length = std::strlen(to);
    std::snprintf(to + length, size - length, "%s%s", length ? "/" : "", place.path);
    return true;
}

bool below(const char* path)
{
    return std::strncmp(path, state.root, state.rootLength) == 0 &&
           (path[state.rootLength] == '/' || path[state.rootLength] == 0);
}

void report()
{
    if (state.report < 0) return;
    char line[4300];
    const int length = std::snprintf(line, sizeof line, "%ld %s\n", state.count, state.hit);
    syscall(SYS_pwrite64, state.report, line, length, 0L);
}

/// One call: counted if it concerns the folder; fails() tells that it is the one that fails, with errno set.
class Call {
public:
    Call(const char* kind, Place place)
    {
        if (!state.armed || state.inside) return;
        const int before = errno;
        char path[4200];
        m_ours = absolute(place, path, sizeof path) && below(path);
        errno = before;
        if (!m_ours) return;
        ++state.count;
        m_fails = state.count == state.at;
        if (m_fails) {
            std::snprintf(state.hit, sizeof state.hit, "%s %.4000s", kind, path);
            report();
            if (state.error == 0) syscall(SYS_kill, getpid(), SIGKILL);
            errno = state.error == faults::kUsual ? faults::usualError(kind) : state.error;
        } else {
            report();
        }
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    bool fails() const { return m_fails; }
    bool ours() const { return m_ours; }
    /// Hands the result on; where something has changed, whoever wants to know is told.
    template <class Result>
    Result changed(Result result) const
    {
        if (m_ours && result == Result{} && state.changed) {
            const int before = errno;
            state.inside = true;
            state.changed();
            state.inside = false;
            errno = before;
        }
        return result;
    }

private:
    bool m_ours = false, m_fails = false;
};

template <class Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// Copies the folder as it is now beside the copies made before.
void keepState()
{
    static const char* const kept = std::getenv("VM_FAULTS_STATES");
    static int number = 0;
    char to[4200];
    std::snprintf(to, sizeof to, "%.4000s/%d", kept, ++number);
    const char* const words[] = {"cp", "-r", state.root, to, nullptr};
    const char* const environment[] = {"LC_ALL=C.UTF-8", nullptr};
    pid_t copier = 0;
    if (posix_spawn(&copier, "/bin/cp", nullptr, nullptr, const_cast<char**>(words), const_cast<char**>(environment)) ==
        0)
        waitpid(copier, nullptr, 0);
}

__attribute__((constructor)) void armByEnvironment()
{
    const char* root = std::getenv("VM_FAULTS_ROOT");
    if (!root) return;
    if (const char* file = std::getenv("VM_FAULTS_REPORT"))
        state.report =
            static_cast<int>(syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    const char *n = std::getenv("VM_FAULTS_AT"), *error = std::getenv("VM_FAULTS_ERROR");
    vmFaultsArm(root, n ? std::atol(n) : 0, error ? std::atoi(error) : EIO);
    if (std::getenv("VM_FAULTS_STATES")) state.changed = keepState;
    report();
}

}  // namespace

// The next library's function of the same name and type.
#define NEXT(name, ...) static const auto real = next<__VA_ARGS__>(#name)

extern "C" {

void vmFaultsArm(const char* root, long at, int error)
{
    std::snprintf(state.root, sizeof state.root, "%s", root);
    state.rootLength = std::strlen(state.root);
    state.hit[0] = 0;
    state.count = 0;
    state.at = at;
    state.error = error;
    state.tornFd = -1;
    state.armed = true;
}
long vmFaultsDisarm()
{
    state.armed = false;
    return state.count;
}
const char* vmFaultsHit() { return state.hit; }
void vmFaultsOnChange(void (*changed)()) { state.changed = changed; }

// Opening. ------------------------------------------------------------------------------------------------------------
#define OPEN(name, params, place, ...)                                                                                 \
    int name params                                                                                                    \
    {                                                                                                                  \
        NEXT(name, int(*) params);                                                                                     \
        mode_t mode = 0;                                                                                               \
        if (flags & (O_CREAT | O_TMPFILE)) {                                                                           \
            va_list rest;                                                                                              \
            va_start(rest, flags);                                                                                     \
            mode = va_arg(rest, mode_t);                                                                               \
            va_end(rest);                                                                                              \
        }                                                                                                              \
        const Call call("open", place);                                                                                \
        return call.fails() ? -1 : real(__VA_ARGS__, mode);                                                            \
    }
OPEN(open, (const char* path, int flags, ...), at(path), path, flags)
OPEN(open64, (const char* path, int flags, ...), at(path), path, flags)
OPEN(openat, (int folder, const char* path, int flags, ...), at(folder, path), folder, path, flags)
OPEN(openat64, (int folder, const char* path, int flags, ...), at(folder, path), folder, path, flags)

// A call that gives `bad` where it fails.
#define PLAIN(kind, result, bad, name, params, noexcept_, place, ...)                                                  \
    result name params noexcept_                                                                                       \
    {                                                                                                                  \
        NEXT(name, result(*) params);                                                                                  \
        const Call call(kind, place);                                                                                  \
        return call.fails() ? bad : real(__VA_ARGS__);                                                                 \
    }
// A call that gives 0 where it has changed something.
#define CHANGE(kind, name, params, noexcept_, place, ...)                                                              \
    int name params noexcept_                                                                                          \
    {                                                                                                                  \
        NEXT(name, int(*) params);                                                                                     \
        const Call call(kind, place);                                                                                  \
        return call.fails() ? -1 : call.changed(real(__VA_ARGS__));                                                    \
    }

int __open_2(const char* path, int flags);
int __open64_2(const char* path, int flags);
int __openat_2(int folder, const char* path, int flags);
int __openat64_2(int folder, const char* path, int flags);
PLAIN("open", int, -1, __open_2, (const char* path, int flags), , at(path), path, flags)
PLAIN("open", int, -1, __open64_2, (const char* path, int flags), , at(path), path, flags)
PLAIN("open", int, -1, __openat_2, (int folder, const char* path, int flags), , at(folder, path), folder, path, flags)
PLAIN("open", int, -1, __openat64_2, (int folder, const char* path, int flags), , at(folder, path), folder, path, flags)
PLAIN("open", int, -1, creat, (const char* path, mode_t mode), , at(path), path, mode)
PLAIN("open", int, -1, creat64, (const char* path, mode_t mode), , at(path), path, mode)
PLAIN("open", FILE*, nullptr, fopen, (const char* path, const char* mode), , at(path), path, mode)
PLAIN("open", FILE*, nullptr, fopen64, (const char* path, const char* mode), , at(path), path, mode)
PLAIN("open", FILE*, nullptr, freopen, (const char* path, const char* mode, FILE* file), , at(path), path, mode, file)
PLAIN("open", int, -1, mkstemp, (char* path), , at(path), path)
PLAIN("open", int, -1, mkstemp64, (char* path), , at(path), path)
PLAIN("open", int, -1, mkostemp, (char* path, int flags), , at(path), path, flags)
PLAIN("open", int, -1, mkostemp64, (char* path, int flags), , at(path), path, flags)
PLAIN("open", FILE*, nullptr, fdopen, (int fd, const char* mode), noexcept, open(fd), fd, mode)
PLAIN("open", DIR*, nullptr, opendir, (const char* path), , at(path), path)
PLAIN("open", DIR*, nullptr, fdopendir, (int fd), , open(fd), fd)

// Looking. ------------------------------------------------------------------------------------------------------------
using Stat = struct stat;
using Stat64 = struct stat64;
using Statx = struct statx;
PLAIN("stat", int, -1, stat, (const char* path, Stat* to), noexcept, at(path), path, to)
PLAIN("stat", int, -1, lstat, (const char* path, Stat* to), noexcept, at(path), path, to)
PLAIN("stat", int, -1, fstat, (int fd, Stat* to), noexcept, open(fd), fd, to)
PLAIN("stat", int, -1, fstatat, (int folder, const char* path, Stat* to, int flags), noexcept, at(folder, path), folder,
      path, to, flags)
PLAIN("stat", int, -1, stat64, (const char* path, Stat64* to), noexcept, at(path), path, to)
PLAIN("stat", int, -1, lstat64, (const char* path, Stat64* to), noexcept, at(path), path, to)
PLAIN("stat", int, -1, fstat64, (int fd, Stat64* to), noexcept, open(fd), fd, to)
PLAIN("stat", int, -1, fstatat64, (int folder, const char* path, Stat64* to, int flags), noexcept, at(folder, path),
      folder, path, to, flags)
PLAIN("stat", int, -1, statx, (int folder, const char* path, int flags, unsigned mask, Statx* to), noexcept,
      (*path ? at(folder, path) : open(folder)), folder, path, flags, mask, to)
PLAIN("stat", int, -1, access, (const char* path, int mode), noexcept, at(path), path, mode)
PLAIN("stat", int, -1, faccessat, (int folder, const char* path, int mode, int flags), noexcept, at(folder, path),
      folder, path, mode, flags)
PLAIN("stat", int, -1, euidaccess, (const char* path, int mode), noexcept, at(path), path, mode)
PLAIN("stat", ssize_t, -1, readlink, (const char* path, char* to, std::size_t size), noexcept, at(path), path, to, size)
PLAIN("stat", char*, nullptr, realpath, (const char* path, char* to), noexcept, at(path), path, to)

// Reading and writing. ------------------------------------------------------------------------------------------------
PLAIN("read", ssize_t, -1, read, (int fd, void* to, std::size_t size), , open(fd), fd, to, size)
PLAIN("read", ssize_t, -1, pread, (int fd, void* to, std::size_t size, off_t from), , open(fd), fd, to, size, from)
PLAIN("read", ssize_t, -1, pread64, (int fd, void* to, std::size_t size, off64_t from), , open(fd), fd, to, size, from)
PLAIN("read", ssize_t, -1, readv, (int fd, const struct iovec* to, int count), , open(fd), fd, to, count)
ssize_t __read_chk(int fd, void* to, std::size_t size, std::size_t room);
PLAIN("read", ssize_t, -1, __read_chk, (int fd, void* to, std::size_t size, std::size_t room), , open(fd), fd, to, size,
      room)
PLAIN("read", struct dirent*, nullptr, readdir, (DIR * folder), , open(dirfd(folder)), folder)
PLAIN("read", struct dirent64*, nullptr, readdir64, (DIR * folder), , open(dirfd(folder)), folder)

/// A disk that fills up takes what fits and refuses the rest.
ssize_t write(int fd, const void* bytes, std::size_t size)
{
    NEXT(write, ssize_t(*)(int, const void*, std::size_t));
    const Call call("write", open(fd));
    if (call.ours() && fd == state.tornFd) {
        errno = ENOSPC;
        return -1;
    }
    if (!call.fails()) return real(fd, bytes, size);
    if (errno != ENOSPC || size < 2) return -1;
    state.tornFd = fd;
    return real(fd, bytes, size / 2);
}
PLAIN("write", ssize_t, -1, pwrite, (int fd, const void* bytes, std::size_t size, off_t to), , open(fd), fd, bytes,
      size, to)
PLAIN("write", ssize_t, -1, pwrite64, (int fd, const void* bytes, std::size_t size, off64_t to), , open(fd), fd, bytes,
      size, to)
PLAIN("write", ssize_t, -1, writev, (int fd, const struct iovec* from, int count), , open(fd), fd, from, count)
PLAIN("write", int, -1, ftruncate, (int fd, off_t size), noexcept, open(fd), fd, size)
PLAIN("write", int, -1, ftruncate64, (int fd, off64_t size), noexcept, open(fd), fd, size)
PLAIN("fsync", int, -1, fsync, (int fd), , open(fd), fd)
PLAIN("fsync", int, -1, fdatasync, (int fd), , open(fd), fd)

/// A close that fails has closed all the same.
int close(int fd)
{
    NEXT(close, int (*)(int));
    const Call call("close", open(fd));
    const int error = errno, closed = real(fd);
    if (fd == state.tornFd) state.tornFd = -1;
    if (!call.fails()) return call.changed(closed);
    errno = error;
    return -1;
}

// Rights, names, folders. ---------------------------------------------------------------------------------------------
PLAIN("chmod", int, -1, fchmod, (int fd, mode_t mode), noexcept, open(fd), fd, mode)
PLAIN("chmod", int, -1, chmod, (const char* path, mode_t mode), noexcept, at(path), path, mode)
PLAIN("chmod", int, -1, fchmodat, (int folder, const char* path, mode_t mode, int flags), noexcept, at(folder, path),
      folder, path, mode, flags)
PLAIN("chmod", int, -1, fchown, (int fd, uid_t user, gid_t group), noexcept, open(fd), fd, user, group)
PLAIN("chmod", int, -1, chown, (const char* path, uid_t user, gid_t group), noexcept, at(path), path, user, group)
CHANGE("rename", rename, (const char* from, const char* to), noexcept, at(to), from, to)
CHANGE("rename", renameat, (int from, const char* name, int folder, const char* to), noexcept, at(folder, to), from,
       name, folder, to)
CHANGE("rename", renameat2, (int from, const char* name, int folder, const char* to, unsigned flags), noexcept,
       at(folder, to), from, name, folder, to, flags)
CHANGE("rename", link, (const char* from, const char* to), noexcept, at(to), from, to)
CHANGE("rename", linkat, (int from, const char* name, int folder, const char* to, int flags), noexcept, at(folder, to),
       from, name, folder, to, flags)
CHANGE("rename", symlink, (const char* from, const char* to), noexcept, at(to), from, to)
CHANGE("unlink", unlink, (const char* path), noexcept, at(path), path)
CHANGE("unlink", unlinkat, (int folder, const char* path, int flags), noexcept, at(folder, path), folder, path, flags)
CHANGE("unlink", remove, (const char* path), noexcept, at(path), path)
CHANGE("unlink", rmdir, (const char* path), noexcept, at(path), path)
CHANGE("mkdir", mkdir, (const char* path, mode_t mode), noexcept, at(path), path, mode)
CHANGE("mkdir", mkdirat, (int folder, const char* path, mode_t mode), noexcept, at(folder, path), folder, path, mode)

}  // extern "C"
