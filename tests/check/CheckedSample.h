#pragma once
// A sample project that a test changes, and what the check says of it.

#include "check/Check.h"
#include "support/ProjectFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

class CheckedSample {
public:
    explicit CheckedSample(const std::string& sample)
    {
        for (const auto& file : std::filesystem::directory_iterator(std::string(VM_SOURCE_DIR "/samples/") + sample))
            std::filesystem::copy_file(file.path(), folder.path(file.path().filename().string()));
    }

    /// Exchanges the one place where `from` stands.
    void replace(const std::string& file, const std::string& from, const std::string& to) const
    {
        std::string text = folder.text(file);
        const auto place = text.find(from);
        ASSERT_NE(place, std::string::npos) << from;
        ASSERT_EQ(text.find(from, place + 1), std::string::npos) << from;
        folder.write(file, text.replace(place, from.size(), to));
    }

    std::vector<Finding> found() const { return CheckProject(path()); }
    std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (const auto& finding : found()) all.push_back(FindingText(finding));
        return all;
    }
    std::string path() const { return ProjectPath(gProject); }

    ProjectFolder folder;
};
