#include "engine/Route.h"

#include "engine/Chainage.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <cmath>

namespace {

struct Point {
    double x = 0, y = 0, fwjDeg = 0;
};

double curvature(double radius) { return radius == 0 ? 0 : 1 / radius; }

/// The centre-line point at a stake on element i, whose start is point i-1. The order of every operation is the result.
Point pointOn(std::size_t i, double stake)
{
    const double a = curvature(gElemR1[i - 1]);
    const double b = curvature(gElemR2[i - 1]);
    const double L = stake - gElemLc[i - 1];
    const double dk = (b - a) / (gElemLc[i] - gElemLc[i - 1]) * L;
    const double a0 = DmsToDeg(gElemFwj[i - 1]);
    const double end = a0 + (a + a + dk) * L * 90 / kPi;
    double s1x = 0, s1y = 0, s2x = 0, s2y = 0;
    for (int n = 96; n >= 1; --n) {
        const double u = 2 * n - 1;
        const double t = radians(((u * dk / 192 + a + a) * (L / 2) * u / 192) * 180 / kPi + a0);
        s1x += std::cos(t);
        s1y += std::sin(t);
    }
    for (double n = 95; n >= 1; --n) {
        const double t = radians(((n * dk / 96 + a + a) * (L / 2) * (n / 96) * 180) / kPi + a0);
        s2x += std::cos(t);
        s2y += std::sin(t);
    }
    return {(4 * s1x + std::cos(radians(a0)) + 2 * s2x + std::cos(radians(end))) * (L / 576) + gElemX[i - 1],
            (4 * s1y + std::sin(radians(a0)) + 2 * s2y + std::sin(radians(end))) * (L / 576) + gElemY[i - 1], end};
}

/// Number of the element that holds the stake, the last one where several do, 0 where none does.
std::size_t elementAt(double stake)
{
    for (auto i = static_cast<std::size_t>(gElemCount); i >= 1; --i)
        if (gElemLc[i - 1] <= stake && stake < gElemLc[i]) return i;
    return 0;
}

int sign(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

/// Direction of a difference in decimal degrees, not reduced.
double direction(double dx, double dy)
{
    return dx == 0 ? sign(dy) * 90.0 : std::atan(dy / dx) * 180 / kPi + (1 - sign(dx)) * 90.0;
}

/// The element whose normals hold the target between them, the one with the nearest midpoint; 0 for none.
std::size_t chooseElement()
{
    double nearest = 100000.0;
    std::size_t best = 0;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(gElemCount); ++i) {
        if (!(gElemLc[i] - gElemLc[i - 1] > 0.01)) continue;
        const double q1 = direction(gInX - gElemX[i - 1], gInY - gElemY[i - 1]);
        const double q2 = direction(gInX - gElemX[i], gInY - gElemY[i]);
        const double c1 = std::cos(radians(q1 - DmsToDeg(gElemFwj[i - 1])));
        const double c2 = std::cos(radians(q2 - DmsToDeg(gElemFwj[i])));
        if (!(c1 >= 0 && c2 <= 0)) continue;
        StakeToXY(gElemLc[i - 1] + (gElemLc[i] - gElemLc[i - 1]) / 2, 0, 0);
        if (gOutDist < nearest) {
            nearest = gOutDist;
            best = i;
        }
    }
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

}  // namespace

bool StakeOnElement(double stake) { return gElemCount > 0 && elementAt(stake) != 0; }

void StakeToXY(double stake, double skew, double offset)
{
    if (const std::size_t i = gElemCount > 0 ? elementAt(stake) : 0) {
        const Point p = pointOn(i, stake);
        gOutFwj = p.fwjDeg;
        gOutX = Fixed3(p.x + offset * std::cos(radians(gOutFwj + skew)));
        gOutY = Fixed3(p.y + offset * std::sin(radians(gOutFwj + skew)));
    }
    gOutDist = std::sqrt((gOutY - gInY) * (gOutY - gInY) + (gOutX - gInX) * (gOutX - gInX));
}

void XYToStakeFromStart() { XYToStake(at(gElemLc, 0), at(gElemFwj, 0), at(gElemX, 0), at(gElemY, 0), at(gElemFwj, 0)); }

void XYToStake(double k0, double az0, double x0, double y0, double)
{
    const std::size_t best = chooseElement();
    double k = k0, az = az0;  // kept on purpose: the first round reads a packed azimuth as if it were decimal
    Point p{x0, y0, 0};
    if (best) {
        k = gElemLc[best - 1];
        az = gElemFwj[best - 1];
        p = {gElemX[best - 1], gElemY[best - 1], 0};
    }
    const double first = at(gElemLc, 0);
    const double last = at(gElemLc, gElemCount);

    for (auto round = static_cast<std::int16_t>(best);; round = toInt16(round + 1)) {
        const double dx = gInX - p.x, dy = gInY - p.y;
        const double d = std::sqrt(dy * dy + dx * dx);
        if (dy == 0) return leaveTexts(k, d);  // kept on purpose: the offset is the bare distance, to the right
        double q = dx == 0 ? dy * 90 / std::abs(dy) : (1 - dx / std::abs(dx)) * 90 + std::atan(dy / dx) * 180 / kPi;
        if (q < 0) q += 360;
        const double c = std::cos(radians(q - az));
        if (d * c + k < last) k += d * c;
        const double o = std::sin(radians(q - az)) * d;
        const double w = c * o;
        if (std::abs(w) < 0.002 || std::abs(o) < 0.0001) return leaveTexts(k, o);
        if (k < first) k = first;
        if (k > last) k = last;
        gInLc = k;
        if (const std::size_t i = elementAt(k)) {
            p = pointOn(i, k);
            az = gOutFwj = p.fwjDeg;
        }
    }
}
