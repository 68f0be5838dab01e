#pragma once
// What stands under a cursor: the numbers in words.

#include "plot/Profile.h"
#include "plot/Road.h"

#include <optional>
#include <string>

namespace plot {

struct ReadOut {
    double x = 0, y = 0;  ///< north and east, m
    FootPoint foot;
    std::optional<double> elevation;  ///< of the surface at that stake and offset
    std::string text;                 ///< all of it, one line, UTF-8
};
/// @param p local  Nothing without a road.
std::optional<ReadOut> readOutAt(const Road& road, Point p);

/// Stake and elevations left, centre and right at the edges of the formation, one line.
std::string profileReadOut(const Road& road, double stake);

/// An element in words: 缓和曲线 R=∞～420 A=158.745 …
std::string describe(const Element& element);
const char* nameOf(Bend bend);
/// Radius with its side, ∞ for a straight.
std::string radiusText(double radius);

}  // namespace plot
