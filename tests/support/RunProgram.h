#pragma once
// Runs a program and keeps what it said.

#include <string>
#include <vector>

struct Ran {
    int code;  ///< exit code, or minus the number of the signal that ended it (Windows has none)
    std::string out, err;
};

/// @param user  run as this user id where the test runs as root, so that read-only files are read-only; not on Windows
Ran runProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input = {},
               unsigned user = 0);

/// velumark-calc as this build made it.
std::string companionPath();
Ran runCompanion(const std::vector<std::string>& args, const std::string& input = {}, unsigned user = 0);
