#pragma once
// The elements of a compiled road as other programs want them: with length, one turn each, and their ends.

#include "exchange/RoadFiles.h"

#include <string>
#include <vector>

struct RoadElement {
    double stake = 0, length = 0;  ///< continuous, m
    double r1 = 0, r2 = 0;         ///< m, positive right, 0 straight
    double x = 0, y = 0, az = 0;   ///< start, m, and its tangent, radians as the engine points
    double endX = 0, endY = 0;     ///< as the engine computes it, m; the next one may begin a little beside
};

/// What is shorter than a hundredth of a millimetre is no element; a spiral from one turn into the other is two.
/// @param report  gains a line for each joint that does not meet; may be null
/// @throws ExchangeError where there is no alignment, or stakes run backward
std::vector<RoadElement> RoadElements(const Tables& tables, const RoadFiles& files, std::vector<std::string>* report);
