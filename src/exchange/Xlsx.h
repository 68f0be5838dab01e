#pragma once
// A result table as an .xlsx workbook: numbers as numbers, and a second sheet with the texts of the screen.

#include "base/GridText.h"

#include <string>
#include <vector>

struct XlsxTable {
    const GridText& grid;           ///< row 0 is the header
    std::string title;              ///< stands in the head of every printed page
    std::vector<bool> marked = {};  ///< by grid row: shown on amber
};

/// The bytes of the workbook; the same table gives the same bytes. @throws FileError where no temporary file can be
/// written, RunTimeError Overflow for a table that no sheet holds
std::string XlsxBytes(const XlsxTable& table);
