// A file is the old one or the new one, whatever happens to the program that rewrites it.

#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "base/Utf16File.h"
#include "support/KillAtRandomPoints.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string lines(char letter, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) text += std::string(60, letter) + "," + std::to_string(i) + "\r\n";
    return text;
}

std::set<std::string> filesIn(const std::string& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

const std::string kOld = lines('a', 2000), kNew = lines('b', 3000);

}  // namespace

TEST(SafeWriting, KilledWhileWritingBytes)
{
    const ProjectFolder folder;
    const auto path = folder.path("表.txt");
    killAtRandomPoints(path, {kOld, kNew}, [&] {
        WriteBytes(path, kOld);
        WriteBytes(path, kNew);
    });
}

TEST(SafeWriting, KilledWhileReplacingALine)
{
    const ProjectFolder folder;
    const auto path = folder.path("表.txt");
    folder.writeBytes("表.txt", "first\r\n" + kOld);
    killAtRandomPoints(path, {"one\r\n" + kOld, "another\r\n" + kOld}, [&] {
        ReplaceLine(path, 1, "one");
        ReplaceLine(path, 1, "another");
    });
}

TEST(SafeWriting, KilledWhileInsertingALine)
{
    const ProjectFolder folder;
    const auto path = folder.path("表.txt");
    killAtRandomPoints(path, {kOld, "line\r\n" + kOld}, [&] {
        WriteBytes(path, kOld);
        InsertLine(path, 1, "line");
    });
}

TEST(SafeWriting, KilledWhileDeletingALine)
{
    const ProjectFolder folder;
    const auto path = folder.path("表.txt");
    killAtRandomPoints(path, {"line\r\n" + kOld, kOld}, [&] {
        WriteBytes(path, "line\r\n" + kOld);
        DeleteLine(path, 1);
    });
}

TEST(SafeWriting, FullDiskLeavesTheOldFileAndNothingElse)
{
    const std::function<void(const std::string&)> writers[] = {
        [](const std::string& path) { WriteBytes(path, kNew); },
        [](const std::string& path) { ReplaceLine(path, 1, "x"); },
        [](const std::string& path) { InsertLine(path, 1, "x"); },
        [](const std::string& path) { DeleteLine(path, 1); },
        [](const std::string& path) { WriteUtf16File(path, kNew); },
    };
    for (const auto& write : writers) {
        const ProjectFolder folder;
        folder.writeBytes("表.txt", kOld);
        const auto before = filesIn(folder.path(""));
        const pid_t child = fork();
        if (child == 0) {
            // No file may grow past 1000 bytes: the first ones are written, the rest is refused.
            const rlimit limit{1000, 1000};
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
            try {
                write(folder.path("表.txt"));
            } catch (const RunTimeError& error) {
                _exit(error.number());
            }
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), RunTimeError::PathAccess);
        EXPECT_EQ(folder.bytes("表.txt"), kOld);
        EXPECT_EQ(filesIn(folder.path("")), before);
    }
}

TEST(SafeWriting, PermissionsStayAndNothingIsLeftBeside)
{
    const ProjectFolder folder;
    folder.writeBytes("表.txt", "old");
    const auto path = folder.path("表.txt");
    for (const mode_t mode : {0600u, 0644u, 0664u}) {
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        WriteBytes(path, "new");
        struct stat now {};
        ASSERT_EQ(stat(path.c_str(), &now), 0);
        EXPECT_EQ(now.st_mode & 07777, mode);
    }
    EXPECT_EQ(filesIn(folder.path("")), std::set<std::string>{"表.txt"});
}

TEST(SafeWriting, ALinkIsFollowedAndStaysALink)
{
    const ProjectFolder folder;
    std::filesystem::create_directory(folder.root() + "/elsewhere");
    const auto target = folder.root() + "/elsewhere/outside.txt";
    WriteBytes(target, "outside");
    std::filesystem::create_symlink("../../elsewhere/outside.txt", folder.path("表.txt"));
    WriteBytes(folder.path("表.txt"), "new");
    EXPECT_EQ(ProjectFolder::bytesOf(target), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("表.txt")));
    EXPECT_EQ(filesIn(folder.root() + "/elsewhere"), std::set<std::string>{"outside.txt"});
    EXPECT_EQ(filesIn(folder.path("")), std::set<std::string>{"表.txt"});
}
