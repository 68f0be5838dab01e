#include "cli/Typed.h"

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"

namespace {

std::optional<double> numberOf(std::string_view text)
{
    std::optional<double> value;
    attempt([&] { value = ParseNumber(text); });
    return value;
}

std::optional<double> stakeOf(std::string_view text)
{
    std::string digits;
    for (const char c : text)
        if (c != 'K' && c != '+') digits += c;
    return numberOf(digits);
}

std::optional<double> offsetOf(std::string_view text)
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
std::optional<double> angleOf(std::string_view text)
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

}  // namespace

std::optional<double> TypedValue(const std::string& text, CellKind kind)
{
    switch (kind) {
    case CellKind::Stake:
        return stakeOf(text);
    case CellKind::Offset:
        return offsetOf(text);
    case CellKind::Angle:
        return angleOf(text);
    case CellKind::Number:
        break;
    }
    return numberOf(text);
}
