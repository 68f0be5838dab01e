#pragma once
// The helpers that rewrite a whole text file by its lines. Lines end with CR LF; a line that nobody changes keeps its
// bytes exactly. Paths are UTF-8.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Line at `index`, counted from 0, as bytes. @throws Subscript past the end, and what ReadBytes throws
std::string ReadLine(const std::string& path, std::int16_t index);
// The three that rewrite the file drop the piece after the last CR LF, on purpose: a last line without CR LF is lost.
// `lineNo` counts from 1 and names an existing line, else nothing is changed but that; `text` is bytes.
void ReplaceLine(const std::string& path, std::int16_t lineNo, std::string_view text);
void InsertLine(const std::string& path, std::int16_t lineNo, std::string_view text);
void DeleteLine(const std::string& path, std::int16_t lineNo);
/// DeleteLine for every empty piece, the one after the final CR LF included, in effect; the user's file is changed for
/// good, and a last line without CR LF goes with the first blank line. Nothing is written where nothing changes.
/// @param losing  runs with the whole file before a line goes that holds more than blanks
void RemoveBlankLines(const std::string& path, const std::function<void(const std::string& bytes)>& losing = {});
/// RemoveBlankLines that writes whenever there is an empty piece, as each deletion does: a file that ends with CR LF
/// always, changed or not. So it fails wherever the file cannot be written.
void RewriteWithoutBlankLines(const std::string& path);
