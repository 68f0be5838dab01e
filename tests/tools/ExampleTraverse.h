#pragma once
// A traverse of seven points with the errors of a good day, typed into the sheet.

#include "tools/Traverse.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace example_traverse {

struct Point {
    const char* name;
    double x, y;
};
inline constexpr std::array<Point, 7> kPoints{{
    {"GP01", 2856355.635, 512438.128},
    {"GP02", 2856710.993, 513531.019},
    {"D1", 2856842.517, 513874.236},
    {"D2", 2856790.348, 514203.871},
    {"D3", 2857012.905, 514497.655},
    {"GP03", 2857301.264, 514620.492},
    {"GP04", 2858120.770, 515003.118},
}};

inline double azimuth(const Point& from, const Point& to)
{
    return std::atan2(to.y - from.y, to.x - from.x) * 180 / std::numbers::pi;
}

/// Decimal degrees as an angle read to whole seconds.
inline std::string observed(double degrees) { return packed(std::llround(degrees * 3600) * 100); }

}  // namespace example_traverse

inline Worksheet exampleTraverse()
{
    using namespace example_traverse;
    Worksheet sheet;
    constexpr int n = static_cast<int>(kPoints.size());
    gFhdxN = n;
    LayOutFhdx(sheet, true);
    for (int k = 0; k < n; ++k) {
        const auto& point = kPoints[static_cast<std::size_t>(k)];
        const int row = 2 * k + 4;
        sheet.setValue({row, 1}, point.name);
        const bool known = k < 2 || k >= n - 2;
        if (known) {
            sheet.setNumber({row, 12}, point.x);
            sheet.setNumber({row, 13}, point.y);
        }
        if (k == 0 || k == n - 1) continue;
        const auto& before = kPoints[static_cast<std::size_t>(k - 1)];
        const auto& after = kPoints[static_cast<std::size_t>(k + 1)];
        // Left angles and legs with the errors of a good day.
        sheet.setValue({row, 2},
                       observed(azimuth(point, after) - azimuth(point, before) + (k % 2 ? 2.4 : -1.1) / 3600));
        if (k < n - 2)
            sheet.setValue({row + 1, 5},
                           typed(std::hypot(after.x - point.x, after.y - point.y) + (k % 2 ? 0.004 : -0.002), 3));
    }
    return sheet;
}
