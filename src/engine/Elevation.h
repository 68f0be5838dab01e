#pragma once

#include <cstddef>
#include <vector>

struct Tables;

/// The layout of the section at a stake, m from the centre line; all 0 where no width row holds it.
struct RoadSection {
    struct Side {
        double width = 0, shoulder = 0;  ///< formation with its shoulder, the shoulder alone
    };
    Side left, right;
    double halfMedian = 0;
    double shoulderSlope = 0;  ///< fraction
};
/// @param stake continuous, m
RoadSection sectionAt(const Tables& t, double stake);

/// For the elevations of many stakes of one load: where the search for a stake's grade may begin. It lives no longer
/// than the tables stay as they are.
class GradeIndex {
public:
    explicit GradeIndex(const Tables& t);
    /// No row before it ends the search for this stake.
    std::ptrdiff_t firstRow(double stake) const;

private:
    std::vector<double> m_ends;  ///< row i + 1: the farthest stake where a row up to it ends the search
};

/// Design elevation of the road surface, m.
/// @param stake   continuous stake, m; beyond the profile the nearest grade goes on, with no message
/// @param offset  m, negative left, 0 or positive right; beyond the formation edge it is held there
/// @param index   of these tables, or none: the search begins at the first row, and finds the same
/// @throws Subscript with fewer than two grade stretches, TypeMismatch where gCgType is no number
double elevationAt(const Tables& t, double stake, double offset, const GradeIndex* index = nullptr);
/// elevationAt of the open project.
double ElevationAt(double stake, double offset);
