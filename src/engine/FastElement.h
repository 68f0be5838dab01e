#pragma once
// Points of one element in closed form, each with a bound for its distance from what the plain sums (Simpson.h) give in
// doubles. The plain sums are the truth: whoever uses a value from here asks whether the bound leaves only one result.

#include <cstddef>

/// A unit of rounding: half the distance from 1 to the next double.
inline constexpr double kRounding = 1.1102230246251565e-16;  // 2^-53

/// What is worth keeping of an element.
struct FastElement {
    enum class Kind {
        Plain,  ///< too wild for a bound: turns too far, or a radius of no sensible size
        Straight,
        Arc,
        Spiral
    } kind = Kind::Plain;
    double lc = 0, x = 0, y = 0;      ///< start: continuous stake and point, m
    double a0Deg = 0, a0Rad = 0;      ///< start azimuth, decimal degrees, radians
    double cosine = 1, sine = 0;      ///< of a0Rad
    double curvature = 0, slope = 0;  ///< at the start, 1/m, and its change a metre, 1/m²
    double sumX = 0, sumY = 0;        ///< of a straight: the plain sums, 576 times the direction but for rounding
};

/// An element from its rows. @param k1,k2 curvature at start and end, 1/m  @param length of the element, m
FastElement fastElement(double lc, double x, double y, double a0Deg, double k1, double k2, double length);

/// Where an element has come to.
struct FastFrame {
    double x = 0, y = 0;          ///< from the element's start, m
    double cosine = 1, sine = 0;  ///< direction of the tangent
    double curvature = 0;         ///< 1/m
    double turn = 0;              ///< no less than what the tangent has turned to either side, radians
    double bound = 0;             ///< of |x - plain x| and of |y - plain y|, m; 0: the same bits
};

/// The frame `len` metres from the start, 0 or more. False: no bound is known there.
///
/// The bound, u being kRounding, W = (2|k| + |dk|) len / 2 with dk the change of curvature over len, A the start
/// azimuth:
///     u len (85 + 21 W + 5 |A|)
/// The plain way's share: an angle is off by u (13 W + 3 |A|) after its ten operations and a sine by 2 u more; the two
/// naive sums of 96 and 95 terms by u 96·97/2 and u 95·96/2 at most, weighted 4 and 2 of 576: 48.2 u; the last
/// operations by 4.7 u. The closed form's share: phases and rotations by u (8 W + 2 |A| + 24), its truncations by 4 u:
/// - an arc is exact, a sum of cosines of an arithmetic progression: the chord times
///   (d / sin d) (4 + 2 cos d) / 6 = 1 + d^4/180 + d^6/1512 + d^8/14400 + ..., d = len k / 192;
/// - a spiral by Gauss and Legendre about its middle, 8 points up to W = 0.45, 12 up to W = 2: the derivative of order
///   16 or 24 of exp(i(P t + Q t²)), |P| + 2|Q| <= W, |Q| <= W/4, leaves 3e-16 len at most;
///   then Simpson's own error by Euler and Maclaurin, h = len/192:
///   (h^4/180) f''' - (h^6/1512) f^(5) between the ends; the next term is below 7e-17 len.
/// Sources: Abramowitz, Stegun, Handbook of Mathematical Functions, 25.4.30 and 23.1.30; N. J. Higham, Accuracy and
/// Stability of Numerical Algorithms, 4.2.
bool frameAt(const FastElement& e, double len, FastFrame& frame);
