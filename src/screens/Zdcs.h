#pragma once
// The main-point table (frmZdcs): computes nothing, shows what LoadProject left.

#include "dialogs/Outcome.h"

/// Form_Load: turns the stakes of the main points to nominal ones, in place and rounded to three decimals, then one row
/// an intersection point. Kept on purpose: with breaks a second call without a fresh load moves the stakes again.
/// Trap: none. @throws Subscript beyond 500 intersection points
void LoadZdcs(RowSink& rows);
