// From a point to its stake: the choice of an element, the walk along it, the texts.

#include "engine/XYToStake.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/Chainage.h"
#include "engine/FastFoot.h"
#include "engine/FastRoute.h"
#include "engine/Route.h"
#include "engine/RoutePoint.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <queue>
#include <string>
#include <utility>
#include <vector>

namespace {

int sign(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

/// Direction of a difference in decimal degrees, not reduced.
double direction(double dx, double dy)
{
    return dx == 0 ? sign(dy) * 90.0 : trig::atan(dy / dx) * 180 / kPi + (1 - sign(dx)) * 90.0;
}

}  // namespace

double cosineAt(const Tables& t, Target to, std::size_t i)
{
    return trig::cos(radians(direction(to.x - t.elemX[i], to.y - t.elemY[i]) - DmsToDeg(t.elemFwj[i])));
}

bool isCandidate(const Tables& t, Target to, std::size_t i)
{
    return t.elemLc[i] - t.elemLc[i - 1] > 0.01 && cosineAt(t, to, i - 1) >= 0 && cosineAt(t, to, i) <= 0;
}

namespace {

using Bound = std::pair<double, std::size_t>;  // m, element

bool isTame(double value) { return std::abs(value) < 1e9; }

/// For each element a distance that its middle cannot be nearer than: that of its start less half its length, and two
/// millimetres for rounding. None where that cannot be told: the stakes do not rise, or a number is out of all bounds.
std::vector<Bound> lowerBounds(const Tables& t, Target to)
{
    if (!isTame(to.x) || !isTame(to.y)) return {};
    std::vector<Bound> bounds;
    bounds.reserve(t.elemLc.size());
    for (std::size_t i = 1; i <= static_cast<std::size_t>(t.elemCount); ++i) {
        const double length = t.elemLc[i] - t.elemLc[i - 1];
        const double dx = to.x - t.elemX[i - 1], dy = to.y - t.elemY[i - 1];
        const double bound = std::sqrt(dx * dx + dy * dy) - length / 2 - 0.002;
        const double turn = (std::abs(curvature(t.elemR1[i - 1])) + std::abs(curvature(t.elemR2[i - 1]))) * length;
        if (!(length >= 0 && isTame(t.elemLc[i]) && isTame(bound) && isTame(turn) && isTame(t.elemFwj[i - 1])))
            return {};
        bounds.emplace_back(bound, i);
    }
    return bounds;
}

constexpr int kMostRounds = std::numeric_limits<std::int16_t>::max();

/// Where the walk stands: stake m, azimuth, point m. A round is a function of this alone.
struct Place {
    double k = 0, az = 0, x = 0, y = 0;
    bool operator==(const Place&) const = default;
};

/// Tells when a walk has come round to a place where it has been: it will not settle, and whole laps can be skipped.
class Cycle {
public:
    /// The rounds of the whole laps that fit into those that are left.
    int roundsToSkip(const Place& here, int left)
    {
        ++m_lap;
        if (here == m_mark) return left / m_lap * m_lap;
        if (m_lap == m_nextMark) {
            m_mark = here;
            m_nextMark *= 2;
            m_lap = 0;
        }
        return 0;
    }

private:
    Place m_mark{std::numeric_limits<double>::quiet_NaN()};
    int m_lap = 0, m_nextMark = 1;
};

/// Stake and offset become texts, chainage breaks applied.
void settle(const Tables& t, double stake, double offset, Foot& foot)
{
    foot.stake = RoundHalfUp3(stake);
    foot.offset = RoundHalfUp3(offset);
    foot.nominal = ToNominal(t, foot.stake);
    foot.lcText = (foot.nominal.secondPass ? "-" : "") + FormatStake(foot.nominal.value);
    if (foot.offset < 0)
        foot.offsetText = "左" + FormatFixed3(std::abs(foot.offset)) + "米";
    else if (foot.offset == 0)
        foot.offsetText = "中";
    else
        foot.offsetText = "右" + FormatFixed3(foot.offset) + "米";
}

/// A foot and what finding it leaves in the shared results.
struct TracedFoot : Foot {
    std::optional<double> corrected;           ///< stake of the last correction round, m, if there was one
    std::optional<double> x, y, fwjDeg, dist;  ///< the last candidate's middle, where there was a candidate
};

/// One search for a foot: what it finds goes into the foot as it comes, so that an error leaves what was there.
class Search {
public:
    Search(const Tables& tables, Target target, double lastX, double lastY)
        : t(tables), to(target), m_x(lastX), m_y(lastY)
    {}
    TracedFoot foot;

    void run(const WalkStart& start)
    {
        foot.element = chooseElement();
        // Kept on purpose: the first round reads a packed azimuth as if it were decimal.
        Place here{start.k, start.az, start.x, start.y};
        if (const std::size_t b = foot.element)
            here = {t.elemLc[b - 1], t.elemFwj[b - 1], t.elemX[b - 1], t.elemY[b - 1]};
        walk(here);
    }

private:
    /// Distance of the target from the middle of element i, or from the last point found where that has none.
    double toMiddle(std::size_t i)
    {
        if (const auto p = pointAt(t, t.elemLc[i - 1] + (t.elemLc[i] - t.elemLc[i - 1]) / 2, 0, 0)) {
            if (p->known >= RoutePoint::Known::Azimuth) foot.fwjDeg = p->fwjDeg;
            if (p->known >= RoutePoint::Known::X) foot.x = m_x = p->x;
            if (p->known >= RoutePoint::Known::All) foot.y = m_y = p->y;
            if (p->error) throw *p->error;
        }
        foot.dist = std::sqrt((m_y - to.y) * (m_y - to.y) + (m_x - to.x) * (m_x - to.x));
        return *foot.dist;
    }

    /// The candidate with the nearest middle, the earlier one where two are as near; 0 for none. The last candidate's
    /// middle is what is left.
    std::size_t chooseElement()
    {
        if (const FastRoute* route = fastRoute(t); route && isTame(to.x) && isTame(to.y)) {
            leaveLastCandidate(*route);
            return nearestCandidate(t, *route, to);
        }
        double nearest = 100000.0;
        std::size_t best = 0;
        const auto consider = [&](std::size_t i) {
            if (!isCandidate(t, to, i)) return false;
            const double dist = toMiddle(i);
            if (dist < nearest || (dist == nearest && i < best)) {
                nearest = dist;
                best = i;
            }
            return true;
        };

        const auto count = static_cast<std::size_t>(t.elemCount);
        std::priority_queue order(std::greater<Bound>(), lowerBounds(t, to));
        if (order.empty()) {
            for (std::size_t i = 1; i <= count; ++i) consider(i);
            return best;
        }
        // Most elements are too far away to be looked at.
        for (; !order.empty() && order.top().first <= nearest; order.pop()) consider(order.top().second);
        for (std::size_t i = count; i >= 1 && !consider(i);) --i;
        return best;
    }

    void leaveLastCandidate(const FastRoute& route)
    {
        for (std::size_t i = route.middles.size(); i >= 1; --i) {
            if (!isCandidate(t, route, to, i)) continue;
            const auto& middle = route.middles[i - 1];
            foot.fwjDeg = middle.fwjDeg;
            foot.x = m_x = middle.x;
            foot.y = m_y = middle.y;
            foot.dist = std::sqrt((m_y - to.y) * (m_y - to.y) + (m_x - to.x) * (m_x - to.x));
            return;
        }
    }

    void walk(Place here)
    {
        const double first = at(t.elemLc, 0);
        const double last = at(t.elemLc, t.elemCount);
        Cycle cycle;
        for (int round = static_cast<int>(foot.element);; toInt16(++round)) {
            const double dx = to.x - here.x, dy = to.y - here.y;
            const double d = std::sqrt(dy * dy + dx * dx);
            if (dy == 0)
                return settle(t, here.k, d, foot);  // kept on purpose: the offset is the bare distance, to the right
            double q =
                dx == 0 ? dy * 90 / std::abs(dy) : (1 - dx / std::abs(dx)) * 90 + trig::atan(dy / dx) * 180 / kPi;
            if (q < 0) q += 360;
            const double c = trig::cos(radians(q - here.az));
            if (d * c + here.k < last) here.k += d * c;
            const double o = trig::sin(radians(q - here.az)) * d;
            const double w = c * o;
            if (std::abs(w) < 0.002 || std::abs(o) < 0.0001) return settle(t, here.k, o, foot);
            if (here.k < first) here.k = first;
            if (here.k > last) here.k = last;
            foot.corrected = here.k;
            if (const std::size_t i = elementAt(t, here.k)) {
                const CurvePoint p = certainPointOn(t, i, here.k);
                foot.fwjDeg = p.fwjDeg;
                here = {here.k, p.fwjDeg, p.x, p.y};
            }
            round += cycle.roundsToSkip(here, kMostRounds - round);
        }
    }

    const Tables& t;
    const Target to;
    double m_x, m_y;  // the last point found, m
};

}  // namespace

WalkStart startOfRoute(const Tables& t) { return {at(t.elemLc, 0), at(t.elemFwj, 0), at(t.elemX, 0), at(t.elemY, 0)}; }

namespace {

TracedFoot footWithTraces(const Tables& t, Target to, const WalkStart& start, double lastX, double lastY)
{
    Search search(t, to, lastX, lastY);
    try {
        search.run(start);
    } catch (const RunTimeError& error) {
        search.foot.error = error;
    }
    return std::move(search.foot);
}

/// The foot alone, where the walk from the nearest candidate leaves no digit open.
std::optional<Foot> fastFoot(const Tables& t, Target to)
{
    const FastRoute* route = fastRoute(t);
    if (!route || !isTame(to.x) || !isTame(to.y)) return std::nullopt;
    ++fastCounts.feet;
    Foot foot;
    foot.element = nearestCandidate(t, *route, to);
    const auto end = foot.element ? fastWalk(t, *route, to, foot.element) : std::nullopt;
    if (!end) {
        ++fastCounts.plainFeet;
        return std::nullopt;
    }
    settle(t, end->stake, end->offset, foot);
    foot.leavesMiddle = true;
    foot.leavesCorrection = end->corrections > 0;
    return foot;
}

}  // namespace

Foot footOf(const Tables& t, double x, double y, double lastX, double lastY)
{
    if (auto foot = fastFoot(t, {x, y})) return std::move(*foot);
    TracedFoot foot = footWithTraces(t, {x, y}, startOfRoute(t), lastX, lastY);
    foot.leavesMiddle = foot.x.has_value();
    foot.leavesCorrection = foot.corrected.has_value();
    return foot;
}

namespace {

/// What was found is stored first, then its error is thrown if it has one.
void store(const TracedFoot& foot)
{
    if (foot.x) gOutX = *foot.x;
    if (foot.y) gOutY = *foot.y;
    if (foot.fwjDeg) gOutFwj = *foot.fwjDeg;
    if (foot.dist) gOutDist = *foot.dist;
    if (foot.corrected) gInLc = *foot.corrected;
    if (!foot.lcText.empty()) gOutLcText = foot.lcText;
    if (!foot.offsetText.empty()) gOutOffsetText = foot.offsetText;
    if (foot.error) throw *foot.error;
}

}  // namespace

void XYToStake(double k0, double az0, double x0, double y0, double)
{
    store(footWithTraces(shared.tables, {gInX, gInY}, {k0, az0, x0, y0}, gOutX, gOutY));
}

Foot XYToStakeFromStart()
{
    const TracedFoot foot = footWithTraces(shared.tables, {gInX, gInY}, startOfRoute(shared.tables), gOutX, gOutY);
    store(foot);
    return foot;
}
