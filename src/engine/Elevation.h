#pragma once

struct Tables;

/// Design elevation of the road surface, m.
/// @param stake   continuous stake, m; beyond the profile the nearest grade goes on, with no message
/// @param offset  m, negative left, 0 or positive right; beyond the formation edge it is held there
/// @throws Subscript with fewer than two grade stretches, TypeMismatch where gCgType is no number
double elevationAt(const Tables& t, double stake, double offset);
/// elevationAt of the open project.
double ElevationAt(double stake, double offset);
