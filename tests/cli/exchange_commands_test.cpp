// The commands that bring roads and points in and out: what one writes another reads, and nothing else changes.

#include "CompanionTest.h"
#include "base/FileBytes.h"
#include "base/Lines.h"

namespace {

struct Exchange : Companion {
    std::string path(const char* name) const { return workspace.root() + "/" + name; }
    /// A cell of the only row of a csv output.
    std::string cell(std::vector<std::string> args, const std::string& column) const
    {
        return json(std::move(args))[0][column].text();
    }
};

}  // namespace

TEST_F(Exchange, ARoadThatWentOutComesInAsANewProjectOfTheSameTables)
{
    for (const char* project : {"示例一", "示例二"}) {
        const std::string name = std::string(project) + "副本";
        const auto out = calc({project, "export", "--landxml", path("路.xml")});
        ASSERT_EQ(out.code, 0) << out.err;
        const auto in = calc({"import", path("路.xml"), "--name", name});
        ASSERT_EQ(in.code, 0) << in.err;
        const auto before = calc({project, "tables"}), after = calc({name, "tables"});
        EXPECT_EQ(before.code, 0);
        EXPECT_GT(lines(before.out).size(), 20u);
        EXPECT_EQ(after.out, before.out);
        EXPECT_NE(calc({"list"}).out.find(name), std::string::npos);
    }
}

TEST_F(Exchange, AnImportNeverTouchesAProjectThatIsThere)
{
    ASSERT_EQ(calc({"示例一", "export", "--landxml", path("路.xml")}).code, 0);
    const auto before = everyFile(WorkspacePath());
    const auto taken = calc({"import", path("路.xml"), "--name", "示例二"});
    EXPECT_EQ(taken.code, 1);
    EXPECT_FALSE(taken.err.empty());
    EXPECT_EQ(calc({"import", path("没有.xml"), "--name", "新"}).code, 1);
    EXPECT_EQ(everyFile(WorkspacePath()), before);
}

TEST_F(Exchange, TheListOfAFileImportsNothing)
{
    ASSERT_EQ(calc({"示例一", "export", "--landxml", path("路.xml")}).code, 0);
    const auto before = everyFile(WorkspacePath());
    const auto listed = calc({"import", path("路.xml"), "--list"});
    EXPECT_EQ(listed.code, 0) << listed.err;
    EXPECT_NE(listed.out.find("示例一"), std::string::npos) << listed.out;
    EXPECT_EQ(everyFile(WorkspacePath()), before);
}

TEST_F(Exchange, PointsAreThoseOfTheScreensInOrderOfTheirStakes)
{
    const auto before = everyFile(WorkspacePath());
    const auto ran = calc({"示例一", "points", "--from", "12500", "--to", "12540", "--step", "20", "--offset", "-5,0",
                           "-o", path("点.dat")});
    ASSERT_EQ(ran.code, 0) << ran.err;
    const auto rows = AnyLines(ReadBytes(path("点.dat")));
    ASSERT_EQ(rows.size(), 6u);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto fields = SplitFields(rows[i]);  // 点号,编码,Y,X,H
        ASSERT_EQ(fields.size(), 5u) << rows[i];
        const std::string stake = std::to_string(12500 + 20 * (i / 2)), offset = i % 2 == 0 ? "-5" : "0";
        EXPECT_EQ(fields[2], cell({"示例一", "coords", "--at", stake, "--offset", offset}, "Y坐标")) << rows[i];
        EXPECT_EQ(fields[3], cell({"示例一", "coords", "--at", stake, "--offset", offset}, "X坐标")) << rows[i];
    }
    EXPECT_EQ(everyFile(WorkspacePath()), before);
}

TEST_F(Exchange, PointsMeasuredWhereTheyWereSetOutAreWithinAnyTolerance)
{
    ASSERT_EQ(
        calc({"示例一", "points", "--from", "12500", "--to", "12600", "--step", "20", "-o", path("放样.csv")}).code, 0);
    const std::vector<std::string> compare{"示例一",      "compare", path("放样.csv"), "--setout", path("放样.csv"),
                                           "--tolerance", "0.001",   "--tolerance-h",  "0.001"};
    const auto ran = calc(compare);
    EXPECT_EQ(ran.code, 0) << ran.err << ran.out;
    EXPECT_EQ(ran.err, "6 个点，超限 0 个\n");
}

TEST_F(Exchange, APointIsFoundOnTheRoadItLiesBy)
{
    const auto before = everyFile(WorkspacePath());
    const std::vector<std::string> at{"示例一", "coords", "--at", "12500", "--offset", "-5"};
    const std::string point = cell(at, "X坐标") + "," + cell(at, "Y坐标");
    const auto found = json({"inverse", "--all", point});
    EXPECT_EQ(found[0]["项目"].text(), "示例一");
    EXPECT_EQ(found[0]["里程"].text(), "K12+500.000");
    EXPECT_EQ(found[0]["偏距"].text(), "左5.000米");
    const auto far = calc({"inverse", "--all", "0,0"});
    EXPECT_EQ(far.code, 1);
    EXPECT_EQ(far.err, "这个点不在任何一条线路旁\n");
    EXPECT_EQ(calc({"inverse", "--all", "abc"}).code, 2);
    EXPECT_EQ(everyFile(WorkspacePath()), before);
}
