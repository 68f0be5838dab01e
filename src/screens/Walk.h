#pragma once
// A run of stakes: from a start by whole steps, over the chainage breaks.

#include "dialogs/Outcome.h"

#include <functional>
#include <string>

struct Run {
    double start = 0, end = 0, step = 0;  ///< nominal, m
};

/// Whose amount the pass of a stake below 0 looks at; the one thing in which the screens' walks differ.
enum class NegativePass {
    LastInverse,  ///< gInLc, which some earlier inverse computation left
    Current,      ///< the stake itself
};

/// One stake of a run.
struct RunStake {
    double nominal;      ///< as the row shows it, m
    double continuous;   ///< m
    std::string remark;  ///< the warning where stakes before it were skipped in a gap, else ""
};

/// Hands each stake to `make`, up to the last one below end + 0.0001; a remainder shorter than the step gets none.
/// A stake in a gap is skipped by whole steps; kept on purpose: this can carry one stake past the end, and drops what
/// earlier breaks took off it. Ends early, as at the end, where the rows are abandoned.
/// @throws Overflow where a gap is never left because the step does not move the stake
void WalkStakes(const Run& run, NegativePass pass, RowSink& rows, const std::function<void(const RunStake&)>& make);
