#pragma once
// velumark-calc: what the calculation screens give, for scripts and batches.

#include <iosfwd>
#include <string>
#include <vector>

/// @param args  the words after the program's name, UTF-8
/// @param programFolder  the workspace where none is named
/// @return the exit code: 0, 1 for a refusal, 2 for wrong usage
int RunCompanion(const std::vector<std::string>& args, const std::string& programFolder, std::istream& in,
                 std::ostream& out, std::ostream& err);
