#pragma once
// Single point coordinates (frmDgdZb): one press, one row.

#include "dialogs/Outcome.h"
#include "screens/Station.h"

#include <string>

struct DgdZbInput {
    std::string stake;          ///< txtDgdZbFylc
    std::string side = "中桩";  ///< comDgdZbz: 中桩, 左边桩, 右边桩
    std::string offset;         ///< txtDgdPj, m
    bool skewed = false;        ///< cheDgdJj
    std::string skew;           ///< txtDgdJj, dd.mmss
    StationInput station;       ///< cheDgdZb, comDgdCz, txtDgdCzX, txtDgdCzY
};

/// butDgdCalc. Trap: words.
Outcome CalcDgdZb(const DgdZbInput& in, RowSink& rows);
