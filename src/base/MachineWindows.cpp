#include "base/Machine.h"

#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <streambuf>
#include <string_view>
#include <windows.h>

// After windows.h, which they need.
#include <shellapi.h>

namespace fs = std::filesystem;

namespace {

std::string utf8Of(std::wstring_view wide)
{
    const auto convert = [&](char* to, int room) {
        return WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), to, room, nullptr, nullptr);
    };
    std::string text(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(text.data(), static_cast<int>(text.size()));
    return text;
}

std::wstring wideOf(std::string_view text)
{
    const auto convert = [&](wchar_t* to, int room) {
        return MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), to, room);
    };
    std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    convert(wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// Shows UTF-8 in a console as characters: its code page is its user's and stays.
class Console : public std::streambuf {
public:
    explicit Console(HANDLE handle) : m_handle(handle) {}

protected:
    int_type overflow(int_type c) override
    {
        if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
        m_text += traits_type::to_char_type(c);
        return m_text.size() < kMost || show(whole()) ? c : traits_type::eof();
    }
    int sync() override { return show(m_text.size()) ? 0 : -1; }

private:
    static constexpr std::size_t kMost = 4096;  // consoles refuse long texts

    /// Bytes before a character that is not all there.
    std::size_t whole() const
    {
        auto end = m_text.size();
        while (end > 0 && (m_text[end - 1] & 0xC0) == 0x80) --end;
        return end > 0 && (m_text[end - 1] & 0x80) ? end - 1 : m_text.size();
    }
    bool show(std::size_t bytes)
    {
        const auto wide = wideOf(std::string_view(m_text).substr(0, bytes));
        m_text.erase(0, bytes);
        DWORD written = 0;
        return wide.empty() || WriteConsoleW(m_handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
    }

    HANDLE m_handle;
    std::string m_text;
};

/// Lives as long as the process: the streams are used to the very end.
void showInConsole(std::ostream& stream, DWORD which)
{
    DWORD mode = 0;
    const HANDLE handle = GetStdHandle(which);
    if (GetConsoleMode(handle, &mode)) stream.rdbuf(new Console(handle));
}

}  // namespace

std::vector<std::string> ArgumentsOf(int, char**)
{
    int count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i) arguments.push_back(utf8Of(words[i]));
    LocalFree(words);
    return arguments;
}

std::string ProgramFolder(const char*)
{
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    const auto folder = fs::path(name).parent_path().generic_u8string();
    return {folder.begin(), folder.end()};
}

void PrepareStreams()
{
    for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
    showInConsole(std::cout, STD_OUTPUT_HANDLE);
    showInConsole(std::cerr, STD_ERROR_HANDLE);
}

bool IsLink(const fs::path& path)
{
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    // Files that a cloud brings when they are read have such points too, but no name of another place.
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(found.dwReserved0) != 0;
}

void Unprotect(const fs::path& file)
{
    const DWORD attributes = GetFileAttributesW(file.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
        SetFileAttributesW(file.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}
