// Projects made of folders that are there already.

#include "project/ProjectFolders.h"

#include "base/FileError.h"
#include "project/Backups.h"
#include "project/SmallRoad.h"
#include "support/SharedDiff.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

struct ProjectFoldersTest : LoadTest {
    std::string catalogue() const { return Utf8FromCp936(folder.bytesOf(WorkspacePath() + "/项目名称.txt")); }
    std::string elsewhere(const std::string& name, std::initializer_list<ProjectFolder::File> all) const
    {
        const std::string path = gAppPath + "/U盘/" + name;
        fs::create_directories(path);
        for (const auto& [file, text] : all) std::ofstream(path + "/" + file, std::ios::binary) << Cp936FromUtf8(text);
        return path;
    }
};

const Msg kTaken{"项目名称已存在，请重新输入项目名称！", "错误", Icon::Critical};

}  // namespace

TEST_F(ProjectFoldersTest, ACopyHasTheSameBytesAndALineAtTheEnd)
{
    files(kRoad);
    folder.writeBytes("左幅填方参数.txt", "\xFF\xFE,1\r\n\r\nopen");
    folder.write("笔记.doc", "mine");
    keepReplaced("断链参数.txt", "1,2\r\n");
    const auto before = folder.filesIn(ProjectPath("测试"));
    const Shared state = shared;
    ASSERT_TRUE(CopyProject("测试", "测试二"));
    auto whole = before;
    whole.erase("笔记.doc");
    EXPECT_EQ(folder.filesIn(ProjectPath("测试二")), whole);
    EXPECT_EQ(folder.filesIn(ProjectPath("测试")), before);
    EXPECT_EQ(catalogue(), "测试\r\n测试二\r\n");
    EXPECT_EQ(gProject, "测试");
    EXPECT_EQ(shared, state);
    EXPECT_TRUE(BackupsOf("测试二").empty());
}

TEST_F(ProjectFoldersTest, ACopyNeverTakesTheNameOfAnother)
{
    files(kRoad);
    EXPECT_EQ(CopyProject("测试", "测试").refusal->msg, kTaken);
    for (const char* name : {"", "..", "a/b", "con", "x."}) EXPECT_FALSE(CopyProject("测试", name)) << name;
    fs::create_directory(WorkspacePath() + "/旧的");
    EXPECT_FALSE(CopyProject("测试", "旧的"));
    EXPECT_TRUE(fs::is_empty(WorkspacePath() + "/旧的"));
    EXPECT_EQ(catalogue(), "测试\r\n");
}

TEST_F(ProjectFoldersTest, AFileThatCannotBeReadLeavesNoHalfCopy)
{
    files(kRoad);
    folder.remove("断链参数.txt");
    fs::create_symlink("/no/such/place", folder.path("断链参数.txt"));
    EXPECT_THROW(CopyProject("测试", "测试二"), FileError);
    EXPECT_THROW(CopyProject("没有", "测试二"), FileError);
    EXPECT_FALSE(fs::exists(ProjectPath("测试二")));
    EXPECT_EQ(catalogue(), "测试\r\n");
}

TEST_F(ProjectFoldersTest, AFolderOfTheWorkspaceGetsItsLineAlone)
{
    fs::create_directory(WorkspacePath() + "/旧的");
    std::ofstream(WorkspacePath() + "/旧的/断链参数.txt") << "1,2\r\n";
    const auto taken = TakeFolder(WorkspacePath() + "/旧的");
    ASSERT_TRUE(taken.outcome);
    EXPECT_EQ(taken.name, "旧的");
    EXPECT_EQ(catalogue(), "测试\r\n旧的\r\n");
    EXPECT_EQ(folder.filesIn(WorkspacePath() + "/旧的").size(), 1u);
    EXPECT_FALSE(TakeFolder(WorkspacePath() + "/旧的").outcome) << "once";
    EXPECT_EQ(catalogue(), "测试\r\n旧的\r\n");
}

TEST_F(ProjectFoldersTest, AFolderElsewhereIsCopiedAndStays)
{
    const auto path = elsewhere("三标", kRoad);
    const auto taken = TakeFolder(path);
    ASSERT_TRUE(taken.outcome);
    EXPECT_EQ(folder.filesIn(ProjectPath("三标")), folder.filesIn(path));
    EXPECT_EQ(catalogue(), "测试\r\n三标\r\n");
    EXPECT_FALSE(TakeFolder(path).outcome) << "the name is taken by now";
    EXPECT_EQ(gProject, "测试");
}

TEST_F(ProjectFoldersTest, AFolderWithoutParameterFilesIsNoProject)
{
    const auto taken = TakeFolder(elsewhere("照片", {{"说明.txt", "1,2"}}));
    ASSERT_TRUE(taken.outcome.refusal);
    EXPECT_EQ(taken.outcome.refusal->msg.text, "这个文件夹里没有参数文件！");
    EXPECT_FALSE(fs::exists(ProjectPath("照片")));
    EXPECT_EQ(catalogue(), "测试\r\n");
}

TEST_F(ProjectFoldersTest, AnOpenLastLineOfTheCatalogueStaysALine)
{
    std::ofstream(WorkspacePath() + "/项目名称.txt", std::ios::binary) << Cp936FromUtf8("测试");
    ASSERT_TRUE(TakeFolder(elsewhere("三标", kRoad)).outcome);
    EXPECT_EQ(catalogue(), "测试\r\n三标\r\n");
}

TEST_F(ProjectFoldersTest, SamplesBesideTheProgramAreTheFirstProjects)
{
    fs::remove_all(WorkspacePath());
    for (const char* name : {"示例二", "示例一"}) {
        fs::create_directories(gAppPath + "/示例/" + name);
        std::ofstream(gAppPath + "/示例/" + name + "/断链参数.txt", std::ios::binary) << name << "\r\n";
    }
    std::ofstream(gAppPath + "/示例/附合导线.csv") << "1,2\n";
    TakeSamples();
    EXPECT_EQ(catalogue(), "示例一\r\n示例二\r\n");
    EXPECT_EQ(folder.bytesOf(ProjectPath("示例二") + "/断链参数.txt"), "示例二\r\n");
    fs::remove_all(ProjectPath("示例一"));
    std::ofstream(WorkspacePath() + "/项目名称.txt", std::ios::trunc);
    TakeSamples();
    EXPECT_EQ(catalogue(), "");
    EXPECT_FALSE(fs::exists(ProjectPath("示例一")));
}

TEST_F(ProjectFoldersTest, WithoutSamplesNothingIsMade)
{
    fs::remove_all(WorkspacePath());
    TakeSamples();
    EXPECT_FALSE(fs::exists(WorkspacePath()));
    std::ofstream(gAppPath + "/示例") << "no folder";
    TakeSamples();
    EXPECT_FALSE(fs::exists(WorkspacePath()));
}
