#pragma once
// Numbers as design tables print them: K12+345.678, 2,856,486.512, -2%, 123°45′30″, full-width digits and signs.

#include <optional>
#include <string>
#include <string_view>

/// What a number measures, as far as its printed form depends on it.
enum class Quantity { Plain, Stake, Slope, Angle };

/// The number as a parameter file holds it: digits, a point, a minus before them. Nothing is guessed: a text that could
/// be read in two ways gives nothing. Texts are UTF-8; full-width digits and signs and U+2212 stand for the plain ones;
/// blanks (also U+00A0 and U+3000) count only where they part two digits, and then the text could be two numbers.
///   any quantity   a plain number, a plus before it dropped; thousands commas d{1,3}(,ddd)+ where a point follows:
///                  without one 1,234 could be two numbers
///   Stake          K<km>+<m> with three digits before the point, a minus before the K: metres
///   Slope          a plain number with %, in percent
///   Angle          degrees°minutes′seconds″, ' and " as well, minutes and seconds below 60: packed dd.mmss
/// @return "" for blanks alone; nothing for any other text
std::optional<std::string> PlainNumber(std::string_view text, Quantity quantity);

/// A number that a design table printed in its own way, and what goes in for it. It is shown before.
struct Converted {
    std::string where;  ///< 第 3 行“起点里程”, a box of a frame or the address of a cell
    std::string printed, taken;

    bool operator==(const Converted&) const = default;
};
