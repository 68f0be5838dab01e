#pragma once
// What the ways between stakes and points share.

#include "engine/Simpson.h"

#include <cstddef>

struct Tables;

inline double curvature(double radius) { return radius == 0 ? 0 : 1 / radius; }

/// Number of the element that holds the stake, the last one where several do, 0 where none does.
std::size_t elementAt(const Tables& t, double stake);

/// The centre-line point at a stake on element i, whose start is row i-1; not rounded.
CurvePoint pointOn(const Tables& t, std::size_t i, double stake);

/// A point whose foot is asked for, m.
struct Target {
    double x = 0, y = 0;
};

/// Element i is long enough, and the target lies ahead of the normal at its start and behind that at its end.
bool isCandidate(const Tables& t, Target to, std::size_t i);
/// Cosine of the angle between the tangent at row i and the direction to the target.
double cosineAt(const Tables& t, Target to, std::size_t i);
