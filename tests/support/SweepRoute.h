#pragma once
// Random routes, stakes and points that try everything at once: tiny and huge elements, both turns, azimuths at the
// quadrants, coordinates of three sizes, joints, normals, both ends and what lies beyond.

#include "base/Numbers.h"
#include "engine/Element.h"
#include "engine/FastRoute.h"
#include "support/PlainRoute.h"
#include "support/Sanitized.h"
#include "support/Tables.h"

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <vector>

/// How many calls a sweep makes: 10^5, or as many as VM_LONG says (`./test --long`: 10^7).
inline int allSweepCalls(int shards)
{
    const char* wanted = std::getenv("VM_LONG");
    return (wanted ? std::atoi(wanted) : 100'000) / shards;
}

/// How many a differential test makes: few under the sanitizers, which do not change the bits.
inline int sweepCalls(int shards) { return sanitized() ? 10'000 / shards : allSweepCalls(shards); }

class Sweep {
public:
    explicit Sweep(std::uint64_t seed) : m_random(seed) {}

    double draw(double from, double to) { return std::uniform_real_distribution<double>(from, to)(m_random); }
    bool chance(double probability) { return draw(0, 1) < probability; }
    std::size_t below(std::size_t count) { return m_random() % count; }

    /// A chain of `count` elements whose ends meet, coordinates about `size`.
    void setRoute(int count, double size, bool wild = true)
    {
        std::vector<ElementRow> rows;
        double x = size * draw(0.5, 1), y = size * draw(0.5, 1);
        double az = chance(0.3) ? 90.0 * static_cast<double>(below(4)) : DegToDms(draw(0, 360));
        double stake = chance(0.3) ? 0 : Fixed3(draw(0, 50000)), radius = 0;
        for (int i = 0; i < count; ++i) {
            const auto kind = below(4);
            const double next = kind <= 1 ? radius : kind == 2 ? (radius == 0 ? newRadius(wild) : 0) : newRadius(wild);
            const double tightest = std::min(radius == 0 ? 1e9 : std::abs(radius), next == 0 ? 1e9 : std::abs(next));
            double length = Fixed3(std::min(draw(10, 300), tightest * draw(0.05, wild && chance(0.1) ? 6 : 1)));
            if (wild && chance(0.05)) length = draw(0.005, 0.02);
            if (wild && chance(0.03)) length *= 30;
            if (wild && chance(0.02)) length = 0;
            rows.push_back({stake, x, y, az, radius, next});
            if (length > 0) {
                const double k1 = radius == 0 ? 0 : 1 / radius, k2 = next == 0 ? 0 : 1 / next;
                const CurvePoint end = elementEnd(length, k1, k2, az, x, y, length);
                const bool round = chance(0.5);
                x = round ? Fixed3(end.x) : end.x;
                y = round ? Fixed3(end.y) : end.y;
                az = DegToDms(end.fwjDeg);
            }
            stake += length;
            radius = next;
        }
        const bool bare = chance(0.5);  // as a compile leaves the closing row
        rows.push_back({stake + (bare ? 0.0001 : 0), bare ? 0 : x, bare ? 0 : y, bare ? 0 : az, 0, 0});
        setElements(rows);
        prepareRoute(shared.tables);
    }

    double stake()
    {
        const std::size_t row = below(gElemLc.size());
        const double joint = gElemLc[row];
        if (chance(0.05)) return joint;
        if (chance(0.05)) return std::nextafter(joint, chance(0.5) ? 1e9 : -1e9);
        if (chance(0.05) && row > 0) return gElemLc[row - 1] + (joint - gElemLc[row - 1]) / 2;
        const double any = draw(gElemLc.front() - 1, gElemLc.back() + 1);
        return chance(0.5) ? std::round(any * (chance(0.5) ? 1 : 1000)) / (chance(0.5) ? 1 : 1000) : any;
    }
    double skew() { return chance(0.3) ? 0 : chance(0.4) ? 90 : chance(0.6) ? 270 : draw(-400, 400); }
    double offset() { return chance(0.3) ? 0 : chance(0.5) ? std::round(draw(0, 30) * 2) / 2 : draw(-60, 60); }

    /// A target: beside the line mostly, to three decimals mostly.
    void setTarget()
    {
        const std::size_t row = below(gElemLc.size());
        double x = gElemX[row], y = gElemY[row], fwj = DmsToDeg(gElemFwj[row]);
        if (chance(0.8)) {
            double from = draw(gElemLc.front(), gElemLc.back());
            if (!plain::pointAt(chance(0.2) ? std::round(from) : from, x, y, fwj))
                plain::pointAt(gElemLc[0], x, y, fwj);
        }
        const double off = chance(0.15) ? 0 : draw(-50, 50), beyond = chance(0.05) ? draw(-200, 200) : 0;
        x += off * plain::cosDeg(fwj + 90) + beyond * plain::cosDeg(fwj);
        y += off * plain::sinDeg(fwj + 90) + beyond * plain::sinDeg(fwj);
        const bool round = chance(0.8);
        gInX = round ? Fixed3(x) : x;
        gInY = round ? Fixed3(y) : y;
        if (chance(0.02)) gInX = gElemX[row];
        if (chance(0.02)) gInY = gElemY[row];
    }

private:
    double newRadius(bool wild)
    {
        const double side = chance(0.5) ? 1 : -1;
        if (wild && chance(0.05)) return side * draw(3, 20);
        if (wild && chance(0.05)) return side * std::pow(10, draw(4, 8));
        return side * std::round(draw(50, 1500));
    }

    std::mt19937_64 m_random;
};
