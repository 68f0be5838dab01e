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

private:
    struct Entry {
        std::string_view text;
        std::size_t hash;
    };
    std::vector<Entry> m_entries;
    std::vector<std::uint32_t> m_slots;  // a hash table: number + 1 at the first free slot from the hash on; 0 is free
    std::uint32_t m_uses = 0;

    void grow();
};
