#include "exchange/Shape.h"

#include "base/Trig.h"
#include "engine/RoutePoint.h"
#include "exchange/Directions.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"
#include "geometry/TrueRoad.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

using landxml::Element;
using landxml::Point;

namespace {

constexpr double kPiTrue = std::numbers::pi, kDegree = kPiTrue / 180;

/// A piece of no more has no direction that its points could give, m.
constexpr double kNothing = 1e-4;

double distance(const Point& a, const Point& b) { return std::hypot(b.north - a.north, b.east - a.east); }
double direction(const Point& a, const Point& b) { return trig::atan2(b.east - a.east, b.north - a.north); }
/// Between 0 and a full turn.
double turned(double angle)
{
    const double rest = std::fmod(angle, 2 * kPiTrue);
    return rest < 0 ? rest + 2 * kPiTrue : rest;
}
double smallest(double angle) { return std::remainder(angle, 2 * kPiTrue); }

/// What a reading of the file gives, and how well it fits.
struct Reading {
    Shape shape;
    double worst = 0;  // m, misfits of ends, lengths and tangents
    std::size_t worstAt = 0;
    int kinks = 0;  // joints of a curve that turn by more than a degree
};

class Solver {
public:
    Solver(Reading& reading, double start) : m_reading(reading), m_station(start) {}

    void add(const Element& e, std::size_t source)
    {
        ShapeElement solved{.x = e.start.north,
                            .y = e.start.east,
                            .endX = e.end.north,
                            .endY = e.end.east,
                            .source = source,
                            .place = e.place};
        switch (e.kind) {
        case Element::Line:
            line(e, solved);
            break;
        case Element::Curve:
            curve(e, solved);
            break;
        case Element::Spiral:
            spiral(e, solved);
            break;
        }
        close(solved);
        place(e, solved);
        m_reading.shape.elements.push_back(solved);
    }

private:
    void find(const Element& e, const std::string& what, double metres)
    {
        m_reading.shape.findings.push_back(e.place + "：" + what + "相差 " + MetresText(metres) + " 米");
        fits(metres);
    }
    void fits(double metres)
    {
        if (metres <= m_reading.worst) return;
        m_reading.worst = metres;
        m_reading.worstAt = m_reading.shape.elements.size();
    }

    /// The attribute where it agrees with the points, else what the points give.
    double agreed(const Element& e, std::optional<double> written, double measured, const char* what)
    {
        if (!written) return measured;
        if (const double off = std::abs(*written - measured); off > kMillimetre) {
            find(e, std::string(what) + "与坐标", off);
            return measured;
        }
        return *written;
    }

    void line(const Element& e, ShapeElement& solved)
    {
        solved.length = agreed(e, e.length, distance(e.start, e.end), "length ");
        solved.az = direction(e.start, e.end);
    }

    void curve(const Element& e, ShapeElement& solved)
    {
        const double side = e.clockwise ? 1 : -1, chord = distance(e.start, e.end);
        const Point center = e.center ? *e.center : centerOf(e, side);
        const double fromStart = distance(center, e.start), fromEnd = distance(center, e.end);
        if (fromStart == 0) throw ExchangeError(e.place + "：圆心和起点是同一点");
        if (const double off = std::abs(fromStart - fromEnd); off > kMillimetre) find(e, "起点和终点到圆心的距离", off);
        const double radius = agreed(e, e.radius, fromStart, "radius ");
        const double sweep = turned(side * (direction(center, e.end) - direction(center, e.start)));
        // A length of a whole turn tells an arc that comes back to its start from one that never left it.
        const bool whole =
            e.length && std::abs(*e.length - 2 * kPiTrue * radius) < std::abs(*e.length - sweep * radius);
        const double length = agreed(e, e.length, (whole ? 2 * kPiTrue : sweep) * radius, "length ");
        const auto misfit = [&](double r, double l) {
            return std::abs(2 * r * std::abs(trig::sin(l / r / 2)) - chord);
        };
        // A centre of few digits moves the radius: what is written is taken where it meets both ends better.
        const bool written = e.radius && e.length && std::abs(*e.radius - radius) <= kMostMisfit &&
                             std::abs(*e.length - length) <= kMostMisfit &&
                             misfit(*e.radius, *e.length) <= misfit(radius, length);
        const double r = written ? *e.radius : radius;
        solved.length = written ? *e.length : length;
        solved.r1 = solved.r2 = side * r;
        solved.az = chord > 1 && !whole ? direction(e.start, e.end) - side * solved.length / r / 2
                                        : direction(center, e.start) + side * kPiTrue / 2;
    }

    /// Where a file leaves the centre out: beside the chord, beyond it for an arc of more than half a turn.
    Point centerOf(const Element& e, double side)
    {
        const double chord = distance(e.start, e.end), r = *e.radius, az = direction(e.start, e.end);
        if (chord == 0 || chord > 2 * r + kMillimetre)
            throw ExchangeError(e.place + "：缺少 Center，由起点、终点和 radius 求不出圆心");
        m_reading.shape.findings.push_back(e.place + "：缺少 Center，圆心由 radius 和 length 求出");
        const double away = std::sqrt(std::max(0.0, r * r - chord * chord / 4));
        const double right = side * (e.length.value_or(0) > kPiTrue * r ? -away : away);
        return {(e.start.north + e.end.north) / 2 - right * trig::sin(az),
                (e.start.east + e.end.east) / 2 + right * trig::cos(az)};
    }

    void spiral(const Element& e, ShapeElement& solved)
    {
        const double side = e.clockwise ? 1 : -1;
        solved.r1 = side * *e.radiusStart;
        solved.r2 = side * *e.radiusEnd;
        solved.length = e.length ? *e.length : lengthOf(e, solved);
        if (solved.length <= 0) throw ExchangeError(e.place + "：length 应大于 0");
        const TruePoint end = TrueElementEnd({}, solved.length, solved.r1, solved.r2);
        solved.az = direction(e.start, e.end) - trig::atan2(end.y, end.x);
        if (!e.pi) return;
        const double tangent = distance(e.start, *e.pi);
        const double off = std::abs(tangent * trig::sin(smallest(direction(e.start, *e.pi) - solved.az)));
        if (off > 0.01) find(e, "PI 与起点切线", off);
    }

    /// Where a file leaves the length of a spiral out: the one that spans the chord.
    double lengthOf(const Element& e, const ShapeElement& solved)
    {
        const double chord = distance(e.start, e.end);
        const double bend = (std::abs(curvature(solved.r1)) + std::abs(curvature(solved.r2))) / 2;
        const auto spans = [&](double length) {
            const TruePoint end = TrueElementEnd({}, length, solved.r1, solved.r2);
            return std::hypot(end.x, end.y) >= chord;
        };
        // The chord grows with the length as long as the whole turn stays below half a circle.
        double low = chord, high = bend > 0 ? kPiTrue / bend : chord * 2;
        if (high < low || !spans(high)) throw ExchangeError(e.place + "：缺少 length");
        for (int i = 0; i < 60; ++i) (spans((low + high) / 2) ? high : low) = (low + high) / 2;
        m_reading.shape.findings.push_back(e.place + "：缺少 length，由两端和半径求出 " + FixedText(high, 4) + " 米");
        return high;
    }

    /// The file's own station of an element where it agrees with the lengths before it.
    void place(const Element& e, ShapeElement& solved)
    {
        if (e.station && std::abs(*e.station - m_station) <= kMillimetre)
            m_station = *e.station;
        else if (e.station)
            m_reading.shape.findings.push_back(e.place + "：staStart 与长度之和相差 " +
                                               MetresText(std::abs(*e.station - m_station)) + " 米，没有采用");
        solved.from = m_station;
        m_station += solved.length;
    }

    void close(ShapeElement& solved)
    {
        solved.az = turned(solved.az);
        const TruePoint end =
            TrueElementEnd({solved.x, solved.y, solved.az / kDegree}, solved.length, solved.r1, solved.r2);
        solved.endAz = end.azDeg * kDegree;
        solved.misfit = std::hypot(end.x - solved.endX, end.y - solved.endY);
        fits(solved.misfit);
        if (m_reading.shape.elements.empty()) return;
        const auto& before = m_reading.shape.elements.back();
        const double turn = std::abs(smallest(solved.az - before.endAz));
        if (turn > m_reading.shape.largestTurn) {
            m_reading.shape.largestTurn = turn;
            m_reading.shape.turnAt = solved.place;
        }
        const bool curved = solved.r1 != 0 || solved.r2 != 0 || before.r1 != 0 || before.r2 != 0;
        if (!curved || turn <= kDegree) return;
        ++m_reading.kinks;
        m_reading.shape.findings.push_back(solved.place + "：起点的切线与前一个单元的终点转了 " +
                                           FixedText(turn / kDegree, 2) + " 度，请检查 rot");
    }

    Reading& m_reading;
    double m_station;
};

Point exchanged(const Point& p) { return {p.east, p.north}; }

Reading read(const landxml::Alignment& road, bool exchange)
{
    const auto& elements = road.elements;
    Reading reading;
    Solver solver(reading, road.staStart);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Element e = elements[i];
        if (exchange) {
            e.start = exchanged(e.start);
            e.end = exchanged(e.end);
            if (e.center) e.center = exchanged(*e.center);
            if (e.pi) e.pi = exchanged(*e.pi);
        }
        // What has no length is no element: programs leave such pieces where two curves touch.
        if (distance(e.start, e.end) <= kNothing && e.length.value_or(0) <= kNothing) continue;
        solver.add(e, i);
    }
    return reading;
}

std::vector<std::string> gaps(const std::vector<Element>& elements, double most)
{
    std::vector<std::string> found;
    for (std::size_t i = 1; i < elements.size(); ++i) {
        const double gap = distance(elements[i - 1].end, elements[i].start);
        const std::string text = elements[i].place + "：起点与前一个单元的终点相差 " + MetresText(gap) + " 米";
        if (gap > most) throw ExchangeError(text + "，线路不相接，没有导入");
        if (gap > kMillimetre) found.push_back(text);
    }
    return found;
}

bool fits(const Reading& reading) { return reading.worst <= kMostMisfit && reading.kinks == 0; }

}  // namespace

Shape SolveShape(const landxml::Alignment& road, landxml::AngleUnit directionUnit, double most)
{
    const auto apart = gaps(road.elements, most);
    Reading reading = read(road, false);
    if (!fits(reading) && fits(read(road, true)))
        throw ExchangeError(
            "坐标只有按“东、北”的顺序才与各单元相符，而 LandXML 规定先北后东；请在导出的软件里改正顺序");
    if (reading.worst > kMostMisfit) {
        const auto& bad = reading.shape.elements[reading.worstAt];
        std::string text =
            bad.place + "：坐标、长度、半径和转向互相不符，相差 " + MetresText(reading.worst) + " 米，没有导入";
        for (const auto& finding : reading.shape.findings) text += "\n" + finding;
        throw ExchangeError(text);
    }
    if (reading.shape.elements.empty()) throw ExchangeError("线路“" + road.name + "”的单元都没有长度");
    reading.shape.findings.insert(reading.shape.findings.begin(), apart.begin(), apart.end());
    const auto directions = CheckDirections(road, reading.shape, directionUnit);
    reading.shape.findings.insert(reading.shape.findings.end(), directions.begin(), directions.end());
    return std::move(reading.shape);
}
