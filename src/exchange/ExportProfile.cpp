#include "exchange/ExportProfile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

using landxml::GradePoint;
using landxml::Superelevation;

std::optional<landxml::Profile> ProfileOf(const Tables& t)
{
    const auto last = static_cast<std::size_t>(std::max<int>(t.sqxCount, 0));
    if (last < 2 || t.sqxLc.size() <= last) return std::nullopt;
    landxml::Profile profile{.name = "纵断面", .points = {}};
    const auto grade = [&](std::size_t i) {
        const double run = t.sqxLc[i + 1] - t.sqxLc[i];
        return run == 0 ? 0 : (t.sqxGc[i + 1] - t.sqxGc[i]) / run;
    };
    for (std::size_t i = 0; i <= last; ++i) {
        GradePoint point{.station = t.sqxLc[i], .elevation = t.sqxGc[i]};
        if (i > 0 && i < last) point.length = std::abs((grade(i) - grade(i - 1)) * t.sqxR[i]);
        if (point.length > 0) point.kind = GradePoint::Parabola;
        profile.points.push_back(point);
    }
    return profile;
}

bool SameProfiles(const std::optional<landxml::Profile>& a, const std::optional<landxml::Profile>& b)
{
    if (!a || !b) return a.has_value() == b.has_value();
    return std::equal(a->points.begin(), a->points.end(), b->points.begin(), b->points.end(),
                      [](const GradePoint& p, const GradePoint& q) {
                          return p.kind == q.kind && std::abs(p.station - q.station) < 1e-6 &&
                                 std::abs(p.elevation - q.elevation) < 1e-6 && std::abs(p.length - q.length) < 1e-6;
                      });
}

namespace {

/// The slopes of a road as rows, percent.
class Slopes {
public:
    explicit Slopes(const Tables& t) : m_t(t) {}

    std::size_t size() const { return m_t.cgLc.empty() ? 0 : static_cast<std::size_t>(m_t.cgCount) + 1; }
    double station(std::size_t i) const { return m_t.cgLc[i]; }
    bool crown(std::size_t i) const { return std::abs(m_t.cgA[i] - m_t.cgB[i]) < 1e-12; }
    bool full(std::size_t i) const { return std::abs(m_t.cgA[i] + m_t.cgB[i]) < 1e-12 && m_t.cgA[i] != 0; }
    bool steeper(std::size_t i, std::size_t than) const
    {
        return std::abs(m_t.cgA[i]) > std::abs(m_t.cgA[than]) + 1e-12;
    }
    double percent(std::size_t i) const { return std::abs(m_t.cgA[i]) * 100; }
    bool leftUp(std::size_t i) const { return m_t.cgA[i] > 0; }
    /// Where the outside passes 0 between rows `from` and `to`.
    std::optional<double> level(std::size_t from, std::size_t to, bool left) const
    {
        const auto& side = left ? m_t.cgA : m_t.cgB;
        for (std::size_t i = from; i < to; ++i)
            if ((side[i] <= 0) != (side[i + 1] <= 0) || side[i] == 0)
                return side[i] == side[i + 1]
                           ? station(i)
                           : station(i) - side[i] * (station(i + 1) - station(i)) / (side[i + 1] - side[i]);
        return std::nullopt;
    }

private:
    const Tables& m_t;
};

}  // namespace

std::vector<Superelevation> SuperelevationsOf(const Tables& t)
{
    const Slopes slopes(t);
    std::vector<Superelevation> all;
    for (std::size_t begin = 0; begin < slopes.size(); ++begin) {
        if (!slopes.crown(begin)) continue;
        std::size_t end = begin + 1;
        while (end < slopes.size() && !slopes.crown(end)) ++end;
        if (end >= slopes.size()) break;
        std::size_t top = begin;
        for (auto i = begin + 1; i < end; ++i)
            if (slopes.full(i) && (top == begin || slopes.steeper(i, top))) top = i;
        if (top == begin) continue;
        std::size_t last = top;
        while (last + 1 < end && slopes.full(last + 1) && !slopes.steeper(top, last + 1)) ++last;
        const bool left = slopes.leftUp(top);
        const auto up = slopes.level(begin, top, left), down = slopes.level(last, end, left);
        if (!up || !down) continue;
        all.push_back({slopes.station(begin), *up, slopes.station(top), slopes.percent(top), slopes.station(last),
                       *down, slopes.station(end)});
    }
    return all;
}

bool SameSuperelevations(const std::vector<Superelevation>& a, const std::vector<Superelevation>& b)
{
    const auto same = [](const std::optional<double>& x, const std::optional<double>& y) {
        return x.has_value() == y.has_value() && (!x || std::abs(*x - *y) < 1e-6);
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const Superelevation& x, const Superelevation& y) {
        return same(x.beginRunout, y.beginRunout) && same(x.beginRunoff, y.beginRunoff) && same(x.full, y.full) &&
               same(x.slope, y.slope) && same(x.runoff, y.runoff) && same(x.startRunout, y.startRunout) &&
               same(x.endRunout, y.endRunout);
    });
}
