#pragma once
// Out through StakeToXY and back through XYToStake: what comes back within 2 mm, and why the rest does not.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <string>

class RoundTrip {
public:
    int points = 0, good = 0;
    std::map<std::string, int> exceptions;  ///< by reason
    std::vector<std::string> unexplained;

    /// One point of the road as it stands in the tables.
    void go(double stake, double offset)
    {
        ++points;
        StakeToXY(stake, offset < 0 ? 270 : 90, std::abs(offset));
        gInX = gOutX;
        gInY = gOutY;
        const std::string reason = verdict(stake, offset);
        if (reason.empty())
            ++good;
        else if (reason[0] == '?')
            unexplained.push_back(reason);
        else
            ++exceptions[reason];
    }

    /// Random stakes on the whole road, offsets up to its smallest radius or `widest`.
    void goRandomly(std::mt19937_64& random, int count, double widest)
    {
        for (std::size_t i = 0; i < static_cast<std::size_t>(gElemCount); ++i)
            for (const double r : {gElemR1[i], gElemR2[i]})
                if (r != 0) widest = std::min(widest, std::abs(r));
        std::uniform_real_distribution<double> stake(gElemLc[0], gElemLc[static_cast<std::size_t>(gElemCount)]);
        std::uniform_real_distribution<double> offset(-widest, widest);
        for (int i = 0; i < count; ++i) {
            const double s = stake(random);
            go(s, offset(random));
        }
    }

    void print(const char* title) const
    {
        std::printf("%s: %d points, %d back within 2 mm\n", title, points, good);
        for (const auto& [reason, count] : exceptions) std::printf("    %7d  %s\n", count, reason.c_str());
        for (std::size_t i = 0; i < std::min<std::size_t>(unexplained.size(), 20); ++i)
            std::printf("    %s\n", unexplained[i].c_str());
    }

private:
    static constexpr double kTolerance = 0.002;        // m
    static constexpr double kPointRounding = 0.00071;  // half a millimetre in X and in Y
    static constexpr double kTextRounding = 0.0005;

    static int elementOf(double stake)
    {
        int found = 0;
        for (int i = 1; i <= gElemCount; ++i)
            if (gElemLc[static_cast<std::size_t>(i - 1)] <= stake && stake < gElemLc[static_cast<std::size_t>(i)])
                found = i;
        return found;
    }
    /// Curvature of the road at a stake, 1/m.
    static double curvatureAt(double stake)
    {
        const auto i = static_cast<std::size_t>(elementOf(stake));
        if (i == 0) return 0;
        const auto inverse = [](double r) { return r == 0 ? 0 : 1 / r; };
        const double t = (stake - gElemLc[i - 1]) / (gElemLc[i] - gElemLc[i - 1]);
        return inverse(gElemR1[i - 1]) * (1 - t) + inverse(gElemR2[i - 1]) * t;
    }
    static bool isPackedOtherwise(double dms) { return std::abs(DmsToDeg(dms) - dms) > 1e-9; }

    /// "" where stake and offset came back, else why not, "?" in front where nothing explains it.
    static std::string verdict(double stake, double offset)
    {
        const int home = elementOf(stake);
        const double x = gInX, y = gInY;
        plain::Walk walk;
        const bool settled = attempt([] { XYToStakeFromStart(); });
        // The plain way tells what it did. It would take its time over a walk that does not settle.
        if (settled) walk = plain::XYToStake(gElemLc[0], gElemFwj[0], gElemX[0], gElemY[0]);
        if (settled && std::abs(walk.stake - stake) <= kTolerance && std::abs(walk.offset - offset) <= kTolerance)
            return "";

        if (settled && walk.sameY) return "the walk met the target's very Y: bare distance, to the right";
        if (settled && walk.rounds == 0) {
            const double az = gElemFwj[static_cast<std::size_t>(std::max(walk.element - 1, 0))];
            if (isPackedOtherwise(az)) return "ended in the first round, with the packed azimuth";
        }
        if (settled) {
            StakeToXY(walk.stake, 90, walk.offset);
            gInX = x, gInY = y;
            const double off = std::hypot(gOutX - x, gOutY - y);
            if (off <= kTolerance + 2 * kPointRounding && std::abs(walk.stake - stake) > 1)
                return "another stretch of the road has the point beside it too";
            // The tolerance is on the last step; where the point is near the centre of the curve, steps shrink by
            // rho = offset / radius only, and what is left is the sum of all that would follow.
            const double rho = std::clamp(offset * curvatureAt(stake), -1.0, 0.999999);
            const double left = (kTolerance * std::abs(rho) + kPointRounding) / (1 - rho) + kTextRounding;
            if (std::abs(walk.stake - stake) <= std::max(left, kTolerance) &&
                std::abs(walk.offset - offset) <= kTolerance + kPointRounding + kTextRounding)
                return "near the centre of the curve: the tolerance of the last step weighs more";
        }
        if (!settled) {
            // Where the walk stood at the end: one more step.
            const double k = gInLc;
            StakeToXY(k, 0, 0);
            gInX = x, gInY = y;
            const double step = (x - gOutX) * std::cos(radians(gOutFwj)) + (y - gOutY) * std::sin(radians(gOutFwj));
            if (k + step >= gElemLc[static_cast<std::size_t>(gElemCount)] - kTolerance)
                return "a step past the end of the road is not taken, and the walk stands still";
        }
        if (home == gElemCount && walk.element != home)
            return "on the last element, which the closing row's zeros keep from being a candidate";
        char text[200];
        std::snprintf(text, sizeof text,
                      "? %s stake %.4f -> %.4f, offset %.4f -> %.4f, element %d -> %d of %d, %d rounds, k %g",
                      settled ? "" : "unsettled", stake, walk.stake, offset, walk.offset, home, walk.element,
                      gElemCount, walk.rounds, curvatureAt(stake));
        return text;
    }
};
