#pragma once

#include "project/FileError.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

/// Compiles the files of gProject (or of gProjectFolder) into the tables. Damaged fields keep old values without a
/// word; the one message is the gap box, through the desk, which ends the load there. Nothing is cleared first: a group
/// whose file has no rows keeps what the project before left.
/// Blank lines are removed from the files, missing files are created empty, 其他参数.txt grows to five lines.
/// A table file that has text but no comma in any line makes the load hang: it gives the event loop its turns and
/// never comes back (see SetHang for programs without a window).
void LoadProject();
/// The same tables from the same files, of which none is changed or created: what LoadProject does to a file is done to
/// its bytes in memory.
void LoadProjectInMemory();

/// A file that LoadProject would wait on for ever. The companion refuses it by name instead of hanging.
struct LoadWouldHang : std::runtime_error {
    LoadWouldHang(const std::string& name, int lastLine) : std::runtime_error(name), file(name), line(lastLine) {}
    std::string file;  ///< name within the project folder
    int line;          ///< counted from 1: the last line that has text
};
/// What LoadProject does at such a file: hang (the program) or throw LoadWouldHang (the companion, the probe, fuzzers).
enum class Hang { ForEver, Throw };
void SetHang(Hang hang);
/// Runs once when a load begins to hang, whoever called it; an empty one takes it back.
void WhenLoadHangs(std::function<void()> begin);

/// True where the last LoadProject was ended by a stake in a chainage gap.
bool LoadStoppedAtGap();

/// The files that were there and could not be read by the last LoadProject, each once. Its tables are not those of the
/// project then: the window says nothing of it, the companion refuses.
const std::vector<FileError>& UnreadableFiles();
