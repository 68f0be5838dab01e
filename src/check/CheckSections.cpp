#include "check/CheckSections.h"

#include "base/Numbers.h"
#include "base/ParameterFiles.h"
#include "check/CheckRules.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const FileShape kSuperelevation{.name = std::string(files::superelevation), .fields = 6, .closingRow = true};
const FileShape kWidths{.name = std::string(files::widths), .fields = 12, .closingRow = true};

/// Stakes written to the millimetre: a stretch may fall short of the next by that.
constexpr double kStakeTolerance = 0.0011;
/// Percent; slopes that are all smaller were typed as ratios.
constexpr double kRatio = 0.2;
/// Metres of superelevation that may go on changing on the circle.
constexpr double kStillChanging = 0.5;

/// Tables of stretches: from field `first` to field `last` of each row, one behind the other over the whole road.
void stretches(const CheckedFile& file, std::size_t first, std::size_t last, const CheckedRoad& road,
               const CheckBreaks& breaks, Findings& findings)
{
    CheckGaps(file, {first, last}, breaks, findings);
    const auto stake = [&](std::size_t row, std::size_t field) { return breaks.continuous(file[row].number(field)); };
    for (std::size_t i = 0; i < file.size(); ++i) {
        const double from = stake(i, first);
        const int line = file[i].line, field = static_cast<int>(first) + 1;
        CheckGrows(file.name, line, static_cast<int>(last) + 1, "变化终点里程不大于变化起点里程", from, stake(i, last),
                   findings);
        if (i == 0) continue;
        const double before = stake(i - 1, last);
        if (from <= stake(i - 1, first))
            CheckGrows(file.name, line, field, "变化起点里程没有增大", stake(i - 1, first), from, findings);
        else if (from > before + kStakeTolerance)
            findings.add({file.name,
                          line,
                          field,
                          "与上一段之间有" + Metres(from - before) + "米没有数据",
                          {from - before, "米"}});
        else if (from < before - kStakeTolerance)
            findings.addMetres(file.name, line, field, "与上一段重叠", before - from);
    }
    CheckCovers(file, first, last, road, breaks, findings);
}

void ratios(const CheckedFile& file, std::initializer_list<std::size_t> fields, Findings& findings)
{
    double greatest = 0;
    for (std::size_t i = 0; i < file.size(); ++i)
        for (const auto field : fields) greatest = std::max(greatest, std::abs(file[i].number(field)));
    if (greatest > 0 && greatest < kRatio)
        findings.add({file.name,
                      0,
                      0,
                      "坡度都小于" + Percent(kRatio) + "（最大" + Percent(greatest) + "），像是按比值填写，应填百分数",
                      {greatest, "%"}});
}

/// The crossfalls along the road as the table holds them: each row runs from its own start values to those of the next.
class Crossfall {
public:
    Crossfall(const CheckedFile& file, const CheckedRoad& road, const CheckBreaks& breaks, Findings& findings)
        : m_file(file), m_road(road), m_breaks(breaks), m_findings(findings)
    {}

    void onCurves()
    {
        std::size_t row = 0;
        for (const auto& arc : m_road.arcs) {
            while (row + 1 < m_file.size() && stretch(row).to <= arc.from) ++row;
            bool told = false;
            double before = -std::numeric_limits<double>::infinity();
            for (std::size_t i = row; i < m_file.size(); ++i) {
                const auto s = stretch(i);
                if (!(s.from >= before && s.from < arc.to)) break;  // rows out of order have been told
                before = s.from;
                if (!told) told = against(s, arc);
                stillChanging(s, arc);
            }
        }
    }

    /// Sides of no width; what is typed in a row of the widths counts.
    void besideNoWidth(const CheckedFile& widths)
    {
        for (const bool left : {true, false}) {
            bool told = false;
            std::size_t row = 0;
            double before = -std::numeric_limits<double>::infinity();
            for (std::size_t i = 0; i < widths.size(); ++i) {
                const auto from = widths[i].read(left ? 3 : 4), to = widths[i].read(left ? 7 : 8);
                if (!(from && to && *from == 0 && *to == 0)) {
                    told = false;
                    continue;
                }
                const double start = m_breaks.continuous(widths[i].number(0)),
                             end = m_breaks.continuous(widths[i].number(1));
                if (!(start + kStakeTolerance >= before && end >= start)) continue;  // rows out of order have been told
                before = end;
                while (row + 1 < m_file.size() && stretch(row).to <= start) ++row;
                for (std::size_t k = row; k < m_file.size() && !told && stretch(k).from < end; ++k)
                    told = noWidth(stretch(k), start, end, left, widths[i].line);
            }
        }
    }

private:
    struct Slopes {
        double left, right;
    };
    struct Stretch {
        double from, to;
        Slopes start, end;
        int line;

        Slopes at(double stake) const
        {
            const double t = (stake - from) / (to - from);
            return {start.left + t * (end.left - start.left), start.right + t * (end.right - start.right)};
        }
    };

    Stretch stretch(std::size_t i) const
    {
        const auto row = m_file[i];
        Stretch s{m_breaks.continuous(row.number(0)),
                  m_breaks.continuous(row.number(3)),
                  {row.number(1), row.number(2)},
                  {row.number(4), row.number(5)},
                  row.line};
        if (i + 1 < m_file.size()) {
            const auto next = m_file[i + 1];
            s.to = m_breaks.continuous(next.number(0));
            s.end = {next.number(1), next.number(2)};
        }
        return s;
    }

    /// One slope over the whole road that falls to the outer side of the turn.
    bool against(const Stretch& s, const CheckedArc& arc)
    {
        const double from = std::max(s.from, arc.from + kStakeTolerance), to = std::min(s.to, arc.to - kStakeTolerance);
        constexpr int kLooks = 8;
        for (int k = 0; k <= kLooks && from < to; ++k) {
            const double stake = from + (to - from) * k / kLooks;
            const auto [left, right] = s.at(stake);
            const double inner = arc.right ? right : left, outer = arc.right ? left : right;
            if (!(inner > 0 && outer < 0)) continue;
            m_findings.add({m_file.name,
                            s.line,
                            0,
                            FormatStake(Round(m_breaks.nominal(stake), 3)) + "在" + turn(arc) +
                                "的圆曲线上（平曲线参数第" + std::to_string(arc.line) + "行），左幅" + Percent(left) +
                                "、右幅" + Percent(right) + "，向曲线外侧倾斜",
                            {inner - outer, "%"}});
            return true;
        }
        return false;
    }

    /// A change that belongs on the spirals and reaches into the circle.
    void stillChanging(const Stretch& s, const CheckedArc& arc)
    {
        if (s.start.left == s.end.left && s.start.right == s.end.right) return;
        const double length = std::min(s.to, arc.to) - std::max(s.from, arc.from);
        const bool atIn = s.from<arc.from + kStakeTolerance, atOut = s.to> arc.to - kStakeTolerance;
        const bool spiral =
            (atIn && arc.spiralIn) || (atOut && arc.spiralOut) || (!atIn && !atOut && arc.spiralIn && arc.spiralOut);
        if (spiral && length > kStillChanging)
            m_findings.addMetres(m_file.name, s.line, 0,
                                 "超高在" + turn(arc) + "的圆曲线上（HY到YH之间，平曲线参数第" +
                                     std::to_string(arc.line) + "行）还在变化，长",
                                 length);
    }

    bool noWidth(const Stretch& s, double start, double end, bool left, int line)
    {
        const double length = std::min(s.to, end) - std::max(s.from, start);
        const double a = left ? s.start.left : s.start.right, b = left ? s.end.left : s.end.right;
        const double slope = std::abs(a) > std::abs(b) ? a : b;
        if (slope == 0 || length < kTellMetres) return false;
        m_findings.add({m_file.name,
                        s.line,
                        0,
                        std::string(left ? "左幅" : "右幅") + "坡度" + Percent(slope) +
                            "，而这里的路基宽度为0（超高宽度参数第" + std::to_string(line) + "行）",
                        {slope, "%"}});
        return true;
    }

    static std::string turn(const CheckedArc& arc) { return arc.right ? "右转" : "左转"; }

    const CheckedFile& m_file;
    const CheckedRoad& m_road;
    const CheckBreaks& m_breaks;
    Findings& m_findings;
};

}  // namespace

void CheckSections(const std::string& folder, const std::string& form, const CheckedRoad& road,
                   const CheckBreaks& breaks, Findings& findings)
{
    const auto slopes = ReadChecked(folder, kSuperelevation, findings);
    stretches(slopes, 0, 3, road, breaks, findings);
    if (slopes.size() > 0 && form != "线性" && form != "三次抛物线")
        findings.add(std::string(files::settings), 2, 0,
                     "超高类型“" + form + "”不是线性或三次抛物线，按三次抛物线计算");
    ratios(slopes, {1, 2, 4, 5}, findings);
    const auto widths = ReadChecked(folder, kWidths, findings);
    stretches(widths, 0, 1, road, breaks, findings);
    ratios(widths, {11}, findings);
    Crossfall crossfall(slopes, road, breaks, findings);
    crossfall.onCurves();
    crossfall.besideNoWidth(widths);
}
