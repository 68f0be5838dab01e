// What is kept of a file before it is replaced: beside the workspace, twenty of each file, and never instead of the
// work itself.

#include "project/Backups.h"

#include "base/FileError.h"
#include "project/LoadProject.h"
#include "project/OpenRoad.h"
#include "project/SmallRoad.h"
#include "support/FailingCalls.h"
#include "support/SharedDiff.h"

#include <algorithm>
#include <filesystem>
#include <regex>

namespace fs = std::filesystem;

namespace {

struct BackupsTest : LoadTest {
    std::string at() const { return gAppPath + "/备份/" + gProject; }
    static std::vector<std::string> contents(const std::string& project, const std::string& file)
    {
        std::vector<std::string> all;
        for (const Backup& kept : BackupsOf(project))
            if (kept.file == file) all.push_back(ProjectFolder::bytesOf(kept.path));
        return all;
    }
    static std::vector<std::string> namesIn(const std::string& path)
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(path)) names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

}  // namespace

TEST_F(BackupsTest, LieBesideTheWorkspaceByFileAndTime)
{
    keepReplaced("断链参数.txt", "1,2\r\n3,4\r\n");
    ASSERT_EQ(namesIn(at()).size(), 1u);
    EXPECT_TRUE(std::regex_match(namesIn(at()).front(),
                                 std::regex("断链参数 \\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d{3}\\.txt")));
    const auto kept = BackupsOf(gProject);
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].file, "断链参数.txt");
    EXPECT_EQ(kept[0].rows, 2);
    EXPECT_TRUE(std::regex_match(kept[0].when, std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d")));
    EXPECT_EQ(namesIn(WorkspacePath()), (std::vector<std::string>{"测试", "项目名称.txt"}));
    EXPECT_TRUE(namesIn(WorkspacePath() + "/测试").empty());
}

TEST_F(BackupsTest, TheLastTwentyOfEachFileStay)
{
    for (int i = 1; i <= 25; ++i) keepReplaced("断链参数.txt", std::to_string(i) + ",0\r\n");
    keepReplaced("竖曲线参数.txt", "7,7\r\n");
    const auto kept = contents(gProject, "断链参数.txt");
    ASSERT_EQ(kept.size(), 20u);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(kept[static_cast<std::size_t>(i)], std::to_string(25 - i) + ",0\r\n");
    EXPECT_EQ(contents(gProject, "竖曲线参数.txt"), std::vector<std::string>{"7,7\r\n"});
}

TEST_F(BackupsTest, TheSameBytesAreNotKeptTwiceInARow)
{
    for (const char* bytes : {"1,2\r\n", "1,2\r\n", "3,4\r\n", "1,2\r\n"}) keepReplaced("断链参数.txt", bytes);
    EXPECT_EQ(contents(gProject, "断链参数.txt"), (std::vector<std::string>{"1,2\r\n", "3,4\r\n", "1,2\r\n"}));
}

TEST_F(BackupsTest, AClockSetBackLosesNotTheNewOne)
{
    fs::create_directories(at());
    for (int i = 10; i < 30; ++i)
        std::ofstream(at() + "/断链参数 2999-01-01 00.00." + std::to_string(i) + ".000.txt") << i << ",0\r\n";
    keepReplaced("断链参数.txt", "new,0\r\n");
    const auto kept = contents(gProject, "断链参数.txt");
    EXPECT_EQ(kept.size(), 20u);
    EXPECT_EQ(kept.back(), "new,0\r\n");
}

TEST_F(BackupsTest, WhatSomebodyElsePutThereIsLeftAndNotListed)
{
    fs::create_directories(at());
    for (const char* name : {"断链参数 旧.txt", "断链参数.txt", "断链参数 2026-13-99 aa.00.00.000.txt", "笔记.txt"})
        std::ofstream(at() + "/" + name) << "1,2\r\n";
    for (int i = 0; i < 25; ++i) keepReplaced("断链参数.txt", std::to_string(i) + ",0\r\n");
    EXPECT_EQ(BackupsOf(gProject).size(), 20u);
    EXPECT_EQ(namesIn(at()).size(), 24u);
}

TEST_F(BackupsTest, ALoadThatDropsALineWithTextKeepsTheFile)
{
    files(kRoad);
    folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,备注");
    folder.write("断链参数.txt", "\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("导线点参数.txt"), "A,1,2,\r\n");
    ASSERT_EQ(BackupsOf(gProject).size(), 1u);
    EXPECT_EQ(contents(gProject, "导线点参数.txt").front(), Cp936FromUtf8("A,1,2,\r\n\r\nB,3,4,备注"));
}

TEST_F(BackupsTest, AnOrdinaryLoadKeepsNothing)
{
    files(kRoad);
    folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,备注\r\n\r\n");
    LoadProject();
    EXPECT_FALSE(fs::exists(gAppPath + "/备份"));
}

TEST_F(BackupsTest, AFolderElsewhereHasNoWorkspaceBesideIt)
{
    files(kRoad);
    folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,");
    gProjectFolder = ProjectPath(gProject);
    loadOpenProject();
    EXPECT_EQ(folder.text("导线点参数.txt"), "A,1,2,\r\n");
    EXPECT_FALSE(fs::exists(gAppPath + "/备份"));
}

TEST_F(BackupsTest, ABackupThatFailsIsToldAndTheLoadIsTheSame)
{
    const auto load = [&] {
        files(kRoad);
        folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,");
        shared = {};
        LoadProject();
        return ProjectFolder::filesIn(ProjectPath(gProject));
    };
    const auto whole = load();
    const Shared good = shared;
    EXPECT_TRUE(openRoad.notKept.empty());
    fs::remove_all(gAppPath + "/备份");
    std::ofstream(gAppPath + "/备份") << "in the way";
    EXPECT_EQ(load(), whole);
    EXPECT_EQ(shared, good);
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_TRUE(roadText().doubtful);
    EXPECT_NE(roadText().text.find("导线点参数.txt 没有备份："), std::string::npos) << roadText().text;

    fs::remove(gAppPath + "/备份");
    EXPECT_EQ(load(), whole);
    EXPECT_EQ(roadText().text.find("没有备份"), std::string::npos) << "the next one was kept";
}

TEST_F(BackupsTest, AFullDiskIsToldByItsName)
{
    const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
    keepReplaced("断链参数.txt", "1,2\r\n");
    EXPECT_EQ(openRoad.notKept, "断链参数.txt 没有备份：磁盘已满");
    EXPECT_TRUE(BackupsOf(gProject).empty());
    EXPECT_TRUE(namesIn(at()).empty()) << "nothing half is left";
}

TEST_F(BackupsTest, RestoringBringsTheBytesBackAndKeepsWhatStoodThere)
{
    const std::string old = "1,2\r\n\xFF\xFE,4\r\n";
    keepReplaced("断链参数.txt", old);
    folder.write("断链参数.txt", "9,9\r\n");
    const Shared before = shared;
    RestoreBackup(gProject, BackupsOf(gProject).front());
    EXPECT_EQ(folder.bytes("断链参数.txt"), old);
    EXPECT_EQ(shared, before);
    const auto kept = contents(gProject, "断链参数.txt");
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept.front(), "9,9\r\n");
    RestoreBackup(gProject, BackupsOf(gProject).front());
    EXPECT_EQ(folder.text("断链参数.txt"), "9,9\r\n") << "and back again";
}

TEST_F(BackupsTest, RestoringWorksOnTheProjectThatWasMeant)
{
    keepReplaced("断链参数.txt", "1,2\r\n");
    const auto kept = BackupsOf("测试");
    folder.project("别的", {{"断链参数.txt", "5,5\r\n"}});
    RestoreBackup("测试", kept.front());
    EXPECT_EQ(folder.text("断链参数.txt"), "5,5\r\n");
    EXPECT_EQ(ProjectFolder::bytesOf(ProjectPath("测试") + "/断链参数.txt"), "1,2\r\n");
    EXPECT_TRUE(BackupsOf("别的").empty());
}

TEST_F(BackupsTest, ABackupThatIsGoneChangesNothing)
{
    folder.write("断链参数.txt", "9,9\r\n");
    EXPECT_THROW(RestoreBackup(gProject, {"断链参数.txt", at() + "/gone.txt", "", 1}), FileError);
    EXPECT_EQ(folder.text("断链参数.txt"), "9,9\r\n");
}

TEST_F(BackupsTest, ADeletedProjectsBackupsAreNotMetByANewOneOfTheName)
{
    keepReplaced("断链参数.txt", "1,2\r\n");
    ASSERT_TRUE(DeleteProject(0, "测试"));
    EXPECT_TRUE(BackupsOf("测试").empty());
    ASSERT_TRUE(CreateProject("测试"));
    EXPECT_TRUE(BackupsOf("测试").empty());
    keepReplaced("断链参数.txt", "3,4\r\n");
    ASSERT_TRUE(DeleteProject(0, "测试"));
    const auto aside = namesIn(gAppPath + "/备份");
    ASSERT_EQ(aside.size(), 2u) << "two of one second too";
    for (const auto& name : aside) {
        EXPECT_TRUE(name.starts_with("测试 已删除 20")) << name;
        EXPECT_EQ(namesIn(gAppPath + "/备份/" + name).size(), 1u);
    }
}

TEST_F(BackupsTest, NoNameLeadsOutOfTheFolder)
{
    for (const char* name : {"", ".", "..", "a/b", "../参数文件"}) {
        EXPECT_TRUE(BackupsOf(name).empty()) << name;
        setBackupsAside(name);
    }
    EXPECT_FALSE(fs::exists(gAppPath + "/备份"));
    EXPECT_EQ(namesIn(gAppPath), std::vector<std::string>{"参数文件"});
}

TEST(Backups, RowsAreLinesWithAComma)
{
    EXPECT_EQ(rowsIn(""), 0);
    EXPECT_EQ(rowsIn("abc\r\n\r\n"), 0);
    EXPECT_EQ(rowsIn("1,2\r\n\r\n3,4"), 2);
}
