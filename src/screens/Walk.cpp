#include "screens/Walk.h"

#include "base/RunTimeError.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"

#include <cmath>

namespace {

/// Steps out of the gap of break i. False: abandoned.
bool leaveGap(double& cur, std::ptrdiff_t i, double step, RowSink& rows)
{
    constexpr long kLookUpEvery = 65536;
    for (long n = 1; !(cur <= at(gDlBack, i) || cur >= at(gDlAhead, i)); ++n) {
        if (cur + step == cur) throw RunTimeError(RunTimeError::Overflow);
        cur += step;
        if (n % kLookUpEvery == 0 && rows.abandoned()) return false;
    }
    return true;
}

/// The continuous stake of `cur`, which moves on where it lies in a gap. False: abandoned.
bool overBreaks(double& cur, double& c, double step, NegativePass pass, RowSink& rows)
{
    c = cur;
    for (std::ptrdiff_t i = 0; i <= gDlCount; ++i) {
        const double before = cur;
        if (!leaveGap(cur, i, step, rows)) return false;
        if (cur != before) c = cur;
        if ((cur >= at(gDlAhead, i) && at(gDlCum, i) > 0) || (cur > at(gDlBack, i) && at(gDlCum, i) < 0))
            c -= at(gDlCum, i);
    }
    if (cur < 0)
        for (std::ptrdiff_t i = 0; i <= gDlCount; ++i)
            if (std::abs(pass == NegativePass::LastInverse ? gInLc : cur) >= at(gDlAhead, i))
                c = std::abs(cur) - at(gDlCum, i);
    return true;
}

}  // namespace

void WalkStakes(const Run& run, NegativePass pass, RowSink& rows, const std::function<void(const RunStake&)>& make)
{
    for (double cur = run.start; !(run.end + 0.0001 <= cur); cur += run.step) {
        if (rows.abandoned()) return;
        const double wanted = cur;
        double c = cur;
        if (gHasDl && !overBreaks(cur, c, run.step, pass, rows)) return;
        make({cur, c, cur == wanted ? "" : warning::Skipped(wanted)});
    }
}
