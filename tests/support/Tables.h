#pragma once
// Tables for tests that need no project folder.

#include "tables/CalcTables.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <vector>

/// One typed break.
struct Break {
    double back, ahead;
};

/// Fills the break tables as a load leaves them: amounts as typed, later rows shifted by the amounts before.
inline void setBreaks(const std::vector<Break>& breaks)
{
    gDlBack.clear(), gDlAhead.clear(), gDlCum.clear();
    gHasDl = breaks.empty() ? 0 : -1;
    gDlCount = static_cast<std::int16_t>(breaks.empty() ? 0 : breaks.size() - 1);
    double shift = 0;
    for (const Break& b : breaks) {
        gDlBack.push_back(b.back - shift);
        gDlAhead.push_back(b.ahead - shift);
        gDlCum.push_back(std::abs(b.ahead) - std::abs(b.back));
        shift += gDlCum.back();
    }
}

/// A row of the alignment: continuous stake m, point m, azimuth dd.mmss, radii m.
struct ElementRow {
    double lc, x, y, fwj, r1, r2;
};

/// Fills the alignment; the last row closes it.
inline void setElements(const std::vector<ElementRow>& rows)
{
    shared.tables.fast = {};
    gElemLc.clear(), gElemX.clear(), gElemY.clear(), gElemFwj.clear(), gElemR1.clear(), gElemR2.clear();
    for (const ElementRow& r : rows) {
        gElemLc.push_back(r.lc);
        gElemX.push_back(r.x);
        gElemY.push_back(r.y);
        gElemFwj.push_back(r.fwj);
        gElemR1.push_back(r.r1);
        gElemR2.push_back(r.r2);
    }
    gElemCount = static_cast<std::int16_t>(rows.size() - 1);
}

/// A test with the tables of a fresh process.
template <class Base>
struct FreshTables : Base {
    FreshTables() { shared = {}; }
    ~FreshTables() override { shared = {}; }
};
