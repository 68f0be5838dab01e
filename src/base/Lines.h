#pragma once
// Texts taken apart: lines that end with CR LF, fields between commas. Bytes stay bytes.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The pieces between `separator`s; an empty text has no pieces.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
/// The pieces between CR LF; an empty text has no pieces (upper bound -1), a final CR LF gives an empty last piece.
std::vector<std::string> SplitLines(std::string_view bytes);
std::vector<std::string> SplitFields(std::string_view line);
std::string JoinLines(const std::vector<std::string>& lines);  ///< each followed by CR LF

/// The lines of a text from elsewhere, which end with LF, a CR before it or not; a line end at the very end adds none.
std::vector<std::string> AnyLines(std::string_view text);

/// The bytes without the lines that hold nothing; where one goes, so does what stands after the last CR LF.
std::string WithoutBlankLines(const std::string& bytes);

/// Index of the last piece that holds a comma, -1 where none does.
std::ptrdiff_t LastCommaLine(const std::vector<std::string>& lines);
