#pragma once

#include <string>

/// The folder with everything in it; a link is removed, never followed. Each entry gives the event loop a turn.
/// A missing folder is no error. @param path UTF-8 @throws FileError
void DeleteFolderTree(const std::string& path);
