#include "office/Biff.h"

#include "base/Utf8.h"

#include <bit>
#include <cmath>
#include <optional>

namespace biff {

// DEFROWHEIGHT
//   0  2  flags: 0
//   2  2  twips
void defaultRowHeight(std::string& out, double points) { Record(out, 0x0225).u16(0).twips(points); }

// WSBOOL
//   0  2  flags: 1 page breaks shown, C0 outline sums below and to the right, 400 outline signs, 100 fit to pages
void wsBool(std::string& out, bool fitToPage) { Record(out, 0x0081).u16(0x04C1 | (fitToPage ? 0x100 : 0)); }

// FOOTER
//   0  2  characters, 2  the text: &C in the middle, &P the page, &N how many there are
void footer(std::string& out, std::string_view text)
{
    const auto units = Utf16(text);
    Record(out, 0x0015).u16(units.size()).characters(units);
}

// LEFTMARGIN, RIGHTMARGIN, TOPMARGIN, BOTTOMMARGIN
//   0  8  inches
void margin(std::string& out, Side side, double inches) { Record(out, static_cast<std::uint16_t>(side)).f64(inches); }

// SETUP: the page
//   0  2  paper: 9, A4
//   2  2  scale in percent, 4  2  first page number
//   6  2  pages across, 8  2  pages down, where the sheet is fitted; 0 as many as it takes
//  10  2  flags: 2 upright
//  12  2  printer dots an inch across, 14  2  down
//  16  8  header margin, 24  8  footer margin, inches
//  32  2  copies
void setup(std::string& out, bool landscape, bool fitToWidth, double headerInches, double footerInches)
{
    Record(out, 0x00A1)
        .u16(9)
        .u16(100)
        .u16(1)
        .u16(1)
        .u16(fitToWidth ? 0 : 1)
        .u16(landscape ? 0 : 2)
        .u16(600)
        .u16(600)
        .f64(headerInches)
        .f64(footerInches)
        .u16(1);
}

// DEFCOLWIDTH
//   0  2  digits of the standard font
void defaultColumnWidth(std::string& out, int characters) { Record(out, 0x0055).u16(characters); }

// COLINFO
//   0  2  first column, 2  2  last column
//   4  2  width in 1/256 of a digit
//   6  2  XF of cells without a record
//   8  2  flags: 2 width set
//  10  2  0
void columnInfo(std::string& out, const Columns& columns)
{
    Record(out, 0x007D).u16(columns.first).u16(columns.last).u16(columns.width).u16(columns.xf).u16(2).u16(0);
}

// DIMENSIONS
//   0  4  first row, 4  4  last row + 1
//   8  2  first column, 10  2  last column + 1
//  12  2  0
void dimensions(std::string& out, int rowCount, int colCount)
{
    Record(out, 0x0200).u32(0).u32(rowCount).u16(0).u16(colCount).u16(0);
}

// ROW
//   0  2  row
//   2  2  first column with a cell, 4  2  last such column + 1
//   6  2  height in twips
//   8  4  0
//  12  4  flags: 100 always, 40 height set; bits 16 to 27 XF: 15
void row(std::string& out, int row, int firstCol, int colEnd, double points, bool ownHeight)
{
    Record(out, 0x0208)
        .u16(row)
        .u16(firstCol)
        .u16(colEnd)
        .twips(points)
        .u32(0)
        .u32(0x000F0100 | (ownHeight ? 0x40 : 0));
}

// BLANK: an empty cell with a look
//   0  2  row, 2  2  column, 4  2  XF
void blank(std::string& out, int row, int col, int xf) { Record(out, 0x0201).u16(row).u16(col).u16(xf); }

// MULBLANK: such cells side by side
//   0  2  row, 2  2  first column
//   4  2  XF of each
//   then  2  last column
void multipleBlanks(std::string& out, int row, int firstCol, std::span<const int> xfs)
{
    Record record(out, 0x00BE);
    record.u16(row).u16(firstCol);
    for (const int xf : xfs) record.u16(xf);
    record.u16(static_cast<std::size_t>(firstCol) + xfs.size() - 1);
}

namespace {

/// Four bytes that stand for the number: 30 high bits of a double, or an integer of 30 bits (flag 2); of a hundredth of
/// it (flag 1). nullopt: the number needs all its eight bytes.
std::optional<std::uint32_t> shortForm(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if ((bits & 0x3'FFFF'FFFF) == 0) return static_cast<std::uint32_t>(bits >> 32);
    for (const std::uint32_t hundredths : {0u, 1u}) {
        const double scaled = std::nearbyint(hundredths ? value * 100 : value);
        if (std::abs(scaled) >= 1 << 29) continue;
        if ((hundredths ? scaled / 100 : scaled) != value) continue;
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(scaled)) << 2 | 2 | hundredths;
    }
    return std::nullopt;
}

}  // namespace

// NUMBER                                   RK, where four bytes can hold it
//   0  2  row, 2  2  column, 4  2  XF        0  2  row, 2  2  column, 4  2  XF
//   6  8  double                             6  4  short form
void number(std::string& out, int row, int col, int xf, double value)
{
    const auto brief = shortForm(value);
    Record record(out, brief ? 0x027E : 0x0203);
    record.u16(row).u16(col).u16(xf);
    brief ? record.u32(*brief) : record.f64(value);
}

// LABELSST: a text
//   0  2  row, 2  2  column, 4  2  XF
//   6  4  its place in the string table
void labelSst(std::string& out, int row, int col, int xf, std::uint32_t index)
{
    Record(out, 0x00FD).u16(row).u16(col).u16(xf).u32(index);
}

// WINDOW2: how the sheet is shown
//   0  2  flags: 2 grid, 4 headers, 10 zeros, 20 grid in its usual colour, 80 outline signs, 200 selected, 400 in front
//   2  2  first row, 4  2  first column
//   6  4  colour of the grid: 64
//  10  2  zoom in the page view, 12  2  zoom: 0, as usual
//  14  4  0
void window2(std::string& out) { Record(out, 0x023E).u16(0x06B6).u16(0).u16(0).u32(64).u16(0).u16(0).u32(0); }

// SELECTION
//   0  1  pane: 3, the only one
//   1  2  row, 3  2  column of the active cell
//   5  2  the range that holds it: 0
//   7  2  ranges: 1
//   9  2  first row, 11  2  last row, 13  1  first column, 14  1  last column
void selection(std::string& out, const CellRange& range)
{
    const auto row = range.first.row - 1, col = range.first.col - 1;
    Record(out, 0x001D)
        .u8(3)
        .u16(row)
        .u16(col)
        .u16(0)
        .u16(1)
        .u16(row)
        .u16(range.last.row - 1)
        .u8(col)
        .u8(range.last.col - 1);
}

// MERGEDCELLS
//   0  2  ranges, then for each
//   0  2  first row, 2  2  last row, 4  2  first column, 6  2  last column
void mergedCells(std::string& out, std::span<const CellRange> merges)
{
    Record record(out, 0x00E5);
    record.u16(merges.size());
    for (const auto& [first, last] : merges)
        record.u16(first.row - 1).u16(last.row - 1).u16(first.col - 1).u16(last.col - 1);
}

}  // namespace biff
