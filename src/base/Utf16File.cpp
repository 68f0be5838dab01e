// UTF-16 text files of the phone program.

#include "base/Utf16File.h"
#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/Utf8.h"

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

void appendUnit(std::string& bytes, char16_t unit)
{
    bytes += static_cast<char>(static_cast<unsigned char>(unit & 0xFF));
    bytes += static_cast<char>(static_cast<unsigned char>(unit >> 8));
}

char32_t narrow(char32_t c)
{
    if (c >= 0xFF01 && c <= 0xFF5E) return c - 0xFEE0;
    if (c == 0x3000) return ' ';
    constexpr char32_t signs[] = {0xA2, 0xA3, 0xAC, 0xAF, 0xA6, 0xA5, 0x20A9};  // of FFE0 to FFE6
    if (c >= 0xFFE0 && c <= 0xFFE6) return signs[c - 0xFFE0];
    return c;
}

bool highSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool lowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

void WriteUtf16File(const std::string& path, std::string_view text)
{
    std::string bytes = "\xFF\xFE";
    bytes.reserve(2 + 2 * text.size());
    for (const char16_t unit : Utf16(text)) appendUnit(bytes, unit);
    WriteBytes(path, bytes);
}

std::string ReadUtf16File(const std::string& path)
{
    const auto bytes = ReadBytes(path);
    const auto unit = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                << 8);
    };
    std::string text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        char32_t c = unit(i);
        if (highSurrogate(c) && i + 3 < bytes.size() && lowSurrogate(unit(i + 2))) {
            c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
            i += 2;
        } else if (highSurrogate(c) || lowSurrogate(c)) {
            c = kNoCharacter;
        }
        AppendCharacter(text, narrow(c));
    }
    return text;
}
