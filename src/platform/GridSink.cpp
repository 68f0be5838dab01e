#include "platform/GridSink.h"

#include "engine/RunTimeError.h"
#include "platform/MSFlexGrid.h"

GridSink::GridSink(MSFlexGrid& grid, std::int16_t& rowCounter) : m_grid(grid), m_rowCounter(rowCounter), m_busy(&grid)
{
    m_grid.holdBack(true);
    m_show.setSingleShot(true);
    QObject::connect(&m_show, &QTimer::timeout, &m_grid, &MSFlexGrid::showRows);
}

GridSink::~GridSink() { m_grid.holdBack(false); }

void GridSink::clear() { m_grid.setRows(1); }

void GridSink::row(ResultRow row)
{
    if (m_grid.Rows() > INT16_MAX) {
        m_grid.setRows(m_grid.Rows() + 1);
        throw RunTimeError(RunTimeError::Overflow);
    }
    if (!m_show.isActive()) m_show.start(0);
    m_grid.appendRow(std::move(row.cells), row.warning);
    m_rowCounter = toInt16(m_grid.Rows() - 1);
}

bool GridSink::abandoned()
{
    m_busy.tick([this] { return QStringLiteral("正在计算……已有 %1 行，按 Esc 停止").arg(m_grid.Rows() - 1); });
    return m_busy.abandoned();
}
