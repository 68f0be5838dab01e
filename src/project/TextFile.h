#pragma once
// Text files: bytes, lines, and the helpers that rewrite a whole file. Lines end with CR LF. Paths are UTF-8.
// Bytes stay bytes: a line that nobody changes keeps its bytes exactly.

#include "project/FileBytes.h"    // IWYU pragma: export
#include "project/ReplaceFile.h"  // IWYU pragma: export

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Code page 936 to UTF-8 and back. A byte sequence that the code page does not know becomes U+FFFD.
std::string Utf8FromCp936(std::string_view bytes);
/// Bytes of code page 936. @throws TypeMismatch where a character has no place in code page 936
std::string Cp936FromUtf8(std::string_view text);

/// The pieces between CR LF; an empty text has no pieces (upper bound -1), a final CR LF gives an empty last piece.
std::vector<std::string> SplitLines(std::string_view bytes);
std::vector<std::string> SplitFields(std::string_view line);
std::string JoinLines(const std::vector<std::string>& lines);  ///< each followed by CR LF

/// Line at `index`, counted from 0, as bytes. @throws Subscript past the end, and what ReadBytes throws
std::string ReadLine(const std::string& path, std::int16_t index);
// The three that rewrite the file drop the piece after the last CR LF, on purpose: a last line without CR LF is lost.
// `lineNo` counts from 1 and names an existing line, else nothing is changed but that; `text` is bytes.
void ReplaceLine(const std::string& path, std::int16_t lineNo, std::string_view text);
void InsertLine(const std::string& path, std::int16_t lineNo, std::string_view text);
void DeleteLine(const std::string& path, std::int16_t lineNo);
/// DeleteLine for every empty piece, the one after the final CR LF included, in effect; the user's file is changed for
/// good, and a last line without CR LF goes with the first blank line. Nothing is written where nothing changes.
void RemoveBlankLines(const std::string& path);
/// The bytes that RemoveBlankLines leaves of these.
std::string WithoutBlankLines(const std::string& bytes);
/// RemoveBlankLines that writes whenever there is an empty piece, as each deletion does: a file that ends with CR LF
/// always, changed or not. So it fails wherever the file cannot be written.
void RewriteWithoutBlankLines(const std::string& path);

/// Index of the last piece that holds a comma, -1 where none does.
std::ptrdiff_t LastCommaLine(const std::vector<std::string>& lines);

/// The folder with everything in it; a link is removed, never followed. Each entry gives the event loop a turn.
/// A missing folder is no error. @throws FileError
void DeleteFolderTree(const std::string& path);

/// UTF-16 little-endian with the mark FF FE. `text` is UTF-8.
void WriteUtf16File(const std::string& path, std::string_view text);
/// The text behind the first two bytes, whatever they are, full-width forms narrowed; "" for an empty file. UTF-8.
std::string ReadUtf16File(const std::string& path);
