#include "base/Numbers.h"

#include "base/Digits.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <locale>
#include <optional>
#include <sstream>

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

namespace {

/// A whole number below 10^15 at the end of a text.
void append(std::string& text, std::uint64_t whole)
{
    char buffer[20];
    text.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, whole).ptr);
}

}  // namespace

std::string NumText(double value)
{
    if (value == 0) return "0";
    if (!std::isfinite(value)) return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";

    std::string text = value < 0 ? "-" : "";
    const double magnitude = std::abs(value);
    if (magnitude < 1e15 && static_cast<double>(static_cast<std::uint64_t>(magnitude)) == magnitude) {
        append(text, static_cast<std::uint64_t>(magnitude));
        return text;
    }
    const auto [digits, exponent] = FifteenDigits(magnitude);
    int count = 15;
    while (digits[count - 1] == '0') --count;
    const int point = exponent + 1;  // digits before the point
    if (point <= 0) {
        text += '.';
        text.append(static_cast<std::size_t>(-point), '0').append(digits, static_cast<std::size_t>(count));
    } else if (point >= count) {
        text.append(digits, static_cast<std::size_t>(count)).append(static_cast<std::size_t>(point - count), '0');
    } else {
        text.append(digits, static_cast<std::size_t>(point)) += '.';
        text.append(digits + point, digits + count);
    }
    return text;
}

double ParseNumber(std::string_view text)
{
    text = Trim(text);
    auto rest = text;
    if (!rest.empty() && (rest[0] == '+' || rest[0] == '-')) rest.remove_prefix(1);
    // from_chars knows "inf" and "nan" and no plus sign; both are settled by looking at the first character.
    const bool number = !rest.empty() && ((rest[0] >= '0' && rest[0] <= '9') || rest[0] == '.');
    if (!number) throw RunTimeError(RunTimeError::TypeMismatch, text);
    double value = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (error == std::errc::invalid_argument || end != rest.data() + rest.size())
        throw RunTimeError(RunTimeError::TypeMismatch, text);
    if (error == std::errc::result_out_of_range) {
        // A stream tells too large from too small, which comes out as 0.
        std::istringstream in{std::string(rest)};
        in.imbue(std::locale::classic());
        in >> value;
        if (value > 1) throw RunTimeError(RunTimeError::Overflow, text);
    }
    return text[0] == '-' ? -value : value;
}

double Round(double value, int decimals)
{
    const double scale = decimals == 3 ? 1000 : trig::power(10, decimals);
    return std::nearbyint(checked(value * scale)) / scale;
}

std::string LeadingZeroText(double value)
{
    const double magnitude = std::abs(value);
    if (magnitude == 0 || magnitude >= 1) return NumText(value);
    return value < 0 ? "-0" + NumText(magnitude) : "0" + NumText(value);
}

namespace {

/// Thousandths that a text of fifteen digits shows with three decimals to spare; nothing for more.
std::optional<double> thousandthsOf(double value)
{
    const double thousandths = std::nearbyint(std::abs(value) * 1000);
    return thousandths < 1e12 ? std::optional(thousandths) : std::nullopt;
}

}  // namespace

std::string FormatFixed3(double value)
{
    std::string text = std::signbit(value) && value != 0 ? "-" : "";
    if (const auto thousandths = thousandthsOf(value)) {
        const auto n = static_cast<std::uint64_t>(*thousandths);
        append(text, n / 1000);
        for (const char c : {'.', static_cast<char>('0' + n / 100 % 10), static_cast<char>('0' + n / 10 % 10),
                             static_cast<char>('0' + n % 10)})
            text += c;
        return text;
    }
    const double v = std::abs(Round(value, 3));
    text += NumText(std::floor(v));
    const std::string scaled = NumText(v * 1000);
    const double f = ParseNumber(std::string_view(scaled).substr(scaled.size() - 3));
    if (f == 0) return text + ".000";
    if (f < 10) return text + ".00" + NumText(f);
    if (f < 100) return text + ".0" + NumText(f);
    return text + "." + NumText(f);
}

double Fixed3(double value)
{
    // Its text and back is one division, rounded once.
    if (const auto thousandths = thousandthsOf(value))
        return value == 0 ? 0 : std::copysign(*thousandths / 1000, value);
    return ParseNumber(FormatFixed3(value));
}

namespace {

void appendTwoDigits(std::string& text, double value)
{
    if (value < 10) text += '0';
    text += NumText(value);
}

/// Kept on purpose: a part of 0 is not padded, so 10.5 degrees read 10°30′0″.
std::string secondsPart(double value)
{
    if (value <= 0 || value >= 10) return NumText(value);
    return value < 1 ? "0" + LeadingZeroText(value) : "0" + NumText(value);
}

}  // namespace

std::string FormatStake(double stake)
{
    const std::string t = NumText(checked(std::abs(stake)));
    const auto point = std::min(t.find('.'), t.size());
    std::string text = stake < 0 ? "-K" : "K";
    if (point > 3)
        text.append(t, 0, point - 3).append(1, '+').append(t, point - 3, 3);
    else
        text.append("0+").append(3 - point, '0').append(t, 0, point);
    text.append(point < t.size() ? std::string_view(t).substr(point) : ".");
    if (const auto decimals = t.size() - point; decimals < 4) text.append(point < t.size() ? 4 - decimals : 3, '0');
    return text;
}

namespace {

struct DmsParts {
    double d, m, s;
};

/// Degrees, minutes and whole seconds of a packed angle, which is left as FormatDms says.
DmsParts takeApart(double& dms)
{
    if (dms < 0)
        dms += 360;
    else if (dms > 360)
        dms -= 360;
    dms += 1e-10;
    double d = std::floor(dms);
    double m = std::floor((dms - d) * 100);
    double s = std::floor(dms * 10000 - d * 10000 - m * 100);
    if (s == 60) {
        m += 1;
        s = 0;
    }
    if (m == 60) {
        d += 1;
        m = 0;
    }
    if (d > 360) d -= 360;
    return {d, m, s};
}

/// Degrees, minutes and seconds to hundredths, the seconds cut off but for half of a hundredth.
DmsParts secondsOf(double deg)
{
    const double a = std::abs(deg);
    double d = std::floor(a);
    double m = std::floor((a - d) * 60);
    double s = (a - d - m / 60) * 3600;
    if (s > 60) {
        m += 1;
        s = 0;
    }
    if (m == 60) {
        d += 1;
        m = 0;
    }
    if (d > 360) d -= 360;
    if (d < 0) d += 360;
    return {d, m, std::floor((s + 0.005) * 100) / 100};
}

}  // namespace

std::string FormatDms(double& dms)
{
    const auto [d, m, s] = takeApart(dms);
    std::string text;
    text.reserve(16);
    text.append(NumText(d)).append("度");
    appendTwoDigits(text, m);
    text.append("分");
    appendTwoDigits(text, s);
    return text.append("秒");
}

double DegreesOfDmsText(double dms)
{
    const auto [d, m, s] = takeApart(dms);
    return d < 0 ? -(-d + m / 60 + s / 3600) : d + m / 60 + s / 3600;
}

std::string FormatDmsSeconds(double deg)
{
    const auto [d, m, s] = secondsOf(deg);
    return NumText(d) + "°" + secondsPart(m) + "′" + secondsPart(s) + "″";
}

double DegreesOfSecondsText(double deg)
{
    const auto [d, m, s] = secondsOf(deg);
    return d + m / 60 + s / 3600;
}

double Azimuth(double dx, double dy)
{
    if (dy == 0) return 0;  // kept on purpose: a line due south has azimuth 0
    double a = dx == 0 ? dy / std::abs(dy) * 90 : trig::atan(dy / dx) * 180 / kPi + (1 - dx / std::abs(dx)) * 90;
    if (a < 0) a += 360;
    return DegToDms(a);
}

double Distance(double dx, double dy) { return checked(std::sqrt(dx * dx + dy * dy)); }

double DegToDms(double deg)
{
    double x = deg;
    if (x > 360) x -= 360;
    if (x < 0) x += 360;
    const double d = std::floor(x);
    const double m = std::floor((x - d) * 60);
    const double s = (x - d - m / 60) * 3600;
    return std::floor((d + m / 100 + s / 10000 + 5e-7) * 1000000) / 1000000;
}

double DegToDms4(double deg)
{
    const double d = std::floor(deg);
    const double f = deg - d;
    const double m = std::floor(f * 60);
    const double s = (f - m / 60) * 3600;
    return std::floor((d + m / 100 + s / 10000 + 5e-5) * 10000) / 10000;
}

double DmsToDeg(double dms)
{
    const double sign = dms < 0 ? -1 : 1;
    const double v = std::abs(dms) + 1e-13;
    const double d = std::floor(v);
    const double m = std::floor((v - d) * 100);
    const double s = std::floor((v - d - m / 100) * 1000000) / 100;
    return sign * (d + m / 60 + s / 3600);
}

bool IsIntegerKey(int keyAscii) { return (keyAscii >= '0' && keyAscii <= '9') || keyAscii == 8; }
bool IsUnsignedDecimalKey(int keyAscii) { return IsIntegerKey(keyAscii) || keyAscii == '.'; }
bool IsSignedDecimalKey(int keyAscii) { return IsUnsignedDecimalKey(keyAscii) || keyAscii == '-'; }
