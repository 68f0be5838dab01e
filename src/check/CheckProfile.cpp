#include "check/CheckRules.h"

#include "base/ParameterFiles.h"
#include "check/CheckSections.h"

#include <cmath>
#include <memory>
#include <utility>

namespace {

const FileShape kProfile{.name = std::string(files::vertical), .fields = 3, .firstFields = 2, .lastFields = 2};

/// Heights are written to the millimetre: a grade over `length` m may be off by as much on each end.
double gradeRounding(double length) { return 0.001 / length; }

/// A vertical curve between its tangent points.
struct VerticalCurve {
    double tangent = 0;
    double rounding = 0;  ///< of the tangent length, from the written heights
};

class Profile {
public:
    Profile(std::shared_ptr<const CheckedFile> file, const CheckBreaks& breaks, Findings& findings)
        : m_shared(std::move(file)), m_file(*m_shared), m_breaks(breaks), m_findings(findings)
    {}

    void count()
    {
        const std::size_t n = m_file.size();
        if (n == 1) m_findings.add(m_file.name, m_file[0].line, 0, "只有一行，应有起点和终点", Severity::Error);
        if (n == 2) m_findings.add(m_file.name, m_file[1].line, 0, "没有变坡点，高程无法计算", Severity::Error);
        if (n > 0) m_end = stake(0);
    }

    void grows(std::size_t i)
    {
        if (i > 0) CheckGrows(m_file.name, m_file[i].line, 1, "里程没有增大", stake(i - 1), stake(i), m_findings);
    }

    /// The curve at row `i`, held against the one before it.
    void curve(std::size_t i)
    {
        const std::size_t n = m_file.size();
        if (i == 0 || i + 1 >= n || !(stake(i) > stake(i - 1) && stake(i + 1) > stake(i))) return;
        const int line = m_file[i].line;
        if (m_file[i].number(2) == 0) m_findings.add(m_file.name, line, 3, "竖曲线半径为0，变坡点处是折线");
        const auto curve = at(i);
        tell(line, i == 1 ? "竖曲线伸到起点之前" : "竖曲线与上一个竖曲线重叠", m_end - (stake(i) - curve.tangent),
             m_rounding + curve.rounding);
        m_end = stake(i) + curve.tangent;
        m_rounding = curve.rounding;
        if (i + 2 == n) tell(line, "竖曲线伸到终点之后", m_end - stake(i + 1), m_rounding);
    }

private:
    double stake(std::size_t row) const { return m_breaks.continuous(m_file[row].number(0)); }
    double height(std::size_t row) const { return m_file[row].number(1); }

    VerticalCurve at(std::size_t i) const
    {
        const double before = stake(i) - stake(i - 1), behind = stake(i + 1) - stake(i);
        const double bend = (height(i + 1) - height(i)) / behind - (height(i) - height(i - 1)) / before;
        const double half = std::abs(m_file[i].number(2)) / 2;
        return {std::abs(bend) * half, (gradeRounding(before) + gradeRounding(behind)) * half};
    }

    void tell(int line, const std::string& text, double metres, double rounding)
    {
        if (metres > rounding) m_findings.addMetres(m_file.name, line, 0, text, metres);
    }

    std::shared_ptr<const CheckedFile> m_shared;
    const CheckedFile& m_file;
    const CheckBreaks& m_breaks;
    Findings& m_findings;
    double m_end = 0, m_rounding = 0;  ///< stake where the last curve ends, and its rounding
};

}  // namespace

void CheckProfile(const std::string& folder, const CheckedRoad& road, const CheckBreaks& breaks, CheckSteps& steps,
                  Findings& findings)
{
    const auto file = ReadChecked(folder, kProfile, steps, findings);
    steps.once([file, &road, &breaks, &steps, &findings] {
        const std::size_t rows = file->size();
        CheckGaps(file, {0}, breaks, steps, findings);
        const auto profile = std::make_shared<Profile>(file, breaks, findings);
        steps.once([profile] { profile->count(); });
        steps.rows(rows, [profile](std::size_t i) { profile->grows(i); });
        steps.rows(rows, [profile](std::size_t i) { profile->curve(i); });
        if (rows > 1)
            steps.once([file, &road, &breaks, &findings] { CheckCovers(*file, 0, 0, road, breaks, findings); });
    });
}
