#pragma once
// The one integration of the system: composite Simpson rule, 192 intervals, along a stretch whose curvature grows in
// proportion to length. The order of every operation is the result.
// Source: Abramowitz, Stegun, Handbook of Mathematical Functions, 25.4.6, the extended Simpson's rule, on the cosine
// and sine of the azimuth.

#include "base/Numbers.h"
#include "base/Trig.h"

struct CurvePoint {
    double x = 0, y = 0;  ///< m
    double fwjDeg = 0;    ///< tangent azimuth, decimal degrees, not reduced
};

/// End of `len` metres from (x0, y0) and azimuth a0 in decimal degrees.
/// @param k      curvature at the start, 1/m
/// @param d      change of curvature over len, 1/m
/// @param twice  a share of d plus twice k; the callers add that up each in their own order
template <class Twice>
CurvePoint integrate(double len, double a0, double k, double d, double x0, double y0, Twice twice)
{
    struct Sum {
        double x = 0, y = 0;
        void add(double deg)
        {
            x += trig::cos(radians(deg));
            y += trig::sin(radians(deg));
        }
        /// One after the other.
        void add(double deg, double next)
        {
            const auto cosines = trig::cos2(radians(deg), radians(next)),
                       sines = trig::sin2(radians(deg), radians(next));
            x += cosines.first;
            x += cosines.second;
            y += sines.first;
            y += sines.second;
        }
    };
    const double end = a0 + (2 * k + d) * len * 90 / kPi;
    Sum odd, even;
    if (k == 0 && d == 0) {
        // A straight: every angle below would come out as a0.
        const double cosine = trig::cos(radians(a0)), sine = trig::sin(radians(a0));
        for (int n = 96; n >= 1; --n) odd.x += cosine, odd.y += sine;
        for (int n = 95; n >= 1; --n) even.x += cosine, even.y += sine;
    } else {
        const auto atOdd = [&](double u) { return a0 + (twice(u * d / 192) * (len / 2) * u / 192) * 180 / kPi; };
        const auto atEven = [&](double n) { return a0 + (twice(n * d / 96) * (len / 2) * (n / 96)) * 180 / kPi; };
        for (double u = 191; u >= 3; u -= 4) odd.add(atOdd(u), atOdd(u - 2));
        for (double n = 95; n >= 3; n -= 2) even.add(atEven(n), atEven(n - 1));
        even.add(atEven(1));
    }
    return {(4 * odd.x + trig::cos(radians(a0)) + 2 * even.x + trig::cos(radians(end))) * (len / 576) + x0,
            (4 * odd.y + trig::sin(radians(a0)) + 2 * even.y + trig::sin(radians(end))) * (len / 576) + y0, end};
}
