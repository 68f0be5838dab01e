#pragma once
// Projects made of folders that are there already. Parameter files are what is copied: names that end with 参数.txt.

#include "dialogs/Outcome.h"

#include <string>

/// A new project with the parameter files of another one. gProject stays, backups do not come along.
/// @returns refused as AddProject does  @throws FileError where a file cannot be read or written; then nothing is left
Outcome CopyProject(const std::string& from, const std::string& to);

struct TakenFolder {
    Outcome outcome;
    std::string name;  ///< of the project, "" where it was refused
};
/// A folder that a person picked becomes a project of its name. One that lies in the workspace already gets its line in
/// the catalogue and nothing else; any other one is copied and stays as it is.
/// @param path  a folder, UTF-8
/// @returns refused where it has no parameter file, or as AddProject does  @throws FileError
TakenFolder TakeFolder(const std::string& path);

/// The samples that lie beside the program, in 示例, become the first projects of a workspace that is not there yet.
/// Later starts leave everything as it is, and so does one where no sample can be read.
void TakeSamples();
