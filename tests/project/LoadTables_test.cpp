// A load into tables of its own: the tables that opening the project gives, no file changed, nothing shared moved.

#include "base/FileBytes.h"
#include "project/LoadTables.h"

#include "SmallRoad.h"
#include "project/LoadProject.h"
#include "support/DamagedProjects.h"
#include "support/SharedDiff.h"

#include <filesystem>
#include <map>

namespace {

namespace fs = std::filesystem;

struct LoadTables : LoadTest {
    std::map<std::string, std::string> everything() const { return ProjectFolder::filesIn(folder.path("")); }
    /// A state in which nothing is zero, to see what moves.
    static void fillShared()
    {
        shared = {};
        gOutX = 11.5, gOutY = 22.25, gOutFwj = 33.125, gOutDist = 44;
        gInX = 1, gInY = 2, gInLc = 3, gOutLcText = "K1", gOutOffsetText = "中";
        gStationX = 7;
        gElemCount = 3;
        gElemLc = {9, 8, 7, 6};
        gHasDl = -1;
        gDlBack = {5}, gDlAhead = {6}, gDlCum = {1};
    }
};

const std::initializer_list<ProjectFolder::File> kPointsRoad{
    {"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "0,0,0\r\nJD1,1000,0,50,50,400\r\n2000,500\r\n"},
};

}  // namespace

TEST_F(LoadTables, NothingSharedMovesAndNoFileIsMade)
{
    for (const auto& road : {kRoad, kPointsRoad}) {
        files(road);
        folder.remove("断链参数.txt");
        folder.write("导线点参数.txt", "\r\nA,1,2,\r\n\r\n");
        fillShared();
        const Shared before = shared;
        const auto bytes = everything();
        Tables tables;
        const Loaded loaded = loadTables(folder.path(""), tables);
        EXPECT_EQ(differences(shared, before), "");
        EXPECT_EQ(everything(), bytes);
        EXPECT_FALSE(loaded.cutAtGap || loaded.neverEnds || !loaded.unreadable.empty());
        EXPECT_EQ(tables.dxdName, std::vector<std::string>{"A"});
        EXPECT_GE(tables.elemCount, 2);
    }
}

TEST_F(LoadTables, AreThoseThatOpeningGives)
{
    int gaps = 0, endless = 0;
    std::vector<std::string> projects;
    for (const char* sample : {"示例一", "示例二"}) {
        fs::copy(DamagedProject::samples() / sample, fs::path(folder.root()) / sample);
        projects.push_back(folder.root() + "/" + sample);
    }
    for (const auto& project : kDamagedProjects) projects.push_back(project.makeIn(folder.root()));
    for (const auto& project : projects) {
        Tables own;
        const Loaded loaded = loadTables(project, own);

        gProjectFolder = project;
        shared = {};
        const Loaded opened = loadOpenProject();
        EXPECT_TRUE(shared.tables == own) << project;
        EXPECT_EQ(loaded.cutAtGap, opened.cutAtGap) << project;
        EXPECT_EQ(loaded.neverEnds, opened.neverEnds) << project;
        gaps += loaded.cutAtGap;
        endless += loaded.neverEnds.has_value();
    }
    EXPECT_GT(gaps, 0);
    EXPECT_GT(endless, 0);
}

TEST_F(LoadTables, ASecondRoadKnowsNothingOfTheFirst)
{
    files({{"其他参数.txt", "积木法\r\n线性\r\n2\r\n3\r\n12\r\n"}, {"断链参数.txt", "100,120\r\n"}});
    LoadProject();
    folder.project("乙");
    files(kRoad);
    Tables second;
    loadTables(folder.path(""), second);
    EXPECT_EQ(second.hasDl, 0);
    EXPECT_EQ(second.elemLc, (std::vector<double>{0, 100, 200 + 0.0001}));
    EXPECT_EQ(gHasDl, -1);
}

TEST_F(LoadTables, ASpiralThatCannotBeComputedStartsFromFreshResults)
{
    // A radius of 0 makes the ends of the spirals and of the arc fail: what the last call left serves, here nothing
    // yet.
    files({{"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"},
           {"平曲线参数.txt", "0,0,0\r\nJD1,100,0,20,30,0\r\n200,100\r\n"}});
    fillShared();
    Tables own;
    loadTables(folder.path(""), own);
    ASSERT_EQ(own.elemX.size(), 6u);
    for (const std::size_t row : {2u, 3u, 4u}) {
        EXPECT_EQ(own.elemX[row], 0);
        EXPECT_EQ(own.elemY[row], 0);
        EXPECT_EQ(own.elemFwj[row], 0);
    }
    LoadProject();  // the same road in the shared load: what the last call had left
    for (const std::size_t row : {2u, 3u, 4u}) {
        EXPECT_EQ(gElemX[row], 11.5);
        EXPECT_EQ(gElemY[row], 22.25);
        EXPECT_EQ(gElemFwj[row], 33.0730);  // 33.125 degrees are 33 07 30
    }
}

TEST_F(LoadTables, AGapIsToldWithoutABox)
{
    files(kRoad);
    files({{"断链参数.txt", "120,150\r\n"}, {"竖曲线参数.txt", "130,1\r\n200,1\r\n"}});
    Tables own;
    EXPECT_TRUE(loadTables(folder.path(""), own).cutAtGap);
    EXPECT_EQ(own.sqxLc, (std::vector<double>{130, 200}));
    EXPECT_EQ(own.cgLc, std::vector<double>{});
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(LoadTables, AFileWithoutACommaIsToldWithItsLastLine)
{
    files(kRoad);
    folder.write("竖曲线参数.txt", "abc\r\n\r\n1;2\r\n");
    Tables own;
    EXPECT_EQ(loadTables(folder.path(""), own).neverEnds, (Place{"竖曲线参数.txt", 2}));
    EXPECT_EQ(own.elemCount, 2);
    EXPECT_EQ(own.cgType, "");
}

TEST_F(LoadTables, AFolderThatIsNotThereHasNoRows)
{
    Tables own;
    const Loaded loaded = loadTables(folder.path("") + "/没有", own);
    EXPECT_TRUE(loaded.unreadable.empty());
    Tables expected;
    expected.cgType = "1";  // settings of one line that a load would make
    EXPECT_TRUE(own == expected);
    EXPECT_FALSE(fs::exists(folder.path("") + "/没有"));
}
