// The order of work of a load: what stays between loads, which model, how a load ends.

#include "SmallRoad.h"
#include "project/LoadProject.h"
#include "support/SharedDiff.h"

#include <filesystem>

namespace {

const Msg kGap{"桩号不存在，请检查断链数据！", "注意", Icon::Exclamation};

struct LoadOrder : LoadTest {};

}  // namespace

TEST_F(LoadOrder, EmptyProjectAfterAFullOneKeepsEveryTable)
{
    files(kRoad);
    LoadProject();
    Shared full = shared;
    folder.project("空");
    LoadProject();
    full.tables.cgType = "1";  // the settings have grown to one line, and the second piece is empty
    EXPECT_EQ(differences(shared, full), "");
}

TEST_F(LoadOrder, SameProjectTwiceGivesTheSameTables)
{
    files(kRoad);
    LoadProject();
    const Shared once = shared;
    LoadProject();
    EXPECT_EQ(differences(shared, once), "");
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(LoadOrder, OldBreaksStayAndAreReducedASecondTime)
{
    files({{"断链参数.txt", "100,120\r\n500,490\r\n"}});
    LoadProject();
    EXPECT_EQ(gDlBack, (std::vector<double>{100, 480}));
    EXPECT_EQ(gDlAhead, (std::vector<double>{120, 470}));
    EXPECT_EQ(gDlCum, (std::vector<double>{20, -10}));
    folder.project("无断链");
    LoadProject();
    EXPECT_EQ(gDlBack, (std::vector<double>{100, 460}));
    EXPECT_EQ(gDlAhead, (std::vector<double>{120, 450}));
    EXPECT_EQ(gDlCum, (std::vector<double>{20, -10}));
    EXPECT_EQ(gHasDl, -1);
}

TEST_F(LoadOrder, ModelAndSuperelevationFormComeFromTheFirstTwoLines)
{
    struct {
        const char* settings;
        bool intersectionPoints;
        const char* type;
    } const cases[] = {
        {"交点法\r\n线性\r\n", true, "0"},    {"积木法\r\n三次抛物线\r\n", false, "1"},
        {"未设置\r\n未设置\r\n", false, "1"}, {"交点法 \r\n线性 \r\n", false, "1"},
        {"线性\r\n交点法\r\n", false, "1"},   {"交点法\r\n", true, "1"},
        {"jdf\r\n0\r\n", false, "1"},
    };
    for (const auto& [settings, intersectionPoints, type] : cases) {
        shared = {};
        files({{"其他参数.txt", settings}, {"平曲线参数.txt", "0,0,0\r\nJ,100,0,10,10,90\r\n100,100\r\n"}});
        LoadProject();
        EXPECT_EQ(gElemCount, intersectionPoints ? 5 : 3) << settings;
        EXPECT_EQ(gZdCount, intersectionPoints ? 1 : 0) << settings;
        EXPECT_EQ(gCgType, type) << settings;
    }
}

TEST_F(LoadOrder, OneSettingsLineWithLineEndMakesTheFormOne)
{
    gCgType = "0";
    folder.write("其他参数.txt", "交点法\r\n");
    LoadProject();
    EXPECT_EQ(gCgType, "1");
}

TEST_F(LoadOrder, BlockRowInAGapStopsBeforeTheVerticalCurves)
{
    files(kRoad);
    LoadProject();
    const Shared before = shared;
    files({{"断链参数.txt", "120,150\r\n"},
           {"平曲线参数.txt", "0,100,1,2,3,4,5\r\n160,300,6,7,8,9,10\r\n130,140,1,1,1,1,1\r\n170,180,1,1,1,1,1\r\n"},
           {"竖曲线参数.txt", "7,7\r\n8,8\r\n"},
           {"其他参数.txt", "积木法\r\n三次抛物线\r\n2\r\n3\r\n12\r\n"},
           {"超高参数.txt", "7,7,7,7,7,7\r\n"},
           {"超高宽度参数.txt", "7,7\r\n"},
           {"导线点参数.txt", "新,1,2\r\n"}});
    const Loaded loaded = LoadProject();
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{kGap});
    EXPECT_TRUE(loaded.cutAtGap);
    // Earlier groups new, the group itself converted up to the gap, later groups old.
    EXPECT_EQ(gDxdName, std::vector<std::string>{"新"});
    EXPECT_EQ(gElemLc, (std::vector<double>{0, 130, 130, 170, 180 + 0.0001}));
    EXPECT_EQ(gSqxLc, before.tables.sqxLc);
    EXPECT_EQ(gCgType, "0");
    EXPECT_EQ(gCgLc, before.tables.cgLc);
    EXPECT_EQ(gCgkdG, before.tables.cgkdG);
}

TEST_F(LoadOrder, AGapInEachTableLeavesTheLaterOnesUnread)
{
    struct {
        const char *file, *text;
    } const tables[] = {{"平曲线参数.txt", "130,1,0,0,0,0,0\r\n"},
                        {"竖曲线参数.txt", "130,1\r\n200,1\r\n"},
                        {"超高参数.txt", "130,1,1,200,1,1\r\n"},
                        {"超高宽度参数.txt", "0,130,1,1,1,1,1,1,1,1,1,1\r\n"}};
    for (std::size_t bad = 0; bad < std::size(tables); ++bad) {
        shared = {};
        dialogs.messages.clear();
        files(kRoad);
        files({{"断链参数.txt", "120,150\r\n"}});
        folder.write(tables[bad].file, tables[bad].text);
        EXPECT_TRUE(LoadProject().cutAtGap);
        EXPECT_EQ(dialogs.messages, std::vector<Msg>{kGap});
        EXPECT_EQ(gSqxLc.empty(), bad < 1);
        EXPECT_EQ(gCgType, bad < 2 ? "" : "0");
        EXPECT_EQ(gCgLc.empty(), bad < 2);
        EXPECT_EQ(gCgkdG.empty(), bad < 3);
    }
}

TEST_F(LoadOrder, TheNextLoadIsFreshOfTheGap)
{
    files(kRoad);
    files({{"断链参数.txt", "110,150\r\n"}, {"平曲线参数.txt", "120,1,0,0,0,0,0\r\n"}});
    EXPECT_TRUE(LoadProject().cutAtGap);
    folder.write("平曲线参数.txt", "100,105,0,0,0,0,0\r\n");
    folder.write("竖曲线参数.txt", "");
    folder.write("超高参数.txt", "");
    folder.write("超高宽度参数.txt", "");
    EXPECT_FALSE(LoadProject().cutAtGap);
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{kGap});
}

TEST_F(LoadOrder, StakesExactlyAtBackAndAheadAreNotInTheGap)
{
    files({{"断链参数.txt", "100,120\r\n"}, {"竖曲线参数.txt", "100,1\r\n120,2,3\r\n121,4\r\n"}});
    LoadProject();
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
    EXPECT_EQ(gSqxLc, (std::vector<double>{100, 100, 101}));
}

TEST_F(LoadOrder, ABlockThatEndsAtTheBackStakeOfAJumpClosesInTheGap)
{
    files({{"断链参数.txt", "100,120\r\n"}, {"平曲线参数.txt", "0,100,0,0,0,0,0\r\n"}});
    LoadProject();  // the closing stake is 100.0001
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{kGap});
}

TEST_F(LoadOrder, IntersectionPointStakesKnowNoBreaks)
{
    files({{"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n4\r\n"},
           {"断链参数.txt", "100,120\r\n"},
           {"平曲线参数.txt", "110,0,0\r\n300,400\r\n"}});
    LoadProject();
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
    EXPECT_EQ(gElemLc, (std::vector<double>{110, 610.01}));
}

TEST_F(LoadOrder, TextWithoutACommaHangs)
{
    for (const auto& file : kTables) {
        for (const auto& other : kTables) folder.writeBytes(other, "");
        folder.write(file, "abc\r\n");
        EXPECT_EQ(loadOpenProject().neverEnds, (Place{file, 1}));
    }
}

TEST_F(LoadOrder, HangingFileIsNamedWithItsLastLineOfText)
{
    for (const auto* text : {"abc\r\n\r\n1;2\r\n\r\n", "abc\r\n1;2\r\n", "abc\r\n1;2"}) {
        folder.write("竖曲线参数.txt", text);
        EXPECT_EQ(loadOpenProject().neverEnds, (Place{"竖曲线参数.txt", 2}));  // blank lines are gone by then
    }
}

TEST_F(LoadOrder, SettingsWithoutACommaDoNotHang)
{
    folder.write("其他参数.txt", "abc\r\n");
    EXPECT_FALSE(loadOpenProject().neverEnds);
}

TEST_F(LoadOrder, HangGivesTheEventLoopItsTurnsAndNeverComesBack)
{
    struct Enough {};
    dialogs.onTurn = [&] {
        if (dialogs.turns == 10) throw Enough{};
    };
    files(kRoad);
    folder.write("导线点参数.txt", "abc\r\n");
    const Shared before = shared;
    EXPECT_THROW(LoadProject(), Enough);
    EXPECT_EQ(dialogs.turns, 10);
    EXPECT_EQ(differences(shared, before), "");
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}
