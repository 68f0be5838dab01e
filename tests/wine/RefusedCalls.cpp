#include "RefusedCalls.h"

namespace {

template <class Function>
Function* system(const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

HANDLE WINAPI createFile(LPCWSTR path, DWORD access, DWORD sharing, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                         DWORD flags, HANDLE like)
{
    if (RefusedCalls::fails({.name = "CreateFileW", .path = path, .access = access})) return INVALID_HANDLE_VALUE;
    return system<decltype(CreateFileW)>("CreateFileW")(path, access, sharing, security, disposition, flags, like);
}

DWORD WINAPI attributes(LPCWSTR path)
{
    if (RefusedCalls::fails({.name = "GetFileAttributesW", .path = path})) return INVALID_FILE_ATTRIBUTES;
    return system<decltype(GetFileAttributesW)>("GetFileAttributesW")(path);
}

BOOL WINAPI flush(HANDLE file)
{
    return !RefusedCalls::fails({.name = "FlushFileBuffers"}) &&
           system<decltype(FlushFileBuffers)>("FlushFileBuffers")(file);
}

BOOL WINAPI move(LPCWSTR from, LPCWSTR to, DWORD how)
{
    return !RefusedCalls::fails({.name = "MoveFileExW", .path = from}) &&
           !RefusedCalls::fails({.name = "MoveFileExW", .path = to}) &&
           system<decltype(MoveFileExW)>("MoveFileExW")(from, to, how);
}

DWORD WINAPI finalName(HANDLE file, LPWSTR name, DWORD room, DWORD how)
{
    const auto& told = RefusedCalls::finalName;
    if (told.empty() || told.size() >= room)
        return system<decltype(GetFinalPathNameByHandleW)>("GetFinalPathNameByHandleW")(file, name, room, how);
    name[told.copy(name, told.size())] = L'\0';
    return static_cast<DWORD>(told.size());
}

}  // namespace

// Where a program for Windows looks up what it calls of a library: defined here, the linker asks the library for none.
extern "C" {
decltype(&CreateFileW) __imp_CreateFileW = createFile;
decltype(&GetFileAttributesW) __imp_GetFileAttributesW = attributes;
decltype(&FlushFileBuffers) __imp_FlushFileBuffers = flush;
decltype(&MoveFileExW) __imp_MoveFileExW = move;
decltype(&GetFinalPathNameByHandleW) __imp_GetFinalPathNameByHandleW = finalName;
}
