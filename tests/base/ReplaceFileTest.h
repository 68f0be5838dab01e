#pragma once
// A file that is replaced, and what stands in its folder then.

#include "base/FileError.h"
#include "base/ReplaceFile.h"
#include "support/FailingCalls.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

struct ReplaceFile : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    std::string path = folder.path("表.txt");

    ReplaceFile() { folder.writeBytes("表.txt", "old"); }
    std::string now() const { return ProjectFolder::bytesOf(path); }
    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder.path("")))
            all.push_back(entry.path().filename().string());
        return all;
    }
    std::string reasonOf(void (*write)(const std::string&, std::string_view) = WriteBytes) const
    {
        try {
            write(path, "new");
        } catch (const FileError& error) {
            EXPECT_TRUE(error.writing());
            EXPECT_EQ(error.path(), path);
            return std::string(error.reason());
        }
        return "";
    }
    /// The first such call fails, and the old file stays alone.
    void failsAt(std::string_view name, int why, std::string_view reason) const
    {
        {
            bool failed = false, flushed = false;
            const FailingCalls failing([&](const Call& made) {
                flushed = flushed || made.name == "fsync";
                const bool reached = made.name == name && (name != "close" || flushed);  // of the new file
                return reached && !std::exchange(failed, true) ? why : 0;
            });
            EXPECT_EQ(reasonOf(), reason) << name;
        }
        EXPECT_EQ(now(), "old") << name;
        EXPECT_THAT(names(), testing::ElementsAre("表.txt")) << name;
    }
};
