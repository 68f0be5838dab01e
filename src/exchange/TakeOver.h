#pragma once
// From a file to a project of the workspace: what the window and velumark-calc do alike.

#include "dialogs/Outcome.h"
#include "exchange/Import.h"

#include <string>

/// Makes the project, its report beside the parameters. @throws FileError, ExchangeError
Outcome MakeProject(const std::string& name, const ImportedRoad& road);

/// The alignment of that name, or the only one where the name is empty. @throws ExchangeError that lists what there is
std::size_t FindAlignment(const landxml::File& file, const std::string& name);

/// 850,5350 or 850,5350;900,880: back and ahead of chainage breaks. @throws ExchangeError
std::vector<StationBreak> BreaksOfText(const std::string& text);
/// Whole metres. @throws ExchangeError
double ShiftOfText(const std::string& text);
