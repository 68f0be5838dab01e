#pragma once
// UTF-8 taken apart and put together, in this one place.

#include <cstddef>
#include <string>
#include <string_view>

/// Takes one character off the front of a text that is not empty. Bytes that belong to no character, a lead byte with
/// what follows it at most, are one U+FFFD.
char32_t TakeCharacter(std::string_view& text);

/// Puts a character at the end. @param character  no half of a surrogate pair, at most 10FFFF
void AppendCharacter(std::string& text, char32_t character);

/// Offset of the first byte that belongs to no character, npos where all do.
std::size_t FirstBadByte(std::string_view text);
inline bool IsUtf8(std::string_view text) { return FirstBadByte(text) == std::string_view::npos; }

/// Puts the UTF-16 units of a text into `units` (what it held goes).
void ToUtf16(std::string_view text, std::u16string& units);
inline std::u16string Utf16(std::string_view text)
{
    std::u16string units;
    ToUtf16(text, units);
    return units;
}
