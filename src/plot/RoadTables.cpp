// The road as the tables hold it: elements, numbers along it, main points, polygon.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "plot/Road.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot {

namespace {

constexpr double kShortest = 1e-4;  // m: a spiral of length 0 counts as 0.000001 in the tables

Bend bendOf(double r1, double r2)
{
    if (r1 == r2) return r1 == 0 ? Bend::Straight : Bend::Arc;
    return Bend::Spiral;
}

}  // namespace

Road::Road(const Tables& tables) : m_tables(&tables)
{
    if (tables.elemCount < 1 || tables.elemLc.size() <= static_cast<std::size_t>(tables.elemCount)) {
        if (tables.sqxLc.empty()) return;
        // A profile alone: its stakes have their numbers, too.
        m_start = tables.sqxLc.front();
        m_end = tables.sqxLc.back();
        findPieces();
        return;
    }
    m_origin = {std::floor(tables.elemY[0]), std::floor(tables.elemX[0])};
    readElements();
    findPieces();
    findMainPoints();
    findPolygon();
}

void Road::readElements()
{
    const Tables& t = *m_tables;
    const auto last = static_cast<std::size_t>(t.elemCount);
    m_start = t.elemLc[0];
    // The closing row lies a little behind the end, so that the end itself is found.
    m_end = fromIntersectionPoints(t) ? t.jdLc.back() : t.elemLc[last] - 0.0001;
    for (std::size_t i = 0; i < last; ++i) {
        Element e{.row = i,
                  .from = t.elemLc[i],
                  .to = i + 1 == last ? m_end : t.elemLc[i + 1],
                  .r1 = t.elemR1[i],
                  .r2 = t.elemR2[i],
                  .bend = bendOf(t.elemR1[i], t.elemR2[i])};
        e.start = {local(t.elemX[i], t.elemY[i]), DmsToDeg(t.elemFwj[i])};
        if (!(std::abs(e.length()) > kShortest) || !attempt([&] { e.end = poseOn(e, e.to); })) continue;
        for (const auto& [stake, pose] : flattened(e, e.from, e.to, std::max(1.0, std::abs(e.length()) / 200)))
            e.box.add(pose.at);
        e.box = e.box.grown(std::max(1.0, std::abs(e.length()) / 200));
        m_box.add(e.box);
        m_elements.push_back(e);
    }
}

void Road::findPieces()
{
    const Tables& t = *m_tables;
    m_pieces.clear();
    const auto nominal = [&](double stake) { return ToNominal(t, stake); };
    const auto shiftAt = [&](double stake) { return nominal(stake).value - stake; };
    if (!t.hasDl || t.dlBack.empty()) {
        m_pieces.push_back({m_start, m_end, 0, false});
        return;
    }
    double earlier = 0;
    for (std::size_t i = 0; i < t.dlBack.size() && i <= static_cast<std::size_t>(std::max<int>(t.dlCount, 0)); ++i) {
        const double at = t.dlBack[i];
        if (at >= m_start && at <= m_end && t.dlCum[i] != 0)
            m_breaks.push_back({at, at + earlier, t.dlAhead[i] + earlier});
        earlier += t.dlCum[i];
    }
    // Where the numbers jump is asked of the map itself, whose rules are its own: by steps, then by halving.
    std::vector<double> asked{m_start};
    const double step = std::max(1.0, (m_end - m_start) / 20000);
    for (double s = m_start; s < m_end; s += step) asked.push_back(s);
    for (std::size_t i = 0; i < t.dlBack.size(); ++i)
        for (const double s : {t.dlBack[i], t.dlBack[i] - t.dlCum[i]})
            for (const double near : {s - 0.002, s + 0.002})
                if (near > m_start && near < m_end) asked.push_back(near);
    asked.push_back(m_end);
    std::sort(asked.begin(), asked.end());
    const auto same = [&](double a, double b) {
        return std::abs(shiftAt(a) - shiftAt(b)) < 0.0015 && nominal(a).secondPass == nominal(b).secondPass;
    };
    double from = m_start;
    const auto close = [&](double to) {
        const double middle = (from + to) / 2;
        m_pieces.push_back({from, to, std::round(shiftAt(middle) * 1000) / 1000, nominal(middle).secondPass});
        from = to;
    };
    for (std::size_t i = 1; i < asked.size(); ++i) {
        double a = asked[i - 1], b = asked[i];
        if (same(a, b)) continue;
        for (int halving = 0; halving < 40 && b - a > 1e-6; ++halving) {
            const double middle = (a + b) / 2;
            (same(a, middle) ? a : b) = middle;
        }
        close(b);
    }
    close(m_end);
}

void Road::findMainPoints()
{
    const auto between = [](Bend a, Bend b) -> const char* {
        if (a == Bend::Straight) return b == Bend::Spiral ? "ZH" : b == Bend::Arc ? "ZY" : nullptr;
        if (b == Bend::Straight) return a == Bend::Spiral ? "HZ" : "YZ";
        if (a == Bend::Spiral && b == Bend::Arc) return "HY";
        if (a == Bend::Arc && b == Bend::Spiral) return "YH";
        return "GQ";
    };
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        const Element& e = m_elements[i];
        if (i == 0)
            m_mainPoints.push_back({"起点", e.from, e.start});
        else if (const char* name = between(m_elements[i - 1].bend, e.bend);
                 name && !(m_elements[i - 1].bend == e.bend && e.bend == Bend::Arc && m_elements[i - 1].r1 == e.r1))
            m_mainPoints.push_back({name, e.from, e.start});
        if (e.bend == Bend::Arc && e.length() > 0) {
            const double middle = (e.from + e.to) / 2;
            m_mainPoints.push_back({"QZ", middle, poseOn(e, middle)});
        }
    }
    if (!m_elements.empty()) m_mainPoints.push_back({"终点", m_elements.back().to, m_elements.back().end});
    for (std::size_t i = 0; i < m_mainPoints.size(); ++i) {
        MainPoint& p = m_mainPoints[i];
        p.room = std::numeric_limits<double>::infinity();
        if (i > 0) p.room = std::abs(p.stake - m_mainPoints[i - 1].stake);
        if (i + 1 < m_mainPoints.size()) p.room = std::min(p.room, std::abs(m_mainPoints[i + 1].stake - p.stake));
        p.label = p.name + " " + stakeText(p.stake);
    }
}

void Road::findPolygon()
{
    const Tables& t = *m_tables;
    if (!fromIntersectionPoints(t)) return;
    const std::size_t n = t.jdLc.size() - 1;
    for (std::size_t i = 0; i <= n; ++i) {
        Vertex v{.name = i > 0 && i < n && i < t.zdJd.size() ? t.zdJd[i] : "", .at = local(t.jdX[i], t.jdY[i])};
        if (i > 0 && i < n) {
            const double before = DmsToDeg(Azimuth(t.jdX[i] - t.jdX[i - 1], t.jdY[i] - t.jdY[i - 1]));
            const double behind = DmsToDeg(Azimuth(t.jdX[i + 1] - t.jdX[i], t.jdY[i + 1] - t.jdY[i]));
            v.turnDeg = std::remainder(behind - before, 360);
            v.radius = std::abs(t.jdR[i]);
            v.ls1 = i < t.zdLs1.size() ? t.zdLs1[i] : t.jdLs1[i];
            v.ls2 = i < t.zdLs2.size() ? t.zdLs2[i] : t.jdLs2[i];
            v.t1 = t.jdT1[i];
            v.t2 = t.jdT2[i];
            v.length = t.jdL[i];
        }
        m_polygon.push_back(std::move(v));
    }
}

}  // namespace plot
