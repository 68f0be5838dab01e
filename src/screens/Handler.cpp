#include "screens/Handler.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"

namespace {

struct Refused {
    Refusal refusal;
};

Refusal refusal(std::string_view text, std::string_view field, std::string_view title, Icon icon)
{
    return {{.text = std::string(text), .title = std::string(title), .icon = icon}, std::string(field)};
}

}  // namespace

Outcome Handle(Trap trap, const std::function<void()>& body)
{
    try {
        body();
    } catch (const Refused& refused) {
        return {refused.refusal};
    } catch (const RunTimeError& error) {
        if (trap == Trap::None) throw;
        if (trap == Trap::Words) return {NotANumber(), std::string(error.choked())};
    }
    return {};
}

void Refuse(std::string_view text, std::string_view field, std::string_view title, Icon icon)
{
    throw Refused{refusal(text, field, title, icon)};
}

void RefuseGap() { Refuse(kStakeInGap, {}, message::kNotice); }

Refusal NotANumber() { return refusal(message::kNotANumber, {}, message::kError, Icon::Exclamation); }

bool IsBlank(std::string_view text) { return Trim(text).empty(); }

void Require(std::string_view text, std::string_view message, std::string_view field, std::string_view title)
{
    if (IsBlank(text)) Refuse(message, field, title);
}

double Required(std::string_view text, std::string_view message, std::string_view field, std::string_view title)
{
    Require(text, message, field, title);
    return ParseNumber(text);
}

double OrZero(std::string_view text) { return IsBlank(text) ? 0 : ParseNumber(text); }

double ResolveOrRefuse(double typed, const ResolveRule& rule)
{
    const auto stake = ResolveStake(typed, rule);
    if (!stake) RefuseGap();
    return *stake;
}
