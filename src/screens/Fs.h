#pragma once
// Inverse stake from coordinates (frmFs): one typed point, or a file of points.

#include "dialogs/Outcome.h"
#include "engine/FootRun.h"
#include "screens/BatchFile.h"

#include <string>

struct FsInput {
    std::string x;  ///< txtFsx
    std::string y;  ///< txtFsY
};

/// butFsCalc. A point without a stake gets no row and no word; the data-changed flag is set all the same.
/// Trap: none, on purpose: a text that is no number ends the program. @throws RunTimeError
Outcome CalcFs(const FsInput& in, RowSink& rows);

/// butPlfs: asks for a file and appends one row for each point that has a stake. Trap: silent.
Outcome CalcFsFile(RowSink& rows);
/// One point of it. No trap of its own. False: no stake found, no row.
/// @param run  of the file, which leaves the shared results as they have to be when it goes
bool AddFsPoint(FootRun& run, double x, double y, RowSink& rows);
inline constexpr std::size_t kFsFields = 2;
