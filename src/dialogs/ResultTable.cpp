#include "dialogs/ResultTable.h"

#include "base/RunTimeError.h"

#include <algorithm>
#include <utility>

void ResultTable::row(ResultRow row)
{
    const int count = text().rows();  // with the new row, rows minus 1
    if (count > INT16_MAX) m_rows.setRows(count + 1);
    const std::int16_t counted = toInt16(count);
    m_rows.appendRow(std::move(row));
    state.rows = counted;
}

void ResultTable::deleteCursorRow()
{
    attempt([&] {
        if (state.rows == 1) {
            m_rows.setRows(1);
            state.rows = 0;
            return;
        }
        m_rows.RemoveItem(m_rows.Row());
        m_rows.renumber();
        state.rows = toInt16(state.rows - 1);
    });
}

PlainRows::PlainRows(const std::vector<std::string_view>& headers)
{
    m_text.setCols(static_cast<int>(headers.size()));
    for (std::size_t i = 0; i < headers.size(); ++i) m_text.setText(0, static_cast<int>(i), std::string(headers[i]));
}

void PlainRows::setRows(int rows)
{
    m_text.setRows(rows);
    m_row = std::min(m_row, rows - 1);
}

void PlainRows::appendRow(ResultRow row)
{
    m_text.append(std::move(row.cells), std::move(row.warning), std::move(row.notes));
    m_text.setStation(m_text.rows() - 1, row.station);
    m_text.setText(m_text.rows() - 1, 0, std::to_string(m_text.rows() - 1));
    m_row = std::max(m_row, 1);
}

void PlainRows::RemoveItem(int row)
{
    if (row < 1 || row >= m_text.rows()) throw RunTimeError(RunTimeError::Subscript);
    m_text.removeRow(row);
    m_row = std::min(m_row, m_text.rows() - 1);
}

void PlainRows::renumber()
{
    for (int row = 1; row < m_text.rows(); ++row) m_text.setText(row, 0, std::to_string(row));
}
