#pragma once
// Stake to point and back, each rule written down in the plainest way: no value kept, nothing skipped. The engine has
// to give the same bits.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/Chainage.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <cstddef>

namespace plain {

inline double deg(double rad) { return rad * 180 / kPi; }
inline double cosDeg(double a) { return trig::cos(a * kPi / 180); }
inline double sinDeg(double a) { return trig::sin(a * kPi / 180); }

/// Point and tangent on each element that holds the stake; the last one stays. False: none does.
inline bool pointAt(double stake, double& x, double& y, double& fwj)
{
    bool hit = false;
    for (int i = 1; i <= gElemCount; ++i) {
        const auto p = static_cast<std::size_t>(i - 1), n = static_cast<std::size_t>(i);
        if (!(gElemLc[p] <= stake && stake < gElemLc[n])) continue;
        hit = true;
        const double a = gElemR1[p] == 0 ? 0 : 1 / gElemR1[p];
        const double b = gElemR2[p] == 0 ? 0 : 1 / gElemR2[p];
        const double L = stake - gElemLc[p];
        const double dk = (b - a) / (gElemLc[n] - gElemLc[p]) * L;
        const double a0 = DmsToDeg(gElemFwj[p]);
        fwj = a0 + (a + a + dk) * L * 90 / kPi;
        double s1x = 0, s1y = 0, s2x = 0, s2y = 0;
        for (int k = 96; k >= 1; --k) {
            const double u = 2 * k - 1;
            const double t = ((u * dk / 192 + a + a) * (L / 2) * u / 192) * 180 / kPi + a0;
            s1x = s1x + cosDeg(t);
            s1y = s1y + sinDeg(t);
        }
        for (int k = 95; k >= 1; --k) {
            const double m = k;
            const double t = ((m * dk / 96 + a + a) * (L / 2) * (m / 96) * 180) / kPi + a0;
            s2x = s2x + cosDeg(t);
            s2y = s2y + sinDeg(t);
        }
        x = (4 * s1x + cosDeg(a0) + 2 * s2x + cosDeg(fwj)) * (L / 576) + gElemX[p];
        y = (4 * s1y + sinDeg(a0) + 2 * s2y + sinDeg(fwj)) * (L / 576) + gElemY[p];
    }
    return hit;
}

inline void StakeToXY(double stake, double skew, double offset)
{
    double x = 0, y = 0;
    if (pointAt(stake, x, y, gOutFwj)) {
        x = x + offset * cosDeg(gOutFwj + skew);
        y = y + offset * sinDeg(gOutFwj + skew);
        gOutX = ParseNumber(FormatFixed3(x));
        gOutY = ParseNumber(FormatFixed3(y));
    }
    gOutDist = std::sqrt((gOutY - gInY) * (gOutY - gInY) + (gOutX - gInX) * (gOutX - gInX));
}

/// The sums of one element. Twice the curvature is one value here; the point at a stake adds it two times.
inline void ElementEnd(double len, double k1, double k2, double az, double x0, double y0, double total)
{
    const double d = (k2 - k1) / total * len;
    const double a0 = DmsToDeg(az);
    gOutX = 0;
    gOutY = 0;
    gOutFwj = a0 + (2 * k1 + d) * len * 90 / kPi;
    double evenX = 0, evenY = 0;
    for (int i = 96; i >= 1; --i) {
        const double u = 2 * i - 1;
        const double deflection = ((u * d / 192 + 2 * k1) * (len / 2) * u / 192) * 180 / kPi;
        gOutX = gOutX + cosDeg(a0 + deflection);
        gOutY = gOutY + sinDeg(a0 + deflection);
    }
    for (int k = 95; k >= 1; --k) {
        const double i = k;
        const double deflection = ((i * d / 96 + 2 * k1) * (len / 2) * (i / 96)) * 180 / kPi;
        evenX = evenX + cosDeg(a0 + deflection);
        evenY = evenY + sinDeg(a0 + deflection);
    }
    gOutX = (4 * gOutX + cosDeg(a0) + 2 * evenX + cosDeg(gOutFwj)) * (len / 576) + x0;
    gOutY = (4 * gOutY + sinDeg(a0) + 2 * evenY + sinDeg(gOutFwj)) * (len / 576) + y0;
}

inline int sgn(double v) { return (v > 0) - (v < 0); }

inline double directionDeg(double dx, double dy)
{
    if (dx == 0) return sgn(dy) * 90;
    return deg(trig::atan(dy / dx)) + (1 - sgn(dx)) * 90;
}

inline void leave(double k, double o)
{
    k = std::floor((k + 0.0005) * 1000) / 1000;
    o = std::floor((o + 0.0005) * 1000) / 1000;
    bool again = false;
    double kn = k;
    if (gHasDl) {
        for (int j = 0; j <= gDlCount; ++j) {
            const auto i = static_cast<std::size_t>(j);
            if (gDlAhead[i] - gDlCum[i] < kn && gDlBack[i] - gDlCum[i] >= kn) again = true, kn = kn + gDlCum[i];
            if (kn > gDlBack[i]) kn = kn + gDlCum[i];
        }
        kn = std::floor((kn + 0.0005) * 1000) / 1000;
    }
    gOutLcText = again ? "-" + FormatStake(kn) : FormatStake(kn);
    gOutOffsetText = o < 0   ? "左" + FormatFixed3(std::abs(o)) + "米"
                     : o > 0 ? "右" + FormatFixed3(o) + "米"
                             : std::string("中");
}

/// What the walk did, for tests that explain where it ends.
struct Walk {
    int element = 0;     ///< picked, 0: none
    int rounds = 0;      ///< corrections
    bool sameY = false;  ///< ended on a point of the same Y
    double stake = 0, offset = 0;
};

inline Walk XYToStake(double k0, double az0, double x0, double y0)
{
    Walk walk;
    double best = 100000;
    for (int i = 1; i <= gElemCount; ++i) {
        const auto p = static_cast<std::size_t>(i - 1), n = static_cast<std::size_t>(i);
        if (!(gElemLc[n] - gElemLc[p] > 0.01)) continue;
        const double q1 = directionDeg(gInX - gElemX[p], gInY - gElemY[p]);
        const double q2 = directionDeg(gInX - gElemX[n], gInY - gElemY[n]);
        if (cosDeg(q1 - DmsToDeg(gElemFwj[p])) >= 0 && cosDeg(q2 - DmsToDeg(gElemFwj[n])) <= 0) {
            plain::StakeToXY(gElemLc[p] + (gElemLc[n] - gElemLc[p]) / 2, 0, 0);
            if (gOutDist < best) best = gOutDist, walk.element = i;
        }
    }
    double k = k0, az = az0, xc = x0, yc = y0;
    if (walk.element) {
        const auto b = static_cast<std::size_t>(walk.element - 1);
        k = gElemLc[b], az = gElemFwj[b], xc = gElemX[b], yc = gElemY[b];
    }
    const double last = gElemLc[static_cast<std::size_t>(gElemCount)];
    for (int counter = walk.element;;) {
        const double dx = gInX - xc, dy = gInY - yc;
        const double d = std::sqrt(dy * dy + dx * dx);
        double o = d;
        walk.sameY = dy == 0;
        bool done = walk.sameY;
        if (!done) {
            double q = dx == 0 ? dy * 90 / std::abs(dy) : (1 - dx / std::abs(dx)) * 90 + deg(trig::atan(dy / dx));
            if (q < 0) q = q + 360;
            const double c = cosDeg(q - az);
            if (d * c + k < last) k = k + d * c;
            o = sinDeg(q - az) * d;
            const double w = cosDeg(q - az) * o;
            done = std::abs(w) < 0.002 || std::abs(o) < 0.0001;
        }
        if (done) {
            leave(k, o);
            walk.stake = k, walk.offset = o;
            return walk;
        }
        if (k < gElemLc[0]) k = gElemLc[0];
        if (k > last) k = last;
        gInLc = k;
        if (pointAt(k, xc, yc, gOutFwj)) az = gOutFwj;
        ++walk.rounds;
        if (++counter > 32767) throw RunTimeError(RunTimeError::Overflow);
    }
}

}  // namespace plain
