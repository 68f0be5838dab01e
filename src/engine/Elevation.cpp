#include "engine/Elevation.h"

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <algorithm>
#include <cmath>

namespace {

struct Side {
    double width = 0, shoulder = 0;  // m
};

struct Section {
    Side left, right;
    double halfMedian = 0, shoulderSlope = 0;
};

Section sectionAt(double stake)
{
    Section s;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::max<int>(gCgkdCount, 0)); ++i) {
        if (!(gCgkdG[i - 1] <= stake && stake < gCgkdG[i])) continue;
        const auto lerp = [&](const auto& t) {
            return (t[i] - t[i - 1]) / (gCgkdG[i] - gCgkdG[i - 1]) * (stake - gCgkdG[i - 1]) + t[i - 1];
        };
        // Median and shoulder slope come from the later row, not in between.
        s = {{lerp(gCgkdA), lerp(gCgkdD)}, {lerp(gCgkdB), lerp(gCgkdE)}, gCgkdC[i] / 2, gCgkdF[i]};
    }
    return s;
}

double grade(std::ptrdiff_t from, std::ptrdiff_t to)
{
    const double run = at(gSqxLc, to) - at(gSqxLc, from);
    return run == 0 ? 0 : (at(gSqxGc, to) - at(gSqxGc, from)) / run;
}

double gradeLine(double stake)
{
    double e = 0;
    const std::ptrdiff_t c = gSqxCount;
    std::ptrdiff_t i = 1;
    for (; i <= c - 1; ++i) {
        const double g1 = grade(i - 1, i), g2 = grade(i, i + 1);
        const double lc = at(gSqxLc, i), t = std::abs((g2 - g1) * at(gSqxR, i) / 2);
        if (stake <= lc - t) {
            e = (stake - at(gSqxLc, i - 1)) * g1 + at(gSqxGc, i - 1);
            break;
        }
        if (stake <= lc + t) {
            const double x = stake - (lc - t);
            e = x * (g2 - g1) * x / (t + t) / 2 + x * g1 + (at(gSqxGc, i) - g1 * t);
            break;
        }
    }
    // Kept on purpose: the tail is always looked at, with the radius of the row where the search stopped.
    const double g1 = grade(c - 2, c - 1), g2 = grade(c - 1, c);
    const double t = std::abs((g2 - g1) * at(gSqxR, i) / 2);
    if (at(gSqxLc, c - 1) + t <= stake) e = (stake - at(gSqxLc, c - 1)) * g2 + at(gSqxGc, c - 1);
    return e;
}

}  // namespace

double ElevationAt(double stake, double offset)
{
    const Section section = sectionAt(stake);
    const double e = gradeLine(stake);
    const double aoff = std::abs(offset), h = section.halfMedian;
    if (aoff <= h) return e;

    const double form = ParseNumber(gCgType);
    if (form != 0 && form != 1) return e;
    const bool left = offset < 0;
    const Side& side = left ? section.left : section.right;
    const double x1 = std::min(aoff, side.width);
    const auto& slopes = left ? gCgA : gCgB;

    double result = e;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::max<int>(gCgCount, 0)); ++i) {
        if (!(gCgLc[i - 1] <= stake && stake < gCgLc[i])) continue;
        const double d = gCgLc[i] - gCgLc[i - 1], x = stake - gCgLc[i - 1];
        const double p = form == 0
                             ? (slopes[i] - slopes[i - 1]) / d * x + slopes[i - 1]
                             : x * x * (slopes[i] - slopes[i - 1]) / (d * d * d) * (d * 3 - (x + x)) + slopes[i - 1];
        // Kept on purpose: the mark is never below 0, so only the right shoulder follows a steeper roadway.
        const bool follows = left ? gCgC[i - 1] <= -1 : gCgC[i - 1] >= 1;
        const double q = follows && p < section.shoulderSlope ? p : section.shoulderSlope;
        const double roadway = side.width - side.shoulder;
        if (x1 <= roadway)
            result = (x1 - h) * p + result;
        else
            result = (x1 - roadway) * q + (side.width - h - side.shoulder) * p + result;
    }
    return result;
}
