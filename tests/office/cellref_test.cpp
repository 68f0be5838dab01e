#include "office/CellRef.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

TEST(CellRef, LettersInEitherCase)
{
    EXPECT_EQ(CellRef("b7"), CellRef(7, 2));
    EXPECT_EQ(CellRef("B7"), CellRef(7, 2));
    EXPECT_EQ(CellRef("aA10"), CellRef(10, 27));
    EXPECT_EQ(CellRef(std::string("IV65536")), CellRef(65536, 256));
}

TEST(CellRef, TextsThatAreNoAddress)
{
    for (const char* text : {"", "7", "b", "7b", "b-7", "b7x", " b7", "b 7", "$b$7", "b7:", "单元格"})
        EXPECT_THROW(CellRef{text}, std::invalid_argument) << text;
}

TEST(CellRef, PlacesBeyondTheSheet)
{
    for (const char* text : {"a0", "a65537", "iw1", "zz1", "aaa1", "a99999999999999999999"})
        EXPECT_THROW(CellRef{text}, std::out_of_range) << text;
    EXPECT_THROW(CellRef(0, 1), std::out_of_range);
    EXPECT_THROW(CellRef(1, 257), std::out_of_range);
}

TEST(CellRef, ColumnLettersCountWithoutZero)
{
    EXPECT_EQ(ColumnLetters(1), "A");
    EXPECT_EQ(ColumnLetters(26), "Z");
    EXPECT_EQ(ColumnLetters(27), "AA");
    EXPECT_EQ(ColumnLetters(256), "IV");
    for (int col = 1; col <= kSheetCols; ++col) EXPECT_EQ(CellRef(ColumnLetters(col) + "3"), CellRef(3, col));
}

TEST(CellRange, CornersInAnyOrderAndCase)
{
    const CellRange block("A2:j10");
    EXPECT_EQ(block.first, CellRef(2, 1));
    EXPECT_EQ(block.last, CellRef(10, 10));
    EXPECT_EQ(CellRange("j10:A2"), block);
    EXPECT_EQ(CellRange("j2:a10"), block);
    EXPECT_EQ(block.rows(), 9);
    EXPECT_EQ(block.cols(), 10);
    EXPECT_EQ(block.address(), "A2:J10");
    EXPECT_EQ(CellRange("c3").address(), "C3");
}

TEST(CellRange, WholeColumns)
{
    EXPECT_EQ(CellRange("A:A"), CellRange(1, 1, 65536, 1));
    EXPECT_EQ(CellRange("b:d"), CellRange(1, 2, 65536, 4));
    EXPECT_THROW(CellRange(":"), std::invalid_argument);
    EXPECT_THROW(CellRange("a:b3"), std::invalid_argument);
}

TEST(CellRange, MeetsAndContains)
{
    const CellRange block("b2:c3");
    EXPECT_TRUE(block.contains("c2"));
    EXPECT_FALSE(block.contains("d2"));
    EXPECT_TRUE(block.meets("c3:d9"));
    EXPECT_FALSE(block.meets("a4:d9"));
}
