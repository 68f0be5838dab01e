#include "exchange/FieldPoints.h"

#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"
#include "exchange/RoadElements.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr double kSame = 0.0005;  // two stakes with one name, m

double continuousOf(const Tables& t, double typed)
{
    const auto stake = ResolveStake(t, typed, kDgdZb);
    if (!stake) throw ExchangeError("桩号 " + ShortestText(typed) + " 不存在，请检查断链数据！");
    return *stake;
}

std::string kindOf(const RoadElement& before, const RoadElement& after)
{
    const auto line = [](const RoadElement& e) { return e.r1 == 0 && e.r2 == 0; };
    const auto arc = [](const RoadElement& e) { return e.r1 == e.r2 && e.r1 != 0; };
    if (line(before)) return line(after) ? "ZD" : arc(after) ? "ZY" : "ZH";
    if (arc(before)) return line(after) ? "YZ" : arc(after) ? "ZD" : "YH";
    return line(after) ? "HZ" : arc(after) ? "HY" : before.r2 == 0 && after.r1 == 0 ? "GQ" : "ZD";
}

std::string replaced(std::string text, std::string_view key, const std::string& value)
{
    for (auto at = text.find(key); at != std::string::npos; at = text.find(key, at + value.size()))
        text.replace(at, key.size(), value);
    return text;
}

}  // namespace

std::vector<ExtraPoint> MainPoints(const Tables& tables, const RoadFiles& files)
{
    const auto elements = RoadElements(tables, files, nullptr);
    std::vector<ExtraPoint> points;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto& e = elements[i];
        if (i > 0) points.push_back({.continuous = e.stake, .code = kindOf(elements[i - 1], e)});
        if (e.r1 == e.r2 && e.r1 != 0) points.push_back({.continuous = e.stake + e.length / 2, .code = "QZ"});
    }
    return points;
}

std::vector<ExtraPoint> BreakPoints(const Tables& t)
{
    std::vector<ExtraPoint> points;
    if (t.hasDl)
        for (std::size_t i = 0; i <= static_cast<std::size_t>(t.dlCount) && i < t.dlBack.size(); ++i)
            points.push_back({.continuous = t.dlBack[i], .code = "DL"});
    return points;
}

FieldPoints::FieldPoints(const Tables& tables, const FieldRun& run) : m_tables(tables), m_run(run), m_extra(run.extra)
{
    if (std::any_of(run.pattern.begin(), run.pattern.end(), [](unsigned char c) { return c < 0x21 || c > 0x7E; }))
        throw ExchangeError("点号的样式“" + run.pattern + "”只能用不带空格的英文字符");
    if (tables.elemLc.empty()) throw ExchangeError("项目没有平曲线");
    std::stable_sort(m_extra.begin(), m_extra.end(),
                     [](const auto& a, const auto& b) { return a.continuous < b.continuous; });
    if (run.step < 0) throw ExchangeError("间距不能是负数");
    const double infinite = std::numeric_limits<double>::infinity();
    m_begin = run.step > 0 ? continuousOf(tables, run.from) : -infinite;
    m_end = run.step > 0 ? continuousOf(tables, run.to) : infinite;
    std::erase_if(m_extra,
                  [&](const ExtraPoint& p) { return p.continuous < m_begin - kSame || p.continuous > m_end + kSame; });

    double from = -infinite, amount = 0, second = -infinite;
    for (const auto& b : BreakPoints(tables)) {
        m_stretches.push_back({from, b.continuous, amount, second});
        const auto i = m_stretches.size() - 1;
        const double back = b.continuous + amount;
        from = b.continuous;
        amount += tables.dlCum[i];
        second = tables.dlCum[i] < 0 ? std::max(second, back) : second;
    }
    m_stretches.push_back({from, infinite, amount, second});
    m_ahead = nextStake();
}

double FieldPoints::count() const
{
    const double stakes = m_run.step > 0 ? std::max(0.0, std::floor((m_end - m_begin) / m_run.step + 1)) : 0;
    return stakes * static_cast<double>(m_run.offsets.size()) + static_cast<double>(m_extra.size());
}

std::optional<double> FieldPoints::nextStake()
{
    if (!(m_run.step > 0)) return std::nullopt;
    for (; m_stretch < m_stretches.size(); ++m_stretch, m_number = 0) {
        const auto& s = m_stretches[m_stretch];
        const double begin = std::max(s.begin, m_begin), end = std::min(s.end, m_end);
        if (!(begin <= end)) continue;
        // Whole steps from the first stake, counted in the numbers that stand on the stakes.
        const double origin = std::abs(m_run.from), first = std::ceil((begin + s.amount - origin) / m_run.step - 1e-9);
        while (true) {
            const double stake = origin + (first + m_number) * m_run.step - s.amount;
            if (stake > end + 1e-9) break;
            ++m_number;
            // The break's own point has its name from the stretch before.
            if (s.begin != begin || stake - begin >= kSame || begin <= m_begin) return stake;
        }
    }
    return std::nullopt;
}

double FieldPoints::nominal(double continuous) const
{
    const auto after = std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [&](const Stretch& s) { return continuous <= s.end + 1e-9; });
    const auto& s = after == m_stretches.end() ? m_stretches.back() : *after;
    const double value = continuous + s.amount;
    return value <= s.secondUntil + 1e-9 ? -value : value;
}

std::string FieldName(const std::string& pattern, const FieldPoint& point)
{
    const auto millimetres = std::llround(std::abs(point.stake) * 1000);
    std::string stake = std::to_string(millimetres), offset;
    if (stake.size() < 8) stake.insert(0, 8 - stake.size(), '0');
    if (point.stake < 0) stake.insert(0, 1, '-');
    const std::string side = point.offset < 0 ? "L" : point.offset > 0 ? "R" : "";
    if (point.offset != 0) {
        offset = ShortestText(std::round(std::abs(point.offset) * 1000) / 1000);
        if (std::min(offset.find('.'), offset.size()) < 2) offset.insert(0, 1, '0');
    }
    std::string name = replaced(replaced(pattern, "{stake}", stake), "{side}", side);
    return replaced(replaced(name, "{offset}", offset), "{code}", point.code);
}

std::optional<FieldPoint> FieldPoints::made(const ExtraPoint& extra)
{
    FieldPoint point{.code = extra.code, .stake = nominal(extra.continuous), .offset = extra.offset};
    if (extra.x && extra.y) {
        point.x = *extra.x;
        point.y = *extra.y;
    } else {
        const auto at = pointAt(m_tables, extra.continuous, extra.offset < 0 ? 270 : 90, std::abs(extra.offset));
        if (!at || at->error) return std::nullopt;
        point.x = at->x;
        point.y = at->y;
    }
    const auto& t = m_tables;
    const auto last = static_cast<std::size_t>(std::max<int>(t.sqxCount, 0));
    if (last > 1 && t.sqxLc.size() > last) {
        if (extra.continuous >= t.sqxLc.front() - 1e-6 && extra.continuous <= t.sqxLc[last] + 1e-6)
            attempt([&] { point.h = elevationAt(t, extra.continuous, extra.offset); });
        else
            ++m_beyond;
    }
    point.name = extra.name.empty() ? FieldName(m_run.pattern, point) : extra.name;
    return point;
}

std::optional<FieldPoint> FieldPoints::next()
{
    while (true) {
        if (m_stake && m_offset < m_run.offsets.size()) {
            const double offset = m_run.offsets[m_offset++];
            if (offset == 0 && m_skipCentre) continue;
            const char* code = offset < 0 ? "ZB" : offset > 0 ? "YB" : "ZZ";
            const double stake = *m_stake;
            if (auto point = made({.continuous = stake, .offset = offset, .code = code})) return point;
            continue;
        }
        if (m_stake) m_skipCentre = false;
        m_stake.reset();
        const bool extra =
            m_nextExtra < m_extra.size() && (!m_ahead || m_extra[m_nextExtra].continuous <= *m_ahead + kSame);
        if (extra) {
            const auto& point = m_extra[m_nextExtra++];
            // A main point on a stake of the run has its name; the run leaves that one out.
            if (m_ahead && point.offset == 0 && point.name.empty() && std::abs(point.continuous - *m_ahead) < kSame)
                m_skipCentre = true;
            if (auto result = made(point)) return result;
            continue;
        }
        if (!m_ahead) return std::nullopt;
        m_stake = m_ahead;
        m_ahead = nextStake();
        m_offset = 0;
    }
}
