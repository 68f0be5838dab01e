#pragma once
// What a calculation screen keeps beside its grid, how a row is deleted, and a grid without a window for the companion
// and for tests.

#include "desk/GridText.h"
#include "desk/Outcome.h"
#include "engine/RunTimeError.h"
#include "screens/Columns.h"
#include "screens/Handler.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// What a screen keeps beside its grid.
struct ScreenState {
    std::int16_t rows = 0;  ///< the row counter
    bool changed = false;   ///< the data-changed flag

    bool operator==(const ScreenState&) const = default;
};

/// The delete button, on the grid of a window or a TextGrid: the row that holds the cursor goes. With no row at all
/// nothing happens; the data-changed flag stays as it is.
template <class Grid>
void DeleteCursorRow(Grid& grid, ScreenState& state)
{
    Handle(Trap::Silent, [&] {
        if (state.rows == 1) {
            grid.setRows(1);
            state.rows = 0;
            return;
        }
        grid.RemoveItem(grid.Row());
        RenumberGrid(grid);
        state.rows = toInt16(state.rows - 1);
    });
}

/// A grid without a window.
class TextGrid {
public:
    explicit TextGrid(std::span<const GridColumn> columns);

    int Rows() const { return m_text.rows(); }
    void setRows(int rows);
    int Row() const { return m_row; }
    void setRow(int row) { m_row = row; }
    void RemoveItem(int row);  ///< throws Subscript where it is the header or no row
    void appendRow(std::vector<std::string> cells, const std::string& warning = {});

    const GridText& text() const { return m_text; }
    /// Of a data row; "" for none.
    const std::string& warning(int row) const { return m_warnings[static_cast<std::size_t>(row)]; }
    friend void RenumberGrid(TextGrid& grid);

private:
    GridText m_text;
    std::vector<std::string> m_warnings;
    int m_row = 0;
};
void RenumberGrid(TextGrid& grid);

/// Rows into a TextGrid, counted as a screen counts them: past 32,767 the row is there, empty, and the counter fails.
class TextRows : public RowSink {
public:
    TextRows(TextGrid& grid, ScreenState& state) : m_grid(grid), m_state(state) {}

    /// Kept on purpose: the counter is not reset with the grid; the next row sets it.
    void clear() override { m_grid.setRows(1); }
    void row(ResultRow row) override;
    void changed() override { m_state.changed = true; }

private:
    TextGrid& m_grid;
    ScreenState& m_state;
};
