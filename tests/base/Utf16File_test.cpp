#include "base/RunTimeError.h"
#include "base/Utf16File.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

namespace {

struct Utf16File : testing::Test {
    ProjectFolder folder;
    const std::string path = folder.path("XMMC.txt");

    std::string written(std::string_view text)
    {
        WriteUtf16File(path, text);
        return folder.bytes("XMMC.txt");
    }
    std::string read(const std::string& bytes)
    {
        folder.writeBytes("XMMC.txt", bytes);
        return ReadUtf16File(path);
    }
};

std::string bytes(std::initializer_list<int> values)
{
    std::string out;
    for (const int value : values) out += static_cast<char>(value);
    return out;
}

}  // namespace

TEST_F(Utf16File, EmptyTextIsTheMarkAlone) { EXPECT_EQ(written(""), bytes({0xFF, 0xFE})); }

TEST_F(Utf16File, LittleEndianBehindTheMark)
{
    EXPECT_EQ(written("A线\r\n"), bytes({0xFF, 0xFE, 'A', 0, 0xBF, 0x7E, 13, 0, 10, 0}));
    EXPECT_EQ(written("😀"), bytes({0xFF, 0xFE, 0x3D, 0xD8, 0x00, 0xDE}));
}

TEST_F(Utf16File, AnOldFileIsReplacedWhole)
{
    written("a long text before");
    EXPECT_EQ(written("b"), bytes({0xFF, 0xFE, 'b', 0}));
}

TEST_F(Utf16File, BrokenUtf8BecomesTheReplacementCharacter)
{
    for (const auto& broken : {bytes({0xFF}), bytes({0xC0}), bytes({0xE4, 0xBD}), bytes({0x80})}) {
        const auto out = written(broken);
        ASSERT_GE(out.size(), 4u);
        EXPECT_EQ(out.substr(2, 2), bytes({0xFD, 0xFF}));
    }
    EXPECT_EQ(written(bytes({0xED, 0xA0, 0x80})).substr(2, 2), bytes({0xFD, 0xFF}));        // half a surrogate pair
    EXPECT_EQ(written(bytes({0xF4, 0x90, 0x80, 0x80})).substr(2, 2), bytes({0xFD, 0xFF}));  // past the last character
    EXPECT_EQ(written(bytes({0xE0, 0x80, 0x80})).substr(2, 2), bytes({0xFD, 0xFF}));        // longer than needed
}

TEST_F(Utf16File, AFileOfNoBytesIsTheEmptyText) { EXPECT_EQ(read(""), ""); }
TEST_F(Utf16File, TheMarkAloneIsTheEmptyText) { EXPECT_EQ(read(bytes({0xFF, 0xFE})), ""); }
TEST_F(Utf16File, OneByteIsTheEmptyText) { EXPECT_EQ(read("x"), ""); }
TEST_F(Utf16File, TheFirstTwoBytesGoWhateverTheyAre) { EXPECT_EQ(read(bytes({'x', 0, 'A', 0, 'B', 0})), "AB"); }
TEST_F(Utf16File, HalfAUnitAtTheEndIsDropped) { EXPECT_EQ(read(bytes({0xFF, 0xFE, 'A', 0, 'B'})), "A"); }

TEST_F(Utf16File, FullWidthFormsBecomeNarrow)
{
    WriteUtf16File(path, "ＡＢｃ１２３，．～！\u3000￥￡中。a1");
    EXPECT_EQ(ReadUtf16File(path), "ABc123,.~! ¥£中。a1");
}

TEST_F(Utf16File, LoneSurrogatesBecomeTheReplacementCharacter)
{
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(read(bytes({0xFF, 0xFE, 0x3D, 0xD8, 'A', 0})), replacement + "A");
    EXPECT_EQ(read(bytes({0xFF, 0xFE, 0x00, 0xDE})), replacement);
    EXPECT_EQ(read(bytes({0xFF, 0xFE, 0x3D, 0xD8})), replacement);
}

TEST_F(Utf16File, WhatIsWrittenComesBack)
{
    const std::string text = "road1\r\n中文 é €\r\n😀\r\n";
    WriteUtf16File(path, text);
    EXPECT_EQ(ReadUtf16File(path), text);
}

TEST_F(Utf16File, AMissingFileIsAnError)
{
    try {
        ReadUtf16File(path);
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), RunTimeError::FileNotFound);
    }
}
