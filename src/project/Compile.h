#pragma once
// The compiles of a load: rows of one file into the tables. Every assignment and every call stands alone: one that
// fails is dropped, its target keeps its value, and the next one runs.

#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "tables/CalcTables.h"

#include <cstdint>
#include <string>
#include <vector>

/// The rows of a file: lines 0 to last. Only the line at `last` is known to hold a comma.
struct Rows {
    std::vector<std::string> lines;
    std::int16_t last = 0;

    /// The fields of line `row`, none where there is no such line.
    std::vector<std::string> fields(int row) const
    {
        return row >= 0 && row < std::ssize(lines) ? SplitFields(lines[static_cast<std::size_t>(row)])
                                                   : std::vector<std::string>{};
    }
};

using Fields = std::vector<std::string>;

/// A field as a number. @throws Subscript past the row's end, TypeMismatch, Overflow
inline double number(const Fields& fields, int index) { return ParseNumber(at(fields, index)); }

/// What a table row does with a field before it is stored.
enum class As { Typed, Percent, ClosingStake };

/// target[row] = field, or nothing where any of it fails.
inline void take(std::vector<double>& target, int row, const Fields& fields, int index, As as = As::Typed)
{
    attempt([&] {
        const double typed = number(fields, index);
        at(target, row) = as == As::Percent ? typed / 100 : as == As::ClosingStake ? typed + 0.0001 : typed;
    });
}

/// Fresh tables: rows 0 to `last`, all zero.
template <class... Column>
void allocate(std::int16_t last, Column&... columns)
{
    (columns.assign(static_cast<std::size_t>(last) + 1, {}), ...);
}

/// A stake that lies in the numbers that a chainage jump skips; ends the load.
struct StakeInGap {};

/// Nominal stakes of a table to continuous ones, rows 0 to `last`. @throws StakeInGap
void ConvertStakes(const Tables& t, std::vector<double>& stakes, std::int16_t last);

void CompileTraversePoints(const Rows& rows, Tables& t);
void CompileBreaks(const Rows& rows, Tables& t);
/// The later breaks shifted by the amounts of those before; runs at every load, rows or not.
void ReduceBreaks(Tables& t);
/// @param results  the ends of spirals and arcs go through outX, outY, outFwj: where one cannot be computed, what the
///                 last call left there serves
void CompileIntersectionPoints(const Rows& rows, Tables& t, EngineResults& results);
void CompileBlocks(const Rows& rows, Tables& t);
void CompileVertical(const Rows& rows, Tables& t);
void CompileSuperelevation(const Rows& rows, Tables& t);
void CompileWidths(const Rows& rows, Tables& t);
