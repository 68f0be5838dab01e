#include "plot/Section.h"

#include "engine/Elevation.h"
#include "plot/Angles.h"

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

/// The last grade ends at the ground, which nobody knows: it is as high as the one before it, or 8 m.
double sketchedHeight(const SlopeLadder& ladder, std::size_t k)
{
    if (ladder.grades[k].height > 0) return ladder.grades[k].height;
    return k > 0 && ladder.grades[k - 1].height > 0 ? ladder.grades[k - 1].height : 8;
}

void addSlope(Section& section, const SlopeRows& rows, bool cut, bool right, double edge, double elevation)
{
    const auto ladder = ladderAt(rows, section.stake);
    if (!ladder) return;
    const double out = right ? 1 : -1;
    SlopeSketch sketch{.cut = cut, .right = right};
    Point at{out * std::max(ladder->width, edge), elevation};
    sketch.points.push_back(at);
    for (std::size_t k = 0; k < ladder->grades.size(); ++k) {
        const auto& grade = ladder->grades[k];
        if (grade.berm > 0) sketch.points.push_back(at = {at.x + out * grade.berm, at.y});
        const double height = sketchedHeight(*ladder, k);
        sketch.points.push_back(at = {at.x + out * grade.slope * height, at.y + (cut ? height : -height)});
        sketch.labels.push_back("1:" + shortest(grade.slope, 3));
    }
    section.slopes.push_back(std::move(sketch));
}

std::string percentOf(double slope) { return shortest(slope * 100, 2) + "%"; }

}  // namespace

Section sectionOf(const Road& road, double stake, double thickness, const SlopeFiles& slopes)
{
    const Tables& t = road.tables();
    const RoadSection layout = sectionAt(t, stake);
    Section section{.stake = stake, .thickness = thickness};
    section.pose = road.poseAt(stake);
    const auto add = [&](std::string name, double offset) {
        SectionPoint p{.name = std::move(name), .offset = offset, .surface = surfaceAt(t, stake, offset)};
        if (p.surface) p.bottom = *p.surface - thickness;
        section.points.push_back(std::move(p));
    };
    const double h = layout.halfMedian;
    const auto &l = layout.left, &r = layout.right;
    if (l.width > 0) {
        add("左路基边缘", -l.width);
        if (l.shoulder > 0) add("左路肩内缘", -(l.width - l.shoulder));
        if (h > 0) add("左分隔带边缘", -h);
    }
    add("中桩", 0);
    if (r.width > 0) {
        if (h > 0) add("右分隔带边缘", h);
        if (r.shoulder > 0) add("右路肩内缘", r.width - r.shoulder);
        add("右路基边缘", r.width);
    }
    const auto crossfall = [](SectionPoint& outer, const SectionPoint& inner) {
        const double run = std::abs(outer.offset - inner.offset);
        if (outer.surface && inner.surface && run > 0) outer.slope = (*outer.surface - *inner.surface) / run;
    };
    for (std::size_t i = 0; i < section.points.size(); ++i) {
        SectionPoint& p = section.points[i];
        if (p.offset < 0) crossfall(p, section.points[i + 1]);
        if (p.offset > 0) crossfall(p, section.points[i - 1]);
    }
    const auto edge = [&](bool right) { return right ? section.points.back() : section.points.front(); };
    for (const bool right : {false, true}) {
        const SectionPoint from = edge(right);
        if (!from.surface) continue;
        addSlope(section, right ? slopes.fillRight : slopes.fillLeft, false, right, std::abs(from.offset),
                 *from.surface);
        addSlope(section, right ? slopes.cutRight : slopes.cutLeft, true, right, std::abs(from.offset), *from.surface);
    }
    return section;
}

std::vector<Point> worldPoints(const Road& road, const Section& section)
{
    std::vector<Point> points;
    if (!section.pose) return points;
    for (const auto& p : section.points)
        points.push_back(section.pose->at + p.offset * rightOf(section.pose->azDeg) + road.origin());
    return points;
}

namespace {

class SectionDrawing {
public:
    SectionDrawing(const Road& road, const Section& section, const SectionView& view)
        : m_road(road), m_section(section), m_view(view)
    {}

    Picture draw()
    {
        const auto centre = std::find_if(m_section.points.begin(), m_section.points.end(),
                                         [](const SectionPoint& p) { return p.offset == 0; });
        if (centre == m_section.points.end() || !centre->surface) return {};
        m_out.origin = {0, std::floor(*centre->surface)};
        surface();
        levels();
        if (m_view.slopes) slopes();
        axis(extents(m_out), place(0, *centre->surface).y);
        const Box all = extents(m_out);
        const std::string title = "横断面  " + m_road.stakeText(m_section.stake);
        m_out.text(Layer::Levels, {{0, all.high.y + mm(6)}, mm(3), title, 0, Align::Centre});
        return std::move(m_out);
    }

private:
    double mm(double n) const { return n * m_view.mm; }
    Point place(double offset, double elevation) const { return {offset, elevation - m_out.origin.y}; }
    Layer orAmber(Layer layer, bool stale) const { return stale ? Layer::Amber : layer; }

    void surface()
    {
        const bool stale = m_view.stale.vertical || m_view.stale.crossfall || m_view.stale.widths;
        std::vector<Point> top, bottom;
        for (const auto& p : m_section.points) {
            if (!p.surface) continue;
            top.push_back(place(p.offset, *p.surface));
            bottom.push_back(place(p.offset, *p.bottom));
        }
        if (m_section.thickness != 0 && bottom.size() > 1) {
            m_out.polyline(Layer::Subgrade, bottom);
            m_out.line(Layer::Subgrade, top.front(), bottom.front());
            m_out.line(Layer::Subgrade, top.back(), bottom.back());
        }
        if (top.size() > 1) m_out.polyline(orAmber(Layer::Surface, stale), top);
    }
    void slopes()
    {
        for (const auto& sketch : m_section.slopes) {
            std::vector<Point> points;
            const auto& edge = sketch.right ? m_section.points.back() : m_section.points.front();
            if (std::abs(sketch.points.front().x) > std::abs(edge.offset) + 1e-9)
                points.push_back(place(edge.offset, *edge.surface));  // over the ditch
            for (const Point p : sketch.points) points.push_back(place(p.x, p.y));
            m_out.polyline(Layer::Slopes, points);
            std::size_t label = 0;
            for (std::size_t i = 1; i < sketch.points.size() && label < sketch.labels.size(); ++i) {
                const Point a = sketch.points[i - 1], b = sketch.points[i];
                if (a.y == b.y) continue;
                const Point middle = 0.5 * (place(a.x, a.y) + place(b.x, b.y));
                const double angle = upright(angleOf(b - a));
                m_labels.put(m_out, Layer::Slopes,
                             Text{middle + mm(2.4) * directionOf(angle + 90), mm(2), sketch.labels[label++], angle,
                                  Align::Centre},
                             mm(0.5));
            }
            const Point last = place(sketch.points.back().x, sketch.points.back().y);
            m_labels.put(m_out, Layer::Slopes,
                         Text{{last.x, last.y + mm(sketch.cut ? 3 : -3)},
                              mm(2),
                              sketch.cut ? "挖方（示意）" : "填方（示意）",
                              0,
                              Align::Centre},
                         mm(0.5));
        }
    }
    void axis(const Box& box, double surface)
    {
        // Up to the surface alone: above it stand the numbers.
        m_out.line(Layer::Polygon, {0, std::max(box.low.y, surface - mm(14)) - mm(4)}, {0, surface});
    }
    /// Offsets, elevations and crossfalls above the surface, each with a line to its point.
    void levels()
    {
        double top = -1e300;
        for (const auto& p : m_section.points)
            if (p.surface) top = std::max(top, place(0, *p.surface).y);
        for (std::size_t i = 0; i < m_section.points.size(); ++i) {
            const auto& p = m_section.points[i];
            if (!p.surface) continue;
            const Point at = place(p.offset, *p.surface);
            const std::string level =
                fixed(*p.surface, 3) + (m_section.thickness != 0 ? " (" + fixed(*p.bottom, 3) + ")" : std::string());
            const std::string offset =
                p.offset == 0 ? "0" : (p.offset < 0 ? "左" : "右") + shortest(std::abs(p.offset), 3);
            // Turned upright and spread where points lie close to each other.
            for (const double shift : {0.0, 1.0, -1.0, 2.0, -2.0, 3.0, -3.0, 4.0, -4.0, 6.0, -6.0}) {
                const double outwards = p.offset < 0 ? -1 : 1;
                const double x = at.x + mm(3.2 * shift * outwards), y = top + mm(7);
                const Text text{{x, y}, mm(2), offset + "  " + level, 90};
                if (!m_labels.take(text, mm(0.8))) continue;
                m_out.polyline(Layer::Levels, {at, {at.x, at.y + mm(1)}, {x, y - mm(1)}});
                m_out.text(Layer::Levels, text);
                break;
            }
            if (!p.slope) continue;
            const auto& inner = m_section.points[p.offset < 0 ? i + 1 : i - 1];
            const double middle = (p.offset + inner.offset) / 2;
            const double y = std::min(at.y, place(0, *inner.surface).y) - mm(4) - m_section.thickness;
            for (const double down : {0.0, 3.5, 7.0})
                if (m_labels.put(m_out, Layer::Levels,
                                 Text{{middle, y - mm(down)}, mm(2), percentOf(*p.slope), 0, Align::Centre}, mm(0.8)))
                    break;
        }
    }

    const Road& m_road;
    const Section& m_section;
    const SectionView& m_view;
    Labels m_labels;
    Picture m_out;
};

}  // namespace

Picture sectionPicture(const Road& road, const Section& section, const SectionView& view)
{
    return SectionDrawing(road, section, view).draw();
}

std::string sectionTable(const Road& road, const Section& section, std::string_view separator, std::string_view lineEnd)
{
    const auto world = worldPoints(road, section);
    const std::string s(separator);
    std::string text;
    for (const char* head : {"点", "里程", "偏距", "设计高程", "扣路面厚度后", "X坐标", "Y坐标"})
        text += (text.empty() ? "" : s) + head;
    text += lineEnd;
    const auto number = [](const std::optional<double>& v) { return v ? fixed(*v, 3) : std::string(); };
    for (std::size_t i = 0; i < section.points.size(); ++i) {
        const auto& p = section.points[i];
        text += p.name + s + road.stakeText(section.stake) + s + fixed(p.offset, 3) + s + number(p.surface) + s +
                number(p.bottom) + s + (world.empty() ? s : fixed(world[i].y, 3) + s + fixed(world[i].x, 3));
        text += lineEnd;
    }
    return text;
}

}  // namespace plot
