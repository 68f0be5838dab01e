#pragma once
// Which option of a call a refusal of a screen speaks of.

#include "cli/Command.h"
#include "dialogs/Outcome.h"

#include <string>

/// "--offset 1.2.3：" for the option whose value was refused, "" where no one option is to blame.
/// @param option  the one to name whatever was refused, "" to look for it
std::string Culprit(const Call& call, const Refusal& refusal, std::string_view option = {});
/// The option with its value, as a message begins with it.
std::string NamedValue(const Call& call, std::string_view option);
