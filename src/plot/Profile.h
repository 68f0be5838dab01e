#pragma once
// 纵断面图: the grade line over the stakes, and bands below it over the same stakes. Drawn in millimetres of paper:
// (0, 0) is the lower left corner of the graph, where the bands hang below it and their titles stand to the left.

#include "plot/Plan.h"

#include <optional>
#include <string>
#include <vector>

namespace plot {

/// A grade change with its vertical curve.
struct GradeChange {
    double stake = 0, elevation = 0;  ///< of the corner
    double radius = 0, tangent = 0;   ///< m
    double rise = 0;                  ///< E, from the corner to the curve, m
    double before = 0, behind = 0;    ///< grades, fractions
    bool crest = false;
    double start() const { return stake - tangent; }
    double end() const { return stake + tangent; }
};
struct Extreme {
    double stake = 0, elevation = 0;
    bool high = false;
};
std::vector<GradeChange> gradeChanges(const Tables& t);
/// High and low points: where the grade line is level inside a curve.
std::vector<Extreme> extremes(const Tables& t);

struct ProfileView {
    double from = 0, to = 0;   ///< continuous stakes
    double mm = 2;             ///< road along a millimetre of paper, m
    double exaggeration = 10;  ///< of heights
    double datum = 0;          ///< elevation at the lower edge of the graph, m
    double height = 120;       ///< of the graph, mm
    Stale stale = {};
};
/// Height of all bands, and width of their titles, mm.
inline constexpr double kBandsHeight = 70, kBandTitles = 26;

/// The elevations of the grade line between two stakes, lowest and highest; nothing without a profile.
std::optional<std::pair<double, double>> heightsBetween(const Tables& t, double from, double to);
/// The largest usual exaggeration and the datum with which those stakes fit into the view's height.
void fitHeights(const Tables& t, ProfileView& view);

Picture profilePicture(const Road& road, const ProfileView& view);
/// Where a point of the road stands in that picture.
Point inProfile(const ProfileView& view, double stake, double elevation);

}  // namespace plot
