#pragma once
// Where the rows of a calculation go: into a grid, numbered and counted.

#include "dialogs/ResultTable.h"
#include "ui/BusyRow.h"

#include <QTimer>

class MSFlexGrid;

/// Appends rows to a grid. Rows count at once and appear whenever the event loop takes a turn, at the latest when the
/// sink goes. Work that lasts shows how far it is, and Esc abandons it.
class GridSink : public RowSink {
public:
    /// @param table  of the rows of this grid
    GridSink(MSFlexGrid& grid, ResultTable& table);
    ~GridSink() override;
    GridSink(const GridSink&) = delete;
    GridSink& operator=(const GridSink&) = delete;

    void clear() override { m_table.clear(); }
    void row(ResultRow row) override;
    void changed() override { m_table.changed(); }
    bool abandoned() override;

private:
    MSFlexGrid& m_grid;
    ResultTable& m_table;
    BusyRow m_busy;
    QTimer m_show;  // fires in the next turn of the event loop
};
