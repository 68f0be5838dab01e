#pragma once
// The two halves of the inverse without the plain sums: the choice of an element, which is exact, and the walk, each of
// whose decisions is taken only where a bound leaves no other.

#include "engine/FastRoute.h"

#include <cstddef>
#include <optional>

/// isCandidate by the sign of two products; the plain way decides what lies on a normal.
bool isCandidate(const Tables& t, const FastRoute& route, Target to, std::size_t i);

/// The candidate with the nearest middle, below 100000 m, the earlier one where two are as near; 0 for none.
std::size_t nearestCandidate(const Tables& t, const FastRoute& route, Target to);

/// Where the walk from the start of an element ends: values that round to the plain way's thousandths.
struct FastEnd {
    double stake = 0, offset = 0;  ///< m
    int corrections = 0;           ///< rounds before the last
};
/// Nothing: a bound leaves two results open, or the walk does something unusual.
std::optional<FastEnd> fastWalk(const Tables& t, const FastRoute& route, Target to, std::size_t element);
