#include "plot/Plan.h"

#include "base/RunTimeError.h"
#include "engine/Elevation.h"
#include "plot/PlanDrawing.h"

#include <algorithm>
#include <cmath>

namespace plot {

Colour crossfallColour(double slope)
{
    const double share = std::clamp(std::abs(slope) / 0.08, 0.0, 1.0) * 0.75 + 0.12;
    const Colour full = slope > 0 ? Colour{240, 130, 30} : Colour{60, 120, 200};
    const auto mix = [&](std::uint8_t c) {
        return static_cast<std::uint8_t>(std::lround(255 + (static_cast<double>(c) - 255) * share));
    };
    return {mix(full.r), mix(full.g), mix(full.b)};
}

Text beside(const Pose& pose, int side, double gap, double height, std::string text, double turn)
{
    const double away = directionOfAzimuth(pose.azDeg) + (side > 0 ? -90 : 90);
    const double stands = upright(away, turn);
    return {pose.at + gap * directionOf(away), height, std::move(text), stands,
            stands == away ? Align::Left : Align::Right};
}

std::pair<double, double> PlanDrawing::range(const Element& e) const
{
    if (!m_bounded || e.to < e.from) return {e.from, e.to};
    return {std::max(e.from, m_view.from), std::min(e.to, m_view.to)};
}

bool PlanDrawing::drawn(const Element& e) const
{
    const auto [from, to] = range(e);
    return (e.to < e.from || to > from) && e.box.meets(m_window);
}

bool PlanDrawing::near(Point p, double distance) const
{
    const auto& all = m_road.elements();
    return std::any_of(all.begin(), all.end(), [&](const Element& e) { return e.box.distance(p) <= distance; });
}

void PlanDrawing::grid()
{
    const double step = niceStep(mm(m_view.crosses || m_all ? 70 : 40));
    const Point o = m_road.origin();
    const double x0 = std::ceil((m_window.low.x + o.x) / step) * step - o.x;
    const double y0 = std::ceil((m_window.low.y + o.y) / step) * step - o.y;
    if (m_window.width() / step > 200 || m_window.height() / step > 200) return;
    const int decimals = step < 1 ? 1 : 0;
    if (m_view.crosses || m_all) {
        const double arm = mm(2);
        for (double x = x0; x <= m_window.high.x; x += step)
            for (double y = y0; y <= m_window.high.y; y += step) {
                if (m_all && !near({x, y}, mm(60))) continue;
                m_out.line(Layer::Grid, {x - arm, y}, {x + arm, y});
                m_out.line(Layer::Grid, {x, y - arm}, {x, y + arm});
                m_crosses.push_back({x, y});
            }
        for (const Point p : m_crosses) {
            // Along each arm, so that a turned plan can be read, too.
            gridText({p.x + mm(0.8), p.y + mm(1.4)}, "X=" + fixed(p.y + o.y, decimals), 0);
            gridText({p.x - mm(1.4), p.y + mm(0.8)}, "Y=" + fixed(p.x + o.x, decimals), 90);
        }
        return;
    }
    for (double x = x0; x <= m_window.high.x; x += step)
        m_out.line(Layer::Grid, {x, m_window.low.y}, {x, m_window.high.y});
    for (double y = y0; y <= m_window.high.y; y += step)
        m_out.line(Layer::Grid, {m_window.low.x, y}, {m_window.high.x, y});
    for (double x = x0; x <= m_window.high.x; x += step)
        gridText({x, m_window.low.y + mm(2)}, "Y " + fixed(x + o.x, decimals), 0, Align::Centre);
    for (double y = y0; y <= m_window.high.y; y += step)
        gridText({m_window.low.x + mm(1), y}, "X " + fixed(y + o.y, decimals), 0);
}

Plan::Shape& PlanDrawing::shapeOf(std::size_t i)
{
    auto& shape = m_plan.m_shapes[i];
    const Element& e = m_road.elements()[i];
    const auto [from, to] = range(e);
    const double t = m_view.tolerance;
    if (shape.line.empty() || shape.tolerance > t || shape.tolerance < t / 16 || shape.from != from || shape.to != to) {
        shape = {t / 2, from, to, m_road.flattened(e, from, to, t / 2), 0, {}};
    }
    return shape;
}

void PlanDrawing::centreLine()
{
    const auto& all = m_road.elements();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!drawn(all[i])) continue;
        const Layer layer = m_view.picked == i ? Layer::Picked : orAmber(layerOf(all[i].bend), m_view.stale.horizontal);
        lineOf(layer, all[i], i);
        block(shapeOf(i).line);
    }
}

void PlanDrawing::block(const std::vector<StakePose>& line)
{
    const auto half = [&](double stake, int side) { return std::max(mm(0.7), reach(stake, side) - mm(0.4)); };
    const Box near = m_window.grown(mm(20));
    StakePose from = line.front();
    for (std::size_t i = 1; i < line.size(); ++i) {
        // Pieces of 3 mm are close enough to a curve; long ones are divided, so that each lies in few cells.
        if (i + 1 < line.size() && length(line[i].pose.at - from.pose.at) < mm(3)) continue;
        Point a = from.pose.at, b = line[i].pose.at;
        const Point ra = rightOf(from.pose.azDeg), rb = rightOf(line[i].pose.azDeg);
        const double right = half(from.stake, 1), left = half(from.stake, -1);
        const bool whole = length(b - a) <= mm(20);
        if (cut(a, b, near)) {
            const int n = whole ? 1 : static_cast<int>(std::ceil(length(b - a) / mm(20)));
            for (int k = 0; k < n; ++k) {
                const Point p = a + (1.0 * k / n) * (b - a), q = a + (1.0 * (k + 1) / n) * (b - a);
                m_labels.block({p + right * ra, q + right * rb, q - left * rb, p - left * ra});
            }
        }
        from = line[i];
    }
}

double PlanDrawing::reach(double stake, int side) const
{
    if (!m_edgesDrawn) return 0;
    const RoadSection section = sectionAt(m_road.tables(), stake);
    return (side < 0 ? section.left.width : section.right.width) + mm(0.4);
}

void PlanDrawing::lineOf(Layer layer, const Element& e, std::size_t i)
{
    const auto [from, to] = range(e);
    if (e.bend == Bend::Arc) {
        m_out.entities.push_back({layer, m_road.arcOf(e, from, to)});
        return;
    }
    std::vector<Point> points;
    for (const auto& [stake, pose] : shapeOf(i).line) points.push_back(pose.at);
    m_out.polyline(layer, std::move(points));
}

void PlanDrawing::otherRoad(const Road& other)
{
    const Point shift = other.origin() - m_road.origin();
    for (const auto& e : other.elements()) {
        if (!Box{e.box.low + shift, e.box.high + shift}.meets(m_window)) continue;
        if (e.bend == Bend::Arc) {
            Arc arc = other.arcOf(e, e.from, e.to);
            arc.centre = arc.centre + shift;
            m_out.entities.push_back({Layer::OtherRoad, arc});
            continue;
        }
        std::vector<Point> points;
        for (const auto& [stake, pose] : other.flattened(e, e.from, e.to, m_view.tolerance))
            points.push_back(pose.at + shift);
        m_out.polyline(Layer::OtherRoad, std::move(points));
    }
    for (const auto& p : other.mainPoints()) {
        const Pose pose{p.pose.at + shift, p.pose.azDeg};
        if (!seen(pose.at) || p.room < mm(12)) continue;
        m_out.circle(Layer::OtherRoad, pose.at, mm(0.6));
        m_otherTexts.push_back(beside(pose, 1, mm(2), mm(1.8), p.label, m_view.turn));
    }
}

void PlanDrawing::edges()
{
    const Tables& t = m_road.tables();
    if (t.cgkdG.size() < 2) return;
    double widest = 0;
    for (const auto* column : {&t.cgkdA, &t.cgkdB})
        for (const double w : *column) widest = std::max(widest, w);
    if (widest < mm(0.25)) return;
    m_edgesDrawn = true;
    const bool band = widest > mm(0.6);
    for (std::size_t i = 0; i < m_road.elements().size(); ++i) {
        const Element& e = m_road.elements()[i];
        if (e.to < e.from || !drawn(e)) continue;
        auto& shape = shapeOf(i);
        if (shape.edges.empty()) shape.edges = edgePoints(e, shape.line);
        if (band) crossfall(shape.edges);
        for (const int side : {-1, 1}) {
            std::vector<Point> line;
            const auto flush = [&] {
                if (line.size() > 1) m_out.polyline(orAmber(Layer::Edges, m_view.stale.widths), line);
                line.clear();
            };
            for (const auto& p : shape.edges) {
                const double width = side < 0 ? p.left : p.right;
                if (width > 0)
                    line.push_back(p.pose.at + side * width * rightOf(p.pose.azDeg));
                else
                    flush();
            }
            flush();
        }
    }
}

std::vector<Plan::EdgePoint> PlanDrawing::edgePoints(const Element& e, const std::vector<StakePose>& line) const
{
    const Tables& t = m_road.tables();
    std::vector<double> stakes;
    for (const auto& [stake, pose] : line) stakes.push_back(stake);
    if (e.bend != Bend::Straight && line.size() < 8)
        for (int k = 1; k < 8; ++k)
            stakes.push_back(line.front().stake + (line.back().stake - line.front().stake) * k / 8);
    for (const auto* rows : {&t.cgkdG, &t.cgLc})
        for (const double row : *rows)
            for (const double s : {row - 1e-6, row})
                if (s > line.front().stake && s < line.back().stake) stakes.push_back(s);
    for (std::size_t row = 1; row < t.cgLc.size(); ++row)
        for (int k = 1; k < 8; ++k) {
            const double s = t.cgLc[row - 1] + (t.cgLc[row] - t.cgLc[row - 1]) * k / 8;
            if (s > line.front().stake && s < line.back().stake) stakes.push_back(s);
        }
    std::sort(stakes.begin(), stakes.end());
    std::vector<Plan::EdgePoint> points;
    for (const double s : stakes) {
        const RoadSection section = sectionAt(t, s);
        Plan::EdgePoint p{m_road.poseOn(e, s), section.left.width, section.right.width};
        p.leftSlope = crossfallAt(t, s, -1).value_or(0);
        p.rightSlope = crossfallAt(t, s, 1).value_or(0);
        points.push_back(p);
    }
    return points;
}

void PlanDrawing::crossfall(const std::vector<Plan::EdgePoint>& points)
{
    std::size_t from = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto &a = points[from], &b = points[i];
        if (i + 1 < points.size() && length(b.pose.at - a.pose.at) < mm(0.8)) continue;
        from = i;
        const Point ra = rightOf(a.pose.azDeg), rb = rightOf(b.pose.azDeg);
        const auto quad = [&](double wa, double wb, double slope) {
            if (slope == 0 || (wa == 0 && wb == 0)) return;
            m_out.entities.push_back(
                {orAmber(Layer::Crossfall, false),
                 Fill{{a.pose.at, b.pose.at, b.pose.at + wb * rb, a.pose.at + wa * ra}, crossfallColour(slope)}});
        };
        quad(-a.left, -b.left, (a.leftSlope + b.leftSlope) / 2);
        quad(a.right, b.right, (a.rightSlope + b.rightSlope) / 2);
    }
}

template <class Visit>
void PlanDrawing::atMultiples(double step, Visit visit)
{
    for (const auto& e : m_road.elements()) {
        if (e.to < e.from || !drawn(e)) continue;
        const auto [from, to] = range(e);
        const bool last = &e == &m_road.elements().back();
        for (const auto& piece : m_road.pieces()) {
            const double a = std::max(from, piece.from), b = std::min(to, piece.to);
            if (!(a <= b)) continue;
            for (double n = std::ceil((a + piece.shift) / step - 1e-9); n * step - piece.shift <= b + 1e-9; ++n) {
                const double stake = std::clamp(n * step - piece.shift, a, b);
                if (stake >= to - 1e-9 && !last) break;
                visit(e, stake, n);
            }
        }
    }
}

void PlanDrawing::ticks()
{
    const double step = labelStep();
    // Of a road whose elements are points on this scale the intervals between the stakes alone can be told apart.
    atMultiples(averageElement() < mm(1) ? step : step / 10, [&](const Element& e, double stake, double n) {
        const Pose pose = m_road.poseOn(e, stake);
        if (!seen(pose.at)) return;
        const bool all = averageElement() < mm(1);
        const bool major = all || std::fmod(std::abs(n), 10) == 0, middle = std::fmod(std::abs(n), 5) == 0;
        const double half = mm(major ? 1.5 : middle ? 1.0 : 0.6);
        const Point right = rightOf(pose.azDeg);
        m_out.line(Layer::Ticks, pose.at - half * right, major ? pose.at : pose.at + half * right);
        if (major) m_stakes.push_back({stake, pose});
    });
}

double PlanDrawing::averageElement() const
{
    return m_road.elements().empty() ? 0
                                     : (m_road.end() - m_road.start()) / static_cast<double>(m_road.elements().size());
}

bool PlanDrawing::legsCanBeSeen() const
{
    const auto& all = m_road.polygon();
    return all.size() > 1 && (m_road.end() - m_road.start()) / static_cast<double>(all.size() - 1) >= mm(3);
}

void PlanDrawing::polygon()
{
    const auto& all = m_road.polygon();
    if (all.size() < 3 || (m_bounded && m_all) || !legsCanBeSeen()) return;
    for (std::size_t i = 1; i < all.size(); ++i) {
        Box box;
        box.add(all[i - 1].at);
        box.add(all[i].at);
        if (box.meets(m_window)) m_out.line(orAmber(Layer::Polygon, m_view.stale.horizontal), all[i - 1].at, all[i].at);
    }
}

Picture Plan::picture(const PlanView& view) { return PlanDrawing(*this, view).draw(); }

}  // namespace plot
