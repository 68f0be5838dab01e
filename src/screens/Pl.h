#pragma once
// The run of structures (frmPl), which hands start, end and step to frmJgw in gPlStart, gPlEnd, gPlStep.

#include "dialogs/Outcome.h"
#include "screens/Jgw.h"

#include <string>

struct PlInput {
    std::string start;  ///< txtQdlc
    std::string end;    ///< txtZdlc
    std::string step;   ///< txtBc, m; may be negative
};

/// butOK up to the run: where nothing is refused gPlBatch is set, and the form goes on with the calculate handler of
/// frmJgw (CalcJgw) and unloads. A refusal leaves the form on the screen. Trap: words.
/// @param jgw  the texts on frmJgw; the controls that its refusals name stand there
Outcome CalcPl(const PlInput& in, const JgwInput& jgw);
