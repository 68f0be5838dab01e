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
    bool flush() const { return FlushFileBuffers(m_handle) != 0; }
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
