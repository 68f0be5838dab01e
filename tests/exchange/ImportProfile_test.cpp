#include "RoadXml.h"

#include "engine/Elevation.h"
#include "exchange/Import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::HasSubstr;

namespace {

const std::vector<ChainPiece> kRoad{{200, 0, 0}, {60, 0, 400}, {150, 400, 400}, {80, 400, 0}, {300, 0, 0}};

ImportedRoad with(const std::string& more)
{
    RoadXml xml;
    xml.more = more;
    return ImportRoad(landxml::File::fromBytes(xml.text(kRoad)), 0, {});
}
std::string profile(const std::string& points)
{
    return "<Profile><ProfAlign name=\"设计线\">" + points + "</ProfAlign></Profile>";
}
double elevation(const ImportedRoad& road, double stake) { return elevationAt(Compile(road.files).tables, stake, 0); }

}  // namespace

TEST(ImportProfile, AParabolaOfALengthBecomesItsRadius)
{
    const auto road =
        with(profile("<PVI>1000 50</PVI><ParaCurve length=\"100\">1300 56</ParaCurve><PVI>1700 48</PVI>"));
    // Grades 2 and -2 percent over 100 m: R = 100 / 0.04.
    EXPECT_EQ(road.files.at("竖曲线参数.txt"), (std::vector<std::string>{"1000,50", "1300,56,2500", "1700,48"}));
    EXPECT_NEAR(elevation(road, 1300), 56 - 0.04 * 100 / 8, 1e-9);  // the middle ordinate of a parabola: A L / 8
    EXPECT_NEAR(elevation(road, 1250), 55, 1e-9);
    EXPECT_THAT(road.report, Contains(HasSubstr("最大相差 0.0000 米")));
}

TEST(ImportProfile, ACircleKeepsItsRadius)
{
    const auto road = with(
        profile("<PVI>1000 50</PVI><CircCurve length=\"200\" radius=\"5000\">1300 56</CircCurve><PVI>1700 48</PVI>"));
    EXPECT_EQ(road.files.at("竖曲线参数.txt")[1], "1300,56,5000");
    // Middle of a circle of radius R between grades of slope g and -g: T = R tan a, external E = R (1 / cos a - 1).
    const double a = std::atan(0.02);
    EXPECT_NEAR(elevation(road, 1300), 56 - 5000 * (1 / std::cos(a) - 1), 0.001);
}

TEST(ImportProfile, ACircleThatAParabolaDoesNotFollowIsSaid)
{
    const auto road = with(
        profile("<PVI>1000 50</PVI><CircCurve length=\"120\" radius=\"300\">1200 90</CircCurve><PVI>1400 50</PVI>"));
    EXPECT_THAT(road.report, Contains(testing::AllOf(HasSubstr("最大相差"), HasSubstr("，在 "))));
}

TEST(ImportProfile, WhatCannotBeCarriedLeavesTheProfileOutByName)
{
    for (const char* points :
         {"<PVI>1000 5</PVI><UnsymParaCurve lengthIn=\"10\" lengthOut=\"20\">1100 6</UnsymParaCurve><PVI>1200 5</PVI>",
          "<PVI>1000 5</PVI>", "<ParaCurve length=\"10\">1000 5</ParaCurve><PVI>1100 6</PVI>",
          "<PVI>1100 5</PVI><PVI>1000 6</PVI><PVI>1200 6</PVI>"}) {
        const auto road = with(profile(points));
        EXPECT_FALSE(road.files.contains("竖曲线参数.txt")) << points;
        EXPECT_THAT(road.report, Contains(HasSubstr("没有导入纵断面“设计线”"))) << points;
    }
    EXPECT_THAT(with(profile("<PVI>1000 5</PVI><UnsymParaCurve lengthIn=\"1\" lengthOut=\"2\">1100 6</UnsymParaCurve>"
                             "<PVI>1200 5</PVI>"))
                    .report,
                Contains(HasSubstr("UnsymParaCurve")));
}

TEST(ImportProfile, ASingleGradeGetsAPointBetween)
{
    const auto road = with(profile("<PVI>1000 50</PVI><PVI>1700 43</PVI>"));
    EXPECT_EQ(road.files.at("竖曲线参数.txt"), (std::vector<std::string>{"1000,50", "1350,46.5,0", "1700,43"}));
    EXPECT_NEAR(elevation(road, 1200), 48, 1e-9);
    EXPECT_THAT(road.report, Contains(HasSubstr("中间加了")));
}

TEST(ImportProfile, PiecesThatGoOnAreOneAndAnotherDesignIsLeftOut)
{
    const auto road = with(profile("<PVI>1000 50</PVI><PVI>1300 53</PVI>") +
                           "<Profile><ProfAlign name=\"二\"><PVI>1300 53</PVI><PVI>1700 45</PVI></ProfAlign>"
                           "<ProfAlign name=\"三\"><PVI>1000 1</PVI><PVI>1700 2</PVI></ProfAlign></Profile>");
    EXPECT_EQ(road.files.at("竖曲线参数.txt"), (std::vector<std::string>{"1000,50", "1300,53,0", "1700,45"}));
    EXPECT_THAT(road.report, Contains(HasSubstr("“三”")));
}

TEST(ImportProfile, CurvesThatOverlapAreSaid)
{
    const auto road = with(profile("<PVI>1000 50</PVI><ParaCurve length=\"200\">1300 53</ParaCurve><ParaCurve "
                                   "length=\"200\">1400 53</ParaCurve><PVI>1700 56</PVI>"));
    EXPECT_THAT(road.report, Contains(HasSubstr("重叠 100.0000 米")));
}

namespace {

/// Superelevation of 4 percent: crown 2, as run-out is half of run-off.
std::string superelevation(const std::string& without = "")
{
    const std::pair<const char*, const char*> stations[] = {
        {"BeginRunoutSta", "1180"}, {"BeginRunoffSta", "1200"},   {"FullSuperSta", "1240"},  {"FullSuperelev", "4"},
        {"RunoffSta", "1420"},      {"StartofRunoutSta", "1460"}, {"EndofRunoutSta", "1480"}};
    std::string text = "<Superelevation>";
    for (const auto& [name, value] : stations)
        if (name != without) text += "<" + std::string(name) + ">" + value + "</" + name + ">";
    return text + "</Superelevation>";
}

}  // namespace

TEST(ImportSuperelevation, RunOutRunOffAndFullBecomeStretches)
{
    const auto road = with(superelevation());
    // The curve turns right: the left side is the outer one and rises through 0 to +4, the right one waits at the
    // crown.
    EXPECT_EQ(road.files.at("超高参数.txt"),
              (std::vector<std::string>{"1180,-2,-2,1200,0,-2", "1200,0,-2,1220,2,-2", "1220,2,-2,1240,4,-4",
                                        "1240,4,-4,1420,4,-4", "1420,4,-4,1440,2,-2", "1440,2,-2,1460,0,-2",
                                        "1460,0,-2,1480,-2,-2"}));
    EXPECT_EQ(road.files.at("其他参数.txt")[1], "线性");
}

TEST(ImportSuperelevation, OneStationLessLeavesItOutByName)
{
    for (const char* name : {"BeginRunoutSta", "BeginRunoffSta", "FullSuperSta", "FullSuperelev", "RunoffSta",
                             "StartofRunoutSta", "EndofRunoutSta"}) {
        const auto road = with(superelevation(name));
        EXPECT_FALSE(road.files.contains("超高参数.txt")) << name;
        EXPECT_THAT(road.report, Contains(HasSubstr("没有导入第1个超高"))) << name;
    }
}
