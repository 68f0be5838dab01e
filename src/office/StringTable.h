#pragma once
// The texts of a workbook, each kept once; cells name them by number.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class StringTable {
public:
    /// The number of a text, new or known. The text must outlive the table.
    std::uint32_t add(std::string_view text);
    /// Appends the table as an SST record and as many CONTINUE records as it takes.
    void write(std::string& out) const;

private:
    std::unordered_map<std::string_view, std::uint32_t> m_numbers;
    std::vector<std::string_view> m_texts;
    std::uint32_t m_uses = 0;
};
