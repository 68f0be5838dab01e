#pragma once
// The binary workbook format (BIFF8 records in a compound file), written for one sheet named Sheet1.

#include "office/Worksheet.h"

#include <iosfwd>
#include <string>

/// The bytes of a workbook that holds one sheet. The same sheet gives the same bytes at any time and place. Where the
/// two diagonals of a cell have lines of different kinds, both get the kind of the one that runs down. Throws
/// std::length_error past 4,000 different looks, the most that readers take.
std::string XlsBytes(const Worksheet& sheet);

/// XlsBytes into a stream (opened as binary). Whoever replaces a file takes care that it is replaced whole.
void SaveXls(const Worksheet& sheet, std::ostream& out);
