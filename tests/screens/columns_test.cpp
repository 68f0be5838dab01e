// The columns of every result grid, typed once more.

#include "screens/Columns.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using Columns = std::vector<std::pair<std::string, int>>;

Columns columns(std::span<const GridColumn> table)
{
    Columns list;
    for (const auto& column : table) list.emplace_back(column.header, column.twips);
    return list;
}

}  // namespace

TEST(Columns, OfCoordinates)
{
    EXPECT_EQ(columns(kCoordinateColumns), (Columns{{"序号", 800},
                                                    {"里 程", 2000},
                                                    {"中边桩", 1800},
                                                    {"夹 角", 1900},
                                                    {"方位角", 1900},
                                                    {"距 离", 1200},
                                                    {"X坐标", 1500},
                                                    {"Y坐标", 1500},
                                                    {"切线方位角", 1900}}));
}

TEST(Columns, OfInverseStakes)
{
    EXPECT_EQ(
        columns(kInverseColumns),
        (Columns{{"序号", 800}, {"X 坐 标", 2000}, {"Y 坐 标", 2000}, {"反 算 里 程", 2000}, {"反 算 偏 距", 2000}}));
}

TEST(Columns, OfOneElevation)
{
    EXPECT_EQ(columns(kElevationColumns),
              (Columns{{"序号", 1000}, {"里 程", 2000}, {"中边桩", 2000}, {"高 程", 2000}}));
}

TEST(Columns, OfARunOfElevations)
{
    EXPECT_EQ(columns(kElevationRunColumns), (Columns{{"序号", 1000},
                                                      {"里 程", 2000},
                                                      {"中边桩", 1500},
                                                      {"高 程", 1500},
                                                      {"中边桩", 1500},
                                                      {"高 程", 1500},
                                                      {"中边桩", 1500},
                                                      {"高 程", 1500}}));
}

TEST(Columns, OfCorners)
{
    EXPECT_EQ(columns(kCornerColumns), (Columns{{"序号", 800},
                                                {"里 程", 2000},
                                                {"点位置", 1000},
                                                {"夹 角", 1900},
                                                {"方位角", 1900},
                                                {"距 离", 1200},
                                                {"X坐标", 1500},
                                                {"Y坐标", 1500},
                                                {"切线方位角", 1900}}));
}

TEST(Columns, OfMainPoints)
{
    EXPECT_EQ(columns(kMainPointColumns),
              (Columns{{"序  号", 1000},     {"交点编号", 1500},       {"第一切线长", 1500}, {"第二切线长", 1500},
                       {"第一缓曲长", 1500}, {"第二缓曲长", 1500},     {"ZH点里程", 1500},   {"ZH点X坐标", 1500},
                       {"ZH点Y坐标", 1500},  {"ZH点切线方位角", 2000}, {"HY点里程", 1500},   {"HY点X坐标", 1500},
                       {"HY点Y坐标", 1500},  {"HY点切线方位角", 2000}, {"YH点里程", 1500},   {"YH点X坐标", 1500},
                       {"YH点Y坐标", 1500},  {"YH点切线方位角", 2000}, {"HZ点里程", 1500},   {"HZ点X坐标", 1500},
                       {"HZ点Y坐标", 1500},  {"HZ点切线方位角", 2000}}));
}
