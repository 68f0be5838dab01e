// --no-limit: the same text as without it where that has all rows, and all rows where it has not.

#include "CompanionTest.h"

#include <cstdlib>
#include <sys/resource.h>

namespace {

using Args = std::vector<std::string>;

Args with(Args args, const Args& more)
{
    args.insert(args.end(), more.begin(), more.end());
    return args;
}

/// Stakes and offsets that all commands with a file take; 3,000 are several blocks.
std::string points(int count)
{
    std::string text;
    for (int n = 0; n < count; ++n) text += std::to_string(12050 + n % 900) + "," + std::to_string(n % 11 - 5) + "\n";
    return text;
}

/// Points of the road: the columns X and Y of a result.
std::string coordinates(const Companion& companion)
{
    std::string text;
    const auto rows = lines(companion.calc({"示例一", "coords", "--file", "-", "--format", "csv"}, points(40)).out);
    for (std::size_t n = 1; n < rows.size(); ++n) {
        std::vector<std::string> cells(1);
        for (const char c : rows[n])
            if (c == ',')
                cells.emplace_back();
            else
                cells.back() += c;
        text += cells.at(6) + "," + cells.at(7) + "\n";
    }
    return text;
}

TEST_F(Companion, NoLimitWritesTheSameText)
{
    const std::string many = points(3000);
    const std::pair<Args, std::string> calls[] = {
        {{"stakeout", "--from", "12050", "--to", "12950", "--step", "0.5", "--offset", "4"}, ""},
        {{"stakeout", "--file", "-"}, many},
        {{"coords", "--file", "-", "--station", "GP01"}, many},
        {{"coords", "--file", "-"}, "12100,abc\n99,1\n12200,2\n"},
        {{"coords", "--file", "-"}, "abc\n"},
        {{"elevation", "--file", "-"}, many},
        {{"elevation", "--from", "12050", "--to", "12950", "--step", "0.3"}, ""},
        {{"inverse", "--file", "-"}, coordinates(*this)},
        {{"stakeout", "--from", "12050", "--to", "12050", "--step", "1"}, ""},
    };
    for (const auto& [args, input] : calls)
        for (const char* format : {"csv", "json"}) {
            const Args all = with(with({"示例一"}, args), {"--format", format});
            const Ran plain = calc(all, input), streamed = calc(with(all, {"--no-limit"}), input);
            EXPECT_EQ(streamed.out, plain.out) << args[0] << ' ' << format;
            EXPECT_EQ(streamed.code, plain.code) << args[0];
            EXPECT_EQ(lines(streamed.err).size(), lines(plain.err).size()) << args[0];
        }
}

TEST_F(Companion, NoLimitGoesPastTheRowsOfAGrid)
{
    const Args args{"示例一", "stakeout", "--from", "12000", "--to", "13000", "--step", "0.015625", "--format", "csv"};
    const Ran limited = calc(args);
    EXPECT_EQ(limited.code, 1);
    const Ran all = calc(with(args, {"--no-limit"}));
    EXPECT_EQ(all.code, 0) << all.err;
    const auto rows = lines(all.out);
    ASSERT_EQ(rows.size(), 64002u);  // the headers, and both ends
    EXPECT_TRUE(rows[1].starts_with("1,K12+000.000,"));
    EXPECT_TRUE(rows[64001].starts_with("64001,K13+000.000,")) << rows[64001];
    EXPECT_EQ(lines(limited.out).size(), 32768u);
    EXPECT_TRUE(all.out.starts_with(limited.out));
}

TEST_F(Companion, NoLimitTakesEveryLineOfAFile)
{
    const std::string few = coordinates(*this);  // of 40 points
    std::string many;
    for (int n = 0; n < 820; ++n) many += few;
    const std::string stakes = points(820 * 40);
    const std::pair<const char*, const std::string*> commands[] = {
        {"stakeout", &stakes}, {"coords", &stakes}, {"elevation", &stakes}, {"inverse", &many}};
    for (const auto& [command, input] : commands) {
        const Args args{"示例一", command, "--file", "-", "--format", "csv"};
        const Ran limited = calc(args, *input), all = calc(with(args, {"--no-limit"}), *input);
        EXPECT_EQ(limited.code, 1) << command;
        EXPECT_NE(limited.err.find("第32768行"), std::string::npos) << command;
        EXPECT_EQ(lines(limited.out).size(), 32768u) << command;
        EXPECT_EQ(all.code, 0) << command << all.err;
        EXPECT_EQ(lines(all.out).size(), 820u * 40 + 1) << command;
        EXPECT_TRUE(all.out.starts_with(limited.out)) << command;
    }
}

TEST_F(Companion, NoLimitIsForTextThatStreams)
{
    for (const Args& more : {Args{}, {"--format", "table"}, {"--format", "csv", "-o", workspace.root() + "/a.csv"}}) {
        const Ran ran =
            calc(with({"示例一", "stakeout", "--from", "12000", "--to", "12100", "--step", "20", "--no-limit"}, more));
        EXPECT_EQ(ran.code, 2);
        EXPECT_EQ(ran.out, "");
        EXPECT_NE(ran.err.find("--no-limit"), std::string::npos);
    }
}

TEST_F(Companion, NoLimitNeedsTheMemoryOfABlock)
{
    // The sanitizers keep what was freed, up to so much; without them this says nothing.
    setenv("ASAN_OPTIONS", "quarantine_size_mb=1:thread_local_quarantine_size_kb=64", 1);
    const auto kilobytes = [&](const char* step) {
        const Ran ran = calc({"示例一", "stakeout", "--from", "12000", "--to", "13000", "--step", step, "--format",
                              "csv", "--no-limit"});
        EXPECT_EQ(ran.code, 0);
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        return usage.ru_maxrss;
    };
    const auto few = kilobytes("0.2");  // 5,001 rows
    EXPECT_LT(kilobytes("0.005"), few + 3000) << "200,001 rows are 20 MB of text";
    unsetenv("ASAN_OPTIONS");
}

}  // namespace
