#include "editors/WizardState.h"

#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/ParameterFiles.h"
#include "base/RunTimeError.h"
#include "project/Workspace.h"

#include <algorithm>
#include <optional>

namespace {

constexpr const char *kNone = "没有", *kUnreadable = "无法读取";
constexpr std::string_view kUnset = "未设置";

/// How the rows of an option are counted.
struct Counted {
    std::string_view file;
    std::string_view unit;
    int frames = 0;  ///< lines of the file that are no rows: its first and its last
};

std::string rows(const Counted& counted)
{
    std::string text = kUnreadable;
    attempt([&] {
        const std::string path = ParameterFile(counted.file);
        const auto lines = FileExists(path) ? SplitLines(ReadBytes(path)) : std::vector<std::string>();
        const auto filled = std::count_if(lines.begin(), lines.end(),
                                          [](const auto& line) { return line.find(',') != std::string::npos; });
        const auto count = filled - counted.frames;
        text = count > 0 ? std::to_string(count) + " " + std::string(counted.unit) : std::string(kNone);
    });
    return text;
}

/// A line of the settings; nothing where it was not set, or there is none.
std::optional<std::string> setting(int index)
{
    std::optional<std::string> line;
    attempt([&] { line = SettingsLine(index); });
    if (line && (*line == kUnset || line->empty())) line.reset();
    return line;
}

std::string alignment()
{
    const auto kind = setting(0);
    if (!kind) return kNone;
    const bool points = *kind == model::byIntersectionPoints;
    const auto count = rows({files::horizontal, points ? "个" : "段", points ? 2 : 0});
    return count == kNone ? *kind + "，没有数据" : *kind + " " + count;
}

std::string superelevation()
{
    const auto form = setting(1);
    const auto count = rows({files::superelevation, "段"});
    return form && count != kNone ? *form + " " + count : count;
}

std::string slopes()
{
    const auto fill = setting(2), cut = setting(3);
    if (!fill && !cut) return kNone;
    return "填 " + fill.value_or("0") + " 级，挖 " + cut.value_or("0") + " 级";
}

}  // namespace

std::array<std::string, kWizardOptions.size()> WizardStates()
{
    return {rows({files::traverse, "个"}),
            alignment(),
            rows({files::vertical, "个变坡点", 2}),
            superelevation(),
            rows({files::widths, "段"}),
            rows({files::breaks, "处"}),
            slopes(),
            rows({files::leftFill, "行"}),
            rows({files::rightFill, "行"}),
            rows({files::leftCut, "行"}),
            rows({files::rightCut, "行"})};
}
