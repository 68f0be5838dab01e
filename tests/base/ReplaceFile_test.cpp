// What may be replaced, and what stays where that fails.

#include "ReplaceFileTest.h"

#include "base/TextFile.h"

#include <new>

using testing::ElementsAre;

TEST_F(ReplaceFile, AWriteProtectedFileIsRefusedForRootToo)
{
    for (const int rights : {0444, 0400, 0555}) {
        fs::permissions(path, fs::perms(rights));
        const auto given = fs::status(path).permissions();
        EXPECT_EQ(reasonOf(), "没有写入权限");
        EXPECT_EQ(reasonOf(WriteResult), "没有写入权限");
        EXPECT_EQ(now(), "old");
        EXPECT_EQ(fs::status(path).permissions(), given);
        EXPECT_THAT(names(), ElementsAre("表.txt"));
    }
}

TEST_F(ReplaceFile, AWriteProtectedFileIsStillDeletedWithItsProject)
{
    fs::permissions(path, fs::perms(0444));
    folder.project("乙");
    DeleteProject(0, "测试");
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(ReplaceFile, TheBlankLinesOfAWriteProtectedFileStay)
{
    folder.writeBytes("表.txt", "a,\r\n\r\nb,\r\n");
    fs::permissions(path, fs::perms(0444));
    EXPECT_THROW(RemoveBlankLines(path), FileError);
    EXPECT_EQ(now(), "a,\r\n\r\nb,\r\n");
}

TEST_F(ReplaceFile, AFolderIsNoFile)
{
    folder.remove("表.txt");
    fs::create_directory(path);
    EXPECT_EQ(reasonOf(), "读写错误");
    EXPECT_EQ(reasonOf(WriteResult), "读写错误");
    EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(ReplaceFile, ANewFileInAFolderThatIsNotThere)
{
    path = folder.path("无/表.txt");
    EXPECT_EQ(reasonOf(), "文件夹不存在");
}

TEST_F(ReplaceFile, WhateverFailsTheOldFileStaysAndNothingElse)
{
    failsAt("open", EROFS, "没有写入权限");
    failsAt("write", ENOSPC, "磁盘已满");
    failsAt("fsync", EIO, "读写错误");
    failsAt("rename", EROFS, "没有写入权限");
    failsAt("stat", EIO, "读写错误");
}

TEST_F(ReplaceFile, OutOfMemoryOnTheWayLeavesTheOldFileAndNothingElse)
{
    {
        const FailingCalls failing([](const Call& call) -> int {
            if (call.name == "write") throw std::bad_alloc();
            return 0;
        });
        EXPECT_THROW(WriteBytes(path, "new"), std::bad_alloc);
    }
    EXPECT_EQ(now(), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

TEST_F(ReplaceFile, ANameThatSomebodyElseHasTakenIsNotUsed)
{
    // Another writer with the same process id, in a container of its own, would have these names.
    int refused = 0;
    const FailingCalls taken(
        [&](const Call& call) { return call.name == "open" && call.flags & O_EXCL && ++refused <= 5 ? EEXIST : 0; });
    EXPECT_EQ(reasonOf(), "");
    EXPECT_EQ(refused, 6);
    EXPECT_EQ(now(), "new");
}
