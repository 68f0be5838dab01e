#include "check/CheckRoad.h"

#include "base/Numbers.h"
#include "base/ParameterFiles.h"
#include "check/CheckRules.h"
#include "geometry/TrueRoad.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace {

using std::to_string;

const FileShape kIntersections{
    .name = std::string(files::horizontal), .fields = 6, .textField = 0, .firstFields = 3, .lastFields = 2};
const FileShape kBlocks{.name = std::string(files::horizontal), .fields = 7, .closingRow = true};
const std::string& kName = kBlocks.name;

/// So many intersection points fill the four rows each, and one, that a 16-bit count can number.
constexpr std::size_t kMaxPoints = (std::numeric_limits<std::int16_t>::max() - 1) / 4;
/// Blocks that miss each other by less than the rounding of a drawing are taken to meet.
constexpr double kMeetMm = 2, kMeetSeconds = 1;

/// The polygon of intersection points.
class Points {
public:
    Points(std::shared_ptr<const CheckedFile> file, CheckedRoad& road, Findings& findings)
        : m_shared(std::move(file)), m_file(*m_shared), m_road(road), m_findings(findings)
    {}

    static void check(const std::shared_ptr<const CheckedFile>& file, CheckedRoad& road, CheckSteps& steps,
                      const std::shared_ptr<Findings>& findings)
    {
        const std::size_t n = file->size();
        if (n == 1) findings->add(kName, (*file)[0].line, 0, "只有一行，平曲线不会生成", Severity::Error);
        if (n < 2) return;
        CheckDuplicates(file, 1, n - 1, "交点编号", steps, *findings);
        const auto points = std::make_shared<Points>(file, road, *findings);
        steps.once([points] { points->begin(); });
        steps.rows(n, [points](std::size_t i) { points->vertex(i); });
        steps.once([points, findings] { points->finish(); });
    }

private:
    void begin()
    {
        counts();
        m_road.start = m_file[0].read(0);
    }

    struct Corner : TrueVertex {
        bool placed = false;  ///< X and Y can be read
        bool whole = false;   ///< and so can the rest
    };

    void add(std::size_t row, int field, std::string_view text, Severity severity = Severity::Warning)
    {
        m_findings.add(kName, m_file[row].line, field, text, severity);
    }

    void counts()
    {
        const std::size_t points = m_file.size() - 2;
        const auto more = [&](std::size_t limit, const std::string& text, Severity severity) {
            if (points > limit)
                m_findings.add({kName,
                                m_file[limit + 1].line,
                                0,
                                "共" + to_string(points) + "个交点，超过" + to_string(limit) + "个" + text,
                                {static_cast<double>(points), "个"},
                                severity});
        };
        more(kMaxMainPoint, "交点，主点表只列前500个", Severity::Warning);
        more(kMaxPoints, "，平曲线不会正确生成", Severity::Error);
    }

    Corner read(std::size_t i) const
    {
        const auto row = m_file[i];
        const bool first = i == 0, last = i + 1 == m_file.size();
        const auto x = row.read(last ? 0 : 1), y = row.read(last ? 1 : 2);
        Corner c;
        c.x = x.value_or(0);
        c.y = y.value_or(0);
        c.placed = x && y;
        c.whole = c.placed;
        if (first || last) return c;
        c.ls1 = row.number(3), c.ls2 = row.number(4), c.radius = row.number(5);
        c.whole = c.placed && row.read(3) && row.read(4) && row.read(5);
        return c;
    }

    /// Takes the corner at row `i`; the curve before it can be laid out then.
    void vertex(std::size_t i)
    {
        m_before = m_here;
        m_here = m_next;
        m_next = read(i);
        if (m_next.placed) m_road.points.push_back({m_next.x, m_next.y});
        if (i == 0) {
            if (m_next.placed) m_at = CheckedRoad::Point{m_next.x, m_next.y};
            m_joined = m_road.exact = m_next.placed;
            m_stake = m_road.start.value_or(0);
            return;
        }
        if (m_here.placed && m_next.placed && m_next.y == m_here.y && m_next.x < m_here.x) {
            add(i, 0, "与上一点的连线指向正南（Y坐标相同），其方位角按0计算", Severity::Error);
            m_sound = false;
        }
        if (i >= 2) curve(i - 1);
    }

    void curve(std::size_t i)
    {
        if (m_here.radius == 0) add(i, 6, "曲线半径为0，从这里到下一个ZH点的线形是错的", Severity::Error);
        if (m_here.radius < 0) add(i, 6, "曲线半径为负，右转时曲线会弯向另一侧", Severity::Error);
        const auto found = TrueCurves({m_before, m_here, m_next});
        const auto& curve = found.front();
        const bool placed = m_before.placed && m_here.placed && m_next.placed;
        if (!curve.valid && placed && m_here.radius != 0) add(i, 0, "与相邻两点在一条直线上，没有转角");
        if (!curve.valid || !placed || !m_here.whole) {
            // A corner on the straight line is passed without a bend; any other hides a part of the road.
            const bool passed = placed && m_here.whole && m_here.radius != 0 && m_here.ls1 == 0 && m_here.ls2 == 0;
            m_road.exact = m_road.exact && passed;
            m_joined = false;
            return;
        }
        const int line = m_file[i].line;
        m_findings.addMetres(kName, line, 0, "缓和曲线太长，曲线容不下，圆曲线长" + Metres(curve.arc) + "米，差",
                             -curve.arc, Severity::Error);
        const double straight = m_joined ? curve.leg - curve.t1 - m_tangent : chord(curve.zh.x, curve.zh.y);
        if (m_joined)
            m_findings.addMetres(kName, line, 0,
                                 "与上一点的切线重叠，两切线长之和" + Metres(curve.t1 + m_tangent) + "米大于边长" +
                                     Metres(curve.leg) + "米，里程会倒退",
                                 -straight, Severity::Error);
        m_stake += straight;
        if (-straight >= kTellMetres && m_sound && !m_road.arcs.empty()) m_road.arcs.pop_back();
        m_sound = m_sound && -straight < kTellMetres && -curve.arc < kTellMetres;
        if (m_sound && m_road.exact && m_road.start && curve.arc > 0) {
            const double from = m_stake + m_here.ls1;
            const bool right = curve.hz.azDeg > curve.zh.azDeg;
            m_road.arcs.push_back({from, from + curve.arc, right, m_here.ls1 > 0, m_here.ls2 > 0, line});
        }
        m_stake += curve.length;
        m_at = CheckedRoad::Point{curve.hz.x, curve.hz.y};
        m_tangent = curve.t2;
        m_leg = curve.nextLeg;
        m_joined = true;
    }

    void finish()
    {
        if (!m_next.placed)
            m_road.exact = false;
        else if (m_joined && m_file.size() > 2) {
            m_findings.addMetres(kName, m_file.back().line, 0, "终点在最后一个曲线的HZ点之前", m_tangent - m_leg,
                                 Severity::Error);
            m_stake += m_leg - m_tangent;
        } else
            m_stake += chord(m_next.x, m_next.y);
        if (m_road.start) m_road.end = m_stake;
    }

    /// The shortest way from the last known point, which may be none.
    double chord(double x, double y) const { return m_at ? std::hypot(x - m_at->x, y - m_at->y) : 0; }

    std::shared_ptr<const CheckedFile> m_shared;
    const CheckedFile& m_file;
    CheckedRoad& m_road;
    Findings& m_findings;
    Corner m_before, m_here, m_next;
    std::optional<CheckedRoad::Point> m_at;  ///< the last point of the road that is known
    bool m_joined = false;                   ///< nothing is hidden between it and the corner before
    double m_tangent = 0, m_leg = 0;         ///< behind the last curve
    double m_stake = 0;
    bool m_sound = true;  ///< so far the curves fit, and superelevation can be held against them
};

/// The chain of blocks.
class Blocks {
public:
    Blocks(std::shared_ptr<const CheckedFile> file, const CheckBreaks& breaks, CheckedRoad& road, Findings& findings)
        : m_shared(std::move(file)), m_file(*m_shared), m_breaks(breaks), m_road(road), m_findings(findings)
    {}

    static void check(const std::shared_ptr<const CheckedFile>& file, const CheckBreaks& breaks, CheckedRoad& road,
                      CheckSteps& steps, const std::shared_ptr<Findings>& findings)
    {
        const std::size_t n = file->size();
        if (n == 0) return;
        CheckGaps(file, {0}, breaks, steps, *findings);
        const auto blocks = std::make_shared<Blocks>(file, breaks, road, *findings);
        steps.rows(n, [blocks](std::size_t i) { blocks->block(i); });
        // The road ends where the last block does; where that is damaged, at the greatest end that can be read.
        if (!file->back().read(1)) steps.rows(n, [blocks](std::size_t i) { blocks->reach(i); });
        steps.once([blocks, findings] { blocks->ends(); });
    }

private:
    double stake(std::size_t row, std::size_t field) const { return m_breaks.continuous(m_file[row].number(field)); }

    void block(std::size_t i)
    {
        const auto row = m_file[i];
        const double from = stake(i, 0), to = stake(i, 1);
        if (row.read(2) && row.read(3)) m_road.points.push_back({row.number(2), row.number(3)});
        CheckGrows(kName, row.line, 2, "终点里程不大于起点里程", from, to, m_findings);
        const double r1 = row.number(5), r2 = row.number(6);
        m_road.exact = m_road.exact && row.read(0) && row.read(5) && row.read(6);
        if (m_road.exact && r1 == r2 && r1 != 0 && to > from)
            m_road.arcs.push_back(
                {from, to, r1 > 0, i > 0 && spiral(i - 1), i + 1 < m_file.size() && spiral(i + 1), row.line});
        if (i + 1 == m_file.size()) return;
        const auto next = m_file[i + 1];
        const double nextFrom = stake(i + 1, 0);
        CheckGrows(kName, next.line, 1, "起点里程没有增大", from, nextFrom, m_findings);
        if (std::abs(nextFrom - to) >= kTellMetres)
            m_findings.add({kName,
                            next.line,
                            1,
                            "起点里程与上一行的终点里程相差" + Metres(nextFrom - to) + "米",
                            {nextFrom - to, "米"}});
        const auto end = TrueElementEnd({row.number(2), row.number(3), DmsToDeg(row.number(4))}, to - from, r1, r2);
        meet(next, end);
    }

    bool spiral(std::size_t row) const { return m_file[row].number(5) != m_file[row].number(6); }

    void meet(const CheckedRow& next, const TruePoint& end)
    {
        const double mm = 1000 * std::hypot(next.number(2) - end.x, next.number(3) - end.y);
        const double turn = std::remainder(DmsToDeg(next.number(4)) - end.azDeg, 360.0) * 3600;
        if (!(mm > kMeetMm || std::abs(turn) > kMeetSeconds)) return;
        const bool apart = mm >= 1;
        m_findings.add({kName, next.line, 0,
                        "起点与上一个积木的终点不衔接，" + (apart ? "相差" + OneDecimal(mm) + "毫米，" : "") +
                            "方位角相差" + OneDecimal(turn) + "秒",
                        apart ? Amount{mm, "毫米"} : Amount{turn, "秒"}});
    }

    void reach(std::size_t i)
    {
        if (const auto known = m_file[i].read(1))
            m_road.end = std::max(m_road.end.value_or(0), m_breaks.continuous(*known));
    }

    void ends()
    {
        const auto from = m_file[0].read(0), to = m_file.back().read(1);
        if (from) m_road.start = m_breaks.continuous(*from);
        m_road.exact = from.has_value() && to.has_value();
        if (to) m_road.end = m_breaks.continuous(*to);
        if (m_road.start && m_road.end && !(*m_road.end > *m_road.start)) m_road.start = m_road.end = std::nullopt;
    }

    std::shared_ptr<const CheckedFile> m_shared;
    const CheckedFile& m_file;
    const CheckBreaks& m_breaks;
    CheckedRoad& m_road;
    Findings& m_findings;
};

bool looksLikeOtherModel(const CheckedFile& file, bool byPoints)
{
    if (file.size() == 0) return false;
    if (byPoints) return file[0].fields() == 7 && file.back().fields() == 7;
    return file.size() > 2 && file[0].fields() == 3 && file[1].fields() == 6;
}

/// The file by one model. @param findings  lives as long as the steps
void checkAs(bool byPoints, const std::shared_ptr<const CheckedFile>& file, const CheckBreaks& breaks,
             CheckedRoad& road, CheckSteps& steps, const std::shared_ptr<Findings>& findings)
{
    if (byPoints)
        Points::check(file, road, steps, findings);
    else
        Blocks::check(file, breaks, road, steps, findings);
    steps.once([&breaks, &road, findings] {
        if (!breaks.whole) road.arcs.clear();
    });
}

}  // namespace

void CheckAlignment(const std::string& folder, const std::string& model, const CheckBreaks& breaks, CheckedRoad& road,
                    CheckSteps& steps, Findings& findings)
{
    const bool byPoints = model == model::byIntersectionPoints;
    const auto asTold = std::make_shared<Findings>();
    const auto file = ReadChecked(folder, byPoints ? kIntersections : kBlocks, steps, *asTold);
    steps.once([=, &breaks, &road, &steps, &findings] {
        if (file->empty) findings.add(kName, 0, 0, "没有平曲线参数");
        if (file->size() > 0 && !byPoints && model != model::byBlocks)
            findings.add(std::string(files::settings), 1, 0,
                         "平曲线模型“" + model + "”不是交点法或积木法，按积木法载入", Severity::Error);
        if (looksLikeOtherModel(*file, byPoints)) {
            findings.add(file->name, (*file)[0].line, 0,
                         byPoints ? "各行是积木法的7项，而模型是交点法" : "各行是交点法的格式，而模型不是交点法",
                         Severity::Error);
            // The other files are held against the road that was meant; its own details can wait for the model.
            return checkAs(!byPoints, file, breaks, road, steps, std::make_shared<Findings>());
        }
        findings.append(std::move(*asTold));
        const std::shared_ptr<Findings> told(std::shared_ptr<Findings>(), &findings);
        checkAs(byPoints, file, breaks, road, steps, told);
    });
}
