#include "RoadXml.h"
#include "base/CodePage.h"

#include "base/FileBytes.h"
#include "exchange/ExchangeError.h"
#include "exchange/TakeOver.h"
#include "project/LoadTables.h"
#include "project/Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::HasSubstr;

namespace {

class TakeOver : public testing::Test {
protected:
    TakeOver()
    {
        std::filesystem::create_directories(m_folder);
        gAppPath = m_folder;
    }
    ~TakeOver() override
    {
        gAppPath.clear();
        std::filesystem::remove_all(m_folder);
    }
    ImportedRoad road()
    {
        RoadXml xml;
        return ImportRoad(landxml::File::fromBytes(xml.text({{100, 0, 0}, {80, 300, 300}, {90, 0, 0}})), 0, {});
    }
    std::string m_folder = testing::TempDir() + "takeover-" + std::to_string(getpid());
};

}  // namespace

TEST_F(TakeOver, MakesANewProjectWithItsReport)
{
    gProject = "别的";
    EXPECT_TRUE(MakeProject("新线", road()));
    EXPECT_EQ(gProject, "别的");
    EXPECT_EQ(OpenCatalogue(), std::vector<std::string>{"新线"});
    Tables tables;
    EXPECT_FALSE(loadTables(ProjectPath("新线"), tables).cutAtGap);
    EXPECT_EQ(tables.elemCount, 5);
    EXPECT_THAT(Utf8FromCp936(ReadBytes(ProjectPath("新线") + "/导入报告.txt")), HasSubstr("第2个单元（Curve）"));
}

TEST_F(TakeOver, ANameThatIsTakenIsRefusedAndNothingChanges)
{
    OpenCatalogue();
    std::filesystem::create_directory(m_folder + "/参数文件/在盘上");
    EXPECT_FALSE(MakeProject("在盘上", road()));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder + "/参数文件/在盘上"));
    EXPECT_TRUE(MakeProject("一", road()));
    const auto before = ReadBytes(m_folder + "/参数文件/项目名称.txt");
    EXPECT_FALSE(MakeProject("一", road()));
    for (const char* name : {"", "..", "a/b", "x:", "项目名称.txt"}) EXPECT_FALSE(MakeProject(name, road())) << name;
    EXPECT_EQ(ReadBytes(m_folder + "/参数文件/项目名称.txt"), before);
}

TEST_F(TakeOver, WhatCannotBeWrittenLeavesNoFolder)
{
    OpenCatalogue();
    std::filesystem::remove(m_folder + "/参数文件/项目名称.txt");
    std::filesystem::create_directory(m_folder + "/参数文件/项目名称.txt");
    EXPECT_ANY_THROW(MakeProject("一", road()));
    EXPECT_FALSE(std::filesystem::exists(m_folder + "/参数文件/一"));
}

TEST_F(TakeOver, FindsTheAlignmentByName)
{
    RoadXml xml;
    const std::string one = "<Alignment name=\"A\" staStart=\"0\" length=\"1\"/>", two = "<Alignment name=\"B\"/>";
    EXPECT_EQ(FindAlignment(landxml::File::fromBytes(xml.wrapped(one)), ""), 0u);
    const auto both = landxml::File::fromBytes(xml.wrapped(one + two));
    EXPECT_EQ(FindAlignment(both, "B"), 1u);
    for (const char* name : {"", "C"}) try {
            FindAlignment(both, name);
            FAIL();
        } catch (const ExchangeError& error) {
            EXPECT_THAT(error.what(), HasSubstr("A、B"));
        }
    EXPECT_THROW(FindAlignment(landxml::File::fromBytes(xml.wrapped("")), ""), ExchangeError);
}

TEST_F(TakeOver, BreaksAndShiftAsTyped)
{
    const auto breaks = BreaksOfText("850,5350;900,880.5");
    ASSERT_EQ(breaks.size(), 2u);
    EXPECT_EQ(breaks[1].back, 900);
    EXPECT_EQ(breaks[1].ahead, 880.5);
    EXPECT_THROW(BreaksOfText("850"), ExchangeError);
    EXPECT_THROW(BreaksOfText("a,b"), ExchangeError);
    EXPECT_EQ(ShiftOfText("-200"), -200);
    EXPECT_THROW(ShiftOfText("1.5"), ExchangeError);
}
