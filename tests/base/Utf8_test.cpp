#include "base/Utf8.h"

#include <gtest/gtest.h>

TEST(Utf16, OneToFourBytes)
{
    EXPECT_EQ(Utf16(""), u"");
    EXPECT_EQ(Utf16("aé桩𠀀z"), u"aé桩𠀀z");
    EXPECT_EQ(Utf16(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
    EXPECT_EQ(Utf16("\uFFFD\uE000\uD7FF\U0010FFFF"), u"\uFFFD\uE000\uD7FF\U0010FFFF");
}

TEST(Utf16, BytesOfNoCharacterAreReplaced)
{
    EXPECT_EQ(Utf16("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(Utf16("\xE6\xA1"), u"\uFFFD");          // cut short
    EXPECT_EQ(Utf16("\xE6z"), u"\uFFFDz");            // the next character stays
    EXPECT_EQ(Utf16("\xC0\xAF"), u"\uFFFD");          // longer than need be
    EXPECT_EQ(Utf16("\xED\xA0\x80"), u"\uFFFD");      // half a surrogate pair
    EXPECT_EQ(Utf16("\xF4\x90\x80\x80"), u"\uFFFD");  // past the last character
    EXPECT_EQ(Utf16("\xFF\xFE"), u"\uFFFD\uFFFD");
}
