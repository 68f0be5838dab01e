#include "base/TabText.h"

#include <gtest/gtest.h>

TEST(TabText, RowsAndColumns)
{
    EXPECT_EQ(TabText({{"1", "桩"}, {"", "x"}}), "1\t桩\r\n\tx\r\n");
    EXPECT_EQ(RowsOfTabText("1\t桩\r\n\tx\r\n"), (CellRows{{"1", "桩"}, {"", "x"}}));
    EXPECT_EQ(RowsOfTabText("1\n2\r3"), (CellRows{{"1"}, {"2"}, {"3"}}));
    EXPECT_EQ(RowsOfTabText(""), CellRows{});
    EXPECT_EQ(RowsOfTabText("\n"), CellRows{{""}});
    EXPECT_EQ(RowsOfTabText("a\t"), (CellRows{{"a", ""}}));
    EXPECT_EQ(RowsOfTabText("a\n\nb"), (CellRows{{"a"}, {""}, {"b"}}));
}

TEST(TabText, QuotesAroundWhatHoldsASeparator)
{
    const CellRows rows{{"two\nlines", "tab\there", "6\" pipe"}};
    EXPECT_EQ(TabText(rows), "\"two\nlines\"\t\"tab\there\"\t\"6\"\" pipe\"\r\n");
    EXPECT_EQ(RowsOfTabText(TabText(rows)), rows);
    EXPECT_EQ(RowsOfTabText("6\" pipe\tx"), (CellRows{{"6\" pipe", "x"}}));
    EXPECT_EQ(RowsOfTabText("\"open"), CellRows{{"\"open"}});
    EXPECT_EQ(RowsOfTabText("\"a\"b\tc"), (CellRows{{"\"a\"b", "c"}}));
}

TEST(TabText, QuotesThatNoCellNeedsAreText)
{
    EXPECT_EQ(RowsOfTabText("\"A\"\t5\"\n"), (CellRows{{"\"A\"", "5\""}}));
    EXPECT_EQ(RowsOfTabText("\"A\n1\t2"), (CellRows{{"\"A"}, {"1", "2"}}));        // never closed
    EXPECT_EQ(RowsOfTabText("\"A\nB\"C\t2"), (CellRows{{"\"A"}, {"B\"C", "2"}}));  // text goes on behind it
    EXPECT_EQ(RowsOfTabText("\"\"\t\"\"\"\"\n"), (CellRows{{"\"\"", "\""}}));
}

/// As copied from a table of a curve sheet: a merged heading, an empty cell, a cell with a line end, the last line end.
TEST(TabText, ABlockOfASpreadsheet)
{
    EXPECT_EQ(RowsOfTabText("\"交点\n编号\"\t坐标\t\r\nJD1\t2856486.512\t512730.907\r\n\t\t\r\n"),
              (CellRows{{"交点\n编号", "坐标", ""}, {"JD1", "2856486.512", "512730.907"}, {"", "", ""}}));
}
