#include "screens/Doubts.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Elevation.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <optional>

namespace {

std::string pointText(const SeenFrom& station) { return "(" + NumText(station.x) + ", " + NumText(station.y) + ")"; }

}  // namespace

void AddNote(std::vector<CellNote>& notes, std::uint32_t columns, const std::string& text)
{
    if (columns != 0 && !text.empty()) notes.push_back({columns, text});
}

namespace warning {
namespace {

constexpr const char* kNoStation = "没有测站：方位角和距离从坐标原点算起";

/// A stretch of the table holds the stake: rows 0 to `count`, the last one closing.
bool holds(const Tables::Column& stakes, std::int16_t count, double stake)
{
    for (std::size_t i = 1; count > 0 && i <= static_cast<std::size_t>(count) && i < stakes.size(); ++i)
        if (stakes[i - 1] <= stake && stake < stakes[i]) return true;
    return false;
}

}  // namespace

std::string NoStation(const StationInput& in) { return !in.typed && in.pick.empty() ? kNoStation : ""; }

std::string FileStation(const StationInput& shown)
{
    std::optional<std::pair<double, double>> seen;
    attempt([&] {
        if (shown.typed)
            seen = {ParseNumber(shown.x), ParseNumber(shown.y)};
        else if (shown.pickIndex >= 0)
            seen = {at(gDxdX, shown.pickIndex), at(gDxdY, shown.pickIndex)};
    });
    if (seen && seen->first == gStationX && seen->second == gStationY) return "";
    if (gStationX == 0 && gStationY == 0) return kNoStation;
    std::string text;
    attempt([&] { text = "文件计算用的测站是 " + pointText({gStationX, gStationY}); });
    return text;
}

std::string TwoPlaces(double typed)
{
    if (!gHasDl) return "";
    const Tables& t = shared.tables;
    bool both = false;
    attempt([&] {
        const double read = std::abs(typed);
        const auto first = ResolveStake(t, read, kDgdZb), second = ResolveStake(t, -read, kDgdZb);
        if (!first || !second) return;
        const auto one = ToNominal(t, *first), two = ToNominal(t, *second);
        const double shown = RoundHalfUp3(read);
        both = !one.secondPass && two.secondPass && one.value == shown && two.value == shown;
    });
    return both ? "此里程有两处（长链），负号表示第二处" : "";
}

std::string OffSection(double stake, double offset)
{
    const Tables& t = shared.tables;
    if (offset == 0) return "";
    if (t.cgkdCount < 1) return "没有超高宽度参数，高程取中桩高程";
    if (!holds(t.cgkdG, t.cgkdCount, stake)) return "里程超出超高宽度范围，高程取中桩高程";
    const RoadSection section = sectionAt(t, stake);
    if (std::abs(offset) <= section.halfMedian) return "";
    if (!holds(t.cgLc, t.cgCount, stake)) return "里程超出超高范围，高程取中桩高程";
    const auto& side = offset < 0 ? section.left : section.right;
    return std::abs(offset) > side.width ? "偏距超出路基，高程取路基边缘" : "";
}

}  // namespace warning

std::vector<CellNote> RoadNotes(std::span<const GridColumn> columns, const RoadDoubts& doubts, bool pickedStation)
{
    std::uint32_t alignment = 0, profile = 0;
    for (std::size_t col = 1; col < columns.size(); ++col) {
        if (columns[col].from == From::Alignment) alignment |= ColumnBit(static_cast<int>(col));
        if (columns[col].from == From::Profile) profile |= ColumnBit(static_cast<int>(col));
    }
    std::vector<CellNote> notes;
    AddNote(notes, alignment, doubts.alignment);
    AddNote(notes, profile, doubts.profile);
    if (pickedStation) AddNote(notes, kSeenCells, doubts.traverse);
    return notes;
}

void NotedRows::row(ResultRow row)
{
    std::uint32_t filled = 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) filled |= ColumnBit(static_cast<int>(i) + 1);
    for (const auto& note : m_notes) AddNote(row.notes, note.columns & filled, note.text);
    if (m_seen) row.station = {gStationX, gStationY};
    const std::string first = row.cells.empty() ? std::string() : row.cells.front().text;
    try {
        m_rows.row(std::move(row));
        ++m_count;
    } catch (const RunTimeError&) {
        m_refused = first;
        throw;
    }
}

namespace {

/// 1～3、7: numbers with the runs among them drawn together, the first few of them.
std::string numbersText(const std::vector<int>& numbers)
{
    constexpr int kMost = 5;
    std::string text;
    int parts = 0;
    for (std::size_t i = 0; i < numbers.size();) {
        if (++parts > kMost) return text + " 等";
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
        text += (text.empty() ? "" : "、") + std::to_string(numbers[i]);
        if (last > i) text += "～" + std::to_string(numbers[last]);
        i = last + 1;
    }
    return text;
}

}  // namespace

std::string OtherStations(const GridText& grid, int rows)
{
    const SeenFrom saved{gStationX, gStationY};
    std::vector<int> others;
    std::optional<SeenFrom> first;
    for (int row = 1; row <= rows && row < grid.rows(); ++row) {
        const auto& station = grid.station(row);
        if (!station || *station == saved) continue;
        others.push_back(row);
        if (!first) first = station;
    }
    if (others.empty()) return "";
    std::string text;
    attempt([&] {
        text = "第 " + numbersText(others) + " 行的测站是 " + pointText(*first) + (others.size() > 1 ? " 等" : "") +
               "，保存的表里写的是 " + pointText(saved);
    });
    return text;
}
