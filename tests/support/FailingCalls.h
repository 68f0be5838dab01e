#pragma once
// Lets calls of the operating system fail in the test's own process: this header's functions stand before those of the
// C library; on Windows those of FailingCallsWindows.cpp do. Without a FailingCalls alive they only pass on.
//
//     const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#ifndef _WIN32
#include <cstdarg>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

struct Call {
    std::string_view name;
    std::string_view path = {};  ///< "" for a call on an open file
    int flags = 0;               ///< of open
};

class FailingCalls {
public:
    /// 0 lets the call through; anything else is the errno that it fails with.
    using Answer = std::function<int(const Call&)>;

    explicit FailingCalls(Answer answer) { current = std::move(answer); }
    ~FailingCalls() { current = nullptr; }
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    static bool alive() { return current && !asking; }
    static bool fails(const Call& call)
    {
        if (!alive()) return false;
        const struct Asking {  // what the test itself does in its answer goes through
            Asking() { asking = true; }
            ~Asking() { asking = false; }
        } guard;
        const int why = current(call);
        if (why != 0) errno = why;
        return why != 0;
    }

private:
    static inline Answer current;
    static inline bool asking = false;
};

#ifndef _WIN32

namespace failing_calls {
template <class Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
}  // namespace failing_calls

extern "C" {

[[gnu::used]] inline int open(const char* path, int flags, ...)
{
    mode_t mode = 0;
    if (flags & O_CREAT) {
        va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    static auto* const real = failing_calls::next<int(const char*, int, ...)>("open");
    return FailingCalls::fails({"open", path, flags}) ? -1 : real(path, flags, mode);
}

#define VM_FAILING_CALL(result, name, parameters, arguments, call)                                                     \
    [[gnu::used]] inline result name parameters                                                                        \
    {                                                                                                                  \
        static auto* const real = failing_calls::next<result parameters>(#name);                                       \
        return FailingCalls::fails(call) ? -1 : real arguments;                                                        \
    }

VM_FAILING_CALL(int, stat, (const char* path, struct stat* status) noexcept, (path, status), (Call{"stat", path}))
VM_FAILING_CALL(int, lstat, (const char* path, struct stat* status) noexcept, (path, status), (Call{"lstat", path}))
VM_FAILING_CALL(int, fstat, (int fd, struct stat* status) noexcept, (fd, status), (Call{"fstat"}))
VM_FAILING_CALL(int, fchmod, (int fd, mode_t mode) noexcept, (fd, mode), (Call{"fchmod"}))
VM_FAILING_CALL(int, fchown, (int fd, uid_t user, gid_t group) noexcept, (fd, user, group), (Call{"fchown"}))
VM_FAILING_CALL(int, rename, (const char* from, const char* to) noexcept, (from, to), (Call{"rename", to}))
VM_FAILING_CALL(ssize_t, read, (int fd, void* bytes, size_t count), (fd, bytes, count), (Call{"read"}))
VM_FAILING_CALL(ssize_t, write, (int fd, const void* bytes, size_t count), (fd, bytes, count), (Call{"write"}))
VM_FAILING_CALL(int, fsync, (int fd), (fd), (Call{"fsync"}))
VM_FAILING_CALL(int, close, (int fd), (fd), (Call{"close"}))
VM_FAILING_CALL(int, remove, (const char* path) noexcept, (path), (Call{"remove", path}))
VM_FAILING_CALL(int, mkdir, (const char* path, mode_t mode) noexcept, (path, mode), (Call{"mkdir", path}))

#undef VM_FAILING_CALL
}

#endif
