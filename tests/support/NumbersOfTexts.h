#pragma once
// The numbers that a person reads in the texts of a result, for tests of the numbers that go beside them.

#include "base/Numbers.h"
#include "base/RunTimeError.h"

#include <optional>
#include <string>
#include <string_view>

namespace as_read {

/// K12+345.678 as 12345.678 is stakeOf; 左5米 as -5 and 中桩 as 0 offsetOf; 45度30分00秒 as 45.5 angleOf.
inline std::optional<double> numberOf(std::string_view text)
{
    std::optional<double> value;
    attempt([&] { value = ParseNumber(text); });
    return value;
}

inline std::optional<double> stakeOf(std::string_view text)
{
    std::string digits;
    for (const char c : text)
        if (c != 'K' && c != '+') digits += c;
    return numberOf(digits);
}

inline std::optional<double> offsetOf(std::string_view text)
{
    constexpr std::string_view kMetres = "米";
    constexpr struct {
        std::string_view name;
        double sign;
    } kSides[] = {{"左", -1}, {"右", 1}, {"斜交", 1}};
    if (text == "中桩" || text == "中") return 0;
    if (!text.ends_with(kMetres)) return std::nullopt;
    text.remove_suffix(kMetres.size());
    for (const auto& [name, sign] : kSides)
        if (text.starts_with(name)) {
            const auto length = numberOf(text.substr(name.size()));
            return length ? std::optional(sign * *length + 0.0) : std::nullopt;
        }
    return std::nullopt;
}

/// Degrees, minutes and seconds behind each other, each with its sign of one kind or the other.
inline std::optional<double> angleOf(std::string_view text)
{
    constexpr struct {
        std::string_view word, mark;
        double parts;
    } kUnits[] = {{"度", "°", 1}, {"分", "′", 60}, {"秒", "″", 3600}};
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    double degrees = 0;
    for (const auto& [word, mark, parts] : kUnits) {
        auto unit = word;
        auto end = text.find(word);
        if (end == std::string_view::npos) {
            unit = mark;
            end = text.find(mark);
        }
        if (end == std::string_view::npos) return std::nullopt;
        const auto number = numberOf(text.substr(0, end));
        if (!number) return std::nullopt;
        degrees += *number / parts;
        text.remove_prefix(end + unit.size());
    }
    return negative ? -degrees : degrees;
}

/// By the header of the column.
inline std::optional<double> byHeader(std::string_view header, std::string_view text)
{
    const auto has = [header](std::string_view word) { return header.find(word) != std::string_view::npos; };
    if (has("里 程")) return stakeOf(text);
    if (has("中边桩") || has("偏 距")) return offsetOf(text);
    if (has("角")) return angleOf(text);
    return numberOf(text);
}

}  // namespace as_read
