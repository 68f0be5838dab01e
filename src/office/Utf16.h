#pragma once
// UTF-8 to UTF-16, for the file formats that hold UTF-16.

#include <string>
#include <string_view>

/// Puts the UTF-16 units of a UTF-8 text into `units` (what it held goes). A byte that belongs to no character becomes
/// U+FFFD.
void ToUtf16(std::string_view text, std::u16string& units);

inline std::u16string Utf16(std::string_view text)
{
    std::u16string units;
    ToUtf16(text, units);
    return units;
}
