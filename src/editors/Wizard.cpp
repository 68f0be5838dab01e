#include "editors/Wizard.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "editors/EditorRules.h"
#include "editors/EditorTable.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"

#include <utility>
#include <vector>

namespace {

constexpr std::string_view kUnset = "未设置";
constexpr int kModelLine = 0, kCgLine = 1;

std::string settingsPath() { return ParameterFile(files::settings); }

Msg settingsDamaged() { return Notice("“" + std::string(files::settings) + "”不存在或不完整，请重新打开项目！"); }

/// ReplaceLine for each pair of number (from 1) and text, in one rewrite of the file.
Outcome replaceLines(const std::vector<std::pair<std::size_t, std::string>>& changes)
{
    try {
        std::vector<std::string> lines = SplitLines(ReadBytes(settingsPath()));
        if (!lines.empty()) lines.pop_back();
        for (const auto& [lineNo, text] : changes)
            if (lineNo <= lines.size()) lines[lineNo - 1] = Cp936FromUtf8(text);
        WriteBytes(settingsPath(), JoinLines(lines));
    } catch (const FileError& error) {
        return {Refusal{FileBox(error), {}}};
    }
    return {};
}

std::optional<Msg> tooMany(std::string_view typed, int limit, std::string_view message)
{
    double count = 0;
    attempt([&] { count = ParseNumber(typed); });
    if (count > limit) return Notice(message);
    return {};
}

}  // namespace

std::optional<std::string> SettingsLine(int index)
{
    if (!FileExists(settingsPath())) return std::nullopt;
    const auto lines = SplitLines(ReadBytes(settingsPath()));
    if (index < 0 || index >= std::ssize(lines)) return std::nullopt;
    return Utf8FromCp936(lines[static_cast<std::size_t>(index)]);
}

WizardStep NextStep(int option)
{
    if (option < 0 || option >= std::ssize(kWizardOptions)) return {};
    const WizardOption& chosen = kWizardOptions[static_cast<std::size_t>(option)];
    if (chosen.settingsLine < 0) return {chosen.form};
    const auto line = SettingsLine(chosen.settingsLine);
    if (!line) return {.message = settingsDamaged()};
    if (chosen.settingsLine == kModelLine && *line == model::byIntersectionPoints) return {"frmJdpqx"};
    if (*line != kUnset) return {chosen.form};
    switch (chosen.settingsLine) {
    case kModelLine:
        return {"frmPqxSelect"};
    case kCgLine:
        return {"frmSelectCg"};
    default:
        return {"frmBpjs", Notice("请先设置最大边坡级数！")};
    }
}

Outcome StorePqxModel(bool byIntersectionPoints)
{
    gPqxModel = byIntersectionPoints ? model::byIntersectionPoints : model::byBlocks;
    return replaceLines({{1, gPqxModel}});
}

Outcome StoreCgType(bool linear)
{
    gCgType = linear ? "线性" : "三次抛物线";
    return replaceLines({{2, gCgType}});
}

SlopeSettings LoadSlopeSettings()
{
    const auto shown = [](int index) {
        const auto line = SettingsLine(index);
        return line && *line != kUnset ? *line : std::string();
    };
    return {shown(2), shown(3), shown(4)};
}

Outcome StoreSlopeSettings(const SlopeSettings& typed)
{
    const std::string fill(Trim(typed.fillGrades)), cut(Trim(typed.cutGrades)), height(Trim(typed.heightLimit));
    if (fill.empty()) return {Refusal{Notice("请输入填方最大边坡级数！"), "txtTfJs"}};
    if (cut.empty()) return {Refusal{Notice("请输入挖方最大边坡级数！"), "txtWfJs"}};
    return replaceLines({{3, fill}, {4, cut}, {5, height.empty() ? "0" : height}});
}

std::optional<Msg> FillGradesTooMany(std::string_view typed)
{
    return tooMany(typed, kTfz.gradeLimit, "填方最大坡度级数不能大于5！");
}

std::optional<Msg> CutGradesTooMany(std::string_view typed)
{
    return tooMany(typed, kWfz.gradeLimit, "挖方最大坡度级数不能大于10！");
}
