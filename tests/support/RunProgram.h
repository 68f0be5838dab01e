#pragma once
// Runs a program and keeps what it said.

#include <string>
#include <sys/types.h>
#include <vector>

struct Ran {
    int code;  ///< exit code, or minus the number of the signal that ended it
    std::string out, err;
};

/// @param user  run as this user id where the test runs as root, so that read-only files are read-only
Ran runProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input = {},
               uid_t user = 0);

/// velumark-calc as this build made it.
std::string companionPath();
Ran runCompanion(const std::vector<std::string>& args, const std::string& input = {}, uid_t user = 0);
