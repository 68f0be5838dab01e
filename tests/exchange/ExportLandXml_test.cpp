#include "RandomRoad.h"

#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/ExportLandXml.h"
#include "exchange/Import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <map>
#include <set>

using testing::Contains;
using testing::HasSubstr;

namespace {

std::string exported(const RoadFiles& files, std::vector<std::string>* report = nullptr)
{
    const auto compiled = Compile(files);
    EXPECT_TRUE(compiled.whole);
    return LandXmlText(
        {.name = "路", .files = files, .tables = compiled.tables, .written = 1700000000, .report = report});
}

ImportedRoad back(const std::string& xml) { return ImportRoad(landxml::File::fromBytes(xml), 0, {}); }

std::string withoutTyped(std::string xml)
{
    const auto at = xml.find("<Feature name=\"Velumark\"");
    return xml.replace(at + 15, 8, "somebody");
}

/// Largest distance and turn between two compiled roads, looked at along the first.
void compare(const Tables& a, const Tables& b, double& metres, double& seconds)
{
    for (std::size_t i = 1; i <= static_cast<std::size_t>(a.elemCount); ++i) {
        const double from = a.elemLc[i - 1], length = a.elemLc[i] - from;
        if (length < 0.1) continue;
        for (const double part : {0.02, 0.5, 0.9}) {
            const double stake = from + part * length;
            const auto p = pointOn(a, i, stake);
            const auto other = elementAt(b, stake);
            ASSERT_GT(other, 0u);
            const auto q = pointOn(b, other, stake);
            metres = std::max(metres, std::hypot(p.x - q.x, p.y - q.y));
            seconds = std::max(seconds, std::abs(std::remainder(p.fwjDeg - q.fwjDeg, 360)) * 3600);
        }
    }
}

}  // namespace

TEST(ExportLandXml, RoadsComeBackBitForBit)
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        RandomRoad random(seed);
        const auto files = seed % 2 ? random.blocks() : random.vertices();
        const auto road = back(exported(files));
        ASSERT_THAT(road.report, Contains(HasSubstr("原文恢复"))) << seed;
        ASSERT_EQ(road.files, files) << seed;
        if (seed % 100 == 0) {
            ASSERT_EQ(Compile(road.files).tables, Compile(files).tables) << seed;
        }
    }
}

TEST(ExportLandXml, TheStandardElementsAloneCarryTheRoad)
{
    double metres = 0, seconds = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        RandomRoad random(seed);
        const auto files = seed % 2 ? random.blocks() : random.vertices();
        const auto road = back(withoutTyped(exported(files)));
        ASSERT_TRUE(road.files.contains("平曲线参数.txt"));
        if (road.files.at("其他参数.txt")[0] == "交点法") continue;  // within a millimetre, as an import decides
        compare(Compile(files).tables, Compile(road.files).tables, metres, seconds);
        ASSERT_LT(metres, 0.0001) << seed;
        ASSERT_LT(seconds, 0.0101) << seed;
    }
}

TEST(ExportLandXml, AChangedElementIsNotOverruledByTheTypedLines)
{
    RandomRoad random(7);
    auto xml = exported(random.blocks());
    const auto at = xml.find("staStart=\"");
    xml.insert(at + 10, "1");  // the road begins elsewhere
    const auto road = back(xml);
    EXPECT_THAT(road.report, Contains(HasSubstr("没有用文件里保存的原参数")));
}

namespace {

/// What an element may hold and must say, of the part of the schema that is written here.
/// Source: LandXML-1.2 schema, landxml.org.
struct Rule {
    std::set<std::string> attributes, optional, children;
};
const std::map<std::string, Rule> kRules{
    {"LandXML",
     {{"version", "date", "time"},
      {"xmlns", "xmlns:xsi", "xsi:schemaLocation"},
      {"Units", "Project", "Application", "Alignments", "CgPoints"}}},
    {"Units", {{}, {}, {"Metric"}}},
    {"Metric",
     {{"areaUnit", "linearUnit", "volumeUnit", "temperatureUnit", "pressureUnit"},
      {"angularUnit", "directionUnit"},
      {}}},
    {"Project", {{"name"}, {}, {}}},
    {"Application", {{"name"}, {}, {}}},
    {"Alignments", {{}, {}, {"Alignment"}}},
    {"Alignment",
     {{"name", "length", "staStart"},
      {},
      {"CoordGeom", "AlignPIs", "StaEquation", "Profile", "Superelevation", "Feature"}}},
    {"CoordGeom", {{}, {}, {"Line", "Curve", "Spiral"}}},
    {"Line", {{}, {"length", "staStart"}, {"Start", "End"}}},
    {"Curve", {{"rot"}, {"crvType", "radius", "length", "staStart"}, {"Start", "Center", "End"}}},
    {"Spiral", {{"length", "radiusEnd", "radiusStart", "rot", "spiType"}, {"staStart"}, {"Start", "PI", "End"}}},
    {"Start", {}},
    {"Center", {}},
    {"End", {}},
    {"PI", {{}, {"name"}, {}}},
    {"AlignPIs", {{}, {}, {"AlignPI"}}},
    {"AlignPI", {{}, {}, {"PI"}}},
    {"StaEquation", {{"staInternal", "staAhead"}, {"staBack"}, {}}},
    {"Profile", {{}, {}, {"ProfAlign"}}},
    {"ProfAlign", {{"name"}, {}, {"PVI", "ParaCurve"}}},
    {"PVI", {}},
    {"ParaCurve", {{"length"}, {}, {}}},
    {"Superelevation",
     {{},
      {"staStart", "staEnd"},
      {"BeginRunoutSta", "BeginRunoffSta", "FullSuperSta", "FullSuperelev", "RunoffSta", "StartofRunoutSta",
       "EndofRunoutSta"}}},
    {"BeginRunoutSta", {}},
    {"BeginRunoffSta", {}},
    {"FullSuperSta", {}},
    {"FullSuperelev", {}},
    {"RunoffSta", {}},
    {"StartofRunoutSta", {}},
    {"EndofRunoutSta", {}},
    {"Feature", {{}, {"name"}, {"Property"}}},
    {"Property", {{"label", "value"}, {}, {}}},
    {"CgPoints", {{}, {"name"}, {"CgPoint"}}},
    {"CgPoint", {{}, {"name"}, {}}},
};

void obeys(const pugi::xml_node& node)
{
    const auto rule = kRules.find(node.name());
    ASSERT_NE(rule, kRules.end()) << node.name();
    std::set<std::string> missing = rule->second.attributes;
    for (const auto& attribute : node.attributes()) {
        EXPECT_TRUE(rule->second.attributes.contains(attribute.name()) ||
                    rule->second.optional.contains(attribute.name()))
            << node.name() << " " << attribute.name();
        missing.erase(attribute.name());
    }
    EXPECT_TRUE(missing.empty()) << node.name();
    for (const auto& child : node.children()) {
        if (child.type() != pugi::node_element) continue;
        EXPECT_TRUE(rule->second.children.contains(child.name())) << node.name() << " " << child.name();
        obeys(child);
    }
}

}  // namespace

TEST(ExportLandXml, EveryFileKeepsToTheSchema)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomRoad random(seed);
        pugi::xml_document document;
        ASSERT_TRUE(document.load_string(exported(seed % 2 ? random.blocks() : random.vertices()).c_str()));
        obeys(document.document_element());
        const auto group = document.child("LandXML").child("CgPoints");
        std::set<std::string> names;
        for (const auto& point : group.children()) EXPECT_TRUE(names.insert(point.attribute("name").value()).second);
    }
}

TEST(ExportLandXml, DateAndTimeAreThoseOfTheFiles)
{
    const auto xml = exported(RandomRoad(1).blocks());
    EXPECT_THAT(xml, HasSubstr("date=\"2023-11-14\" time=\"22:13:20\""));  // 1,700,000,000 s
    EXPECT_EQ(xml, exported(RandomRoad(1).blocks()));
}

TEST(ExportLandXml, BreaksAreEquationsAtTheirStations)
{
    RoadFiles files{{"其他参数.txt", {"积木法", "未设置", "未设置", "未设置", "未设置"}},
                    {"平曲线参数.txt", {"1000,1520,0,0,0,0,0"}},
                    {"断链参数.txt", {"1100,1120", "1420,1390"}}};
    const auto xml = exported(files);
    EXPECT_THAT(xml, HasSubstr("<StaEquation staBack=\"1100\" staInternal=\"1100\" staAhead=\"1120\"/>"));
    EXPECT_THAT(xml, HasSubstr("<StaEquation staBack=\"1420\" staInternal=\"1400\" staAhead=\"1390\"/>"));
    EXPECT_EQ(back(xml).files, files);
}

TEST(ExportLandXml, SuperelevationInTermsOfTheStandard)
{
    RoadFiles files{{"其他参数.txt", {"积木法", "线性", "未设置", "未设置", "未设置"}},
                    {"平曲线参数.txt", {"1000,1520,0,0,0,300,300"}},
                    {"超高参数.txt", {"1040,-2,-2,1100,4,-4", "1100,4,-4,1300,4,-4", "1300,4,-4,1360,-2,-2"}}};
    std::vector<std::string> report;
    const auto xml = exported(files, &report);
    EXPECT_THAT(xml, HasSubstr("<BeginRunoutSta>1040</BeginRunoutSta>"));
    EXPECT_THAT(xml, HasSubstr("<BeginRunoffSta>1060</BeginRunoffSta>"));  // the outside is level after 2 of 6 percent
    EXPECT_THAT(xml, HasSubstr("<FullSuperSta>1100</FullSuperSta>"));
    EXPECT_THAT(xml, HasSubstr("<FullSuperelev>4</FullSuperelev>"));
    EXPECT_THAT(xml, HasSubstr("<RunoffSta>1300</RunoffSta>"));
    EXPECT_THAT(xml, HasSubstr("<StartofRunoutSta>1340.00"));
    EXPECT_THAT(report, Contains(HasSubstr("超高")));
}

TEST(ExportLandXml, ASpiralFromOneTurnIntoTheOtherIsTwo)
{
    RoadFiles files{{"其他参数.txt", {"积木法", "未设置", "未设置", "未设置", "未设置"}},
                    {"平曲线参数.txt", {"0,90,0,0,0,200,-100"}}};
    const auto xml = exported(files);
    // Curvature 1/200 runs to -1/100 over 90 m: it is 0 after a third.
    EXPECT_THAT(xml, testing::ContainsRegex("length=\"30[.0-9]*\" radiusEnd=\"INF\" radiusStart=\"200\" rot=\"cw\""));
    EXPECT_THAT(xml, HasSubstr("radiusEnd=\"100\" radiusStart=\"INF\" rot=\"ccw\""));
    EXPECT_EQ(back(xml).files, files);
}

TEST(ExportLandXml, ARoadWithoutAlignmentOrRunningBackwardIsRefused)
{
    RoadFiles files{{"其他参数.txt", {"积木法", "未设置", "未设置", "未设置", "未设置"}}};
    EXPECT_THROW(exported(files), ExchangeError);
    files["平曲线参数.txt"] = {"100,200,0,0,0,0,0", "50,300,0,0,0,0,0"};
    EXPECT_THROW(exported(files), ExchangeError);
}

TEST(ExportLandXml, JointsThatDoNotMeetAreSaidAndStillComeBack)
{
    RoadFiles files{{"其他参数.txt", {"积木法", "未设置", "未设置", "未设置", "未设置"}},
                    {"平曲线参数.txt", {"0,100,0,0,0,0,0", "100,200,100.5,0,0,0,0"}}};
    std::vector<std::string> report;
    const auto xml = exported(files, &report);
    EXPECT_THAT(report, Contains(HasSubstr("相差 0.5000 米")));
    EXPECT_EQ(back(xml).files, files);
    EXPECT_THROW(back(withoutTyped(xml)), ExchangeError);
}
