#pragma once
// Cells of an editor without its window.

#include "base/GridText.h"
#include "editors/EditorTable.h"

#include <string>
#include <vector>

/// A grid with the editor's header and these rows, cells from column 1 on.
inline GridText gridOf(const EditorTable& table, const std::vector<std::vector<std::string>>& rows)
{
    GridText cells;
    cells.setCols(static_cast<int>(table.columns.size()));
    cells.setRows(static_cast<int>(rows.size()) + 1);
    for (int col = 0; col < cells.cols(); ++col)
        cells.setText(0, col, table.columns[static_cast<std::size_t>(col)].header);
    for (int row = 1; row < cells.rows(); ++row)
        for (std::size_t i = 0; i < rows[static_cast<std::size_t>(row - 1)].size(); ++i)
            cells.setText(row, static_cast<int>(i) + 1, rows[static_cast<std::size_t>(row - 1)][i]);
    return cells;
}

/// A row with the same text in every data column.
inline std::vector<std::string> fullRow(const EditorTable& table, const std::string& text = "1")
{
    return std::vector<std::string>(static_cast<std::size_t>(table.lastColumn()), text);
}

/// The same with one column emptied.
inline std::vector<std::string> rowWithout(const EditorTable& table, int col)
{
    auto row = fullRow(table);
    row[static_cast<std::size_t>(col - 1)].clear();
    return row;
}

/// Every editor, the slope editors with each grade count.
inline std::vector<EditorTable> everyTable()
{
    std::vector<EditorTable> all{JdpqxTable(), JmpqxTable(), SqxTable(), CgTable(), CgkdTable(), DxdTable(), DlTable()};
    for (const SlopeKind& kind : {kTfz, kTfy, kWfz, kWfy})
        for (int g = 1; g <= kind.gradeLimit; ++g) all.push_back(SlopeTable(kind, g));
    return all;
}
