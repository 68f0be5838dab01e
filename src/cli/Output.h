#pragma once
// A table of texts as it goes out: aligned, CSV or JSON.

#include "cli/Arguments.h"
#include "desk/GridText.h"

#include <string>
#include <string_view>
#include <vector>

enum class Format { Table, Csv, Json };
/// Of --format. @throws WrongUsage
Format FormatOf(const Arguments& args);

/// Columns of a terminal that a UTF-8 text takes: Chinese characters take two.
int DisplayWidth(std::string_view text);

/// @param warnings  by grid row; "" for none. Only JSON shows them.
std::string Rendered(const GridText& grid, const std::vector<std::string>& warnings, Format format);

std::string AlignedTable(const GridText& grid);
/// Quotes around a text only where it needs them. @param lineEnd  of every line, the last one too
std::string Csv(const GridText& grid, std::string_view lineEnd);
/// An array of objects, one a row, keys as the headers (a header that comes again gets its number), all values texts;
/// `warning` only where there is one.
std::string Json(const GridText& grid, const std::vector<std::string>& warnings);

/// The bytes of a file of -o by its ending: .csv with mark and CR LF, else as Rendered.
std::string FileBytes(const std::string& path, const GridText& grid, const std::vector<std::string>& warnings,
                      Format format);
bool EndsWithNoCase(std::string_view path, std::string_view ending);
