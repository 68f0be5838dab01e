#pragma once
// Whole files as bytes: what stands at a path, and how it is read. Paths are UTF-8. What fails is a FileError.
//
// Missing is what the operating system says is not there. What is there and cannot be looked at, opened or read is
// unreadable: a dangling link or a loop, a failing disk, another user's file. Nothing is ever created, emptied or
// replaced in the place of that.

#include <string>

enum class Look {
    Missing,
    Regular,
    Folder,
    Other,       ///< a pipe, a device, a socket
    Unreadable,  ///< there, as far as anybody can say; the look itself failed
};
/// What stands at the path; links are followed.
Look LookAt(const std::string& path);

bool FileExists(const std::string& path);    ///< something stands there, readable or not: anything but Missing
bool FolderExists(const std::string& path);  ///< it is a folder

/// All bytes of a regular file; anything else there is unreadable, at once. @throws FileError
std::string ReadBytes(const std::string& path);
/// All bytes; a missing file is created empty, as opening for binary access does. @throws FileError, which is writing()
/// where a missing file could not be created
std::string ReadBytesCreating(const std::string& path);
/// All bytes of whatever gives bytes, a pipe or a device too. @throws FileError
std::string ReadStream(const std::string& path);
