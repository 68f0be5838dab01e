#pragma once
// The texts of a grid as a plain value: what a window shows and a save writes. Row 0 is the header, column 0 the
// sequence number.

#include "base/Cell.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// The bytes that a file gave for a text, where the text alone would not give them back.
struct KeptBytes {
    std::string shown;
    std::string bytes;
};

class GridText {
public:
    int rows() const { return static_cast<int>(m_rows.size()); }
    int cols() const { return m_cols; }
    void setRows(int rows) { m_rows.resize(static_cast<std::size_t>(rows < 0 ? 0 : rows)); }
    void setCols(int cols) { m_cols = cols < 0 ? 0 : cols; }

    /// The text of a cell; "" where nothing was written yet.
    const std::string& text(int row, int col) const { return cell(row, col).text; }
    /// The number that a cell shows, where the one who wrote it said so.
    std::optional<double> shown(int row, int col) const { return cell(row, col).value.shown(); }
    void setText(int row, int col, std::string text) { setCell(row, col, std::move(text)); }
    void setCell(int row, int col, Cell cell)
    {
        auto& cells = m_rows[static_cast<std::size_t>(row)].cells;
        if (cells.size() <= static_cast<std::size_t>(col))
            cells.resize(static_cast<std::size_t>(m_cols > col ? m_cols : col + 1));
        cells[static_cast<std::size_t>(col)] = std::move(cell);
    }
    /// A row at the end with these cells from column 1 on, as far as there are columns.
    /// @param warning  see warning()
    void append(std::vector<Cell> cells, std::string warning)
    {
        Row row;
        row.cells.resize(static_cast<std::size_t>(m_cols));
        for (std::size_t i = 0; i < cells.size() && i + 1 < row.cells.size(); ++i)
            row.cells[i + 1] = std::move(cells[i]);
        row.warning = std::move(warning);
        m_rows.push_back(std::move(row));
    }
    void insertRow(int before) { m_rows.insert(m_rows.begin() + before, Row{}); }
    void removeRow(int row) { m_rows.erase(m_rows.begin() + row); }

    /// Why the arithmetic cannot vouch for the row, in Chinese; "" for most. It goes with its row.
    const std::string& warning(int row) const { return m_rows[static_cast<std::size_t>(row)].warning; }
    void setWarning(int row, std::string warning)
    {
        m_rows[static_cast<std::size_t>(row)].warning = std::move(warning);
    }

    /// The bytes of the cell's present text. They go with their row, and stay whatever is written over the text.
    void keepBytes(int row, int col, std::string bytes)
    {
        m_rows[static_cast<std::size_t>(row)].kept.emplace_back(col, KeptBytes{text(row, col), std::move(bytes)});
    }
    /// nullptr where none were kept.
    const KeptBytes* keptBytes(int row, int col) const
    {
        for (const auto& [at, kept] : m_rows[static_cast<std::size_t>(row)].kept)
            if (at == col) return &kept;
        return nullptr;
    }

private:
    const Cell& cell(int row, int col) const
    {
        static const Cell none;
        const auto& cells = m_rows[static_cast<std::size_t>(row)].cells;
        return static_cast<std::size_t>(col) < cells.size() ? cells[static_cast<std::size_t>(col)] : none;
    }

    struct Row {
        std::vector<Cell> cells;
        std::string warning;
        std::vector<std::pair<int, KeptBytes>> kept;  // by column
    };
    std::vector<Row> m_rows = std::vector<Row>(1);
    int m_cols = 0;
};
