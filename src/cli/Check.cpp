#include "cli/Check.h"

#include "cli/CheckBreaks.h"
#include "cli/CheckFiles.h"
#include "cli/TrueRoad.h"
#include "engine/Numbers.h"
#include "project/TextFile.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

using std::to_string;

const FileShape kPoints{"导线点参数.txt", 4, 0, 3};
const FileShape kBreaks{"断链参数.txt", 2};
const FileShape kIntersections{"平曲线参数.txt", 6, 0, -1, 3, 2};
const FileShape kBlocks{"平曲线参数.txt", 7};
const FileShape kProfile{"竖曲线参数.txt", 3, -1, -1, 2, 2};
const FileShape kSuperelevation{"超高参数.txt", 6};
const FileShape kWidths{"超高宽度参数.txt", 12};
const FileShape kSlopes[] = {
    {"左幅填方参数.txt", 30}, {"右幅填方参数.txt", 30}, {"左幅挖方参数.txt", 60}, {"右幅挖方参数.txt", 60}};

/// Blocks that miss each other by less than the rounding of a drawing are taken to meet.
constexpr double kMeetMm = 2, kMeetSeconds = 1;
/// Stakes written to the millimetre: a stretch may fall short of the next by that.
constexpr double kStakeTolerance = 0.0011;
/// The compiled end of a road lies some millimetres beside the true one; a table may end that much before it.
constexpr double kEndTolerance = 0.05;

std::string metres(double value) { return FormatFixed3(value); }
std::string oneDecimal(double value) { return LeadingZeroText(Round(value, 1)); }

class Checker {
public:
    explicit Checker(const std::string& folder) : m_folder(folder) {}

    std::vector<Finding> run()
    {
        const auto settings = ReadSettings(m_folder, m_findings);
        m_model = settings.empty() ? "" : settings[0];
        const std::string form = settings.size() < 2 ? "" : settings[1];
        const auto points = ReadChecked(m_folder, kPoints, m_findings);
        duplicates(points, "点名");
        readBreaks();
        readAlignment();
        profile();
        const auto cg = ReadChecked(m_folder, kSuperelevation, m_findings);
        stretches(cg, 0, 3);
        if (!cg.rows.empty() && form != "线性" && form != "三次抛物线")
            add("其他参数.txt", 2, 0, "超高类型“" + form + "”不是线性或三次抛物线，按三次抛物线计算");
        stretches(ReadChecked(m_folder, kWidths, m_findings), 0, 1);
        for (const auto& slope : kSlopes) slopes(slope, settings);
        return std::move(m_findings);
    }

private:
    void add(const std::string& file, int line, int field, std::string text)
    {
        m_findings.push_back({file, line, field, std::move(text)});
    }

    void duplicates(const CheckedFile& file, const std::string& what)
    {
        std::map<std::string, int> seen;
        for (const auto& row : file.rows) {
            const auto [where, fresh] = seen.emplace(row.text(0), row.line);
            if (!fresh && !row.text(0).empty())
                add(file.name, row.line, 1, what + "“" + row.text(0) + "”与第" + to_string(where->second) + "行重复");
        }
    }

    void readBreaks()
    {
        const auto file = ReadChecked(m_folder, kBreaks, m_findings);
        const CheckedRow* before = nullptr;
        for (const auto& row : file.rows) {
            const double back = row.number(0), ahead = row.number(1);
            if (back == ahead) add(file.name, row.line, 0, "来向里程与去向里程相同，断链没有作用");
            if (before && (back <= before->number(0) || back < before->number(1)))
                add(file.name, row.line, 1, "断链没有按里程从小到大排列");
            m_breaks.add(back, ahead);
            before = &row;
        }
    }

    void readAlignment()
    {
        const bool byPoints = m_model == "交点法";
        std::vector<Finding> asTold;
        const auto file = ReadChecked(m_folder, byPoints ? kIntersections : kBlocks, asTold);
        if (!file.rows.empty() && m_model != "交点法" && m_model != "积木法")
            add("其他参数.txt", 1, 0, "平曲线模型“" + m_model + "”不是交点法或积木法，按积木法载入");
        if (looksLikeOtherModel(file, byPoints)) {
            add(file.name, file.rows[0].line, 0,
                byPoints ? "各行是积木法的7项，而模型是交点法" : "各行是交点法的格式，而模型不是交点法");
            return;
        }
        m_findings.insert(m_findings.end(), asTold.begin(), asTold.end());
        const bool whole = asTold.empty();
        if (byPoints)
            intersections(file);
        else
            blocks(file);
        m_hasRoad = m_hasRoad && whole;
    }

    static bool looksLikeOtherModel(const CheckedFile& file, bool byPoints)
    {
        if (file.rows.empty()) return false;
        const auto fields = [&](std::size_t i) { return file.rows[i].fields.size(); };
        if (byPoints) return fields(0) == 7 && fields(file.rows.size() - 1) == 7;
        return file.rows.size() > 2 && fields(0) == 3 && fields(1) == 6;
    }

    void intersections(const CheckedFile& file)
    {
        const auto& rows = file.rows;
        if (rows.empty()) return;
        if (rows.size() == 1) {
            add(file.name, rows[0].line, 0, "只有一行，平曲线不会生成");
            return;
        }
        CheckedFile names{file.name, {rows.begin() + 1, rows.end() - 1}, false};
        duplicates(names, "交点编号");
        if (rows.size() > 502) add(file.name, rows[501].line, 0, "超过500个交点，主点表只列前500个");

        std::vector<TrueVertex> vertices;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const bool first = i == 0, last = i + 1 == rows.size();
            TrueVertex v;
            v.x = rows[i].number(last ? 0 : 1);
            v.y = rows[i].number(last ? 1 : 2);
            if (!first && !last) v.ls1 = rows[i].number(3), v.ls2 = rows[i].number(4), v.radius = rows[i].number(5);
            vertices.push_back(v);
        }
        for (std::size_t i = 1; i < rows.size(); ++i)
            if (vertices[i].y == vertices[i - 1].y && vertices[i].x < vertices[i - 1].x)
                add(file.name, rows[i].line, 0, "与上一点的连线指向正南（Y坐标相同），其方位角按0计算");
        for (std::size_t i = 1; i + 1 < rows.size(); ++i) {
            if (vertices[i].radius == 0) add(file.name, rows[i].line, 6, "曲线半径为0，从这里到下一个ZH点的线形是错的");
            if (vertices[i].radius < 0) add(file.name, rows[i].line, 6, "曲线半径为负，右转时曲线会弯向另一侧");
        }
        const auto curves = TrueCurves(vertices);
        for (std::size_t i = 0; i < curves.size(); ++i) {
            const auto& row = rows[i + 1];
            const auto& curve = curves[i];
            if (!curve.valid) {
                if (vertices[i + 1].radius != 0) add(file.name, row.line, 0, "与相邻两点在一条直线上，没有转角");
                continue;
            }
            if (curve.arc < 0)
                add(file.name, row.line, 0, "缓和曲线太长，圆曲线长" + metres(curve.arc) + "米，曲线容不下");
            const double leg = curve.leg, used = curve.t1 + (i ? curves[i - 1].t2 : 0);
            if (used > leg + 0.001)
                add(file.name, row.line, 0,
                    "与上一点的切线重叠，两切线长之和" + metres(used) + "米大于边长" + metres(leg) + "米，里程会倒退");
        }
        if (!curves.empty() && curves.back().valid && curves.back().t2 > curves.back().nextLeg + 0.001)
            add(file.name, rows.back().line, 0, "终点在最后一个曲线的HZ点之前");
        m_start = rows[0].number(0);
        m_end = TrueEndStake(m_start, vertices);
        m_hasRoad = curves.empty() || std::all_of(curves.begin(), curves.end(), [](auto& c) { return c.valid; });
    }

    void blocks(const CheckedFile& file)
    {
        const auto& rows = file.rows;
        gaps(file, {0});
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto& row = rows[i];
            const double from = m_breaks.continuous(row.number(0)), to = m_breaks.continuous(row.number(1));
            if (to <= from) add(file.name, row.line, 2, "终点里程不大于起点里程");
            if (i + 1 == rows.size()) break;
            const auto& next = rows[i + 1];
            const double nextFrom = m_breaks.continuous(next.number(0));
            if (nextFrom <= from) add(file.name, next.line, 1, "起点里程没有增大");
            if (std::abs(nextFrom - to) > 0.0005)
                add(file.name, next.line, 1, "起点里程与上一行的终点里程相差" + metres(nextFrom - to) + "米");
            const auto end = TrueElementEnd({row.number(2), row.number(3), DmsToDeg(row.number(4))}, to - from,
                                            row.number(5), row.number(6));
            const double mm = 1000 * std::hypot(next.number(2) - end.x, next.number(3) - end.y);
            double turn = std::remainder(DmsToDeg(next.number(4)) - end.azDeg, 360.0) * 3600;
            if (mm > kMeetMm || std::abs(turn) > kMeetSeconds)
                add(file.name, next.line, 0,
                    "起点与上一个积木的终点不衔接，相差" + oneDecimal(mm) + "毫米，方位角相差" + oneDecimal(turn) +
                        "秒");
        }
        if (!rows.empty()) {
            m_start = m_breaks.continuous(rows.front().number(0));
            m_end = m_breaks.continuous(rows.back().number(1));
            m_hasRoad = m_end > m_start;
        }
    }

    void profile()
    {
        const auto file = ReadChecked(m_folder, kProfile, m_findings);
        const auto& rows = file.rows;
        if (rows.size() == 1) add(file.name, rows[0].line, 0, "只有一行，应有起点和终点");
        if (rows.size() == 2) add(file.name, rows[1].line, 0, "没有变坡点，高程无法计算");
        gaps(file, {0});
        std::vector<double> stake;
        for (const auto& row : rows) stake.push_back(m_breaks.continuous(row.number(0)));
        for (std::size_t i = 1; i < rows.size(); ++i)
            if (stake[i] <= stake[i - 1]) add(file.name, rows[i].line, 1, "里程没有增大");
        double curveEnd = stake.empty() ? 0 : stake[0];
        for (std::size_t i = 1; i + 1 < rows.size(); ++i) {
            const double g1 = (rows[i].number(1) - rows[i - 1].number(1)) / (stake[i] - stake[i - 1]);
            const double g2 = (rows[i + 1].number(1) - rows[i].number(1)) / (stake[i + 1] - stake[i]);
            const double t = std::abs((g2 - g1) * rows[i].number(2) / 2);
            if (!(stake[i] > stake[i - 1] && stake[i + 1] > stake[i])) continue;
            if (rows[i].number(2) == 0) add(file.name, rows[i].line, 3, "竖曲线半径为0，变坡点处是折线");
            if (stake[i] - t < curveEnd - 0.001)
                add(file.name, rows[i].line, 0,
                    i == 1 ? "竖曲线伸到起点之前"
                           : "竖曲线与上一个竖曲线重叠" + metres(curveEnd - (stake[i] - t)) + "米");
            curveEnd = stake[i] + t;
            if (i + 2 == rows.size() && curveEnd > stake[i + 1] + 0.001)
                add(file.name, rows[i].line, 0, "竖曲线伸到终点之后");
        }
        if (rows.size() > 1) covers(file, stake.front(), stake.back());
    }

    /// Tables of stretches: from `first` to `last` of each row, one behind the other over the whole road.
    void stretches(const CheckedFile& file, std::size_t first, std::size_t last)
    {
        gaps(file, {first, last});
        const auto& rows = file.rows;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double from = m_breaks.continuous(rows[i].number(first)),
                         to = m_breaks.continuous(rows[i].number(last));
            if (to <= from) add(file.name, rows[i].line, static_cast<int>(last) + 1, "变化终点里程不大于变化起点里程");
            if (i == 0) continue;
            const double before = m_breaks.continuous(rows[i - 1].number(last));
            const int field = static_cast<int>(first) + 1;
            if (from <= m_breaks.continuous(rows[i - 1].number(first)))
                add(file.name, rows[i].line, field, "变化起点里程没有增大");
            else if (from > before + kStakeTolerance)
                add(file.name, rows[i].line, field, "与上一段之间有" + metres(from - before) + "米没有数据");
            else if (from < before - kStakeTolerance)
                add(file.name, rows[i].line, field, "与上一段重叠" + metres(before - from) + "米");
        }
        if (!rows.empty())
            covers(file, m_breaks.continuous(rows.front().number(first)),
                   m_breaks.continuous(rows.back().number(last)));
    }

    void covers(const CheckedFile& file, double from, double to)
    {
        if (!m_hasRoad) return;
        if (from > m_start + kEndTolerance)
            add(file.name, file.rows.front().line, 0, "路线起点之后的" + metres(from - m_start) + "米没有数据");
        if (to < m_end - kEndTolerance)
            add(file.name, file.rows.back().line, 0, "路线终点之前的" + metres(m_end - to) + "米没有数据");
    }

    void gaps(const CheckedFile& file, const std::vector<std::size_t>& fields)
    {
        for (const auto& row : file.rows)
            for (const auto field : fields)
                if (field < row.fields.size() && m_breaks.inGap(row.number(field)))
                    add(file.name, row.line, static_cast<int>(field) + 1,
                        "里程落在断链跳过的一段里，打开项目时到这里就停止");
    }

    void slopes(const FileShape& shape, const std::vector<std::string>& settings)
    {
        const auto file = ReadChecked(m_folder, shape, m_findings);
        const std::size_t line = shape.fields == 30 ? 2 : 3;
        double grades = 0;
        try {
            grades = line < settings.size() ? ParseNumber(settings[line]) : 0;
        } catch (...) {
        }
        if (file.rows.empty() || grades < 1) return;
        const auto end = static_cast<std::size_t>(3 * grades);
        for (std::size_t i = 0; i < file.rows.size(); ++i) {
            const auto& row = file.rows[i];
            if (row.number(end) <= row.number(0))
                add(file.name, row.line, static_cast<int>(end) + 1, "变化终点里程不大于变化起点里程");
            if (i && row.number(0) < file.rows[i - 1].number(0)) add(file.name, row.line, 1, "变化起点里程没有增大");
        }
    }

    std::string m_folder, m_model;
    std::vector<Finding> m_findings;
    CheckBreaks m_breaks;
    double m_start = 0, m_end = 0;  // of the road, continuous
    bool m_hasRoad = false;
};

}  // namespace

std::string FindingText(const Finding& finding)
{
    std::string text = finding.file;
    if (finding.line) text += ":" + to_string(finding.line);
    if (finding.field) text += ":" + to_string(finding.field);
    return text + ": " + finding.text;
}

std::vector<Finding> CheckProject(const std::string& folder) { return Checker(folder).run(); }
