#include "exchange/Compare.h"

#include "exchange/ExchangeError.h"
#include "exchange/GaussKrueger.h"
#include "exchange/MapFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

/// From (1000, 2000) at stake 10000, 300 m to 30 degrees; grade 1 percent; 10 m to both sides at 2 percent down.
Tables road()
{
    const RoadFiles files{{"其他参数.txt", {"积木法", "线性", "未设置", "未设置", "未设置"}},
                          {"平曲线参数.txt", {"10000,10300,1000,2000,30,0,0"}},
                          {"竖曲线参数.txt", {"10000,50", "10100,51,0", "10250,52.5"}},
                          {"超高参数.txt", {"10000,-2,-2,10300,-2,-2"}},
                          {"超高宽度参数.txt", {"10000,10300,0,10,10,0,0,10,10,0,0,-2"}}};
    return Compile(files).tables;
}

/// So many metres along that road and to its right, plus a shift.
MeasuredPoint at(const char* name, double along, double right, std::optional<double> h, double dx = 0, double dy = 0)
{
    const double c = std::sqrt(3) / 2, s = 0.5;
    return {name, 1000 + along * c - right * s + dx, 2000 + along * s + right * c + dy, h};
}

}  // namespace

TEST(Compare, StakeOffsetAndHeightOfAMeasuredPoint)
{
    const auto rows = Compare(road(), {at("P", 40, 5, 50.35)}, {}, {});
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].stakeText, "K10+040.000");
    EXPECT_NEAR(rows[0].offset, 5, 1e-9);
    EXPECT_NEAR(*rows[0].design, 50.4 - 0.1, 1e-9);  // 5 m right at 2 percent
    EXPECT_NEAR(*rows[0].heightOff, 0.05, 1e-9);
    EXPECT_FALSE(rows[0].dx);
    EXPECT_FALSE(rows[0].beyond);
}

TEST(Compare, AgainstTheRowOfTheSameName)
{
    const std::vector<MeasuredPoint> planned{at("A", 40, 0, 50.4), at("B", 60, 0, {})};
    const auto rows = Compare(road(), {at("B", 60, 0, 50.6, 0.03, -0.04), at("A", 40, 0, 50.41), at("C", 80, 0, {})},
                              planned, {.plane = 0.045, .height = 0.02});
    EXPECT_NEAR(*rows[0].dx, 0.03, 1e-9);
    EXPECT_NEAR(*rows[0].dy, -0.04, 1e-9);
    EXPECT_TRUE(rows[0].beyond);  // 0.05 m
    EXPECT_FALSE(rows[0].setOutOff);
    EXPECT_NEAR(*rows[1].setOutOff, 0.01, 1e-9);
    EXPECT_FALSE(rows[1].beyond);
    EXPECT_FALSE(rows[2].dx);
    EXPECT_FALSE(rows[2].heightOff);
}

TEST(Compare, ZerosInFrontOfANameAreLostInAnInstrument)
{
    for (const auto& [set, read] : {std::pair{"00040000R05", "40000R05"}, {"40000R05", "00040000R05"}}) {
        const auto rows = Compare(road(), {at(read, 40, 0, {}, 0.03, 0)}, {at(set, 40, 0, {})}, {});
        ASSERT_TRUE(rows[0].dx) << set;
        EXPECT_NEAR(*rows[0].dx, 0.03, 1e-9);
    }
    // A name that stands as it is goes before one without its zeros.
    EXPECT_NEAR(*Compare(road(), {at("1", 40, 0, {})}, {at("01", 60, 0, {}), at("1", 40, 0, {})}, {})[0].dx, 0, 1e-9);
}

TEST(Compare, APointBeyondTheEndHasNoStake)
{
    EXPECT_FALSE(Compare(road(), {at("P", 320, 3, {})}, {}, {})[0].found);
    EXPECT_FALSE(Compare(road(), {at("P", -20, 3, {})}, {}, {})[0].found);
}

TEST(Compare, HeightToleranceLooksAtTheDesignToo)
{
    EXPECT_TRUE(Compare(road(), {at("P", 40, 0, 50.43)}, {}, {.plane = {}, .height = 0.02})[0].beyond);
    EXPECT_FALSE(Compare(road(), {at("P", 40, 0, 50.43)}, {}, {})[0].beyond);
}

TEST(Compare, WithoutDesignHeightBeyondTheGradeLine)
{
    const auto rows = Compare(road(), {at("P", 280, 0, 50)}, {}, {});
    EXPECT_TRUE(rows[0].found);
    EXPECT_FALSE(rows[0].design);
}

TEST(Compare, RowsForPeople)
{
    const auto points =
        Compare(road(), {at("A", 40, 0, 50.5)}, {at("A", 40, 0, 50.4, 0, 0.1)}, {.plane = 0.05, .height = {}});
    const auto grid = ComparedRows(points);
    EXPECT_EQ(grid.text(0, 1), "点号");
    EXPECT_EQ(grid.text(1, 5), "K10+040.000");
    EXPECT_EQ(grid.text(1, 9), "0.000");  // no minus before a zero
    EXPECT_EQ(grid.text(1, 10), "-0.100");
    EXPECT_EQ(grid.text(1, 11), "0.100");
    EXPECT_EQ(grid.text(1, 13), "超限");
}

TEST(GaussKrueger, TextOfTheOption)
{
    EXPECT_EQ(GaussKruegerOfText("117").falseEasting, 500000);
    EXPECT_EQ(GaussKruegerOfText("114,38500000").falseEasting, 38500000);
    for (const char* text : {"", "x", "117,1,2", "200"}) EXPECT_THROW(GaussKruegerOfText(text), ExchangeError) << text;
}

TEST(GaussKrueger, TheMeridianIsStraightNorth)
{
    const auto place = GaussKrueger{.meridian = 114, .falseEasting = 38500000}.reverse(4984944.3780, 38500000);
    EXPECT_NEAR(place.lon, 114, 1e-9);
    EXPECT_NEAR(place.lat, 45, 1e-8);  // the meridian's length from the equator on this ellipsoid
}

TEST(MapText, OwnCoordinatesStandEastBeforeNorth)
{
    const RoadFiles files{{"其他参数.txt", {"积木法", "未设置", "未设置", "未设置", "未设置"}},
                          {"平曲线参数.txt", {"0,100,1000,2000,0,0,0"}}};
    const auto compiled = Compile(files);
    const auto text = MapText({.name = "路\"", .tables = compiled.tables, .files = files}, MapForm::GeoJson);
    EXPECT_THAT(text, HasSubstr("[[2000.0000,1000.0000],[2000.0000,1100.0000]]"));
    EXPECT_THAT(text, HasSubstr("\"路\\\"\""));
}
