#include "exchange/ImportProfile.h"

#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/Elevation.h"
#include "exchange/NumberText.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>

using landxml::GradePoint;
using landxml::Profile;

namespace {

double grade(const GradePoint& a, const GradePoint& b) { return (b.elevation - a.elevation) / (b.station - a.station); }

/// A grade point with its neighbours' grades.
struct Bend {
    const GradePoint& at;
    double before, after;

    /// Radius by which the engine lays out the curve: its tangent is half of radius times difference of grades.
    double radius() const
    {
        if (at.kind == GradePoint::Circle) return at.radius;
        return at.kind == GradePoint::Corner || before == after ? 0 : at.length / std::abs(after - before);
    }
    double tangent() const
    {
        if (at.kind == GradePoint::Corner || before == after) return 0;
        if (at.kind == GradePoint::Parabola) return at.length / 2;
        return std::abs(at.radius) * trig::tan(std::abs(trig::atan(after) - trig::atan(before)) / 2) *
               trig::cos(trig::atan(before));
    }
    /// The file's own elevation within the curve. Source of the arc: its centre lies on the normal of the first tangent
    /// point.
    double elevation(double station) const
    {
        const double t = tangent(), start = at.station - t, low = at.elevation - before * t, x = station - start;
        if (t == 0) return at.elevation + (station - at.station) * (station < at.station ? before : after);
        if (at.kind == GradePoint::Parabola) return low + before * x + (after - before) * x * x / (4 * t);
        const double side = after > before ? 1 : -1, a = trig::atan(before), radius = std::abs(at.radius);
        const double center = start - side * radius * trig::sin(a), height = low + side * radius * trig::cos(a);
        return height - side * std::sqrt(std::max(0.0, radius * radius - (station - center) * (station - center)));
    }
};

Bend bendAt(const std::vector<GradePoint>& p, std::size_t i)
{
    return {p[i], grade(p[i - 1], p[i]), grade(p[i], p[i + 1])};
}

std::string joined(std::initializer_list<std::string> fields)
{
    std::string line;
    for (const auto& field : fields) line += (line.empty() ? "" : ",") + field;
    return line;
}

std::string stationText(double station) { return FixedText(station, 3); }

/// Why a profile cannot be one of this program, "" where it can.
std::string faultOf(const std::vector<GradePoint>& points)
{
    if (points.size() < 2) return "少于两个点";
    if (points.front().kind != GradePoint::Corner || points.back().kind != GradePoint::Corner)
        return "起点或终点上有竖曲线";
    for (std::size_t i = 1; i < points.size(); ++i)
        if (points[i].station <= points[i - 1].station)
            return "变坡点 " + stationText(points[i].station) + " 不在前一点之后";
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        if (points[i].kind == GradePoint::Circle && points[i].radius == 0)
            return "变坡点 " + stationText(points[i].station) + " 的 radius 为 0";
    return {};
}

}  // namespace

std::vector<std::string> ProfileLines(const Profile& profile, const Stations& stations,
                                      std::vector<std::string>& report)
{
    auto points = profile.points;
    const auto leftOut = [&](const std::string& why) {
        report.push_back("没有导入纵断面“" + profile.name + "”：" + why);
        return std::vector<std::string>();
    };
    if (const auto fault = faultOf(points); !fault.empty()) return leftOut(fault);
    if (points.size() == 2) {  // the program wants a point between, a straight grade has none
        GradePoint middle{.station = (points[0].station + points[1].station) / 2,
                          .elevation = (points[0].elevation + points[1].elevation) / 2};
        points.insert(points.begin() + 1, middle);
        report.push_back("纵断面只有一个坡段：中间加了一个没有竖曲线的变坡点 " + stationText(middle.station));
    }
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& p = points[i];
        const auto stake = stations.nominal(p.station);
        if (!stake) return leftOut("变坡点 " + stationText(p.station) + " 在断链重复段的第二段，参数文件里写不出来");
        const auto first = ShortestText(*stake), second = ShortestText(p.elevation);
        const bool inner = i > 0 && i + 1 < points.size();
        lines.push_back(inner ? joined({first, second, ShortestText(std::abs(bendAt(points, i).radius()))})
                              : joined({first, second}));
        if (i == 0) continue;
        const double room = p.station - points[i - 1].station;
        const double wanted = (inner ? bendAt(points, i).tangent() : 0) + (i > 1 ? bendAt(points, i - 1).tangent() : 0);
        if (wanted > room + kMillimetre)
            report.push_back("纵断面 " + stationText(points[i - 1].station) + " 到 " + stationText(p.station) +
                             "：竖曲线重叠 " + MetresText(wanted - room) + " 米");
    }
    return lines;
}

double ProfileDeviation(const Tables& tables, const Profile& profile, double& where)
{
    double largest = 0;
    const auto look = [&](double station, double elevation) {
        double computed = 0;
        const bool found = attempt([&] { computed = elevationAt(tables, station, 0); });
        const double off = found ? std::abs(computed - elevation) : HUGE_VAL;
        if (off <= largest) return;
        largest = off;
        where = station;
    };
    const auto& p = profile.points;
    look(p.front().station, p.front().elevation);
    look(p.back().station, p.back().elevation);
    for (std::size_t i = 1; i + 1 < p.size(); ++i) {
        const Bend bend = bendAt(p, i);
        for (const double part : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
            const double station = p[i].station + part * bend.tangent();
            look(station, bend.elevation(station));
        }
    }
    return largest;
}

namespace {

/// Cross slopes at a station, percent.
struct Slopes {
    double station, left, right;
};

/// The road's side at a station: 1 in a right curve, -1 in a left one, 0 on a straight or off the road.
int sideAt(const Shape& shape, double station)
{
    for (const auto& e : shape.elements) {
        if (station < e.from + e.length + kMillimetre && station >= e.from - kMillimetre) {
            const double r = e.r2 != 0 ? e.r2 : e.r1;
            if (r != 0) return r > 0 ? 1 : -1;
        }
    }
    return 0;
}

/// The slopes along one curve. Outside and inside keep one rate of turning from crown to full slope, so the crown on
/// the tangent follows from the lengths of run-out and run-off.
/// Source: AASHTO, A Policy on Geometric Design of Highways and Streets, chapter 3, superelevation transition: the rate
/// of the tangent runout is that of the runoff.
std::vector<Slopes> curveSlopes(const landxml::Superelevation& s, int side)
{
    const double full = std::abs(*s.slope);
    const double crownIn = full * (*s.beginRunoff - *s.beginRunout) / (*s.full - *s.beginRunoff);
    const double crownOut = full * (*s.endRunout - *s.startRunout) / (*s.startRunout - *s.runoff);
    std::vector<Slopes> points;
    const auto add = [&](double station, double outside, double inside) {
        points.push_back(side > 0 ? Slopes{station, outside, inside} : Slopes{station, inside, outside});
    };
    const auto meets = [](double from, double to, double crown, double slope) {
        return from + (to - from) * crown / slope;
    };
    add(*s.beginRunout, -crownIn, -crownIn);
    add(*s.beginRunoff, 0, -crownIn);
    if (crownIn < full) add(meets(*s.beginRunoff, *s.full, crownIn, full), crownIn, -crownIn);
    add(*s.full, full, -full);
    add(*s.runoff, full, -full);
    if (crownOut < full) add(meets(*s.startRunout, *s.runoff, crownOut, full), crownOut, -crownOut);
    add(*s.startRunout, 0, -crownOut);
    add(*s.endRunout, -crownOut, -crownOut);
    return points;
}

bool complete(const landxml::Superelevation& s)
{
    return s.beginRunout && s.beginRunoff && s.full && s.slope && s.runoff && s.startRunout && s.endRunout;
}

bool rises(const landxml::Superelevation& s)
{
    return *s.beginRunout < *s.beginRunoff && *s.beginRunoff < *s.full && *s.full <= *s.runoff &&
           *s.runoff < *s.startRunout && *s.startRunout < *s.endRunout;
}

}  // namespace

std::vector<std::string> SuperelevationLines(const landxml::Alignment& road, const Shape& shape,
                                             const Stations& stations, std::vector<std::string>& report)
{
    std::vector<Slopes> points;
    std::size_t number = 0;
    for (const auto& s : road.superelevations) {
        const std::string place = "第" + std::to_string(++number) + "个超高（Superelevation）";
        if (!complete(s)) {
            report.push_back("没有导入" + place + "：缺少路拱渐变、超高渐变、全超高的桩号或全超高坡度");
            continue;
        }
        const int side = sideAt(shape, *s.full);
        if (!rises(s) || side == 0 || *s.slope == 0) {
            report.push_back("没有导入" + place + "：" +
                             (!rises(s)   ? "桩号不是依次增大的"
                              : side == 0 ? "全超高的桩号不在曲线上"
                                          : "全超高坡度是 0"));
            continue;
        }
        if (std::abs(*s.slope) < 0.2)
            report.push_back(place + "的全超高坡度是 " + ShortestText(*s.slope) + "%，请检查：文件里应是百分数");
        const auto slopes = curveSlopes(s, side);
        if (!points.empty() && slopes.front().station < points.back().station - kMillimetre) {
            report.push_back("没有导入" + place + "：与前一个超高重叠");
            continue;
        }
        points.insert(points.end(), slopes.begin(), slopes.end());
    }
    std::vector<std::string> lines;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto &a = points[i - 1], &b = points[i];
        if (b.station - a.station <= kMillimetre) continue;
        const auto from = stations.nominal(a.station), to = stations.nominal(b.station);
        if (!from || !to) {
            report.push_back("没有导入超高：" + stationText(from ? b.station : a.station) +
                             " 在断链重复段的第二段，参数文件里写不出来");
            return {};
        }
        const auto slope = [](double percent) { return ShortestText(std::round(percent * 1e8) / 1e8); };
        lines.push_back(joined(
            {ShortestText(*from), slope(a.left), slope(a.right), ShortestText(*to), slope(b.left), slope(b.right)}));
    }
    return lines;
}
