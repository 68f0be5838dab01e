// Options, ways to call a command, and what becomes of the rest.

#include "cli/Arguments.h"

#include <gtest/gtest.h>

namespace {

constexpr Option kKnown[] = {{"--at", "STAKE", ""},
                             {"--file", "FILE", ""},
                             {"--side", "SIDE", "", "--seite"},
                             {"--quiet", "", ""},
                             {"-o", "FILE", ""}};
constexpr Way kWays[] = {"--at [--side]", "--file"};

Arguments parse(std::vector<std::string> words) { return Arguments(words, kKnown); }

std::string wrong(const auto& body)
{
    try {
        body();
    } catch (const WrongUsage& usage) {
        return usage.what();
    }
    return "";
}

}  // namespace

TEST(Arguments, ValuesBehindABlankOrAnEqualsSign)
{
    const auto args = parse({"--at", "100", "--side=left", "-o", "x.csv", "--quiet"});
    EXPECT_EQ(args.value("--at"), "100");
    EXPECT_EQ(args.value("--side"), "left");
    EXPECT_EQ(args.value("-o"), "x.csv");
    EXPECT_TRUE(args.has("--quiet"));
    EXPECT_FALSE(args.has("--file"));
    EXPECT_EQ(args.value("--file"), "");
}

TEST(Arguments, NegativeNumbersAndTheDashAreValues)
{
    EXPECT_EQ(parse({"--at", "-100"}).value("--at"), "-100");
    EXPECT_EQ(parse({"--at", "-.5"}).value("--at"), "-.5");
    EXPECT_EQ(parse({"--file", "-"}).value("--file"), "-");
    EXPECT_EQ(parse({"-100"}).words(), std::vector<std::string>{"-100"});
}

TEST(Arguments, AnOptionGivenTwiceIsWrongUsage)
{
    EXPECT_EQ(wrong([] { parse({"--at", "1", "--at", "2"}); }), "选项 --at 只能给一次");
    EXPECT_EQ(wrong([] { parse({"--at", "1", "--at=1"}); }), "选项 --at 只能给一次");
    EXPECT_EQ(wrong([] { parse({"--quiet", "--quiet"}); }), "选项 --quiet 只能给一次");
    EXPECT_EQ(wrong([] { parse({"--side", "left", "--seite", "left"}); }), "选项 --side 只能给一次");
}

TEST(Arguments, ASecondNameIsTheSameOption)
{
    const auto args = parse({"--at", "1", "--seite", "left"});
    EXPECT_EQ(args.value("--side"), "left");
    EXPECT_EQ(args.choose(kWays), kWays[0]);
}

TEST(Arguments, WrongOnes)
{
    EXPECT_EQ(wrong([] { parse({"--unknown"}); }), "没有选项 --unknown");
    EXPECT_EQ(wrong([] { parse({"-x"}); }), "没有选项 -x");
    EXPECT_EQ(wrong([] { parse({"--at"}); }), "选项 --at 后面缺少STAKE");
    EXPECT_EQ(wrong([] { parse({"--quiet=1"}); }), "选项 --quiet 不带值");
}

TEST(Arguments, TheFirstOptionOfAWaySelectsIt)
{
    EXPECT_EQ(parse({"--file", "x"}).choose(kWays), kWays[1]);
    EXPECT_EQ(parse({"--at", "1", "--side", "left", "--quiet"}).choose(kWays), kWays[0]);
    EXPECT_EQ(wrong([] { parse({"--quiet"}).choose(kWays); }), "缺少 --at 或 --file");
    EXPECT_EQ(wrong([] { parse({"--at", "1", "--file", "x"}).choose(kWays); }), "--at 和 --file 只能用一个");
    EXPECT_EQ(wrong([] { parse({"--file", "x", "--side", "left"}).choose(kWays); }), "--side 不能和 --file 一起用");
}

TEST(Arguments, AWayMayNeedMoreThanItsFirstOption)
{
    constexpr Way ways[] = {"--at --side"};
    EXPECT_EQ(wrong([&] { parse({"--at", "1"}).choose(ways); }), "缺少 --side");
    EXPECT_EQ(parse({"--at", "1", "--side", "left"}).choose(ways), ways[0]);
}
