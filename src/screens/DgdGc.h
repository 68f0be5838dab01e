#pragma once
// Single point elevation (frmDgdGc): one press, one row.

#include "dialogs/Outcome.h"

#include <string>

struct DgdGcInput {
    std::string stake;          ///< txtDgdGcFylc
    std::string side = "中桩";  ///< comDgdGcz: 中桩, 左边桩, 右边桩
    std::string offset;         ///< txtDgdGcPj, m
    std::string thickness;      ///< txtDgdLmhd, m; blank is 0
};

/// butDgdGcCalc. The limits are those of the profile alone. Trap: words.
Outcome CalcDgdGc(const DgdGcInput& in, RowSink& rows);
