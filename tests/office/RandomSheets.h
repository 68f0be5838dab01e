#pragma once
// Sheets of random values, looks and sizes; the same seed gives the same sheet.

#include "office/Worksheet.h"
#include "office/XlsReader.h"

#include <bit>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>

namespace random_sheets {

class Random {
public:
    explicit Random(unsigned seed) : m_source(seed) {}
    int below(int end) { return static_cast<int>(m_source() % static_cast<unsigned>(end)); }
    bool once(int in) { return below(in) == 0; }
    template <class T>
    T oneOf(std::initializer_list<T> items)
    {
        return items.begin()[below(static_cast<int>(items.size()))];
    }

    std::string character()
    {
        const int kind = below(5);
        if (kind == 0) return std::string(1, static_cast<char>(32 + below(95)));
        if (kind == 1) return utf8(static_cast<unsigned>(0x10000 + below(0x100000)));
        if (kind == 2) return utf8(static_cast<unsigned>(0x4E00 + below(0x5000)));
        unsigned any = static_cast<unsigned>(1 + below(0xFFFF));
        if (any >= 0xD800 && any < 0xE000) any -= 0x800;
        return utf8(any);
    }
    std::string text()
    {
        const int length = once(300) ? below(9000) : below(12);
        std::string text;
        const bool narrow = once(3);
        for (int i = 0; i < length; ++i) text += narrow ? utf8(static_cast<unsigned>(1 + below(255))) : character();
        return text;
    }
    double number()
    {
        switch (below(7)) {
        case 0:
            return -0.0;
        case 1:
            return below(2000000) - 1000000;
        case 2:
            return (below(2000000) - 1000000) / 100.0;
        case 3:
            return (below(2000000000) - 1000000000) / 1000.0;
        case 4:
            return below(2) ? 536870911.0 + below(3) : -536870911.0 - below(3);
        default:
            break;
        }
        const auto bits = std::uint64_t(m_source()) << 32 | m_source();
        const auto any = std::bit_cast<double>(bits);
        return std::isfinite(any) ? any : std::numeric_limits<double>::denorm_min();
    }
    CellRange range(int rows, int cols)
    {
        return {{1 + below(rows), 1 + below(cols)}, {1 + below(rows), 1 + below(cols)}};
    }

private:
    std::mt19937 m_source;

    static std::string utf8(unsigned character)
    {
        if (character < 0x10000) return xls::utf8({character});
        return xls::utf8({0xD7C0 + (character >> 10), 0xDC00 + (character & 0x3FF)});
    }
};

inline void format(Worksheet& sheet, Random& random, int rows, int cols)
{
    const int kind = random.below(11);
    const bool wholeColumns = kind < 8 && random.once(10);
    const auto range = wholeColumns ? CellRange(1, 1 + random.below(cols), kSheetRows, 1 + random.below(cols))
                                    : random.range(rows, cols);
    switch (kind) {
    case 0:
        sheet.setNumberFormat(range, random.oneOf({"@", "General", "0.00", "0.0000", "\"桩\"0"}));
        break;
    case 1:
        sheet.setFont(range, random.oneOf({"宋体", "黑体", "Arial"}), random.oneOf({9.0, 10.5, 12.0, 20.0}));
        break;
    case 2:
        sheet.setBold(range, random.once(2));
        break;
    case 3:
        sheet.setItalic(range, random.once(2));
        break;
    case 4:
        sheet.setHorizontalAlignment(range, random.oneOf<int>({xlGeneral, xlLeft, xlCenter, xlRight}));
        break;
    case 5:
        sheet.setVerticalAlignment(range, random.oneOf<int>({xlTop, xlCenter, xlBottom}));
        break;
    case 6:
        sheet.setWrapText(range, random.once(2));
        break;
    case 7:
        sheet.setInterior(range, 1 + random.below(56), random.oneOf<int>({xlSolid, xlNone}));
        break;
    case 8:
        sheet.borders(range, xlDiagonalDown + random.below(2), random.once(2) ? xlNone : xlContinuous);
        break;
    default:
        sheet.borders(range, xlEdgeLeft + random.below(6), random.once(5) ? xlNone : xlContinuous,
                      random.oneOf<int>({xlHairline, xlThin, xlMedium, xlThick}),
                      random.once(2) ? xlColorIndexAutomatic : 1 + random.below(56));
    }
}

inline Worksheet sheet(unsigned seed)
{
    Random random(seed);
    Worksheet sheet;
    const int rows = random.once(20) ? 1 + random.below(100) : 1 + random.below(6);
    const int cols = 1 + random.below(6);
    for (int step = random.below(8); step > 0; --step) format(sheet, random, rows, cols);
    for (int row = 1; row <= rows; ++row)
        for (int col = 1; col <= cols; ++col) {
            const CellRef cell(row, col);
            const int kind = random.below(4);
            if (kind == 0) sheet.setNumber(cell, random.number());
            if (kind == 1) sheet.setText(cell, random.text());
            if (kind == 2) sheet.setValue(cell, random.oneOf({"12.50", "K1+200.000", "-0.004", "左", ""}));
        }
    if (random.once(3)) sheet.merge(random.range(rows, cols));
    if (random.once(3)) sheet.setRowHeight({1 + random.below(rows), 1}, random.below(800) / 20.0);
    if (random.once(3)) sheet.setColumnWidth(random.range(rows, cols), random.below(60));
    if (random.once(3)) sheet.page = {random.below(9) / 8.0, 0.5, 1, 1.25, 0.3, 0.4, random.once(2), random.once(2)};
    if (random.once(3)) sheet.select(random.range(rows, cols));
    return sheet;
}

}  // namespace random_sheets
