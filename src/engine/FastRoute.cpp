#include "engine/FastRoute.h"

#include "base/Numbers.h"
#include "base/Trig.h"
#include "engine/Route.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {

bool isTame(double value) { return std::abs(value) < 1e9; }

/// The numbers that the constants are made of are there, and of a sensible size; the stakes never fall.
bool isTame(const Tables& t)
{
    const auto rows = static_cast<std::size_t>(t.elemCount) + 1;
    for (const auto* column : {&t.elemLc, &t.elemX, &t.elemY, &t.elemFwj, &t.elemR1, &t.elemR2})
        if (column->size() < rows) return false;
    for (std::size_t i = 0; i < rows; ++i) {
        if (!isTame(t.elemLc[i]) || !isTame(t.elemX[i]) || !isTame(t.elemY[i]) || !(std::abs(t.elemFwj[i]) < 1000) ||
            !std::isfinite(curvature(t.elemR1[i])) || !std::isfinite(curvature(t.elemR2[i])))
            return false;
        if (i > 0 && !(t.elemLc[i - 1] <= t.elemLc[i])) return false;
    }
    return true;
}

FastRoute::Direction directionOf(double deg) { return {trig::cos(radians(deg)), trig::sin(radians(deg))}; }

FastRoute::Row rowOf(double fwj)
{
    FastRoute::Row row;
    row.a0Deg = DmsToDeg(fwj);
    row.ahead[0] = directionOf(row.a0Deg);
    // To the south 180 degrees are added to the arctangent, which are 3.1415926 when they become radians.
    row.ahead[1] = {-directionOf(row.a0Deg - 180).cosine, -directionOf(row.a0Deg - 180).sine};
    row.packed = directionOf(fwj);
    return row;
}

using Middles = std::vector<FastRoute::Middle>;

FastRoute::Box around(const Middles& middles, std::size_t first, std::size_t last)
{
    constexpr double kFar = 1e300;
    FastRoute::Box box{kFar, -kFar, kFar, -kFar};
    for (std::size_t i = first; i < std::min(last, middles.size()); ++i) {
        if (!middles[i].longEnough) continue;
        box.lowX = std::min(box.lowX, middles[i].x);
        box.highX = std::max(box.highX, middles[i].x);
        box.lowY = std::min(box.lowY, middles[i].y);
        box.highY = std::max(box.highY, middles[i].y);
    }
    return box;
}

std::vector<FastRoute::Box> boxesOf(const Middles& middles)
{
    std::size_t leaves = 1;
    while (leaves * FastRoute::kLeaf < middles.size()) leaves *= 2;
    std::vector<FastRoute::Box> boxes(2 * leaves);
    for (std::size_t n = 0; n < leaves; ++n)
        boxes[leaves + n] = around(middles, n * FastRoute::kLeaf, (n + 1) * FastRoute::kLeaf);
    for (std::size_t n = leaves - 1; n >= 1; --n) {
        const auto &a = boxes[2 * n], &b = boxes[2 * n + 1];
        boxes[n] = {std::min(a.lowX, b.lowX), std::max(a.highX, b.highX), std::min(a.lowY, b.lowY),
                    std::max(a.highY, b.highY)};
    }
    return boxes;
}

}  // namespace

void prepareRoute(Tables& t)
{
    t.fast = {};
    if (t.elemCount < 1 || !isTame(t)) return;
    const auto count = static_cast<std::size_t>(t.elemCount);
    auto route = std::make_shared<FastRoute>();
    route->elements.reserve(count);
    route->rows.reserve(count + 1);
    for (std::size_t i = 0; i <= count; ++i) route->rows.push_back(rowOf(t.elemFwj[i]));
    for (std::size_t i = 0; i < count; ++i)
        route->elements.push_back(fastElement(t.elemLc[i], t.elemX[i], t.elemY[i], route->rows[i].a0Deg,
                                              curvature(t.elemR1[i]), curvature(t.elemR2[i]),
                                              t.elemLc[i + 1] - t.elemLc[i]));
    t.fast.route = route;

    route->middles.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto& middle = route->middles[i];
        const double length = t.elemLc[i + 1] - t.elemLc[i];
        if (!(length > 0.01)) continue;
        const auto p = pointAt(t, t.elemLc[i] + length / 2, 0, 0);
        if (!p || p->error) {
            t.fast = {};
            return;
        }
        middle = {p->x, p->y, p->fwjDeg, true};
    }
    route->boxes = boxesOf(route->middles);
}

const FastRoute* fastRoute(const Tables& t)
{
    const FastRoute* route = t.fast.route.get();
    return route && route->rows.size() == static_cast<std::size_t>(t.elemCount) + 1 ? route : nullptr;
}

namespace {

/// The azimuth as the plain way writes it down.
double azimuth(const FastElement& e, double len)
{
    return e.a0Deg + (2 * e.curvature + e.slope * len) * len * 90 / kPi;
}

/// The direction of the offset ray and a bound for it; the usual angles come from the tangent.
struct Ray {
    FastRoute::Direction to;
    double bound = 0;
};

Ray rayOf(const FastElement& e, const FastFrame& f, double fwjDeg, double skew)
{
    if (skew != 0 && skew != 90 && skew != 270) return {directionOf(fwjDeg + skew), 0};
    static const FastRoute::Direction right = directionOf(90), left = directionOf(270);
    const FastRoute::Direction by = skew == 0 ? FastRoute::Direction{} : skew == 90 ? right : left;
    // Both ways turn the azimuth's ten roundings, and those of an angle of less than a turn more, into a direction.
    return {{f.cosine * by.cosine - f.sine * by.sine, f.sine * by.cosine + f.cosine * by.sine},
            kRounding * (80 + 20 * f.turn + 8 * std::abs(e.a0Rad))};
}

}  // namespace

std::optional<BoundedPoint> boundedPoint(const FastRoute& route, std::size_t i, double stake, double skew,
                                         double offset)
{
    const FastElement& e = route.elements[i - 1];
    const double len = stake - e.lc;
    FastFrame f;
    if (!frameAt(e, len, f)) return std::nullopt;
    BoundedPoint p{f.x + e.x, f.y + e.y, f.bound, f.bound, azimuth(e, len)};
    // The last additions round to either side of a difference, once each on both ways.
    if (f.bound != 0) {
        p.boundX += 2 * kRounding * std::abs(p.x);
        p.boundY += 2 * kRounding * std::abs(p.y);
    }
    if (offset != 0) {
        const Ray ray = rayOf(e, f, p.fwjDeg, skew);
        p.x += offset * ray.to.cosine;
        p.y += offset * ray.to.sine;
        if (f.bound != 0 || ray.bound != 0) {
            p.boundX += std::abs(offset) * ray.bound + 2 * kRounding * std::abs(p.x);
            p.boundY += std::abs(offset) * ray.bound + 2 * kRounding * std::abs(p.y);
        }
    }
    return p;
}

CurvePoint certainPointOn(const Tables& t, std::size_t i, double stake)
{
    if (const FastRoute* route = fastRoute(t)) {
        const FastElement& e = route->elements[i - 1];
        const double len = stake - e.lc;
        FastFrame f;
        ++fastCounts.doubles;
        if (frameAt(e, len, f)) {
            const double x = f.x + e.x, y = f.y + e.y, b = f.bound * 1.01;
            if (b == 0 || (f.x - b + e.x == x && f.x + b + e.x == x && f.y - b + e.y == y && f.y + b + e.y == y))
                return {x, y, azimuth(e, len)};
        }
        ++fastCounts.plainDoubles;
    }
    return pointOn(t, i, stake);
}
