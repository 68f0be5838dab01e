#include "base/Numbers.h"
#include "check/CheckSections.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// No traverse point serves a road from further away, m.
constexpr double kFar = 50000;
/// A point off the road by more than this, m, that lies ten times nearer with X and Y exchanged, has them exchanged.
constexpr double kOff = 1000, kNearer = 10;

using Point = CheckedRoad::Point;

double distance(const Point& p, const Point& a, const Point& b)
{
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

double distance(const Point& p, const std::vector<Point>& road)
{
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < road.size(); ++i) least = std::min(least, distance(p, road[i ? i - 1 : 0], road[i]));
    return least;
}

std::string kilometres(double metres) { return OneDecimal(metres / 1000) + "公里"; }

}  // namespace

void CheckTraversePoints(std::shared_ptr<const CheckedFile> file, const CheckedRoad& road, CheckSteps& steps,
                         Findings& findings)
{
    if (road.points.empty()) return;
    const std::size_t rows = file->size();
    steps.rows(rows, [file = std::move(file), &road, &findings](std::size_t i) {
        const auto row = (*file)[i];
        const auto x = row.read(1), y = row.read(2);
        if (!x || !y) return;
        const double off = distance({*x, *y}, road.points);
        if (!(off > kOff)) return;
        const double exchanged = distance({*y, *x}, road.points);
        const Amount amount{off / 1000, "公里"};
        if (exchanged * kNearer < off)
            findings.add({file->name, row.line, 0,
                          "离路线" + kilometres(off) + "，X和Y对调后只有" + kilometres(exchanged) + "，像是填反了",
                          amount});
        else if (off > kFar)
            findings.add({file->name, row.line, 0, "离路线" + kilometres(off) + "，不像这条路线的导线点", amount});
    });
}
