#pragma once
// The binary workbook format (BIFF8 records in a compound file), written for one sheet named Sheet1.

#include "office/Worksheet.h"

#include <iosfwd>
#include <string>

/// The bytes of a workbook that holds one sheet. The same sheet gives the same bytes at any time and place.
std::string XlsBytes(const Worksheet& sheet);

/// XlsBytes into a stream (opened as binary). Whoever replaces a file takes care that it is replaced whole.
void SaveXls(const Worksheet& sheet, std::ostream& out);
