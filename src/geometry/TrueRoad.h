#pragma once
// True geometry, apart from the arithmetic of the engine: real pi, exact clothoids by high-order quadrature.

#include <vector>

struct TruePoint {
    double x = 0, y = 0, azDeg = 0;  ///< m, m, decimal degrees
};

/// End of an element whose curvature runs linearly from 1/r1 to 1/r2 (a radius of 0: curvature 0) over `length` m.
TruePoint TrueElementEnd(const TruePoint& start, double length, double r1, double r2);

/// A corner of the polygon; ls1, ls2 and radius are those of an intersection point, m.
struct TrueVertex {
    double x = 0, y = 0, ls1 = 0, ls2 = 0, radius = 0;
};

/// The curve at an intersection point.
struct TrueCurve {
    bool valid = false;           ///< false: no turn or no radius
    double deflectionDeg = 0;     ///< absolute value
    double t1 = 0, t2 = 0;        ///< tangent lengths, m
    double arc = 0, length = 0;   ///< circular part and whole curve, m
    double leg = 0, nextLeg = 0;  ///< sides of the polygon before and behind, m
    TruePoint zh, hy, yh, hz;
};

/// One curve for each inner vertex.
std::vector<TrueCurve> TrueCurves(const std::vector<TrueVertex>& vertices);
/// Continuous stake of the last vertex, m.
double TrueEndStake(double startStake, const std::vector<TrueVertex>& vertices);
