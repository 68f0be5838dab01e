#pragma once

#include <stdexcept>
#include <string>

/// Compiles the files of gProject into the tables. Damaged fields keep old values without a word; the one message is
/// the gap box, through the desk, which ends the load there.
/// A table file that has text but no comma in any line makes the load hang: it gives the event loop its turns and
/// never comes back (see SetHang for programs without a window).
void LoadProject();

/// A file that LoadProject would wait on for ever. The companion refuses it by name instead of hanging.
struct LoadWouldHang : std::runtime_error {
    LoadWouldHang(const std::string& file, int line) : std::runtime_error(file), file(file), line(line) {}
    std::string file;  ///< name within the project folder
    int line;          ///< counted from 1: the last line that has text
};
/// What LoadProject does at such a file: hang (the program) or throw LoadWouldHang (the companion, the probe, fuzzers).
enum class Hang { ForEver, Throw };
void SetHang(Hang hang);

/// True where the last LoadProject was ended by a stake in a chainage gap.
bool LoadStoppedAtGap();
