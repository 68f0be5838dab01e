// Tables of texts on their way out.

#include "cli/Output.h"

#include "cli/Results.h"

#include <gtest/gtest.h>

namespace {

GridText grid(const std::vector<std::vector<std::string>>& rows)
{
    GridText text;
    text.setCols(static_cast<int>(rows[0].size()));
    text.setRows(static_cast<int>(rows.size()));
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            text.setText(static_cast<int>(r), static_cast<int>(c), rows[r][c]);
    return text;
}

}  // namespace

TEST(Output, ChineseTakesTwoColumns)
{
    EXPECT_EQ(DisplayWidth("K12+345.678"), 11);
    EXPECT_EQ(DisplayWidth("里 程"), 5);
    EXPECT_EQ(DisplayWidth("10°30′"), 6);
    EXPECT_EQ(DisplayWidth("（全角）"), 8);
    EXPECT_EQ(DisplayWidth("𠮷"), 2);
    EXPECT_EQ(DisplayWidth(""), 0);
}

TEST(Output, ADamagedTextHasSomeWidthToo) { EXPECT_GT(DisplayWidth("\xE4\xB8"), 0); }

TEST(Output, ColumnsAreAlignedAndLinesEndWithoutBlanks)
{
    EXPECT_EQ(AlignedTable(grid({{"序号", "里 程", "备"}, {"1", "K0+100.000", ""}, {"10", "左", "x"}})),
              "序号  里 程       备\n"
              "1     K0+100.000\n"
              "10    左          x\n");
}

TEST(Output, CsvQuotesOnlyWhereItMust)
{
    EXPECT_EQ(Csv(grid({{"a", "b"}, {"1,5", "say \"x\""}, {"", "plain"}}), "\n"),
              "a,b\n\"1,5\",\"say \"\"x\"\"\"\n,plain\n");
}

TEST(Output, JsonNamesRepeatedHeadersAndSpeaksOfWarnings)
{
    EXPECT_EQ(
        Json(grid({{"里 程", "高 程", "高 程"}, {"K0", "1", "2"}, {"K1", "3", ""}}), {"", "", "超出"}),
        "[\n"
        "  {\n    \"里 程\": \"K0\",\n    \"高 程\": \"1\",\n    \"高 程2\": \"2\"\n  },\n"
        "  {\n    \"里 程\": \"K1\",\n    \"高 程\": \"3\",\n    \"高 程2\": \"\",\n    \"warning\": \"超出\"\n  }\n"
        "]\n");
    EXPECT_EQ(Json(grid({{"a"}}), {""}), "[]\n");
}

TEST(Output, AFileIsNamedByItsEnding)
{
    const auto text = grid({{"里"}, {"1"}});
    EXPECT_EQ(FileBytes("x.CSV", text, {"", ""}, Format::Json), "\xEF\xBB\xBF里\r\n1\r\n");
    EXPECT_EQ(FileBytes("x.txt", text, {"", ""}, Format::Table), "里\n1\n");
    EXPECT_EQ(FileBytes("csv", text, {"", ""}, Format::Csv), "里\n1\n");
}

TEST(StakeNumber, ReadsTheStakeTextOfSurveyors)
{
    EXPECT_EQ(StakeNumber("K12+345.678"), "12345.678");
    EXPECT_EQ(StakeNumber("k0+007"), "0007");
    EXPECT_EQ(StakeNumber(" -K1+200.5 "), "-1200.5");
    for (const char* other : {"12345.6", "-5", "K12", "K12+34", "K12+3456", "K1x+345", "", "1.2.3"})
        EXPECT_EQ(StakeNumber(other), other);
}
