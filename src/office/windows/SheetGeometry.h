#pragma once
// Where the cells of a sheet stand at a scale.

#include "office/Worksheet.h"

#include <QRect>

#include <unordered_map>
#include <vector>

/// Where rows, columns and merged cells stand. Pixels of the device; `scale` is 1 at 96 of them to the inch.
class SheetGeometry {
public:
    static constexpr double kPixelsPerPoint = 96.0 / 72;

    SheetGeometry() = default;
    SheetGeometry(const Worksheet& sheet, double scale, int rows, int cols);

    double scale() const { return m_scale; }
    int rows() const { return static_cast<int>(m_y.size()) - 1; }
    int cols() const { return static_cast<int>(m_x.size()) - 1; }
    QSize size() const { return {m_x.back(), m_y.back()}; }

    QRect rect(const CellRange& range) const;
    CellRef cellAt(QPoint point) const;  ///< the nearest one
    CellRange cellsIn(const QRect& rect) const;
    CellRange area(CellRef cell) const;                      ///< the merge that holds the cell, or the cell
    CellRange withMerges(CellRange range) const;             ///< grown until no merge sticks out
    bool covered(CellRef cell) const;                        ///< by a merge that starts elsewhere
    const std::vector<int>& columns() const { return m_x; }  ///< edges, the first one 0
    const std::vector<int>& lines() const { return m_y; }

private:
    static int key(CellRef cell) { return cell.row * kSheetCols + cell.col; }
    double m_scale = 0;  // nothing is measured
    std::vector<int> m_x{0}, m_y{0};
    std::vector<CellRange> m_merges;
    std::unordered_map<int, std::size_t> m_mergeOf;
};
