#include "engine/Chainage.h"

#include "project/CalcTables.h"

#include <cmath>

namespace {

std::size_t breaks() { return gHasDl ? static_cast<std::size_t>(gDlCount) + 1 : 0; }

/// The rising pass over the breaks, on the running value in place. False: the stake lies in a gap.
bool rise(double& s, double typed, const ResolveRule& rule)
{
    for (std::size_t i = 0; i < breaks(); ++i) {
        const double aheadTested = rule.aheadTest == ResolveRule::Running ? s : typed;
        if (!(s <= gDlBack[i] || aheadTested >= gDlAhead[i])) return false;
        const bool beyondJump = rule.jump == ResolveRule::Inclusive ? s >= gDlAhead[i] : s > gDlAhead[i];
        if ((beyondJump && gDlCum[i] > 0) || (s > gDlBack[i] && gDlCum[i] < 0)) s -= gDlCum[i];
    }
    return true;
}

}  // namespace

std::optional<double> ResolveStake(double typed, const ResolveRule& rule)
{
    double s = rule.start == ResolveRule::AbsoluteTyped ? std::abs(typed) : typed;
    if (!rise(s, typed, rule)) return std::nullopt;
    for (std::size_t i = 0; i < breaks(); ++i) {
        switch (rule.negative) {
        case ResolveRule::FromTyped:
            if (typed < 0 && (rule.secondPass == ResolveRule::AtOrBeyond ? std::abs(typed) >= gDlAhead[i]
                                                                         : std::abs(typed) > gDlAhead[i]))
                s -= gDlCum[i];
            break;
        case ResolveRule::TableRow:
            break;  // ConvertRowStake goes on by itself
        case ResolveRule::BlockEditor:
            if (s < 0 && std::abs(s) > gDlAhead[i] && std::abs(s) <= gDlBack[i]) s = std::abs(s) - gDlCum[i];
            break;
        }
    }
    return s;
}

bool ConvertRowStake(double& stake)
{
    if (!rise(stake, stake, kTableRow)) return false;
    if (stake < 0)
        for (std::size_t i = 0; i < breaks(); ++i)
            if (std::abs(stake) > gDlAhead[i]) stake -= gDlCum[i];
    return true;
}

NominalStake ToNominal(double continuous)
{
    NominalStake n{continuous};
    for (std::size_t j = 0; j < breaks(); ++j) {
        if (gDlAhead[j] - gDlCum[j] < n.value && gDlBack[j] - gDlCum[j] >= n.value) {
            n.secondPass = true;
            n.value += gDlCum[j];
        }
        if (n.value > gDlBack[j]) n.value += gDlCum[j];
    }
    return n;
}

double RoundHalfUp3(double value) { return std::floor((value + 0.0005) * 1000) / 1000; }
