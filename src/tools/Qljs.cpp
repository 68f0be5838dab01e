#include "tools/Qljs.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "dialogs/Messages.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

float narrow(double value)
{
    const auto single = static_cast<float>(value);
    if (!std::isfinite(single)) throw RunTimeError(RunTimeError::Overflow);
    return single;
}

Outcome refuseIfEmpty(const std::string& text, const char* message)
{
    if (!Trim(text).empty()) return {};
    return {Refusal{Notice(message, Icon::None), {}}};
}

/// A * A / d, computed in double, stored as a single.
float squareOver(float a, double d) { return narrow(quotient(static_cast<double>(a) * a, d)); }

float round3(float value) { return narrow(Round(value, 3)); }

constexpr double kCompleteBeyond = 100000.0;  // m

}  // namespace

Outcome CalcQljs(const QljsInput& in, QljsResult& out)
{
    if (auto refused = refuseIfEmpty(in.a, "缓和参数A不能为空！"); !refused) return refused;
    const float a = narrow(ParseNumber(in.a));
    if (auto refused = refuseIfEmpty(in.r, "曲线半径R不能为空！"); !refused) return refused;
    const float r = narrow(ParseNumber(in.r));
    // Kept on purpose: the third test looks at R again, so its message never shows and an empty L0 fails below.
    if (auto refused = refuseIfEmpty(in.r, "缓和曲线长L0不能为空！"); !refused) return refused;
    const float l0 = narrow(ParseNumber(in.l0));

    const float l = squareOver(a, r);
    const bool complete = l > kCompleteBeyond || l == l0;
    out.r = complete ? "无限大,完整" : SingleText(round3(squareOver(a, static_cast<double>(l) - l0)));
    out.l = SingleText(round3(l));
    return {};
}

std::string SingleText(float value)
{
    std::array<char, 32> text;
    const auto written = std::to_chars(text.data(), text.data() + text.size(), static_cast<double>(value),
                                       std::chars_format::scientific, 6);
    double sevenDigits = 0;
    std::from_chars(text.data(), written.ptr, sevenDigits);
    return NumText(sevenDigits);
}
