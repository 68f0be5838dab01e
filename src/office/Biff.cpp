#include "office/Biff.h"

#include "base/Utf8.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace biff {

Record::Record(std::string& out, std::uint16_t kind) : m_out(out)
{
    appendLittleEndian(m_out, kind);
    m_out.append(2, '\0');
    m_body = m_out.size();
}

Record::~Record()
{
    const auto size = m_out.size() - m_body;
    assert(size <= kLongestBody);
    m_out[m_body - 2] = static_cast<char>(size & 0xFF);
    m_out[m_body - 1] = static_cast<char>(size >> 8);
}

Record& Record::twips(double points) { return u16(std::lround(points * 20)); }

Record& Record::characters(std::u16string_view units, bool wide)
{
    u8(wide ? 1 : 0);
    auto at = m_out.size();
    m_out.resize(at + (wide ? 2 : 1) * units.size());
    for (const auto unit : units) {
        m_out[at++] = static_cast<char>(unit & 0xFF);
        if (wide) m_out[at++] = static_cast<char>(unit >> 8);
    }
    return *this;
}

std::size_t Record::room() const { return kLongestBody - (m_out.size() - m_body); }

bool oneByteEach(std::u16string_view units)
{
    return std::ranges::all_of(units, [](char16_t unit) { return unit < 0x100; });
}

namespace {

std::uint32_t lineCode(const CellLine& line)
{
    switch (line.weight) {
    case xlThin:
        return 1;
    case xlMedium:
        return 2;
    case xlThick:
        return 5;
    case xlHairline:
        return 7;
    default:
        return 0;
    }
}

/// Colour numbers of the file: 8 to 63 the palette, 64 the automatic line colour; 0 where there is no line.
std::uint32_t lineColor(const CellLine& line)
{
    if (line.weight == xlNone) return 0;
    return line.colorIndex == xlColorIndexAutomatic ? 64 : static_cast<std::uint32_t>(line.colorIndex + 7);
}

std::uint32_t alignmentCode(const CellStyle& style)
{
    const std::uint32_t across = style.horizontal == xlLeft     ? 1
                                 : style.horizontal == xlCenter ? 2
                                 : style.horizontal == xlRight  ? 3
                                                                : 0;
    const std::uint32_t down = style.vertical == xlTop ? 0 : style.vertical == xlCenter ? 1 : 2;
    return across | (style.wrap ? 8u : 0u) | down << 4;
}

}  // namespace

// BOF: a substream begins
//   0  2  version 0600: BIFF8
//   2  2  what begins
//   4  2  build, 6  2  year of the build
//   8  4  history: 0
//  12  4  lowest version that can read all records: 6
void bof(std::string& out, Substream substream)
{
    Record(out, 0x0809).u16(0x0600).u16(static_cast<std::uint16_t>(substream)).u16(0x0DBB).u16(0x07CC).u32(0).u32(6);
}

// EOF: a substream ends; no body
void eof(std::string& out) { Record(out, 0x000A); }

// CODEPAGE
//   0  2  1200: texts are UTF-16
void codePage(std::string& out) { Record(out, 0x0042).u16(1200); }

// WINDOW1: the window of the workbook
//   0  2  left, 2  2  top, 4  2  width, 6  2  height, twips
//   8  2  flags: 38, scroll bars and tabs
//  10  2  active sheet, 12  2  first tab
//  14  2  sheets selected
//  16  2  width of the tabs, 1/1000 of the window
void window1(std::string& out)
{
    Record(out, 0x003D).u16(0).u16(0).u16(19200).u16(11000).u16(0x38).u16(0).u16(0).u16(1).u16(600);
}

// DATEMODE
//   0  2  0: dates count from 1900
void dateMode(std::string& out) { Record(out, 0x0022).u16(0); }

// FONT
//   0  2  height in twips
//   2  2  flags: 1 bold (as the weight says), 2 italic
//   4  2  colour: 7FFF, automatic
//   6  2  weight: 400 or 700
//   8  2  raised or lowered: 0
//  10  1  underline: 0
//  11  1  family: 0
//  12  1  character set: 134, Chinese; 0 for a name in ASCII
//  13  1  0
//  14  1  characters of the name, then flags byte and characters
void font(std::string& out, const Font& font)
{
    const auto name = Utf16(font.name);
    const bool ascii = std::ranges::all_of(name, [](char16_t unit) { return unit < 0x80; });
    Record(out, 0x0031)
        .twips(font.points)
        .u16((font.bold ? 1u : 0) | (font.italic ? 2u : 0))
        .u16(0x7FFF)
        .u16(font.bold ? 700 : 400)
        .u16(0)
        .u8(0)
        .u8(0)
        .u8(ascii ? 0 : 134)
        .u8(0)
        .u8(name.size())
        .characters(name);
}

// FORMAT: a number format that is not built in
//   0  2  its number, from 164
//   2  2  characters, then flags byte and characters
void format(std::string& out, int id, std::string_view format)
{
    const auto units = Utf16(format);
    Record(out, 0x041E).u16(id).u16(units.size()).characters(units);
}

// XF: a look
//   0  2  font
//   2  2  number format
//   4  2  flags: 1 locked, 4 a style; bits 4 to 15 the style it is made from, FFF for a style
//   6  1  bits 0 to 2 across: 0 general, 1 left, 2 centre, 3 right; 8 wrap; bits 4 to 6 down: 0 top, 1 centre, 2 bottom
//   7  1  rotation, 8  1  indent: 0
//   9  1  bits 2 to 7 number, font, alignment, border, fill, protection: of a cell, those that are its own;
//         of a style, those that it leaves alone
//  10  4  lines, 4 bits each: left, right, top, bottom; colours, 7 bits each: left, right; 1 bit each: a diagonal runs
//         down, a diagonal runs up
//  14  4  colours, 7 bits each: top, bottom, diagonals; 4 bits: line of the diagonals; bits 26 to 31: fill pattern
//  18  2  colours of the fill, 7 bits each: pattern, ground
void styleXf(std::string& out, bool normal)
{
    Record(out, 0x00E0).u16(0).u16(0).u16(0xFFF5).u8(0x20).u16(0).u8(normal ? 0 : 0xF4).u32(0).u32(0).u16(64 | 65 << 7);
}

void cellXf(std::string& out, int font, int format, const CellStyle& style)
{
    const auto& left = style.line(xlEdgeLeft);
    const auto& right = style.line(xlEdgeRight);
    const auto& top = style.line(xlEdgeTop);
    const auto& bottom = style.line(xlEdgeBottom);
    const auto& down = style.line(xlDiagonalDown);
    const auto& up = style.line(xlDiagonalUp);
    const auto& diagonal = down.weight != xlNone ? down : up;  // the file holds one kind of line for both
    const bool filled = style.fillColor != xlNone;

    std::uint32_t own = 0;
    if (format) own |= 0x04;
    if (font) own |= 0x08;
    if (style.horizontal != xlGeneral || style.vertical != xlBottom || style.wrap) own |= 0x10;
    if (style.lines != CellStyle().lines) own |= 0x20;
    if (filled) own |= 0x40;

    Record(out, 0x00E0)
        .u16(font)
        .u16(format)
        .u16(1)
        .u8(alignmentCode(style))
        .u16(0)
        .u8(own)
        .u32(lineCode(left) | lineCode(right) << 4 | lineCode(top) << 8 | lineCode(bottom) << 12 |
             lineColor(left) << 16 | lineColor(right) << 23 | (down.weight != xlNone ? 1u << 30 : 0) |
             (up.weight != xlNone ? 1u << 31 : 0))
        .u32(lineColor(top) | lineColor(bottom) << 7 | lineColor(diagonal) << 14 | lineCode(diagonal) << 21 |
             (filled ? 1u << 26 : 0))
        .u16((filled ? style.fillColor + 7 : 64) | 65 << 7);
}

// STYLE: names the look that all others are made from
//   0  2  XF 0; 8000 built in
//   2  1  0: Normal
//   3  1  FF: no level
void normalStyle(std::string& out) { Record(out, 0x0293).u16(0x8000).u8(0).u8(0xFF); }

// BOUNDSHEET: a sheet and where it begins
//   0  4  place of its BOF in the stream
//   4  1  0: visible
//   5  1  0: worksheet
//   6  1  characters of the name, then flags byte and characters
void boundSheet(std::string& out, std::size_t sheetBof, std::string_view name)
{
    const auto units = Utf16(name);
    Record(out, 0x0085).u32(sheetBof).u8(0).u8(0).u8(units.size()).characters(units);
}

// SUPBOOK: whose sheets are meant
//   0  2  sheets, 2  2  0401: this workbook's own
// EXTERNSHEET
//   0  2  references; each: 2  2  SUPBOOK, 4  2  first sheet, 6  2  last sheet
// NAME
//   0  2  flags: 20 built in
//   2  1  key, 3  1  characters of the name, 4  2  bytes of the formula
//   6  2  0, 8  2  sheet, counted from 1
//  10  4  lengths of texts that it has not
//  14  2  the name: 7, the print titles
//  16 11  the formula: 3B an area; reference, first row, last row, first column, last column
void printTitles(std::string& out, int rows)
{
    constexpr std::uint16_t kThisWorkbook = 0x0401, kBuiltIn = 0x0020, kFormulaSize = 11, kLastColumn = 0x00FF;
    constexpr std::uint8_t kPrintTitles = 0x07, kArea = 0x3B;
    Record(out, 0x01AE).u16(1).u16(kThisWorkbook);
    Record(out, 0x0017).u16(1).u16(0).u16(0).u16(0);
    Record name(out, 0x0018);
    name.u16(kBuiltIn).u8(0).u8(1).u16(kFormulaSize).u16(0).u16(1).u32(0).u8(0).u8(kPrintTitles);
    name.u8(kArea).u16(0).u16(0).u16(rows - 1).u16(0).u16(kLastColumn);
}

}  // namespace biff
