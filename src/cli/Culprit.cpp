#include "cli/Culprit.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "cli/Results.h"
#include "engine/Chainage.h"
#include "screens/Handler.h"
#include "screens/Messages.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

/// The text of a refusal, and the option it speaks of.
struct Blame {
    std::string_view text, option;
};
constexpr Blame kBlames[] = {
    {message::kNoStake, "--at"},         {message::kNoCentre, "--at"},       {message::kBeforeRoute, "--at"},
    {message::kBeyondRoute, "--at"},     {message::kBeforeProfile, "--at"},  {message::kBeyondProfile, "--at"},
    {message::kNoStart, "--from"},       {message::kNoRunStart, "--from"},   {message::kStartBeforeRoute, "--from"},
    {message::kNoEnd, "--to"},           {message::kNoRunEnd, "--to"},       {message::kStartIsEnd, "--to"},
    {message::kRunStartIsEnd, "--to"},   {message::kEndBeyondRoute, "--to"}, {message::kNoStep, "--step"},
    {message::kStepIsZero, "--step"},    {message::kNoRunStep, "--step"},    {message::kRunStepIsZero, "--step"},
    {message::kNoOffset, "--offset"},    {message::kNoSkew, "--skew"},       {message::kNoStationX, "--station"},
    {message::kNoStationY, "--station"}, {message::kNoKq, "--front"},        {message::kNoKh, "--back"},
    {message::kNoZz, "--left"},          {message::kNoZy, "--right"},
};

std::optional<double> numberOf(const std::string& text)
{
    std::optional<double> value;
    attempt([&] { value = ParseNumber(text); });
    return value;
}

bool isNumber(const std::string& text) { return IsBlank(text) || numberOf(text); }

bool isStation(const std::string& text)
{
    const auto comma = text.find(',');
    return comma == std::string::npos || (isNumber(text.substr(0, comma)) && isNumber(text.substr(comma + 1)));
}

/// The first option whose value is no number.
std::string_view unreadable(const Call& call)
{
    constexpr std::string_view kNumbers[] = {"--at",   "--from",  "--to",    "--step", "--offset",   "--skew",
                                             "--left", "--right", "--front", "--back", "--thickness"};
    for (const auto option : kNumbers)
        if (call.args.has(option) && !isNumber(StakeNumber(call.args.value(option)))) return option;
    return isStation(call.args.value("--station")) ? "" : "--station";
}

/// The first stake that lies in the numbers that a break skips.
std::string_view inGap(const Call& call)
{
    struct Stake {
        std::string_view option;
        const ResolveRule& rule;
    };
    for (const auto& [option, rule] : {Stake{"--from", kBatchStart}, Stake{"--to", kBatchEnd}}) {
        const auto stake = numberOf(StakeNumber(call.args.value(option)));
        if (call.args.has(option) && stake && !ResolveStake(*stake, rule)) return option;
    }
    return "--at";
}

bool inWay(const Call& call, std::string_view option)
{
    const auto options = OptionsOf(call.way);
    return std::any_of(options.begin(), options.end(), [&](const auto& o) { return o.name == option; });
}

}  // namespace

std::string NamedValue(const Call& call, std::string_view option)
{
    const std::string value = call.args.value(option);
    return std::string(option) + (IsBlank(value) ? "" : " " + value) + "：";
}

std::string Culprit(const Call& call, const Refusal& refusal, std::string_view option)
{
    const std::string_view text = refusal.msg.text;
    if (option.empty()) {
        const auto blame =
            std::find_if(std::begin(kBlames), std::end(kBlames), [&](auto& b) { return b.text == text; });
        option = text == message::kNotANumber ? unreadable(call)
                 : text == kStakeInGap        ? inGap(call)
                 : blame != std::end(kBlames) ? blame->option
                                              : "";
    }
    return option.empty() || !inWay(call, option) ? "" : NamedValue(call, option);
}
