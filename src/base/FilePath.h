#pragma once

#include <filesystem>
#include <string>

/// What separates the folders of a path: Windows takes both.
#ifdef _WIN32
inline constexpr const char* kSeparators = "/\\";
#else
inline constexpr const char* kSeparators = "/";
#endif

/// The path of a UTF-8 text, on every platform.
inline std::filesystem::path filePath(const std::string& utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}
