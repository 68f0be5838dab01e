// Tests name files by narrow UTF-8 texts, as Linux takes them. The program itself never does; for tests on Windows the
// manifest beside this file makes the C library's narrow names UTF-8, and these functions of the C library make the
// narrow texts of std::filesystem UTF-8.

#include <cstring>
#include <cwchar>

#include <windows.h>

extern "C" {

size_t mbrtowc(wchar_t* wide, const char* text, size_t bytes, mbstate_t*)
{
    if (!text || bytes == 0) return 0;
    const auto first = static_cast<unsigned char>(*text);
    const size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    wchar_t both[2] = {};
    if (length > bytes) return static_cast<size_t>(-2);
    if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, static_cast<int>(length), both, 2) != 1)
        return static_cast<size_t>(-1);
    if (wide) *wide = both[0];
    return both[0] == 0 ? 0 : length;
}

size_t mbrlen(const char* text, size_t bytes, mbstate_t* state) { return mbrtowc(nullptr, text, bytes, state); }

size_t mbsrtowcs(wchar_t* wide, const char** text, size_t room, mbstate_t*)
{
    const int count = MultiByteToWideChar(CP_UTF8, 0, *text, -1, wide, wide ? static_cast<int>(room) : 0);
    if (wide) *text = nullptr;
    return count > 0 ? static_cast<size_t>(count - 1) : static_cast<size_t>(-1);
}

size_t wcrtomb(char* text, wchar_t wide, mbstate_t*)
{
    if (!text) return 1;
    const int count = WideCharToMultiByte(CP_UTF8, 0, &wide, 1, text, 4, nullptr, nullptr);
    return count > 0 ? static_cast<size_t>(count) : static_cast<size_t>(-1);
}

size_t wcsrtombs(char* text, const wchar_t** wide, size_t room, mbstate_t*)
{
    const int count =
        WideCharToMultiByte(CP_UTF8, 0, *wide, -1, text, text ? static_cast<int>(room) : 0, nullptr, nullptr);
    if (text) *wide = nullptr;
    return count > 0 ? static_cast<size_t>(count - 1) : static_cast<size_t>(-1);
}
}
