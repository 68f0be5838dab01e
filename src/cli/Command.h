#pragma once
// The commands of the companion: one row each. A new command is a file with its row, and a line in Commands.cpp.

#include "cli/Arguments.h"
#include "cli/Output.h"

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

/// What a command works with.
struct Call {
    const Arguments& args;
    Way way;        ///< the one that fits, where the command has ways
    Format format;  ///< how the result goes out
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

struct Command {
    std::string_view name;
    std::string_view summary;         ///< one line
    std::string_view help;            ///< what goes in and what comes out, with examples
    std::span<const Way> ways;        ///< how it can be called; none: its options are free
    std::span<const Option> options;  ///< of its own
    bool takesWords = false;          ///< words that are no options may follow
    bool needsProject = true;         ///< a project stands before the command
    std::string_view alone = {};      ///< an option with which none does
    bool loads = true;                ///< and is loaded before it runs
    /// What --format and the ending of -o may ask for; "" for a command without these options, or with a -o of its own.
    std::string_view forms = "table csv json xls xlsx";
    /// 0, or 1 for a refusal, whose text is on `err`. @throws WrongUsage
    int (*run)(const Call&);
};

std::span<const Command* const> Commands();
const Command* FindCommand(std::string_view name);

/// Options that every command has: --format and -o where it has forms, --quiet, --help.
std::span<const Option> CommonOptions(const Command& command);
std::string CommandHelp(const Command& command);
std::string GeneralHelp();

enum ExitCode { kDone = 0, kRefused = 1, kWrongUsage = 2 };
