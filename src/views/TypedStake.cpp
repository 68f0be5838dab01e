#include "views/TypedStake.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"

std::optional<double> typedStake(const Tables& t, std::string text)
{
    text = std::string(Trim(text));
    const bool minus = text.starts_with("-");
    if (minus) text.erase(0, 1);
    double typed = 0;
    const auto plus = text.find('+');
    const bool read = attempt([&] {
        if (!text.empty() && (text[0] == 'K' || text[0] == 'k') && plus != std::string::npos)
            typed = ParseNumber(text.substr(1, plus - 1)) * 1000 + ParseNumber(text.substr(plus + 1));
        else
            typed = ParseNumber(text);
    });
    if (!read) return {};
    return ResolveStake(t, minus ? -typed : typed, kDgdZb);
}
