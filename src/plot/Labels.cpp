#include "plot/Labels.h"

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

/// True where a line along an edge of `a` has all of `b` on its outer side (corners run anticlockwise).
bool edgeParts(const std::vector<Point>& a, const std::vector<Point>& b)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        const Point from = a[i], edge = a[(i + 1) % a.size()] - from;
        if (std::all_of(b.begin(), b.end(), [&](Point p) {
                const Point d = p - from;
                return edge.x * d.y - edge.y * d.x <= 0;
            }))
            return true;
    }
    return false;
}

Box boxOf(const std::vector<Point>& corners)
{
    Box box;
    for (const Point p : corners) box.add(p);
    return box;
}

/// The rectangle of a text with the gap around it.
std::vector<Point> spaced(const Text& text, double gap)
{
    auto corners = cornersOf(text);
    const Point along = corners[1] - corners[0], up = corners[3] - corners[0];
    const double w = length(along), h = length(up);
    if (w == 0 || h == 0) return corners;
    const Point a = gap / w * along, u = gap / h * up;
    return {corners[0] - a - u, corners[1] + a - u, corners[2] + a + u, corners[3] - a + u};
}

}  // namespace

bool Labels::isFree(const Taken& place) const
{
    for (std::size_t i = 0; i < m_room.size(); ++i) {
        const Point from = m_room[i], edge = m_room[(i + 1) % m_room.size()] - from;
        for (const Point p : place.corners)
            if (edge.x * (p.y - from.y) - edge.y * (p.x - from.x) < 0) return false;
    }
    return cells(place.box, [&](std::int64_t cell) {
        const auto found = m_at.find(cell);
        if (found == m_at.end()) return true;
        return std::none_of(found->second.begin(), found->second.end(), [&](std::size_t i) {
            const Taken& other = m_taken[i];
            return place.box.meets(other.box) && !edgeParts(place.corners, other.corners) &&
                   !edgeParts(other.corners, place.corners);
        });
    });
}

template <class Visit>
bool Labels::cells(const Box& box, Visit visit) const
{
    if (m_cell == 0) return true;
    const auto number = [&](double v) { return static_cast<std::int64_t>(std::floor(v / m_cell)); };
    for (auto x = number(box.low.x); x <= number(box.high.x); ++x)
        for (auto y = number(box.low.y); y <= number(box.high.y); ++y)
            if (!visit(x * 0x40000000 + y)) return false;
    return true;
}

void Labels::add(Taken place)
{
    if (m_cell == 0) m_cell = std::max({place.box.width(), place.box.height(), 1e-6});
    cells(place.box, [&](std::int64_t cell) {
        m_at[cell].push_back(m_taken.size());
        return true;
    });
    m_taken.push_back(std::move(place));
}

bool Labels::take(const Text& text, double gap) { return takeArea(spaced(text, gap / 2)); }

bool Labels::takeArea(std::vector<Point> corners)
{
    Taken place{boxOf(corners), std::move(corners)};
    if (!isFree(place)) return false;
    add(std::move(place));
    return true;
}

bool Labels::isFree(std::vector<Point> corners) const
{
    const Box box = boxOf(corners);
    return isFree(Taken{box, std::move(corners)});
}

void Labels::block(std::vector<Point> corners)
{
    const Box box = boxOf(corners);
    add({box, std::move(corners)});
}

bool Labels::put(Picture& into, Layer layer, std::span<const Text> choices, double gap)
{
    for (const Text& text : choices)
        if (take(text, gap)) {
            into.text(layer, text);
            return true;
        }
    return false;
}

}  // namespace plot
