// Text files of batches that their user may not read, and folders that they may not write.

#include "BatchFileTest.h"

#include "screens/Fs.h"
#include "support/OrdinaryUser.h"
#include "support/ScriptedDialogs.h"

#include <filesystem>

TEST_F(BatchFile, AnUnreadableFileFailsAndStaysAsItIs)
{
    write("1,2\r\n\r\n");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    {
        const OrdinaryUser user;
        EXPECT_EQ(fatalError([&] { ReadBatchFile(path, 2); }), RunTimeError::PathAccess);
    }
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    EXPECT_EQ(bytes(), "1,2\r\n\r\n");
}

TEST_F(BatchFile, AFileThatCannotBeCleanedFailsAndIsNotTorn)
{
    write("1,2\r\n\r\n3,4\r\n");
    std::filesystem::permissions(folder.root(), std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_EQ(fatalError([&] { ReadBatchFile(path, 2); }), RunTimeError::PathAccess);
    }
    std::filesystem::permissions(folder.root(), std::filesystem::perms(0755));
    EXPECT_EQ(bytes(), "1,2\r\n\r\n3,4\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.root()), {}), 2) << "and nothing lies beside it";
}

TEST_F(BatchFile, AFileInAReadOnlyFolderEndsTheRunWithoutAWord)
{
    shared = {};
    straightNorth();
    Screen screen(kInverseColumns);
    ScriptedDialogs dialogs;
    dialogs.open(path).open(path);
    for (const std::string text : {"1,2\r\n", "1,2"}) {
        write(text);
        std::filesystem::permissions(folder.root(), std::filesystem::perms(0555));
        {
            const OrdinaryUser user;
            EXPECT_TRUE(CalcFsFile(screen.rows));
        }
        std::filesystem::permissions(folder.root(), std::filesystem::perms(0755));
        // A file without CR LF at its end and without a blank line has nothing to delete: it is read.
        EXPECT_EQ(screen.state.changed, !text.ends_with("\r\n"));
        EXPECT_EQ(bytes(), text);
    }
    shared = {};
}
