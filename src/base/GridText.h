#pragma once
// The texts of a grid as a plain value: what a window shows and a save writes. Row 0 is the header, column 0 the
// sequence number.

#include "base/Cell.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// The bytes that a file gave for a text, where the text alone would not give them back.
struct KeptBytes {
    std::string shown;
    std::string bytes;
};

/// The instrument station that a row was computed from, m: X north, Y east.
struct SeenFrom {
    double x = 0, y = 0;

    bool operator==(const SeenFrom&) const = default;
};

/// A doubt about some cells of a row, in Chinese.
struct CellNote {
    std::uint32_t columns = 0;  ///< bit c for column c
    std::string text = {};

    bool operator==(const CellNote&) const = default;
};
/// Bit of a column that has one: 1 to 31.
constexpr std::uint32_t ColumnBit(int col) { return col >= 0 && col < 32 ? std::uint32_t{1} << col : 0; }

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
    /// @param notes    see notes()
    void append(std::vector<Cell> cells, std::string warning, std::vector<CellNote> notes = {})
    {
        Row row;
        row.cells.resize(static_cast<std::size_t>(m_cols));
        for (std::size_t i = 0; i < cells.size() && i + 1 < row.cells.size(); ++i)
            row.cells[i + 1] = std::move(cells[i]);
        row.warning = std::move(warning);
        row.notes = std::move(notes);
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

    /// What is doubtful about single cells of the row. It goes with its row.
    const std::vector<CellNote>& notes(int row) const { return m_rows[static_cast<std::size_t>(row)].notes; }
    void clearNotes(int row) { m_rows[static_cast<std::size_t>(row)].notes.clear(); }
    bool doubtful(int row, int col) const
    {
        if (!warning(row).empty()) return true;
        for (const auto& note : notes(row))
            if (note.columns & ColumnBit(col)) return true;
        return false;
    }
    /// Why the cell is doubtful: the row's warning and the notes of its column; "" for most.
    std::string doubt(int row, int col) const
    {
        std::string all = warning(row);
        for (const auto& note : notes(row))
            if (note.columns & ColumnBit(col)) all += (all.empty() ? "" : "；") + note.text;
        return all;
    }

    /// The station that the row was computed from; none for rows that have nothing to do with one.
    const std::optional<SeenFrom>& station(int row) const { return m_rows[static_cast<std::size_t>(row)].station; }
    void setStation(int row, std::optional<SeenFrom> from) { m_rows[static_cast<std::size_t>(row)].station = from; }

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
        std::vector<CellNote> notes;
        std::optional<SeenFrom> station;
        std::vector<std::pair<int, KeptBytes>> kept;  // by column
    };
    std::vector<Row> m_rows = std::vector<Row>(1);
    int m_cols = 0;
};
