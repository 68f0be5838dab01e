// How the cells of a sheet look: runs of rows per column, each naming a style.

#include "office/Worksheet.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {

void require(bool holds, const char* message)
{
    if (!holds) throw std::invalid_argument(message);
}

template <class... Allowed>
bool oneOf(int value, Allowed... allowed)
{
    return ((value == allowed) || ...);
}

}  // namespace

const std::vector<Worksheet::StyleRun>& Worksheet::styleRuns(int col) const
{
    static const std::vector<StyleRun> none;
    return col >= 1 && static_cast<std::size_t>(col) <= m_runs.size() ? m_runs[static_cast<std::size_t>(col - 1)]
                                                                      : none;
}

int Worksheet::columnStyle(int col) const
{
    const auto& runs = styleRuns(col);
    return runs.empty() || runs.back().firstRow > kSheetRows / 2 ? 0 : runs.back().style;
}

int Worksheet::styleAt(CellRef cell) const
{
    const auto& runs = styleRuns(cell.col);
    const auto next = std::ranges::upper_bound(runs, cell.row, {}, &StyleRun::firstRow);
    return next == runs.begin() ? 0 : std::prev(next)->style;
}

const CellStyle& Worksheet::style(CellRef cell) const { return m_styles[static_cast<std::size_t>(styleAt(cell))]; }

int Worksheet::intern(const CellStyle& style)
{
    const auto [entry, isNew] = m_styleIndex.try_emplace(style, static_cast<int>(m_styles.size()));
    if (isNew) m_styles.push_back(style);
    return entry->second;
}

template <class Change>
void Worksheet::restyle(const CellRange& range, const Change& change)
{
    std::map<int, int> changed;  // index before and after
    const auto after = [&](int before) {
        const auto [entry, isNew] = changed.try_emplace(before, before);
        if (isNew) {
            auto style = m_styles[static_cast<std::size_t>(before)];
            change(style);
            entry->second = intern(style);
        }
        return entry->second;
    };
    if (m_runs.size() < static_cast<std::size_t>(range.last.col))
        m_runs.resize(static_cast<std::size_t>(range.last.col));
    for (int col = range.first.col; col <= range.last.col; ++col) {
        auto& runs = m_runs[static_cast<std::size_t>(col - 1)];
        const int below = styleAt({range.last.row, col});
        std::vector<StyleRun> inside{{range.first.row, after(styleAt(CellRef(range.first.row, col)))}};
        const auto begin = std::ranges::lower_bound(runs, range.first.row, {}, &StyleRun::firstRow);
        auto end = begin;
        for (; end != runs.end() && end->firstRow <= range.last.row; ++end)
            if (end->firstRow > range.first.row) inside.push_back({end->firstRow, after(end->style)});
        const bool endsInRun = end == runs.end() || end->firstRow > range.last.row + 1;
        if (endsInRun && range.last.row < kSheetRows) inside.push_back({range.last.row + 1, below});

        auto at = runs.erase(begin, end);
        at = runs.insert(at, inside.begin(), inside.end());
        // Neighbours alike become one run again; a look like that of the cells above row 1 (standard) needs no run.
        auto tidyFrom = at == runs.begin() ? at : std::prev(at);
        const auto tidyTo = std::min<std::ptrdiff_t>(runs.end() - at, static_cast<std::ptrdiff_t>(inside.size()) + 1);
        int previous = tidyFrom == runs.begin() ? 0 : std::prev(tidyFrom)->style;
        const auto stale = std::remove_if(tidyFrom, at + tidyTo, [&](const StyleRun& run) {
            return std::exchange(previous, run.style) == run.style;
        });
        runs.erase(stale, at + tidyTo);
    }
}

void Worksheet::setHorizontalAlignment(const CellRange& range, int alignment)
{
    require(oneOf(alignment, xlGeneral, xlLeft, xlCenter, xlRight), "no such horizontal alignment");
    restyle(range, [&](CellStyle& style) { style.horizontal = alignment; });
}

void Worksheet::setVerticalAlignment(const CellRange& range, int alignment)
{
    require(oneOf(alignment, xlTop, xlCenter, xlBottom), "no such vertical alignment");
    restyle(range, [&](CellStyle& style) { style.vertical = alignment; });
}

void Worksheet::center(const CellRange& range)
{
    restyle(range, [](CellStyle& style) { style.horizontal = style.vertical = xlCenter; });
}

void Worksheet::setWrapText(const CellRange& range, bool wrap)
{
    restyle(range, [&](CellStyle& style) { style.wrap = wrap; });
}

void Worksheet::setNumberFormat(const CellRange& range, std::string_view format)
{
    require(!format.empty() && format.size() <= 255, "no such number format");
    restyle(range, [&](CellStyle& style) { style.numberFormat = format; });
}

void Worksheet::setFont(const CellRange& range, std::string_view name, double points)
{
    require(!name.empty() && name.size() <= 31 * 3 && points >= 1 && points <= 409, "no such font");
    restyle(range, [&](CellStyle& style) {
        style.fontName = name;
        style.fontSize = points;
    });
}

void Worksheet::setBold(const CellRange& range, bool bold)
{
    restyle(range, [&](CellStyle& style) { style.bold = bold; });
}

void Worksheet::setItalic(const CellRange& range, bool italic)
{
    restyle(range, [&](CellStyle& style) { style.italic = italic; });
}

void Worksheet::setInterior(const CellRange& range, int colorIndex, int pattern)
{
    require(oneOf(pattern, xlSolid, xlNone), "no such pattern");
    require(colorIndex == xlNone || (colorIndex >= 1 && colorIndex <= 56), "no such colour");
    restyle(range, [&](CellStyle& style) { style.fillColor = pattern == xlNone ? xlNone : colorIndex; });
}

void Worksheet::setLine(const CellRange& cells, int index, CellLine line)
{
    restyle(cells, [&](CellStyle& style) { style.line(index) = line; });
}

/// The cells outside a block's edge, where they draw a line of their own at that edge, follow the last word on it.
void Worksheet::joinNeighbour(const CellRange& cells, int index, CellLine line)
{
    restyle(cells, [&](CellStyle& style) {
        if (style.line(index).weight != xlNone) style.line(index) = line;
    });
}

void Worksheet::borders(const CellRange& range, int index, int lineStyle, int weight, int colorIndex)
{
    require(index >= xlDiagonalDown && index <= xlInsideHorizontal, "no such border");
    require(oneOf(lineStyle, xlContinuous, xlNone), "no such line style");
    require(lineStyle == xlNone || oneOf(weight, xlHairline, xlThin, xlMedium, xlThick), "no such line weight");
    require(colorIndex == xlColorIndexAutomatic || (colorIndex >= 1 && colorIndex <= 56), "no such colour");
    const auto line = lineStyle == xlNone ? CellLine{} : CellLine{weight, colorIndex};
    const auto [top, left] = range.first;
    const auto [bottom, right] = range.last;
    switch (index) {
    case xlEdgeLeft:
        setLine({top, left, bottom, left}, xlEdgeLeft, line);
        if (left > 1) joinNeighbour({top, left - 1, bottom, left - 1}, xlEdgeRight, line);
        break;
    case xlEdgeRight:
        setLine({top, right, bottom, right}, xlEdgeRight, line);
        if (right < kSheetCols) joinNeighbour({top, right + 1, bottom, right + 1}, xlEdgeLeft, line);
        break;
    case xlEdgeTop:
        setLine({top, left, top, right}, xlEdgeTop, line);
        if (top > 1) joinNeighbour({top - 1, left, top - 1, right}, xlEdgeBottom, line);
        break;
    case xlEdgeBottom:
        setLine({bottom, left, bottom, right}, xlEdgeBottom, line);
        if (bottom < kSheetRows) joinNeighbour({bottom + 1, left, bottom + 1, right}, xlEdgeTop, line);
        break;
    case xlInsideVertical:
        if (left == right) break;
        setLine({top, left, bottom, right - 1}, xlEdgeRight, line);
        setLine({top, left + 1, bottom, right}, xlEdgeLeft, line);
        break;
    case xlInsideHorizontal:
        if (top == bottom) break;
        setLine({top, left, bottom - 1, right}, xlEdgeBottom, line);
        setLine({top + 1, left, bottom, right}, xlEdgeTop, line);
        break;
    default:
        setLine(range, index, line);
    }
}
