#pragma once
// Geometry as exact as long double goes, for comparison: real pi, clothoids by Gauss-Legendre quadrature whose panels
// turn by less than a tenth of a radian (error below 1e-19 of the length). Nothing here comes from the program.
// Angles in radians clockwise from +X (north), lengths in m, curvature positive right.

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace truth {

using Real = long double;
inline constexpr Real kPi = std::numbers::pi_v<Real>;

inline Real fromDeg(Real deg) { return deg * kPi / 180; }
inline Real toDeg(Real rad) { return rad * 180 / kPi; }
/// Packed dd.mmss to radians, all decimals counting. The value is read as the decimal it was typed as.
inline Real fromDms(double dms)
{
    const long double units = std::roundl(static_cast<Real>(std::abs(dms)) * 1e10L);  // 1e-6 of a second
    const Real d = std::floor(units / 1e10L);
    const Real m = std::floor((units - d * 1e10L) / 1e8L);
    const Real s = (units - d * 1e10L - m * 1e8L) / 1e6L;
    return (dms < 0 ? -1 : 1) * fromDeg(d + m / 60 + s / 3600);
}
/// The angle brought into -pi..pi.
inline Real wrapped(Real rad) { return std::remainder(rad, 2 * kPi); }

struct Pose {
    Real x = 0, y = 0, az = 0;
};

/// A stretch along which curvature goes from k0 to k1 in proportion to length.
struct Stretch {
    Real length = 0, k0 = 0, k1 = 0;
    Real turn(Real s) const { return s * (k0 + (length == 0 ? 0 : (k1 - k0) / length * s / 2)); }
};

/// Integral of (cos, sin) of the direction over s metres of the stretch; s may be negative or pass its end.
inline Pose walk(const Pose& start, const Stretch& stretch, Real s)
{
    static constexpr std::array<Real, 4> node{0.1834346424956498049394761L, 0.5255324099163289858177390L,
                                              0.7966664774136267395915539L, 0.9602898564975362316835609L};
    static constexpr std::array<Real, 4> weight{0.3626837833783619829651504L, 0.3137066458778872873379622L,
                                                0.2223810344533744705443560L, 0.1012285362903762591525314L};
    const Real k = stretch.k0 + (stretch.length == 0 ? 0 : (stretch.k1 - stretch.k0) / stretch.length * s);
    const int panels = 1 + static_cast<int>(std::abs(s) * std::max(std::abs(stretch.k0), std::abs(k)) * 10);
    const Real half = s / panels / 2;
    Pose end = start;
    for (int p = 0; p < panels; ++p)
        for (std::size_t i = 0; i < node.size(); ++i)
            for (const int side : {-1, 1}) {
                const Real az = start.az + stretch.turn(half * (2 * p + 1 + side * node[i]));
                end.x += half * weight[i] * std::cos(az);
                end.y += half * weight[i] * std::sin(az);
            }
    end.az += stretch.turn(s);
    return end;
}

/// Shift p and tangent gain q of a spiral of length ls onto a circle of radius r, exactly.
struct Shift {
    Real p = 0, q = 0;
};
inline Shift shiftOf(Real ls, Real r)
{
    const Pose end = walk({}, {ls, 0, 1 / r}, ls);
    return {end.y - r * (1 - std::cos(end.az)), end.x - r * std::sin(end.az)};
}

struct Vertex {
    Real x = 0, y = 0, ls1 = 0, ls2 = 0, r = 0;
};

/// The true curve at an intersection point: tangent lengths, curve length and the four main points.
struct Curve {
    Real turn = 0;  ///< deflection, positive right
    Real t1 = 0, t2 = 0, length = 0;
    Pose zh, hy, yh, hz;
    Stretch in, arc, out;
    Real zhStake = 0;
};
inline Curve curveAt(const Vertex& before, const Vertex& at, const Vertex& after)
{
    const Real az1 = std::atan2(at.y - before.y, at.x - before.x);
    const Real az2 = std::atan2(after.y - at.y, after.x - at.x);
    Curve c;
    c.turn = wrapped(az2 - az1);
    const Real a = std::abs(c.turn), r = std::abs(at.r);
    const Shift s1 = shiftOf(at.ls1, r), s2 = shiftOf(at.ls2, r);
    c.t1 = ((r + s2.p) - (r + s1.p) * std::cos(a)) / std::sin(a) + s1.q;
    c.t2 = ((r + s1.p) - (r + s2.p) * std::cos(a)) / std::sin(a) + s2.q;
    c.length = a * r + (at.ls1 + at.ls2) / 2;
    const Real k = (c.turn < 0 ? -1 : 1) / r;
    c.in = {at.ls1, 0, k};
    c.arc = {c.length - at.ls1 - at.ls2, k, k};
    c.out = {at.ls2, k, 0};
    c.zh = {at.x - c.t1 * std::cos(az1), at.y - c.t1 * std::sin(az1), az1};
    c.hy = walk(c.zh, c.in, c.in.length);
    c.yh = walk(c.hy, c.arc, c.arc.length);
    c.hz = walk(c.yh, c.out, c.out.length);
    return c;
}

/// A whole route of intersection points (the first and the last vertex are its ends) with the stakes of its curves.
struct Route {
    std::vector<Curve> curves;
    Real endStake = 0;
};
inline Route routeOf(const std::vector<Vertex>& vertices, Real startStake)
{
    Route route;
    Real stake = startStake;  // of the last HZ
    Real used = 0;            // of the leg behind it
    const auto leg = [&](std::size_t i) {
        return std::hypot(vertices[i].x - vertices[i - 1].x, vertices[i].y - vertices[i - 1].y);
    };
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        Curve c = curveAt(vertices[i - 1], vertices[i], vertices[i + 1]);
        c.zhStake = stake + leg(i) - used - c.t1;
        stake = c.zhStake + c.length;
        used = c.t2;
        route.curves.push_back(c);
    }
    route.endStake = stake + leg(vertices.size() - 1) - used;
    return route;
}

/// Point at a stake on a chain of stretches that starts at `start`; the last stretch goes on beyond its end.
inline Pose poseAt(Pose start, const std::vector<Stretch>& chain, Real stake)
{
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (stake < chain[i].length || i + 1 == chain.size()) return walk(start, chain[i], stake);
        start = walk(start, chain[i], chain[i].length);
        stake -= chain[i].length;
    }
    return start;
}

}  // namespace truth
