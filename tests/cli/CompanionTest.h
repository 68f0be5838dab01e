#pragma once
// The built companion on a workspace with the sample projects.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "support/Json.h"
#include "support/ProjectFolder.h"
#include "support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

struct Companion : testing::Test {
    ProjectFolder workspace;

    Companion()
    {
        for (const char* sample : {"示例一", "示例二"})
            fs::copy(fs::path(VM_SOURCE_DIR "/samples") / sample, fs::path(WorkspacePath()) / sample);
    }
    Ran calc(std::vector<std::string> args, const std::string& input = {}) const
    {
        args.insert(args.begin(), {"--workspace", workspace.root()});
        return bare(args, input);
    }
    static Ran bare(const std::vector<std::string>& args, const std::string& input = {}, uid_t user = 0)
    {
        return runCompanion(args, input, user);
    }
    std::string file(const std::string& name, const std::string& bytes) const
    {
        const std::string path = workspace.root() + "/" + name;
        WriteBytes(path, bytes);
        return path;
    }
    ReadJson json(std::vector<std::string> args, const std::string& input = {}) const
    {
        args.insert(args.end(), {"--format", "json"});
        return ReadJson::from(calc(args, input).out);
    }
};

inline std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> list;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) list.push_back(line);
    return list;
}

inline std::map<std::string, std::string> everyFile(const fs::path& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        files[entry.path().string()] = entry.is_regular_file() ? ReadBytes(entry.path().string()) : "folder";
    return files;
}
