#pragma once

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

/// Design elevation of the road surface, m.
/// @param stake   continuous stake, m; beyond the profile the nearest grade goes on, with no message
/// @param offset  m, negative left, 0 or positive right; beyond the formation edge it is held there
/// @throws Subscript with fewer than two grade stretches, TypeMismatch where gCgType is no number
double elevationAt(const Tables& t, double stake, double offset);
/// elevationAt of the open project.
double ElevationAt(double stake, double offset);
