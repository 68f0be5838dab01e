#pragma once
// 横断面图: the surface across the road at a stake, with its side slopes as a sketch. Drawn in metres: x is the offset,
// y the elevation above the origin's.

#include "plot/Plan.h"
#include "plot/Slopes.h"

#include <optional>
#include <string>
#include <vector>

namespace plot {

struct SectionPoint {
    std::string name = {};               ///< 左路肩外缘, 左行车道外缘, 左中央分隔带, 中桩, …
    double offset = 0;                   ///< negative left, m
    std::optional<double> surface = {};  ///< elevation, m
    std::optional<double> bottom = {};   ///< less the pavement
    /// Of the stretch between here and the next point towards the centre, fraction, positive upwards from the centre.
    std::optional<double> slope = {};
};
/// A slope with its berms, from the road outwards.
struct SlopeSketch {
    std::vector<Point> points = {};  ///< offset and elevation
    bool cut = false, right = false;
    std::vector<std::string> labels = {};  ///< 1:1.5, one for each grade
};
struct Section {
    double stake = 0, thickness = 0;
    std::vector<SectionPoint> points = {};  ///< from left to right
    std::vector<SlopeSketch> slopes = {};
    std::optional<Pose> pose = {};  ///< of the centre line
};

/// @param thickness  of the pavement, m, 0: none is taken off
Section sectionOf(const Road& road, double stake, double thickness, const SlopeFiles& slopes);

/// Where its points lie in the plan: north and east, m; nothing without an alignment.
std::vector<Point> worldPoints(const Road& road, const Section& section);

struct SectionView {
    double mm = 0.1;  ///< metres on a millimetre of paper: the measure of texts
    bool slopes = true;
    Stale stale = {};
};
Picture sectionPicture(const Road& road, const Section& section, const SectionView& view);
/// Points as text, one a line: name, stake, offset, elevation, less the pavement, X, Y; values that are missing are
/// empty. @param separator  between the fields
std::string sectionTable(const Road& road, const Section& section, std::string_view separator,
                         std::string_view lineEnd);

}  // namespace plot
