#include "base/CodePage.h"
#include "base/TextFile.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "exchange/ExchangeError.h"
#include "exchange/FieldFile.h"
#include "exchange/NumberText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// A straight due north from (1000, 2000) at stake 10000, then an arc to the right; grade 1 percent.
RoadFiles road(const std::vector<std::string>& breaks = {})
{
    RoadFiles files{{"其他参数.txt", {"积木法", "线性", "未设置", "未设置", "未设置"}},
                    {"平曲线参数.txt", {"10000,10100,1000,2000,0,0,0", "10100,10300,1100,2000,0,200,200"}},
                    {"竖曲线参数.txt", {"10000,50", "10100,51,0", "10250,52.5"}}};
    if (!breaks.empty()) files["断链参数.txt"] = breaks;
    return files;
}

std::vector<FieldPoint> all(const RoadFiles& files, const FieldRun& run)
{
    const auto compiled = Compile(files);
    FieldPoints points(compiled.tables, run);
    std::vector<FieldPoint> result;
    while (const auto point = points.next()) result.push_back(*point);
    return result;
}

std::vector<std::string> names(const std::vector<FieldPoint>& points)
{
    std::vector<std::string> result;
    for (const auto& p : points) result.push_back(p.name);
    return result;
}

std::string refusal(const std::function<void()>& body)
{
    try {
        body();
    } catch (const ExchangeError& error) {
        return error.what();
    }
    return "";
}

}  // namespace

TEST(FieldPoints, StakesWithOffsetsAndHeights)
{
    const auto points = all(road(), {.from = 10000, .to = 10040, .step = 20, .offsets = {-5, 0, 12.5}});
    EXPECT_THAT(names(points), ElementsAre("10000000L05", "10000000", "10000000R12.5", "10020000L05", "10020000",
                                           "10020000R12.5", "10040000L05", "10040000", "10040000R12.5"));
    EXPECT_EQ(points[3].x, 1020);  // due north: left is west
    EXPECT_EQ(points[3].y, 1995);
    EXPECT_EQ(points[5].y, 2012.5);
    EXPECT_NEAR(*points[3].h, 50.2, 1e-9);
    EXPECT_EQ(points[3].code, "ZB");
    EXPECT_EQ(points[4].code, "ZZ");
}

TEST(FieldPoints, MainPointsStandInOrderAndTakeTheNameOfTheirStake)
{
    const auto files = road();
    const auto compiled = Compile(files);
    const auto points =
        all(files, {.from = 10000, .to = 10250, .step = 100, .extra = MainPoints(compiled.tables, files)});
    EXPECT_THAT(names(points), ElementsAre("10000000", "10100000", "10200000"));
    EXPECT_EQ(points[1].code, "ZY");  // once, with the code of the main point
    EXPECT_EQ(points[2].code, "QZ");
}

TEST(FieldPoints, WithoutElevationBeyondTheGradeLine)
{
    const auto compiled = Compile(road());
    const FieldRun run{.from = 10200, .to = 10280, .step = 40};
    FieldPoints points(compiled.tables, run);
    EXPECT_TRUE(points.next()->h);
    EXPECT_TRUE(points.next()->h);
    EXPECT_FALSE(points.next()->h);
    EXPECT_EQ(points.beyondProfile(), 1u);
}

TEST(FieldPoints, AcrossAJumpTheSkippedNumbersHaveNoStake)
{
    const auto points = all(road({"10030,10050"}), {.from = 10000, .to = 10080, .step = 10});
    EXPECT_THAT(names(points),
                ElementsAre("10000000", "10010000", "10020000", "10030000", "10060000", "10070000", "10080000"));
    EXPECT_EQ(points[4].x, 1040);  // 10 m behind the break at 1030
}

TEST(FieldPoints, AnOverlapNumbersItsStakesTwice)
{
    const auto points = all(road({"10030,10010"}), {.from = 10000, .to = 10050, .step = 10});
    EXPECT_THAT(names(points), ElementsAre("10000000", "10010000", "10020000", "10030000", "-10020000", "-10030000",
                                           "10040000", "10050000"));
}

TEST(FieldPoints, TheBreakItselfIsOnePoint)
{
    const auto files = road({"10030,10050"});
    const auto compiled = Compile(files);
    const auto points = all(files, {.from = 10000, .to = 10070, .step = 20, .extra = BreakPoints(compiled.tables)});
    EXPECT_THAT(names(points), ElementsAre("10000000", "10020000", "10030000", "10060000"));
    EXPECT_EQ(points[2].code, "DL");
}

TEST(FieldPoints, Refusals)
{
    EXPECT_THAT(refusal([] { all(road({"10030,10050"}), {.from = 10040, .to = 10080, .step = 10}); }),
                HasSubstr("10040"));
    EXPECT_THAT(refusal([] { all(road(), {.from = 10000, .to = 10080, .step = 10, .pattern = "点{stake}"}); }),
                HasSubstr("英文"));
    EXPECT_THAT(refusal([] { all(road(), {.from = 10000, .to = 10080, .step = -1}); }), HasSubstr("间距"));
}

TEST(FieldPoints, NamesByAPattern)
{
    const auto points =
        all(road(),
            {.from = 10000, .to = 10000, .step = 1, .offsets = {-5, 3.25}, .pattern = "{code}_{stake}{side}{offset}"});
    EXPECT_THAT(names(points), ElementsAre("ZB_10000000L05", "YB_10000000R03.25"));
    auto early = road();
    early["平曲线参数.txt"] = {"0,100,1000,2000,0,0,0"};
    EXPECT_THAT(names(all(early, {.from = 20, .to = 20, .step = 1})), ElementsAre("00020000"));
}

namespace {

const FieldPoint kPoint{.name = "12345678R05",
                        .code = "YB",
                        .x = 2856498.5734,
                        .y = -12.0006,
                        .h = 239.45,
                        .stake = 12345.678,
                        .offset = 5};

FieldWriter writer(const std::string& path) { return FieldWriter(*FieldFormatOf(path)); }

/// The words of a GSI line, as an instrument takes them apart: index to sign and digits.
std::map<std::string, std::string> words(std::string line)
{
    std::map<std::string, std::string> all;
    if (line.starts_with('*')) line.erase(0, 1);
    std::istringstream in(line);
    for (std::string word; in >> word;) all[word.substr(0, 2)] = word.substr(2);
    return all;
}

}  // namespace

TEST(FieldFile, ListsHaveTheirColumns)
{
    EXPECT_EQ(writer("a.dat").line(kPoint), "12345678R05,YB,-12.001,2856498.573,239.450\r\n");
    EXPECT_EQ(writer("a.dat").begin(), "");
    EXPECT_EQ(writer("a.TXT").line(kPoint), "12345678R05,2856498.573,-12.001,239.450\r\n");
    EXPECT_EQ(writer("a.csv").begin(), "\xEF\xBB\xBF点号,编码,里程,偏距,X,Y,H\r\n");
    EXPECT_EQ(writer("a.csv").line(kPoint), "12345678R05,YB,12345.678,5.000,2856498.573,-12.001,239.450\r\n");
    FieldFormat chosen = *FieldFormatOf("a.csv");
    chosen.columns = FieldColumnsOf("h,name");
    chosen.separator = "\t";
    chosen.codePage936 = true;
    EXPECT_EQ(FieldWriter(chosen).begin(), Cp936FromUtf8("H\t点号\r\n"));
    EXPECT_EQ(FieldWriter(chosen).line(kPoint), "239.450\t12345678R05\r\n");
    EXPECT_THROW(FieldColumnsOf("name,z"), ExchangeError);
    EXPECT_FALSE(FieldFormatOf("a.xyz"));
}

TEST(FieldFile, GsiWordsHoldMillimetres)
{
    const auto line = writer("a.gsi").line(kPoint);
    EXPECT_TRUE(line.starts_with("*"));
    EXPECT_TRUE(line.ends_with("\r\n"));
    auto all = words(line);
    EXPECT_EQ(all["11"], "0001+0000012345678R05");
    EXPECT_EQ(all["71"], "....+00000000000000YB");
    EXPECT_EQ(all["81"], "..40-0000000000012001");
    EXPECT_EQ(all["82"], "..40+0000002856498573");
    EXPECT_EQ(all["83"], "..40+0000000000239450");
}

TEST(FieldFile, Gsi8RefusesByNameWhatDoesNotFit)
{
    FieldFormat small = *FieldFormatOf("a.gsi");
    small.kind = FieldFormat::Gsi8;
    EXPECT_THAT(refusal([&] { FieldWriter(small).line(kPoint); }),
                testing::AllOf(HasSubstr("12345678R05"), HasSubstr("GSI-16")));
    FieldPoint point = kPoint;
    point.name = "P1";
    EXPECT_THAT(refusal([&] { FieldWriter(small).line(point); }),
                testing::AllOf(HasSubstr("X 坐标"), HasSubstr("GSI-16")));
    point.x = 99999.999;
    EXPECT_EQ(words(FieldWriter(small).line(point))["82"], "..40+99999999");
    point.code = "中";
    EXPECT_THAT(refusal([&] { FieldWriter(small).line(point); }), HasSubstr("编码"));
}

TEST(Measured, WhatIsWrittenReadsBack)
{
    for (const char* path : {"a.dat", "a.csv", "a.txt", "a.gsi"}) {
        auto out = writer(path);
        FieldPoint second = kPoint;
        second.name = "B";
        second.h = {};
        const auto points = ReadMeasured(path, out.begin() + out.line(kPoint) + out.line(second));
        ASSERT_EQ(points.size(), 2u) << path;
        EXPECT_EQ(points[0].name, "12345678R05");
        EXPECT_NEAR(points[0].x, 2856498.573, 1e-9);
        EXPECT_NEAR(points[0].y, -12.001, 1e-9);
        ASSERT_TRUE(points[0].h) << path;
        EXPECT_NEAR(*points[0].h, 239.45, 1e-9);
        EXPECT_FALSE(points[1].h) << path;
    }
}

TEST(Measured, FoursFivesAndHeaders)
{
    const auto four = ReadMeasured("a.dat", "P1,100,200,3\nP2,101,201,\n");
    ASSERT_EQ(four.size(), 2u);
    EXPECT_EQ(four[0].x, 100);
    EXPECT_EQ(four[0].h, 3);
    EXPECT_FALSE(four[1].h);
    const auto five = ReadMeasured("a.dat", "P1,ZZ,200,100,3\r\n");
    EXPECT_EQ(five[0].x, 100);
    const auto headed = ReadMeasured("a.csv", Cp936FromUtf8("H,点号,Y,X\n3,甲,200,100\n"));
    EXPECT_EQ(headed[0].name, "甲");
    EXPECT_EQ(headed[0].y, 200);
    EXPECT_EQ(headed[0].h, 3);
}

TEST(Measured, GsiOfOtherUnits)
{
    const auto points = ReadMeasured("a.gsi", "110001+0000A110 81..11+00010000 82..46+00100000 83..48-00100000 \n");
    ASSERT_EQ(points.size(), 1u);
    EXPECT_EQ(points[0].name, "A110");
    EXPECT_NEAR(points[0].y, 3.048, 1e-9);  // 10 feet
    EXPECT_NEAR(points[0].x, 10, 1e-9);
    EXPECT_NEAR(*points[0].h, -1, 1e-9);
}

TEST(Measured, WhatCannotBeReadNamesItsLine)
{
    const auto read = [](const char* path, const char* text) { return refusal([=] { ReadMeasured(path, text); }); };
    EXPECT_THAT(read("a.dat", "P1,1,2,3\nP2,x,2,3\n"), HasSubstr("第2行"));
    EXPECT_THAT(read("a.dat", "P1\n"), HasSubstr("坐标"));
    EXPECT_THAT(read("a.gsi", "P1,1,2,3\n"), HasSubstr("GSI-8"));
    EXPECT_THAT(read("a.gsi", "*110001+00000000000000P1 81..40+0000000000000001\n"), HasSubstr("坐标"));
    EXPECT_THAT(read("a.gsi", "*110001+00000000000000P1 81..4x+0000000000000001\n"), HasSubstr("单位"));
}
