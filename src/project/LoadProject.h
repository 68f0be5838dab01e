#pragma once
// Opening a project: its files made ready, then loaded into the tables that every window computes with.

#include "project/LoadTables.h"

#include <functional>

/// Makes the files of gProject (or of gProjectFolder) ready and compiles them into the shared tables. Damaged fields
/// keep old values without a word; the one message is the gap box, through the dialogs, which ends the load there.
/// Nothing is cleared first: a group whose file has no rows keeps what the project before left. Blank lines are removed
/// from the files, missing files are created empty, 其他参数.txt grows to five lines. Where neverEnds is met it comes
/// back and says so.
Loaded loadOpenProject();
/// The same as the windows do it: at neverEnds the event loop has its turns, and the call never comes back. Files that
/// cannot be read are passed over without a word.
Loaded LoadProject();

/// Runs once when a load begins to hang, whoever called it; an empty one takes it back.
void WhenLoadHangs(std::function<void()> begin);
