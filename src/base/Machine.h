#pragma once
// How a program meets its operating system: its words, its folder, its standard streams, links and protected files.

#include <filesystem>
#include <string>
#include <vector>

/// The words after the program's name, UTF-8 where the system has texts, else bytes as they are.
std::vector<std::string> ArgumentsOf(int argc, char** argv);

/// Folder of the running program, separated by "/"; bytes as they are: a name that is no valid UTF-8 works too.
/// @param name  as the program was called, for machines that do not tell
std::string ProgramFolder(const char* name);

/// Before the first use of the standard streams: bytes go through as they are, no line end is changed, and a stream
/// that is closed gets no file in its place. Where a stream is a console, its characters are shown whatever its code
/// page.
void PrepareStreams();

/// The entry itself is a link, whatever it leads to.
bool IsLink(const std::filesystem::path& path);

/// What would keep the owner from deleting an entry of a folder of his: the protection of a file on Windows.
void Unprotect(const std::filesystem::path& file);
