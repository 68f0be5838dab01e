#pragma once
// A sheet of a workbook as a plain value: texts and numbers, merges, looks, widths, heights and page. SaveXls writes
// it, a sheet window shows it. Copy = remember; == compares everything that can be seen or saved.
//
// Looks are kept as runs of rows per column, each naming one of the few different styles, so that formatting a block of
// 65,536 rows costs no more than formatting ten.

#include "office/CellRef.h"
#include "office/CellStyle.h"
#include "office/CellValue.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Paper, margins in inches.
struct PageSetup {
    double left = 0.75, right = 0.75, top = 1, bottom = 1, header = 0.5, footer = 0.5;
    bool landscape = false;
    bool fitToWidth = false;   ///< shrunk so that all columns stand on one page
    int titleRows = 0;         ///< so many rows from the top again on each page
    bool pageNumbers = false;  ///< 第 x 页，共 y 页 at the foot of each page

    bool operator==(const PageSetup&) const = default;
};

class Worksheet {
public:
    PageSetup page;

    Worksheet();

    // --- Values -----------------------------------------------------------------------------------------------------
    /// As if typed: a number text becomes a number (NumberOfTyped) unless the cell's number format is "@"; "" empties.
    /// Throws std::length_error past 32,767 UTF-16 units.
    void setValue(CellRef cell, std::string_view text);
    /// A text, whatever it looks like; "" empties. Throws as setValue.
    void setText(CellRef cell, std::string text);
    /// Throws std::invalid_argument for an infinite value and for one that is no number.
    void setNumber(CellRef cell, double value);
    void clearValue(CellRef cell);

    const CellValue& value(CellRef cell) const;
    /// The number of a cell, 0 for an empty one, nullopt for a text.
    std::optional<double> number(CellRef cell) const;
    /// What the entry line shows: the text, or the number with up to 15 digits.
    std::string text(CellRef cell) const;
    /// What the cell shows under its number format.
    std::string shown(CellRef cell) const;
    /// The last row and the last column that hold a value, a look, a merge, a width or a height; 0 for an empty sheet.
    /// A column's own look (columnStyle) counts for cols() only.
    int rows() const;
    int cols() const;
    /// The values of a row from column 1 on; shorter than the sheet is wide, empty where nothing was ever written.
    const std::vector<CellValue>& rowValues(int row) const;

    // --- Merges -----------------------------------------------------------------------------------------------------
    /// Makes one cell of a block: only the upper left value stays, merges that the block meets give way.
    void merge(const CellRange& range);
    void unmerge(const CellRange& range);
    /// In reading order.
    const std::set<CellRange>& merges() const { return m_merges; }
    /// The merge that holds a cell, or the cell itself.
    CellRange mergeArea(CellRef cell) const;

    // --- Looks. Values that are none of those named throw std::invalid_argument.
    // --------------------------------------
    void setHorizontalAlignment(const CellRange& range, int alignment);  ///< xlGeneral, xlLeft, xlCenter, xlRight
    void setVerticalAlignment(const CellRange& range, int alignment);    ///< xlTop, xlCenter, xlBottom
    void center(const CellRange& range);                                 ///< both ways
    void setWrapText(const CellRange& range, bool wrap);
    void setNumberFormat(const CellRange& range, std::string_view format);  ///< "General", "@", "0.000"; values stay
    void setFont(const CellRange& range, std::string_view name, double points);
    void setBold(const CellRange& range, bool bold);
    void setItalic(const CellRange& range, bool italic);
    /// Fill. @param colorIndex 1 to 56, or xlNone; @param pattern xlSolid, or xlNone
    void setInterior(const CellRange& range, int colorIndex, int pattern = xlSolid);
    /// Lines of a block. @param index 5, 6: the diagonals of every cell; 7 to 10: left, top, bottom, right edge of the
    /// block; 11, 12: the vertical, horizontal lines inside it. @param lineStyle xlContinuous, or xlNone
    /// A line between two cells is one line: the last call decides, from whichever side it comes.
    void borders(const CellRange& range, int index, int lineStyle, int weight = xlThin,
                 int colorIndex = xlColorIndexAutomatic);
    const CellStyle& style(CellRef cell) const;

    // --- Widths and heights -----------------------------------------------------------------------------------------
    static constexpr double kStandardWidth = 8.38;    ///< characters
    static constexpr double kStandardHeight = 14.25;  ///< points
    /// @param columns only its columns count; @param characters 0 to 255 digits of the standard font
    void setColumnWidth(const CellRange& columns, double characters);
    double columnWidth(int col) const;
    /// @param rows only its rows count; @param points 0 to 409
    void setRowHeight(const CellRange& rows, double points);
    double rowHeight(int row) const;
    const std::map<int, double>& columnWidths() const { return m_widths; }  ///< those that were set
    const std::map<int, double>& rowHeights() const { return m_heights; }   ///< those that were set

    // --- Selection --------------------------------------------------------------------------------------------------
    void select(const CellRange& range) { m_selection = range; }
    const CellRange& selection() const { return m_selection; }

    // --- For the writer ---------------------------------------------------------------------------------------------
    /// From `firstRow` on down to the next run, cells of a column have this style (an index into styles()).
    struct StyleRun {
        int firstRow = 1;
        int style = 0;
        bool operator==(const StyleRun&) const = default;
    };
    const std::vector<CellStyle>& styles() const { return m_styles; }
    const std::vector<StyleRun>& styleRuns(int col) const;
    /// The style of the column itself: that of a run from the upper half of the sheet to its foot, or the standard one.
    int columnStyle(int col) const;

    bool operator==(const Worksheet& other) const;

private:
    std::vector<std::vector<CellValue>> m_rows;
    std::set<CellRange> m_merges;
    int m_tallestMerge = 1;           // rows; no merge that reaches a row begins further above it
    std::vector<CellStyle> m_styles;  // 0 is the standard look
    std::map<CellStyle, int> m_styleIndex;
    std::vector<std::vector<StyleRun>> m_runs;  // per column, never two neighbours alike; none: standard look
    std::map<int, double> m_widths, m_heights;
    CellRange m_selection;

    CellValue& slot(CellRef cell);
    std::vector<CellRange> mergesThatMeet(const CellRange& range) const;
    int styleAt(CellRef cell) const;
    int intern(const CellStyle& style);
    template <class Change>
    void restyle(const CellRange& range, const Change& change);
    void setLine(const CellRange& cells, int index, CellLine line);
    void joinNeighbour(const CellRange& cells, int index, CellLine line);
};
