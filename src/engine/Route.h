#pragma once
// From stakes to coordinates on the compiled alignment. What computes is a function of the tables and its
// arguments and moves nothing; the functions with given names store what it found in the shared results.
// A rule that ends in an error says what it had found until then: the shell stores that first and throws after.

#include "base/RunTimeError.h"

#include <optional>

struct Tables;

/// A point of the road and the tangent there.
struct RoutePoint {
    double fwjDeg = 0;    ///< tangent azimuth, decimal degrees, not reduced to 0..360
    double x = 0, y = 0;  ///< m, north and east, to 3 decimals
    enum class Known {
        Nothing,
        Azimuth,
        X,
        All
    } known = Known::All;  ///< how far it came, in this order, before the error
    std::optional<RunTimeError> error;
};

/// Point and tangent at a stake. Composite Simpson rule, 192 intervals, on the element that holds the stake; where
/// several do, the last one wins. Nothing where no element holds it.
/// @param stake   continuous stake, m (a typed stake goes through ResolveStake first)
/// @param skew    from the forward tangent to the offset ray, decimal degrees clockwise: 90 right, 270 left
/// @param offset  along that ray, m
std::optional<RoutePoint> pointAt(const Tables& t, double stake, double skew, double offset);

/// pointAt, left in gOutX, gOutY, gOutFwj; gOutDist is the distance from that point to (gInX, gInY), m.
/// @note  No element holds the stake (before the first, at or past the closing one): X, Y and azimuth keep the last
///        call's values, only gOutDist is renewed. Kept on purpose.
void StakeToXY(double stake, double skew, double offset);

/// True where some element of the alignment holds the continuous stake, so that pointAt finds a point.
bool StakeOnElement(const Tables& t, double stake);
