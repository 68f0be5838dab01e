#pragma once
// The numbers that a person reads in the texts of a result, for tests of the numbers that go beside them.

#include <cstdlib>
#include <optional>
#include <regex>
#include <string>
#include <string_view>

namespace as_read {

/// K12+345.678 as 12345.678 is stakeOf; 左5米 as -5 and 中桩 as 0 offsetOf; 45度30分00秒 as 45.5 angleOf.
/// Read by the C library, not by the program's own reader.
inline std::optional<double> numberOf(std::string_view text)
{
    const std::string whole(text);
    char* end = nullptr;
    const double value = std::strtod(whole.c_str(), &end);
    if (whole.empty() || *end != '\0') return std::nullopt;
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
    static const std::regex kAngle("(-?)([0-9.]+)(?:度|°)([0-9.]+)(?:分|′)([0-9.]+)(?:秒|″)");
    std::smatch parts;
    const std::string whole(text);
    if (!std::regex_match(whole, parts, kAngle)) return std::nullopt;
    const double degrees = std::stod(parts[2]) + std::stod(parts[3]) / 60 + std::stod(parts[4]) / 3600;
    return parts[1].length() > 0 ? -degrees : degrees;
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
