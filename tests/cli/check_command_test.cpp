// `check` and `tables` of the companion as it is built.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "support/DamagedProjects.h"
#include "support/Json.h"
#include "support/RunProgram.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A project in a folder that may be written to.
struct Damaged : testing::Test {
    ProjectFolder workspace;
    std::string damaged(const std::string& name) { return damagedProject(name).makeIn(workspace.root()); }
    std::string sample(const std::string& name)
    {
        const fs::path folder = fs::path(workspace.root()) / name;
        fs::copy(DamagedProject::samples() / name, folder);
        return folder.string();
    }
};

TEST_F(Damaged, CleanProjectEndsWithZero)
{
    const auto ran = runCompanion({"--folder", sample("示例一"), "check"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, "没有发现问题\n");
}

TEST_F(Damaged, FindingsEndWithOneAndChangeNothing)
{
    // A blank line, settings of four lines and a file that never loads would all be touched by a load.
    for (const char* name : {"07-blank-line", "06-never-loads", "08-no-final-line-end"}) {
        const std::string folder = damaged(name);
        const auto before = ProjectFolder::filesIn(folder);
        const auto ran = runCompanion({"--folder", folder, "check"});
        EXPECT_EQ(ran.code, 1) << name;
        EXPECT_THAT(ran.out, HasSubstr(".txt:")) << name;
        EXPECT_EQ(ProjectFolder::filesIn(folder), before) << name;
    }
}

TEST_F(Damaged, AccuracyChangesNothingEither)
{
    const std::string folder = damaged("07-blank-line");
    const auto before = ProjectFolder::filesIn(folder);
    const auto ran = runCompanion({"--folder", folder, "check", "--accuracy"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_THAT(ran.out, HasSubstr("JD10"));
    EXPECT_THAT(ran.out, HasSubstr("终点里程差"));
    EXPECT_EQ(ProjectFolder::filesIn(folder), before);
}

TEST_F(Damaged, AccuracyNeverAbortsAndLeavesNoCopy)
{
    // The folder for temporary files is one that nobody can write to: no copy, so no failure either.
    for (const auto& project : kDamagedProjects) {
        const std::string folder = project.makeIn(workspace.root());
        const auto ran = runProgram("/bin/sh", {"-c", "TMPDIR=/proc/1 exec \"$0\" \"$@\"", companionPath(), "--folder",
                                                folder, "check", "--accuracy"});
        EXPECT_TRUE(ran.code == 0 || (ran.code == 1 && !ran.err.empty())) << folder << " " << ran.code << ran.err;
    }
    const std::string folder = sample("示例一");
    const auto wanted = runCompanion({"--folder", folder, "check", "--accuracy"});
    EXPECT_EQ(wanted.code, 0);
    // Numbers out of all bounds in every field of the alignment.
    const std::string file = folder + "/平曲线参数.txt", whole = ReadBytes(file);
    for (std::size_t comma = whole.find(','); comma != std::string::npos; comma = whole.find(',', comma + 1))
        for (const char* number : {"1e308", "x"}) {
            const auto end = std::min(whole.find_first_of(",\r", comma + 1), whole.size());
            WriteBytes(file, whole.substr(0, comma + 1) + number + whole.substr(end));
            const auto ran = runCompanion({"--folder", folder, "check", "--accuracy"});
            ASSERT_TRUE(ran.code == 0 || (ran.code == 1 && !ran.err.empty())) << number << " at " << comma << ran.err;
        }
}

TEST_F(Damaged, AccuracyRefusesAFileThatNeverLoads)
{
    const auto ran = runCompanion({"--folder", damaged("06-never-loads"), "check", "--accuracy"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.err, HasSubstr("断链参数.txt"));
}

TEST_F(Damaged, FindingsAsCsv)
{
    const auto ran = runCompanion({"--folder", damaged("14-radius-0"), "check", "--format", "csv"});
    EXPECT_THAT(ran.out, HasSubstr("文件,行,项,说明"));
    EXPECT_THAT(ran.out, HasSubstr("平曲线参数.txt,5,6,"));
}

TEST_F(Damaged, TablesReadBackExactly)
{
    const std::string folder = sample("示例一");
    const auto ran = runCompanion({"--folder", folder, "tables", "--format", "json"});
    ASSERT_EQ(ran.code, 0);
    const auto json = ReadJson::from(ran.out);
    EXPECT_EQ(json["gElemCount"], 41);  // four elements each of ten intersection points, and one
    ASSERT_EQ(json["gElemLc"].size(), 42u);
    EXPECT_EQ(json["gElemLc"][0], 12000.0);
    EXPECT_EQ(json["gElemX"][41], 0.0);
    EXPECT_EQ(json["gDxdName"], ReadJson::from(R"(["GP01", "GP02", "D03", "D04"])"));
    EXPECT_EQ(json["gDlCum"][0].number(), 13412.36 - 13380.0);
    EXPECT_EQ(json["gZdJd"][10], "JD10");
}

TEST_F(Damaged, TablesForAPerson)
{
    const auto ran = runCompanion({"--folder", sample("示例二"), "tables"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_THAT(ran.out, HasSubstr("gElemCount = 17"));
    EXPECT_THAT(ran.out, HasSubstr("gCgType = 1"));
    EXPECT_THAT(ran.out, HasSubstr("328.134078"));
}

}  // namespace
