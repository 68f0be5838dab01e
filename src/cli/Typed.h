#pragma once
// Cells of a result as values: what a program that reads JSON would otherwise have to take out of the texts.

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What a text of the screens holds.
enum class CellKind {
    Number,  ///< 516569.574
    Stake,   ///< K12+345.678 as 12345.678; the second reading in an overlap is negative, as it is typed
    Offset,  ///< 左5米 as -5, 右5米 and 斜交5米 as 5, 中桩 as 0
    Angle,   ///< 45度30分00秒 or 45°30′0.00″ as 45.5
};

/// A value beside the texts of a row.
struct TypedColumn {
    int column;            ///< the grid column whose text it reads
    std::string_view key;  ///< in JSON
    CellKind kind = CellKind::Number;
};

/// The value of a text, nothing where it has none (无, an empty cell).
std::optional<double> TypedValue(const std::string& text, CellKind kind);
