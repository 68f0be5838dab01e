// UTF-16 text files of the phone program.

#include "base/Utf16File.h"
#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Takes one character off the front; a broken sequence is U+FFFD and one byte long.
char32_t takeUtf8(std::string_view& text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    char32_t c = length == 1 ? lead : lead & (0x7Fu >> length);
    bool good = length > 0 && length <= text.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        good = (byte(i) & 0xC0) == 0x80;
        c = c << 6 | (byte(i) & 0x3F);
    }
    const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
    if (!good || overlong || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF) {
        text.remove_prefix(1);
        return kReplacement;
    }
    text.remove_prefix(length);
    return c;
}

void appendUtf8(std::string& text, char32_t c)
{
    const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

void appendUnit(std::string& bytes, char32_t unit)
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
    while (!text.empty()) {
        const char32_t c = takeUtf8(text);
        if (c < 0x10000) {
            appendUnit(bytes, c);
        } else {
            appendUnit(bytes, 0xD800 + ((c - 0x10000) >> 10));
            appendUnit(bytes, 0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
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
            c = kReplacement;
        }
        appendUtf8(text, narrow(c));
    }
    return text;
}
