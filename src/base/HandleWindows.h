#pragma once
// An open file of Windows. Failures are a false and the system's number; the caller decides what they mean.

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <windows.h>

/// What failed last, by the system's own number.
inline std::error_code lastFailure() { return {static_cast<int>(GetLastError()), std::system_category()}; }

class Handle {
public:
    /// Others may go on reading, writing and deleting.
    Handle(const std::filesystem::path& path, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : m_handle(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               disposition, flags, nullptr))
    {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    explicit operator bool() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_handle; }
    /// Neither a device nor a pipe.
    bool isOnDisk() const { return GetFileType(m_handle) == FILE_TYPE_DISK; }

    /// Everything up to the end is appended to `bytes`.
    bool read(std::string& bytes) const
    {
        char block[65536];
        while (true) {
            DWORD got = 0;
            if (!ReadFile(m_handle, block, sizeof block, &got, nullptr)) return GetLastError() == ERROR_BROKEN_PIPE;
            if (got == 0) return true;
            bytes.append(block, got);
        }
    }
    bool write(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto next = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20));
            if (!WriteFile(m_handle, bytes.data(), next, &written, nullptr)) return false;
            if (written == 0) SetLastError(ERROR_WRITE_FAULT);
            if (written == 0) return false;
            bytes.remove_prefix(written);
        }
        return true;
    }
    /// What was written is on the disk, or where the file lies nobody can say: some file systems know of no such thing,
    /// and some servers allow it to nobody. Any other failure is of the bytes themselves.
    bool flush() const
    {
        if (FlushFileBuffers(m_handle)) return true;
        const DWORD why = GetLastError();
        if (why == ERROR_INVALID_FUNCTION || why == ERROR_NOT_SUPPORTED || why == ERROR_CALL_NOT_IMPLEMENTED)
            return true;
        if (why == ERROR_ACCESS_DENIED && isOnNetwork()) return true;
        SetLastError(why);
        return false;
    }
    /// The file at the end of all links, from its drive or server on; "" where the system cannot tell.
    std::wstring finalName() const
    {
        std::wstring name(32768, L'\0');
        const DWORD size = GetFinalPathNameByHandleW(m_handle, name.data(), static_cast<DWORD>(name.size()), 0);
        name.resize(size < name.size() ? size : 0);
        return name;
    }
    bool isOnNetwork() const { return finalName().starts_with(LR"(\\?\UNC\)"); }
    bool close()
    {
        const HANDLE handle = std::exchange(m_handle, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
    }

private:
    HANDLE m_handle;
};

/// The attributes of what stands at the path, links followed. What is below a file is not missing: that is
/// errc::not_a_directory, as elsewhere; nor is a link that leads nowhere.
/// @returns nothing failed, errc::no_such_file_or_directory for missing alone, or the failure
std::error_code attributesOf(const std::filesystem::path& path, DWORD& attributes);
