#pragma once
// The text files of batches: one line a point, numbers separated by commas.

#include "dialogs/Outcome.h"

#include <functional>
#include <string>
#include <vector>

/// The numbers of one line.
using BatchLine = std::vector<double>;

/// The first `fields` numbers of a line; further fields are ignored. @throws Subscript, TypeMismatch, Overflow
BatchLine ParseBatchLine(const std::string& line, std::size_t fields);

/// All lines of a file up to the last one that holds a comma; every line is parsed before the first is used. The blank
/// lines of the file are removed on disk first, for good; a file that ends with CR LF is written anew even so, and
/// where that fails nothing is read.
/// @throws what a file error, a line without a comma above the last one or a field that is no number give; Subscript
///         where no line holds a comma
std::vector<BatchLine> ReadBatchFile(const std::string& path, std::size_t fields);

/// Why a line could not be computed where its own numbers do not tell, in Chinese; "" where nobody knows better.
using WhyNot = std::function<std::string()>;

/// The button of a batch: asks for a file and hands its lines over one by one, until the rows are abandoned; then the
/// data has changed. A cancelled dialog ends it. Trap: silent; but the outcome tells what became of the file, its lines
/// counted after the blank ones went.
/// @param add  makes the rows of a line; false: it has no stake
/// @param whyNot  asked where an error has no text that it choked on
Outcome CalcBatchFile(std::size_t fields, RowSink& rows, const std::function<bool(const BatchLine&)>& add,
                      const WhyNot& whyNot = {});
