// What a load does to the files of a project: made, cleaned, upgraded, or not there.

#include "SmallRoad.h"
#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "project/LoadProject.h"
#include "support/FailingCalls.h"
#include "support/SharedDiff.h"

#include <filesystem>
#include <map>
#include <tuple>

namespace {

const std::string kUnset = "未设置\r\n";

struct LoadFiles : LoadTest {};

}  // namespace

TEST_F(LoadFiles, MissingFilesAreCreatedEmpty)
{
    const Loaded loaded = LoadProject();
    for (const auto& file : kTables) {
        EXPECT_TRUE(folder.has(file)) << file;
        EXPECT_EQ(folder.bytes(file), "") << file;
    }
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
    EXPECT_FALSE(loaded.cutAtGap);
}

TEST_F(LoadFiles, MissingSettingsGainOneLineALoad)
{
    for (const auto* expected : {"未设置\r\n", "未设置\r\n未设置\r\n", "未设置\r\n未设置\r\n未设置\r\n"}) {
        LoadProject();
        EXPECT_EQ(folder.text("其他参数.txt"), expected);
    }
}

TEST_F(LoadFiles, FourSettingsBecomeFiveAndFiveStay)
{
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n未设置\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n未设置\r\n");
    folder.write("其他参数.txt", "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n");
}

TEST_F(LoadFiles, SettingsLineIsAppendedBehindAFifthLineWithoutLineEnd)
{
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n12未设置\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n12未设置\r\n");
}

TEST_F(LoadFiles, BlankSettingsLinesGoBeforeTheFifthIsCounted)
{
    folder.write("其他参数.txt", "交点法\r\n\r\n线性\r\n\r\n2\r\n3\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n" + kUnset);
    EXPECT_EQ(gCgType, "0");
}

TEST_F(LoadFiles, BlankLinesGoFromEveryFileAndItsRowsLoad)
{
    for (const auto& file : kFiles) folder.write(file, "\r\n1,2\r\n\r\n\r\n3,4\r\n\r\n");
    LoadProject();
    for (const auto& file : kTables) EXPECT_EQ(folder.text(file), "1,2\r\n3,4\r\n") << file;
    EXPECT_EQ(folder.text("其他参数.txt"), "1,2\r\n3,4\r\n" + kUnset);
    EXPECT_EQ(gDxdCount, 1);
    EXPECT_EQ(gElemCount, 2);
    EXPECT_EQ(gSqxCount, 1);
}

TEST_F(LoadFiles, SlopeFilesAreLeftAlone)
{
    for (const auto* file : {"左幅填方参数.txt", "右幅填方参数.txt", "左幅挖方参数.txt", "右幅挖方参数.txt"})
        folder.write(file, "\r\n1\r\n\r\n2");
    LoadProject();
    for (const auto* file : {"左幅填方参数.txt", "右幅填方参数.txt", "左幅挖方参数.txt", "右幅挖方参数.txt"})
        EXPECT_EQ(folder.text(file), "\r\n1\r\n\r\n2");
}

TEST_F(LoadFiles, FileOfLineEndsAloneIsEmptiedAndHasNoRows)
{
    for (const auto& file : kTables) folder.write(file, "\r\n\r\n\r\n");
    const Shared before = shared;
    LoadProject();
    for (const auto& file : kTables) EXPECT_EQ(folder.bytes(file), "") << file;
    shared.tables.cgType = before.tables.cgType;
    EXPECT_EQ(differences(shared, before), "");
}

TEST_F(LoadFiles, LastLineWithoutLineEndLoads)
{
    folder.write("导线点参数.txt", "A,1,2,\r\nB,3,4,");
    LoadProject();
    EXPECT_EQ(gDxdName, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(folder.text("导线点参数.txt"), "A,1,2,\r\nB,3,4,");
}

TEST_F(LoadFiles, LastLineWithoutLineEndIsLostToABlankLine)
{
    folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,");
    LoadProject();
    EXPECT_EQ(gDxdName, std::vector<std::string>{"A"});
    EXPECT_EQ(folder.text("导线点参数.txt"), "A,1,2,\r\n");
}

TEST_F(LoadFiles, CleanFilesAreNotWritten)
{
    files(kRoad);
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (const auto& file : kFiles) std::filesystem::last_write_time(folder.path(file), longAgo);
    const auto kept = std::filesystem::last_write_time(folder.path(kFiles[0]));  // some systems keep whole seconds
    EXPECT_LT(kept - longAgo, std::chrono::seconds(1));
    EXPECT_LT(longAgo - kept, std::chrono::seconds(1));
    LoadProject();
    for (const auto& file : kFiles) EXPECT_EQ(std::filesystem::last_write_time(folder.path(file)), kept) << file;
}

TEST_F(LoadFiles, FolderOfTheProjectIsMissing)
{
    std::filesystem::remove_all(folder.path(""));
    const Shared before = shared;
    LoadProject();
    EXPECT_EQ(differences(shared, before), "");
    EXPECT_FALSE(FolderExists(folder.path("")));
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(LoadFiles, AFullDiskLeavesTheFilesAndLoadsThem)
{
    files(kRoad);
    folder.write("其他参数.txt",
                 "交点法");  // no line can be added, so there is no second piece: neither model nor form
    folder.write("导线点参数.txt", "A,1,2,\r\n\r\nB,3,4,\r\n");
    gCgType = "9";
    {
        const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
        LoadProject();
    }
    EXPECT_EQ(gCgType, "9");
    EXPECT_EQ(gElemCount, 2);
    EXPECT_EQ(gDxdName, (std::vector<std::string>{"A", "", "B"}));
    EXPECT_EQ(folder.text("其他参数.txt"), "交点法");
    EXPECT_EQ(folder.text("导线点参数.txt"), "A,1,2,\r\n\r\nB,3,4,\r\n");
}

TEST_F(LoadFiles, AFolderInPlaceOfAFileIsAFileThatCannotBeRead)
{
    files(kRoad);
    std::filesystem::remove(folder.path("导线点参数.txt"));
    std::filesystem::create_directory(folder.path("导线点参数.txt"));
    LoadProject();
    EXPECT_EQ(gDxdCount, 0);
    EXPECT_EQ(gDxdName, std::vector<std::string>{});
    EXPECT_EQ(gElemCount, 2);
}

TEST_F(LoadFiles, FolderAnywhere)
{
    files(kRoad);
    gProjectFolder = folder.root() + "/elsewhere";
    std::filesystem::create_directory(gProjectFolder);
    WriteBytes(gProjectFolder + "/导线点参数.txt", "E,8,9\r\n");
    LoadProject();
    EXPECT_EQ(gDxdName, std::vector<std::string>{"E"});
    EXPECT_EQ(gElemCount, 0);
}

TEST_F(LoadFiles, AsManyRowsAsACountHolds)
{
    std::string text;
    for (int i = 0; i < 32767; ++i) text += "P,1,2,\r\n";
    folder.write("导线点参数.txt", text);
    LoadProject();
    EXPECT_EQ(gDxdCount, 32766);
    EXPECT_EQ(gDxdX.back(), 1);
}

TEST_F(LoadFiles, MoreLinesThanACountHoldsLoadTheFirstAlone)
{
    std::string points, blocks;
    for (int i = 0; i < 32769; ++i) {
        points += "P,1,2,\r\n";
        blocks += "5,6,1,2,3,4,5\r\n";
    }
    files({{"导线点参数.txt", points}, {"平曲线参数.txt", blocks}});
    LoadProject();
    EXPECT_EQ(gDxdCount, 0);
    EXPECT_EQ(gDxdX, std::vector<double>{1});
    EXPECT_EQ(gElemCount, 1);
    EXPECT_EQ(gElemLc, (std::vector<double>{5, 6 + 0.0001}));
}
