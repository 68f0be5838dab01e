#pragma once
// Where the application works: the folder of the program, the workspace 参数文件 beside it, the catalogues.

#include "desk/Outcome.h"

#include <string>
#include <vector>

inline std::string gAppPath;  ///< folder of the running program, UTF-8, no separator at the end
inline std::string gProject;  ///< name of the current project, UTF-8; never cleared
/// Where the current project's files lie if not in the workspace: ParameterFile looks there while it is not empty.
/// Set by programs that take a folder anywhere; the windows leave it empty.
inline std::string gProjectFolder;

std::string WorkspacePath();                          ///< gAppPath/参数文件
std::string ProjectPath(const std::string& project);  ///< gAppPath/参数文件/<project>
std::string ParameterFile(const std::string& file);   ///< a file of gProject, such as 平曲线参数.txt
std::string PhonePath();                              ///< gAppPath/SJCS

/// A name that may become a folder on every platform: see the rules in Workspace.cpp.
bool IsFolderName(const std::string& name);

/// The workspace made if missing, the project catalogue read (created empty if missing), UTF-8 names in file order.
std::vector<std::string> OpenCatalogue();
/// The phone catalogue, empty where XMMC.txt is missing.
std::vector<std::string> ReadPhoneCatalogue();

/// New project from the typed text: sets gProject before any check. Refused with the dialog's boxes.
Outcome CreateProject(const std::string& typed);
/// Line `index` (from 0) of the catalogue and the folder of that name go.
void DeleteProject(int index, const std::string& name);
