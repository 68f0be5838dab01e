#pragma once
// What the ways between stakes and points keep of a load's elements, so that they need the plain sums (Simpson.h) only
// where a bound leaves two results open. Made by prepareRoute; without it everything goes the plain way.

#include "engine/FastElement.h"
#include "engine/RoutePoint.h"

#include <cstddef>
#include <optional>
#include <vector>

struct Tables;

/// Coordinates before they are rounded, with bounds for their distance from the plain ones.
struct BoundedPoint {
    double x = 0, y = 0;            ///< m
    double boundX = 0, boundY = 0;  ///< m
    double fwjDeg = 0;              ///< the bits of the plain way
};

/// What is kept of all elements; stakes never fall, every number is of a sensible size.
struct FastRoute {
    struct Direction {
        double cosine = 1, sine = 0;
    };
    /// The tangent at a row, as it meets directions to the north, and those to the south: kPi falls short of pi.
    struct Row {
        Direction ahead[2];
        double a0Deg = 0;
        Direction packed;  ///< of the packed azimuth read as decimal degrees
    };
    /// The middle of an element as pointAt gives it.
    struct Middle {
        double x = 0, y = 0, fwjDeg = 0;
        bool longEnough = false;  ///< for the inverse to look at
    };
    /// A box around the middles of elements first to last, counted from 1.
    struct Box {
        double lowX = 0, highX = 0, lowY = 0, highY = 0;
    };

    std::vector<FastElement> elements;  ///< element i at i - 1
    std::vector<Row> rows;              ///< one more
    std::vector<Middle> middles;
    std::vector<Box> boxes;  ///< a heap: halves of box n, counted from 1, are 2n and 2n + 1; the leaves hold kLeaf
    static constexpr std::size_t kLeaf = 8;
};

/// Called last by a load: renews tables.fast from the final rows. None where a number is out of all bounds.
void prepareRoute(Tables& t);

/// What is kept, or null where there is none or the rows are not as many as it was made from.
const FastRoute* fastRoute(const Tables& t);

/// Point and tangent at a stake that element i holds. Nothing: no bound is known.
std::optional<BoundedPoint> boundedPoint(const FastRoute& route, std::size_t i, double stake, double skew,
                                         double offset);

/// The centre-line point at a stake on element i: the bits of pointOn, the plain sum only where a bound leaves two
/// doubles open.
CurvePoint certainPointOn(const Tables& t, std::size_t i, double stake);

/// How often a bound left two results open, and how often it was asked; for tests and measurements.
struct FastCounts {
    long points = 0, plainPoints = 0, feet = 0, plainFeet = 0, doubles = 0, plainDoubles = 0;
};
inline thread_local FastCounts fastCounts;
