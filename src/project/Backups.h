#pragma once
// What a parameter file said before it was replaced: 备份/<project>/ beside the workspace, the last 20 of each file.
// Projects that lie in a folder elsewhere (gProjectFolder) have no workspace beside them and keep nothing.

#include "base/FileError.h"

#include <string>
#include <string_view>
#include <vector>

/// gAppPath/备份/<project>; a path where nothing can exist where the name is no folder's name.
std::string BackupPath(const std::string& project);

/// Before a file of the current project is replaced: these bytes are kept, unless they are the last ones kept of it.
/// Never throws: what fails is in openRoad.notKept and stands in the line of the windows until a later one is kept.
/// @param file  its name, such as 平曲线参数.txt
/// @return false where it failed
bool keepReplaced(std::string_view file, const std::string& bytes);

/// The file is replaced all the same, and the line of the windows tells that nothing of it is kept, and why.
void notKept(std::string_view file, const FileError& why);

/// Rows of a file as its editor would count them, but for first and last lines that are no rows: lines with a comma.
int rowsIn(std::string_view bytes);

struct Backup {
    std::string file;  ///< 平曲线参数.txt
    std::string path;
    std::string when;  ///< 2026-11-22 06:41:38, of the machine's clock
    int rows = 0;      ///< rowsIn
};
/// All that is kept of a project, the newest first. What cannot be read is left out.
std::vector<Backup> BackupsOf(const std::string& project);
/// The project's file gets the bytes of the backup; what it said until then is kept as before a save.
/// @throws FileError where the backup cannot be read, or the file not written
void RestoreBackup(const std::string& project, const Backup& backup);

/// The project was deleted: its backups move to "<name> 已删除 <date>", out of the way of a new project of that name.
void setBackupsAside(const std::string& project);
