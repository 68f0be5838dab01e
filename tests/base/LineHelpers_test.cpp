#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Lines = std::vector<std::string>;

/// A file in a workspace of its own.
struct LineHelpers : testing::Test {
    ProjectFolder folder;
    const std::string path = folder.path("行.txt");

    void has(const std::string& bytes) { folder.writeBytes("行.txt", bytes); }
    std::string now() const { return folder.bytes("行.txt"); }
};

template <class Statement>
int numberOf(Statement statement)
{
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// The cleaning word for word: one whole-file rewrite for every empty piece.
void removeOneByOne(const std::string& path)
{
    const auto pieces = SplitLines(ReadBytes(path));
    int removed = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        if (pieces[i].empty()) DeleteLine(path, static_cast<std::int16_t>(int(i) + 1 - removed++));
}

}  // namespace

TEST(SplitLines, EmptyTextHasNoPieces) { EXPECT_EQ(SplitLines(""), Lines{}); }
TEST(SplitLines, FinalLineEndGivesAnEmptyPiece) { EXPECT_EQ(SplitLines("a\r\nb\r\n"), (Lines{"a", "b", ""})); }
TEST(SplitLines, LoneCarriageReturnAndLineFeedStayInTheLine)
{
    EXPECT_EQ(SplitLines("a\nb\rc\r\r\n\nd"), (Lines{"a\nb\rc\r", "\nd"}));
}
TEST(SplitFields, EmptyFieldsCount) { EXPECT_EQ(SplitFields(",a,,"), (Lines{"", "a", "", ""})); }
TEST(SplitFields, LineWithoutCommaIsOneField) { EXPECT_EQ(SplitFields("abc"), (Lines{"abc"})); }

TEST(LastCommaLine, TrailingCommaFreeLinesDoNoHarm)
{
    EXPECT_EQ(LastCommaLine({"1,2", "x", "3,4", "end", ""}), 2);
    EXPECT_EQ(LastCommaLine({"abc", ""}), -1);
    EXPECT_EQ(LastCommaLine({}), -1);
}

TEST_F(LineHelpers, ReadLineCountsFromZero)
{
    has("a\r\nb\r\n");
    EXPECT_EQ(ReadLine(path, 0), "a");
    EXPECT_EQ(ReadLine(path, 1), "b");
    EXPECT_EQ(ReadLine(path, 2), "");
}

TEST_F(LineHelpers, ReadLinePastTheEndIsSubscript)
{
    has("a\r\n");
    EXPECT_EQ(numberOf([&] { ReadLine(path, 2); }), RunTimeError::Subscript);
    EXPECT_EQ(numberOf([&] { ReadLine(path, -1); }), RunTimeError::Subscript);
    has("");
    EXPECT_EQ(numberOf([&] { ReadLine(path, 0); }), RunTimeError::Subscript);
}

TEST_F(LineHelpers, ReplaceLineCountsFromOne)
{
    has("a\r\nb\r\nc\r\n");
    ReplaceLine(path, 2, "B");
    EXPECT_EQ(now(), "a\r\nB\r\nc\r\n");
    ReplaceLine(path, 1, "A");
    ReplaceLine(path, 3, "");
    EXPECT_EQ(now(), "A\r\nB\r\n\r\n");
}

TEST_F(LineHelpers, ReplaceLineWithoutSuchALineChangesNothing)
{
    has("a\r\nb\r\n");
    for (const int lineNo : {0, -1, 3, 4, 32767}) ReplaceLine(path, static_cast<std::int16_t>(lineNo), "x");
    EXPECT_EQ(now(), "a\r\nb\r\n");
}

TEST_F(LineHelpers, InsertLineGoesBeforeTheLine)
{
    has("a\r\nb\r\n");
    InsertLine(path, 1, "first");
    InsertLine(path, 3, "x");
    EXPECT_EQ(now(), "first\r\na\r\nx\r\nb\r\n");
}

TEST_F(LineHelpers, InsertLineCannotAppend)
{
    has("a\r\n");
    InsertLine(path, 2, "x");
    InsertLine(path, 0, "x");
    EXPECT_EQ(now(), "a\r\n");
    has("");
    InsertLine(path, 1, "x");
    EXPECT_EQ(now(), "");
}

TEST_F(LineHelpers, DeleteLine)
{
    has("a\r\nb\r\nc\r\n");
    DeleteLine(path, 2);
    EXPECT_EQ(now(), "a\r\nc\r\n");
    DeleteLine(path, 3);  // past the last line
    EXPECT_EQ(now(), "a\r\nc\r\n");
    DeleteLine(path, 1);
    DeleteLine(path, 1);
    EXPECT_EQ(now(), "");
    EXPECT_TRUE(FileExists(path));
}

TEST_F(LineHelpers, EachRewriteLosesALastLineWithoutLineEnd)
{
    has("a\r\nb\r\nc");
    ReplaceLine(path, 1, "A");
    EXPECT_EQ(now(), "A\r\nb\r\n");
    has("a\r\nb");
    InsertLine(path, 1, "x");
    EXPECT_EQ(now(), "x\r\na\r\n");
    has("a\r\nb");
    DeleteLine(path, 9);
    EXPECT_EQ(now(), "a\r\n");
    has("only");
    ReplaceLine(path, 1, "x");
    EXPECT_EQ(now(), "");
}

TEST_F(LineHelpers, UntouchedLinesKeepTheirBytes)
{
    const std::string odd = "\xFF\x80 \xBD,\t\x01\n";
    has(odd + "\r\nb\r\n");
    ReplaceLine(path, 2, "\xBD\xBB");
    EXPECT_EQ(now(), odd + "\r\n\xBD\xBB\r\n");
}

TEST_F(LineHelpers, MissingFileIsAnError)
{
    EXPECT_EQ(numberOf([&] { ReadLine(path, 0); }), RunTimeError::FileNotFound);
    EXPECT_EQ(numberOf([&] { DeleteLine(path, 1); }), RunTimeError::FileNotFound);
    EXPECT_EQ(numberOf([&] { ReadBytes(folder.path("无/行.txt")); }), RunTimeError::PathNotFound);
    EXPECT_EQ(numberOf([&] { ReadBytes(folder.path("")); }), RunTimeError::PathAccess);
    EXPECT_FALSE(FileExists(path));
}

TEST_F(LineHelpers, ReadBytesCreatingMakesAMissingFile)
{
    EXPECT_EQ(ReadBytesCreating(path), "");
    EXPECT_TRUE(FileExists(path));
    EXPECT_EQ(numberOf([&] { ReadBytesCreating(folder.path("无/行.txt")); }), RunTimeError::PathNotFound);
}

TEST_F(LineHelpers, BlankLinesGoAndTheFileOfBlankLinesIsEmptied)
{
    has("\r\n\r\na,1\r\n\r\nb,2\r\n\r\n\r\n");
    RemoveBlankLines(path);
    EXPECT_EQ(now(), "a,1\r\nb,2\r\n");
    has("\r\n\r\n\r\n");
    RemoveBlankLines(path);
    EXPECT_EQ(now(), "");
}

TEST_F(LineHelpers, ALineOfBlanksIsNotBlank)
{
    has(" \r\n\t\r\n");
    RemoveBlankLines(path);
    EXPECT_EQ(now(), " \r\n\t\r\n");
}

TEST_F(LineHelpers, BlankLineRemovalLosesALastLineWithoutLineEnd)
{
    has("a,1\r\n\r\nb,2");
    RemoveBlankLines(path);
    EXPECT_EQ(now(), "a,1\r\n");
    has("a,1\r\nb,2");  // no blank line, nothing is rewritten
    RemoveBlankLines(path);
    EXPECT_EQ(now(), "a,1\r\nb,2");
}

TEST_F(LineHelpers, ALineThatGoesWithItsTextIsToldBefore)
{
    std::vector<std::string> told;
    const auto remove = [&](const char* bytes) {
        has(bytes);
        told.clear();
        RemoveBlankLines(path, [&](const std::string& before) {
            EXPECT_EQ(now(), before) << "the file still stands";
            told.push_back(before);
        });
        return told.size();
    };
    EXPECT_EQ(remove("a,1\r\n\r\nb,2"), 1u);
    EXPECT_EQ(told.front(), "a,1\r\n\r\nb,2");
    for (const char* harmless : {"a,1\r\nb,2", "a,1\r\n\r\nb,2\r\n", "a,1\r\n\r\n  ", "\r\n\r\n", ""})
        EXPECT_EQ(remove(harmless), 0u) << testing::PrintToString(harmless);
}

TEST_F(LineHelpers, BlankLineRemovalInOnePassLeavesTheBytesOfOneRewriteALine)
{
    std::mt19937 random(20240229);
    for (int round = 0; round < 150; ++round) {
        std::string bytes;
        for (auto pieces = random() % 9; pieces > 0; --pieces) {
            const char* const parts[] = {"\r\n", "\r\n", "\r\n", "x", "1,2", "\r", "\n", "\r\n\r\n"};
            bytes += parts[random() % std::size(parts)];
        }
        has(bytes);
        removeOneByOne(path);
        const auto slow = now();
        has(bytes);
        RemoveBlankLines(path);
        ASSERT_EQ(now(), slow) << testing::PrintToString(bytes);
    }
}
