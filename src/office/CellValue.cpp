#include "office/CellValue.h"

#include <charconv>
#include <cmath>

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string formatted(double value, std::chars_format format, int precision)
{
    char buffer[400];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, format, precision).ptr};
}

/// The text without zeros at the end of its decimals, and without a point that nothing follows.
std::string trimmed(std::string text)
{
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

/// 1.5E+20: the digits trimmed, at least two digits of exponent.
std::string exponential(double value, int decimals)
{
    const auto text = formatted(value, std::chars_format::scientific, decimals);
    const auto e = text.find('e');
    return trimmed(text.substr(0, e)) + 'E' + text.substr(e + 1);
}

int exponentOf(double magnitude, int decimals)
{
    const auto text = formatted(magnitude, std::chars_format::scientific, decimals);
    int exponent = 0;
    const auto digits = text.data() + text.find('e') + 1;
    std::from_chars(digits + (*digits == '+'), text.data() + text.size(), exponent);
    return exponent;
}

/// Removes commas that part the digits before the point into thousands; false where one stands wrong.
bool joinThousands(std::string& text)
{
    const auto comma = text.find(',');
    if (comma == std::string::npos) return true;
    const auto end = std::min(text.find_first_of(".eE"), text.size());
    if (comma == 0 || comma > 3) return false;
    std::string joined = text.substr(0, comma);
    for (auto i = comma; i < end; i += 4) {
        if (text[i] != ',' || end - i < 4) return false;
        joined += text.substr(i + 1, 3);
    }
    text = joined + text.substr(end);
    return true;
}

}  // namespace

std::optional<double> NumberOfTyped(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    const bool negative = text[0] == '-';
    if (negative || text[0] == '+') text.remove_prefix(1);
    if (text.empty() || (!isDigit(text[0]) && text[0] != '.')) return std::nullopt;

    std::string digits(text);
    double value = 0;
    if (!joinThousands(digits)) return std::nullopt;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return negative && value != 0 ? -value : value;
}

std::string GeneralText(double value)
{
    if (value == 0) return "0";
    if (value < 0) return '-' + GeneralText(-value);
    constexpr int width = 11;
    const int exponent = exponentOf(value, width - 2);
    if (exponent >= width) return exponential(value, 5);
    if (exponent >= 0) return trimmed(formatted(value, std::chars_format::fixed, std::max(0, width - 2 - exponent)));
    const auto fixed = trimmed(formatted(value, std::chars_format::fixed, width - 2));
    double shown = 0;
    std::from_chars(fixed.data(), fixed.data() + fixed.size(), shown);
    return exponent >= -4 || shown == value ? fixed : exponential(value, 5);
}

std::string EntryText(double value)
{
    if (value == 0) return "0";
    const double magnitude = std::abs(value);
    const int exponent = exponentOf(magnitude, 14);
    const std::string sign = value < 0 ? "-" : "";
    if (exponent < -9 || exponent > 20) return sign + exponential(magnitude, 14);
    if (exponent >= 15) {
        const auto digits = formatted(magnitude, std::chars_format::scientific, 14);
        return sign + digits[0] + digits.substr(2, 14) + std::string(static_cast<std::size_t>(exponent - 14), '0');
    }
    return sign + trimmed(formatted(magnitude, std::chars_format::fixed, 14 - exponent));
}

std::string ShownText(const CellValue& value, std::string_view numberFormat)
{
    if (const auto text = std::get_if<std::string>(&value)) return *text;
    const auto number = std::get_if<double>(&value);
    if (!number) return {};
    const bool fixed = numberFormat == "0" || (numberFormat.starts_with("0.") && numberFormat.size() > 2 &&
                                               numberFormat.find_first_not_of('0', 2) == std::string_view::npos);
    if (!fixed) return GeneralText(*number);
    const int decimals = numberFormat.size() < 2 ? 0 : static_cast<int>(numberFormat.size() - 2);
    auto text = formatted(*number, std::chars_format::fixed, decimals);
    const bool zero = text.find_first_not_of("-0.") == std::string::npos;
    return zero && text[0] == '-' ? text.substr(1) : text;
}
