#pragma once
// The elements of a file's road solved: each by itself from its own points, lengths and radii, so that an error of one
// does not travel into the next.

#include "exchange/LandXml.h"

#include <string>
#include <vector>

/// An element of a road: curvature grows in proportion to length.
struct ShapeElement {
    double from = 0;            ///< station of its start, m
    double length = 0;          ///< m
    double r1 = 0, r2 = 0;      ///< m, positive right, 0 straight
    double x = 0, y = 0;        ///< start, m, north and east
    double endX = 0, endY = 0;  ///< end as the file has it
    double az = 0;              ///< true azimuth of the start tangent, radians
    double endAz = 0;           ///< and of the end tangent
    double misfit = 0;          ///< m from the end that these give to the end that the file has
    std::size_t source = 0;     ///< its place among the elements of the file
    std::string place;          ///< as LandXml names it
};

struct Shape {
    std::vector<ShapeElement> elements;
    double end() const { return elements.back().from + elements.back().length; }  ///< station, m
    std::vector<std::string> findings;  ///< what of the file contradicts itself, one line each
    double largestTurn = 0;             ///< at a joint between two elements, radians
    std::string turnAt;                 ///< the element behind it
};

/// What may differ without a word, m: the file's own digits.
inline constexpr double kMillimetre = 0.001;
/// An element whose end lies further from the file's own end is not carried, m.
inline constexpr double kMostMisfit = 0.05;

/// What two elements of a file may lie apart, m: coordinates rounded to whole millimetres, each by itself.
inline constexpr double kMostGap = 0.005;

/// Directions are read only to check the points.
/// @throws ExchangeError for a gap between elements, an element that is not what it says, and points that fit only
/// with north and east exchanged
/// @param most  what two elements may lie apart, m; what is more than a millimetre is a finding
Shape SolveShape(const landxml::Alignment& road, landxml::AngleUnit directionUnit, double most = kMostGap);
