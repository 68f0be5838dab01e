#pragma once
// What the project's files hold by now, in a word or two for each option of the wizard.

#include "editors/Wizard.h"

#include <array>
#include <string>

/// In the order of kWizardOptions, UTF-8: 交点法 5 个, 没有. Reads the files of gProject; changes and creates none.
std::array<std::string, kWizardOptions.size()> WizardStates();
