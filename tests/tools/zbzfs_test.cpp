#include "tools/Zbzfs.h"

#include "base/RunTimeError.h"

#include <gtest/gtest.h>

namespace {

Msg notice(const char* text) { return {.text = text, .title = "注意", .icon = Icon::Exclamation}; }

ForwardPoint forward(const ForwardInput& in)
{
    ForwardPoint out;
    EXPECT_TRUE(CalcForward(in, out));
    return out;
}

InverseRay inverse(const InverseInput& in)
{
    InverseRay out;
    EXPECT_TRUE(CalcInverse(in, out));
    return out;
}

}  // namespace

TEST(Zbzfs, ForwardAddsTheRayToTheStation)
{
    // cos 30 = 0.866025, sin 30 = 0.5
    const auto point = forward({" 1000 ", "2000", "30", "100"});
    EXPECT_EQ(point.x, "1086.603");
    EXPECT_EQ(point.y, "2050.000");
}

TEST(Zbzfs, ForwardAzimuthIsPacked)
{
    // 45.3000 is 45.5 degrees: cos 0.70090926, sin 0.71325045
    const auto point = forward({"0", "0", "45.3000", "1000"});
    EXPECT_EQ(point.x, "700.909");
    EXPECT_EQ(point.y, "713.250");
}

TEST(Zbzfs, NegativeAzimuthGoesWest)
{
    const auto point = forward({"1000", "2000", "-90", "100"});
    EXPECT_EQ(point.x, "1000.000");
    EXPECT_EQ(point.y, "1900.000");
}

TEST(Zbzfs, ForwardTurnsByPiOfSevenDecimals)
{
    // Half a turn of 3.1415926 falls 0.0000000536 short of the straight line, 54 mm over 1,000 km.
    const auto point = forward({"0", "0", "180", "1000000"});
    EXPECT_EQ(point.x, "-1000000.000");
    EXPECT_EQ(point.y, "0.054");
}

TEST(Zbzfs, ForwardNamesTheFirstEmptyBox)
{
    struct Case {
        ForwardInput in;
        const char* field;
        const char* text;
    };
    const Case cases[] = {
        {{"", "", "", ""}, "txtZsCzX", "测站X坐标不能为空！"},
        {{"1", "  ", "", ""}, "txtZsCzY", "测站Y坐标不能为空！"},
        {{"1", "2", "", ""}, "txtZsFwj", "方位角不能为空！"},
        {{"1", "2", "3", " "}, "txtZsJl", "距离不能为空！"},
        {{"1.2.3", "2", "3", ""}, "txtZsJl", "距离不能为空！"},  // emptiness is asked before anything is read
    };
    for (const auto& c : cases) {
        ForwardPoint out{"kept", "kept"};
        const auto outcome = CalcForward(c.in, out);
        ASSERT_TRUE(outcome.refusal) << c.text;
        EXPECT_EQ(*outcome.refusal, (Refusal{notice(c.text), c.field}));
        EXPECT_EQ(out.x, "kept");
        EXPECT_EQ(out.y, "kept");
    }
}

TEST(Zbzfs, InverseGivesAzimuthAndDistance)
{
    // atan2(300, -400) = 143.1301 degrees = 143 07 48
    const auto ray = inverse({"1000", "2000", " 600 ", "2300"});
    EXPECT_EQ(ray.fwj, "143度07分48秒");
    EXPECT_EQ(ray.jl, "500.000");
}

TEST(Zbzfs, InverseDueSouthShowsZero)
{
    const auto ray = inverse({"1000", "2000", "900", "2000"});
    EXPECT_EQ(ray.fwj, "0度00分00秒");
    EXPECT_EQ(ray.jl, "100.000");
}

TEST(Zbzfs, InverseOfOnePointIsZeroAndZero)
{
    const auto ray = inverse({"1000", "2000", "1000", "2000"});
    EXPECT_EQ(ray.fwj, "0度00分00秒");
    EXPECT_EQ(ray.jl, "0.000");
}

TEST(Zbzfs, InverseNamesTheFirstEmptyBox)
{
    struct Case {
        InverseInput in;
        const char* field;
        const char* text;
    };
    const Case cases[] = {
        {{"", "", "", ""}, "txtFsCzx", "测站X坐标不能为空！"},
        {{"1", " ", "", ""}, "txtFsCzy", "测站Y坐标不能为空！"},
        {{"1", "2", "", ""}, "txtFsHsX", "后视X坐标不能为空！"},
        {{"1", "2", "-", ""}, "txtFsHsY", "后视Y坐标不能为空！"},
    };
    for (const auto& c : cases) {
        InverseRay out{"kept", "kept"};
        const auto outcome = CalcInverse(c.in, out);
        ASSERT_TRUE(outcome.refusal) << c.text;
        EXPECT_EQ(*outcome.refusal, (Refusal{notice(c.text), c.field}));
        EXPECT_EQ(out.fwj, "kept");
        EXPECT_EQ(out.jl, "kept");
    }
}

TEST(Zbzfs, NothingIsTrapped)
{
    for (const char* bad : {"1.2.3", "-", "1-2"}) {
        ForwardPoint point;
        InverseRay ray;
        for (const auto& in :
             {ForwardInput{bad, "1", "1", "1"}, {"1", bad, "1", "1"}, {"1", "1", bad, "1"}, {"1", "1", "1", bad}})
            EXPECT_THROW(CalcForward(in, point), RunTimeError) << bad;
        for (const auto& in :
             {InverseInput{bad, "1", "1", "1"}, {"1", bad, "1", "1"}, {"1", "1", bad, "1"}, {"1", "1", "1", bad}})
            EXPECT_THROW(CalcInverse(in, ray), RunTimeError) << bad;
    }
}

TEST(Zbzfs, SumsBeyondADoubleOverflow)
{
    ForwardPoint point;
    EXPECT_THROW(CalcForward({"1e308", "0", "0", "1e308"}, point), RunTimeError);
    InverseRay ray;
    EXPECT_THROW(CalcInverse({"-1e308", "0", "1e308", "0"}, ray), RunTimeError);
}
