#include "office/StringTable.h"

#include "base/Utf8.h"
#include "office/Biff.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace {

constexpr std::uint16_t kSst = 0x00FC;
constexpr std::uint16_t kContinue = 0x003C;
/// A text's head, and its share of the heads of continuations.
constexpr std::size_t kRoughHead = 4;

}  // namespace

std::uint32_t StringTable::add(std::string_view text)
{
    ++m_uses;
    if (m_slots.size() <= 2 * m_texts.size()) grow();
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
    const auto mask = m_slots.size() - 1;
    auto slot = hash & mask;
    for (; m_slots[slot].number != kFree; slot = (slot + 1) & mask)
        if (m_slots[slot].hash == hash && m_texts[m_slots[slot].number] == text) return m_slots[slot].number;
    m_slots[slot] = {static_cast<std::uint32_t>(m_texts.size()), hash};
    m_texts.push_back(text);
    m_roughBytes += 2 * text.size() + kRoughHead;
    return m_slots[slot].number;
}

void StringTable::grow()
{
    const auto old = std::exchange(m_slots, std::vector<Slot>(std::max<std::size_t>(64, 4 * m_slots.size())));
    const auto mask = m_slots.size() - 1;
    for (const auto& entry : old) {
        if (entry.number == kFree) continue;
        auto slot = entry.hash & mask;
        while (m_slots[slot].number != kFree) slot = (slot + 1) & mask;
        m_slots[slot] = entry;
    }
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
    record->u32(m_uses).u32(m_texts.size());
    const auto nextRecord = [&] {
        record.reset();
        record.emplace(out, kContinue);
    };
    std::u16string units;
    for (const auto text : m_texts) {
        ToUtf16(text, units);
        const std::size_t width = biff::oneByteEach(units) ? 1 : 2;
        if (record->room() < 3 + (width == 2 ? 4 : 1)) nextRecord();
        record->u16(units.size());
        std::u16string_view rest(units);
        while (true) {
            auto part = rest.substr(0, (record->room() - 1) / width);
            if (part.size() < rest.size() && (part.back() & 0xFC00) == 0xD800) part.remove_suffix(1);
            record->characters(part, width == 2);
            rest.remove_prefix(part.size());
            if (rest.empty()) break;
            nextRecord();
        }
    }
}
