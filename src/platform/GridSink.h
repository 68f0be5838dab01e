#pragma once
// Where the rows of a calculation go: into a grid, numbered and counted.

#include "desk/Outcome.h"
#include "platform/BusyRow.h"

#include <QTimer>

#include <cstdint>

class MSFlexGrid;

/// Appends rows to a grid. Rows count at once and appear whenever the event loop takes a turn, at the latest when the
/// sink goes. Work that lasts shows how far it is, and Esc abandons it.
class GridSink : public RowSink {
public:
    /// @param rowCounter the form's count of data rows, set with each row; one row beyond what it holds is an Overflow,
    ///        and that row stays in the grid, empty
    GridSink(MSFlexGrid& grid, std::int16_t& rowCounter);
    ~GridSink() override;
    GridSink(const GridSink&) = delete;
    GridSink& operator=(const GridSink&) = delete;

    void clear() override;  ///< back to the header row; the row counter keeps its value
    void row(ResultRow row) override;
    bool abandoned() override;

private:
    MSFlexGrid& m_grid;
    std::int16_t& m_rowCounter;
    BusyRow m_busy;
    QTimer m_show;  // fires in the next turn of the event loop
};
