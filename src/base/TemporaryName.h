#pragma once
// Names of temporary files beside the file whose place they take: ".vm", 16 digits that stand for the file's own name,
// "-", 8 letters by chance, ".tmp". Short, so that they fit where the file's own name does, and told from those of any
// other file.

#include <filesystem>
#include <string>

/// What the names of all temporary files of `file` begin with.
std::string TemporaryNames(const std::filesystem::path& file);
/// One of them.
std::string NameByChance(const std::string& beginning);
bool IsNameByChance(const std::string& name, const std::string& beginning);
/// Where `file` lies, "." for a name alone.
std::filesystem::path FolderOf(const std::filesystem::path& file);
