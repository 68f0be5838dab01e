// Which road the tables hold: the line of the windows, and the doubts beside results.

#include "base/Numbers.h"
#include "project/LoadProject.h"
#include "project/OpenRoad.h"
#include "project/SmallRoad.h"
#include "support/SharedDiff.h"

#include <cmath>
#include <filesystem>

namespace {

struct OpenRoadTest : LoadTest {
    void open(const std::string& name, std::initializer_list<ProjectFolder::File> all)
    {
        folder.project(name, all);
        LoadProject();
    }
    void again(const std::string& name)
    {
        gProject = name;
        LoadProject();
    }
};

const std::string kWhole = "当前项目：甲　K0+000.000～K0+200.000　积木法";

}  // namespace

TEST_F(OpenRoadTest, BeforeTheFirstOpenThereIsNone)
{
    EXPECT_EQ(roadText().text, "尚未打开项目");
    EXPECT_FALSE(roadText().doubtful);
    EXPECT_EQ(lookAtRoad(), RoadDoubts{});
}

TEST_F(OpenRoadTest, NamesTheRoadWithItsNominalStakes)
{
    open("甲", kRoad);
    EXPECT_EQ(roadText().text, kWhole) << "without the closing row's 0.0001";
    EXPECT_FALSE(roadText().doubtful);
    EXPECT_EQ(lookAtRoad(), RoadDoubts{});
}

TEST_F(OpenRoadTest, IntersectionPointsCloseWithACentimetre)
{
    open("乙", {{"其他参数.txt", "交点法\r\n"}, {"平曲线参数.txt", "1000,0,0\r\nJ,100,0,20,30,50\r\n100,100\r\n"}});
    const double end = gElemLc[static_cast<std::size_t>(gElemCount)] - 0.01;
    EXPECT_EQ(roadText().text, "当前项目：乙　K1+000.000～" + FormatStake(std::round(end * 1000) / 1000) + "　交点法");
}

TEST_F(OpenRoadTest, TheStakesThatMayBeTyped)
{
    EXPECT_FALSE(alignmentRange());
    EXPECT_FALSE(profileRange());
    open("甲", {{"其他参数.txt", "积木法\r\n"},
                {"平曲线参数.txt", "0.1234,200.9876,10,20,30,0,0\r\n"},
                {"竖曲线参数.txt", "20.5,10\r\n50,12,900\r\n180.25,11\r\n"}});
    ASSERT_TRUE(alignmentRange() && profileRange());
    // Whole millimetres inside the road: 0.123 and 200.988 would be refused.
    EXPECT_EQ(alignmentRange()->first, ".124");
    EXPECT_EQ(alignmentRange()->last, "200.987");
    EXPECT_EQ(profileRange()->first, "20.5");
    EXPECT_EQ(profileRange()->last, "180.25");
}

TEST_F(OpenRoadTest, TheStakesThatMayBeTypedAreNominal)
{
    open("断", {{"其他参数.txt", "积木法\r\n"},
                {"断链参数.txt", "100,130\r\n"},
                {"平曲线参数.txt", "0,100,10,20,30,0,0\r\n130,230,96.6,70,30,0,50\r\n"}});
    ASSERT_TRUE(alignmentRange());
    EXPECT_EQ(alignmentRange()->first, "0");
    EXPECT_EQ(alignmentRange()->last, "230");
    EXPECT_FALSE(profileRange());
}

TEST_F(OpenRoadTest, CountsTheBreaksAndShowsStakesAsPeopleWriteThem)
{
    folder.project("断", kRoad);
    folder.write("断链参数.txt", "100,130\r\n");
    folder.write("平曲线参数.txt", "0,100,10,20,30,0,0\r\n130,230,96.6,70,30,0,50\r\n");
    folder.write("竖曲线参数.txt", "0,10\r\n50,12,900\r\n230,11\r\n");
    LoadProject();
    EXPECT_EQ(roadText().text, "当前项目：断　K0+000.000～K0+230.000　积木法　断链 1 处");
}

TEST_F(OpenRoadTest, AnotherProjectNamedThanLoadedIsAmber)
{
    open("甲", kRoad);
    gProject = "空项目";
    EXPECT_EQ(roadText().text, "计算用“甲”的数据，编辑和表头是“空项目”");
    EXPECT_TRUE(roadText().doubtful);
    gProject = " 甲 ";
    EXPECT_EQ(roadText().text, kWhole) << "blanks around the name make no other project";
}

TEST_F(OpenRoadTest, AnEmptyProjectKeepsTheRoadBefore)
{
    open("甲", kRoad);
    open("空项目", {{"其他参数.txt", "积木法\r\n"}});
    EXPECT_TRUE(roadText().doubtful);
    EXPECT_NE(roadText().text.find("此项目没有平曲线参数，沿用“甲”的数据"), std::string::npos);
    const RoadDoubts doubts = lookAtRoad();
    EXPECT_EQ(doubts.alignment, "此项目没有平曲线参数，沿用“甲”的数据") << "甲 has no breaks to keep";
    EXPECT_EQ(doubts.profile, "此项目没有竖曲线参数，沿用“甲”的数据；此项目没有超高参数，沿用“甲”的数据；"
                              "此项目没有超高宽度参数，沿用“甲”的数据");
    EXPECT_EQ(doubts.traverse, "此项目没有导线点参数，沿用“甲”的数据");
    again("甲");
    EXPECT_FALSE(roadText().doubtful);
    EXPECT_EQ(lookAtRoad(), RoadDoubts{});
}

TEST_F(OpenRoadTest, OnlyTheGroupThatIsMissingIsTold)
{
    open("甲", kRoad);
    folder.project("乙", kRoad);
    folder.write("竖曲线参数.txt", "");
    LoadProject();
    const RoadDoubts doubts = lookAtRoad();
    EXPECT_EQ(doubts.alignment + doubts.traverse, "");
    EXPECT_EQ(doubts.profile, "此项目没有竖曲线参数，沿用“甲”的数据");
}

TEST_F(OpenRoadTest, BreaksOfTheProjectBeforeAreTold)
{
    folder.project("断", kRoad);
    folder.write("断链参数.txt", "500,530\r\n");
    LoadProject();
    open("甲", kRoad);
    EXPECT_EQ(lookAtRoad().alignment, "此项目没有断链参数，沿用“断”的数据");
    EXPECT_EQ(lookAtRoad().profile, "此项目没有断链参数，沿用“断”的数据");
}

TEST_F(OpenRoadTest, AGroupEmptiedSinceAnEarlierLoad)
{
    open("甲", kRoad);
    folder.write("超高参数.txt", "");
    LoadProject();
    EXPECT_EQ(lookAtRoad().profile, "超高参数已没有数据，沿用先前读入的数据");
}

TEST_F(OpenRoadTest, AFileChangedAfterTheLoad)
{
    const std::vector<std::pair<std::string, std::string RoadDoubts::*>> each{
        {"平曲线参数.txt", &RoadDoubts::alignment}, {"竖曲线参数.txt", &RoadDoubts::profile},
        {"超高参数.txt", &RoadDoubts::profile},     {"超高宽度参数.txt", &RoadDoubts::profile},
        {"导线点参数.txt", &RoadDoubts::traverse},
    };
    for (const auto& [file, where] : each) {
        open("甲" + file, kRoad);
        const auto before = folder.bytes(file);
        folder.writeBytes(file, before + "300,1,1,\r\n");
        RoadDoubts wanted;
        wanted.*where = file + " 已修改，尚未重新读入";
        EXPECT_EQ(lookAtRoad(), wanted) << file;
        folder.writeBytes(file, before);
        EXPECT_EQ(lookAtRoad(), RoadDoubts{}) << file << ": the content counts, not the time";
        folder.remove(file);
        EXPECT_EQ(lookAtRoad(), wanted) << file << " is gone";
        EXPECT_FALSE(folder.has(file)) << "nothing is created by a look";
    }
}

TEST_F(OpenRoadTest, BreaksConcernBoth)
{
    open("甲", kRoad);
    folder.write("断链参数.txt", "100,130\r\n");
    const std::string wanted = "断链参数.txt 已修改，尚未重新读入";
    EXPECT_EQ(lookAtRoad(), (RoadDoubts{wanted, wanted, ""}));
}

TEST_F(OpenRoadTest, OfTheSettingsOnlyWhatTheTablesHangOn)
{
    open("甲", kRoad);
    folder.write("其他参数.txt", "积木法\r\n线性\r\n4\r\n4\r\n9\r\n");
    EXPECT_EQ(lookAtRoad(), RoadDoubts{}) << "slope grades are in no table";
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
    EXPECT_EQ(lookAtRoad(), (RoadDoubts{"其他参数.txt 已修改，尚未重新读入", "", ""}));
    folder.write("其他参数.txt", "积木法\r\n三次抛物线\r\n2\r\n3\r\n12\r\n");
    EXPECT_EQ(lookAtRoad(), (RoadDoubts{"", "其他参数.txt 已修改，尚未重新读入", ""}));
}

TEST_F(OpenRoadTest, AFileThatCannotBeRead)
{
    open("甲", kRoad);
    folder.project("乙", kRoad);
    folder.remove("平曲线参数.txt");
    std::filesystem::create_directory(folder.path("平曲线参数.txt"));
    LoadProject();
    EXPECT_EQ(lookAtRoad(), (RoadDoubts{"平曲线参数.txt 无法读取，沿用“甲”的数据", "", ""}));
    EXPECT_TRUE(roadText().doubtful);
}

TEST_F(OpenRoadTest, ALoadCutAtAGapTellsWhatItDidNotRead)
{
    open("甲", kRoad);
    folder.project("乙", kRoad);
    folder.write("断链参数.txt", "50,80\r\n");
    folder.write("平曲线参数.txt", "0,60,10,20,30,0,0\r\n60,200,96.6,70,30,0,50\r\n");
    LoadProject();
    const RoadDoubts doubts = lookAtRoad();
    EXPECT_EQ(doubts.alignment, "平曲线参数只读入了一部分：有桩号在断链中不存在");
    EXPECT_EQ(doubts.profile, "竖曲线参数没有读入，沿用“甲”的数据；超高参数没有读入，沿用“甲”的数据；"
                              "超高宽度参数没有读入，沿用“甲”的数据");
}

TEST_F(OpenRoadTest, LookingMovesNothing)
{
    open("甲", kRoad);
    open("空项目", {});
    const Shared before = shared;
    const auto files = ProjectFolder::filesIn(ProjectPath(gProject));
    roadText();
    lookAtRoad();
    EXPECT_EQ(differences(shared, before), "");
    EXPECT_EQ(ProjectFolder::filesIn(ProjectPath(gProject)), files);
}
