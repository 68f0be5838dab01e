#pragma once
// The records of a binary workbook, one kind a function. Each appends a whole record. Rows and columns count from 0
// here.

#include "office/CellRef.h"
#include "office/CellStyle.h"
#include "office/LittleEndian.h"

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace biff {

/// True where no unit is above U+00FF.
bool oneByteEach(std::u16string_view units);

/// One record being appended: its kind and its size, 2 bytes each, then the body. The size is put in as the record
/// ends.
class Record {
public:
    static constexpr std::size_t kLongestBody = 8224;

    Record(std::string& out, std::uint16_t kind);
    ~Record();
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    Record& u8(std::integral auto value) { return append(static_cast<std::uint8_t>(value)); }
    Record& u16(std::integral auto value) { return append(static_cast<std::uint16_t>(value)); }
    Record& u32(std::integral auto value) { return append(static_cast<std::uint32_t>(value)); }
    Record& f64(double value) { return append(value); }
    /// Points as 1/20 points, 2 bytes.
    Record& twips(double points);
    /// Characters behind their flags byte: 0 one byte each (none is above U+00FF), 1 two bytes each.
    Record& characters(std::u16string_view units, bool wide);
    Record& characters(std::u16string_view units) { return characters(units, !oneByteEach(units)); }

    std::size_t room() const;

private:
    std::string& m_out;
    std::size_t m_body;

    Record& append(auto value)
    {
        appendLittleEndian(m_out, value);
        return *this;
    }
};

enum class Substream : std::uint16_t { Globals = 0x0005, Sheet = 0x0010 };

struct Font {
    std::string name;
    double points = 0;
    bool bold = false, italic = false;
    auto operator<=>(const Font&) const = default;
};

/// Columns that look alike. Width in 1/256 of the standard font's digit.
struct Columns {
    int first, last;
    std::uint32_t width;
    int xf;
};

// Globals, in file order (Biff.cpp)
void bof(std::string& out, Substream substream);
void codePage(std::string& out);
void window1(std::string& out);
void dateMode(std::string& out);
void font(std::string& out, const Font& font);
void format(std::string& out, int id, std::string_view format);
/// @param normal the look that all cells are made from; the others only keep their places in the list
void styleXf(std::string& out, bool normal);
void cellXf(std::string& out, int font, int format, const CellStyle& style);
void normalStyle(std::string& out);
void boundSheet(std::string& out, std::size_t sheetBof, std::string_view name);
/// The rows of the first sheet that are printed again on each page: the defined name of them, and the references to
/// this workbook and its sheet that it is built on.
void printTitles(std::string& out, int rows);
void eof(std::string& out);

// Sheet, in file order (BiffSheet.cpp)
void defaultRowHeight(std::string& out, double points);
void wsBool(std::string& out, bool fitToPage);
void footer(std::string& out, std::string_view text);
enum class Side : std::uint16_t { Left = 0x0026, Right = 0x0027, Top = 0x0028, Bottom = 0x0029 };
void margin(std::string& out, Side side, double inches);
void setup(std::string& out, bool landscape, bool fitToWidth, double headerInches, double footerInches);
void defaultColumnWidth(std::string& out, int characters);
void columnInfo(std::string& out, const Columns& columns);
void dimensions(std::string& out, int rowCount, int colCount);
void row(std::string& out, int row, int firstCol, int colEnd, double points, bool ownHeight);
void blank(std::string& out, int row, int col, int xf);
void multipleBlanks(std::string& out, int row, int firstCol, std::span<const int> xfs);
void number(std::string& out, int row, int col, int xf, double value);
void labelSst(std::string& out, int row, int col, int xf, std::uint32_t index);
void window2(std::string& out);
void selection(std::string& out, const CellRange& range);
void mergedCells(std::string& out, std::span<const CellRange> merges);
/// How many ranges one mergedCells record holds.
inline constexpr std::size_t kMergesInRecord = 1027;

}  // namespace biff
