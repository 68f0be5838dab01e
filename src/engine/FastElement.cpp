#include "engine/FastElement.h"

#include "base/Numbers.h"
#include "base/Trig.h"

#include <cmath>
#include <span>

namespace {

struct Direction {
    double cosine = 1, sine = 0;
    /// This one turned by another.
    Direction operator*(const Direction& by) const
    {
        return {cosine * by.cosine - sine * by.sine, sine * by.cosine + cosine * by.sine};
    }
    Direction back() const { return {cosine, -sine}; }
};

/// Cosine and sine within 2 u for |z| <= 20: the nearest quarter turn is taken off in two parts, Taylor's series of
/// degree 17 and 16 serve the rest, at most pi/4.
Direction direction(double z)
{
    constexpr double kHigh = 1.5707963267341256, kLow = 6.077100506506192e-11;  // pi/2; n times the first is exact
    const double n = std::nearbyint(z * 0.6366197723675814);
    const double r = (z - n * kHigh) - n * kLow, q = r * r;
    const double s =
        r + r * q *
                (-1 / 6.0 +
                 q * (1 / 120.0 +
                      q * (-1 / 5040.0 +
                           q * (1 / 362880.0 +
                                q * (-1 / 39916800.0 + q * (1 / 6227020800.0 + q * (-1 / 1307674368000.0 +
                                                                                    q * (1 / 355687428096000.0))))))));
    const double c =
        1 + q * (-1 / 2.0 +
                 q * (1 / 24.0 +
                      q * (-1 / 720.0 +
                           q * (1 / 40320.0 +
                                q * (-1 / 3628800.0 +
                                     q * (1 / 479001600.0 + q * (-1 / 87178291200.0 + q * (1 / 20922789888000.0))))))));
    switch (static_cast<int>(n) & 3) {
    case 0:
        return {c, s};
    case 1:
        return {-s, c};
    case 2:
        return {-c, -s};
    default:
        return {s, -c};
    }
}

struct Node {
    double square, at, weight;
};
constexpr Node node(double at, double weight) { return {at * at, at, weight}; }

/// Gauss and Legendre on -1 to 1, the nodes above 0; their weights add up to 1. Source: Abramowitz, Stegun, table 25.4.
constexpr Node kEight[] = {
    node(0.183434642495649804939, 0.362683783378361982965),
    node(0.525532409916328985817, 0.313706645877887287337),
    node(0.796666477413626739591, 0.222381034453374470544),
    node(0.960289856497536231683, 0.101228536290376259152),
};
constexpr Node kTwelve[] = {
    node(0.125233408511468915472, 0.249147045813402785000), node(0.367831498998180193752, 0.233492536538354808760),
    node(0.587317954286617447296, 0.203167426723065921749), node(0.769902674194304687036, 0.160078328543346226334),
    node(0.904117256370474856678, 0.106939325995318430960), node(0.981560634246719250690, 0.047175336386511827194),
};

bool sensible(double curvature) { return curvature == 0 || (std::abs(curvature) > 1e-12 && std::abs(curvature) < 1e3); }

constexpr double kMostTurnOfArc = 5.76, kMostTurnOfSpiral = 2, kTurnOfEight = 0.45;

void straight(const FastElement& e, double len, FastFrame& f)
{
    f = {e.sumX * (len / 576), e.sumY * (len / 576), e.cosine, e.sine, 0, 0, 0};
}

void arc(const FastElement& e, double len, FastFrame& f)
{
    const double half = e.curvature * len / 2, d = half / 96, d2 = d * d;
    const Direction turn = direction(half), middle = Direction{e.cosine, e.sine} * turn, end = middle * turn;
    const double chord = (half == 0 ? 1 : turn.sine / half) * len * (1 + d2 * d2 * (1 / 180.0 + d2 / 1512));
    f.x = chord * middle.cosine;
    f.y = chord * middle.sine;
    f.cosine = end.cosine;
    f.sine = end.sine;
}

/// A value of the complex plane in which the tangent is exp(iA).
struct Complex {
    double re = 0, im = 0;
};

/// Simpson's error at one end by the tangent there: curvature and its change over an interval are t and g.
Complex simpsonTerm(double t, double g)
{
    // f''' = (-3 t g - i t³) f, f^(5) = (10 t³ g + i (t^5 - 15 t g²)) f
    const double t3 = t * t * t;
    return {-t * g / 60 - 10 * t3 * g / 1512, -t3 / 180 - (t3 * t * t - 15 * t * g * g) / 1512};
}

void spiral(const FastElement& e, double len, FastFrame& f)
{
    const double q = e.slope * len * len / 8, half = e.curvature * len / 2, p = half + 2 * q;
    const Direction middle = Direction{e.cosine, e.sine} * direction(half + q);
    Complex sum;
    const auto gauss = [&](std::span<const Node> nodes) {
        for (const Node& n : nodes) {
            const Direction even = direction(q * n.square);
            const double odd = n.weight * direction(p * n.at).cosine;
            sum.re += odd * even.cosine;
            sum.im += odd * even.sine;
        }
    };
    f.turn <= kTurnOfEight ? gauss(kEight) : gauss(kTwelve);

    const double h = len / 192, g = e.slope * h * h, t = e.curvature * h;
    const Direction toEnd = direction(p + q), toStart = direction(q - p);
    const Complex last = simpsonTerm(t + 192 * g, g), first = simpsonTerm(t, g);
    const auto correct = [&](const Complex& c, const Direction& by, double sign) {
        sum.re += sign * (c.re * by.cosine - c.im * by.sine) / 192;
        sum.im += sign * (c.re * by.sine + c.im * by.cosine) / 192;
    };
    correct(last, toEnd, 1);
    correct(first, toStart, -1);

    f.x = len * (sum.re * middle.cosine - sum.im * middle.sine);
    f.y = len * (sum.re * middle.sine + sum.im * middle.cosine);
    const Direction end = middle * toEnd;
    f.cosine = end.cosine;
    f.sine = end.sine;
    f.curvature = e.curvature + e.slope * len;
}

}  // namespace

FastElement fastElement(double lc, double x, double y, double a0Deg, double k1, double k2, double length)
{
    FastElement e;
    e.lc = lc;
    e.x = x;
    e.y = y;
    e.a0Deg = a0Deg;
    e.a0Rad = radians(a0Deg);
    e.cosine = trig::cos(e.a0Rad);
    e.sine = trig::sin(e.a0Rad);
    e.curvature = k1;
    if (!(length > 0) || !sensible(k1) || !sensible(k2) || std::abs(a0Deg) > 1000) return e;
    e.slope = (k2 - k1) / length;
    e.kind = k1 != k2 ? FastElement::Kind::Spiral : k1 != 0 ? FastElement::Kind::Arc : FastElement::Kind::Straight;
    if (e.kind == FastElement::Kind::Straight) {
        // Term by term as the plain sums add them up: these are their bits.
        double oddX = 0, oddY = 0, evenX = 0, evenY = 0;
        for (int n = 96; n >= 1; --n) oddX += e.cosine, oddY += e.sine;
        for (int n = 95; n >= 1; --n) evenX += e.cosine, evenY += e.sine;
        e.sumX = 4 * oddX + e.cosine + 2 * evenX + e.cosine;
        e.sumY = 4 * oddY + e.sine + 2 * evenY + e.sine;
    }
    return e;
}

bool frameAt(const FastElement& e, double len, FastFrame& f)
{
    if (e.kind == FastElement::Kind::Plain) return false;
    if (e.kind == FastElement::Kind::Straight) {
        straight(e, len, f);
        return true;
    }
    f.curvature = e.curvature;
    f.turn = (2 * std::abs(e.curvature) + std::abs(e.slope) * len) * (len / 2);
    const bool isArc = e.kind == FastElement::Kind::Arc;
    if (!(f.turn <= (isArc ? kMostTurnOfArc : kMostTurnOfSpiral))) return false;
    isArc ? arc(e, len, f) : spiral(e, len, f);
    f.bound = kRounding * len * (85 + 21 * f.turn + 5 * std::abs(e.a0Rad));
    return true;
}
