#pragma once
// A block of cells as the text that spreadsheets exchange: tabs between columns, line ends between rows, quotes around
// a cell that holds either or quotes.

#include <string>
#include <string_view>
#include <vector>

using CellRows = std::vector<std::vector<std::string>>;

/// Each row ends with CR LF.
std::string TabText(const CellRows& rows);
/// Lines end with CR LF, LF or CR; one line end at the very end adds no row. Quotes are taken off where they enclose
/// the whole cell and it needs them, for a tab, a line end or a doubled quote in it; all others are text.
CellRows RowsOfTabText(std::string_view text);
