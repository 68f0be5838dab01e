#include "exchange/ImportHorizontal.h"

#include "base/Numbers.h"
#include "base/Trig.h"
#include "engine/FastRoute.h"
#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

using landxml::Point;

namespace {

/// A straight of the polygon.
struct Leg {
    Point through;
    double az = 0;  // radians
};

/// What lies between two straights.
struct Curve {
    double ls1 = 0, ls2 = 0, radius = 0;
};

/// The chain as straights with curves between them.
class Polygon {
public:
    /// False: it is none.
    bool take(const std::vector<ShapeElement>& elements)
    {
        for (std::size_t i = 0; i < elements.size();) {
            const bool starts = legs.size() == curves.size();
            if (isLine(elements[i])) {
                if (!takeLines(elements, i, starts)) return false;
            } else {
                if (starts) legs.push_back({{elements[i].x, elements[i].y}, elements[i].az});
                if (!takeCurve(elements, i)) return false;
            }
        }
        if (legs.size() == curves.size() && !curves.empty())  // ends with a curve
            legs.push_back({{elements.back().endX, elements.back().endY}, elements.back().endAz});
        return !curves.empty();
    }

    std::vector<Leg> legs;
    std::vector<Curve> curves;

private:
    static bool isLine(const ShapeElement& e) { return e.r1 == 0 && e.r2 == 0; }

    /// Straights in one line are one.
    bool takeLines(const std::vector<ShapeElement>& elements, std::size_t& i, bool starts)
    {
        if (!starts) return false;  // two straights that bend
        const auto& first = elements[i];
        std::size_t last = i;
        while (last + 1 < elements.size() && isLine(elements[last + 1])) ++last;
        const Point from{first.x, first.y};
        const double dx = elements[last].endX - from.north, dy = elements[last].endY - from.east;
        const double az = trig::atan2(dy, dx);
        for (std::size_t k = i; k < last; ++k) {
            const double off =
                (elements[k].endY - from.east) * trig::cos(az) - (elements[k].endX - from.north) * trig::sin(az);
            if (std::abs(off) > kMillimetre) return false;
        }
        legs.push_back({from, az});
        i = last + 1;
        return true;
    }

    bool takeCurve(const std::vector<ShapeElement>& elements, std::size_t& i)
    {
        Curve curve;
        if (elements[i].r1 == 0) curve.ls1 = elements[i++].length;
        if (i == elements.size()) return false;
        const auto& arc = elements[i];
        if (arc.r1 != arc.r2 || arc.r1 == 0 || arc.length < 0.01) return false;
        curve.radius = arc.r1;
        if (curve.ls1 > 0 && std::abs(elements[i - 1].r2 - arc.r1) > kMillimetre) return false;
        ++i;
        if (i < elements.size() && elements[i].r2 == 0 && std::abs(elements[i].r1 - arc.r1) <= kMillimetre)
            curve.ls2 = elements[i++].length;
        curves.push_back(curve);
        return true;
    }
};

std::optional<Point> crossing(const Leg& a, const Leg& b)
{
    const double turn = trig::sin(b.az - a.az);
    if (std::abs(turn) < 1e-6) return std::nullopt;
    const double dx = b.through.north - a.through.north, dy = b.through.east - a.through.east;
    const double t = (dx * trig::sin(b.az) - dy * trig::cos(b.az)) / turn;
    return Point{a.through.north + t * trig::cos(a.az), a.through.east + t * trig::sin(a.az)};
}

std::string vertexName(const landxml::Alignment& road, const Point& at, std::size_t number)
{
    for (const auto& vertex : road.vertices)
        if (std::hypot(vertex.at.north - at.north, vertex.at.east - at.east) < 0.01 && IsFieldText(vertex.name))
            return vertex.name;
    return "JD" + std::to_string(number);
}

std::string joined(std::initializer_list<std::string> fields)
{
    std::string line;
    for (const auto& field : fields) line += (line.empty() ? "" : ",") + field;
    return line;
}

}  // namespace

std::optional<std::vector<std::string>> VertexLines(const landxml::Alignment& road, const Shape& shape)
{
    Polygon polygon;
    if (!polygon.take(shape.elements)) return std::nullopt;
    const auto& first = shape.elements.front();
    const auto& last = shape.elements.back();
    std::vector<std::string> lines{joined({ShortestText(road.staStart), ShortestText(first.x), ShortestText(first.y)})};
    for (std::size_t i = 0; i < polygon.curves.size(); ++i) {
        const auto vertex = crossing(polygon.legs[i], polygon.legs[i + 1]);
        if (!vertex) return std::nullopt;
        const auto& curve = polygon.curves[i];
        lines.push_back(
            joined({vertexName(road, *vertex, i + 1), ShortestText(vertex->north), ShortestText(vertex->east),
                    ShortestText(curve.ls1), ShortestText(curve.ls2), ShortestText(std::abs(curve.radius))}));
    }
    lines.push_back(joined({ShortestText(last.endX), ShortestText(last.endY)}));
    return lines;
}

std::string DmsText(double az)
{
    // The engine turns degrees into radians by a shorter pi; a whole turn is a little more than 360 of its degrees.
    double deg = az * 180 / kPi;
    if (deg >= 360) deg = std::max(0.0, (az - 2 * std::numbers::pi) * 180 / kPi);
    const auto hundredths = std::llround(deg * 360000);
    const auto two = [](long long n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    std::string text = std::to_string(hundredths / 360000) + "." + two(hundredths / 6000 % 60) +
                       two(hundredths / 100 % 60) + two(hundredths % 100);
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

std::vector<std::string> BlockLines(const Shape& shape, const Stations& stations)
{
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < shape.elements.size(); ++i) {
        const auto& e = shape.elements[i];
        const bool closes = i + 1 == shape.elements.size();
        const double from = e.from, to = closes ? shape.end() : shape.elements[i + 1].from;
        const auto start = stations.nominal(from), end = closes ? stations.nominalAtEnd(to) : stations.nominal(to);
        if (!start || !end)
            throw ExchangeError(e.place + "：" + (start ? "终点" : "起点") +
                                "的桩号在断链重复段的第二段，参数文件里写不出来，没有导入");
        lines.push_back(joined({ShortestText(*start), ShortestText(*end), ShortestText(e.x), ShortestText(e.y),
                                DmsText(e.az), ShortestText(e.r1), ShortestText(e.r2)}));
    }
    return lines;
}

namespace {

/// The centre line at a stake on element i: in closed form where that lies within a hundredth of what is reported.
Point centre(const Tables& tables, std::size_t i, double stake)
{
    if (const auto* route = fastRoute(tables))
        if (const auto p = boundedPoint(*route, i, stake, 90, 0); p && std::max(p->boundX, p->boundY) < 1e-6)
            return {p->x, p->y};
    const CurvePoint p = pointOn(tables, i, stake);
    return {p.x, p.y};
}

}  // namespace

Deviation DeviationOf(const Tables& tables, const Shape& shape)
{
    Deviation result;
    std::size_t i = 1;  // the stakes rise: the search goes on where it was
    for (const auto& e : shape.elements) {
        const double from = e.from, to = from + e.length, middle = (from + to) / 2;
        while (i <= static_cast<std::size_t>(tables.elemCount) && tables.elemLc[i] <= middle) ++i;
        double start = std::numeric_limits<double>::infinity(), end = start;
        if (i <= static_cast<std::size_t>(tables.elemCount) && tables.elemLc[i - 1] <= middle) {
            const bool atRow = std::abs(from - tables.elemLc[i - 1]) < 1e-9;
            const Point a = atRow ? Point{tables.elemX[i - 1], tables.elemY[i - 1]} : centre(tables, i, from);
            const Point b = centre(tables, i, to);
            start = std::hypot(a.north - e.x, a.east - e.y);
            end = std::hypot(b.north - e.endX, b.east - e.endY);
        }
        result.ends.push_back(end);
        result.largest = std::max({result.largest, start, end});
    }
    return result;
}

Shape ShapeOf(const std::vector<RoadElement>& elements, const landxml::Alignment& road)
{
    if (elements.size() != road.elements.size())
        throw ExchangeError("平曲线有 " + std::to_string(road.elements.size()) + " 个单元，原参数有 " +
                            std::to_string(elements.size()) + " 个");
    if (std::abs(elements.front().stake - road.staStart) > kMillimetre)
        throw ExchangeError("起点桩号是 " + ShortestText(road.staStart) + "，原参数是 " +
                            ShortestText(elements.front().stake));
    Shape shape;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto& e = elements[i];
        const auto& written = road.elements[i];
        const double endAz = e.az + (curvature(e.r1) + curvature(e.r2)) * e.length / 2;
        if (i > 0) {
            const double turn = std::abs(std::remainder(e.az - shape.elements.back().endAz, 2 * kPi));
            if (turn > shape.largestTurn) {
                shape.largestTurn = turn;
                shape.turnAt = written.place;
            }
        }
        shape.elements.push_back({.from = e.stake,
                                  .length = e.length,
                                  .r1 = e.r1,
                                  .r2 = e.r2,
                                  .x = e.x,
                                  .y = e.y,
                                  .endX = written.end.north,
                                  .endY = written.end.east,
                                  .az = e.az,
                                  .endAz = endAz,
                                  .misfit = std::hypot(e.endX - written.end.north, e.endY - written.end.east),
                                  .source = i,
                                  .place = written.place});
    }
    return shape;
}

bool SameElements(const Shape& shape, const landxml::Alignment& road)
{
    for (std::size_t i = 0; i < shape.elements.size(); ++i) {
        const auto& e = shape.elements[i];
        const auto& written = road.elements[i];
        const double length = written.length.value_or(e.length);
        if (std::abs(length - e.length) > kMillimetre || e.misfit > kMillimetre ||
            std::hypot(e.x - written.start.north, e.y - written.start.east) > kMillimetre)
            return false;
    }
    return true;
}
