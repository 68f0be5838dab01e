#include "office/Worksheet.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace {

const CellValue kEmpty;
constexpr std::size_t kLongestText = 32767;

/// UTF-16 units of a UTF-8 text: one a character, two for those beyond the basic plane.
std::size_t utf16Units(std::string_view text)
{
    std::size_t units = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        units += (byte & 0xC0) != 0x80;
        units += byte >= 0xF0;
    }
    return units;
}

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

Worksheet::Worksheet() : m_styles(1), m_styleIndex{{CellStyle{}, 0}} {}

// --- Values ---------------------------------------------------------------------------------------------------------

CellValue& Worksheet::slot(CellRef cell)
{
    const auto row = static_cast<std::size_t>(cell.row);
    const auto col = static_cast<std::size_t>(cell.col);
    if (m_rows.size() < row) m_rows.resize(row);
    auto& values = m_rows[row - 1];
    if (values.size() < col) {
        // The row above tells how wide a row is likely to grow.
        if (values.empty() && row > 1) values.reserve(std::max(col, m_rows[row - 2].size()));
        values.resize(col);
    }
    return values[col - 1];
}

void Worksheet::setValue(CellRef cell, std::string_view text)
{
    if (m_styles[static_cast<std::size_t>(styleAt(cell))].numberFormat != "@")
        if (const auto number = NumberOfTyped(text)) return setNumber(cell, *number);
    setText(cell, std::string(text));
}

void Worksheet::setText(CellRef cell, std::string text)
{
    if (text.empty()) return clearValue(cell);
    if (text.size() > kLongestText && utf16Units(text) > kLongestText)
        throw std::length_error("a cell holds at most 32767 characters");
    slot(cell) = std::move(text);
}

void Worksheet::setNumber(CellRef cell, double value)
{
    require(std::isfinite(value), "a cell holds finite numbers only");
    slot(cell) = value;
}

void Worksheet::clearValue(CellRef cell)
{
    const auto row = static_cast<std::size_t>(cell.row);
    if (m_rows.size() < row || m_rows[row - 1].size() < static_cast<std::size_t>(cell.col)) return;
    slot(cell) = {};
}

const CellValue& Worksheet::value(CellRef cell) const
{
    const auto& values = rowValues(cell.row);
    const auto col = static_cast<std::size_t>(cell.col);
    return col <= values.size() ? values[col - 1] : kEmpty;
}

const std::vector<CellValue>& Worksheet::rowValues(int row) const
{
    static const std::vector<CellValue> none;
    return row >= 1 && static_cast<std::size_t>(row) <= m_rows.size() ? m_rows[static_cast<std::size_t>(row - 1)]
                                                                      : none;
}

std::optional<double> Worksheet::number(CellRef cell) const
{
    const auto& held = value(cell);
    if (std::holds_alternative<std::string>(held)) return std::nullopt;
    const auto number = std::get_if<double>(&held);
    return number ? *number : 0;
}

std::string Worksheet::text(CellRef cell) const
{
    const auto& held = value(cell);
    if (const auto number = std::get_if<double>(&held)) return EntryText(*number);
    const auto text = std::get_if<std::string>(&held);
    return text ? *text : std::string();
}

std::string Worksheet::shown(CellRef cell) const { return ShownText(value(cell), style(cell).numberFormat); }

int Worksheet::rows() const
{
    int last = m_heights.empty() ? 0 : m_heights.rbegin()->first;
    for (auto row = static_cast<int>(m_rows.size()); row > last; --row)
        if (std::ranges::any_of(rowValues(row), [](const auto& value) { return value.index() != 0; })) last = row;
    for (const auto& merge : m_merges) last = std::max(last, merge.last.row);
    for (int col = 1; col <= static_cast<int>(m_runs.size()); ++col) {
        const auto& runs = styleRuns(col);
        if (runs.empty()) continue;
        const bool toTheFoot = runs.back().style != columnStyle(col);
        last = std::max(last, toTheFoot ? kSheetRows : runs.back().firstRow - 1);
    }
    return last;
}

int Worksheet::cols() const
{
    int last = m_widths.empty() ? 0 : m_widths.rbegin()->first;
    for (const auto& values : m_rows)
        for (auto col = static_cast<int>(values.size()); col > last; --col)
            if (values[static_cast<std::size_t>(col - 1)].index() != 0) last = col;
    for (const auto& merge : m_merges) last = std::max(last, merge.last.col);
    for (auto col = static_cast<int>(m_runs.size()); col > last; --col)
        if (!styleRuns(col).empty()) last = col;
    return last;
}

// --- Merges ---------------------------------------------------------------------------------------------------------

void Worksheet::merge(const CellRange& range)
{
    unmerge(range);
    if (range.first == range.last) return;
    m_merges.insert(range);
    m_tallestMerge = std::max(m_tallestMerge, range.rows());
    for (int row = range.first.row; row <= std::min(range.last.row, static_cast<int>(m_rows.size())); ++row)
        for (int col = range.first.col; col <= range.last.col; ++col)
            if (CellRef cell(row, col); cell != range.first) clearValue(cell);
}

std::vector<CellRange> Worksheet::mergesThatMeet(const CellRange& range) const
{
    std::vector<CellRange> found;
    const CellRange earliest(CellRef(std::max(1, range.first.row - m_tallestMerge + 1), 1));
    for (auto merge = m_merges.lower_bound(earliest); merge != m_merges.end() && merge->first.row <= range.last.row;
         ++merge)
        if (merge->meets(range)) found.push_back(*merge);
    return found;
}

void Worksheet::unmerge(const CellRange& range)
{
    for (const auto& merge : mergesThatMeet(range)) m_merges.erase(merge);
}

CellRange Worksheet::mergeArea(CellRef cell) const
{
    const auto found = mergesThatMeet(cell);
    return found.empty() ? CellRange(cell) : found.front();
}

// --- Looks ----------------------------------------------------------------------------------------------------------

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

// --- Widths and heights ---------------------------------------------------------------------------------------------

void Worksheet::setColumnWidth(const CellRange& columns, double characters)
{
    require(characters >= 0 && characters <= 255, "no such column width");
    for (int col = columns.first.col; col <= columns.last.col; ++col) m_widths[col] = characters;
}

double Worksheet::columnWidth(int col) const
{
    const auto found = m_widths.find(col);
    return found != m_widths.end() ? found->second : kStandardWidth;
}

void Worksheet::setRowHeight(const CellRange& rows, double points)
{
    require(points >= 0 && points <= 409, "no such row height");
    for (int row = rows.first.row; row <= rows.last.row; ++row) m_heights[row] = points;
}

double Worksheet::rowHeight(int row) const
{
    const auto found = m_heights.find(row);
    return found != m_heights.end() ? found->second : kStandardHeight;
}

bool Worksheet::operator==(const Worksheet& other) const
{
    const bool sameFrame = page == other.page && m_merges == other.m_merges && m_widths == other.m_widths &&
                           m_heights == other.m_heights && m_selection == other.m_selection;
    if (!sameFrame) return false;

    const auto rowCount = static_cast<int>(std::max(m_rows.size(), other.m_rows.size()));
    for (int row = 1; row <= rowCount; ++row) {
        const auto& mine = rowValues(row);
        const auto& theirs = other.rowValues(row);
        const auto& longer = mine.size() >= theirs.size() ? mine : theirs;
        const auto common = static_cast<std::ptrdiff_t>(std::min(mine.size(), theirs.size()));
        if (!std::equal(mine.begin(), mine.begin() + common, theirs.begin())) return false;
        if (std::any_of(longer.begin() + common, longer.end(), [](const auto& value) { return value.index() != 0; }))
            return false;
    }

    const auto sameRun = [&](const StyleRun& a, const StyleRun& b) {
        return a.firstRow == b.firstRow &&
               m_styles[static_cast<std::size_t>(a.style)] == other.m_styles[static_cast<std::size_t>(b.style)];
    };
    for (int col = 1; col <= kSheetCols; ++col)
        if (!std::ranges::equal(styleRuns(col), other.styleRuns(col), sameRun)) return false;
    return true;
}
