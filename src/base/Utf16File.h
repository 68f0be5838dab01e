#pragma once
// UTF-16 text files, those of the phone program.

#include <string>
#include <string_view>

/// UTF-16 little-endian with the mark FF FE. `text` is UTF-8.
void WriteUtf16File(const std::string& path, std::string_view text);
/// The text behind the first two bytes, whatever they are, full-width forms narrowed; "" for an empty file. UTF-8.
std::string ReadUtf16File(const std::string& path);
