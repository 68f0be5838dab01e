#include "ui/GridSink.h"

#include "ui/MSFlexGrid.h"

#include <utility>

GridSink::GridSink(MSFlexGrid& grid, ResultTable& table) : m_grid(grid), m_table(table), m_busy(&grid)
{
    m_grid.holdBack(true);
    m_show.setSingleShot(true);
    QObject::connect(&m_show, &QTimer::timeout, &m_grid, &MSFlexGrid::showRows);
}

GridSink::~GridSink() { m_grid.holdBack(false); }

void GridSink::row(ResultRow row)
{
    if (!m_show.isActive()) m_show.start(0);
    m_table.row(std::move(row));
}

bool GridSink::abandoned()
{
    m_busy.tick([this] { return QStringLiteral("正在计算……已有 %1 行，按 Esc 停止").arg(m_grid.Rows() - 1); });
    return m_busy.abandoned();
}
