#pragma once
// Batch elevation (frmPlGc): a run of stakes, or a file of stake and offset pairs.

#include "dialogs/Outcome.h"
#include "screens/BatchFile.h"

#include <string>

struct PlGcInput {
    std::string start;      ///< txtPlGcQdlc
    std::string end;        ///< txtPlGcZdlc
    std::string offset;     ///< txtPlGcPj, m; blank is 0
    std::string step;       ///< txtPlGcJj, m; 0 is not refused
    std::string thickness;  ///< txtLmhd, m; blank is 0
};

/// butPlGcCalc: clears the grid, then walks. The limits are those of the alignment alone. Trap: words.
Outcome CalcPlGc(const PlGcInput& in, RowSink& rows);

/// bugPlgc: asks for a file and appends one row a line, whatever lies beyond alignment and profile. Trap: silent.
/// @param thickness  txtLmhd
Outcome CalcPlGcFile(const std::string& thickness, RowSink& rows);
/// One line of it: stake, and offset (negative left). No trap of its own.
void AddPlGcLine(const BatchLine& line, const std::string& thickness, RowSink& rows);
inline constexpr std::size_t kPlGcFields = 2;
