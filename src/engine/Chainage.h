#pragma once
// Chainage breaks: nominal stakes (as people write them) and continuous stakes (as the tables hold them), both ways.
// The maps differ by caller; the differences are data.

#include <optional>

/// One row a caller: how its stakes become continuous. The defaults are those of the single-point coordinate screen.
struct ResolveRule {
    enum { AbsoluteTyped, Typed } start = AbsoluteTyped;  ///< the running value starts at |t| or at t itself
    enum { Running, AsTyped } aheadTest = Running;        ///< whose ahead side the gap test looks at
    enum { AtOrBeyond, Beyond } secondPass = AtOrBeyond;  ///< |t| >= or > ahead in the pass of a negative stake
    enum { FromTyped, BlockEditor, TableRow } negative = FromTyped;  ///< what decides that pass, see Resolve
    enum { Inclusive, Exclusive } jump = Inclusive;  ///< a jump acts from its ahead stake on, or beyond it
};

inline constexpr ResolveRule kDgdZb{};                                   ///< single point coordinates, structures
inline constexpr ResolveRule kDgdGc{.aheadTest = ResolveRule::AsTyped};  ///< single point elevation
inline constexpr ResolveRule kBatchStart{.start = ResolveRule::Typed,    ///< limits of a batch
                                         .aheadTest = ResolveRule::AsTyped,
                                         .secondPass = ResolveRule::Beyond};
inline constexpr ResolveRule kBatchEnd{.start = ResolveRule::Typed, .aheadTest = ResolveRule::AsTyped};
inline constexpr ResolveRule kFileLine{.start = ResolveRule::Typed,
                                       .secondPass = ResolveRule::Beyond};  ///< batch files
inline constexpr ResolveRule kTableRow{.start = ResolveRule::Typed,         ///< rows of the vertical and section tables
                                       .secondPass = ResolveRule::Beyond,
                                       .negative = ResolveRule::TableRow};
inline constexpr ResolveRule kBlockEditor{.start = ResolveRule::Typed,  ///< fill-in of the block editor
                                          .negative = ResolveRule::BlockEditor,
                                          .jump = ResolveRule::Exclusive};

/// Nominal to continuous stake, m. Nothing: the stake lies in the numbers that a jump skips.
/// Without breaks the value is the rule's start value.
std::optional<double> ResolveStake(double typed, const ResolveRule& rule);

/// The stake conversion of one table row, in place: where a gap is met, what was subtracted before stays. False: a gap.
bool ConvertRowStake(double& stake);

struct NominalStake {
    double value = 0;         ///< m
    bool secondPass = false;  ///< the stake lies on the second pass through an overlap: a "-" goes before its text
};
/// Continuous to nominal stake, not yet rounded (identity without breaks).
NominalStake ToNominal(double continuous);
/// To three decimals, half up towards plus infinity.
double RoundHalfUp3(double value);
