#include "check/Check.h"

#include "base/Numbers.h"
#include "base/ParameterFiles.h"
#include "check/CheckRules.h"
#include "check/CheckSections.h"

#include <utility>

namespace {

const FileShape kPoints{.name = std::string(files::traverse), .fields = 4, .textField = 0, .secondTextField = 3};
const FileShape kBreaks{.name = std::string(files::breaks), .fields = 2};

/// Reads the breaks of the project, and what is wrong with them: each lies behind the one before along the road, which
/// its own number need not show.
class BreakReader {
public:
    BreakReader(std::shared_ptr<const CheckedFile> file, CheckBreaks& breaks, Findings& findings)
        : m_file(std::move(file)), m_breaks(breaks), m_findings(findings)
    {
        m_breaks.whole = m_file->missing || m_file->empty || m_file->size() > 0;
    }

    void take(std::size_t i)
    {
        const auto row = (*m_file)[i];
        const auto back = row.read(0), ahead = row.read(1);
        if (!back || !ahead) m_breaks.whole = false;
        if (!back || !ahead) return;
        if (*back == *ahead) m_findings.add(m_file->name, row.line, 0, "来向里程与去向里程相同，断链没有作用");
        if (m_before)
            m_findings.addMetres(m_file->name, row.line, 1, "断链没有按里程从小到大排列，比上一处断链的去向里程小",
                                 *m_before - *back, Severity::Error);
        m_breaks.add(*back, *ahead);
        m_before = ahead;
    }

private:
    std::shared_ptr<const CheckedFile> m_file;
    CheckBreaks& m_breaks;
    Findings& m_findings;
    std::optional<double> m_before;
};

void readBreaks(const std::string& folder, CheckBreaks& breaks, CheckSteps& steps, Findings& findings)
{
    const auto file = ReadChecked(folder, kBreaks, steps, findings);
    steps.once([file, &breaks, &steps, &findings] {
        const auto reader = std::make_shared<BreakReader>(file, breaks, findings);
        steps.rows(file->size(), [reader](std::size_t i) { reader->take(i); });
    });
}

}  // namespace

std::string FindingText(const Finding& finding)
{
    std::string text = finding.file;
    if (finding.line) text += ":" + std::to_string(finding.line);
    if (finding.field) text += ":" + std::to_string(finding.field);
    return text + ": " + finding.text;
}

std::string AmountText(const Amount& amount)
{
    const auto& [value, unit] = amount;
    if (unit.empty()) return "";
    if (unit == "%") return Percent(value);
    const bool counted = unit == "个" || unit == "行" || unit == "项";
    const std::string number = unit == "米" ? Metres(value) : counted ? LeadingZeroText(value) : OneDecimal(value);
    return number + " " + std::string(unit);
}

struct CheckRun::Work {
    std::string folder;
    CheckSteps steps = {};
    Findings findings = {};
    std::vector<std::string> settings = {};
    CheckBreaks breaks = {};
    CheckedRoad road = {};

    /// Each rule when those before it are done: they say what it looks at.
    void plan()
    {
        ReadSettings(folder, settings, steps, findings);
        const auto points = ReadChecked(folder, kPoints, steps, findings);
        steps.once([=, this] { CheckDuplicates(points, 0, points->size(), "点名", steps, findings); });
        readBreaks(folder, breaks, steps, findings);
        steps.once([this] { CheckAlignment(folder, settings[0], breaks, road, steps, findings); });
        steps.once([=, this] { CheckTraversePoints(points, road, steps, findings); });
        steps.once([this] {
            CheckProfile(folder, road, breaks, steps, findings);
            CheckSections(folder, settings.size() > 1 ? settings[1] : "", road, breaks, steps, findings);
            CheckSlopes(folder, settings, steps, findings);
        });
    }
};

CheckRun::CheckRun(std::string folder) : m_work(std::make_unique<Work>(Work{std::move(folder)})) { m_work->plan(); }
CheckRun::~CheckRun() = default;
bool CheckRun::done() const { return m_work->steps.done(); }
void CheckRun::step() { m_work->steps.make(); }
std::vector<Finding> CheckRun::take() { return m_work->findings.take(); }

std::vector<Finding> CheckProject(const std::string& folder)
{
    CheckRun run(folder);
    while (!run.done()) run.step();
    return run.take();
}
