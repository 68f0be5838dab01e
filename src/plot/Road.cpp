#include "plot/Road.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Elevation.h"
#include "engine/FastRoute.h"
#include "engine/XYToStake.h"
#include "plot/Angles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace plot {

namespace {

double curvatureOf(double radius) { return radius == 0 ? 0 : 1 / radius; }

/// The number that is nearest to a power of ten. Not every system's pow gives it.
double powerOfTen(int exponent)
{
    const std::string text = "1e" + std::to_string(exponent);
    double power = 1;
    std::from_chars(text.data(), text.data() + text.size(), power);
    return power;
}

}  // namespace

// --- Numbers ---------------------------------------------------------------------------------------------------------

std::string fixed(double value, int decimals)
{
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    std::string text = buffer.data();
    if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
    return text;
}

std::string shortest(double value, int decimals)
{
    std::string text = fixed(value, decimals);
    if (text.find('.') == std::string::npos) return text;
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

double niceStep(double least)
{
    if (!(least > 0)) return 1;
    const double power = powerOfTen(static_cast<int>(std::floor(std::log10(least))));
    for (const double times : {1.0, 2.0, 5.0})
        if (times * power >= least * 0.999999) return times * power;
    return 10 * power;
}

bool fromIntersectionPoints(const Tables& t)
{
    return t.elemCount > 0 && t.jdLc.size() > 1 && static_cast<std::size_t>(t.elemCount) < t.elemLc.size() &&
           t.elemLc[static_cast<std::size_t>(t.elemCount)] == t.jdLc.back() + 0.01;
}

std::optional<double> surfaceAt(const Tables& t, double stake, double offset, const GradeIndex* index)
{
    if (t.sqxLc.empty() || stake < t.sqxLc.front() - 1e-6 || stake > t.sqxLc.back() + 1e-6) return {};
    std::optional<double> found;
    attempt([&] { found = checked(elevationAt(t, stake, offset, index)); });
    return found;
}

std::optional<double> crossfallAt(const Tables& t, double stake, int side)
{
    const RoadSection section = sectionAt(t, stake);
    const auto& half = side < 0 ? section.left : section.right;
    const double roadway = half.width - half.shoulder, lane = roadway - section.halfMedian;
    const auto inner = surfaceAt(t, stake, 0), outer = surfaceAt(t, stake, side * roadway);
    if (!(lane > 0) || !inner || !outer) return {};
    return (*outer - *inner) / lane;
}

std::optional<double> Element::parameter() const
{
    const double change = std::abs(curvatureOf(r2) - curvatureOf(r1));
    if (bend != Bend::Spiral || change == 0) return {};
    return std::sqrt(std::abs(length()) / change);
}

// --- Points of the line ----------------------------------------------------------------------------------------------

Pose Road::poseOn(const Element& e, double stake) const
{
    const double along = stake - e.from;
    if (e.bend == Bend::Straight) return {e.start.at + along * alongAzimuth(e.start.azDeg), e.start.azDeg};
    if (e.bend == Bend::Arc) {
        const double az = e.start.azDeg + degreesOf(along / e.r1);
        return {e.start.at + e.r1 * (rightOf(e.start.azDeg) - rightOf(az)), az};
    }
    const Tables& t = *m_tables;
    // The closed form lies within a nanometre of the plain sum where a bound is known; no drawing shows more.
    if (const FastRoute* route = fastRoute(t))
        if (const auto p = boundedPoint(*route, e.row + 1, stake, 0, 0)) return {local(p->x, p->y), p->fwjDeg};
    const auto p = elementEnd(along, curvatureOf(e.r1), curvatureOf(e.r2), t.elemFwj[e.row], t.elemX[e.row],
                              t.elemY[e.row], t.elemLc[e.row + 1] - t.elemLc[e.row]);
    return {local(p.x, p.y), p.fwjDeg};
}

const Element* Road::elementAt(double stake) const
{
    for (const auto& e : m_elements)
        if (e.from <= stake && (stake < e.to || (&e == &m_elements.back() && stake <= e.to))) return &e;
    return nullptr;
}

std::optional<Pose> Road::poseAt(double stake) const
{
    const Element* e = elementAt(stake);
    if (!e) return {};
    return poseOn(*e, stake);
}

std::vector<StakePose> Road::flattened(const Element& e, double from, double to, double tolerance) const
{
    double n = 1;
    if (e.bend != Bend::Straight) {
        const double bend = std::max(std::abs(curvatureOf(e.r1)), std::abs(curvatureOf(e.r2)));
        n = std::ceil(std::abs(to - from) / std::max(std::sqrt(8 * tolerance / bend), 1e-3));
    }
    const int pieces = static_cast<int>(std::clamp(n, 1.0, 4000.0));
    std::vector<StakePose> points;
    points.reserve(static_cast<std::size_t>(pieces) + 1);
    for (int i = 0; i <= pieces; ++i) {
        const double stake = i == pieces ? to : from + (to - from) * i / pieces;
        points.push_back({stake, poseOn(e, stake)});
    }
    return points;
}

Arc Road::arcOf(const Element& e, double from, double to) const
{
    const Point centre = e.start.at + e.r1 * rightOf(e.start.azDeg);
    const double first = angleOf(poseOn(e, from).at - centre), sweep = degreesOf(std::abs((to - from) / e.r1));
    // A bend to the right runs clockwise; so does one to the left whose stakes run backward.
    const bool clockwise = (e.r1 > 0) == (to > from);
    return {centre, std::abs(e.r1), clockwise ? first - sweep : first, clockwise ? first : first + sweep};
}

// --- The nearest point -----------------------------------------------------------------------------------------------

std::optional<FootPoint> Road::footOn(std::size_t index, Point p) const
{
    const Element& e = m_elements[index];
    double stake = e.from;
    const auto ahead = [&](const Pose& pose) {  // how far p lies ahead of the normal
        const Point d = p - pose.at, along = alongAzimuth(pose.azDeg);
        return d.x * along.x + d.y * along.y;
    };
    const auto clamp = [&](double s) { return std::clamp(s, std::min(e.from, e.to), std::max(e.from, e.to)); };
    if (e.bend == Bend::Straight) {
        stake = clamp(e.from + ahead(e.start));
    } else {
        double best = std::numeric_limits<double>::infinity();
        for (const auto& [at, pose] : flattened(e, e.from, e.to, std::max(0.05, std::abs(e.length()) / 100)))
            if (const double d = length(p - pose.at); d < best) best = d, stake = at;
        // Newton's method on the distance ahead of the normal: its derivative is offset times curvature less one.
        for (int round = 0; round < 12; ++round) {
            const Pose pose = poseOn(e, stake);
            const Point right = rightOf(pose.azDeg), d = p - pose.at;
            const double share = (stake - e.from) / e.length();
            const double bend = curvatureOf(e.r1) + share * (curvatureOf(e.r2) - curvatureOf(e.r1));
            const double slope = 1 - bend * (d.x * right.x + d.y * right.y);
            const double next = clamp(stake + ahead(pose) / std::max(slope, 0.05));
            if (std::abs(next - stake) < 1e-6) break;
            stake = next;
        }
    }
    const Pose pose = poseOn(e, stake);
    const Point d = p - pose.at, right = rightOf(pose.azDeg);
    const double side = d.x * right.x + d.y * right.y;
    // At the end of an element the normal may miss the point: then the distance itself says how near it is.
    return FootPoint{index, stake, std::copysign(length(d), side), pose};
}

std::optional<FootPoint> Road::footOf(Point p) const
{
    std::vector<std::pair<double, std::size_t>> near;
    near.reserve(m_elements.size());
    for (std::size_t i = 0; i < m_elements.size(); ++i) near.emplace_back(m_elements[i].box.distance(p), i);
    std::sort(near.begin(), near.end());
    std::optional<FootPoint> best;
    for (const auto& [least, index] : near) {
        if (best && least > std::abs(best->offset)) break;
        const auto found = footOn(index, p);
        if (found && (!best || std::abs(found->offset) < std::abs(best->offset) - 1e-9)) best = found;
    }
    return best;
}

// --- Stakes ----------------------------------------------------------------------------------------------------------

std::string Road::stakeText(double stake) const
{
    std::string text;
    attempt([&] {
        const NominalStake n = ToNominal(*m_tables, stake);
        text = (n.secondPass ? "-" : "") + FormatStake(RoundHalfUp3(n.value));
    });
    return text;
}

std::string Road::shortStakeText(double stake) const
{
    std::string text = stakeText(stake);
    if (text.ends_with(".000")) text.erase(text.size() - 4);
    return text;
}

}  // namespace plot
