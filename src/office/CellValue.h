#pragma once
// What a cell holds, and how texts and numbers turn into each other in a sheet.

#include <optional>
#include <string>
#include <string_view>
#include <variant>

/// Empty, a finite number, or a text in UTF-8.
using CellValue = std::variant<std::monostate, double, std::string>;

/// The number that a sheet makes of a typed text: blanks around, a sign, digits with or without a point, thousands
/// commas in groups of three, an exponent. nullopt: it stays a text. Too large a number stays a text; a negative zero
/// becomes zero.
std::optional<double> NumberOfTyped(std::string_view text);

/// A number in the general format: at most 11 characters beside the sign, an exponent of two digits where the number
/// is 1E+11 or more, or too small to show well.
std::string GeneralText(double value);

/// A number as it stands in the entry line: 15 significant digits.
std::string EntryText(double value);

/// A value under a number format: "General", "@", or "0", "0.0", "0.00" ... for fixed decimals. Any other format shows
/// as General. A text shows as it is.
std::string ShownText(const CellValue& value, std::string_view numberFormat);
