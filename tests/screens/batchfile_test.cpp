// The text files of batches: what is read, what becomes of the file, and files that are none.

#include "BatchFileTest.h"

#include "screens/Fs.h"
#include "support/FailingCalls.h"
#include "support/ScriptedDialogs.h"

#include <fcntl.h>
#include <filesystem>

using Lines = std::vector<BatchLine>;

TEST_F(BatchFile, LinesOfNumbers)
{
    EXPECT_EQ(read("1,2\r\n 3.5 , -4 \r\n"), (Lines{{1, 2}, {3.5, -4}}));
    EXPECT_EQ(bytes(), "1,2\r\n 3.5 , -4 \r\n");
}

TEST_F(BatchFile, BlankLinesGoFromTheFileForGood)
{
    EXPECT_EQ(read("\r\n1,2\r\n\r\n\r\n3,4\r\n\r\n"), (Lines{{1, 2}, {3, 4}}));
    EXPECT_EQ(bytes(), "1,2\r\n3,4\r\n");
}

TEST_F(BatchFile, ALineOfBlanksIsNotEmpty)
{
    EXPECT_EQ(failure("1,2\r\n \r\n3,4\r\n"), RunTimeError::TypeMismatch);
    EXPECT_EQ(bytes(), "1,2\r\n \r\n3,4\r\n");
    EXPECT_EQ(failure("1,2\r\n7\r\n3,4\r\n"), RunTimeError::Subscript) << "a line without a comma above the last one";
}

TEST_F(BatchFile, WithoutAFinalLineEndAndWithABlankLineTheLastLineIsLost)
{
    EXPECT_EQ(read("1,2\r\n\r\n3,4\r\n5,6"), (Lines{{1, 2}, {3, 4}}));
    EXPECT_EQ(bytes(), "1,2\r\n3,4\r\n");
}

TEST_F(BatchFile, WithoutAFinalLineEndAndWithoutABlankLineNothingIsRewritten)
{
    EXPECT_EQ(read("1,2\r\n3,4"), (Lines{{1, 2}, {3, 4}}));
    EXPECT_EQ(bytes(), "1,2\r\n3,4");
}

TEST_F(BatchFile, LinesBehindTheLastCommaAreIgnored) { EXPECT_EQ(read("1,2\r\nend\r\nof file\r\n"), (Lines{{1, 2}})); }

TEST_F(BatchFile, WithoutAnyCommaItFails)
{
    EXPECT_EQ(failure("1 2\r\n3 4\r\n"), RunTimeError::Subscript);
    EXPECT_EQ(failure(""), RunTimeError::Subscript);
    EXPECT_EQ(failure("\r\n\r\n"), RunTimeError::Subscript);
    EXPECT_EQ(bytes(), "") << "the clean-up has been done by then";
}

TEST_F(BatchFile, AFieldThatIsNoNumberFails)
{
    EXPECT_EQ(failure("1,2\r\n3,x\r\n"), RunTimeError::TypeMismatch);
    EXPECT_EQ(failure("1,2\r\n3,\r\n"), RunTimeError::TypeMismatch);
}

TEST_F(BatchFile, CarriageReturnsAloneAreNoLineEnds) { EXPECT_EQ(failure("1,2\r3,4\r"), RunTimeError::TypeMismatch); }

TEST_F(BatchFile, LineFeedsAloneAreNoLineEnds) { EXPECT_EQ(failure("1,2\n3,4\n"), RunTimeError::TypeMismatch); }

TEST_F(BatchFile, AMarkInFrontIsPartOfTheFirstField)
{
    EXPECT_EQ(failure("\xEF\xBB\xBF"
                      "1,2\r\n"),
              RunTimeError::TypeMismatch);
    EXPECT_EQ(bytes(), "\xEF\xBB\xBF"
                       "1,2\r\n");
}

TEST_F(BatchFile, AMillionLines)
{
    std::string text;
    for (int i = 0; i < 1'000'000; ++i) text += "1,2\r\n";
    const auto lines = read(text);
    EXPECT_EQ(lines.size(), 1'000'000u);
    EXPECT_EQ(lines.back(), (BatchLine{1, 2}));
}

TEST_F(BatchFile, AFolderIsNoFile)
{
    std::filesystem::create_directory(path);
    EXPECT_NE(fatalError([&] { ReadBatchFile(path, 2); }), 0);
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(BatchFile, AMissingFileIsNotMade)
{
    EXPECT_EQ(fatalError([&] { ReadBatchFile(path, 2); }), RunTimeError::FileNotFound);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(BatchFile, AFileWithoutBlankLinesIsWrittenAnewToo)
{
    for (const std::string text : {"1,2\r\n", "1,2\r\n3,4\r\n"}) {
        write(text);
        const std::filesystem::path other = folder.root() + "/同一个.txt";
        std::filesystem::create_hard_link(path, other);
        EXPECT_FALSE(ReadBatchFile(path, 2).empty());
        EXPECT_FALSE(std::filesystem::equivalent(path, other)) << "another file stands there now";
        EXPECT_EQ(bytes(), text);
        std::filesystem::remove(other);
    }
}

TEST_F(BatchFile, AWriteProtectedFileEndsTheRunAndStays)
{
    write("1,2\r\n\r\n");
    std::filesystem::permissions(path, std::filesystem::perms(0444));
    EXPECT_EQ(fatalError([&] { ReadBatchFile(path, 2); }), RunTimeError::PathAccess);
    EXPECT_EQ(bytes(), "1,2\r\n\r\n");
}

TEST_F(BatchFile, ThePickIsCancelled)
{
    ScriptedDialogs dialogs;
    Screen screen(kInverseColumns);
    dialogs.cancelOpen();
    EXPECT_TRUE(CalcBatchFile(2, screen.rows, [](const BatchLine&) {
        ADD_FAILURE();
        return false;
    }));
    EXPECT_EQ(dialogs.filters, (Texts{"(*.txt)|*.txt|"}));
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(BatchFile, EachLineIsHandedOverUntilTheRowsAreAbandoned)
{
    ScriptedDialogs dialogs;
    Screen screen(kInverseColumns);
    struct Impatient : ResultTable {
        using ResultTable::ResultTable;
        int asked = 0;
        bool abandoned() override { return ++asked > 2; }
    } rows(screen.grid);
    write("1,2\r\n3,4\r\n5,6\r\n");
    dialogs.open(path);
    std::vector<BatchLine> taken;
    EXPECT_TRUE(CalcBatchFile(2, rows, [&](const BatchLine& line) {
        taken.push_back(line);
        return true;
    }));
    EXPECT_EQ(taken, (std::vector<BatchLine>{{1, 2}, {3, 4}}));
    EXPECT_TRUE(rows.state.changed);
}

TEST_F(BatchFile, ARunTimeErrorOfALineEndsTheBatchInSilence)
{
    ScriptedDialogs dialogs;
    Screen screen(kInverseColumns);
    write("1,2\r\n3,4\r\n");
    dialogs.open(path);
    EXPECT_TRUE(
        CalcBatchFile(2, screen.rows, [](const BatchLine&) -> bool { throw RunTimeError(RunTimeError::Overflow); }));
    EXPECT_FALSE(screen.state.changed);
}

namespace {

/// A file that somebody takes away before it is read a second time.
struct VanishingFile : BatchFile {
    int opened = 0;
    const FailingCalls taking{[this](const Call& call) {
        if (call.name == "open" && call.path == path && (call.flags & O_ACCMODE) == O_RDONLY && ++opened == 2)
            std::filesystem::remove(path);
        return 0;
    }};

    VanishingFile() { write("1,2\r\n3,4"); }
};

}  // namespace

TEST_F(VanishingFile, BetweenTheTwoReadsEndsTheBatchWithoutAWord)
{
    shared = {};
    straightNorth();
    Screen screen(kInverseColumns);
    ScriptedDialogs dialogs;
    dialogs.open(path);
    EXPECT_TRUE(CalcFsFile(screen.rows));
    EXPECT_EQ(screen.state, ScreenState{});
    EXPECT_EQ(opened, 2);
    EXPECT_FALSE(std::filesystem::exists(path));
    shared = {};
}
