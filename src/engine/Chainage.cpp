#include "engine/Chainage.h"

#include "base/RunTimeError.h"
#include "tables/CalcTables.h"

#include <cmath>

namespace {

std::size_t breaks(const Tables& t) { return t.hasDl ? static_cast<std::size_t>(t.dlCount) + 1 : 0; }

/// A stake without the amount of a break; one that would pass the range of a double stays as it is.
void takeOff(double& s, double amount)
{
    if (const double less = s - amount; std::isfinite(less)) s = less;
}

/// The two passes over the breaks on the running value s. False: the stake lies in a gap, and s stays as it was there.
bool resolve(const Tables& t, double& s, double typed, const ResolveRule& rule)
{
    for (std::size_t i = 0; i < breaks(t); ++i) {
        const double back = t.dlBack[i], ahead = t.dlAhead[i], amount = t.dlCum[i];
        if (!(s <= back || (rule.aheadTest == ResolveRule::Running ? s : typed) >= ahead)) return false;
        const bool beyondJump = rule.jump == ResolveRule::Inclusive ? s >= ahead : s > ahead;
        if ((beyondJump && amount > 0) || (s > back && amount < 0)) takeOff(s, amount);
    }

    if (!((rule.again == ResolveRule::OfTyped ? typed : s) < 0)) return true;
    for (std::size_t i = 0; i < breaks(t); ++i) {
        const double back = t.dlBack[i], ahead = t.dlAhead[i], amount = t.dlCum[i];
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

std::optional<double> ResolveStake(const Tables& t, double typed, const ResolveRule& rule)
{
    double s = rule.start == ResolveRule::AbsoluteTyped ? std::abs(typed) : typed;
    if (!resolve(t, s, typed, rule)) return std::nullopt;
    return s;
}

bool ConvertRowStake(const Tables& t, double& stake) { return resolve(t, stake, stake, kTableRow); }

NominalStake ToNominal(const Tables& t, double continuous)
{
    NominalStake n{continuous};
    for (std::size_t j = 0; j < breaks(t); ++j) {
        if (t.dlAhead[j] - t.dlCum[j] < n.value && t.dlBack[j] - t.dlCum[j] >= n.value) {
            n.secondPass = true;
            n.value += t.dlCum[j];
        }
        if (n.value > t.dlBack[j]) n.value += t.dlCum[j];
    }
    if (breaks(t)) n.value = RoundHalfUp3(n.value);
    return n;
}

double RoundHalfUp3(double value) { return std::floor(checked((value + 0.0005) * 1000)) / 1000; }

std::optional<double> ResolveStake(double typed, const ResolveRule& rule)
{
    return ResolveStake(shared.tables, typed, rule);
}

NominalStake ToNominal(double continuous) { return ToNominal(shared.tables, continuous); }
