#include "base/ReplaceFile.h"
#include "project/DeleteFolderTree.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

struct DeleteFolderTreeTest : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    const fs::path tree = fs::path(folder.path("树"));

    void file(const fs::path& path)
    {
        fs::create_directories(path.parent_path());
        WriteBytes(path.string(), "x");
    }
};

}  // namespace

TEST_F(DeleteFolderTreeTest, EverythingInItGoes)
{
    file(tree / "a.txt");
    file(tree / ".hidden");
    file(tree / "b/c/d.txt");
    fs::create_directories(tree / "empty/deep");
    DeleteFolderTree(tree.string());
    EXPECT_FALSE(fs::exists(tree));
    EXPECT_TRUE(fs::exists(folder.path("")));
}

TEST_F(DeleteFolderTreeTest, EachEntryGivesTheEventLoopATurn)
{
    file(tree / "a.txt");
    file(tree / "b/c.txt");
    file(tree / "b/d.txt");
    DeleteFolderTree(tree.string());
    EXPECT_EQ(dialogs.turns, 4);  // a.txt, c.txt, d.txt, b
}

TEST_F(DeleteFolderTreeTest, ALinkIsRemovedAndNotFollowed)
{
    const fs::path outside = folder.root() + "/outside";
    file(outside / "kept.txt");
    fs::create_directories(tree / "b");
    fs::create_directory_symlink(outside, tree / "b/link");
    fs::create_symlink(outside / "kept.txt", tree / "file link");
    fs::create_symlink(outside / "missing", tree / "dead link");
    fs::create_directory_symlink("..", tree / "up");
    DeleteFolderTree(tree.string());
    EXPECT_FALSE(fs::exists(tree));
    EXPECT_TRUE(fs::exists(outside / "kept.txt"));
}

TEST_F(DeleteFolderTreeTest, AFolderThatIsALinkLosesTheLinkAlone)
{
    const fs::path outside = folder.root() + "/outside";
    file(outside / "kept.txt");
    fs::create_directory_symlink(outside, tree);
    DeleteFolderTree(tree.string());
    EXPECT_FALSE(fs::exists(fs::symlink_status(tree)));
    EXPECT_TRUE(fs::exists(outside / "kept.txt"));
}

TEST_F(DeleteFolderTreeTest, WriteProtectionIsClearedFirst)
{
    file(tree / "b/protected.txt");
    fs::permissions(tree / "b/protected.txt", fs::perms::owner_read);
    fs::permissions(tree / "b", fs::perms::owner_read | fs::perms::owner_exec);
    DeleteFolderTree(tree.string());
    EXPECT_FALSE(fs::exists(tree));
}

TEST_F(DeleteFolderTreeTest, AMissingFolderIsNoError)
{
    DeleteFolderTree(tree.string());
    EXPECT_EQ(dialogs.turns, 0);
}

TEST_F(DeleteFolderTreeTest, AFileIsNoFolder)
{
    folder.writeBytes("file.txt", "x");
    DeleteFolderTree(folder.path("file.txt"));
    EXPECT_TRUE(folder.has("file.txt"));
}
