#pragma once
// A folder with a Chinese name that is gone with the object, and what stands in it.

#include "base/FilePath.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <vector>

struct Place : testing::Test {
    std::string root;

    Place()
    {
        const auto folder =
            std::filesystem::temp_directory_path() / filePath("工程 " + std::to_string(std::random_device()()));
        std::filesystem::create_directory(folder);
        const auto name = folder.generic_u8string();
        root.assign(name.begin(), name.end());
    }
    ~Place() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(filePath(root), ignored);
    }

    std::string path(const std::string& name) const { return root + "/" + name; }
    /// Written and read by the library's streams, not by what is tested.
    void write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(filePath(path(name)), std::ios::binary) << bytes;
    }
    std::string bytes(const std::string& name) const
    {
        std::ifstream in(filePath(path(name)), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::vector<std::string> names() const { return namesIn("."); }
    std::vector<std::string> namesIn(const std::string& folder) const
    {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(filePath(path(folder)))) {
            const auto name = entry.path().filename().u8string();
            all.emplace_back(name.begin(), name.end());
        }
        return all;
    }
};
