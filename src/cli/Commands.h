#pragma once
// Every command, by the file that holds it.

#include "cli/Command.h"

extern const Command kCoordsCommand;
extern const Command kInverseCommand;
extern const Command kStakeoutCommand;
extern const Command kElevationCommand;
extern const Command kCornersCommand;
extern const Command kMainPointsCommand;
extern const Command kPhoneCommand;
extern const Command kTraverseCommand;
extern const Command kTablesCommand;
extern const Command kPlotCommand;
extern const Command kCheckCommand;
extern const Command kImportCommand;
extern const Command kExportCommand;
extern const Command kPointsCommand;
extern const Command kCompareCommand;
extern const Command kListCommand;
extern const Command kHelpCommand;
