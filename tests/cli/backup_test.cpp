// A load drops a line with text where nothing ends it, and keeps the file before; velumark-calc says where it could
// not.

#include "CompanionTest.h"
#include "base/CodePage.h"

namespace {

struct LostLines : Companion {
    const std::vector<std::string> load{"示例一", "coords", "--at", "12100", "--station", "GP01"};

    LostLines()
    {
        shorten("断链参数.txt");
        shorten("导线点参数.txt");
    }
    std::string path(const char* name) const { return WorkspacePath() + "/示例一/" + name; }

    /// A blank line, and no line end behind the last one: the load's cleaning drops that.
    void shorten(const char* name) const
    {
        std::string bytes = ReadBytes(path(name));
        bytes.resize(bytes.size() - 2);
        WriteBytes(path(name), "\r\n" + bytes + "\r\n1,2,3,4");
    }
    /// Nothing can be kept in the place of a file.
    void stopBackups() const { WriteBytes(workspace.root() + "/备份", "in the way"); }
};

}  // namespace

TEST_F(LostLines, ABackupThatIsKeptIsNotTold)
{
    const auto ran = calc(load);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_TRUE(fs::is_directory(workspace.root() + "/备份/示例一"));
}

TEST_F(LostLines, EachOneThatFailsIsALineOnStandardErrorAndTheRestIsTheSame)
{
    const auto kept = calc(load);
    shorten("断链参数.txt");
    shorten("导线点参数.txt");
    fs::remove_all(workspace.root() + "/备份");
    stopBackups();
    const auto ran = calc(load);
    EXPECT_EQ(ran.code, kept.code);
    EXPECT_EQ(ran.out, kept.out);
    const auto told = lines(ran.err);
    ASSERT_EQ(told.size(), 2u) << ran.err;
    EXPECT_TRUE(told[0].starts_with("导线点参数.txt 没有备份：")) << told[0];
    EXPECT_TRUE(told[1].starts_with("断链参数.txt 没有备份：")) << told[1];
    EXPECT_EQ(calc(load).err, "") << "nothing is lost any more";
}

TEST_F(LostLines, AProjectByItsFolderKeepsNothingAndSaysNothing)
{
    stopBackups();
    auto args = load;
    args[0] = WorkspacePath() + "/示例一";
    args.insert(args.begin(), "--folder");
    const auto ran = calc(args);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
}

TEST_F(LostLines, TheCheckLoadsNothingAndLosesNothing)
{
    stopBackups();
    const auto before = everyFile(workspace.root());
    EXPECT_EQ(calc({"示例一", "check"}).err, "");
    EXPECT_EQ(everyFile(workspace.root()), before);
}
