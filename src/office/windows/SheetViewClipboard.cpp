// The clipboard of a sheet: blocks as spreadsheets copy them, numbers as design tables print them.

#include "base/TabText.h"
#include "office/windows/SheetView.h"
#include "ui/Fields.h"
#include "ui/frmZt.h"

#include <QApplication>
#include <QClipboard>

#include <algorithm>
#include <utility>

void SheetView::copy() const
{
    CellRange range = selection();
    range.last.row = std::min(range.last.row, std::max(range.first.row, m_sheet.rows()));
    range.last.col = std::min(range.last.col, std::max(range.first.col, m_sheet.cols()));
    CellRows rows;
    for (int row = range.first.row; row <= range.last.row; ++row) {
        std::vector<std::string> cells;
        bool allCovered = true;
        for (int col = range.first.col; col <= range.last.col; ++col) {
            const CellRef cell(row, col);
            const bool covered = m_geometry.covered(cell);
            allCovered = allCovered && covered;
            cells.push_back(covered ? "" : m_sheet.text(cell));
        }
        if (!allCovered) rows.push_back(std::move(cells));
    }
    QApplication::clipboard()->setText(fromUtf8(TabText(rows)));
}

void SheetView::cut()
{
    copy();
    clear();
}

/// Values go where they stand relative to the first cell. Where that would put one under a merged cell, each column of
/// values goes down its own cells instead, so that a plain list fills a column of merged cells.
void SheetView::paste()
{
    commit();
    const CellRows rows = RowsOfTabText(toUtf8(QApplication::clipboard()->text()));
    if (rows.empty()) return;
    const CellRef corner = selection().first;
    const auto inside = [](int row, int col) { return row <= kSheetRows && col <= kSheetCols; };
    bool literal = true;
    for (int r = 0; r < std::ssize(rows); ++r)
        for (int c = 0; c < std::ssize(rows[static_cast<std::size_t>(r)]); ++c)
            if (inside(corner.row + r, corner.col + c) && m_geometry.covered({corner.row + r, corner.col + c}) &&
                !rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)].empty())
                literal = false;
    std::vector<std::pair<CellRef, std::string>> texts;
    std::vector<Converted> converted;
    std::size_t width = 0;
    for (const auto& row : rows) width = std::max(width, row.size());
    CellRef last = corner;
    for (int c = 0; c < static_cast<int>(width); ++c) {
        int row = corner.row;
        for (const auto& cells : rows) {
            if (!inside(row, corner.col + c)) break;
            const CellRef cell(row, corner.col + c);
            if (static_cast<std::size_t>(c) < cells.size() && !m_geometry.covered(cell)) {
                std::string text = cells[static_cast<std::size_t>(c)];
                const auto quantity = m_quantities(cell);
                const auto plain = quantity && !isNumber(fromUtf8(text)) ? PlainNumber(text, *quantity) : std::nullopt;
                if (plain && !plain->empty())
                    converted.push_back({cell.address(), std::exchange(text, *plain), *plain});
                texts.emplace_back(cell, std::move(text));
            }
            last = {std::max(last.row, cell.row), std::max(last.col, cell.col)};
            row = literal ? row + 1 : m_geometry.area(cell).last.row + 1;
        }
    }
    if (!TakesConverted(converted, window())) return;
    Step step;
    for (const auto& [cell, text] : texts) put(cell, fromUtf8(text), step);
    m_anchor = corner;
    m_active = last;
    done(std::move(step));
}

void SheetView::setQuantities(std::function<std::optional<Quantity>(CellRef)> quantities)
{
    m_quantities = std::move(quantities);
}

void SheetView::clear()
{
    const CellRange range = selection();
    Step step;
    for (int row = range.first.row; row <= std::min(range.last.row, m_sheet.rows()); ++row)
        for (int col = range.first.col; col <= std::min(range.last.col, m_sheet.cols()); ++col)
            put({row, col}, {}, step);
    done(std::move(step));
}
