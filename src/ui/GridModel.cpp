#include "ui/GridModel.h"

#include "ui/Theme.h"

#include <QColor>

#include <algorithm>

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : std::max(0, m_text.cols() - 1);
}

void GridModel::setRows(int rows)
{
    const int now = m_text.rows();
    m_numbered = std::min(m_numbered, rows - 1);
    if (rows < now) {
        showAll();
        beginRemoveRows({}, rows - 1, now - 2);
        m_text.setRows(rows);
        m_shown = rows - 1;
        endRemoveRows();
    } else if (rows > now) {
        m_text.setRows(rows);
        if (!m_hold) showAll();
    }
}

void GridModel::setCols(int cols)
{
    const int now = columnCount();
    const int then = std::max(0, cols - 1);
    if (then > now) {
        beginInsertColumns({}, now, then - 1);
        m_text.setCols(cols);
        endInsertColumns();
    } else if (then < now) {
        beginRemoveColumns({}, then, now - 1);
        m_text.setCols(cols);
        endRemoveColumns();
    } else {
        m_text.setCols(cols);
    }
}

void GridModel::setText(int row, int col, std::string text)
{
    if (col == 0 && row > 0) m_numbered = std::min(m_numbered, row - 1);
    m_text.setText(row, col, std::move(text));
    if (row > m_shown) return;
    if (row > 0 && col > 0)
        emit dataChanged(index(row - 1, col - 1), index(row - 1, col - 1));
    else if (row > 0)
        emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
    else if (col > 0)
        emit headerDataChanged(Qt::Horizontal, col - 1, col - 1);
}

void GridModel::insertRow(int row)
{
    showAll();
    beginInsertRows({}, row - 1, row - 1);
    m_text.insertRow(row);
    m_numbered = std::min(m_numbered, row - 1);
    ++m_shown;
    endInsertRows();
}

void GridModel::removeRow(int row)
{
    showAll();
    beginRemoveRows({}, row - 1, row - 1);
    m_text.removeRow(row);
    m_numbered = std::min(m_numbered, row - 1);
    --m_shown;
    endRemoveRows();
}

void GridModel::clear()
{
    showAll();
    for (int row = 0; row < m_text.rows(); ++row) {
        m_text.setWarning(row, {});
        m_text.clearNotes(row);
        m_text.setStation(row, {});
        for (int col = 0; col < m_text.cols(); ++col)
            if (!m_text.text(row, col).empty()) m_text.setText(row, col, {});
    }
    m_numbered = 0;
    if (m_shown > 0 && columnCount() > 0) emit dataChanged(index(0, 0), index(m_shown - 1, columnCount() - 1));
    if (m_shown > 0) emit headerDataChanged(Qt::Vertical, 0, m_shown - 1);
    if (columnCount() > 0) emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void GridModel::append(ResultRow row)
{
    m_text.append(std::move(row.cells), std::move(row.warning), std::move(row.notes));
    m_text.setStation(m_text.rows() - 1, row.station);
    renumber();
    if (!m_hold) showAll();
}

void GridModel::renumber()
{
    const int first = m_numbered + 1;
    const int last = m_text.rows() - 1;
    for (int row = first; row <= last; ++row) m_text.setText(row, 0, std::to_string(row));
    m_numbered = last;
    if (first <= std::min(last, m_shown)) emit headerDataChanged(Qt::Vertical, first - 1, std::min(last, m_shown) - 1);
}

void GridModel::showAll()
{
    const int rows = m_text.rows() - 1;
    if (m_shown >= rows) return;
    beginInsertRows({}, m_shown, rows - 1);
    m_shown = rows;
    endInsertRows();
}

Qt::Alignment GridModel::alignment(int col) const
{
    const auto found = m_alignments.find(col);
    return found == m_alignments.end() ? Qt::AlignLeft | Qt::AlignVCenter : found->second;
}

void GridModel::setAlignment(int col, Qt::Alignment alignment)
{
    m_alignments[col] = alignment;
    if (col > 0 && col <= columnCount()) {
        emit headerDataChanged(Qt::Horizontal, col - 1, col - 1);
        if (m_shown > 0) emit dataChanged(index(0, col - 1), index(m_shown - 1, col - 1));
    }
}

void GridModel::setHeaderToolTip(int col, const QString& tip) { m_headerToolTips[col] = tip; }

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row() + 1;
    const int col = index.column() + 1;
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(m_text.text(row, col));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignment(col));
    case Qt::BackgroundRole:
        if (m_text.doubtful(row, col)) return theme::kAmber;
        if (row == m_currentRow) return theme::kCurrentRow;
        return {};
    case Qt::ToolTipRole:
        if (const auto doubt = m_text.doubt(row, col); !doubt.empty()) return QString::fromStdString(doubt);
        return {};
    case Qt::AccessibleDescriptionRole:
        return QString::fromStdString(m_text.doubt(row, col));
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool across = orientation == Qt::Horizontal;
    const int row = across ? 0 : section + 1;
    const int col = across ? section + 1 : 0;
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(m_text.text(row, col));
    case Qt::TextAlignmentRole:
        return static_cast<int>(alignment(col)) | (across ? Qt::TextWordWrap : 0);
    case Qt::ToolTipRole:
        if (const auto tip = m_headerToolTips.find(col); across && tip != m_headerToolTips.end()) return tip->second;
        return {};
    default:
        return {};
    }
}
