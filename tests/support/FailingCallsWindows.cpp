// FailingCalls on Windows: what is linked statically calls the system through pointers of the import libraries, and
// these stand before them. The calls have the names, and the failures the reasons, of what does the same elsewhere.

#include "support/FailingCalls.h"

#include <filesystem>
#include <stdexcept>
#include <string>

#include <windows.h>

namespace {

DWORD numberOf(int why)
{
    switch (why) {
    case ENOSPC:
        return ERROR_DISK_FULL;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case EACCES:
    case EPERM:
        return ERROR_ACCESS_DENIED;
    case EEXIST:
        return ERROR_FILE_EXISTS;
    case ELOOP:
        return ERROR_CANT_RESOLVE_FILENAME;
    case EIO:
        return ERROR_IO_DEVICE;
    default:
        throw std::invalid_argument("a reason that Windows has no number for: " + std::to_string(why));
    }
}

bool fails(std::string_view name, const wchar_t* path = nullptr, int flags = 0)
{
    if (!FailingCalls::alive()) return false;
    const DWORD before = GetLastError();
    bool failed = false;
    {
        auto text = path ? std::filesystem::path(path).string() : std::string();
        if (text.starts_with(R"(\\?\)")) text.erase(0, 4);  // says that the name needs no measuring
        failed = FailingCalls::fails({name, text, flags});
    }
    SetLastError(failed ? numberOf(errno) : before);
    return failed;
}

/// The system's own function.
template <class Function>
Function* next(Function*& known, const wchar_t* library, const char* name)
{
    if (!known)
        known = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
    return known;
}

}  // namespace

#define VM_FAILING_CALL(library, result, name, parameters, arguments, failure, failed)                                 \
    static result WINAPI in_front_of_##name parameters                                                                 \
    {                                                                                                                  \
        static result(WINAPI* known) parameters = nullptr;                                                             \
        if (failed) return failure;                                                                                    \
        return next(known, library, #name) arguments;                                                                  \
    }                                                                                                                  \
    extern "C" {                                                                                                       \
    result(WINAPI* __imp_##name) parameters = in_front_of_##name;                                                      \
    }

static int flagsOf(DWORD access, DWORD disposition)
{
    const int how = !(access & GENERIC_WRITE) ? O_RDONLY : access & GENERIC_READ ? O_RDWR : O_WRONLY;
    switch (disposition) {
    case CREATE_NEW:
        return how | O_CREAT | O_EXCL;
    case CREATE_ALWAYS:
    case OPEN_ALWAYS:
        return how | O_CREAT;
    default:
        return how;
    }
}

VM_FAILING_CALL(L"kernel32", HANDLE, CreateFileW,
                (LPCWSTR path, DWORD access, DWORD shared, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                 DWORD attributes, HANDLE like),
                (path, access, shared, security, disposition, attributes, like), INVALID_HANDLE_VALUE,
                fails("open", path, flagsOf(access, disposition)))
VM_FAILING_CALL(L"kernel32", DWORD, GetFileAttributesW, (LPCWSTR path), (path), INVALID_FILE_ATTRIBUTES,
                fails("stat", path))
VM_FAILING_CALL(L"kernel32", BOOL, ReadFile,
                (HANDLE file, LPVOID bytes, DWORD count, LPDWORD got, LPOVERLAPPED overlapped),
                (file, bytes, count, got, overlapped), FALSE, fails("read"))
VM_FAILING_CALL(L"kernel32", BOOL, WriteFile,
                (HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, LPOVERLAPPED overlapped),
                (file, bytes, count, written, overlapped), FALSE, fails("write"))
VM_FAILING_CALL(L"kernel32", BOOL, FlushFileBuffers, (HANDLE file), (file), FALSE, fails("fsync"))
VM_FAILING_CALL(L"kernel32", BOOL, MoveFileExW, (LPCWSTR from, LPCWSTR to, DWORD flags), (from, to, flags), FALSE,
                fails("rename", to))
VM_FAILING_CALL(L"kernel32", BOOL, DeleteFileW, (LPCWSTR path), (path), FALSE, fails("remove", path))
VM_FAILING_CALL(L"kernel32", BOOL, RemoveDirectoryW, (LPCWSTR path), (path), FALSE, fails("remove", path))
VM_FAILING_CALL(L"msvcrt", int, _wmkdir, (const wchar_t* path), (path), -1, fails("mkdir", path))
