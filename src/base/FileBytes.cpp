// The rest is each operating system's own: FileBytesPosix.cpp, FileBytesWindows.cpp.

#include "base/FileBytes.h"

bool FileExists(const std::string& path) { return LookAt(path) != Look::Missing; }

bool FolderExists(const std::string& path) { return LookAt(path) == Look::Folder; }
