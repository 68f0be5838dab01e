#pragma once
// A table of texts as it goes out: aligned, CSV or JSON.

#include "base/GridText.h"
#include "cli/Arguments.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class Format { Table, Csv, Json, Sheet, Workbook };
/// How a result goes out: by --format, or by the ending of -o where that names a form (.csv, .json, .xls, .xlsx).
/// @param forms  those of the command, separated by blanks: "table csv json xls"
/// @throws WrongUsage for another form, a --format that the ending contradicts, and the ending of a spreadsheet that
/// nobody here writes
Format FormatOf(const Arguments& args, std::string_view forms);

/// Columns of a terminal that a UTF-8 text takes: Chinese characters take two.
int DisplayWidth(std::string_view text);

/// A column whose numbers JSON has beside the texts.
struct TypedColumn {
    int column;
    std::string_view key;
};

/// A table on its way out.
struct OutputTable {
    const GridText& grid;
    std::span<const TypedColumn> typed = {};  ///< columns with the numbers that their cells show
};
std::string Rendered(const OutputTable& table, Format format);

std::string AlignedTable(const GridText& grid);
/// Quotes around a text only where it needs them. A text that a spreadsheet would take for a formula gets a ' in front
/// and quotes around, so that it stays text; numbers and angles below 0 stay as they are.
/// @param lineEnd  of every line, the last one too
std::string Csv(const GridText& grid, std::string_view lineEnd);
/// An array of objects, one a row. Keys are the headers without their blanks (a header that comes again gets its
/// number) with the texts, then the typed values, null where a text has none; `warning` only where the row has one.
std::string Json(const OutputTable& table);

/// The bytes of a file of -o: one that ends with .csv with mark and CR LF, else as Rendered.
std::string FileBytes(const std::string& path, const OutputTable& table, Format format);
struct Call;
/// Writes the file of an option; a pipe or a device too. False: it could not be written, and standard error says why.
bool WriteOutput(const Call& call, const std::string& path, const std::function<std::string()>& bytes);
bool EndsWithNoCase(std::string_view path, std::string_view ending);
