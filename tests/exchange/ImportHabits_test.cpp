// What programs write beside the rule of the format, and what they leave out: taken where it can mean one thing only.

#include "RoadXml.h"

#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/Import.h"
#include "exchange/TakeOver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

const std::vector<ChainPiece> kCurve{{200, 0, 0}, {60, 0, 400}, {150, 400, 400}, {80, 400, 0}, {300, 0, 0}};
/// Both turns, spirals from and to straights and between radii both ways, an arc of 258 degrees.
const std::vector<ChainPiece> kAll{{100, 0, 0},    {50, 0, -200}, {60, -200, -200}, {40, -200, -150}, {80, -150, -150},
                                   {50, -150, 0},  {20, 0, 0},    {70, 0, 300},     {30, 300, 500},   {40, 500, 0},
                                   {100, 0, 0},    {270, 60, 60}, {50, 0, 0},       {60, 0, 250},     {60, 250, 400},
                                   {60, 400, 250}, {60, 250, 0},  {30, 0, 0}};

ImportedRoad take(const std::string& xml, const ImportWishes& wishes = {})
{
    return ImportRoad(landxml::File::fromBytes(xml), 0, wishes);
}

std::string refusal(const std::string& xml)
{
    try {
        take(xml);
    } catch (const ExchangeError& error) {
        return error.what();
    }
    return "";
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    EXPECT_NE(text.find(from), std::string::npos) << from;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// Without an attribute or an element of that name.
std::string without(std::string text, const std::string& begin, const std::string& end)
{
    EXPECT_NE(text.find(begin), std::string::npos) << begin;
    for (auto at = text.find(begin); at != std::string::npos; at = text.find(begin, at))
        text.erase(at, text.find(end, at + begin.size()) + end.size() - at);
    return text;
}

/// Largest distance of the imported road from the true ends, looked up by the lengths of the chain alone.
double farthest(const ImportedRoad& road, const RoadXml& xml, const std::vector<ChainPiece>& chain)
{
    const auto compiled = Compile(road.files);
    EXPECT_TRUE(compiled.whole);
    double largest = 0, start = 1000;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const auto element = elementAt(compiled.tables, start + chain[i].length / 2);
        if (element == 0) return HUGE_VAL;
        start += chain[i].length;
        const auto at = pointOn(compiled.tables, element, start);
        largest = std::max(largest, std::hypot(at.x - xml.ends[i].x, at.y - xml.ends[i].y));
    }
    return largest;
}

/// The same road whatever is done to its text.
void same(const std::function<std::string(std::string)>& change)
{
    for (const auto& chain : {kCurve, kAll}) {
        RoadXml xml;
        const auto text = xml.text(chain);
        const auto road = take(change(text));
        EXPECT_LT(farthest(road, xml, chain), 0.001);
        EXPECT_EQ(road.files.at("其他参数.txt"), take(text).files.at("其他参数.txt"));
    }
}

}  // namespace

TEST(ImportHabits, EveryElementInEveryPosition)
{
    same([](std::string text) { return text; });
}

TEST(ImportHabits, AFileInFeetOfEitherKind)
{
    for (const auto& [name, metres] : {std::pair{"foot", 0.3048},
                                       {"Feet", 0.3048},
                                       {"International Foot", 0.3048},
                                       {"USSurveyFoot", 1200.0 / 3937},
                                       {"US_Survey_Feet", 1200.0 / 3937}}) {
        RoadXml xml;
        xml.unit = metres;
        xml.units = "<Imperial linearUnit=\"" + std::string(name) + "\"/>";
        EXPECT_LT(farthest(take(xml.text(kAll)), xml, kAll), 0.001) << name;
    }
}

TEST(ImportHabits, MetresInOtherSpellings)
{
    for (const char* name : {"Meter", "meters", "METRE", "m"})
        same([&](const std::string& text) {
            return replaced(text, "linearUnit=\"meter\"", "linearUnit=\"" + std::string(name) + "\"");
        });
}

TEST(ImportHabits, LineEndsMarksAndEncodings)
{
    same([](const std::string& text) { return "\xEF\xBB\xBF" + replaced(text, "\n", "\r\n"); });
    same([](const std::string& text) { return replaced(text, "UTF-8", "UTF-16"); });  // and is not
    same([](const std::string& text) { return "\n  " + text; });
    for (const bool bigEndian : {false, true})
        same([&](const std::string& text) {
            std::string bytes;
            for (const char c : text.substr(text.find("<LandXML")))
                bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
            return bytes;
        });
}

TEST(ImportHabits, PrefixesCommentsQuotesAndSections)
{
    same([](std::string text) {
        text = replaced(replaced(replaced(text, "</", "\1"), "<?", "\2"), "<", "<lx:");
        return replaced(replaced(replaced(text, "\1", "</lx:"), "\2", "<?"), "xmlns=", "xmlns:lx=");
    });
    same([](const std::string& text) { return replaced(text, "\"", "'"); });
    same([](const std::string& text) { return replaced(text, "<Start>", "<Start><!-- north, east -->"); });
    same([](const std::string& text) { return replaced(text, "</End>", "<!-- a > b --></End>"); });
    same([](const std::string& text) {
        return replaced(replaced(text, "<End>", "<End><![CDATA["), "</End>", "]]></End>");
    });
    same([](const std::string& text) { return replaced(text, "</End>", " 12.5\n</End>"); });  // with an elevation
    same([](const std::string& text) {
        return replaced(text, "<LandXML ", "<!DOCTYPE LandXML [<!ENTITY a 'b'>]><LandXML ");
    });
}

TEST(ImportHabits, ACommentBetweenTwoCoordinates)
{
    RoadXml xml;
    const auto text = replaced(xml.text(kCurve), "<Start>3000000 ", "<Start>3000000<!-- north --> ");
    EXPECT_LT(farthest(take(text), xml, kCurve), 0.001);
}

TEST(ImportHabits, WordsInOtherLetters)
{
    same([](const std::string& text) { return replaced(text, "clothoid", "Clothoid"); });
    same([](const std::string& text) { return replaced(text, "\"cw\"", "\" CW \""); });
    for (const char* infinite : {"inf", "Infinity", "0", "1e+020"})
        same([&](const std::string& text) { return replaced(text, "\"INF\"", "\"" + std::string(infinite) + "\""); });
}

TEST(ImportHabits, WhatTheOtherAttributesGiveMayBeMissing)
{
    same([](const std::string& text) { return without(text, " length=\"", "\""); });
    same([](const std::string& text) { return without(text, "<PI>", "</PI>"); });
    same([](const std::string& text) { return without(text, " radius=\"", "\""); });
    same([](const std::string& text) { return without(text, "<Center>", "</Center>"); });
    RoadXml xml;
    EXPECT_THAT(take(without(xml.text(kCurve), " length=\"", "\"")).report,
                Contains(HasSubstr("第2个单元（Spiral）：缺少 length，由两端和半径求出 60.0000 米")));
    EXPECT_THAT(take(without(xml.text(kCurve), "<Center>", "</Center>")).report,
                Contains(HasSubstr("第3个单元（Curve）：缺少 Center")));
    EXPECT_THAT(refusal(without(without(xml.text(kCurve), "<Center>", "</Center>"), " radius=\"", "\"")),
                HasSubstr("缺少 Center"));
    EXPECT_THAT(refusal(without(xml.text(kCurve), "<End>", "</End>")), HasSubstr("缺少 End"));
    EXPECT_THAT(refusal(without(xml.text(kCurve), " staStart=\"", "\"")), HasSubstr("staStart"));
}

TEST(ImportHabits, AnUnknownUnitOfDirectionsOnlyLeavesThemUnchecked)
{
    RoadXml xml;
    xml.units = "<Metric linearUnit=\"meter\" directionUnit=\"points of the compass\"/>";
    xml.dir = [](double) { return 7.0; };
    const auto road = take(xml.text(kCurve));
    EXPECT_THAT(road.report, Contains(HasSubstr("points of the compass")));
    EXPECT_THAT(road.report, Not(Contains(HasSubstr("与坐标不符"))));
}

TEST(ImportHabits, AnArcDefinedByChordsIsSaid)
{
    RoadXml xml;
    EXPECT_THAT(take(replaced(xml.text(kCurve), "<Curve ", "<Curve crvType=\"chord\" ")).report,
                Contains(testing::AllOf(HasSubstr("第3个单元"), HasSubstr("chord"))));
}

TEST(ImportHabits, ASpiralThatTurnsTheOtherWayIsSaid)
{
    RoadXml xml;
    auto text = without(xml.text(kCurve), "<PI>", "</PI>");
    const auto spiral = text.find("<Spiral"), rot = text.find("\"cw\"", spiral);
    text.replace(rot, 4, "\"ccw\"");
    // 60 m into a radius of 400 m turn by 30 / 400 radians, 4.30 degrees: it begins by 2/3 of that off its neighbour.
    EXPECT_THAT(take(text).report, Contains(testing::AllOf(HasSubstr("第2个单元"), HasSubstr("请检查 rot"))));
}

TEST(ImportHabits, AWrittenLengthThatIsNotTheSumIsSaid)
{
    RoadXml xml;
    const auto text = replaced(xml.text(kCurve), "length=\"790\"", "length=\"800\"");
    EXPECT_THAT(take(text).report, Contains(HasSubstr("length 是 800.000，各单元的长度之和是 790.000")));
    EXPECT_THAT(take(xml.text(kCurve)).report, Not(Contains(HasSubstr("之和"))));
}

TEST(ImportHabits, CoordinatesOfTwoDecimalsFitWithinTheirDigits)
{
    RoadXml xml;
    auto text = xml.text(kCurve);
    std::string rounded;  // every coordinate to a centimetre, lengths and radii as they are
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find_first_of("<> ", at) + 1, text.size());
        auto word = text.substr(at, end - at);
        if (const auto point = word.find('.'); point != std::string::npos && word.find('"') == std::string::npos &&
                                               word.find_first_not_of("0123456789.< ") == std::string::npos)
            word = FixedText(std::stod(word), 2) + word.back();
        rounded += word;
        at = end;
    }
    ASSERT_NE(rounded, text);
    EXPECT_LT(farthest(take(rounded), xml, kCurve), 0.02);
}

TEST(ImportHabits, AnEquationByItsBackStakeAlone)
{
    RoadXml xml;
    xml.more = "<StaEquation staBack=\"1100\" staAhead=\"1120\"/><StaEquation staBack=\"1420\" staAhead=\"1390\"/>";
    EXPECT_EQ(take(xml.text(kCurve)).files.at("断链参数.txt"), (std::vector<std::string>{"1100,1120", "1420,1390"}));
    xml.more = "<StaEquation staAhead=\"1120\"/>";
    EXPECT_THAT(refusal(xml.text(kCurve)), HasSubstr("staInternal"));
    xml.more = "<StaEquation staInternal=\"1000\" staBack=\"1000\" staAhead=\"1000\"/>";  // changes nothing
    EXPECT_FALSE(take(xml.text(kCurve)).files.contains("断链参数.txt"));
    xml.more =
        "<StaEquation staInternal=\"1400\" staAhead=\"1390\"/><StaEquation staInternal=\"1100\" staAhead=\"1120\"/>";
    EXPECT_EQ(take(xml.text(kCurve)).files.at("断链参数.txt"), (std::vector<std::string>{"1100,1120", "1420,1390"}));
}

TEST(ImportHabits, TheProposedProfileIsTheDesign)
{
    RoadXml xml;
    const std::string ground =
        "<Profile><ProfAlign name=\"现状\" state=\"existing\"><PVI>1000 1</PVI><PVI>1790 2</PVI></ProfAlign></Profile>";
    const std::string design = "<Profile><ProfAlign name=\"设计\"><PVI>1000 50</PVI><ParaCurve length=\"100\">1300 "
                               "<!-- m -->56</ParaCurve><PVI>1790 48</PVI></ProfAlign></Profile>";
    xml.more = ground + design;
    const auto road = take(xml.text(kCurve));
    EXPECT_EQ(road.files.at("竖曲线参数.txt")[0], "1000,50");
    EXPECT_THAT(road.report, Contains(HasSubstr("没有导入纵断面“现状”")));
    xml.more = replaced(design, " length=\"100\"", "");
    EXPECT_THAT(refusal(xml.text(kCurve)), HasSubstr("缺少 length"));
}

TEST(ImportHabits, ConnectingSpiralsAreNamed)
{
    RoadXml xml;
    xml.more = "<AlignPIs><AlignPI><PI/><ConnSpiral><Spiral/></ConnSpiral></AlignPI></AlignPIs>";
    EXPECT_THAT(take(xml.text(kCurve)).report, Contains(HasSubstr("ConnSpiral")));
    EXPECT_THAT(refusal(replaced(xml.text(kCurve), "<CoordGeom>", "<CoordGeom><ConnSpiral><Spiral/></ConnSpiral>")),
                HasSubstr("第1个单元（ConnSpiral）"));
    EXPECT_THAT(refusal(replaced(xml.text(kCurve), "<CoordGeom>", "<CoordGeom><Chain>1 2 3 4</Chain>")),
                HasSubstr("第1个单元（Chain）"));
}

TEST(ImportHabits, OtherTransitionsAreRefusedUnderEveryName)
{
    RoadXml xml;
    for (const char* type : {"biquadratic", "bloss", "cosine", "cubic", "sinusoid", "revBiquadratic", "revBloss",
                             "revCosine", "revSinusoid", "sineHalfWave", "biquadraticParabola", "cubicParabola",
                             "japaneseCubic", "radioid", "weinerBogen", ""})
        EXPECT_THAT(refusal(replaced(xml.text(kCurve), "clothoid", type)),
                    testing::AllOf(HasSubstr("“" + std::string(type) + "”"), HasSubstr("第2个单元（Spiral）")));
}

TEST(ImportHabits, TwoRoadsOfOneNameAreNotGuessedAt)
{
    RoadXml xml;
    const std::string one =
        "<Alignment name=\"A\"><CoordGeom><!-- nothing --></CoordGeom><Profile><ProfSurf/></Profile></Alignment>";
    const auto file = landxml::File::fromBytes(xml.wrapped(one + one));
    try {
        FindAlignment(file, "A");
        FAIL();
    } catch (const ExchangeError& error) {
        EXPECT_THAT(error.what(), HasSubstr("“A”"));
    }
    const auto listed = file.alignments();
    EXPECT_EQ(listed[0].elements, 0u);
    EXPECT_FALSE(listed[0].profile);
    EXPECT_FALSE(listed[0].length);
    EXPECT_FALSE(listed[0].staStart);
}
