#pragma once
// The texts of numbers once more, as plainly as they can be said: a second opinion for tests.

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace plain {

/// At most fifteen significant digits without an exponent, by the C library's printf.
inline std::string num(double x)
{
    if (x == 0) return "0";
    char text[32];
    std::snprintf(text, sizeof text, "%.14e", std::abs(x));
    std::string digits = std::string(1, text[0]) + std::string(text + 2, 14);
    int point = std::atoi(text + 17) + 1;
    while (digits.back() == '0') digits.pop_back();
    for (; point < 0; ++point) digits.insert(0, "0");
    while (static_cast<int>(digits.size()) < point) digits += "0";
    if (point < static_cast<int>(digits.size())) digits.insert(static_cast<std::size_t>(point), ".");
    return (x < 0 ? "-" : "") + digits;
}

inline std::string fixed3(double x)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.3f", std::abs(std::nearbyint(x * 1000) / 1000));
    return (x < 0 ? "-" : "") + std::string(text);
}

inline std::string stake(double x)
{
    std::string whole = num(std::abs(x)), decimals;
    if (const auto point = whole.find('.'); point != std::string::npos) {
        decimals = whole.substr(point + 1);
        whole.erase(point);
    }
    while (whole.size() < 4) whole.insert(0, "0");
    while (decimals.size() < 3) decimals += "0";
    return (x < 0 ? "-K" : "K") + whole.substr(0, whole.size() - 3) + "+" + whole.substr(whole.size() - 3) + "." +
           decimals;
}

inline std::string dms(double x)
{
    x = (x < 0 ? x + 360 : x > 360 ? x - 360 : x) + 1e-10;
    int d = static_cast<int>(std::floor(x));
    int m = static_cast<int>(std::floor((x - d) * 100));
    int s = static_cast<int>(std::floor(x * 10000 - d * 10000.0 - m * 100));
    if (s == 60) s = 0, ++m;
    if (m == 60) m = 0, ++d;
    if (d > 360) d -= 360;
    char text[64];
    std::snprintf(text, sizeof text, "%d度%02d分%02d秒", d, m, s);
    return text;
}

}  // namespace plain
