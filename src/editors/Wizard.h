#pragma once
// The parameter wizard and its three small windows, without a window: which editor opens, what goes into 其他参数.txt.

#include "dialogs/Outcome.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

struct WizardOption {
    std::string_view caption;
    int settingsLine;       ///< of 其他参数.txt, counted from 0, that decides what opens; -1: none
    std::string_view form;  ///< what opens where nothing is to decide, or the line is set
};
inline constexpr std::array<WizardOption, 11> kWizardOptions{{
    {"导线点", -1, "frmDxd"},
    {"平曲线", 0, "frmJmpqx"},
    {"竖曲线", -1, "frmSqx"},
    {"超 高", 1, "frmCg"},
    {"超高宽度", -1, "frmCgkd"},
    {"断 链", -1, "frmDl"},
    {"边坡参数", -1, "frmBpjs"},
    {"左幅填方", 2, "frmTfz"},
    {"右幅填方", 2, "frmTfy"},
    {"左幅挖方", 3, "frmWfz"},
    {"右幅挖方", 3, "frmWfy"},
}};

/// What the wizard does for an option: first the message, if any, then the form, if any.
struct WizardStep {
    std::string_view form = {};
    std::optional<Msg> message = {};
};
WizardStep NextStep(int option);

/// Line `index` (from 0) of 其他参数.txt as UTF-8; nothing where the file is missing or too short. @throws
/// FileError where it is there and cannot be read, and so do NextStep and LoadSlopeSettings
std::optional<std::string> SettingsLine(int index);

/// Sets gPqxModel and line 1. Refused where the settings cannot be written.
Outcome StorePqxModel(bool byIntersectionPoints);
/// Sets gCgType and line 2. The text itself stays in gCgType until the next load turns it into a number.
Outcome StoreCgType(bool linear);

/// The three boxes of frmBpjs, as typed.
struct SlopeSettings {
    std::string fillGrades, cutGrades, heightLimit;
};
SlopeSettings LoadSlopeSettings();  ///< unset lines are empty
Outcome StoreSlopeSettings(const SlopeSettings& typed);
/// Why a typed grade count may not be left standing; nothing for a text that is no number.
std::optional<Msg> FillGradesTooMany(std::string_view typed);
std::optional<Msg> CutGradesTooMany(std::string_view typed);
