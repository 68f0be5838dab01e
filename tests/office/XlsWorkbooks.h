#pragma once
// Sheets that the tests write and that other programs read.

#include "office/Worksheet.h"

#include <string>
#include <utility>
#include <vector>

namespace workbooks {

inline void table(Worksheet& sheet, const CellRange& range)
{
    sheet.center(range);
    for (int index = xlEdgeLeft; index <= xlInsideHorizontal; ++index)
        sheet.borders(range, index, xlContinuous, xlThin);
    for (int index = xlEdgeLeft; index <= xlEdgeRight; ++index) sheet.borders(range, index, xlContinuous, xlMedium);
}

/// A table of results as the screens save it.
inline Worksheet exported()
{
    Worksheet sheet;
    sheet.center("A1:D1");
    sheet.merge("A1:D1");
    table(sheet, "A2:D5");
    const double widths[]{6, 14, 14, 14};
    const char* const headers[]{"序号", "里   程", "中 边 桩", "高   程"};
    for (int col = 1; col <= 4; ++col) {
        sheet.setColumnWidth({1, col, 1, col}, widths[col - 1]);
        sheet.setText({2, col}, headers[col - 1]);
    }
    sheet.setText("a1", "青山至白水公路");
    sheet.setNumberFormat("a1:d5", "@");
    const char* const rows[][4]{{"1", "K0+100.000", "中桩", "105.200"},
                                {"2", "K0+120.000", "左10", "105.050"},
                                {"3", "K0+140.500", "右7.5", "-0.004"}};
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 4; ++col) sheet.setValue({row + 3, col + 1}, rows[row][col]);
    return sheet;
}

inline Worksheet texts()
{
    Worksheet sheet;
    sheet.setText("a1", "ASCII");
    sheet.setText("b1", "déjà vu");
    sheet.setText("c1", "里   程");
    sheet.setText("d1", "附　合　导　线　计　算　表");
    sheet.setText("a2", "𠀀丁𪚥");
    sheet.setText("b2", " blanks around ");
    sheet.setText("c2", "two\nlines");
    sheet.setText("d2", "ASCII");
    sheet.setText("a3", "12.5");
    sheet.setText("b3", "= no formula");
    return sheet;
}

inline Worksheet numbers()
{
    Worksheet sheet;
    const double values[]{0,
                          -0.0,
                          1,
                          -1,
                          12.34,
                          0.1,
                          1.0 / 3,
                          3.1415926,
                          536870911,
                          536870912,
                          -536870912,
                          1e-10,
                          -123456.7891,
                          5e-324 * 4,
                          2.2250738585072014e-308,
                          1.7976931348623157e308,
                          1e15,
                          4503599627370497.5};
    int row = 0;
    for (const double value : values) sheet.setNumber({++row, 1}, value);
    return sheet;
}

inline Worksheet typed()
{
    Worksheet sheet;
    sheet.setNumberFormat("b1:b5", "@");
    const char* const values[]{"012.500", "-0.004", "1e3", "K1+200.000", "1,234.5"};
    for (int row = 1; row <= 5; ++row)
        for (int col = 1; col <= 2; ++col) sheet.setValue({row, col}, values[row - 1]);
    return sheet;
}

inline Worksheet merges()
{
    Worksheet sheet;
    sheet.merge("a1:c1");
    sheet.merge("a2:a3");
    sheet.merge("b2:c5");
    sheet.setText("a1", "across");
    sheet.setText("a2", "down");
    sheet.setText("b2", "both");
    return sheet;
}

inline Worksheet alignment()
{
    Worksheet sheet;
    const int across[]{xlGeneral, xlLeft, xlCenter, xlRight};
    const int down[]{xlTop, xlCenter, xlBottom};
    for (int row = 1; row <= 3; ++row)
        for (int col = 1; col <= 4; ++col) {
            sheet.setHorizontalAlignment(CellRef(row, col), across[col - 1]);
            sheet.setVerticalAlignment(CellRef(row, col), down[row - 1]);
            sheet.setText({row, col}, "桩");
        }
    sheet.setWrapText("a4", true);
    sheet.setText("a4", " 观测左角               (  °′ ″ )");
    return sheet;
}

inline Worksheet borders()
{
    Worksheet sheet;
    table(sheet, "b2:d4");
    sheet.borders("f2", xlDiagonalDown, xlContinuous, xlThin);
    sheet.borders("g2", xlDiagonalUp, xlContinuous, xlMedium);
    sheet.borders("f4", xlEdgeBottom, xlContinuous, xlHairline);
    sheet.borders("g4", xlEdgeBottom, xlContinuous, xlThick, 3);
    return sheet;
}

inline Worksheet fills()
{
    Worksheet sheet;
    for (int color = 1; color <= 56; ++color)
        sheet.setInterior(CellRef((color - 1) / 8 + 1, (color - 1) % 8 + 1), color);
    return sheet;
}

inline Worksheet fonts()
{
    Worksheet sheet;
    sheet.setFont("a1", "黑体", 20);
    sheet.setFont("a2", "Arial", 10.5);
    sheet.setBold("a3:a4", true);
    sheet.setItalic("a4:a5", true);
    for (int row = 1; row <= 5; ++row) sheet.setText({row, 1}, "桩 abc");
    return sheet;
}

inline Worksheet sizes()
{
    Worksheet sheet;
    sheet.setColumnWidth("A:A", 6);
    sheet.setColumnWidth("b:c", 14);
    sheet.setColumnWidth("e:e", 50);
    sheet.setRowHeight("a1", 28.5);
    sheet.setRowHeight("a4", 409);
    sheet.setText("b4", "x");
    return sheet;
}

inline Worksheet formats()
{
    Worksheet sheet;
    const char* const formats[]{"General", "@", "0", "0.00", "0.0000", "0.000"};
    for (int row = 1; row <= 6; ++row) {
        sheet.setNumberFormat(CellRef(row, 1), formats[row - 1]);
        sheet.setNumber({row, 1}, 1234.56789);
    }
    sheet.setNumberFormat("c:c", "@");
    return sheet;
}

inline Worksheet page()
{
    Worksheet sheet;
    sheet.page.left = sheet.page.right = 0.5;
    sheet.page.landscape = true;
    sheet.page.fitToWidth = true;
    for (int col = 1; col <= 22; ++col) sheet.setNumber({1, col}, col);
    sheet.select("b4:m12");
    return sheet;
}

/// Each small workbook that is kept byte for byte, by the feature that it shows.
inline std::vector<std::pair<const char*, Worksheet (*)()>> golden()
{
    return {{"texts", texts},         {"numbers", numbers}, {"typed", typed}, {"merges", merges},
            {"alignment", alignment}, {"borders", borders}, {"fills", fills}, {"fonts", fonts},
            {"sizes", sizes},         {"formats", formats}, {"page", page},   {"exported", exported}};
}

/// A text of n Chinese characters, which differ from text to text.
inline std::string chinese(int seed, int n)
{
    std::string text;
    for (int i = 0; i < n; ++i) {
        const int unit = 0x4E00 + (seed * 7919 + i * 31) % 0x5000;
        text += static_cast<char>(0xE0 + unit / 4096);
        text += static_cast<char>(0x80 + unit / 64 % 64);
        text += static_cast<char>(0x80 + unit % 64);
    }
    return text;
}

/// A string table of some hundred continuations, most of them cut within a Chinese text.
inline Worksheet chineseTexts()
{
    Worksheet sheet;
    for (int row = 1; row <= 400; ++row)
        for (int col = 1; col <= 5; ++col)
            sheet.setText({row, col}, chinese(row * 5 + col, (row * 37 + col * 101) % 700));
    return sheet;
}

/// As many rows as a sheet has.
inline Worksheet tall()
{
    Worksheet sheet;
    table(sheet, {1, 1, kSheetRows, 3});
    for (int row = 1; row <= kSheetRows; ++row) {
        sheet.setNumber({row, 1}, row);
        sheet.setText({row, 2}, "K" + std::to_string(row / 1000) + "+" + std::to_string(row % 1000));
        sheet.setText({row, 3}, row % 2 ? "左" : "右");
    }
    return sheet;
}

}  // namespace workbooks
