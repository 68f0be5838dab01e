#pragma once
// The results of a screen: rows go in, are counted and numbered, and one goes with the delete button. The rows stand in
// the grid of a window or, in the companion and in tests, in plain texts.

#include "base/GridText.h"
#include "dialogs/Outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Where the rows of a result stand: row 0 is the header, column 0 the number of the row.
class ResultRows {
public:
    virtual ~ResultRows() = default;
    virtual const GridText& text() const = 0;
    virtual int Row() const = 0;  ///< the row with the cursor; 0 while only the header stands
    virtual void setRows(int rows) = 0;
    virtual void appendRow(ResultRow row) = 0;  ///< with its number
    virtual void RemoveItem(int row) = 0;       ///< throws RunTimeError Subscript where it is no data row
    virtual void renumber() = 0;
};

/// What a screen keeps beside its rows.
struct ScreenState {
    std::int16_t rows = 0;  ///< the row counter
    bool changed = false;   ///< the data-changed flag

    bool operator==(const ScreenState&) const = default;
};

class ResultTable : public RowSink {
public:
    explicit ResultTable(ResultRows& rows) : m_rows(rows) {}

    ScreenState state;

    const GridText& text() const { return m_rows.text(); }
    /// Kept on purpose: the counter is not reset with the rows; the next row sets it.
    void clear() override { m_rows.setRows(1); }
    /// One row beyond what the counter holds is an Overflow, and that row stays, empty.
    void row(ResultRow row) override;
    void changed() override { state.changed = true; }
    /// The delete button: the row with the cursor goes. With no row at all nothing happens; the data-changed flag stays
    /// as it is.
    void deleteCursorRow();

private:
    ResultRows& m_rows;
};

/// Rows without a window.
class PlainRows : public ResultRows {
public:
    explicit PlainRows(const std::vector<std::string_view>& headers);

    const GridText& text() const override { return m_text; }
    int Row() const override { return m_row; }
    void setRow(int row) { m_row = row; }
    void setRows(int rows) override;
    void appendRow(ResultRow row) override;
    void RemoveItem(int row) override;
    void renumber() override;

private:
    GridText m_text;
    int m_row = 0;
};
