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
    EXPECT_EQ(RowsOfTabText("\"open"), CellRows{{"open"}});
    EXPECT_EQ(RowsOfTabText("\"a\"b\tc"), (CellRows{{"ab", "c"}}));
}
