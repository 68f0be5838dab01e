// What only POSIX has: owners, pipes, devices, links, and temporary files of writers that were killed.

#include "ReplaceFileTest.h"

#include "base/FileBytes.h"
#include "support/OrdinaryUser.h"

#include <algorithm>
#include <csignal>
#include <set>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <thread>

using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

struct stat statusOf(const std::string& path)
{
    struct stat found {};
    EXPECT_EQ(stat(path.c_str(), &found), 0);
    return found;
}

struct Leftovers : ReplaceFile {
    /// A writer that ends between writing its temporary file and renaming it; the name of what it leaves.
    std::string leftover(const std::string& file, int daysAgo) const
    {
        const auto before = names();
        const pid_t child = fork();
        if (child == 0) {
            const FailingCalls killed([](const Call& call) { return call.name == "rename" ? raise(SIGKILL) : 0; });
            WriteBytes(folder.path(file), "new");
        }
        int ended = 0;
        waitpid(child, &ended, 0);
        EXPECT_TRUE(WIFSIGNALED(ended));
        for (const auto& name : names()) {
            if (std::find(before.begin(), before.end(), name) != before.end()) continue;
            fs::last_write_time(folder.path(name), fs::file_time_type::clock::now() - std::chrono::hours(24 * daysAgo));
            return name;
        }
        ADD_FAILURE() << "nothing was left";
        return "";
    }
};

}  // namespace

TEST_F(ReplaceFile, AnotherUsersFileIsRefusedThoughTheFolderWouldAllowIt)
{
    fs::permissions(path, fs::perms(0644));
    fs::permissions(folder.path(""), fs::perms(0777));
    {
        const OrdinaryUser user;
        EXPECT_EQ(reasonOf(), geteuid() == 0 ? "" : "没有写入权限");
    }
    EXPECT_EQ(now(), "old");
    fs::permissions(path, fs::perms(0666));
    {
        const OrdinaryUser user;
        EXPECT_EQ(reasonOf(), "");
    }
    EXPECT_EQ(now(), "new");
}

// Results

TEST_F(ReplaceFile, AResultForAPipeGoesIntoThePipe)
{
    folder.remove("表.txt");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::string got;
    std::jthread reader([&] { got = ReadStream(path); });
    WriteResult(path, "a result");
    reader.join();
    EXPECT_EQ(got, "a result");
    EXPECT_TRUE(fs::is_fifo(path));
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

TEST_F(ReplaceFile, APipeWhoseReaderLeavesIsAFailureAndNotTheEnd)
{
    folder.remove("表.txt");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::jthread reader([&] { std::ifstream(path).get(); });
    EXPECT_THROW(WriteResult(path, std::string(1 << 20, 'x')), FileError);  // more than a pipe holds
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(ReplaceFile, AResultForADeviceLeavesTheDevice)
{
    // A device of the test's own where it may make and open one, else a link to that of the system.
    folder.remove("表.txt");
    if (mknod(path.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0 || !std::ofstream(path)) {
        fs::remove(path);
        fs::create_symlink("/dev/null", path);
    }
    const auto isDevice = [&] { return fs::is_character_file(path); };
    ASSERT_TRUE(isDevice());
    const auto target = fs::canonical(path);
    EXPECT_NE(reasonOf(WriteBytes), "") << "no place for a parameter file";
    EXPECT_EQ(reasonOf(WriteResult), "");
    EXPECT_TRUE(isDevice());
    EXPECT_EQ(fs::canonical(path), target);
}

TEST_F(ReplaceFile, AFullDeviceSaysSo)
{
    folder.remove("表.txt");
    fs::create_symlink("/dev/full", path);
    EXPECT_EQ(reasonOf(WriteResult), "磁盘已满");
    EXPECT_TRUE(fs::is_symlink(path));
}

// Rights and owners

TEST_F(ReplaceFile, AUsersFileStaysTheirsWhenRootWritesIt)
{
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    const gid_t group = geteuid() == 0 ? 65534 : getegid();
    ASSERT_EQ(chown(path.c_str(), owner, group), 0);
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    EXPECT_EQ(reasonOf(), "");
    EXPECT_EQ(now(), "new");
    EXPECT_EQ(statusOf(path).st_uid, owner);
    EXPECT_EQ(statusOf(path).st_gid, group);
    EXPECT_EQ(statusOf(path).st_mode & 07777u, 0640u);
}

TEST_F(ReplaceFile, AFileSystemWithoutRightsTakesTheFileAllTheSame)
{
    ASSERT_EQ(chmod(path.c_str(), 0606), 0);  // other than what a new file gets, so that it would be set
    for (const int why : {ENOTSUP, EPERM}) {
        const FailingCalls without([&](const Call& call) { return call.name == "fchmod" ? why : 0; });
        folder.writeBytes("表.txt", "old");
        EXPECT_EQ(reasonOf(), "");
        EXPECT_EQ(now(), "new");
    }
}

TEST_F(ReplaceFile, RightsThatCannotBeKeptForAnotherReasonKeepTheOldFile)
{
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);  // no umask that takes part of it away again
    const auto before = umask(022);
    {
        const FailingCalls failing([](const Call& call) { return call.name == "fchmod" ? EIO : 0; });
        EXPECT_EQ(reasonOf(), "读写错误");
    }
    umask(before);
    EXPECT_EQ(now(), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

// Temporary files

TEST_F(Leftovers, AnOldLeftoverOfTheSameFileGoesAtItsNextWrite)
{
    const auto old = leftover("表.txt", 2), young = leftover("表.txt", 0), other = leftover("另一个.txt", 2);
    folder.writeBytes(".vm1-1.tmp", "somebody's");
    fs::last_write_time(folder.path(".vm1-1.tmp"), fs::file_time_type::clock::now() - std::chrono::hours(48));
    EXPECT_EQ(reasonOf(), "");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", young, other, ".vm1-1.tmp"));
}

TEST_F(Leftovers, ALinkOrAFolderThatLooksLikeALeftoverStays)
{
    const auto name = leftover("表.txt", 0);
    fs::rename(folder.path(name), folder.path("aside"));
    fs::create_directory(folder.path(name));
    fs::last_write_time(folder.path(name), fs::file_time_type::clock::now() - std::chrono::hours(48));
    EXPECT_EQ(reasonOf(), "");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "aside", name));
}

TEST_F(Leftovers, TwoWritersWithOneProcessIdUseTwoNames)
{
    std::set<std::string> used;
    for (int writer = 0; writer < 2; ++writer) used.insert(leftover("表.txt", 0));
    const pid_t child = fork();  // a fork begins where its parent stands, as a program in a container does
    if (child == 0) {
        std::string name;
        const FailingCalls watching([&](const Call& call) {
            if (call.name == "open" && call.flags & O_EXCL) name = call.path;
            return 0;
        });
        WriteBytes(path, "new");
        _exit(used.contains(fs::path(name).filename()) || name.empty() ? 1 : 0);
    }
    int ended = 0;
    waitpid(child, &ended, 0);
    EXPECT_TRUE(WIFEXITED(ended) && WEXITSTATUS(ended) == 0);
    EXPECT_EQ(used.size(), 2u);
}

TEST_F(ReplaceFile, WhateverElseFailsTheOldFileStaysAndNothingElse)
{
    failsAt("write", EDQUOT, "磁盘已满");
    failsAt("close", EDQUOT, "磁盘已满");
    failsAt("rename", EACCES, "没有写入权限");
    failsAt("fstat", EIO, "读写错误");
}
