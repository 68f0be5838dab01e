#include "base/DesignNumber.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace {

using enum Quantity;
using Text = std::optional<std::string>;
constexpr std::array kEvery{Plain, Stake, Slope, Angle};

TEST(DesignNumber, PlainNumbersOfEveryQuantity)
{
    for (const Quantity q : kEvery)
        for (const auto& [printed, plain] : {std::pair{"12.5", "12.5"},
                                             {"-2", "-2"},
                                             {"+2.50", "2.50"},
                                             {".5", ".5"},
                                             {"-.25", "-.25"},
                                             {"007", "007"},
                                             {"１２．５", "12.5"},
                                             {"－２", "-2"},
                                             {"−2", "-2"},
                                             {"＋２.5", "2.5"},
                                             {" 12.5　", "12.5"},
                                             {"\u00A012.5\u00A0", "12.5"},
                                             {"- 2", "-2"}})
            EXPECT_EQ(PlainNumber(printed, q), Text(plain)) << printed;
}

TEST(DesignNumber, BlanksAloneAreNoText)
{
    for (const auto* blanks : {"", " ", "　", "\u00A0 　"}) EXPECT_EQ(PlainNumber(blanks, Plain), Text(""));
}

TEST(DesignNumber, ThousandsCommasNeedAPoint)
{
    for (const Quantity q : kEvery) {
        EXPECT_EQ(PlainNumber("2,856,486.512", q), Text("2856486.512"));
        EXPECT_EQ(PlainNumber("-12,345.6", q), Text("-12345.6"));
        EXPECT_EQ(PlainNumber("１，２３４．５", q), Text("1234.5"));
        for (const auto* other : {"1,234", "2,856,486", "1234,567.8", "1,23.4", "1,2345.6", ",234.5", "1,,234.5",
                                  "1,234,.5", "1,234.", "1.234,5", "1,234.5,6", "1, 234.5"})
            EXPECT_EQ(PlainNumber(other, q), std::nullopt) << other;
    }
}

TEST(DesignNumber, StakesAreInStakeColumnsAlone)
{
    for (const auto& [printed, metres] : {std::pair{"K12+345.678", "12345.678"},
                                          {"K0+000", "0"},
                                          {"K0+005.5", "5.5"},
                                          {"K0+123.400", "123.400"},
                                          {"K100+000", "100000"},
                                          {"K012+345", "12345"},
                                          {"-K12+345.678", "-12345.678"},
                                          {"Ｋ１２＋３４５．６７８", "12345.678"},
                                          {"K12 + 345.678", "12345.678"},
                                          {" K 12+345 ", "12345"}}) {
        EXPECT_EQ(PlainNumber(printed, Stake), Text(metres)) << printed;
        for (const Quantity q : {Plain, Slope, Angle}) EXPECT_EQ(PlainNumber(printed, q), std::nullopt) << printed;
    }
}

TEST(DesignNumber, AStakeThatIsNotExactlyOneIsNotGuessed)
{
    for (const auto* other :
         {"K12+45",          "K12+45.678", "K12+3456",   "K12+345.", "K12-345",  "K12+-345",    "K+345",
          "12+345",          "K12",        "K12345.678", "k12+345",  "AK12+345", "YK12+345",    "K12+345+1",
          "K12+345m",        "K12.5+345",  "K1,200+345", "K12+3 45", "K-12+345", "K12+345.6.7", "K12+345～K13+000",
          "K12+345 K13+000", "K12＋３４"})
        EXPECT_EQ(PlainNumber(other, Stake), std::nullopt) << other;
}

TEST(DesignNumber, PercentIsInSlopeColumnsAlone)
{
    for (const auto& [printed, slope] :
         {std::pair{"-2%", "-2"}, {"2.5 %", "2.5"}, {"+4%", "4"}, {"－２．５％", "-2.5"}, {"0%", "0"}}) {
        EXPECT_EQ(PlainNumber(printed, Slope), Text(slope)) << printed;
        for (const Quantity q : {Plain, Stake, Angle}) EXPECT_EQ(PlainNumber(printed, q), std::nullopt) << printed;
    }
    for (const auto* other : {"%", "-%", "2%%", "%2", "1,200.5%", "2%-", "20‰", "2.%"})
        EXPECT_EQ(PlainNumber(other, Slope), std::nullopt) << other;
}

TEST(DesignNumber, DegreesMinutesAndSecondsAreInAngleColumnsAlone)
{
    for (const auto& [printed, packed] : {std::pair{"123°45′30″", "123.4530"},
                                          {"5°6′7″", "5.0607"},
                                          {"0°00′00″", "0.0000"},
                                          {"007°05′09.25″", "7.050925"},
                                          {"-12°00′30″", "-12.0030"},
                                          {"359°59′59.99″", "359.595999"},
                                          {"123°45'30\"", "123.4530"},
                                          {"123°45’30”", "123.4530"},
                                          {"123° 45′ 30″", "123.4530"},
                                          {"１２３°４５′３０″", "123.4530"}}) {
        EXPECT_EQ(PlainNumber(printed, Angle), Text(packed)) << printed;
        for (const Quantity q : {Plain, Stake, Slope}) EXPECT_EQ(PlainNumber(printed, q), std::nullopt) << printed;
    }
    for (const auto* other :
         {"123°", "123°45′", "123°45.5′", "123°60′00″", "123°00′60″", "123°45′30", "123°45″30′", "1234°00′00″",
          "123°456′00″", "°45′30″", "123-45-30", "123 45 30", "123度45分30秒", "123°45′30.″", "123.5°", "123°45′30″N"})
        EXPECT_EQ(PlainNumber(other, Angle), std::nullopt) << other;
}

TEST(DesignNumber, AnythingElseIsNotGuessed)
{
    for (const Quantity q : kEvery)
        for (const auto* other :
             {"-",   "－",    "+",    ".",   "1.2.3", "--2", "+-2",  "2-",    "1 234.5",  "1234 .5", "1e3", "abc",
              "12m", "(2.5)", "十二", "1/2", "–2",    "—",   "1。5", "1:1.5", "\xFF\xFE", "R300",    "12°", "∞"})
            EXPECT_EQ(PlainNumber(other, q), std::nullopt) << other;
}

}  // namespace
