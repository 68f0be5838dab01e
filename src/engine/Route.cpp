#include "engine/Route.h"

#include "base/Numbers.h"
#include "base/Trig.h"
#include "engine/FastRoute.h"
#include "engine/RoutePoint.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

std::size_t elementAt(const Tables& t, double stake)
{
    if (fastRoute(t)) {  // its stakes never fall: one element holds the stake at most
        const auto rows = t.elemLc.begin();
        const auto above = std::upper_bound(rows, rows + t.elemCount + 1, stake) - rows;
        return above <= t.elemCount ? static_cast<std::size_t>(above) : 0;
    }
    for (auto i = static_cast<std::size_t>(t.elemCount); i >= 1; --i)
        if (t.elemLc[i - 1] <= stake && stake < t.elemLc[i]) return i;
    return 0;
}

CurvePoint pointOn(const Tables& t, std::size_t i, double stake)
{
    const double a = checked(curvature(t.elemR1[i - 1]));
    const double b = checked(curvature(t.elemR2[i - 1]));
    const double L = stake - t.elemLc[i - 1];
    const double dk = (b - a) / (t.elemLc[i] - t.elemLc[i - 1]) * L;
    return integrate(L, DmsToDeg(t.elemFwj[i - 1]), a, dk, t.elemX[i - 1], t.elemY[i - 1],
                     [a](double share) { return share + a + a; });
}

bool StakeOnElement(const Tables& t, double stake) { return elementAt(t, stake) != 0; }

namespace {

/// A coordinate of three decimals where every value within the bound has the same.
bool roundedAlike(double value, double bound, double& rounded)
{
    const double low = Fixed3(value - bound), high = Fixed3(value + bound);
    rounded = low;
    return std::bit_cast<std::uint64_t>(low) == std::bit_cast<std::uint64_t>(high);
}

/// The point where its digits can be told without the sums.
std::optional<RoutePoint> fastPointAt(const FastRoute& route, std::size_t i, double stake, double skew, double offset)
{
    if (!(std::abs(offset) < 1e9) || !(std::abs(skew) < 1e6)) return std::nullopt;
    ++fastCounts.points;
    RoutePoint point;
    if (const auto p = boundedPoint(route, i, stake, skew, offset)) {
        point.fwjDeg = p->fwjDeg;
        if (roundedAlike(p->x, p->boundX, point.x) && roundedAlike(p->y, p->boundY, point.y)) return point;
    }
    ++fastCounts.plainPoints;
    return std::nullopt;
}

}  // namespace

std::optional<RoutePoint> pointAt(const Tables& t, double stake, double skew, double offset)
{
    const std::size_t i = elementAt(t, stake);
    if (i == 0) return std::nullopt;
    if (const FastRoute* route = fastRoute(t))
        if (auto fast = fastPointAt(*route, i, stake, skew, offset)) return fast;
    RoutePoint point;
    point.known = RoutePoint::Known::Nothing;
    try {
        const CurvePoint p = pointOn(t, i, stake);
        point.fwjDeg = p.fwjDeg;
        point.known = RoutePoint::Known::Azimuth;
        point.x = Fixed3(p.x + offset * trig::cos(radians(p.fwjDeg + skew)));
        point.known = RoutePoint::Known::X;
        point.y = Fixed3(p.y + offset * trig::sin(radians(p.fwjDeg + skew)));
        point.known = RoutePoint::Known::All;
    } catch (const RunTimeError& error) {
        point.error = error;
    }
    return point;
}

void StakeToXY(double stake, double skew, double offset)
{
    if (const auto p = pointAt(shared.tables, stake, skew, offset)) {
        if (p->known >= RoutePoint::Known::Azimuth) gOutFwj = p->fwjDeg;
        if (p->known >= RoutePoint::Known::X) gOutX = p->x;
        if (p->known >= RoutePoint::Known::All) gOutY = p->y;
        if (p->error) throw *p->error;
    }
    gOutDist = std::sqrt((gOutY - gInY) * (gOutY - gInY) + (gOutX - gInX) * (gOutX - gInX));
}
