#include "screens/ScreenRows.h"

TextGrid::TextGrid(std::span<const GridColumn> columns)
{
    m_text.setCols(static_cast<int>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i)
        m_text.setText(0, static_cast<int>(i), std::string(columns[i].header));
    m_warnings.resize(1);
}

void TextGrid::setRows(int rows)
{
    m_text.setRows(rows);
    m_warnings.resize(static_cast<std::size_t>(rows));
    if (m_row >= rows) m_row = rows - 1;
}

void TextGrid::RemoveItem(int row)
{
    if (row < 1 || row >= Rows()) throw RunTimeError(RunTimeError::Subscript);
    m_text.removeRow(row);
    m_warnings.erase(m_warnings.begin() + row);
    if (m_row >= Rows()) m_row = Rows() - 1;
}

void TextGrid::appendRow(std::vector<std::string> cells, const std::string& warning)
{
    const int row = Rows();
    setRows(row + 1);
    m_text.setText(row, 0, std::to_string(row));
    for (std::size_t i = 0; i < cells.size(); ++i) m_text.setText(row, static_cast<int>(i) + 1, std::move(cells[i]));
    m_warnings.back() = warning;
    if (m_row == 0) m_row = 1;
}

void RenumberGrid(TextGrid& grid)
{
    for (int row = 1; row < grid.Rows(); ++row) grid.m_text.setText(row, 0, std::to_string(row));
}

void TextRows::row(ResultRow row)
{
    const int count = m_grid.Rows();  // with the new row, rows minus 1
    if (count > INT16_MAX) m_grid.setRows(count + 1);
    m_state.rows = toInt16(count);
    m_grid.appendRow(std::move(row.cells), row.warning);
}
