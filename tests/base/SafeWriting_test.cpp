// A file that cannot be written is the old one.

#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "base/Utf16File.h"
#include "support/FailingCalls.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <map>

TEST(SafeWriting, ADiskThatFillsUpLeavesTheOldFileWhateverIsWritten)
{
    const std::function<void(const std::string&)> writers[] = {
        [](const std::string& path) { WriteBytes(path, "new"); },
        [](const std::string& path) { ReplaceLine(path, 1, "x"); },
        [](const std::string& path) { InsertLine(path, 1, "x"); },
        [](const std::string& path) { DeleteLine(path, 1); },
        [](const std::string& path) { WriteUtf16File(path, "new"); },
    };
    for (const auto& write : writers) {
        const ProjectFolder folder;
        folder.writeBytes("表.txt", "old\r\nfile\r\n");
        {
            const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
            EXPECT_THROW(write(folder.path("表.txt")), RunTimeError);
        }
        EXPECT_EQ(ProjectFolder::filesIn(folder.path("")),
                  (std::map<std::string, std::string>{{"表.txt", "old\r\nfile\r\n"}}));
    }
}

TEST(SafeWriting, AFolderInTheWayStays)
{
    const ProjectFolder folder;
    std::filesystem::create_directory(folder.path("表.txt"));
    try {
        WriteBytes(folder.path("表.txt"), "x");
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), RunTimeError::PathAccess);
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.path("表.txt")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path("")), {}), 1);
}

TEST(SafeWriting, TheLongestFileNameFits)
{
    const ProjectFolder folder;
    const std::string name(255, 'n');
    WriteBytes(folder.path(name), "x");
    EXPECT_EQ(folder.bytes(name), "x");
}
