#include "check/CheckSections.h"

#include "base/Numbers.h"
#include "base/ParameterFiles.h"
#include "check/CheckRules.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace {

using SharedFile = std::shared_ptr<const CheckedFile>;

const FileShape kSuperelevation{.name = std::string(files::superelevation), .fields = 6, .closingRow = true};
const FileShape kWidths{.name = std::string(files::widths), .fields = 12, .closingRow = true};

/// Stakes written to the millimetre: a stretch may fall short of the next by that.
constexpr double kStakeTolerance = 0.0011;
/// Percent; slopes that are all smaller were typed as ratios.
constexpr double kRatio = 0.2;
/// Metres of superelevation that may go on changing on the circle.
constexpr double kStillChanging = 0.5;

/// A row of a table of stretches, each from field `first` to field `last`, one behind the other over the whole road.
void stretchRow(const CheckedFile& file, std::size_t i, std::size_t first, std::size_t last, const CheckBreaks& breaks,
                Findings& findings)
{
    const auto stake = [&](std::size_t row, std::size_t field) { return breaks.continuous(file[row].number(field)); };
    const double from = stake(i, first);
    const int line = file[i].line, field = static_cast<int>(first) + 1;
    CheckGrows(file.name, line, static_cast<int>(last) + 1, "变化终点里程不大于变化起点里程", from, stake(i, last),
               findings);
    if (i == 0) return;
    const double before = stake(i - 1, last);
    if (from <= stake(i - 1, first))
        CheckGrows(file.name, line, field, "变化起点里程没有增大", stake(i - 1, first), from, findings);
    else if (from > before + kStakeTolerance)
        findings.add(
            {file.name, line, field, "与上一段之间有" + Metres(from - before) + "米没有数据", {from - before, "米"}});
    else if (from < before - kStakeTolerance)
        findings.addMetres(file.name, line, field, "与上一段重叠", before - from);
}

void stretches(const SharedFile& file, std::size_t first, std::size_t last, const CheckedRoad& road,
               const CheckBreaks& breaks, CheckSteps& steps, Findings& findings)
{
    CheckGaps(file, {first, last}, breaks, steps, findings);
    steps.rows(file->size(),
               [=, &breaks, &findings](std::size_t i) { stretchRow(*file, i, first, last, breaks, findings); });
    steps.once([=, &road, &breaks, &findings] { CheckCovers(*file, first, last, road, breaks, findings); });
}

void ratios(const SharedFile& file, const std::vector<std::size_t>& fields, CheckSteps& steps, Findings& findings)
{
    const auto greatest = std::make_shared<double>(0);
    steps.rows(file->size(), [=](std::size_t i) {
        for (const auto field : fields) *greatest = std::max(*greatest, std::abs((*file)[i].number(field)));
    });
    steps.once([=, &findings] {
        if (*greatest > 0 && *greatest < kRatio)
            findings.add(
                {file->name,
                 0,
                 0,
                 "坡度都小于" + Percent(kRatio) + "（最大" + Percent(*greatest) + "），像是按比值填写，应填百分数",
                 {*greatest, "%"}});
    });
}

/// The crossfalls along the road as the table holds them: each row runs from its own start values to those of the next.
class Crossfall {
public:
    Crossfall(SharedFile file, const CheckedRoad& road, const CheckBreaks& breaks, Findings& findings)
        : m_shared(std::move(file)), m_file(*m_shared), m_road(road), m_breaks(breaks), m_findings(findings)
    {}

    /// The slopes on one of the road's arcs, which come in their order.
    void onCurve(std::size_t curve)
    {
        const auto& arc = m_road.arcs[curve];
        while (m_row + 1 < m_file.size() && stretch(m_row).to <= arc.from) ++m_row;
        bool told = false;
        double before = -std::numeric_limits<double>::infinity();
        for (std::size_t i = m_row; i < m_file.size(); ++i) {
            const auto s = stretch(i);
            if (!(s.from >= before && s.from < arc.to)) break;  // rows out of order have been told
            before = s.from;
            if (!told) told = against(s, arc);
            stillChanging(s, arc);
        }
    }

    /// Where a row of the widths is, of one side.
    struct BesideNoWidth {
        bool left;
        bool told = false;
        std::size_t row = 0;
        double before = -std::numeric_limits<double>::infinity();
    };
    /// A side of no width at a row of the widths, which come in their order; what is typed there counts.
    void besideNoWidth(const CheckedRow& width, BesideNoWidth& at)
    {
        const auto from = width.read(at.left ? 3 : 4), to = width.read(at.left ? 7 : 8);
        if (!(from && to && *from == 0 && *to == 0)) {
            at.told = false;
            return;
        }
        const double start = m_breaks.continuous(width.number(0)), end = m_breaks.continuous(width.number(1));
        if (!(start + kStakeTolerance >= at.before && end >= start)) return;  // rows out of order have been told
        at.before = end;
        while (at.row + 1 < m_file.size() && stretch(at.row).to <= start) ++at.row;
        for (std::size_t k = at.row; k < m_file.size() && !at.told && stretch(k).from < end; ++k)
            at.told = noWidth(stretch(k), start, end, at.left, width.line);
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

    SharedFile m_shared;
    const CheckedFile& m_file;
    const CheckedRoad& m_road;
    const CheckBreaks& m_breaks;
    Findings& m_findings;
    std::size_t m_row = 0;  ///< where the last arc began
};

}  // namespace

void CheckSections(const std::string& folder, const std::string& form, const CheckedRoad& road,
                   const CheckBreaks& breaks, CheckSteps& steps, Findings& findings)
{
    const auto slopes = ReadChecked(folder, kSuperelevation, steps, findings);
    steps.once([=, &road, &breaks, &steps, &findings] {
        stretches(slopes, 0, 3, road, breaks, steps, findings);
        steps.once([=, &findings] {
            if (slopes->size() > 0 && form != "线性" && form != "三次抛物线")
                findings.add(std::string(files::settings), 2, 0,
                             "超高类型“" + form + "”不是线性或三次抛物线，按三次抛物线计算");
        });
        ratios(slopes, {1, 2, 4, 5}, steps, findings);
    });
    const auto widths = ReadChecked(folder, kWidths, steps, findings);
    steps.once([=, &road, &breaks, &steps, &findings] {
        stretches(widths, 0, 1, road, breaks, steps, findings);
        ratios(widths, {11}, steps, findings);
        const auto crossfall = std::make_shared<Crossfall>(slopes, road, breaks, findings);
        steps.rows(road.arcs.size(), [=](std::size_t i) { crossfall->onCurve(i); });
        for (const bool left : {true, false})
            steps.rows(widths->size(), [=, at = Crossfall::BesideNoWidth{.left = left}](std::size_t i) mutable {
                crossfall->besideNoWidth((*widths)[i], at);
            });
    });
}
