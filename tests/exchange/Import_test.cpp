#include "RoadXml.h"

#include "engine/Elevation.h"
#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/Import.h"
#include "exchange/ImportHorizontal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

ImportedRoad take(const std::string& xml, const ImportWishes& wishes = {})
{
    return ImportRoad(landxml::File::fromBytes(xml), 0, wishes);
}

std::string refusal(const std::string& xml, const ImportWishes& wishes = {})
{
    try {
        take(xml, wishes);
    } catch (const ExchangeError& error) {
        return error.what();
    }
    return "";
}

std::string model(const ImportedRoad& road) { return road.files.at("其他参数.txt")[0]; }

/// Largest distance of the compiled road from the chain's own ends.
double farthest(const ImportedRoad& road, const RoadXml& xml, const std::vector<ChainPiece>& chain, double start)
{
    const auto compiled = Compile(road.files);
    EXPECT_TRUE(compiled.whole);
    double largest = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const double end = start + chain[i].length;
        const auto element = elementAt(compiled.tables, (start + end) / 2);
        EXPECT_GT(element, 0u);
        if (element == 0) return HUGE_VAL;
        const auto at = pointOn(compiled.tables, element, end);
        largest = std::max(largest, std::hypot(at.x - xml.ends[i].x, at.y - xml.ends[i].y));
        start = end;
    }
    return largest;
}

const std::vector<ChainPiece> kRightCurve{{200, 0, 0}, {60, 0, 400}, {150, 400, 400}, {80, 400, 0}, {300, 0, 0}};

}  // namespace

TEST(Import, SpiralArcSpiralBetweenStraightsIsAnIntersectionPoint)
{
    RoadXml xml;
    const auto road = take(xml.text(kRightCurve));
    EXPECT_EQ(model(road), "交点法");
    const auto& lines = road.files.at("平曲线参数.txt");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "1000,3000000,500000");
    EXPECT_THAT(lines[1], testing::MatchesRegex("JD1,.*,60,80,400"));
    EXPECT_LT(farthest(road, xml, kRightCurve, 1000), 0.001);
}

TEST(Import, BothTurnsAndArcsWithoutSpiralsAreIntersectionPoints)
{
    const std::vector<ChainPiece> chain{{100, 0, 0},    {120, -500, -500}, {50, 0, 0},    {40, 0, 300},
                                        {90, 300, 300}, {40, 300, 0},      {35, 0, -250}, {70, -250, -250},
                                        {35, -250, 0},  {100, 0, 0}};
    RoadXml xml;
    const auto road = take(xml.text(chain));
    EXPECT_EQ(model(road), "交点法");
    EXPECT_EQ(road.files.at("平曲线参数.txt").size(), 5u);
    EXPECT_LT(farthest(road, xml, chain, 1000), 0.001);
}

TEST(Import, ASpiralBetweenRadiiMakesBlocks)
{
    const std::vector<ChainPiece> chain{{100, 0, 0},      {50, 0, -200}, {60, -200, -200}, {40, -200, -150},
                                        {80, -150, -150}, {50, -150, 0}, {20, 0, 0}};
    RoadXml xml;
    const auto road = take(xml.text(chain));
    EXPECT_EQ(model(road), "积木法");
    EXPECT_EQ(road.files.at("平曲线参数.txt").size(), chain.size());
    EXPECT_LT(farthest(road, xml, chain, 1000), 0.001);
    EXPECT_EQ(road.files.at("平曲线参数.txt")[0], "1000,1100,3000000,500000,30,0,0");
}

TEST(Import, AnArcOfMoreThanHalfATurn)
{
    for (const double r : {60.0, -60.0}) {
        const std::vector<ChainPiece> chain{{100, 0, 0}, {270, r, r}, {100, 0, 0}};  // 258 degrees
        RoadXml xml;
        const auto road = take(xml.text(chain));
        EXPECT_EQ(model(road), "积木法");
        EXPECT_LT(farthest(road, xml, chain, 1000), 0.001) << r;
    }
}

TEST(Import, SpiralsOutOfAndIntoRadiiInBothTurns)
{
    const std::vector<ChainPiece> chain{{70, 300, 0},     {70, 0, -300}, {50, -300, -180},
                                        {60, -180, -900}, {90, -900, 0}, {45, 0, 75}};
    RoadXml xml;
    EXPECT_LT(farthest(take(xml.text(chain)), xml, chain, 1000), 0.001);
}

TEST(Import, AWideCurveWithLongSpiralsIsNotForcedIntoAnIntersectionPoint)
{
    // The series of the tangent lengths leaves several millimetres here.
    const std::vector<ChainPiece> chain{{200, 0, 0}, {120, 0, 50}, {10, 50, 50}, {20, 50, 0}, {100, 0, 0}};
    RoadXml xml;
    const auto road = take(xml.text(chain));
    EXPECT_EQ(model(road), "积木法");
    EXPECT_LT(farthest(road, xml, chain, 1000), 0.001);
}

TEST(Import, DirectionsInAllQuadrantsKeepTheirElementsInPlace)
{
    for (double az = 0; az < 360; az += 17) {
        RoadXml xml;
        xml.start.azDeg = az;
        const std::vector<ChainPiece> chain{{900, 0, 0}, {40, -200, -350}, {800, 0, 0}};
        EXPECT_LT(farthest(take(xml.text(chain)), xml, chain, 1000), 0.0005) << az;
    }
    RoadXml nearNorth;  // a whole turn is a little more than 360 degrees to the engine
    nearNorth.start.azDeg = 359.9999999;
    const std::vector<ChainPiece> straight{{2000, 0, 0}, {10, 0, 900}, {5, 900, 300}};
    EXPECT_LT(farthest(take(nearNorth.text(straight)), nearNorth, straight, 1000), 0.0005);
}

TEST(Import, NamesOfVerticesComeFromTheFile)
{
    RoadXml xml;
    const auto plain = take(xml.text(kRightCurve)).files.at("平曲线参数.txt")[1];
    const auto comma = plain.find(',', 4), second = plain.find(',', comma + 1);
    xml.more = "<AlignPIs><AlignPI><PI name=\"QJD7\">" + plain.substr(4, comma - 4) + " " +
               plain.substr(comma + 1, second - comma - 1) + "</PI></AlignPI></AlignPIs>";
    EXPECT_THAT(take(xml.text(kRightCurve)).files.at("平曲线参数.txt")[1], testing::StartsWith("QJD7,"));
    xml.more.replace(xml.more.find("QJD7"), 4, "a,b");  // no field can hold it
    EXPECT_THAT(take(xml.text(kRightCurve)).files.at("平曲线参数.txt")[1], testing::StartsWith("JD1,"));
}

TEST(Import, FeetBecomeMetresAndTheReportSaysSo)
{
    struct Unit {
        const char* name;
        double metres;
        const char* said;
    };
    for (const Unit unit : {Unit{"foot", 0.3048, "国际英尺"}, Unit{"USSurveyFoot", 1200.0 / 3937, "测量英尺"},
                            Unit{"US Survey Foot", 1200.0 / 3937, "测量英尺"}}) {
        RoadXml xml;
        xml.unit = unit.metres;
        xml.units = "<Imperial areaUnit=\"squareFoot\" linearUnit=\"" + std::string(unit.name) +
                    "\" volumeUnit=\"cubicFeet\" temperatureUnit=\"fahrenheit\" pressureUnit=\"inHG\"/>";
        const auto road = take(xml.text(kRightCurve));
        EXPECT_THAT(road.report, Contains(HasSubstr(unit.said))) << unit.name;
        EXPECT_LT(farthest(road, xml, kRightCurve, 1000), 0.001) << unit.name;
    }
}

TEST(Import, AnUnknownUnitIsRefusedByName)
{
    RoadXml xml;
    xml.units = "<Metric linearUnit=\"furlong\"/>";
    EXPECT_THAT(refusal(xml.text(kRightCurve)), HasSubstr("furlong"));
    xml.units = "";
    EXPECT_THAT(refusal(xml.text(kRightCurve)), HasSubstr("长度单位"));
}

TEST(Import, DirectionsOnlyCheck)
{
    RoadXml xml;
    xml.dir = [](double az) { return az; };
    EXPECT_THAT(take(xml.text(kRightCurve)).report, Not(Contains(HasSubstr("dir"))));
    xml.dir = [](double az) { return std::numbers::pi / 2 - az; };
    EXPECT_THAT(take(xml.text(kRightCurve)).report, Contains(HasSubstr("从东起逆时针")));
    xml.dir = [](double az) { return az + 1; };
    const auto road = take(xml.text(kRightCurve));
    EXPECT_THAT(road.report, Contains(HasSubstr("与坐标不符")));
    EXPECT_LT(farthest(road, xml, kRightCurve, 1000), 0.001);
    // Degrees, minutes and seconds in a unit whose blanks are doubled: 30 degrees 0 minutes, then 59.4853.
    xml.units.replace(xml.units.find("linearUnit"), 0, "directionUnit=\"decimal  dd.mm.ss\" ");
    xml.dir = [](double az) { return std::stod(DmsText(az)); };
    EXPECT_THAT(take(xml.text(kRightCurve)).report, Not(Contains(HasSubstr("dir"))));
}

TEST(Import, PointsWithEastFirstAreReportedByName)
{
    RoadXml xml;
    xml.eastFirst = true;
    EXPECT_THAT(refusal(xml.text(kRightCurve)), HasSubstr("东、北"));
}

TEST(Import, TheReportHasEveryElementAndTheLargestTurn)
{
    RoadXml xml;
    const auto road = take(xml.text(kRightCurve));
    for (const char* place :
         {"第1个单元（Line）", "第2个单元（Spiral）", "第3个单元（Curve）", "第4个单元（Spiral）", "第5个单元（Line）"})
        EXPECT_THAT(road.report, Contains(HasSubstr(std::string(place) + "："))) << place;
    EXPECT_THAT(road.report, Contains(HasSubstr("最大转角：0.00 秒")));
}

TEST(Import, AnEndThatLiesElsewhereIsSaidAndFarOffRefused)
{
    RoadXml xml;
    auto text = xml.text(kRightCurve);
    const auto moveEnd = [&](double metres) {
        auto moved = text;
        const auto& end = xml.ends[1];
        const auto plain = ShortestText(end.x), other = ShortestText(end.x + metres);
        for (auto at = moved.find(plain); at != std::string::npos; at = moved.find(plain, at + other.size()))
            moved.replace(at, plain.size(), other);
        return moved;
    };
    EXPECT_THAT(take(moveEnd(0.004)).report, Contains(HasSubstr("超过 1 毫米")));
    EXPECT_THAT(refusal(moveEnd(0.5)), HasSubstr("第2个单元（Spiral）"));
}

TEST(Import, WhatCannotBeCarriedIsRefusedByName)
{
    RoadXml xml;
    const auto text = xml.text(kRightCurve);
    const auto with = [&](std::string_view from, std::string_view to) {
        auto changed = text;
        const auto at = changed.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return changed.replace(at, from.size(), to);
    };
    for (const char* type : {"bloss", "cosine", "sinusoid", "cubic", "biquadratic", "weinerBogen"})
        EXPECT_THAT(refusal(with("clothoid", type)), testing::AllOf(HasSubstr(type), HasSubstr("第2个单元")));
    EXPECT_THAT(refusal(with("<CoordGeom>", "<CoordGeom><IrregularLine/>")), HasSubstr("IrregularLine"));
    EXPECT_THAT(refusal(with("<CoordGeom>", "<CoordGeom><Chain/>")), HasSubstr("Chain"));
    EXPECT_THAT(refusal(with("</CoordGeom>", "</CoordGeom><StaEquation staInternal=\"1100\" staAhead=\"900\" "
                                             "staIncrement=\"decreasing\"/>")),
                HasSubstr("staIncrement"));
    EXPECT_THAT(refusal(with("<Start>3000000", "<Start>x3000000")), HasSubstr("不是数"));
    EXPECT_THAT(refusal(with("<Start>3000000", "<Start>NaN")), HasSubstr("第1个单元（Line）"));
    EXPECT_THAT(refusal(with("<Start>3000000", "<Start>INF")), HasSubstr("不是数"));
    EXPECT_THAT(refusal(with("rot=\"cw\"", "rot=\"up\"")), HasSubstr("rot"));
    EXPECT_THAT(refusal(with("<Center>", "<Middle>")), HasSubstr("XML"));
    EXPECT_THAT(refusal(with("radiusEnd=\"400\"", "radiusEnd=\"-400\"")), HasSubstr("负数"));
    EXPECT_THAT(refusal(with("radiusEnd=\"400\"", "")), HasSubstr("radiusEnd"));
}

TEST(Import, AGapBetweenElementsIsRefused)
{
    RoadXml xml;
    auto text = xml.text(kRightCurve);
    const auto at = text.rfind("<Start>");
    text.replace(at, 7, "<Start>1");
    EXPECT_THAT(refusal(text), HasSubstr("不相接"));
}

TEST(Import, WhatIsNoRoadIsLeftOutByName)
{
    RoadXml xml;
    xml.more = "<Cant name=\"c\"><x/></Cant><CrossSects><CrossSect sta=\"1\"/></CrossSects><Profile><ProfSurf "
               "name=\"地面\"><PntList2D>1 2</PntList2D></ProfSurf></Profile>";
    const auto road = take(xml.text(kRightCurve));
    for (const char* name : {"Cant", "CrossSects", "ProfSurf"})
        EXPECT_THAT(road.report, Contains(HasSubstr("没有导入 " + std::string(name)))) << name;
}

TEST(Import, ARoadThatStartsBelowZeroNeedsAShift)
{
    RoadXml xml;
    xml.staStart = -153.1;
    xml.more = "<Profile><ProfAlign name=\"p\"><PVI>-153.1 5</PVI><ParaCurve length=\"40\">0 9</ParaCurve><PVI>100 "
               "7</PVI></ProfAlign></Profile><StaEquation staInternal=\"50\" staAhead=\"70\"/>";
    const auto text = xml.text(kRightCurve);
    EXPECT_THAT(refusal(text), HasSubstr("--shift"));
    const auto road = take(text, {.shift = 200, .breaks = {}});
    EXPECT_THAT(road.report, Contains(HasSubstr("加了 200 米")));
    EXPECT_THAT(road.files.at("平曲线参数.txt")[0], testing::StartsWith("46.9,"));
    EXPECT_EQ(road.files.at("断链参数.txt"), std::vector<std::string>{"250,270"});
    EXPECT_EQ(road.files.at("竖曲线参数.txt")[0], "46.9,5");
    EXPECT_EQ(road.files.at("竖曲线参数.txt")[2], "320,7");  // behind the jump of 20
}

TEST(Import, StationEquationsBecomeBreaksAndStakesNominal)
{
    RoadXml xml;  // a jump of 20 at 1100, an overlap of 30 at 1400
    xml.more =
        "<StaEquation staBack=\"1100\" staInternal=\"1100\" staAhead=\"1120\"/>"
        "<StaEquation staInternal=\"1400\" staAhead=\"1390\"/>"
        "<Profile><ProfAlign name=\"p\"><PVI>1000 5</PVI><PVI>1300 9</PVI><PVI>1790 7</PVI></ProfAlign></Profile>";
    const auto road = take(xml.text(kRightCurve));
    EXPECT_EQ(road.files.at("断链参数.txt"), (std::vector<std::string>{"1100,1120", "1420,1390"}));
    EXPECT_EQ(road.files.at("竖曲线参数.txt"), (std::vector<std::string>{"1000,5", "1320,9,0", "1780,7"}));
    const auto compiled = Compile(road.files);
    EXPECT_TRUE(compiled.whole);
    EXPECT_NEAR(compiled.tables.sqxLc[2], 1790, 1e-9);
}

TEST(Import, ABackStakeThatContradictsTheStationsIsRefused)
{
    RoadXml xml;
    xml.more = "<StaEquation staBack=\"1105\" staInternal=\"1100\" staAhead=\"1120\"/>";
    EXPECT_THAT(refusal(xml.text(kRightCurve)), HasSubstr("1105"));
}

TEST(Import, ARowOnTheSecondPassOfAnOverlapIsRefusedByName)
{
    RoadXml xml;
    xml.more = "<StaEquation staInternal=\"1100\" staAhead=\"1060\"/><Profile><ProfAlign name=\"设计线\"><PVI>1000 "
               "5</PVI><PVI>1110 9</PVI><PVI>1790 7</PVI></ProfAlign></Profile>";
    const auto road = take(xml.text(kRightCurve));
    EXPECT_EQ(model(road), "交点法");  // its stakes are not filed
    EXPECT_FALSE(road.files.contains("竖曲线参数.txt"));
    EXPECT_THAT(road.report, Contains(testing::AllOf(HasSubstr("设计线"), HasSubstr("1110.000"))));
    // Blocks file the stake of every joint.
    EXPECT_THAT(refusal(xml.text({{120, 0, 0}, {50, 0, 300}, {20, 300, 200}, {100, 200, 200}})),
                testing::AllOf(HasSubstr("第1个单元"), HasSubstr("重复段")));
}

TEST(Import, ABreakThatTheFileLacks)
{
    RoadXml xml;
    const auto road = take(xml.text({{120, 0, 0}, {50, 0, 300}, {20, 300, 200}, {100, 200, 200}}),
                           {.shift = 0, .breaks = {{0, 1100, 5350}}});
    EXPECT_EQ(road.files.at("断链参数.txt"), std::vector<std::string>{"1100,5350"});
    EXPECT_THAT(road.files.at("平曲线参数.txt")[0], testing::StartsWith("1000,5370,"));
    // A break of the person takes the place of one in the file that leads to the same stake.
    xml.more = "<StaEquation staInternal=\"1126\" staAhead=\"5350\"/>";
    const auto corrected = take(xml.text({{120, 0, 0}, {50, 0, 300}, {20, 300, 200}, {100, 200, 200}}),
                                {.shift = 0, .breaks = {{0, 1100, 5350}}});
    EXPECT_EQ(corrected.files.at("断链参数.txt"), std::vector<std::string>{"1100,5350"});
    EXPECT_THAT(corrected.report, Contains(HasSubstr("代替")));
    EXPECT_THAT(refusal(xml.text(kRightCurve), {.shift = 0, .breaks = {{0, 5, 10}}}), HasSubstr("不在线路上"));
}
