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
