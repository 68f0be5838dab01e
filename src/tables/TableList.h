#pragma once
// The one list of what the tables are made of: whoever prints, compares, checks or fuzzes them goes through it.

#include "tables/CalcTables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A column by its given name: numbers or texts.
struct TableColumn {
    std::string_view name;
    Tables::Column Tables::*numbers = nullptr;
    std::vector<std::string> Tables::*texts = nullptr;

    constexpr TableColumn(std::string_view n, Tables::Column Tables::*column) : name(n), numbers(column) {}
    constexpr TableColumn(std::string_view n, std::vector<std::string> Tables::*column) : name(n), texts(column) {}

    /// visit(column) with the vector itself, of whichever kind.
    template <class T, class Visit>
    void with(T& tables, Visit visit) const
    {
        if (texts)
            visit(tables.*texts);
        else
            visit(tables.*numbers);
    }
    std::size_t size(const Tables& tables) const { return texts ? (tables.*texts).size() : (tables.*numbers).size(); }
};

/// A table: its title in Chinese, its count and what rows are used.
struct TableInfo {
    std::string_view title;
    std::string_view countName;
    std::int16_t Tables::*count;  ///< upper index; null where the columns' own size tells
    std::size_t first;            ///< first row in use
    std::span<const TableColumn> columns;

    std::int16_t countOf(const Tables& tables) const
    {
        if (count) return tables.*count;
        const auto rows = columns.front().size(tables);
        return static_cast<std::int16_t>(rows == 0 ? 0 : rows - 1);
    }
    /// Rows 0 to the count, as far as any column is filled; the first ones may be below `first`.
    std::size_t rows(const Tables& tables) const
    {
        std::size_t filled = 0;
        for (const auto& column : columns) filled = std::max(filled, column.size(tables));
        return std::min(filled, static_cast<std::size_t>(std::max<int>(countOf(tables), -1) + 1));
    }
};

namespace table_list {

using T = Tables;
inline constexpr std::array elements{TableColumn{"gElemLc", &T::elemLc}, TableColumn{"gElemX", &T::elemX},
                                     TableColumn{"gElemY", &T::elemY},   TableColumn{"gElemFwj", &T::elemFwj},
                                     TableColumn{"gElemR1", &T::elemR1}, TableColumn{"gElemR2", &T::elemR2}};
inline constexpr std::array traverse{TableColumn{"gDxdName", &T::dxdName}, TableColumn{"gDxdX", &T::dxdX},
                                     TableColumn{"gDxdY", &T::dxdY}};
inline constexpr std::array breaks{TableColumn{"gDlBack", &T::dlBack}, TableColumn{"gDlAhead", &T::dlAhead},
                                   TableColumn{"gDlCum", &T::dlCum}};
inline constexpr std::array vertical{TableColumn{"gSqxLc", &T::sqxLc}, TableColumn{"gSqxGc", &T::sqxGc},
                                     TableColumn{"gSqxR", &T::sqxR}};
inline constexpr std::array superelevation{TableColumn{"gCgLc", &T::cgLc}, TableColumn{"gCgA", &T::cgA},
                                           TableColumn{"gCgB", &T::cgB}, TableColumn{"gCgC", &T::cgC}};
inline constexpr std::array widths{TableColumn{"gCgkdG", &T::cgkdG}, TableColumn{"gCgkdC", &T::cgkdC},
                                   TableColumn{"gCgkdA", &T::cgkdA}, TableColumn{"gCgkdB", &T::cgkdB},
                                   TableColumn{"gCgkdD", &T::cgkdD}, TableColumn{"gCgkdE", &T::cgkdE},
                                   TableColumn{"gCgkdF", &T::cgkdF}};
inline constexpr std::array mainPoints{
    TableColumn{"gZdJd", &T::zdJd},       TableColumn{"gZdT1", &T::zdT1},       TableColumn{"gZdT2", &T::zdT2},
    TableColumn{"gZdLs1", &T::zdLs1},     TableColumn{"gZdLs2", &T::zdLs2},     TableColumn{"gZdZhLc", &T::zdZhLc},
    TableColumn{"gZdZhX", &T::zdZhX},     TableColumn{"gZdZhY", &T::zdZhY},     TableColumn{"gZdZhFwj", &T::zdZhFwj},
    TableColumn{"gZdHyLc", &T::zdHyLc},   TableColumn{"gZdHyX", &T::zdHyX},     TableColumn{"gZdHyY", &T::zdHyY},
    TableColumn{"gZdHyFwj", &T::zdHyFwj}, TableColumn{"gZdYhLc", &T::zdYhLc},   TableColumn{"gZdYhX", &T::zdYhX},
    TableColumn{"gZdYhY", &T::zdYhY},     TableColumn{"gZdYhFwj", &T::zdYhFwj}, TableColumn{"gZdHzLc", &T::zdHzLc},
    TableColumn{"gZdHzX", &T::zdHzX},     TableColumn{"gZdHzY", &T::zdHzY},     TableColumn{"gZdHzFwj", &T::zdHzFwj}};
inline constexpr std::array vertices{
    TableColumn{"gJdLc", &T::jdLc},   TableColumn{"gJdX", &T::jdX},     TableColumn{"gJdY", &T::jdY},
    TableColumn{"gJdLs1", &T::jdLs1}, TableColumn{"gJdLs2", &T::jdLs2}, TableColumn{"gJdR", &T::jdR},
    TableColumn{"gJdT1", &T::jdT1},   TableColumn{"gJdT2", &T::jdT2},   TableColumn{"gJdL", &T::jdL}};

}  // namespace table_list

inline constexpr std::array kTableList{
    TableInfo{"平曲线单元（末行为闭合行）", "gElemCount", &Tables::elemCount, 0, table_list::elements},
    TableInfo{"导线点", "gDxdCount", &Tables::dxdCount, 0, table_list::traverse},
    TableInfo{"断链", "gDlCount", &Tables::dlCount, 0, table_list::breaks},
    TableInfo{"竖曲线", "gSqxCount", &Tables::sqxCount, 0, table_list::vertical},
    TableInfo{"超高（末行为闭合行）", "gCgCount", &Tables::cgCount, 0, table_list::superelevation},
    TableInfo{"超高宽度（末行为闭合行）", "gCgkdCount", &Tables::cgkdCount, 0, table_list::widths},
    TableInfo{"主点", "gZdCount", &Tables::zdCount, 1, table_list::mainPoints},
    TableInfo{"交点推算", "n", nullptr, 0, table_list::vertices},
};

/// visit(name, member of each) for every member of the tables: counts, columns, the two flags.
template <class Visit, class... Each>
void forEachMember(Visit visit, Each&... tables)
{
    for (const auto& table : kTableList) {
        if (table.count) visit(table.countName, tables.*table.count...);
        for (const auto& column : table.columns) {
            if (column.texts)
                visit(column.name, tables.*column.texts...);
            else
                visit(column.name, tables.*column.numbers...);
        }
    }
    visit("gHasDl", tables.hasDl...);
    visit("gCgType", tables.cgType...);
}

/// The same for the whole state: tables, results, session.
template <class Visit, class... Each>
void forEachSharedMember(Visit visit, Each&... states)
{
    forEachMember(visit, states.tables...);
    visit("gInX", states.results.inX...);
    visit("gInY", states.results.inY...);
    visit("gInLc", states.results.inLc...);
    visit("gOutX", states.results.outX...);
    visit("gOutY", states.results.outY...);
    visit("gOutFwj", states.results.outFwj...);
    visit("gOutDist", states.results.outDist...);
    visit("gOutLcText", states.results.outLcText...);
    visit("gOutOffsetText", states.results.outOffsetText...);
    visit("gStationX", states.session.stationX...);
    visit("gStationY", states.session.stationY...);
    visit("gPlStart", states.session.plStart...);
    visit("gPlEnd", states.session.plEnd...);
    visit("gPlStep", states.session.plStep...);
    visit("gPlBatch", states.session.plBatch...);
    visit("gGridLeftDown", states.session.gridLeftDown...);
    visit("gPqxModel", states.session.pqxModel...);
    visit("gFhdxN", states.session.fhdxN...);
}
