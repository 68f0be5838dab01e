#include "engine/Chainage.h"

#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <cmath>

namespace {

std::size_t breaks() { return gHasDl ? static_cast<std::size_t>(gDlCount) + 1 : 0; }

/// A stake without the amount of a break; one that would pass the range of a double stays as it is.
void takeOff(double& s, double amount)
{
    if (const double less = s - amount; std::isfinite(less)) s = less;
}

/// The two passes over the breaks on the running value s. False: the stake lies in a gap, and s stays as it was there.
bool resolve(double& s, double typed, const ResolveRule& rule)
{
    for (std::size_t i = 0; i < breaks(); ++i) {
        const double back = gDlBack[i], ahead = gDlAhead[i], amount = gDlCum[i];
        if (!(s <= back || (rule.aheadTest == ResolveRule::Running ? s : typed) >= ahead)) return false;
        const bool beyondJump = rule.jump == ResolveRule::Inclusive ? s >= ahead : s > ahead;
        if ((beyondJump && amount > 0) || (s > back && amount < 0)) takeOff(s, amount);
    }

    if (!((rule.again == ResolveRule::OfTyped ? typed : s) < 0)) return true;
    for (std::size_t i = 0; i < breaks(); ++i) {
        const double back = gDlBack[i], ahead = gDlAhead[i], amount = gDlCum[i];
        const double reach = std::abs(rule.again == ResolveRule::OfTyped ? typed : s);
        if (rule.again == ResolveRule::Mirrored) {
            if (reach > ahead && reach <= back) s = reach - amount;
        } else if (rule.againTest == ResolveRule::AtOrBeyond ? reach >= ahead : reach > ahead) {
            takeOff(s, amount);
        }
    }
    return true;
}

}  // namespace

std::optional<double> ResolveStake(double typed, const ResolveRule& rule)
{
    double s = rule.start == ResolveRule::AbsoluteTyped ? std::abs(typed) : typed;
    if (!resolve(s, typed, rule)) return std::nullopt;
    return s;
}

bool ConvertRowStake(double& stake) { return resolve(stake, stake, kTableRow); }

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
    if (breaks()) n.value = RoundHalfUp3(n.value);
    return n;
}

double RoundHalfUp3(double value) { return std::floor(checked((value + 0.0005) * 1000)) / 1000; }
