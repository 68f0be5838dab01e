#pragma once
// The fonts, number formats and looks of a workbook, each kept once; cells name a look by its number.

#include "office/Biff.h"

#include <map>
#include <string>
#include <vector>

class StyleTable {
public:
    /// The standard look of a cell. 0 to 14 are styles, which every workbook brings along.
    static constexpr int kStandardCell = 15;

    StyleTable();
    /// The number of a look, new or known. Throws std::length_error past 4,000 of them, the most that readers take.
    int add(const CellStyle& style);
    /// Appends the FONT, FORMAT, XF and STYLE records.
    void write(std::string& out) const;

private:
    struct Look {
        int font, format;
        CellStyle style;
    };
    std::vector<biff::Font> m_fonts;
    std::vector<std::string> m_formats;  // those that are not built in
    std::vector<Look> m_looks;
    std::map<CellStyle, int> m_numbers;

    int fontNumber(const CellStyle& style);
    int formatNumber(const std::string& format);
};
