#include "office/Worksheet.h"

#include "base/Utf8.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

const CellValue kEmpty;
constexpr std::size_t kLongestText = 32767;

void require(bool holds, const char* message)
{
    if (!holds) throw std::invalid_argument(message);
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
    if (text.size() > kLongestText && Utf16(text).size() > kLongestText)
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
