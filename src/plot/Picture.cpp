#include "plot/Picture.h"

#include "plot/Angles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plot {

double length(Point p) { return std::sqrt(p.x * p.x + p.y * p.y); }

void Box::add(Point p)
{
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
}

void Box::add(const Box& box)
{
    if (box.empty()) return;
    add(box.low);
    add(box.high);
}

bool Box::meets(const Box& other) const
{
    return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
}

double Box::distance(Point p) const
{
    return length({std::max({low.x - p.x, p.x - high.x, 0.0}), std::max({low.y - p.y, p.y - high.y, 0.0})});
}

// --- Layers ----------------------------------------------------------------------------------------------------------

namespace {

// Straights, spirals and arcs: blue, vermilion, bluish green of Okabe and Ito, Color Universal Design (2008).
constexpr std::array kLooks{
    LayerLook{Layer::Straight, "直线", {0, 114, 178}, 0.5},
    LayerLook{Layer::Spiral, "缓和曲线", {213, 94, 0}, 0.5},
    LayerLook{Layer::Arc, "圆曲线", {0, 158, 115}, 0.5},
    LayerLook{Layer::Ticks, "桩号刻度", {64, 64, 64}},
    LayerLook{Layer::Stakes, "桩号", {64, 64, 64}},
    LayerLook{Layer::Breaks, "断链", {178, 24, 43}, 0.35},
    LayerLook{Layer::MainPoints, "主点", {20, 20, 20}, 0.25},
    LayerLook{Layer::Polygon, "交点导线", {128, 128, 128}, 0.13, true},
    LayerLook{Layer::CurveData, "曲线要素", {96, 96, 96}},
    LayerLook{Layer::Traverse, "导线点", {118, 42, 131}, 0.25},
    LayerLook{Layer::Structures, "计算点", {160, 30, 90}, 0.25},
    LayerLook{Layer::Edges, "路基边线", {90, 90, 90}, 0.18},
    LayerLook{Layer::Crossfall, "超高", {150, 150, 150}, 0.1},
    LayerLook{Layer::Grid, "坐标网", {185, 192, 200}, 0.13},
    LayerLook{Layer::OtherRoad, "叠加线路", {150, 150, 150}, 0.4},
    LayerLook{Layer::Ground, "高程网", {215, 219, 223}, 0.1},
    LayerLook{Layer::GradeLine, "设计线", {0, 114, 178}, 0.5},
    LayerLook{Layer::VerticalCurve, "竖曲线", {213, 94, 0}, 0.5},
    LayerLook{Layer::Bands, "资料栏", {70, 70, 70}, 0.18},
    LayerLook{Layer::BandTexts, "资料栏文字", {40, 40, 40}},
    LayerLook{Layer::Surface, "路面", {20, 20, 20}, 0.5},
    LayerLook{Layer::Subgrade, "路面底", {0, 114, 178}, 0.25},
    LayerLook{Layer::Slopes, "边坡示意", {150, 110, 40}, 0.25, true},
    LayerLook{Layer::Levels, "标注", {64, 64, 64}},
    LayerLook{Layer::Frame, "图框", {0, 0, 0}, 0.35},
    LayerLook{Layer::Match, "接图线", {178, 24, 43}, 0.25, true},
    LayerLook{Layer::Legend, "图例", {40, 40, 40}, 0.18},
    LayerLook{Layer::Amber, "存疑数据", {190, 120, 0}, 0.5},
    LayerLook{Layer::Picked, "选中", {230, 40, 140}, 0.9},
};

}  // namespace

const LayerLook& lookOf(Layer layer) { return kLooks.at(static_cast<std::size_t>(layer)); }

std::vector<LayerLook> allLayers() { return {kLooks.begin(), kLooks.end()}; }

// --- Texts -----------------------------------------------------------------------------------------------------------

double textWidth(std::string_view utf8)
{
    double em = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0xE0)
            em += 1;
        else if (byte >= 0xC2)
            em += 0.6;  // Greek letters, the degree sign
        else if (byte < 0x80)
            em += c == ' ' || c == '.' || c == ',' || c == ':' || c == '\'' ? 0.28 : c >= 'A' && c <= 'Z' ? 0.68 : 0.57;
    }
    return em * kEm;
}

std::vector<Point> cornersOf(const Text& text)
{
    const double width = textWidth(text.text) * text.height, half = text.height * 0.62;
    const double left = text.align == Align::Left ? 0 : text.align == Align::Centre ? -width / 2 : -width;
    const Point along = directionOf(text.rotation), up{-along.y, along.x};
    const auto corner = [&](double a, double b) { return text.at + a * along + b * up; };
    return {corner(left, -half), corner(left + width, -half), corner(left + width, half), corner(left, half)};
}

// --- Transformations -------------------------------------------------------------------------------------------------

Point Transform::operator()(Point p) const
{
    const Point q{scale * (cosine * p.x - sine * p.y), scale * (sine * p.x + cosine * p.y)};
    return downwards ? Point{q.x + shift.x, shift.y - q.y} : q + shift;
}

Point Transform::inverse(Point p) const
{
    const Point q{(p.x - shift.x) / scale, (downwards ? shift.y - p.y : p.y - shift.y) / scale};
    return {cosine * q.x + sine * q.y, -sine * q.x + cosine * q.y};
}

Transform turned(double degrees, double scale)
{
    const Point d = directionOf(degrees);
    return {d.x, d.y, scale, {}, false};
}

namespace {

struct Transforming {
    const Transform& by;
    double turn;

    Polyline operator()(Polyline line) const
    {
        for (auto& p : line.points) p = by(p);
        return line;
    }
    Arc operator()(const Arc& arc) const
    {
        const double from = by.downwards ? -(arc.to + turn) : arc.from + turn;
        return {by(arc.centre), arc.radius * by.scale, from, from + (arc.to - arc.from)};
    }
    Fill operator()(Fill fill) const
    {
        for (auto& p : fill.points) p = by(p);
        return fill;
    }
    Text operator()(Text text) const
    {
        text.at = by(text.at);
        text.height *= by.scale;
        text.rotation = by.downwards ? -(text.rotation + turn) : text.rotation + turn;
        return text;
    }
};

}  // namespace

Picture transformed(const Picture& picture, const Transform& by)
{
    Picture result;
    result.entities.reserve(picture.entities.size());
    const Transforming change{by, angleOf({by.cosine, by.sine})};
    for (const auto& [layer, shape] : picture.entities)
        result.entities.push_back(
            {layer, std::visit([&](const auto& each) -> decltype(Entity::shape) { return change(each); }, shape)});
    return result;
}

// --- Clipping --------------------------------------------------------------------------------------------------------

std::vector<Point> flattened(const Arc& arc, double tolerance)
{
    const double sweep = radiansOf(arc.to - arc.from);
    const double step = std::sqrt(8 * tolerance / std::max(arc.radius, tolerance));
    const auto n = static_cast<int>(std::clamp(std::ceil(sweep / std::min(step, 0.5)), 1.0, 20000.0));
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i <= n; ++i)
        points.push_back(arc.centre + arc.radius * directionOf(arc.from + (arc.to - arc.from) * i / n));
    return points;
}

// Source: Liang, Barsky, A New Concept and Method for Line Clipping (1984).
bool cut(Point& a, Point& b, const Box& box)
{
    double t0 = 0, t1 = 1;
    const Point d = b - a;
    const auto edge = [&](double p, double q) {
        if (p == 0) return q >= 0;
        const double t = q / p;
        if (p < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        return t0 <= t1;
    };
    if (!edge(-d.x, a.x - box.low.x) || !edge(d.x, box.high.x - a.x) || !edge(-d.y, a.y - box.low.y) ||
        !edge(d.y, box.high.y - a.y))
        return false;
    const Point start = a;
    if (t0 > 0) a = start + t0 * d;
    if (t1 < 1) b = start + t1 * d;
    return true;
}

namespace {

void addClipped(Picture& to, Layer layer, std::vector<Point> points, bool closed, const Box& box)
{
    if (std::all_of(points.begin(), points.end(), [&](Point p) { return box.holds(p); })) {
        to.polyline(layer, std::move(points), closed);
        return;
    }
    if (closed && !points.empty()) points.push_back(points.front());
    std::vector<Point> run;
    const auto flush = [&] {
        if (run.size() > 1) to.polyline(layer, std::move(run));
        run.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        Point a = points[i - 1], b = points[i];
        if (!cut(a, b, box)) {
            flush();
            continue;
        }
        if (run.empty() || !(run.back() == a)) {
            flush();
            run.push_back(a);
        }
        run.push_back(b);
    }
    flush();
}

Box boxOf(const std::vector<Point>& points)
{
    Box box;
    for (const Point p : points) box.add(p);
    return box;
}

}  // namespace

Picture clipped(const Picture& picture, const Box& box, double tolerance)
{
    Picture result;
    result.origin = picture.origin;
    for (const auto& [layer, shape] : picture.entities) {
        if (const auto* line = std::get_if<Polyline>(&shape)) {
            addClipped(result, layer, line->points, line->closed, box);
        } else if (const auto* arc = std::get_if<Arc>(&shape)) {
            const Box around = Box{arc->centre, arc->centre}.grown(arc->radius);
            if (around.meets(box)) addClipped(result, layer, flattened(*arc, tolerance), false, box);
        } else if (const auto* fill = std::get_if<Fill>(&shape)) {
            if (boxOf(fill->points).meets(box)) result.entities.push_back({layer, shape});
        } else if (boxOf(cornersOf(std::get<Text>(shape))).meets(box)) {
            result.entities.push_back({layer, shape});
        }
    }
    return result;
}

Box extents(const Picture& picture)
{
    Box box;
    for (const auto& entity : picture.entities) {
        if (const auto* line = std::get_if<Polyline>(&entity.shape))
            box.add(boxOf(line->points));
        else if (const auto* arc = std::get_if<Arc>(&entity.shape))
            box.add(boxOf(flattened(*arc, arc->radius / 1000)));
        else if (const auto* fill = std::get_if<Fill>(&entity.shape))
            box.add(boxOf(fill->points));
        else
            box.add(boxOf(cornersOf(std::get<Text>(entity.shape))));
    }
    return box;
}

}  // namespace plot
