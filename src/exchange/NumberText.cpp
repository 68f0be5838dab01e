#include "exchange/NumberText.h"

#include <array>
#include <charconv>

std::string ShortestText(double value)
{
    if (value == 0) return "0";
    std::array<char, 1100> text{};  // the smallest double has 1,074 decimals
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return {text.data(), end};
}

std::string FixedText(double value, int decimals)
{
    std::array<char, 400> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    std::string result(text.data(), end);
    if (result.starts_with('-') && result.find_first_of("123456789") == std::string::npos) result.erase(0, 1);
    return result;
}

std::string MetresText(double metres) { return FixedText(metres, 4); }
