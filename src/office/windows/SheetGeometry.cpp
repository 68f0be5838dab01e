#include "office/windows/SheetGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

/// A width of n digits of the standard font (8 pixels each) and the cell's own 5 pixels beside them.
int columnPixels(double characters)
{
    return static_cast<int>(characters < 1 ? characters * 13 + 0.5 : characters * 8 + 5);
}

template <class Edges>
int indexAt(const Edges& edges, int position)
{
    const auto after = std::upper_bound(edges.begin() + 1, edges.end() - 1, position);
    return static_cast<int>(after - edges.begin());
}

}  // namespace

SheetGeometry::SheetGeometry(const Worksheet& sheet, double scale, int rows, int cols)
    : m_scale(scale), m_merges(sheet.merges().begin(), sheet.merges().end())
{
    const auto edges = [&](int count, const auto& pixelsOf) {
        std::vector<int> all{0};
        double position = 0;
        for (int i = 1; i <= count; ++i)
            all.push_back(static_cast<int>(std::lround((position += pixelsOf(i)) * scale)));
        return all;
    };
    m_x = edges(cols, [&](int col) { return columnPixels(sheet.columnWidth(col)); });
    m_y = edges(rows, [&](int row) { return sheet.rowHeight(row) * kPixelsPerPoint; });
    for (std::size_t i = 0; i < m_merges.size(); ++i)
        for (int row = m_merges[i].first.row; row <= m_merges[i].last.row; ++row)
            for (int col = m_merges[i].first.col; col <= m_merges[i].last.col; ++col)
                m_mergeOf.emplace(key(CellRef(row, col)), i);
}

QRect SheetGeometry::rect(const CellRange& range) const
{
    const auto edge = [](const std::vector<int>& edges, int index) {
        return edges[static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(edges.size()) - 1))];
    };
    const QPoint corner(edge(m_x, range.first.col - 1), edge(m_y, range.first.row - 1));
    return {corner, QSize(edge(m_x, range.last.col) - corner.x(), edge(m_y, range.last.row) - corner.y())};
}

CellRef SheetGeometry::cellAt(QPoint point) const { return {indexAt(m_y, point.y()), indexAt(m_x, point.x())}; }

CellRange SheetGeometry::cellsIn(const QRect& rect) const
{
    return {cellAt(rect.topLeft()), cellAt(rect.bottomRight())};
}

CellRange SheetGeometry::area(CellRef cell) const
{
    const auto found = m_mergeOf.find(key(cell));
    return found == m_mergeOf.end() ? CellRange(cell) : m_merges[found->second];
}

CellRange SheetGeometry::withMerges(CellRange range) const
{
    for (bool grown = true; grown;) {
        grown = false;
        // Only what crosses an edge can stick out.
        const CellRange edges[] = {{range.first, CellRef(range.first.row, range.last.col)},
                                   {CellRef(range.last.row, range.first.col), range.last},
                                   {range.first, CellRef(range.last.row, range.first.col)},
                                   {CellRef(range.first.row, range.last.col), range.last}};
        for (const auto& edge : edges)
            for (int row = edge.first.row; row <= edge.last.row; ++row)
                for (int col = edge.first.col; col <= edge.last.col; ++col) {
                    const CellRange part = area(CellRef(row, col));
                    const CellRange sum(
                        std::min(range.first.row, part.first.row), std::min(range.first.col, part.first.col),
                        std::max(range.last.row, part.last.row), std::max(range.last.col, part.last.col));
                    if (sum != range) grown = true;
                    range = sum;
                }
    }
    return range;
}

bool SheetGeometry::covered(CellRef cell) const { return area(cell).first != cell; }
