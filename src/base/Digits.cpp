#include "base/Digits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

constexpr auto kTens = [] {
    std::array<std::uint64_t, 20> tens{1};
    for (std::size_t n = 1; n < tens.size(); ++n) tens[n] = tens[n - 1] * 10;
    return tens;
}();

/// In whole numbers: a double is m / 2^s, and m * 10^k has room in 128 bits. Nothing for what is not between 0.0001
/// and 10^15.
std::optional<Digits> quickly(double magnitude)
{
    if (!(magnitude >= 1e-4 && magnitude < 1e15)) return std::nullopt;
    int exponent = -1;
    if (magnitude >= 1)
        while (static_cast<std::uint64_t>(magnitude) >= kTens[static_cast<std::size_t>(exponent + 1)]) ++exponent;
    else
        for (double tenth = 0.1; magnitude < tenth; tenth /= 10) --exponent;

    __extension__ typedef unsigned __int128 Wide;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const std::uint64_t m = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
    const int s = 1075 - static_cast<int>(bits >> 52);  // 3 to 66
    const Wide product = Wide{m} * kTens[static_cast<std::size_t>(14 - exponent)];
    auto whole = static_cast<std::uint64_t>(product >> s);
    if (whole < kTens[14] || whole >= kTens[15]) return std::nullopt;
    const Wide half = Wide{1} << (s - 1), rest = product & (2 * half - 1);
    if (rest > half || (rest == half && whole % 2 == 1)) ++whole;
    if (whole == kTens[15]) whole = kTens[14], ++exponent;

    Digits found{.digits = {}, .exponent = exponent};
    std::to_chars(found.digits, found.digits + 15, whole);
    return found;
}

}  // namespace

Digits FifteenDigits(double magnitude)
{
    if (const auto found = quickly(magnitude)) return *found;
    char buffer[32];  // d.ddddde+xx
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, 14).ptr;
    Digits found{.digits = {buffer[0]}, .exponent = 0};
    std::copy_n(buffer + 2, 14, found.digits + 1);
    const char* sign = buffer + 17;
    std::from_chars(sign + (*sign == '+'), end, found.exponent);
    return found;
}
