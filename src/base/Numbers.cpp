#include "base/Numbers.h"

#include "base/RunTimeError.h"
#include "base/Trig.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string NumText(double value)
{
    if (value == 0) return "0";
    if (!std::isfinite(value)) return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";

    // Fifteen significant digits as d.dddddde+xx, then the point put in its place.
    char buffer[32];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::abs(value), std::chars_format::scientific, 14).ptr;
    std::string digits(1, buffer[0]);
    digits.append(buffer + 2, 14);
    int exponent = 0;
    const char* sign = buffer + 17;
    std::from_chars(sign + (*sign == '+'), end, exponent);
    digits.erase(digits.find_last_not_of('0') + 1);

    const int count = static_cast<int>(digits.size());
    const int point = exponent + 1;  // digits before the point
    std::string text = value < 0 ? "-" : "";
    if (point <= 0) {
        text += '.' + std::string(static_cast<std::size_t>(-point), '0') + digits;
    } else if (point >= count) {
        text += digits + std::string(static_cast<std::size_t>(point - count), '0');
    } else {
        text +=
            digits.substr(0, static_cast<std::size_t>(point)) + '.' + digits.substr(static_cast<std::size_t>(point));
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
    const double scale = trig::power(10, decimals);
    return std::nearbyint(checked(value * scale)) / scale;
}

std::string LeadingZeroText(double value)
{
    const double magnitude = std::abs(value);
    if (magnitude == 0 || magnitude >= 1) return NumText(value);
    return value < 0 ? "-0" + NumText(magnitude) : "0" + NumText(value);
}

std::string FormatFixed3(double value)
{
    const double v = std::abs(Round(value, 3));
    const double whole = std::floor(v);
    std::string text = std::signbit(value) && value != 0 ? "-" : "";
    text += whole == 0 ? "0" : NumText(whole);

    const std::string scaled = NumText(v * 1000);
    const double f = ParseNumber(scaled.size() > 3 ? std::string_view(scaled).substr(scaled.size() - 3) : scaled);
    if (f == 0) return text + ".000";
    if (f < 10) return text + ".00" + NumText(f);
    if (f < 100) return text + ".0" + NumText(f);
    return text + "." + NumText(f);
}

double Fixed3(double value)
{
    // A whole number of thousandths that fifteen digits hold: its text and back is one division, rounded once.
    const double thousandths = std::nearbyint(std::abs(value) * 1000);
    if (thousandths < 1e12) return value == 0 ? 0 : std::copysign(thousandths / 1000, value);
    return ParseNumber(FormatFixed3(value));
}

namespace {

/// A whole-number text with the plus of the kilometre: 345 is 0+345, 12345 is 12+345.
std::string kilometres(const std::string& whole)
{
    if (whole.size() >= 4) return whole.substr(0, whole.size() - 3) + '+' + whole.substr(whole.size() - 3);
    return "0+" + std::string(3 - whole.size(), '0') + whole;
}

std::string twoDigits(double value)
{
    const std::string text = NumText(value);
    return value < 10 ? "0" + text : text;
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
    const std::string sign = stake < 0 ? "-K" : "K";
    const auto point = t.find('.');
    if (point == std::string::npos) return sign + kilometres(t) + ".000";
    std::string decimals = t.substr(point);
    if (decimals.size() == 2) decimals += "00";
    if (decimals.size() == 3) decimals += "0";
    return sign + kilometres(t.substr(0, point)) + decimals;
}

namespace {

/// Degrees, minutes and whole seconds of a packed angle, which is left as FormatDms says.
struct DmsParts {
    double d, m, s;
};

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

}  // namespace

std::string FormatDms(double& dms)
{
    const auto [d, m, s] = takeApart(dms);
    return NumText(d) + "度" + twoDigits(m) + "分" + twoDigits(s) + "秒";
}

double DegreesOfDmsText(double dms)
{
    const auto [d, m, s] = takeApart(dms);
    return d < 0 ? -(-d + m / 60 + s / 3600) : d + m / 60 + s / 3600;
}

std::string FormatDmsSeconds(double deg)
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
    s = std::floor((s + 0.005) * 100) / 100;
    return NumText(d) + "°" + secondsPart(m) + "′" + secondsPart(s) + "″";
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
