#include "check/Check.h"

#include "base/ParameterFiles.h"
#include "check/CheckRules.h"
#include "check/CheckSections.h"

namespace {

const FileShape kPoints{.name = std::string(files::traverse), .fields = 4, .textField = 0, .secondTextField = 3};
const FileShape kBreaks{.name = std::string(files::breaks), .fields = 2};

/// The breaks of the project, and what is wrong with them: each lies behind the one before along the road, which its
/// own number need not show.
CheckBreaks readBreaks(const std::string& folder, Findings& findings)
{
    const auto file = ReadChecked(folder, kBreaks, findings);
    CheckBreaks breaks;
    breaks.whole = file.missing || file.empty || file.size() > 0;
    std::optional<double> before;
    for (std::size_t i = 0; i < file.size(); ++i) {
        const auto row = file[i];
        const auto back = row.read(0), ahead = row.read(1);
        if (!back || !ahead) breaks.whole = false;
        if (!back || !ahead) continue;
        if (*back == *ahead) findings.add(file.name, row.line, 0, "来向里程与去向里程相同，断链没有作用");
        if (before)
            findings.addMetres(file.name, row.line, 1, "断链没有按里程从小到大排列，比上一处断链的去向里程小",
                               *before - *back, Severity::Error);
        breaks.add(*back, *ahead);
        before = ahead;
    }
    return breaks;
}

}  // namespace

std::string FindingText(const Finding& finding)
{
    std::string text = finding.file;
    if (finding.line) text += ":" + std::to_string(finding.line);
    if (finding.field) text += ":" + std::to_string(finding.field);
    return text + ": " + finding.text;
}

std::vector<Finding> CheckProject(const std::string& folder)
{
    Findings findings;
    auto settings = ReadSettings(folder, findings);
    const auto points = ReadChecked(folder, kPoints, findings);
    CheckDuplicates(points, 0, points.size(), "点名", findings);
    const auto breaks = readBreaks(folder, findings);
    const auto road = CheckAlignment(folder, settings[0], breaks, findings);
    CheckTraversePoints(points, road, findings);
    CheckProfile(folder, road, breaks, findings);
    CheckSections(folder, settings.size() > 1 ? settings[1] : "", road, breaks, findings);
    CheckSlopes(folder, settings, findings);
    return findings.take();
}
