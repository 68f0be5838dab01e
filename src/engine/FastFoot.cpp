#include "engine/FastFoot.h"

#include "base/Numbers.h"
#include "engine/Chainage.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

enum class Sign { Below, Unknown, Above };

/// The sign of cosineAt. Its angle is off by some roundings of at most 20 radians, the product by less.
Sign signAt(const Tables& t, const FastRoute& route, Target to, std::size_t i)
{
    const double dx = to.x - t.elemX[i], dy = to.y - t.elemY[i];
    if (dx == 0) return Sign::Unknown;
    const FastRoute::Direction& ahead = route.rows[i].ahead[dx < 0];
    const double along = dx * ahead.cosine + dy * ahead.sine;
    const double open = 1e-13 * (std::abs(dx) + std::abs(dy));
    return along > open ? Sign::Above : along < -open ? Sign::Below : Sign::Unknown;
}

double distance(const FastRoute::Middle& m, Target to)
{
    return std::sqrt((m.y - to.y) * (m.y - to.y) + (m.x - to.x) * (m.x - to.x));
}

/// No more than the distance to any middle in the box.
double distance(const FastRoute::Box& box, Target to)
{
    const double dx = std::max({box.lowX - to.x, to.x - box.highX, 0.0});
    const double dy = std::max({box.lowY - to.y, to.y - box.highY, 0.0});
    return std::sqrt(dx * dx + dy * dy) * (1 - 1e-14);
}

/// The nearest candidate so far, and the search for a nearer one.
struct Nearest {
    const Tables& t;
    const FastRoute& route;
    const Target to;
    double far = 100000;
    std::size_t best = 0;

    void look(std::size_t box)
    {
        const std::size_t leaves = route.boxes.size() / 2;
        if (box >= leaves) return lookAtLeaf(box - leaves);
        std::size_t near = 2 * box, other = near + 1;
        double toNear = distance(route.boxes[near], to), toOther = distance(route.boxes[other], to);
        if (toOther < toNear) std::swap(near, other), std::swap(toNear, toOther);
        if (toNear <= far) look(near);
        if (toOther <= far) look(other);
    }
    void lookAtLeaf(std::size_t leaf)
    {
        const std::size_t first = leaf * FastRoute::kLeaf;
        for (std::size_t n = first; n < std::min(first + FastRoute::kLeaf, route.middles.size()); ++n) {
            if (!route.middles[n].longEnough) continue;
            const double dist = distance(route.middles[n], to);
            const bool nearer = dist < far || (dist == far && best != 0 && n + 1 < best);
            if (nearer && isCandidate(t, route, to, n + 1)) far = dist, best = n + 1;
        }
    }
};

/// A place of the walk with bounds for its distance from the plain way's.
struct Place {
    double k = 0, x = 0, y = 0;   // m
    double cosine = 1, sine = 0;  // of the azimuth
    double angle = 0;             // no less than that azimuth, radians
    double curvature = 0, slope = 0;
    double boundK = 0, bound = 0;  // of k, and of x and y of a point at the same k
};

/// How far directions of the plain way are turned: 180 and 360 degrees become multiples of kPi.
struct Tilt {
    double cosine, sine;
};
constexpr Tilt tilt(double angle) { return {1 - angle * angle / 2, angle}; }
constexpr Tilt kNone = tilt(0), kSouth = tilt(kPi - std::numbers::pi), kWest = tilt(2 * (kPi - std::numbers::pi));

/// Whether a value known within a bound lies below a limit.
Sign compare(double value, double bound, double limit)
{
    return value + bound < limit ? Sign::Below : value - bound >= limit ? Sign::Above : Sign::Unknown;
}

bool roundsAlike(double value, double bound) { return RoundHalfUp3(value - bound) == RoundHalfUp3(value + bound); }

class Walk {
public:
    Walk(const Tables& tables, const FastRoute& fast, Target target, std::size_t element)
        : t(tables), route(fast), to(target), m_first(t.elemLc[0]),
          m_last(t.elemLc[static_cast<std::size_t>(t.elemCount)]), m_element(element)
    {}

    std::optional<FastEnd> run()
    {
        Place here;
        const std::size_t row = m_element - 1;
        here.k = t.elemLc[row], here.x = t.elemX[row], here.y = t.elemY[row];
        here.cosine = route.rows[row].packed.cosine, here.sine = route.rows[row].packed.sine;
        here.angle = radians(std::abs(t.elemFwj[row]));
        constexpr int kRounds = 50;  // a walk that ends has ended long before
        for (int round = 0; round < kRounds; ++round) {
            double offset = 0, open = 0;
            switch (step(here, offset, open)) {
            case Step::Goes:
                break;
            case Step::Ends:
                if (!roundsAlike(here.k, here.boundK) || !roundsAlike(offset, open)) return std::nullopt;
                return FastEnd{here.k, offset, round};
            case Step::Open:
                return std::nullopt;
            }
            if (!settleOn(here)) return std::nullopt;
        }
        return std::nullopt;
    }

private:
    enum class Step { Goes, Ends, Open };

    /// One round up to its exit test. With P the target, X(k) the point, T and N tangent and normal there, the plain
    /// way adds (P - X) T to k. That moves with k by -1 + c (P - X) N, c being the curvature, the offset (P - X) N by
    /// -c (P - X) T; so a bound for k passes through the round. Simpson's points stray from the curve and kPi from pi
    /// by less than 1e-6 of a difference. Everything else is roundings: those of an angle of the plain way, of at most
    /// 3 turns and twenty operations, and those of coordinates.
    Step step(Place& here, double& offset, double& open)
    {
        const double dx = to.x - here.x, dy = to.y - here.y;
        const double apart = here.bound, strays = apart + 1.001 * here.boundK;
        if (!(std::abs(dx) > strays) || !(std::abs(dy) > strays)) return Step::Open;
        const Tilt& by = dx < 0 ? kSouth : dy < 0 ? kWest : kNone;
        const double cosine = here.cosine * by.cosine + here.sine * by.sine;
        const double sine = here.sine * by.cosine - here.cosine * by.sine;
        const double d = std::sqrt(dx * dx + dy * dy);
        const double along = dx * cosine + dy * sine, across = dy * cosine - dx * sine;

        const double rounded = 2 * apart + d * kRounding * (300 + 12 * here.angle);
        const double bend = std::abs(here.curvature) + std::abs(here.slope) * here.boundK;
        const double size = std::abs(along) + std::abs(across) + 2 * strays;
        open = (1.001 + bend * size) * here.boundK + rounded;  // of the offset, and of the step itself

        const double next = here.k + along;
        const double nextOpen = (bend * (std::abs(across) + 2 * strays) + 1e-6) * here.boundK + rounded +
                                4 * kRounding * (std::abs(next) + std::abs(here.k));
        switch (compare(next, nextOpen, m_last)) {
        case Sign::Below:
            here.k = next, here.boundK = nextOpen, m_moved = true;
            break;
        case Sign::Above:
            m_moved = false;
            break;
        case Sign::Unknown:
            return Step::Open;
        }

        offset = across;
        const Sign product = compare(std::abs(along / d * across), 4 * open, 0.002);
        const Sign near = compare(std::abs(across), open, 0.0001);
        if (product == Sign::Below || near == Sign::Below) return Step::Ends;
        return product == Sign::Above && near == Sign::Above && m_moved ? Step::Goes : Step::Open;
    }

    /// The new stake is clamped and its point found.
    bool settleOn(Place& here)
    {
        switch (compare(here.k, here.boundK, m_first)) {
        case Sign::Below:
            here.k = m_first, here.boundK = 0;
            break;
        case Sign::Above:
            break;
        case Sign::Unknown:
            return false;
        }
        const double low = here.k - here.boundK, high = here.k + here.boundK;
        if (!(here.boundK < 1e-6)) return false;
        if (!(t.elemLc[m_element - 1] <= low && high < t.elemLc[m_element])) {
            m_element = elementAt(t, low);
            if (m_element == 0 || !(high < t.elemLc[m_element])) return false;
        }
        const FastElement& e = route.elements[m_element - 1];
        FastFrame f;
        if (!frameAt(e, here.k - e.lc, f)) return false;
        here.x = f.x + e.x, here.y = f.y + e.y;
        here.cosine = f.cosine, here.sine = f.sine;
        here.angle = std::abs(e.a0Rad) + f.turn;
        here.curvature = f.curvature, here.slope = e.slope;
        // Twice the roundings of coordinates: those of the target's differences, too.
        here.bound = f.bound + 4 * kRounding * (std::abs(here.x) + std::abs(here.y));
        return true;
    }

    const Tables& t;
    const FastRoute& route;
    const Target to;
    const double m_first, m_last;
    std::size_t m_element;
    bool m_moved = false;
};

}  // namespace

bool isCandidate(const Tables& t, const FastRoute& route, Target to, std::size_t i)
{
    if (!route.middles[i - 1].longEnough) return false;
    const Sign start = signAt(t, route, to, i - 1);
    if (start == Sign::Below || (start == Sign::Unknown && !(cosineAt(t, to, i - 1) >= 0))) return false;
    const Sign end = signAt(t, route, to, i);
    return end == Sign::Below || (end == Sign::Unknown && cosineAt(t, to, i) <= 0);
}

std::size_t nearestCandidate(const Tables& t, const FastRoute& route, Target to)
{
    Nearest nearest{t, route, to};
    nearest.look(1);
    return nearest.best;
}

std::optional<FastEnd> fastWalk(const Tables& t, const FastRoute& route, Target to, std::size_t element)
{
    return Walk(t, route, to, element).run();
}
