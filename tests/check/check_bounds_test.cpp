// However damaged a file is: the check keeps to ten times its size, and to a number of findings that a person can read.
// Counted are the bytes that this program holds by new, which is the same on every machine.

#include "CheckedSample.h"
#include "support/CountedMemory.h"
#include "support/RunProgram.h"

#include <algorithm>
#include <map>

namespace {

using counted::held, counted::most;

constexpr std::size_t kSize = 1 << 20;

std::string repeated(const std::string& piece)
{
    std::string text;
    while (text.size() < kSize) text += piece;
    return text;
}

// One of each kind: settings, names, points or blocks, stretches, slopes.
const char* const kFiles[] = {"其他参数.txt", "导线点参数.txt", "平曲线参数.txt", "超高参数.txt", "左幅挖方参数.txt"};

struct Damage {
    const char* name;
    const char* piece;
};
class HugeFile : public testing::TestWithParam<Damage> {};

TEST_P(HugeFile, CostsTenTimesItsSizeAndAThousandFindings)
{
    const std::string text = repeated(GetParam().piece);
    for (const char* const file : kFiles) {
        CheckedSample road("示例一");
        road.folder.writeBytes(file, text);
        const long long before = held;
        most = before;
        const auto found = CheckProject(road.path());
        EXPECT_LE(most - before, 10 * static_cast<long long>(kSize)) << file;
        std::map<std::string, int> ofFile;
        for (const auto& finding : found) {
            ++ofFile[finding.file];
            EXPECT_LT(finding.text.size(), 400u);
        }
        for (const auto& [name, count] : ofFile) EXPECT_LE(count, kFindingsPerFile + 1) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Check, HugeFile,
                         testing::Values(Damage{"blank_lines", "\r\n"}, Damage{"commas_in_lines", ",\r\n"},
                                         Damage{"one_line_of_commas", ","}, Damage{"one_word", "x"},
                                         Damage{"words", "abc\r\n"}, Damage{"numbers", "1,2,3,4,5,6,7\r\n"},
                                         Damage{"same_names", "A,1,2,3,4,5\r\n"}, Damage{"line_feeds", "1,2\n"}),
                         [](const auto& param) { return param.param.name; });

TEST(CheckBounds, WhatIsLeftOutIsCounted)
{
    CheckedSample road("示例一");
    road.folder.writeBytes("超高参数.txt", repeated("\r\n"));
    const auto found = road.found();
    ASSERT_EQ(found.size(), static_cast<std::size_t>(kFindingsPerFile) + 1);
    EXPECT_EQ(found[999].text, "空行，打开项目时会被删除");
    EXPECT_EQ(found[999].line, 1000);
    EXPECT_EQ(found[1000].text, "另有" + std::to_string(kSize / 2 - 1000) + "个问题没有列出");
    EXPECT_EQ(found[1000].amount.value, static_cast<double>(kSize / 2 - 1000));
}

TEST(CheckBounds, TheCommandPrintsNoMore)
{
    CheckedSample road("示例一");
    road.folder.writeBytes("超高参数.txt", repeated("\r\n"));
    const auto ran = runCompanion({"--folder", road.path(), "check"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(std::count(ran.out.begin(), ran.out.end(), '\n'), kFindingsPerFile + 1);
}

}  // namespace
