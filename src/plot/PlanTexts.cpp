// The texts of a plan, and the points around the road.

#include "plot/PlanDrawing.h"

#include <cmath>

namespace plot {

void PlanDrawing::gridText(Point at, std::string text, double rotation, Align align)
{
    const double stands = upright(rotation, m_view.turn);
    if (stands != rotation && align == Align::Left) align = Align::Right;
    m_gridTexts.push_back({at, mm(1.7), std::move(text), stands, align});
}

void PlanDrawing::gridTexts()
{
    for (const auto& text : m_gridTexts) {
        if (m_labels.put(m_texts, Layer::Legend, text, mm(0.6)) || m_view.crosses || m_all) continue;
        Text across = text;  // at the other end of its line
        if (text.align == Align::Centre) {
            across.at.y = m_window.high.y - mm(2);
        } else {
            across.at.x = m_window.high.x - mm(1);
            across.align = Align::Right;
        }
        m_labels.put(m_texts, Layer::Legend, across, mm(0.6));
    }
}

void PlanDrawing::stakeTexts()
{
    for (const auto& [stake, pose] : m_stakes) {
        const std::string text = m_road.shortStakeText(stake);
        const Text choices[] = {
            beside(pose, -1, std::max(mm(2.2), reach(stake, -1) + mm(0.8)), mm(2), text, m_view.turn),
            beside(pose, 1, std::max(mm(2.2), reach(stake, 1) + mm(0.8)), mm(2), text, m_view.turn)};
        m_labels.put(m_texts, Layer::Stakes, choices, mm(0.8));
    }
}

void PlanDrawing::mainPointMarks()
{
    for (const auto& p : m_road.mainPoints()) {
        if (!seen(p.pose.at) || !covers(p.stake) || p.room < mm(1.5)) continue;
        m_out.circle(Layer::MainPoints, p.pose.at, mm(0.7));
        const Point right = rightOf(p.pose.azDeg);
        if (p.room > mm(4))
            m_out.line(Layer::MainPoints, p.pose.at + mm(0.7) * right,
                       p.pose.at + std::max(mm(3), reach(p.stake, 1) + mm(0.6)) * right);
    }
}

void PlanDrawing::mainPointTexts()
{
    for (const auto& p : m_road.mainPoints()) {
        const bool isEnd = &p == &m_road.mainPoints().front() || &p == &m_road.mainPoints().back();
        if (!seen(p.pose.at) || !covers(p.stake) || (p.room < mm(4) && !isEnd)) continue;
        const auto gap = [&](int side) { return std::max(mm(3.5), reach(p.stake, side) + mm(1.2)); };
        const Text choices[] = {beside(p.pose, 1, gap(1), mm(2), p.label, m_view.turn),
                                beside(p.pose, -1, gap(-1), mm(2), p.label, m_view.turn)};
        if (m_labels.put(m_texts, Layer::MainPoints, choices, mm(0.8))) continue;
        // The ends of the road are named wherever there is room.
        if (isEnd) around(p.pose.at, p.label, 2, Layer::MainPoints);
    }
    for (const auto& text : m_otherTexts) m_labels.put(m_texts, Layer::OtherRoad, text, mm(0.8));
}

void PlanDrawing::breaks()
{
    for (const auto& b : m_road.breaks()) {
        const auto pose = m_road.poseAt(b.stake);
        if (!pose || !seen(pose->at) || !covers(b.stake)) continue;
        const Layer layer = orAmber(Layer::Breaks, m_view.stale.breaks);
        const Point right = rightOf(pose->azDeg), along = alongAzimuth(pose->azDeg);
        for (const double shift : {-0.5, 0.5})
            m_out.line(layer, pose->at + mm(shift) * along - mm(3) * right,
                       pose->at + mm(shift) * along + mm(3) * right);
        const std::string text = "断链 K" + stakeDigits(b.back) + "=K" + stakeDigits(b.ahead);
        const auto gap = [&](int side) { return std::max(mm(4), reach(b.stake, side) + mm(1.2)); };
        const Text choices[] = {beside(*pose, -1, gap(-1), mm(2.2), text, m_view.turn),
                                beside(*pose, 1, gap(1), mm(2.2), text, m_view.turn),
                                beside(*pose, -1, gap(-1) + mm(10), mm(2.2), text, m_view.turn)};
        m_labels.put(m_texts, layer, choices, mm(0.8));
    }
}

std::string PlanDrawing::stakeDigits(double stake)
{
    const double km = std::floor(stake / 1000);
    std::string metres = fixed(stake - km * 1000, 3);
    metres.insert(0, metres.size() < 7 ? 7 - metres.size() : 0, '0');
    return fixed(km, 0) + "+" + metres;
}

void PlanDrawing::vertexNames()
{
    if (!legsCanBeSeen()) return;
    const auto& all = m_road.polygon();
    for (std::size_t i = 1; i + 1 < all.size(); ++i) {
        const Vertex& v = all[i];
        if (!seen(v.at)) continue;
        m_out.circle(Layer::Polygon, v.at, mm(0.5));
        around(v.at, v.name, 2.4, Layer::CurveData);
    }
}

bool PlanDrawing::around(Point at, const std::string& text, double height, Layer layer)
{
    std::vector<Text> choices;
    for (const double reach : {mm(1.6), mm(4.5), mm(8)})
        for (const double angle : {45, 135, -45, -135, 90, -90, 0, 180}) {
            const Point d = directionOf(angle - m_view.turn);
            const double x = directionOf(angle).x;
            const Align align = x > 0.3 ? Align::Left : x < -0.3 ? Align::Right : Align::Centre;
            choices.push_back(
                {at + (reach + mm(std::abs(x) < 0.3 ? height / 2 : 0)) * d, mm(height), text, -m_view.turn, align});
        }
    return m_labels.put(m_texts, layer, choices, mm(0.6));
}

void PlanDrawing::curveData()
{
    const auto& all = m_road.polygon();
    for (std::size_t i = 1; i + 1 < all.size(); ++i) {
        const Vertex& v = all[i];
        if (!seen(v.at) || v.length < mm(20)) continue;
        const int total = static_cast<int>(std::lround(std::abs(v.turnDeg) * 3600));
        const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
        const std::vector<std::string> lines{(v.turnDeg < 0 ? "α左 " : "α右 ") + std::to_string(total / 3600) + "°" +
                                                 two(total / 60 % 60) + "′" + two(total % 60) + "″",
                                             "R=" + shortest(v.radius, 3) + "  L=" + fixed(v.length, 2),
                                             "Ls1=" + shortest(v.ls1, 3) + "  Ls2=" + shortest(v.ls2, 3),
                                             "T1=" + fixed(v.t1, 2) + "  T2=" + fixed(v.t2, 2)};
        block(v.at, lines);
    }
}

void PlanDrawing::block(Point at, const std::vector<std::string>& lines)
{
    const double height = mm(1.9), row = mm(3.1);
    double width = 0;
    for (const auto& line : lines) width = std::max(width, textWidth(line) * height);
    const double high = row * static_cast<double>(lines.size());
    const Point right = directionOf(-m_view.turn), up = directionOf(90 - m_view.turn);
    const auto place = [&](double a, double b) { return at + a * right + b * up; };
    for (const auto& [x, y] : {std::pair{3.0, 3.0},
                               {3.0, -3.0},
                               {-3.0, 3.0},
                               {-3.0, -3.0},
                               {3.0, 12.0},
                               {-3.0, -12.0},
                               {3.0, -12.0},
                               {-3.0, 12.0},
                               {12.0, 0.0},
                               {-12.0, 0.0},
                               {3.0, -22.0},
                               {3.0, 22.0},
                               {-3.0, 22.0},
                               {-3.0, -22.0},
                               {25.0, 0.0},
                               {-25.0, 0.0}}) {
        const double left = x > 0 ? mm(x) : mm(x) - width;
        const double top = y > 0 ? mm(y) + high : y < 0 ? mm(y) : high / 2;
        const std::vector<Point> corners{place(left, top - high), place(left + width, top - high),
                                         place(left + width, top), place(left, top)};
        if (!m_labels.takeArea(corners)) continue;
        for (std::size_t k = 0; k < lines.size(); ++k)
            m_texts.text(Layer::CurveData,
                         {place(left, top - row * (static_cast<double>(k) + 0.5)), height, lines[k], -m_view.turn});
        return;
    }
}

void PlanDrawing::traverse()
{
    const Tables& t = m_road.tables();
    const Layer layer = orAmber(Layer::Traverse, m_view.stale.traverse);
    for (std::size_t i = 0; i < t.dxdX.size() && i < t.dxdName.size(); ++i) {
        const Point p = m_road.local(t.dxdX[i], t.dxdY[i]);
        if (m_all ? m_road.box().grown(mm(100)).distance(p) > 0 : !seen(p)) continue;
        std::vector<Point> corners;
        for (const double angle : {90, 210, 330}) corners.push_back(p + mm(1.5) * directionOf(angle - m_view.turn));
        m_out.polyline(layer, corners, true);
        m_out.circle(layer, p, mm(0.2));
        around(p, t.dxdName[i], 2.2, layer);
    }
}

void PlanDrawing::marked()
{
    for (const auto& m : m_view.marked) {
        if (m.points.empty()) continue;
        const Layer layer = m.picked ? Layer::Picked : Layer::Structures;
        if (m.points.size() > 1) {
            m_out.polyline(layer, m.points, true);
        } else if (seen(m.points[0])) {
            const Point p = m.points[0];
            const double arm = mm(m.picked ? 1.8 : 1.1);
            m_out.line(layer, {p.x - arm, p.y - arm}, {p.x + arm, p.y + arm});
            m_out.line(layer, {p.x - arm, p.y + arm}, {p.x + arm, p.y - arm});
        }
        if (seen(m.points[0])) around(m.points[0], m.label, 2.0, layer);
    }
}

}  // namespace plot
