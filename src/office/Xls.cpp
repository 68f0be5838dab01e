#include "office/Xls.h"

#include "office/Biff.h"
#include "office/CompoundFile.h"
#include "office/StringTable.h"
#include "office/StyleTable.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace {

constexpr std::string_view kSheetName = "Sheet1";
constexpr int kRowsInBlock = 32;
constexpr std::size_t kRoughCellSize = 16;
constexpr std::size_t kRoughGlobalsSize = 4096;

/// A width in digits of the standard font (8 pixels each, 5 more around them) as 1/256 of a digit, in whole pixels.
std::uint32_t fileWidth(double characters)
{
    const double pixels = characters < 1 ? characters * 13 : characters * 8 + 5;
    return static_cast<std::uint32_t>(std::lround(pixels)) * 32;
}

/// The look of a column's cells, row by row.
class ColumnLooks {
public:
    ColumnLooks(const Worksheet& sheet, int col) : m_runs(&sheet.styleRuns(col)), m_column(sheet.columnStyle(col)) {}
    /// The style at a row. Rows come in rising order.
    int at(int row)
    {
        for (; m_next < m_runs->size() && (*m_runs)[m_next].firstRow <= row; ++m_next)
            m_style = (*m_runs)[m_next].style;
        return m_style;
    }
    /// The style of cells that need no record, since the column carries it.
    int ofColumn() const { return m_column; }

private:
    const std::vector<Worksheet::StyleRun>* m_runs;
    int m_column;
    std::size_t m_next = 0;
    int m_style = 0;
};

class SheetWriter {
public:
    explicit SheetWriter(const Worksheet& sheet) : m_sheet(sheet), m_xfs(sheet.styles().size(), kNotYet)
    {
        for (int col = 1; col <= sheet.cols(); ++col) m_looks.emplace_back(sheet, col);
    }

    std::string workbook()
    {
        const auto sheet = sheetRecords();
        std::string file;
        file.reserve(kCompoundHeaderSize + kRoughGlobalsSize + m_strings.roughBytes() + sheet.size() +
                     sheet.size() / 50);
        file.assign(kCompoundHeaderSize, '\0');
        globals(file);
        file += sheet;
        return file;
    }

private:
    static constexpr int kNotYet = -1;
    const Worksheet& m_sheet;
    std::vector<ColumnLooks> m_looks;
    std::vector<int> m_xfs;  // per style of the sheet, once a cell has it
    std::vector<int> m_blanks;
    StyleTable m_styles;
    StringTable m_strings;
    int m_rowEnd = 0, m_colEnd = 0;

    int xf(int style)
    {
        auto& known = m_xfs[static_cast<std::size_t>(style)];
        if (known == kNotYet) known = m_styles.add(m_sheet.styles()[static_cast<std::size_t>(style)]);
        return known;
    }

    void globals(std::string& out)
    {
        biff::bof(out, biff::Substream::Globals);
        biff::codePage(out);
        biff::window1(out);
        biff::dateMode(out);
        m_styles.write(out);
        const auto place = out.size();
        const auto boundSheet = [](std::size_t sheetBof) {
            std::string record;
            biff::boundSheet(record, sheetBof, kSheetName);
            return record;
        };
        const auto size = boundSheet(0).size();
        out += boundSheet(0);
        if (m_sheet.page.titleRows > 0) biff::printTitles(out, m_sheet.page.titleRows);
        m_strings.write(out);
        biff::eof(out);
        out.replace(place, size, boundSheet(out.size() - kCompoundHeaderSize));
    }

    std::string sheetRecords()
    {
        std::string out;
        biff::bof(out, biff::Substream::Sheet);
        page(out);
        columns(out);
        const auto place = out.size();
        biff::dimensions(out, 0, 0);
        const auto size = out.size() - place;
        cellTable(out);
        std::string dimensions;
        biff::dimensions(dimensions, m_rowEnd, m_colEnd);
        out.replace(place, size, dimensions);
        biff::window2(out);
        biff::selection(out, m_sheet.selection());
        const std::vector<CellRange> list(m_sheet.merges().begin(), m_sheet.merges().end());
        const std::span merges(list);
        for (std::size_t done = 0; done < merges.size(); done += biff::kMergesInRecord)
            biff::mergedCells(out, merges.subspan(done, std::min(biff::kMergesInRecord, merges.size() - done)));
        biff::eof(out);
        return out;
    }

    void page(std::string& out)
    {
        const auto& page = m_sheet.page;
        biff::defaultRowHeight(out, Worksheet::kStandardHeight);
        biff::wsBool(out, page.fitToWidth);
        if (page.pageNumbers) biff::footer(out, "&C第 &P 页，共 &N 页");
        biff::margin(out, biff::Side::Left, page.left);
        biff::margin(out, biff::Side::Right, page.right);
        biff::margin(out, biff::Side::Top, page.top);
        biff::margin(out, biff::Side::Bottom, page.bottom);
        biff::setup(out, page.landscape, page.fitToWidth, page.header, page.footer);
    }

    void columns(std::string& out)
    {
        biff::defaultColumnWidth(out, static_cast<int>(Worksheet::kStandardWidth));
        std::vector<biff::Columns> alike;
        for (int col = 1; col <= static_cast<int>(m_looks.size()); ++col) {
            const int style = m_looks[static_cast<std::size_t>(col - 1)].ofColumn();
            if (!style && !m_sheet.columnWidths().contains(col)) continue;
            const biff::Columns one{col - 1, col - 1, fileWidth(m_sheet.columnWidth(col)), xf(style)};
            const bool goesOn = !alike.empty() && alike.back().last == col - 2 && alike.back().width == one.width &&
                                alike.back().xf == one.xf;
            if (goesOn)
                alike.back().last = one.last;
            else
                alike.push_back(one);
        }
        for (const auto& columns : alike) biff::columnInfo(out, columns);
    }

    /// Blocks of rows, each the ROW records and then the cells.
    void cellTable(std::string& out)
    {
        std::string cells;
        const int rowCount = m_sheet.rows();
        out.reserve(out.size() + static_cast<std::size_t>(rowCount) * m_looks.size() * kRoughCellSize);
        for (int row = 1; row <= rowCount; ++row) {
            rowOfCells(row, out, cells);
            if (row % kRowsInBlock && row < rowCount) continue;
            out += cells;
            cells.clear();
        }
    }

    void rowOfCells(int row, std::string& rows, std::string& cells)
    {
        const auto& values = m_sheet.rowValues(row);
        int firstCol = -1, colEnd = 0;  // of the cells that have a record
        for (int col = 0; col < static_cast<int>(m_looks.size()); ++col) {
            auto& looks = m_looks[static_cast<std::size_t>(col)];
            const int style = looks.at(row);
            const bool holdsValue =
                static_cast<std::size_t>(col) < values.size() && values[static_cast<std::size_t>(col)].index() != 0;
            if (!holdsValue && style == looks.ofColumn()) {
                blanks(cells, row - 1, col);
                continue;
            }
            if (firstCol < 0) firstCol = col;
            colEnd = col + 1;
            if (!holdsValue) {
                m_blanks.push_back(xf(style));
                continue;
            }
            blanks(cells, row - 1, col);
            const auto& value = values[static_cast<std::size_t>(col)];
            if (const auto number = std::get_if<double>(&value))
                biff::number(cells, row - 1, col, xf(style), *number);
            else
                biff::labelSst(cells, row - 1, col, xf(style), m_strings.add(std::get<std::string>(value)));
        }
        blanks(cells, row - 1, static_cast<int>(m_looks.size()));

        const bool ownHeight = m_sheet.rowHeights().contains(row);
        if (!colEnd && !ownHeight) return;
        biff::row(rows, row - 1, std::max(firstCol, 0), colEnd, m_sheet.rowHeight(row), ownHeight);
        m_rowEnd = row;
        m_colEnd = std::max(m_colEnd, colEnd);
    }

    /// Writes the empty cells that have gathered up to column `colEnd`.
    void blanks(std::string& cells, int row, int colEnd)
    {
        const int firstCol = colEnd - static_cast<int>(m_blanks.size());
        if (m_blanks.size() == 1) biff::blank(cells, row, firstCol, m_blanks[0]);
        if (m_blanks.size() > 1) biff::multipleBlanks(cells, row, firstCol, m_blanks);
        m_blanks.clear();
    }
};

}  // namespace

std::string XlsBytes(const Worksheet& sheet)
{
    auto file = SheetWriter(sheet).workbook();
    CloseCompoundFile(file, "Workbook");
    return file;
}

void SaveXls(const Worksheet& sheet, std::ostream& out)
{
    const auto bytes = XlsBytes(sheet);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}
