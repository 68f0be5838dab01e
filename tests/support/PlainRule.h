#pragma once
// The rules of coordinate rows once more, as plainly as they can be said: one statement a rule, no shared helpers, on
// the tables as they stand. A second opinion for tests, slow and without any care for damaged input.

#include "base/Trig.h"
#include "engine/Route.h"
#include "support/PlainNumbers.h"
#include "support/PlainRoute.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace plain {

inline constexpr double pi = 3.1415926;

inline double degrees(double packed)
{
    const double v = std::abs(packed) + 1e-13;
    const double d = std::floor(v), m = std::floor((v - d) * 100);
    const double s = std::floor((v - d - m / 100) * 1000000) / 100;
    return (packed < 0 ? -1 : 1) * (d + m / 60 + s / 3600);
}

inline double packed4(double deg)
{
    const double d = std::floor(deg), m = std::floor((deg - d) * 60), s = (deg - d - m / 60) * 3600;
    return std::floor((d + m / 100 + s / 10000 + 5e-5) * 10000) / 10000;
}

inline std::string azimuth(double dx, double dy)
{
    if (dy == 0) return dms(0);
    double a = dx == 0 ? (dy > 0 ? 90 : -90) : trig::atan(dy / dx) * 180 / pi + (dx > 0 ? 0 : 180);
    if (a < 0) a += 360;
    const double d = std::floor(a), m = std::floor((a - d) * 60), s = (a - d - m / 60) * 3600;
    return dms(std::floor((d + m / 100 + s / 10000 + 5e-7) * 1000000) / 1000000);
}

/// A point of the route; it stays where it was for a stake that no element holds.
struct Point {
    double x = 0, y = 0, tangent = 0;  // tangent in decimal degrees

    void move(double k, double skew, double offset)
    {
        double X = 0, Y = 0;
        if (!pointAt(k, X, Y, tangent)) return;
        x = std::atof(fixed3(X + offset * trig::cos((tangent + skew) * pi / 180)).c_str());
        y = std::atof(fixed3(Y + offset * trig::sin((tangent + skew) * pi / 180)).c_str());
    }

    /// Columns 1 to 8 of a coordinate row.
    std::vector<std::string> row(double typed, const std::string& side, const std::string& angle) const
    {
        const double dx = x - gStationX, dy = y - gStationY;
        return {stake(typed),
                side,
                angle,
                azimuth(dx, dy),
                fixed3(std::sqrt(dx * dx + dy * dy)),
                fixed3(x),
                fixed3(y),
                dms(packed4(tangent))};
    }
};

/// The continuous stake of a typed one on the single-point screen; nothing in a gap.
inline std::optional<double> resolve(double t)
{
    double s = std::abs(t);
    if (!gHasDl) return s;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(gDlCount); ++i) {
        if (s > gDlBack[i] && s < gDlAhead[i]) return std::nullopt;
        if (gDlCum[i] > 0 ? s >= gDlAhead[i] : gDlCum[i] < 0 && s > gDlBack[i]) s -= gDlCum[i];
    }
    for (std::size_t i = 0; t < 0 && i <= static_cast<std::size_t>(gDlCount); ++i)
        if (-t >= gDlAhead[i]) s -= gDlCum[i];
    return s;
}

/// The stakes of a run from 0 up, nominal and continuous.
inline std::vector<std::pair<double, double>> walk(double start, double end, double step)
{
    std::vector<std::pair<double, double>> stakes;
    double cur = start;
    while (!(end + 0.0001 <= cur)) {
        double c = cur;
        for (std::size_t i = 0; gHasDl && i <= static_cast<std::size_t>(gDlCount); ++i) {
            while (!(cur <= gDlBack[i] || cur >= gDlAhead[i])) c = cur = cur + step;
            if (gDlCum[i] > 0 ? cur >= gDlAhead[i] : gDlCum[i] < 0 && cur > gDlBack[i]) c -= gDlCum[i];
        }
        stakes.emplace_back(cur, c);
        cur = cur + step;
    }
    return stakes;
}

}  // namespace plain
