#pragma once
// The texts of a workbook, each kept once; cells name them by number.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class StringTable {
public:
    /// The number of a text, new or known. The text must outlive the table.
    std::uint32_t add(std::string_view text);
    /// Appends the table as an SST record and as many CONTINUE records as it takes.
    void write(std::string& out) const;

    /// About as many bytes as write() appends, rather too many: to reserve room by.
    std::size_t roughBytes() const { return m_roughBytes; }

private:
    struct Slot {
        std::uint32_t number = kFree;
        std::uint32_t hash = 0;
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    std::vector<std::string_view> m_texts;
    std::vector<Slot> m_slots;  // a hash table: a text stands in the first slot that was free from its hash on
    std::uint32_t m_uses = 0;
    std::size_t m_roughBytes = 16;

    void grow();
};
