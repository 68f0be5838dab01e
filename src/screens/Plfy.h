#pragma once
// Batch stake-out (frmPlfy): a run of stakes with their sides, or a file of stake and offset pairs.

#include "dialogs/Outcome.h"
#include "screens/BatchFile.h"
#include "screens/Station.h"

#include <string>

struct PlfyInput {
    std::string start;     ///< txtPlzbQdlc
    std::string end;       ///< txtPlzbZdlc
    std::string step;      ///< txtPlzbBc, m
    std::string offset;    ///< txtPlzbPj, m
    bool skewed = false;   ///< chePlzbJj
    std::string skew;      ///< txtPlzbJj, dd.mmss
    StationInput station;  ///< chePlFyzb, comPlzbCz, txtPlzbCzX, txtPlzbCzY
};

/// butPlzbCalc: clears the grid, then walks. Trap: words.
Outcome CalcPlfy(const PlfyInput& in, RowSink& rows);

/// bugPlfy: asks for a file and appends one row a line, seen from the station that is in memory. Trap: silent.
/// @param shown  the station controls, which it does not read: a station that differs is noted beside the rows
Outcome CalcPlfyFile(RowSink& rows, const StationInput& shown = {});
/// One line of it: stake, and offset (negative left). The rest of the batch is not looked at. No trap of its own.
/// @param stationNote  what is doubtful about the station, or ""
void AddPlfyLine(const BatchLine& line, RowSink& rows, const std::string& stationNote = {});
inline constexpr std::size_t kPlfyFields = 2;
