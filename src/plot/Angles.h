#pragma once
// Directions of a drawing and azimuths of the road, both in degrees: a direction runs anticlockwise from +x, an azimuth
// clockwise from north, which is +y.

#include "base/Numbers.h"
#include "base/Trig.h"
#include "plot/Picture.h"

#include <cmath>

namespace plot {

inline double radiansOf(double degrees) { return radians(degrees); }
inline double degreesOf(double rad) { return rad * 180 / kPi; }

inline Point directionOf(double degrees) { return {trig::cos(radians(degrees)), trig::sin(radians(degrees))}; }
/// -180 to 180.
inline double angleOf(Point p) { return trig::atan2(p.y, p.x) * 180 / kPi; }

inline Point alongAzimuth(double azDeg) { return {trig::sin(radians(azDeg)), trig::cos(radians(azDeg))}; }
/// To the right of an azimuth.
inline Point rightOf(double azDeg) { return {trig::cos(radians(azDeg)), -trig::sin(radians(azDeg))}; }
inline double directionOfAzimuth(double azDeg) { return 90 - azDeg; }

/// The same line, turned so that a text along it stands on its feet: above -90, up to 90. @param turn of the paper
inline double upright(double degrees, double turn = 0)
{
    double seen = std::fmod(degrees + turn, 360);
    if (seen > 180) seen -= 360;
    if (seen <= -180) seen += 360;
    return seen > 90.0001 || seen <= -89.9999 ? degrees + 180 : degrees;
}

}  // namespace plot
