#pragma once
// What a workbook of one sheet holds, read as strictly as CompoundReader.h, and how it differs from a Worksheet.

#include "office/RecordReader.h"
#include "office/Worksheet.h"

#include <bit>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace xls {

// --- A whole sheet
// ----------------------------------------------------------------------------------------------------

struct Row {
    unsigned firstCol = 0, colEnd = 0;
    double points = 0;
    bool ownHeight = false;
};

struct Column {
    unsigned width = 0;  // 1/256 of a digit
    int xf = 0;
};

/// What a workbook of one sheet holds. Rows and columns count from 1, as in Worksheet.
struct Book {
    std::string sheetName;
    std::map<std::pair<int, int>, CellValue> cells;  // with a record, also the empty ones
    std::map<std::pair<int, int>, int> xfs;
    std::map<int, Row> rows;
    std::map<int, Column> columns;
    std::vector<CellStyle> styles;  // per XF
    std::set<CellRange> merges;
    PageSetup page;
    std::string footer;
    CellRange selection;
    StringTableRead strings;
    int rowCount = 0, colCount = 0;

    /// The value of a cell; empty without a record.
    CellValue value(int row, int col) const
    {
        const auto found = cells.find({row, col});
        return found != cells.end() ? found->second : CellValue();
    }
    /// The look of a cell: its own, the column's, or the standard one.
    const CellStyle& style(int row, int col) const
    {
        if (const auto own = xfs.find({row, col}); own != xfs.end()) return styles.at(std::size_t(own->second));
        if (const auto column = columns.find(col); column != columns.end())
            return styles.at(std::size_t(column->second.xf));
        return styles.at(15);
    }
};

inline double shortNumber(std::uint32_t brief)
{
    double value;
    if (brief & 2)
        value = static_cast<std::int32_t>(brief) >> 2;
    else
        value = std::bit_cast<double>(std::uint64_t(brief & ~3u) << 32);
    return brief & 1 ? value / 100 : value;
}

inline int weightOf(unsigned code)
{
    const std::map<unsigned, int> weights{{0, -4142}, {1, 2}, {2, -4138}, {5, 4}, {7, 1}};
    must(weights.contains(code), "line code");
    return weights.at(code);
}

inline CellLine lineOf(unsigned code, unsigned color)
{
    if (!code) return must(color == 0, "colour of no line"), CellLine{};
    must(color == 64 || (color >= 8 && color < 64), "line colour");
    return {weightOf(code), color == 64 ? -4105 : int(color) - 7};
}

struct FontRead {
    std::string name;
    double points;
    bool bold, italic;
};

inline CellStyle cellLook(Bytes bytes, const std::vector<FontRead>& fonts,
                          const std::map<unsigned, std::string>& formats)
{
    CellStyle style;
    auto font = bytes.u16();
    must(font != 4, "font 4 is never given");
    if (font > 4) --font;
    style.fontName = fonts.at(font).name;
    style.fontSize = fonts.at(font).points;
    style.bold = fonts.at(font).bold;
    style.italic = fonts.at(font).italic;
    style.numberFormat = formats.at(bytes.u16());
    must((bytes.u16() & 0xFFF7) == 1, "a cell's look comes from style 0");
    const auto alignment = bytes.u8();
    const int across[]{1, -4131, -4108, -4152};
    const int down[]{-4160, -4108, -4107};
    must((alignment & 7) < 4 && (alignment >> 4) < 3, "alignment");
    style.horizontal = across[alignment & 7];
    style.vertical = down[alignment >> 4];
    style.wrap = alignment & 8;
    must(bytes.u16() == 0, "rotation or indent");
    const auto own = bytes.u8();
    const auto lines = bytes.u32(), more = bytes.u32();
    const auto fill = bytes.u16();
    style.line(xlEdgeLeft) = lineOf(lines & 15, lines >> 16 & 127);
    style.line(xlEdgeRight) = lineOf(lines >> 4 & 15, lines >> 23 & 127);
    style.line(xlEdgeTop) = lineOf(lines >> 8 & 15, more & 127);
    style.line(xlEdgeBottom) = lineOf(lines >> 12 & 15, more >> 7 & 127);
    const auto diagonal = lineOf(more >> 21 & 15, more >> 14 & 127);
    if (lines >> 30 & 1) style.line(xlDiagonalDown) = diagonal;
    if (lines >> 31) style.line(xlDiagonalUp) = diagonal;
    must(more >> 26 <= 1, "pattern");
    if (more >> 26)
        style.fillColor = int(fill & 127) - 7;
    else
        must((fill & 127) == 64, "colour of no fill");

    const CellStyle plain;
    must(bool(own & 4) == (style.numberFormat != plain.numberFormat), "mark of an own number format");
    must(bool(own & 16) == (style.horizontal != plain.horizontal || style.vertical != plain.vertical || style.wrap),
         "mark of an own alignment");
    must(bool(own & 32) == (style.lines != plain.lines), "mark of own lines");
    must(bool(own & 64) == (style.fillColor != plain.fillColor), "mark of an own fill");
    return style;
}

inline Book read(std::string_view file)
{
    const auto stream = workbookStream(file);
    const auto list = records(stream);
    Book book;
    std::vector<FontRead> fonts;
    std::map<unsigned, std::string> formats{{0, "General"}, {1, "0"}, {2, "0.00"}, {49, "@"}};
    std::uint32_t sheetPlace = 0, uses = 0;
    int substream = 0, xfCount = 0;
    std::set<unsigned> once;
    const auto cell = [&](Bytes& bytes) {
        const auto row = int(bytes.u16()) + 1, col = int(bytes.u16()) + 1;
        return std::pair(row, col);
    };
    const auto put = [&](std::pair<int, int> at, unsigned xf, CellValue value) {
        must(xf >= 15 && int(xf) < xfCount, "XF of a cell");
        must(book.rows.contains(at.first), "a cell before its row");
        const auto& row = book.rows[at.first];
        must(at.second > int(row.firstCol) && at.second <= int(row.colEnd), "a cell outside its row");
        must(book.cells.emplace(at, std::move(value)).second, "a cell that comes twice");
        book.xfs[at] = int(xf);
    };

    for (std::size_t i = 0; i < list.size(); ++i) {
        const auto& [kind, place, body] = list[i];
        Bytes bytes(body);
        switch (kind) {
        case 0x0809:
            must(bytes.u16() == 0x0600, "version");
            must(bytes.u16() == (++substream == 1 ? 5u : 0x10u), "kind of substream");
            must(substream == 1 || place == sheetPlace, "the sheet does not stand where it is said to");
            bytes.take(12);
            break;
        case 0x0042:
            must(bytes.u16() == 1200, "code page");
            break;
        case 0x0031: {
            FontRead font;
            font.points = bytes.u16() / 20.0;
            font.italic = bytes.u16() & 2;
            bytes.u16();
            font.bold = bytes.u16() == 700;
            bytes.take(6);
            const auto length = bytes.u8();
            font.name = text(bytes, length);
            fonts.push_back(font);
            break;
        }
        case 0x041E: {
            const auto id = bytes.u16(), length = bytes.u16();
            must(id >= 164, "number of an own format");
            formats[id] = text(bytes, length);
            break;
        }
        case 0x00E0:
            must(body.size() == 20, "size of XF");
            book.styles.push_back(xfCount++ < 15 ? CellStyle() : cellLook(bytes, fonts, formats));
            bytes.take(20);
            break;
        case 0x0085: {
            sheetPlace = bytes.u32();
            must(bytes.u16() == 0, "kind of sheet");
            const auto length = bytes.u8();
            book.sheetName = text(bytes, length);
            break;
        }
        case 0x01AE:
            must(bytes.u16() == 1 && bytes.u16() == 0x0401, "a workbook that is not this one");
            break;
        case 0x0017:
            must(bytes.u16() == 1 && bytes.u16() == 0 && bytes.u16() == 0 && bytes.u16() == 0, "another sheet");
            break;
        case 0x0018: {  // 6.5 NAME of the published description: the built-in name 7, an area of whole rows from the
                        // first
            must(bytes.u16() == 0x20 && bytes.u8() == 0 && bytes.u8() == 1, "a name that is not built in");
            const auto size = bytes.u16();
            must(bytes.u16() == 0 && bytes.u16() == 1 && bytes.u32() == 0, "the sheet of a name");
            must(bytes.u8() == 0 && bytes.u8() == 7, "print titles");
            must(size == bytes.left() && bytes.u8() == 0x3B && bytes.u16() == 0 && bytes.u16() == 0, "first row");
            book.page.titleRows = int(bytes.u16()) + 1;
            must(bytes.u16() == 0 && bytes.u16() == 255, "whole rows");
            break;
        }
        case 0x0015: {
            const auto length = bytes.u16();
            book.footer = text(bytes, length);
            book.page.pageNumbers = book.footer.find("&P") != std::string::npos;
            break;
        }
        case 0x00FC:
            book.strings = stringTable(list, i);
            bytes.take(body.size());
            break;
        case 0x0026:
            book.page.left = bytes.f64();
            break;
        case 0x0027:
            book.page.right = bytes.f64();
            break;
        case 0x0028:
            book.page.top = bytes.f64();
            break;
        case 0x0029:
            book.page.bottom = bytes.f64();
            break;
        case 0x0081:
            book.page.fitToWidth = bytes.u16() & 0x100;
            break;
        case 0x00A1: {
            bytes.take(6);
            const auto across = bytes.u16(), down = bytes.u16();
            must(across == 1 && down == (book.page.fitToWidth ? 0u : 1u), "pages");
            book.page.landscape = !(bytes.u16() & 2);
            bytes.take(4);
            book.page.header = bytes.f64();
            book.page.footer = bytes.f64();
            bytes.u16();
            break;
        }
        case 0x007D: {
            const auto first = int(bytes.u16()), last = int(bytes.u16());
            Column column;
            column.width = bytes.u16();
            column.xf = int(bytes.u16());
            must(column.xf < xfCount, "XF of a column");
            for (int col = first; col <= last; ++col)
                must(book.columns.emplace(col + 1, column).second, "a column twice");
            bytes.take(4);
            break;
        }
        case 0x0200:
            must(bytes.u32() == 0, "first row");
            book.rowCount = int(bytes.u32());
            must(bytes.u16() == 0, "first column");
            book.colCount = int(bytes.u16());
            bytes.u16();
            break;
        case 0x0208: {
            const auto number = int(bytes.u16()) + 1;
            Row row;
            row.firstCol = bytes.u16();
            row.colEnd = bytes.u16();
            row.points = bytes.u16() / 20.0;
            bytes.take(4);
            row.ownHeight = bytes.u32() & 0x40;
            must(book.rows.emplace(number, row).second, "a row twice");
            must(number <= book.rowCount && int(row.colEnd) <= book.colCount, "a row outside the dimensions");
            break;
        }
        case 0x0201: {
            const auto at = cell(bytes);
            put(at, bytes.u16(), {});
            break;
        }
        case 0x00BE: {
            auto at = cell(bytes);
            while (bytes.left() > 2) put(at, bytes.u16(), {}), ++at.second;
            must(int(bytes.u16()) + 2 == at.second, "last column of blanks");
            break;
        }
        case 0x0203: {
            const auto at = cell(bytes);
            const auto xf = bytes.u16();
            put(at, xf, bytes.f64());
            break;
        }
        case 0x027E: {
            const auto at = cell(bytes);
            const auto xf = bytes.u16();
            put(at, xf, shortNumber(bytes.u32()));
            break;
        }
        case 0x00FD: {
            const auto at = cell(bytes);
            const auto xf = bytes.u16();
            put(at, xf, book.strings.texts.at(bytes.u32()));
            ++uses;
            break;
        }
        case 0x001D: {
            must(bytes.u8() == 3, "pane");
            bytes.take(6);
            must(bytes.u16() == 1, "selections");
            const auto row1 = int(bytes.u16()), row2 = int(bytes.u16()), col1 = int(bytes.u8()), col2 = int(bytes.u8());
            book.selection = CellRange(row1 + 1, col1 + 1, row2 + 1, col2 + 1);
            break;
        }
        case 0x00E5: {
            const auto count = bytes.u16();
            must(count <= 1027, "merges in a record");
            for (unsigned n = 0; n < count; ++n) {
                const auto row1 = int(bytes.u16()), row2 = int(bytes.u16()), col1 = int(bytes.u16()),
                           col2 = int(bytes.u16());
                must(book.merges.emplace(row1 + 1, col1 + 1, row2 + 1, col2 + 1).second, "a merge twice");
            }
            break;
        }
        case 0x000A:
            break;
        case 0x003C:
        case 0x003D:
        case 0x0022:
        case 0x0293:
        case 0x0225:
        case 0x0055:
        case 0x023E:
            bytes.take(body.size());
            break;
        default:
            must(false, "a kind of record that nobody expects");
        }
        must(!bytes.left(), "bytes left over in a record");
    }
    must(book.strings.uses == uses, "uses of the string table");
    must(std::set(book.strings.texts.begin(), book.strings.texts.end()).size() == book.strings.texts.size(),
         "a text that stands twice in the string table");
    return book;
}

/// Why a file does not hold a sheet, or "" if it does, to the last bit of every number.
inline std::string difference(const Worksheet& sheet, std::string_view file)
{
    const auto book = read(file);
    if (book.sheetName != "Sheet1") return "name of the sheet";
    const int rows = std::max(sheet.rows(), book.rowCount), cols = std::max(sheet.cols(), book.colCount);
    for (int row = 1; row <= rows; ++row)
        for (int col = 1; col <= cols; ++col) {
            const auto& mine = sheet.value({row, col});
            const auto theirs = book.value(row, col);
            const auto a = std::get_if<double>(&mine), b = std::get_if<double>(&theirs);
            const bool same =
                a && b ? std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b) : mine == theirs;
            if (!same) return "value of " + CellRef(row, col).address();
            if (sheet.style({row, col}) != book.style(row, col)) return "look of " + CellRef(row, col).address();
        }
    if (sheet.merges() != book.merges) return "merges";
    if (sheet.page != book.page) return "page";
    if (sheet.selection() != book.selection) return "selection";
    for (const auto& [row, points] : sheet.rowHeights())
        if (!book.rows.contains(row) || !book.rows.at(row).ownHeight || book.rows.at(row).points != points)
            return "height of a row";
    for (const auto& [row, read] : book.rows)
        if (read.ownHeight && !sheet.rowHeights().contains(row)) return "height of a row nobody set";
    for (const auto& [col, characters] : sheet.columnWidths())
        if (!book.columns.contains(col)) return "width of a column";
    return {};
}

}  // namespace xls
