#include "office/StringTable.h"

#include "office/Biff.h"
#include "office/Utf16.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::uint16_t kSst = 0x00FC;
constexpr std::uint16_t kContinue = 0x003C;

}  // namespace

std::uint32_t StringTable::add(std::string_view text)
{
    ++m_uses;
    const auto [entry, isNew] = m_numbers.try_emplace(text, static_cast<std::uint32_t>(m_texts.size()));
    if (isNew) m_texts.push_back(text);
    return entry->second;
}

// SST
//   0  4  cells that name a text
//   4  4  texts, then for each
//   0  2  UTF-16 units
//   2  1  flags: 0 one byte a unit, 1 two bytes
//   3     units
// A record that is full goes on in a CONTINUE. A text's head and its first unit stay together, and so do the two bytes
// of a unit; where a text is cut, the CONTINUE begins with the flags byte once more.
void StringTable::write(std::string& out) const
{
    std::optional<biff::Record> record(std::in_place, out, kSst);
    record->u32(m_uses).u32(static_cast<std::uint32_t>(m_texts.size()));
    const auto nextRecord = [&] {
        record.reset();
        record.emplace(out, kContinue);
    };
    std::u16string units;
    for (const auto text : m_texts) {
        ToUtf16(text, units);
        const std::size_t width = biff::oneByteEach(units) ? 1 : 2;
        if (record->room() < 3 + width) nextRecord();
        record->u16(static_cast<std::uint32_t>(units.size()));
        std::u16string_view rest(units);
        while (true) {
            const auto part = rest.substr(0, (record->room() - 1) / width);
            record->characters(part, width == 2);
            rest.remove_prefix(part.size());
            if (rest.empty()) break;
            nextRecord();
        }
    }
}
