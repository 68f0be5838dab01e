#include "base/Utf8.h"

#include <utf8/checked.h>

#include <iterator>

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

bool isByteWithin(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

char32_t TakeCharacter(std::string_view& text)
{
    auto at = text.begin();
    try {
        const auto character = static_cast<char32_t>(utf8::next(at, text.end()));
        text.remove_prefix(static_cast<std::size_t>(at - text.begin()));
        return character;
    } catch (const utf8::exception&) {
        const bool leads = !isByteWithin(text[0]);
        const auto most = static_cast<unsigned char>(text[0]) >= 0xF0 ? 4u : 3u;
        text.remove_prefix(1);
        for (unsigned taken = 1; leads && taken < most && !text.empty() && isByteWithin(text[0]); ++taken)
            text.remove_prefix(1);
        return kNoCharacter;
    }
}

void AppendCharacter(std::string& text, char32_t character) { utf8::append(character, std::back_inserter(text)); }

std::size_t FirstBadByte(std::string_view text)
{
    const auto bad = utf8::find_invalid(text.begin(), text.end());
    return bad == text.end() ? std::string_view::npos : static_cast<std::size_t>(bad - text.begin());
}

void ToUtf16(std::string_view text, std::u16string& units)
{
    units.clear();
    while (!text.empty()) {
        if (static_cast<unsigned char>(text[0]) < 0x80) {  // most of all texts, and quickly
            units += static_cast<char16_t>(text[0]);
            text.remove_prefix(1);
            continue;
        }
        const auto character = TakeCharacter(text);
        if (character < 0x10000) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD7C0 + (character >> 10));
            units += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
    }
}
