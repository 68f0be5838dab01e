#include "geometry/TrueRoad.h"

#include "base/Trig.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kDegree = std::numbers::pi / 180;

/// Ten-point Gauss-Legendre abscissae and weights of the half interval (Abramowitz and Stegun, table 25.4).
constexpr double kNode[] = {0.148874338981631211, 0.433395394129247191, 0.679409568299024406, 0.865063366688984511,
                            0.973906528517171720};
constexpr double kWeight[] = {0.295524224714752870, 0.269266719309996355, 0.219086362515982044, 0.149451349150580593,
                              0.066671344308688138};

struct Vector {
    double x = 0, y = 0;
};

/// Chord of an element that starts along +X: the integral of (cos, sin) of k1 s + (k2 - k1) s^2 / 2L.
Vector chord(double length, double k1, double k2)
{
    const double turn = std::abs(length) * std::max(std::abs(k1), std::abs(k2));
    // Nothing that is built turns 60 times; what a slip of the hand makes of it must not take for ever.
    const int panels = turn < 60 ? 1 + static_cast<int>(turn * 8) : 500;
    const double h = length / panels;
    Vector sum;
    for (int p = 0; p < panels; ++p)
        for (int n = 0; n < 5; ++n)
            for (const double side : {-1.0, 1.0}) {
                const double s = h * (p + 0.5 + 0.5 * side * kNode[n]);
                const double angle = k1 * s + (k2 - k1) * s * s / (2 * length);
                sum.x += kWeight[n] * h / 2 * trig::cos(angle);
                sum.y += kWeight[n] * h / 2 * trig::sin(angle);
            }
    return sum;
}

double curvature(double radius) { return radius == 0 ? 0 : 1 / radius; }

/// Shift p and tangent extension q of a spiral against its circle.
Vector shift(double ls, double radius)
{
    if (ls == 0) return {};
    const Vector end = chord(ls, 0, 1 / radius);
    const double turn = ls / (2 * radius);
    return {end.y - radius * (1 - trig::cos(turn)), end.x - radius * trig::sin(turn)};
}

}  // namespace

TruePoint TrueElementEnd(const TruePoint& start, double length, double r1, double r2)
{
    if (length == 0) return start;
    const double k1 = curvature(r1), k2 = curvature(r2);
    const Vector c = chord(length, k1, k2);
    const double a = start.azDeg * kDegree;
    return {start.x + c.x * trig::cos(a) - c.y * trig::sin(a), start.y + c.x * trig::sin(a) + c.y * trig::cos(a),
            start.azDeg + (k1 + k2) * length / 2 / kDegree};
}

std::vector<TrueCurve> TrueCurves(const std::vector<TrueVertex>& vertices)
{
    std::vector<TrueCurve> curves;
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        const auto &before = vertices[i - 1], &here = vertices[i], &after = vertices[i + 1];
        TrueCurve curve;
        curve.leg = std::hypot(here.x - before.x, here.y - before.y);
        curve.nextLeg = std::hypot(after.x - here.x, after.y - here.y);
        const double in = trig::atan2(here.y - before.y, here.x - before.x);
        const double turn = std::remainder(trig::atan2(after.y - here.y, after.x - here.x) - in, 2 * std::numbers::pi);
        const double a = std::abs(turn), radius = std::abs(here.radius);
        curve.deflectionDeg = a / kDegree;
        if (radius > 0 && trig::sin(a) != 0 && curve.leg > 0 && curve.nextLeg > 0) {
            curve.valid = true;
            const Vector pq1 = shift(here.ls1, radius), pq2 = shift(here.ls2, radius);
            curve.t1 = ((radius + pq2.x) - (radius + pq1.x) * trig::cos(a)) / trig::sin(a) + pq1.y;
            curve.t2 = ((radius + pq1.x) - (radius + pq2.x) * trig::cos(a)) / trig::sin(a) + pq2.y;
            curve.length = a * radius + (here.ls1 + here.ls2) / 2;
            curve.arc = curve.length - here.ls1 - here.ls2;
            const double r = turn < 0 ? -radius : radius;
            curve.zh = {here.x - curve.t1 * trig::cos(in), here.y - curve.t1 * trig::sin(in), in / kDegree};
            curve.hy = TrueElementEnd(curve.zh, here.ls1, 0, r);
            curve.yh = TrueElementEnd(curve.hy, curve.arc, r, r);
            curve.hz = TrueElementEnd(curve.yh, here.ls2, r, 0);
        }
        curves.push_back(curve);
    }
    return curves;
}

double TrueEndStake(double startStake, const std::vector<TrueVertex>& vertices)
{
    double stake = startStake;
    for (std::size_t i = 1; i < vertices.size(); ++i)
        stake += std::hypot(vertices[i].x - vertices[i - 1].x, vertices[i].y - vertices[i - 1].y);
    for (const auto& curve : TrueCurves(vertices)) stake += curve.length - curve.t1 - curve.t2;
    return stake;
}
