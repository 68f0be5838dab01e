#pragma once
// What ReplaceFile asks of the operating system; ReplaceFile.h tells what a caller may rely on.

#include <functional>
#include <string>

/// The bytes of a file piece by piece; an empty one ends them.
using PiecesOfFile = std::function<std::string()>;

/// @param straight  what is no regular file is written as it is, else refused
/// @throws FileError, which is writing(), and what `next` throws
void ReplaceWhole(const std::string& path, const PiecesOfFile& next, bool straight);
