#include "plot/TitleBlock.h"

#include "plot/Angles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plot {

namespace {

constexpr double kTitleWidth = 132, kBoxWidth = 58;

void rectangle(Picture& into, Layer layer, const Box& box)
{
    into.polyline(layer, {box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}}, true);
}

/// A text made smaller where its cell is too narrow.
void fitted(Picture& into, Point at, double height, const std::string& text, double room, Align align = Align::Left)
{
    const double wide = textWidth(text) * height;
    into.text(Layer::Frame, {at, wide > room ? height * room / wide : height, text, 0, align});
}

struct LegendLine {
    Layer layer;
    std::string text;
    std::optional<Colour> area = {};  ///< stands for an area, not for a line
};
Picture legend(const std::vector<LegendLine>& lines)
{
    Picture out;
    double y = kStrip - 5.5;
    double x = 3;
    for (const auto& [layer, text, area] : lines) {
        if (area)
            out.put(layer, Fill{{{x, y - 1.2}, {x + 8, y - 1.2}, {x + 8, y + 1.2}, {x, y + 1.2}}, *area});
        else
            out.line(layer, {x, y}, {x + 8, y});
        out.text(Layer::Legend, {{x + 10, y}, 2, text});
        y -= 4.2;
        if (y < 11) y = kStrip - 5.5, x += 27;
    }
    return out;
}

}  // namespace

Picture placed(const Picture& picture, Point at)
{
    Transform by;
    by.shift = at;
    return transformed(picture, by);
}

Picture titleBlock(Paper paper, const TitleTexts& texts)
{
    Picture out;
    const Box inner{{kBinding, kEdge}, {paper.width - kEdge, paper.height - kEdge}};
    rectangle(out, Layer::Frame, inner);
    out.line(Layer::Frame, {inner.low.x, kEdge + kStrip}, {inner.high.x, kEdge + kStrip});
    const double right = inner.high.x, left = right - kTitleWidth;
    out.line(Layer::Frame, {left, kEdge}, {left, kEdge + kStrip});
    const double row = kStrip / 4;
    const auto y = [&](double rows) { return kEdge + kStrip - rows * row; };
    for (const double r : {1.0, 2.0, 3.0}) out.line(Layer::Frame, {left, y(r)}, {right, y(r)});
    const auto cell = [&](double r, double from, double to, const std::string& name, const std::string& value) {
        out.text(Layer::Legend, {{left + from + 1.5, y(r + 0.5)}, 2, name});
        fitted(out, {left + from + 14, y(r + 0.5)}, 2.8, value, to - from - 15);
        if (to < kTitleWidth) out.line(Layer::Frame, {left + to, y(r + 1)}, {left + to, y(r)});
    };
    cell(0, 0, 84, "项目", texts.project);
    cell(0, 84, kTitleWidth, "图名", texts.drawing);
    cell(1, 0, 84, "里程", texts.stakes);
    cell(1, 84, kTitleWidth, "比例", texts.scale);
    cell(2, 0, 84, "坐标", "X 北  Y 东，单位 m");
    cell(2, 84, kTitleWidth, "图号",
         "第 " + std::to_string(texts.number) + " 张  共 " + std::to_string(texts.count) + " 张");
    cell(3, 0, 44, "计算", "");
    cell(3, 44, 88, "复核", "");
    cell(3, 88, kTitleWidth, "日期", "");
    return out;
}

Picture northArrow(double turn)
{
    // About its middle: the head points north, X.
    Picture out;
    const Point up = directionOf(90 + turn), side = directionOf(turn);
    out.polyline(Layer::Legend, {7 * up, -5 * up + 2.6 * side, -3 * up, -5 * up - 2.6 * side}, true);
    out.entities.push_back({Layer::Legend, Fill{{7 * up, -3 * up, -5 * up + 2.6 * side}, {40, 40, 40}}});
    out.text(Layer::Legend, {9 * up, 2.6, "X", 0, Align::Centre});
    return out;
}

Picture scaleBar(double mm)
{
    Picture out;
    const double metres = niceStep(25 * mm) > 45 * mm ? niceStep(12 * mm) : niceStep(25 * mm), width = metres / mm;
    for (int i = 0; i < 4; ++i) {
        const double a = width * i / 4, b = width * (i + 1) / 4;
        if (i % 2 == 0)
            out.entities.push_back({Layer::Legend, Fill{{{a, 0}, {b, 0}, {b, 1.2}, {a, 1.2}}, {40, 40, 40}}});
    }
    out.polyline(Layer::Legend, {{0, 0}, {width, 0}, {width, 1.2}, {0, 1.2}}, true);
    out.text(Layer::Legend, {{0, 3}, 2, "0", 0, Align::Centre});
    out.text(Layer::Legend, {{width, 3},
                             2,
                             metres < 1000 ? shortest(metres, 2) + " m" : shortest(metres / 1000, 2) + " km",
                             0,
                             Align::Centre});
    return out;
}

Picture planLegend(const Road& road, const PlanView& view)
{
    std::vector<LegendLine> lines{{Layer::Straight, "直线"},  {Layer::Spiral, "缓和曲线"},  {Layer::Arc, "圆曲线"},
                                  {Layer::Edges, "路基边线"}, {Layer::Polygon, "交点导线"}, {Layer::Breaks, "断链"}};
    if (const Tables& t = road.tables(); t.cgkdG.size() > 1 && !t.cgLc.empty()) {
        lines.push_back({Layer::Crossfall, "向外升高", crossfallColour(0.06)});
        lines.push_back({Layer::Crossfall, "向外降低", crossfallColour(-0.06)});
    }
    if (view.other) lines.push_back({Layer::OtherRoad, "叠加线路"});
    const Stale& s = view.stale;
    if (s.horizontal || s.breaks || s.traverse || s.widths || s.crossfall || s.vertical)
        lines.push_back({Layer::Amber, "存疑数据"});
    return legend(lines);
}

Picture profileLegend()
{
    return legend(
        {{Layer::GradeLine, "设计线（直坡）"}, {Layer::VerticalCurve, "竖曲线"}, {Layer::Polygon, "变坡点连线"}});
}

Picture sectionLegend(const Section& section)
{
    std::vector<LegendLine> lines{{Layer::Surface, "设计路面"}};
    if (section.thickness != 0)
        lines.push_back({Layer::Subgrade, "扣路面厚度 " + shortest(section.thickness, 3) + " m"});
    if (!section.slopes.empty()) lines.push_back({Layer::Slopes, "边坡（示意，无地面线）"});
    return legend(lines);
}

Picture keyPlan(const Road& road, const std::vector<Sheet>& sheets, std::size_t current)
{
    Picture all;
    const Box box = road.box();
    if (box.empty()) return all;
    const double scale =
        std::min((kBoxWidth - 8) / std::max(box.width(), 1.0), (kStrip - 8) / std::max(box.height(), 1.0));
    Transform toBox = turned(0, scale);
    toBox.shift = Point{kBoxWidth / 2, kStrip / 2} - toBox(box.centre());
    for (const auto& e : road.elements()) {
        if (e.to < e.from) continue;
        const auto stretch = [&](Layer layer, double from, double to) {
            if (!(to > from)) return;
            std::vector<Point> points;
            for (const auto& [stake, pose] : road.flattened(e, from, to, 0.1 / scale)) points.push_back(toBox(pose.at));
            all.polyline(layer, std::move(points));
        };
        const Sheet& here = sheets[current];
        stretch(Layer::OtherRoad, e.from, e.to);
        stretch(Layer::Picked, std::max(e.from, here.from), std::min(e.to, here.to));
    }
    for (std::size_t i = 0; i < sheets.size() && sheets.size() > 1; ++i) {
        std::vector<Point> corners;
        for (const Point p : sheets[i].outline) corners.push_back(toBox(p));
        if (i == current) all.polyline(Layer::Frame, corners, true);
    }
    all = clipped(all, Box{{1, 1}, {kBoxWidth - 1, kStrip - 1}}, 0.05);
    all.line(Layer::Frame, {kBoxWidth, 0}, {kBoxWidth, kStrip});
    return all;
}

}  // namespace plot
