// From a point to its stake: the choice of an element, the walk along it, the texts.

#include "engine/Chainage.h"
#include "engine/Numbers.h"
#include "engine/Route.h"
#include "engine/RoutePoint.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <queue>
#include <string>
#include <utility>
#include <vector>

namespace {

int sign(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

/// Direction of a difference in decimal degrees, not reduced.
double direction(double dx, double dy)
{
    return dx == 0 ? sign(dy) * 90.0 : std::atan(dy / dx) * 180 / kPi + (1 - sign(dx)) * 90.0;
}

/// Cosine of the angle between the tangent at point i and the direction to the target.
double cosineAt(std::size_t i)
{
    return std::cos(radians(direction(gInX - gElemX[i], gInY - gElemY[i]) - DmsToDeg(gElemFwj[i])));
}

/// Element i is long enough, and the target lies ahead of the normal at its start and behind that at its end.
bool isCandidate(std::size_t i)
{
    return gElemLc[i] - gElemLc[i - 1] > 0.01 && cosineAt(i - 1) >= 0 && cosineAt(i) <= 0;
}

/// Middle of element i into the results; gOutDist is what counts.
void toMiddle(std::size_t i) { StakeToXY(gElemLc[i - 1] + (gElemLc[i] - gElemLc[i - 1]) / 2, 0, 0); }

using Bound = std::pair<double, std::size_t>;  // m, element

bool isTame(double value) { return std::abs(value) < 1e9; }

/// For each element a distance that its middle cannot be nearer than: that of its start less half its length, and two
/// millimetres for rounding. None where that cannot be told: the stakes do not rise, or a number is out of all bounds.
std::vector<Bound> lowerBounds()
{
    if (!isTame(gInX) || !isTame(gInY)) return {};
    std::vector<Bound> bounds;
    bounds.reserve(gElemLc.size());
    for (std::size_t i = 1; i <= static_cast<std::size_t>(gElemCount); ++i) {
        const double length = gElemLc[i] - gElemLc[i - 1];
        const double dx = gInX - gElemX[i - 1], dy = gInY - gElemY[i - 1];
        const double bound = std::sqrt(dx * dx + dy * dy) - length / 2 - 0.002;
        const double turn = (std::abs(curvature(gElemR1[i - 1])) + std::abs(curvature(gElemR2[i - 1]))) * length;
        if (!(length >= 0 && isTame(gElemLc[i]) && isTame(bound) && isTame(turn) && isTame(gElemFwj[i - 1]))) return {};
        bounds.emplace_back(bound, i);
    }
    return bounds;
}

/// The candidate with the nearest middle, the earlier one where two are as near; 0 for none. The results are left at
/// the last candidate's middle.
std::size_t chooseElement()
{
    double nearest = 100000.0;
    std::size_t best = 0;
    const auto consider = [&](std::size_t i) {
        if (!isCandidate(i)) return false;
        toMiddle(i);
        if (gOutDist < nearest || (gOutDist == nearest && i < best)) {
            nearest = gOutDist;
            best = i;
        }
        return true;
    };

    const auto count = static_cast<std::size_t>(gElemCount);
    std::priority_queue order(std::greater<Bound>(), lowerBounds());
    if (order.empty()) {
        for (std::size_t i = 1; i <= count; ++i) consider(i);
        return best;
    }
    // Most elements are too far away to be looked at.
    for (; !order.empty() && order.top().first <= nearest; order.pop()) consider(order.top().second);
    for (std::size_t i = count; i >= 1 && !consider(i);) --i;
    return best;
}

/// Stake and offset become texts, chainage breaks applied.
void leaveTexts(double stake, double offset)
{
    const double o = RoundHalfUp3(offset);
    const NominalStake nominal = ToNominal(RoundHalfUp3(stake));
    gOutLcText = (nominal.secondPass ? "-" : "") + FormatStake(nominal.value);
    if (o < 0)
        gOutOffsetText = "左" + FormatFixed3(std::abs(o)) + "米";
    else if (o == 0)
        gOutOffsetText = "中";
    else
        gOutOffsetText = "右" + FormatFixed3(o) + "米";
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

}  // namespace

void XYToStakeFromStart() { XYToStake(at(gElemLc, 0), at(gElemFwj, 0), at(gElemX, 0), at(gElemY, 0), at(gElemFwj, 0)); }

void XYToStake(double k0, double az0, double x0, double y0, double)
{
    const std::size_t best = chooseElement();
    // Kept on purpose: the first round reads a packed azimuth as if it were decimal.
    Place here{k0, az0, x0, y0};
    if (best) here = {gElemLc[best - 1], gElemFwj[best - 1], gElemX[best - 1], gElemY[best - 1]};
    const double first = at(gElemLc, 0);
    const double last = at(gElemLc, gElemCount);

    Cycle cycle;
    for (int round = static_cast<int>(best);; toInt16(++round)) {
        const double dx = gInX - here.x, dy = gInY - here.y;
        const double d = std::sqrt(dy * dy + dx * dx);
        if (dy == 0) return leaveTexts(here.k, d);  // kept on purpose: the offset is the bare distance, to the right
        double q = dx == 0 ? dy * 90 / std::abs(dy) : (1 - dx / std::abs(dx)) * 90 + std::atan(dy / dx) * 180 / kPi;
        if (q < 0) q += 360;
        const double c = std::cos(radians(q - here.az));
        if (d * c + here.k < last) here.k += d * c;
        const double o = std::sin(radians(q - here.az)) * d;
        const double w = c * o;
        if (std::abs(w) < 0.002 || std::abs(o) < 0.0001) return leaveTexts(here.k, o);
        if (here.k < first) here.k = first;
        if (here.k > last) here.k = last;
        gInLc = here.k;
        if (const std::size_t i = elementAt(here.k)) {
            const CurvePoint p = pointOn(i, here.k);
            here = {here.k, gOutFwj = p.fwjDeg, p.x, p.y};
        }
        round += cycle.roundsToSkip(here, kMostRounds - round);
    }
}
