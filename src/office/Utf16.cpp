#include "office/Utf16.h"

#include <bit>
#include <cstdint>

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

/// Takes one character of more than one byte off the front.
char32_t takeLong(std::string_view& rest)
{
    const auto lead = static_cast<std::uint8_t>(rest[0]);
    rest.remove_prefix(1);
    const int length = std::countl_one(lead);
    if (length < 2 || length > 4) return kNoCharacter;
    char32_t character = lead & (0x7Fu >> length);
    int taken = 1;
    for (; taken < length && !rest.empty() && (rest[0] & 0xC0) == 0x80; ++taken, rest.remove_prefix(1))
        character = character << 6 | (static_cast<std::uint8_t>(rest[0]) & 0x3Fu);
    static constexpr char32_t least[]{0, 0, 0x80, 0x800, 0x10000};
    const bool good = taken == length && character >= least[length] && character <= 0x10FFFF &&
                      !(character >= 0xD800 && character < 0xE000);
    return good ? character : kNoCharacter;
}

}  // namespace

void ToUtf16(std::string_view text, std::u16string& units)
{
    units.clear();
    while (!text.empty()) {
        if (static_cast<std::uint8_t>(text[0]) < 0x80) {
            units += static_cast<char16_t>(text[0]);
            text.remove_prefix(1);
            continue;
        }
        const auto character = takeLong(text);
        if (character < 0x10000) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD7C0 + (character >> 10));
            units += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
    }
}
