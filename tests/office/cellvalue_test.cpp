#include "office/CellValue.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(NumberOfTyped, NumberTexts)
{
    EXPECT_EQ(NumberOfTyped("12"), 12);
    EXPECT_EQ(NumberOfTyped(" 12.5 "), 12.5);
    EXPECT_EQ(NumberOfTyped("-0.25"), -0.25);
    EXPECT_EQ(NumberOfTyped("+.5"), 0.5);
    EXPECT_EQ(NumberOfTyped("5."), 5);
    EXPECT_EQ(NumberOfTyped("007"), 7);
    EXPECT_EQ(NumberOfTyped("1e3"), 1000);
    EXPECT_EQ(NumberOfTyped("1.5E-2"), 0.015);
    EXPECT_EQ(NumberOfTyped("1,234.5"), 1234.5);
    EXPECT_EQ(NumberOfTyped("-12,345,678"), -12345678);
}

TEST(NumberOfTyped, TextsStayTexts)
{
    for (const char* text :
         {"",    " ",  "-",     ".",     "+",        "K1+200.000", "45度00分00秒", "1 2",  "0x10",  "inf", "nan",
          "--1", "1e", "1e400", "12,34", "1234,567", ",123",       "1,234,56",     "１２", "1.2.3", "左"})
        EXPECT_EQ(NumberOfTyped(text), std::nullopt) << text;
}

TEST(NumberOfTyped, NegativeZeroBecomesZero)
{
    const auto value = NumberOfTyped("-0.000");
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, 0);
    EXPECT_FALSE(std::signbit(*value));
}

TEST(GeneralText, ElevenCharactersAtMost)
{
    EXPECT_EQ(GeneralText(0), "0");
    EXPECT_EQ(GeneralText(-0.0), "0");
    EXPECT_EQ(GeneralText(-1.5), "-1.5");
    EXPECT_EQ(GeneralText(3.14159265358979), "3.141592654");
    EXPECT_EQ(GeneralText(123456.789012345), "123456.789");
    EXPECT_EQ(GeneralText(1234567890.126), "1234567890");
    EXPECT_EQ(GeneralText(12345678901), "12345678901");
    EXPECT_EQ(GeneralText(123456789012), "1.23457E+11");
    EXPECT_EQ(GeneralText(1e20), "1E+20");
    EXPECT_EQ(GeneralText(-1.5e200), "-1.5E+200");
    EXPECT_EQ(GeneralText(1.0 / 3), "0.333333333");
    EXPECT_EQ(GeneralText(0.0001234), "0.0001234");
    EXPECT_EQ(GeneralText(0.00001), "0.00001");
    EXPECT_EQ(GeneralText(1.0 / 30000), "3.33333E-05");
    EXPECT_EQ(GeneralText(99999999999.9), "1E+11");
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
}

TEST(EntryText, FifteenDigits)
{
    EXPECT_EQ(EntryText(0.1), "0.1");
    EXPECT_EQ(EntryText(-1.0 / 3), "-0.333333333333333");
    EXPECT_EQ(EntryText(3456789.123), "3456789.123");
    EXPECT_EQ(EntryText(1e15), "1000000000000000");
    EXPECT_EQ(EntryText(1.25e30), "1.25E+30");
    EXPECT_EQ(EntryText(1e-12), "1E-12");
}

TEST(ShownText, FixedDecimalsTextAndGeneral)
{
    EXPECT_EQ(ShownText({}, "General"), "");
    EXPECT_EQ(ShownText("007", "@"), "007");
    EXPECT_EQ(ShownText("0.5", "0.000"), "0.5");
    EXPECT_EQ(ShownText(0.5, "0.000"), "0.500");
    EXPECT_EQ(ShownText(-0.0001, "0.000"), "0.000");
    EXPECT_EQ(ShownText(12.5, "@"), "12.5");
    EXPECT_EQ(ShownText(2.75, "0"), "3");
    EXPECT_EQ(ShownText(2.75, "yyyy-mm-dd"), "2.75");
}
