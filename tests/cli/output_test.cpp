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

TEST(Output, CsvKeepsAFormulaATextAndANumberANumber)
{
    EXPECT_EQ(Csv(grid({{"=1+2", "@x", "+1+2", "-D3"}}), "\n"), "\"'=1+2\",\"'@x\",\"'+1+2\",\"'-D3\"\n");
    EXPECT_EQ(Csv(grid({{"=\"a\"", "＝1", "\t1", "-K12+100.000"}}), "\n"),
              "\"'=\"\"a\"\"\",\"'＝1\",\"'\t1\",\"'-K12+100.000\"\n");
    EXPECT_EQ(Csv(grid({{"-5.250", "+3", "-.5", "-", "-1e3"}}), "\n"), "-5.250,+3,-.5,\"'-\",-1e3\n");
    EXPECT_EQ(Csv(grid({{"-45度30分00秒", "-3°0′0″", "左=5", "无"}}), "\n"), "-45度30分00秒,-3°0′0″,左=5,无\n");
}

TEST(Output, JsonNamesRepeatedHeadersWithoutBlanksAndSpeaksOfWarnings)
{
    auto warned = grid({{"里 程", "高 程", "高 程"}, {"K0", "1", "2"}, {"K1", "3", ""}});
    warned.setWarning(2, "超出");
    EXPECT_EQ(Json({warned}),
              "[\n"
              "  {\n    \"里程\": \"K0\",\n    \"高程\": \"1\",\n    \"高程2\": \"2\"\n  },\n"
              "  {\n    \"里程\": \"K1\",\n    \"高程\": \"3\",\n    \"高程2\": \"\",\n    \"warning\": \"超出\"\n  }\n"
              "]\n");
    EXPECT_EQ(Json({grid({{"a"}})}), "[]\n");
}

TEST(Output, JsonHasValuesBesideTheTexts)
{
    constexpr TypedColumn typed[] = {{0, "stake"}, {1, "distance"}};
    auto table = grid({{"里 程", "距 离"}, {"", "无"}});
    table.setCell(1, 0, StakeCell(-1200.5));
    EXPECT_EQ(
        Json({table, typed}),
        "[\n  {\n    \"里程\": \"-K1+200.500\",\n    \"距离\": \"无\",\n    \"stake\": -1200.5,\n    \"distance\": "
        "null\n  }\n]\n");
    table.setText(1, 0, "K9");  // a text that is written over a number shows none
    EXPECT_EQ(table.shown(1, 0), std::nullopt);
}

TEST(Output, AFileIsNamedByItsEnding)
{
    const auto text = grid({{"里"}, {"1"}});
    EXPECT_EQ(FileBytes("x.CSV", {text}, Format::Csv), "\xEF\xBB\xBF里\r\n1\r\n");
    EXPECT_EQ(FileBytes("x.txt", {text}, Format::Table), "里\n1\n");
    EXPECT_EQ(FileBytes("csv", {text}, Format::Csv), "里\n1\n");
}

namespace {

constexpr Option kKnown[] = {{"--format", "FORM", ""}, {"-o", "FILE", ""}};
Format formOf(const std::vector<std::string>& words, std::string_view forms = "table csv json xls")
{
    return FormatOf(Arguments(words, kKnown), forms);
}
std::string wrongForm(const std::vector<std::string>& words, std::string_view forms = "table csv json xls")
{
    try {
        formOf(words, forms);
    } catch (const WrongUsage& wrong) {
        return wrong.what();
    }
    return "";
}

}  // namespace

TEST(Format, IsNamedOrTakenFromTheEnding)
{
    EXPECT_EQ(formOf({}), Format::Table);
    EXPECT_EQ(formOf({"--format", "json"}), Format::Json);
    EXPECT_EQ(formOf({"-o", "a.JSON"}), Format::Json);
    EXPECT_EQ(formOf({"-o", "a.csv"}), Format::Csv);
    EXPECT_EQ(formOf({"-o", "a.csv", "--format", "csv"}), Format::Csv);
    EXPECT_EQ(formOf({"-o", "a.Xls"}), Format::Sheet);
    EXPECT_EQ(formOf({"-o", "a.txt"}), Format::Table);
    EXPECT_EQ(formOf({"-o", "a.txt", "--format", "csv"}), Format::Csv);
    EXPECT_EQ(formOf({"-o", "/dev/stdout", "--format", "json"}), Format::Json);
}

TEST(Format, AgainstTheEndingOfTheFileIsWrongUsage)
{
    EXPECT_EQ(wrongForm({"-o", "a.csv", "--format", "json"}), "--format json 和 -o a.csv 不一致");
    EXPECT_EQ(wrongForm({"-o", "a.json", "--format", "table"}), "--format table 和 -o a.json 不一致");
    EXPECT_EQ(wrongForm({"-o", "a.xls", "--format", "csv"}), "--format csv 和 -o a.xls 不一致");
    EXPECT_EQ(wrongForm({"--format", "xls"}), "--format xls：只能是 table、csv 或 json");
    EXPECT_EQ(wrongForm({"--format", "csv"}, "table json"), "--format csv：只能是 table 或 json");
    EXPECT_EQ(wrongForm({"-o", ""}), "选项 -o 后面缺少文件");
}

TEST(Format, ASpreadsheetThatNobodyWritesIsRefused)
{
    for (const char* ending : {".xlsb", ".XLSM", ".xlsb", ".ods", ".et", ".numbers"})
        EXPECT_NE(wrongForm({"-o", std::string("a") + ending}), "") << ending;
    EXPECT_EQ(wrongForm({"-o", "结果.xlsx"}, "table csv json xls"), "-o 结果.xlsx：这个命令不写 .xlsx 文件");
    EXPECT_EQ(wrongForm({"-o", "a.xls"}, "table csv json"), "-o a.xls：这个命令不写 .xls 文件");
    EXPECT_EQ(wrongForm({"-o", "a.csv"}, "table json"), "-o a.csv：这个命令不写 .csv 文件");
}

TEST(StakeNumber, ReadsTheStakeTextOfSurveyors)
{
    EXPECT_EQ(StakeNumber("K12+345.678"), "12345.678");
    EXPECT_EQ(StakeNumber("k0+007"), "0007");
    EXPECT_EQ(StakeNumber(" -K1+200.5 "), "-1200.5");
    for (const char* other : {"12345.6", "-5", "K12", "K12+34", "K12+3456", "K1x+345", "", "1.2.3"})
        EXPECT_EQ(StakeNumber(other), other);
}
