// What the check says of roads with one thing wrong, and that it is silent where nothing is.

#include "CheckedSample.h"

#include <algorithm>
#include <cmath>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// ---- coverage, whatever else was found

TEST(CheckCoverage, IsLookedAtBesideABlankLineOfTheAlignment)
{
    CheckedSample road("示例一");
    road.replace("平曲线参数.txt", "JD1,", "\r\nJD1,");
    road.replace("超高宽度参数.txt", "17538.958,18553.408", "17538.958,18550.408");
    EXPECT_THAT(road.texts(), ElementsAre(StartsWith("平曲线参数.txt:2: 空行"),
                                          StartsWith("超高宽度参数.txt:17: 路线终点之前的3.00")));
    EXPECT_NEAR(road.found()[1].amount.value, 3, 0.005);
}

TEST(CheckCoverage, IsLookedAtBesideACurveWithoutARadius)
{
    // What JD4 hides counts as the straight way past it, so the amount is the least that is missing.
    CheckedSample road("示例一");
    road.replace("平曲线参数.txt", "50,60,125", "50,60,0");
    road.replace("竖曲线参数.txt", "17320,253.019,5000\r\n18553.408,265.97", "17320,253.019,5000\r\n17553.408,255.47");
    EXPECT_THAT(road.texts(),
                ElementsAre(StartsWith("平曲线参数.txt:5:6: 曲线半径为0"),
                            AllOf(StartsWith("竖曲线参数.txt:10: 路线终点之前的至少"), HasSubstr("没有数据"))));
}

TEST(CheckCoverage, IsLookedAtBesideACoordinateThatIsNoNumber)
{
    CheckedSample road("示例一");
    road.replace("平曲线参数.txt", "JD7,2858026.456", "JD7,28580x");
    road.replace("超高宽度参数.txt", "12000,13567.448", "12001,13567.448");
    EXPECT_THAT(road.texts(), ElementsAre(StartsWith("平曲线参数.txt:8:2: “28580x”不是数字"),
                                          "超高宽度参数.txt:1: 路线起点之后的1.000米没有数据"));
}

TEST(CheckCoverage, IsLookedAtWhereTheModelIsTheOtherOne)
{
    CheckedSample road("示例二");
    road.replace("其他参数.txt", "积木法", "交点法");
    road.replace("超高宽度参数.txt", "1057.135,1116.035", "1057.135,1106.035");
    EXPECT_THAT(road.texts(),
                ElementsAre(HasSubstr("各行是积木法的7项"), "超高宽度参数.txt:17: 路线终点之前的10.000米没有数据"));
}

// ---- lines as the load counts them

TEST(CheckLines, ALineWithoutACommaCountsAsTheLoadCountsIt)
{
    // Its first field is the stake 12560: the stakes rise, and the height is 0.
    CheckedSample road("示例一");
    road.replace("竖曲线参数.txt", "12560,244.62,6000", "12560");
    for (const auto& text : road.texts()) EXPECT_THAT(text, testing::Not(HasSubstr("没有增大")));
    EXPECT_THAT(road.texts(), testing::Contains(HasSubstr("这一行没有逗号，除第1项外都按0处理")));
}

TEST(CheckLines, ALineThatTheLoadLosesIsNoRow)
{
    // A blank line makes the load rewrite the file, and a rewritten file loses a last line without CR LF.
    CheckedSample road("示例一");
    road.replace("超高宽度参数.txt", "13567.448,13627.448,0,5,5,", "\r\n13567.448,13627.448,0,5,5,");
    auto bytes = road.folder.bytes("超高宽度参数.txt");
    road.folder.writeBytes("超高宽度参数.txt", bytes.substr(0, bytes.size() - 2));
    EXPECT_THAT(road.texts(), ElementsAre(StartsWith("超高宽度参数.txt:2: 空行"),
                                          AllOf(StartsWith("超高宽度参数.txt:18: "), HasSubstr("这一行会丢失")),
                                          // 18553.408 - 17538.958, all of the last row
                                          StartsWith("超高宽度参数.txt:17: 路线终点之前的1014.45")));
}

TEST(CheckLines, SlopeFilesAreNotCleanedByTheLoadAndNeverHangIt)
{
    CheckedSample road("示例二");
    road.folder.write("左幅填方参数.txt", "\r\n没有数据\r\n");
    EXPECT_THAT(road.texts(), ElementsAre("左幅填方参数.txt:1: 空行，在编辑窗口里占一行",
                                          StartsWith("左幅填方参数.txt:2: 末尾没有逗号的行")));
}

// ---- settings as the load will read them

TEST(CheckSettings, ALastLineWithoutItsEndGrowsByTheLoadsOwnLine)
{
    CheckedSample road("示例二");
    road.folder.write("其他参数.txt", "积木法");
    const auto texts = road.texts();
    EXPECT_THAT(texts, testing::Contains(AllOf(StartsWith("其他参数.txt:1: 最后一行没有以回车换行结尾"),
                                               HasSubstr("“积木法未设置”"))));
    EXPECT_THAT(texts, testing::Contains(HasSubstr("平曲线模型“积木法未设置”")));
    EXPECT_THAT(texts, testing::Contains(HasSubstr("只有1行")));
}

TEST(CheckSettings, AGradeCountWithoutItsLineEndIsNoNumberAfterTheLoad)
{
    CheckedSample road("示例一");
    road.folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3");
    EXPECT_THAT(road.texts(),
                ElementsAre(HasSubstr("成为“3未设置”"), HasSubstr("挖方最大边坡级数“3未设置”不是1到10的数")));
}

TEST(CheckSettings, ALastLineThatTheLoadLosesIsNotRead)
{
    CheckedSample road("示例一");
    road.folder.write("其他参数.txt", "交点法\r\n线性\r\n\r\n2\r\n99");
    EXPECT_THAT(road.texts(), ElementsAre(StartsWith("其他参数.txt:3: 空行"), HasSubstr("这一行会丢失"),
                                          "其他参数.txt: 只有3行，应为5行"));
}

TEST(CheckSettings, AMissingFileIsUnset)
{
    CheckedSample road("示例二");
    road.folder.remove("其他参数.txt");
    EXPECT_THAT(road.texts(), testing::Contains(HasSubstr("平曲线模型“未设置”")));
}

// ---- counts

std::string rows(int count, const std::string& row)
{
    std::string text;
    for (int i = 0; i < count; ++i) text += row + "\r\n";
    return text;
}

TEST(CheckCounts, MoreRowsThanA16BitCountHoldsAreSaid)
{
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    const auto said = [&](int count, const std::string& end) {
        folder.write("导线点参数.txt", rows(count, ",1,2,") + end);
        for (const auto& finding : CheckProject(ProjectPath(gProject)))
            if (finding.text.find("只读第1行") != std::string::npos) return finding.amount.value;
        return 0.0;
    };
    EXPECT_EQ(said(32767, ""), 0);  // 32,768 pieces, upper bound 32,767
    EXPECT_EQ(said(32768, ""), 32768);
    EXPECT_EQ(said(32767, ",1,2,"), 0);  // the last line without its end is the last piece
    EXPECT_EQ(said(32768, ",1,2,"), 32769);
}

TEST(CheckCounts, AClosingRowNeedsOneMore)
{
    // 32,768 lines, the last without its end: 32,768 pieces are read, but row 32,768 has no number.
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    folder.write("超高参数.txt", rows(32767, "0,0,0,1,0,0") + "0,0,0,1,0,0");
    std::vector<std::string> all;
    for (const auto& finding : CheckProject(ProjectPath(gProject))) all.push_back(FindingText(finding));
    EXPECT_THAT(all, testing::Contains("超高参数.txt: 共32768行，超过32767行，行数记不下"));
}

std::string polygon(int points)
{
    std::string text = "0,0,0\r\n";
    for (int i = 1; i <= points; ++i)
        text += "P" + std::to_string(i) + "," + std::to_string(1000 * i) + "," + (i % 2 ? "100" : "0") + ",0,0,500\r\n";
    return text + std::to_string(1000 * (points + 1)) + ",0.5\r\n";
}

TEST(CheckCounts, MoreThan500IntersectionPointsAreSaid)
{
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    folder.write("平曲线参数.txt", polygon(500));
    EXPECT_THAT(CheckProject(ProjectPath(gProject)), IsEmpty());
    folder.write("平曲线参数.txt", polygon(501));
    const auto found = CheckProject(ProjectPath(gProject));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(FindingText(found[0]), "平曲线参数.txt:502: 共501个交点，超过500个交点，主点表只列前500个");
}

TEST(CheckCounts, MoreThan8191IntersectionPointsAreSaid)
{
    // Four rows a point and one more: 4 * 8191 + 1 = 32,765 can be counted, 32,769 cannot.
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    folder.write("平曲线参数.txt", polygon(8191));
    EXPECT_EQ(CheckProject(ProjectPath(gProject)).size(), 1u);
    folder.write("平曲线参数.txt", polygon(8192));
    const auto found = CheckProject(ProjectPath(gProject));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(FindingText(found[1]), "平曲线参数.txt:8193: 共8192个交点，超过8191个，平曲线不会正确生成");
}

// ---- breaks along the road

/// A straight road of blocks, X = 0.
struct StraightRoad : testing::Test {
    ProjectFolder folder{{"其他参数.txt", "积木法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (const auto& finding : CheckProject(ProjectPath(gProject))) all.push_back(FindingText(finding));
        return all;
    }
    /// From 0, 0 to the north, `length` m, typed stakes from and to.
    void block(const std::string& from, const std::string& to) const
    {
        folder.write("平曲线参数.txt", from + "," + to + ",0,0,0,0,0\r\n");
    }
};

using CheckBreaksAlongTheRoad = StraightRoad;

TEST_F(CheckBreaksAlongTheRoad, ABreakInsideTheDoubledNumbersIsRight)
{
    // 10120 = 10100 and, ten metres on, 10110 = 10130. The number 10115 stands before the first break.
    block("10000", "10500");
    folder.write("断链参数.txt", "10120,10100\r\n10110,10130\r\n");
    folder.write("竖曲线参数.txt", "10000,5\r\n10115,5.1,100\r\n10500,6\r\n");
    EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(CheckBreaksAlongTheRoad, ABreakBeforeTheOneAboveItIsOutOfOrderByItsWayBack)
{
    // The numbers rise, 10125 above 10120, but behind the first break the road goes on at 10130.
    block("10000", "10500");
    folder.write("断链参数.txt", "10120,10130\r\n10125,10200\r\n");
    EXPECT_THAT(texts(),
                testing::Contains("断链参数.txt:2:1: 断链没有按里程从小到大排列，比上一处断链的去向里程小5.000米"));
}

TEST_F(CheckBreaksAlongTheRoad, AGapIsFoundBehindAnOverlap)
{
    // Behind the overlap the numbers start again at 10100; 10300 to 10310 are skipped there, once for all.
    block("10000", "10500");
    folder.write("断链参数.txt", "10120,10100\r\n10300,10310\r\n");
    folder.write("竖曲线参数.txt", "10000,5\r\n10305,5.1,100\r\n10500,6\r\n");
    EXPECT_THAT(texts(), ElementsAre(StartsWith("竖曲线参数.txt:2:1: 里程落在断链跳过的一段里")));
}

// ---- superelevation against the road

TEST(CheckSuperelevation, SlopingOneWayAgainstTheTurnIsFound)
{
    // JD1 turns right: its outer side is the left one.
    CheckedSample road("示例一");
    road.replace("超高参数.txt", "12364.042,-2,-2,12424.042,4,-4\r\n12424.042,4,-4,12539.37,4,-4\r\n12539.37,4,-4,",
                 "12364.042,-2,-2,12424.042,-4,4\r\n12424.042,-4,4,12539.37,-4,4\r\n12539.37,-4,4,");
    const auto found = road.found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].file, "超高参数.txt");
    EXPECT_EQ(found[0].line, 3);
    EXPECT_THAT(found[0].text, AllOf(HasSubstr("右转"), HasSubstr("左幅-4%、右幅4%"), HasSubstr("外侧")));
    EXPECT_EQ(found[0].amount.value, 8);
}

TEST(CheckSuperelevation, SlopingOneWayAgainstALeftTurnOfBlocksIsFound)
{
    CheckedSample road("示例二");
    road.replace("超高参数.txt", "413.814,-2,-2,473.814,-5,5\r\n473.814,-5,5,555.718,-5,5\r\n555.718,-5,5,",
                 "413.814,-2,-2,473.814,5,-5\r\n473.814,5,-5,555.718,5,-5\r\n555.718,5,-5,");
    const auto found = road.found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_THAT(FindingText(found[0]), AllOf(StartsWith("超高参数.txt:9: K0+473."), HasSubstr("左转")));
}

TEST(CheckSuperelevation, ANormalCrownOnACurveIsRight)
{
    CheckedSample road("示例一");
    road.replace("超高参数.txt", "12364.042,-2,-2,12424.042,4,-4\r\n12424.042,4,-4,12539.37,4,-4\r\n12539.37,4,-4,",
                 "12364.042,-2,-2,12424.042,-2,-2\r\n12424.042,-2,-2,12539.37,-2,-2\r\n12539.37,-2,-2,");
    EXPECT_THAT(road.texts(), IsEmpty());
}

TEST(CheckSuperelevation, StillChangingOnTheCircleByMoreThanHalfAMetreIsFound)
{
    // The spiral ends at 12424.042, the change 0.6 m behind it; half a metre is nobody's business.
    CheckedSample road("示例一");
    road.replace("超高参数.txt", "12424.042,4,-4\r\n12424.042,4,-4,12539.37",
                 "12424.642,4,-4\r\n12424.642,4,-4,12539.37");
    const auto found = road.found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_THAT(FindingText(found[0]), AllOf(StartsWith("超高参数.txt:2: "), HasSubstr("还在变化，长0.6")));
    EXPECT_NEAR(found[0].amount.value, 0.6, 0.001);
    road.replace("超高参数.txt", "12424.642,4,-4\r\n12424.642,4,-4,12539.37",
                 "12424.442,4,-4\r\n12424.442,4,-4,12539.37");
    EXPECT_THAT(road.texts(), IsEmpty());
}

TEST(CheckSuperelevation, MayChangeOnACircleWithoutSpirals)
{
    // JD6 has none; its change lies half on the straight before it, half on the curve, as is usual.
    CheckedSample road("示例一");
    road.replace("平曲线参数.txt", "JD1,2856575.075,512894.675,60,70,420", "JD1,2856575.075,512894.675,0,0,420");
    for (const auto& text : road.texts()) EXPECT_THAT(text, testing::Not(HasSubstr("平曲线参数第2行）还在变化")));
}

TEST(CheckSuperelevation, SlopesTypedAsRatiosAreFound)
{
    CheckedSample road("示例一");
    road.folder.write("超高参数.txt", "12000,-0.02,-0.02,18553.408,-0.02,-0.02\r\n");
    EXPECT_THAT(road.texts(), ElementsAre("超高参数.txt: 坡度都小于0.2%（最大0.02%），像是按比值填写，应填百分数"));
    road.folder.write("超高参数.txt", "12000,-0.2,-0.2,18553.408,-0.2,-0.2\r\n");
    EXPECT_THAT(road.texts(), IsEmpty());
    road.folder.write("超高参数.txt", "12000,0,0,18553.408,0,0\r\n");
    EXPECT_THAT(road.texts(), IsEmpty());
}

TEST(CheckSuperelevation, ShoulderSlopesTypedAsRatiosAreFound)
{
    CheckedSample road("示例一");
    road.folder.write("超高宽度参数.txt", "12000,18553.408,0,5,5,0.75,0.75,5,5,0.75,0.75,-0.04\r\n");
    EXPECT_THAT(road.texts(), ElementsAre("超高宽度参数.txt: 坡度都小于0.2%（最大0.04%），像是按比值填写，应填百分数"));
}

TEST(CheckSuperelevation, ACrossfallBesideAWidthOf0IsFound)
{
    CheckedSample road("示例一");
    road.folder.write("超高宽度参数.txt", "12000,18553.408,0,0,5,0,0.75,0,5,0,0.75,-4\r\n");
    EXPECT_THAT(road.texts(), ElementsAre("超高参数.txt:1: 左幅坡度-2%，而这里的路基宽度为0（超高宽度参数第1行）"));
    road.folder.write("超高宽度参数.txt", "12000,18553.408,0,0,5,0,0.75,1,5,0,0.75,-4\r\n");
    EXPECT_THAT(road.texts(), IsEmpty());
}

// ---- traverse points

TEST(CheckTraverse, APointWithXAndYExchangedIsFound)
{
    CheckedSample road("示例一");
    road.replace("导线点参数.txt", "GP02,2856710.993,513531.019", "GP02,513531.019,2856710.993");
    const auto found = road.found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].line, 2);
    EXPECT_THAT(found[0].text, AllOf(HasSubstr("像是填反了"), HasSubstr("公里")));
    // Both axes off by 2343 km.
    EXPECT_NEAR(found[0].amount.value, 2343.18 * std::sqrt(2), 5);
}

TEST(CheckTraverse, APointFurtherThan50KmFromTheRoadIsFound)
{
    CheckedSample road("示例一");
    road.replace("导线点参数.txt", "D04,2858639.347", "D04,2918639.347");
    const auto found = road.found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_THAT(FindingText(found[0]), StartsWith("导线点参数.txt:4: 离路线"));
    EXPECT_NEAR(found[0].amount.value, 60, 1);
}

TEST(CheckTraverse, APointInTheNextTownIsRight)
{
    CheckedSample road("示例一");
    road.replace("导线点参数.txt", "D04,2858639.347", "D04,2888639.347");
    EXPECT_THAT(road.texts(), IsEmpty());
}

// ---- amounts

using CheckAmounts = StraightRoad;

TEST_F(CheckAmounts, AVerticalCurveThatBeginsWithTheRoadIsNoAlarmOnRounding)
{
    // R = 10000 and grades 1.0005 % and -0.9995 %: the tangent is the 100 m before the point at 6.0005 m. The heights
    // as written, 6.001 and 4.001 for 4.0015, make it 100.05 m.
    block("0", "300");
    folder.write("竖曲线参数.txt", "0,5\r\n100,6.001,10000\r\n300,4.001\r\n");
    EXPECT_THAT(texts(), IsEmpty());
    folder.write("竖曲线参数.txt", "0,5\r\n100,6,11000\r\n300,4\r\n");
    EXPECT_THAT(texts(), ElementsAre("竖曲线参数.txt:2: 竖曲线伸到起点之前10.000米"));
    folder.write("竖曲线参数.txt", "0,5\r\n200,7,12000\r\n300,6\r\n");
    EXPECT_THAT(texts(), ElementsAre("竖曲线参数.txt:2: 竖曲线伸到终点之后20.000米"));
}

TEST_F(CheckAmounts, StakesThatFallSayByHowMuch)
{
    block("0", "300");
    folder.write("竖曲线参数.txt", "0,5\r\n200,5,100\r\n150,5,100\r\n300,5\r\n");
    EXPECT_THAT(texts(), testing::Contains("竖曲线参数.txt:3:1: 里程没有增大，退回50.000米"));
    folder.write("竖曲线参数.txt", "0,5\r\n200,5,100\r\n200,5,100\r\n300,5\r\n");
    EXPECT_THAT(texts(), testing::Contains("竖曲线参数.txt:3:1: 里程没有增大，与前一个里程相同"));
}

TEST_F(CheckAmounts, NothingIsToldBelowAMillimetre)
{
    folder.write("平曲线参数.txt", "0,100,0,0,0,0,0\r\n100.0009,200,100,0,0,0,0\r\n");
    EXPECT_THAT(texts(), IsEmpty());
    folder.write("平曲线参数.txt", "0,100,0,0,0,0,0\r\n100.001,200,100,0,0,0,0\r\n");
    EXPECT_THAT(texts(), ElementsAre("平曲线参数.txt:2:1: 起点里程与上一行的终点里程相差0.001米"));
}

TEST(CheckPoints, TheEndBeforeTheLastHzSaysByHowMuch)
{
    // R = 1000, deflection 90 degrees: the tangent is 1000 m, the last leg 990 m.
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,0,0\r\nJD1,2000,0,0,0,1000\r\n2000,990\r\n"}};
    const auto found = CheckProject(ProjectPath(gProject));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(FindingText(found[0]), "平曲线参数.txt:3: 终点在最后一个曲线的HZ点之前10.000米");
}

TEST(CheckNumbers, NoSlipOfTheHandEndsTheCheck)
{
    // Each field of each file in turn; whatever it does to the road, the check comes to its end.
    for (const auto* const sample : {"示例一", "示例二"}) {
        CheckedSample road(sample);
        for (const auto* const file : {"平曲线参数.txt", "竖曲线参数.txt", "断链参数.txt", "超高参数.txt",
                                       "超高宽度参数.txt", "导线点参数.txt"}) {
            const std::string text = road.folder.text(file);
            for (std::size_t at = 0, end = 0; at < 300 && end != std::string::npos; at = end + 1) {
                end = text.find_first_of(",\r", at);
                for (const auto* const slip : {"1e308", "-1e308", "1e-308", "0"}) {
                    const std::string rest = end == std::string::npos ? "" : text.substr(end);
                    road.folder.write(file, text.substr(0, at) + slip + rest);
                    EXPECT_NO_THROW(road.found()) << file << " " << at << " " << slip;
                }
            }
            road.folder.write(file, text);
        }
    }
}

TEST_F(CheckAmounts, AHugeNumberIsToldToo)
{
    folder.write("平曲线参数.txt", "0,1e308,0,0,0,0,0\r\n0,1e307,0,0,0,0,0\r\n");
    EXPECT_THAT(texts(), testing::Contains(HasSubstr("e+30")));
}

// ---- files

TEST_F(CheckAmounts, AnEmptyProjectHasNoAlignment)
{
    EXPECT_THAT(texts(), ElementsAre("平曲线参数.txt: 没有平曲线参数"));
    folder.write("平曲线参数.txt", "");
    EXPECT_THAT(texts(), ElementsAre("平曲线参数.txt: 没有平曲线参数"));
}

TEST(CheckUnreadable, OneFileDoesNotSilenceTheOthers)
{
    // A folder in a file's place cannot be read by anybody, root included.
    CheckedSample road("示例一");
    road.folder.remove("断链参数.txt");
    std::filesystem::create_directory(road.folder.path("断链参数.txt"));
    road.replace("超高宽度参数.txt", "12000,13567.448", "12001,13567.448");
    const auto texts = road.texts();
    EXPECT_THAT(texts, testing::Contains(StartsWith("断链参数.txt: 文件无法读取")));
    EXPECT_THAT(texts, testing::Contains(HasSubstr("路线起点之后的1.000米没有数据")));
}

}  // namespace
