// What is said of a file that could not be read or written.

#include "base/FileError.h"
#include "base/RunTimeError.h"
#include "dialogs/FileBox.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

FileError failed(FileError::Doing doing, int why, const std::string& path = "/tmp/甲/表.txt")
{
    return {path, doing, {why, std::generic_category()}};
}

std::string_view reading(int why) { return failed(FileError::Reading, why).reason(); }
std::string_view writing(int why) { return failed(FileError::Writing, why).reason(); }

}  // namespace

TEST(FileError, TheReasonIsSaidInChinese)
{
    EXPECT_EQ(writing(ENOSPC), "磁盘已满");
#ifdef EDQUOT
    EXPECT_EQ(writing(EDQUOT), "磁盘已满");
#endif
    EXPECT_EQ(writing(EACCES), "没有写入权限");
    EXPECT_EQ(writing(EPERM), "没有写入权限");
    EXPECT_EQ(writing(EROFS), "没有写入权限");
    EXPECT_EQ(writing(ENOENT), "文件夹不存在");
    EXPECT_EQ(writing(ENOTDIR), "文件夹不存在");
    EXPECT_EQ(writing(EIO), "读写错误");
    EXPECT_EQ(writing(ELOOP), "读写错误");

    EXPECT_EQ(reading(EACCES), "没有读取权限");
    EXPECT_EQ(reading(EPERM), "没有读取权限");
    EXPECT_EQ(reading(ENOTDIR), "文件夹不存在");
    EXPECT_EQ(reading(EIO), "读写错误");
}

TEST(FileError, AMissingFileIsToldFromAMissingFolder)
{
    const ProjectFolder folder;
    const auto file = failed(FileError::Reading, ENOENT, folder.path("表.txt"));
    EXPECT_EQ(file.reason(), "文件不存在");
    EXPECT_EQ(file.number(), RunTimeError::FileNotFound);
    const auto inNoFolder = failed(FileError::Reading, ENOENT, folder.path("无/表.txt"));
    EXPECT_EQ(inNoFolder.reason(), "文件夹不存在");
    EXPECT_EQ(inNoFolder.number(), RunTimeError::PathNotFound);
    EXPECT_EQ(failed(FileError::Writing, EIO).number(), RunTimeError::PathAccess);
}

TEST(FileError, TheBoxNamesTheFileAndTheReason)
{
    EXPECT_EQ(FileBox(failed(FileError::Writing, ENOSPC)),
              (Msg{"“表.txt”无法写入！\n磁盘已满", "错误", Icon::Exclamation}));
    EXPECT_EQ(FileBox(failed(FileError::Reading, EACCES)),
              (Msg{"“表.txt”无法读取！\n没有读取权限", "错误", Icon::Exclamation}));
    EXPECT_EQ(FileBox(failed(FileError::Writing, EIO, "a.txt")).text, "“a.txt”无法写入！\n读写错误");
    EXPECT_EQ(FileBox(failed(FileError::Writing, EIO, "/a/甲/")).text, "“甲”无法写入！\n读写错误");
}

TEST(FileError, OneLineNamesTheWholePath)
{
    EXPECT_STREQ(failed(FileError::Writing, EROFS).what(), "“/tmp/甲/表.txt”无法写入：没有写入权限");
    EXPECT_STREQ(failed(FileError::Reading, EIO).what(), "“/tmp/甲/表.txt”无法读取：读写错误");
}
