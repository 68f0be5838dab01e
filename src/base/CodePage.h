#pragma once
// Code page 936, in which the files of a project are written.

#include <string>
#include <string_view>

/// Code page 936 to UTF-8 and back. A byte sequence that the code page does not know becomes U+FFFD.
std::string Utf8FromCp936(std::string_view bytes);
/// Bytes of code page 936. @throws TypeMismatch where a character has no place in code page 936
std::string Cp936FromUtf8(std::string_view text);
