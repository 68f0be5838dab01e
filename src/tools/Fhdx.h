#pragma once
// The connecting traverse A-B-...-C-D. An open worksheet is its only store: the form is typed into it, the adjustment
// reads its cells and writes every result back, the plan is drawn from it.
//
// gFhdxN (N below) is the number of points, the two far points A and D included. Point k, counted from 1, has row
// 2k+2; what lies between two points, a leg or an azimuth, has the odd row between them. Columns:
//   a name   b angle, packed dd.mmss   c its correction, seconds   d azimuth   e distance, m   f g dX dY, m
//   h i corrections of dX dY, mm   j k corrected dX dY, m   l m X Y, m
// Below the points, rows 2N+4 to 2N+7 hold the closures in words.

#include "base/DesignNumber.h"
#include "dialogs/Outcome.h"
#include "office/Drawing.h"
#include "office/Worksheet.h"

#include <functional>
#include <map>
#include <optional>
#include <string_view>

/// The button that makes the sheet: the typed count goes to gFhdxN and is checked; `newSheet` opens an empty sheet,
/// which then takes the form. A run-time error on the way leaves the sheet as far as it got.
Outcome MakeFhdxSheet(std::string_view typedCount, bool leftAngles, const std::function<Worksheet&()>& newSheet);

/// Titles, merged cells, lines, fills, formats and page of a traverse of gFhdxN points on an empty sheet.
void LayOutFhdx(Worksheet& sheet, bool leftAngles);

/// What the adjustment writes as words or as degrees with marks, as numbers.
struct FhdxResult {
    double angleClosure = 0;       ///< fβ, whole seconds
    double fx = 0, fy = 0, f = 0;  ///< m, as they are written
    double lengthPerClosure = 0;   ///< the whole number behind K=1/
    std::map<int, double> angles;  ///< decimal degrees by the row where they stand: those typed and the azimuths
};

/// What is measured in a cell of a traverse of that many points; nothing for cells that nobody types a number into.
std::optional<Quantity> FhdxQuantity(CellRef cell, int points);

/// Adjusts the traverse in the sheet, step by step, each reading what the ones before wrote. Any run-time error (a cell
/// with text, a traverse that closes perfectly, more than 101 angles, a sum of corrections past 16 bits) leaves the
/// cells written so far.
FhdxResult AdjustFhdx(Worksheet& sheet, bool leftAngles);

/// The plan: x is Y of the survey, y is X. Kept on purpose: the loops count in gFhdxN itself, so that it ends as
/// 2N - 4, where the last loop leaves it, and not as N.
Drawing DrawFhdx(const Worksheet& sheet);

/// A closure to 6 decimals, ties away from zero, decided on its decimal text of 15 digits.
double Fixed6(double value);

/// What the two buttons say when a run-time error ends them.
Msg FhdxCalcFault();
Msg FhdxDrawFault();
