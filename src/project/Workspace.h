#pragma once
// Where the application works: the folder of the program, the workspace 参数文件 beside it, the catalogues.
// Only direct children of 参数文件 and SJCS are ever opened, written or deleted.

#include "base/ParameterFiles.h"  // IWYU pragma: export
#include "dialogs/Outcome.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

inline std::string gAppPath;  ///< folder of the running program, UTF-8, no separator at the end
inline std::string gProject;  ///< name of the current project, UTF-8; never cleared
/// Where the current project's files lie if not in the workspace: ParameterFile looks there while it is not empty.
/// Set by programs that take a folder anywhere; the windows leave it empty.
inline std::string gProjectFolder;

std::string WorkspacePath();  ///< gAppPath/参数文件
/// gAppPath/参数文件/<project>. A name that is no direct child of the workspace (empty, "..", "a/b") gives a path where
/// nothing can exist, so that whatever is done with it fails as with a folder that is missing.
std::string ProjectPath(const std::string& project);
/// A file of the current project, such as 平曲线参数.txt: below gProjectFolder if set, else below
/// ProjectPath(gProject).
std::string ParameterFile(std::string_view file);
std::string PhonePath();  ///< gAppPath/SJCS
/// gAppPath/SJCS/<name>, with the guard of ProjectPath.
std::string PhoneProjectPath(const std::string& name);

/// A name that may become a folder on every platform, so that a workspace can move: not empty, "." or "..", none of
/// \ / : * ? " < > |, no control character, no blank or point at the end, no device name, all of it in code page 936.
bool IsFolderName(std::string_view name);
/// A folder name that is not the list of phone projects itself, in any case of letters.
bool IsPhoneProjectName(std::string_view name);

/// The workspace made if missing, the project catalogue read (created empty if missing), UTF-8 names in file order.
/// @throws FileError
std::vector<std::string> OpenCatalogue();
/// The phone catalogue, empty where XMMC.txt is missing.
std::vector<std::string> ReadPhoneCatalogue();

/// New project from the typed text: sets gProject before any check. Refused with the boxes of the new-project dialog;
/// after either the form empties txtNewProjects and gives it the focus.
/// @param listed  runs when the catalogue has the new line, before the settings are written: what is shown agrees with
///                the catalogue also where those fail
Outcome CreateProject(const std::string& typed, const std::function<void()>& listed = {});
/// New project with files: the folder is made whole first, the line of the catalogue comes last; what fails leaves
/// neither. gProject stays.
/// @param files  bytes by name
/// @returns refused where the name is listed, stands on disk, or cannot be a folder  @throws FileError
Outcome AddProject(const std::string& name, const std::map<std::string, std::string>& files);
/// The project's line of the catalogue goes, then the folder of that name with all it holds (none where `name` is no
/// direct child of the workspace). Where the folder stays, so does the line. Backups are set aside.
/// @param index  line that was shown (from 0); where it names another project by now, the name is looked for. Refused
///               where it is no longer listed; then nothing is deleted
/// @throws FileError
Outcome DeleteProject(int index, const std::string& name);

/// Where a catalogue that another copy of the program may have changed names a project: at `index`, or nearest to it.
std::optional<std::ptrdiff_t> LineOf(const std::vector<std::string>& names, std::ptrdiff_t index,
                                     const std::string& name);
Refusal NoLongerListed(const std::string& name);
