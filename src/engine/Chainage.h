#pragma once
// Chainage breaks: nominal stakes (as people write them) and continuous stakes (as the tables hold them), both ways.
// The maps differ by caller; the differences are data.

#include <array>
#include <optional>
#include <string_view>

struct Tables;

/// What every box says of a stake that lies in a gap between two parts of the road.
inline constexpr std::string_view kStakeInGap = "桩号不存在，请检查断链数据！";

/// How a caller's stakes become continuous. The defaults are those of the single-point coordinate screen.
struct ResolveRule {
    enum { AbsoluteTyped, Typed } start = AbsoluteTyped;    ///< the running value starts at |t| or at t itself
    enum { Running, AsTyped } aheadTest = Running;          ///< which value the gap test finds at or beyond ahead
    enum { Inclusive, Exclusive } jump = Inclusive;         ///< a jump acts from its ahead stake on, or beyond it
    enum { OfTyped, OfRunning, Mirrored } again = OfTyped;  ///< the second pass over the breaks, see below
    enum { AtOrBeyond, Beyond } againTest = AtOrBeyond;     ///< that pass takes |value| >= ahead, or > ahead
};
// The second pass. OfTyped: where the typed stake is negative, each break that |typed| has reached is taken off once
// more, also one that the first pass took off. OfRunning: the same with the running value. Mirrored: where the running
// value is negative, |value| between ahead and back is set to |value| less the amount.

inline constexpr ResolveRule kDgdZb{};                                   ///< single point coordinates, structures
inline constexpr ResolveRule kDgdGc{.aheadTest = ResolveRule::AsTyped};  ///< single point elevation
inline constexpr ResolveRule kBatchStart{
    .start = ResolveRule::Typed, .aheadTest = ResolveRule::AsTyped, .againTest = ResolveRule::Beyond};
inline constexpr ResolveRule kBatchEnd{.start = ResolveRule::Typed, .aheadTest = ResolveRule::AsTyped};
inline constexpr ResolveRule kFileLine{.start = ResolveRule::Typed, .againTest = ResolveRule::Beyond};  ///< batch files
inline constexpr ResolveRule kTableRow{///< rows of the block, vertical and section tables
                                       .start = ResolveRule::Typed,
                                       .again = ResolveRule::OfRunning,
                                       .againTest = ResolveRule::Beyond};
inline constexpr ResolveRule kBlockEditor{///< fill-in of the block editor
                                          .start = ResolveRule::Typed,
                                          .jump = ResolveRule::Exclusive,
                                          .again = ResolveRule::Mirrored};

/// Every caller by its screen; what stands behind the name is a field or a button of that screen.
struct ResolveVariant {
    std::string_view name;
    const ResolveRule& rule;
};
inline constexpr std::array kResolveVariants{
    ResolveVariant{"frmDgdZb", kDgdZb},          ResolveVariant{"frmJgw", kDgdZb},
    ResolveVariant{"frmDgdGc", kDgdGc},          ResolveVariant{"frmPlfyStart", kBatchStart},
    ResolveVariant{"frmPlGcStart", kBatchStart}, ResolveVariant{"frmPlStart", kBatchStart},
    ResolveVariant{"frmPlfyEnd", kBatchEnd},     ResolveVariant{"frmPlGcEnd", kBatchEnd},
    ResolveVariant{"frmPlEnd", kBatchEnd},       ResolveVariant{"frmPlfyFile", kFileLine},
    ResolveVariant{"frmPlGcFile", kFileLine},    ResolveVariant{"frmJgwFile", kFileLine},
    ResolveVariant{"TableRow", kTableRow},       ResolveVariant{"BlockEditor", kBlockEditor},
};

/// Nominal to continuous stake, m. Nothing: the stake lies in the numbers that a jump skips.
/// Without breaks the value is the rule's start value.
std::optional<double> ResolveStake(const Tables& t, double typed, const ResolveRule& rule);
/// By the breaks of the open project.
std::optional<double> ResolveStake(double typed, const ResolveRule& rule);

/// ResolveStake of one table row, in place: where a gap is met, what was subtracted before stays. False: a gap.
bool ConvertRowStake(const Tables& t, double& stake);

struct NominalStake {
    double value = 0;         ///< m
    bool secondPass = false;  ///< the stake lies on the second pass through an overlap: a "-" goes before its text
};
/// Continuous to nominal stake, rounded by RoundHalfUp3; the value itself where there are no breaks.
/// @throws Overflow
/// Kept on purpose: the running value, earlier amounts included, meets the positions of the later breaks.
NominalStake ToNominal(const Tables& t, double continuous);
NominalStake ToNominal(double continuous);  ///< by the breaks of the open project
/// To three decimals, half up towards plus infinity. @throws Overflow
double RoundHalfUp3(double value);
