#include "engine/Elevation.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>
#include <limits>

RoadSection sectionAt(const Tables& t, double stake)
{
    RoadSection s;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::max<int>(t.cgkdCount, 0)); ++i) {
        if (!(t.cgkdG[i - 1] <= stake && stake < t.cgkdG[i])) continue;
        const auto lerp = [&](const Tables::Column& of) {
            return (of[i] - of[i - 1]) / (t.cgkdG[i] - t.cgkdG[i - 1]) * (stake - t.cgkdG[i - 1]) + of[i - 1];
        };
        // Median and shoulder slope come from the later row, not in between.
        s = {{lerp(t.cgkdA), lerp(t.cgkdD)}, {lerp(t.cgkdB), lerp(t.cgkdE)}, t.cgkdC[i] / 2, t.cgkdF[i]};
    }
    return s;
}

namespace {

double grade(const Tables& t, std::ptrdiff_t from, std::ptrdiff_t to)
{
    const double run = at(t.sqxLc, to) - at(t.sqxLc, from);
    return run == 0 ? 0 : (at(t.sqxGc, to) - at(t.sqxGc, from)) / run;
}

/// @param i  the row where the search begins
double gradeLine(const Tables& t, double stake, std::ptrdiff_t i)
{
    double e = 0;
    const std::ptrdiff_t c = t.sqxCount;
    for (; i <= c - 1; ++i) {
        const double g1 = grade(t, i - 1, i), g2 = grade(t, i, i + 1);
        const double lc = at(t.sqxLc, i), tangent = std::abs((g2 - g1) * at(t.sqxR, i) / 2);
        if (stake <= lc - tangent) {
            e = (stake - at(t.sqxLc, i - 1)) * g1 + at(t.sqxGc, i - 1);
            break;
        }
        if (stake <= lc + tangent) {
            const double x = stake - (lc - tangent);
            e = x * (g2 - g1) * x / (tangent + tangent) / 2 + x * g1 + (at(t.sqxGc, i) - g1 * tangent);
            break;
        }
    }
    // Kept on purpose: the tail is always looked at, with the radius of the row where the search stopped.
    const double g1 = grade(t, c - 2, c - 1), g2 = grade(t, c - 1, c);
    const double tangent = std::abs((g2 - g1) * at(t.sqxR, i) / 2);
    if (at(t.sqxLc, c - 1) + tangent <= stake) e = (stake - at(t.sqxLc, c - 1)) * g2 + at(t.sqxGc, c - 1);
    return e;
}

}  // namespace

GradeIndex::GradeIndex(const Tables& t)
{
    double farthest = -std::numeric_limits<double>::infinity();
    attempt([&] {
        for (std::ptrdiff_t i = 1; i <= t.sqxCount - 1; ++i) {
            const double g1 = grade(t, i - 1, i), g2 = grade(t, i, i + 1);
            const double lc = at(t.sqxLc, i), tangent = std::abs((g2 - g1) * at(t.sqxR, i) / 2);
            for (const double end : {lc - tangent, lc + tangent})
                if (end > farthest) farthest = end;
            m_ends.push_back(farthest);
        }
    });
}

std::ptrdiff_t GradeIndex::firstRow(double stake) const
{
    return std::lower_bound(m_ends.begin(), m_ends.end(), stake) - m_ends.begin() + 1;
}

double elevationAt(const Tables& t, double stake, double offset, const GradeIndex* index)
{
    const RoadSection section = sectionAt(t, stake);
    const double e = gradeLine(t, stake, index ? index->firstRow(stake) : 1);
    const double aoff = std::abs(offset), h = section.halfMedian;
    if (aoff <= h) return e;

    const double form = ParseNumber(t.cgType);
    if (form != 0 && form != 1) return e;
    const bool left = offset < 0;
    const RoadSection::Side& side = left ? section.left : section.right;
    const double x1 = std::min(aoff, side.width);
    const auto& slopes = left ? t.cgA : t.cgB;

    double result = e;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::max<int>(t.cgCount, 0)); ++i) {
        if (!(t.cgLc[i - 1] <= stake && stake < t.cgLc[i])) continue;
        const double d = t.cgLc[i] - t.cgLc[i - 1], x = stake - t.cgLc[i - 1];
        const double p = form == 0
                             ? (slopes[i] - slopes[i - 1]) / d * x + slopes[i - 1]
                             : x * x * (slopes[i] - slopes[i - 1]) / (d * d * d) * (d * 3 - (x + x)) + slopes[i - 1];
        // Kept on purpose: the mark is never below 0, so only the right shoulder follows a steeper roadway.
        const bool follows = left ? t.cgC[i - 1] <= -1 : t.cgC[i - 1] >= 1;
        const double q = follows && p < section.shoulderSlope ? p : section.shoulderSlope;
        const double roadway = side.width - side.shoulder;
        if (x1 <= roadway)
            result = (x1 - h) * p + result;
        else
            result = (x1 - roadway) * q + (side.width - h - side.shoulder) * p + result;
    }
    return result;
}

double ElevationAt(double stake, double offset) { return elevationAt(shared.tables, stake, offset); }
