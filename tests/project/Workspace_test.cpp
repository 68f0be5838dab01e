#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/Utf16File.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"
#include "support/FailingCalls.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

const Refusal kListed{{"项目名称已存在，请重新输入项目名称！", "错误", Icon::Critical}, "txtNewProjects"};
const Refusal kNoFolder{{"项目名称只能是中文、英文或者数字", "错误", Icon::Critical}, "txtNewProjects"};

Refusal noLongerListed(const std::string& name)
{
    return {{"“" + name + "”已不在项目列表中！", "注意", Icon::Exclamation}, ""};
}

/// A workspace whose catalogue lists the projects 甲 and 乙; both have a folder with a file in it.
struct Workspace : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder{{{"a.txt", "x"}}, "甲"};

    Workspace() { folder.project("乙", {{"a.txt", "x"}}); }

    std::string list() const { return WorkspacePath() + "/项目名称.txt"; }
    std::string catalogue() const { return Utf8FromCp936(ProjectFolder::bytesOf(list())); }
    void setCatalogue(const std::string& text) const { WriteBytes(list(), Cp936FromUtf8(text)); }

    /// Every file and folder below the program's folder, with the bytes of the files.
    std::map<std::string, std::string> everything() const
    {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root()))
            all[entry.path().string()] = entry.is_regular_file() ? ProjectFolder::bytesOf(entry.path().string()) : "/";
        return all;
    }
};

/// A program's folder in which nothing stands yet.
struct FreshStart : testing::Test {
    ProjectFolder folder;
    FreshStart() { fs::remove_all(WorkspacePath()); }
};

}  // namespace

TEST_F(FreshStart, WorkspaceAndEmptyCatalogueAreMade)
{
    EXPECT_EQ(OpenCatalogue(), Names{});
    EXPECT_TRUE(FolderExists(WorkspacePath()));
    EXPECT_TRUE(FileExists(WorkspacePath() + "/项目名称.txt"));
    EXPECT_EQ(ProjectFolder::bytesOf(WorkspacePath() + "/项目名称.txt"), "");
}

TEST_F(FreshStart, AProgramFolderThatIsMissingIsAnError)
{
    gAppPath += "/none";
    EXPECT_THROW(OpenCatalogue(), RunTimeError);
}

TEST_F(FreshStart, AStartThatFailsNamesTheFile)
{
    const auto said = [] {
        try {
            OpenCatalogue();
        } catch (const RunTimeError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    const std::string program = gAppPath;
    gAppPath += "/none";
    EXPECT_EQ(said(), "“" + WorkspacePath() + "”无法写入：文件夹不存在");
    gAppPath = program;
    fs::create_directories(WorkspacePath() + "/项目名称.txt");
    EXPECT_EQ(said(), "“" + WorkspacePath() + "/项目名称.txt”无法读取：读写错误");
}

TEST_F(Workspace, PathsLieBelowTheProgram)
{
    EXPECT_EQ(WorkspacePath(), gAppPath + "/参数文件");
    EXPECT_EQ(ProjectPath("甲"), gAppPath + "/参数文件/甲");
    EXPECT_EQ(ParameterFile("断链参数.txt"), gAppPath + "/参数文件/乙/断链参数.txt");
    EXPECT_EQ(PhonePath(), gAppPath + "/SJCS");
    EXPECT_EQ(PhoneProjectPath("road1"), gAppPath + "/SJCS/road1");
}

TEST_F(Workspace, AProjectFolderAnywhere)
{
    gProjectFolder = "/anywhere/road";
    EXPECT_EQ(ParameterFile("断链参数.txt"), "/anywhere/road/断链参数.txt");
    EXPECT_EQ(ProjectPath("甲"), gAppPath + "/参数文件/甲");
}

TEST_F(Workspace, CatalogueIsReadInFileOrder)
{
    setCatalogue("丙\r\n甲\r\n 乙\r\n");
    EXPECT_EQ(OpenCatalogue(), (Names{"丙", "甲", " 乙"}));
}

TEST_F(Workspace, BlankCatalogueLinesKeepTheirPlaceSoThatRowsAndLinesMatch)
{
    setCatalogue("甲\r\n\r\n乙\r\n");
    EXPECT_EQ(OpenCatalogue(), (Names{"甲", "", "乙"}));
}

TEST_F(Workspace, LastCatalogueLineWithoutLineEndIsListed)
{
    setCatalogue("甲\r\n乙");
    EXPECT_EQ(OpenCatalogue(), (Names{"甲", "乙"}));
}

TEST_F(Workspace, FoldersThatTheCatalogueDoesNotNameAreNotLookedFor)
{
    setCatalogue("甲\r\n");
    EXPECT_EQ(OpenCatalogue(), Names{"甲"});
    EXPECT_TRUE(FolderExists(ProjectPath("乙")));
}

TEST_F(Workspace, NewProjectIsAFolderALineAndFourSettings)
{
    const Shared before = shared;
    EXPECT_TRUE(CreateProject("  丙 road 3  "));
    EXPECT_EQ(gProject, "丙 road 3");
    EXPECT_EQ(catalogue(), "甲\r\n乙\r\n丙 road 3\r\n");
    EXPECT_EQ(folder.text("其他参数.txt"), "未设置\r\n未设置\r\n未设置\r\n未设置\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("")), {}), 1);
    EXPECT_EQ(differences(shared, before), "");
    EXPECT_EQ(dialogs.messages, std::vector<Msg>{});
}

TEST_F(Workspace, ListedNameIsRefusedAndStaysInGProject)
{
    const auto before = everything();
    EXPECT_EQ(CreateProject(" 甲 ").refusal, kListed);
    EXPECT_EQ(gProject, "甲");
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, ListedNameIsMetBeforeTheFolderStep)
{
    setCatalogue("a/b\r\n甲\r\n");
    EXPECT_EQ(CreateProject("a/b").refusal, kListed);
}

TEST_F(Workspace, CatalogueComparisonIsExactAndTheFolderThenDecides)
{
    ASSERT_TRUE(CreateProject("road"));
    const bool exactNames = !FolderExists(ProjectPath("ROAD"));
    if (exactNames)
        EXPECT_TRUE(CreateProject("ROAD"));
    else
        EXPECT_EQ(CreateProject("ROAD").refusal, kNoFolder);
    EXPECT_EQ(catalogue(), exactNames ? "甲\r\n乙\r\nroad\r\nROAD\r\n" : "甲\r\n乙\r\nroad\r\n");
}

TEST_F(Workspace, FolderThatExistsIsRefusedThoughTheCatalogueDoesNotNameIt)
{
    setCatalogue("甲\r\n");
    const auto before = everything();
    EXPECT_EQ(CreateProject("乙").refusal, kNoFolder);
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, EmptyNameMeetsTheWorkspaceFolder)
{
    const auto before = everything();
    EXPECT_EQ(CreateProject("").refusal, kNoFolder);
    EXPECT_EQ(CreateProject("   ").refusal, kNoFolder);
    EXPECT_EQ(gProject, "");
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, NamesThatNoFolderCanHaveAreRefusedAndStayInGProject)
{
    const auto before = everything();
    for (const std::string name : {".", "..", "a/b", "a\\b", "../x", "a:b", "what?", "*", "<a>", "a|b", "\"a\"", "a.",
                                   "CON", "nul.txt", "😀", "a\tb"}) {
        EXPECT_EQ(CreateProject(name).refusal, kNoFolder) << name;
        EXPECT_EQ(gProject, name);
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, MissingCatalogueIsAnErrorOfTheDialog)
{
    fs::remove(list());
    EXPECT_EQ(CreateProject("丙").refusal, kNoFolder);
    EXPECT_FALSE(FolderExists(ProjectPath("丙")));
}

TEST_F(Workspace, NewNameIsALineOfItsOwnBehindALineWithoutLineEnd)
{
    setCatalogue("甲\r\n乙");
    EXPECT_TRUE(CreateProject("丙"));
    EXPECT_EQ(OpenCatalogue(), (Names{"甲", "乙", "丙"}));
}

TEST_F(Workspace, DeleteTakesTheLineAndTheFolder)
{
    gProject = "甲";
    gElemCount = 5;
    const Shared before = shared;
    DeleteProject(0, "甲");
    EXPECT_EQ(catalogue(), "乙\r\n");
    EXPECT_FALSE(fs::exists(ProjectPath("甲")));
    EXPECT_TRUE(fs::exists(ProjectPath("乙")));
    EXPECT_EQ(gProject, "甲");  // also where it is the open one
    EXPECT_EQ(differences(shared, before), "");
    EXPECT_GT(dialogs.turns, 0);
}

TEST_F(Workspace, DeletingTheOnlyProjectLeavesAnEmptyCatalogue)
{
    setCatalogue("甲\r\n");
    DeleteProject(0, "甲");
    EXPECT_TRUE(FileExists(list()));
    EXPECT_EQ(catalogue(), "");
    EXPECT_EQ(OpenCatalogue(), Names{});
}

TEST_F(Workspace, CatalogueLineWithoutLineEndIsLostAtTheNextDelete)
{
    setCatalogue("甲\r\n乙\r\n丙");
    DeleteProject(0, "甲");
    EXPECT_EQ(catalogue(), "乙\r\n");
}

TEST_F(Workspace, OfEqualLinesTheOneAtTheIndexGoes)
{
    setCatalogue("甲\r\n乙\r\n甲\r\n丙\r\n");
    DeleteProject(2, "甲");
    EXPECT_EQ(catalogue(), "甲\r\n乙\r\n丙\r\n");
}

TEST_F(Workspace, AnEditedCatalogueLineDeletesNothingOutsideTheProjects)
{
    fs::create_directories(folder.root() + "/参数文件/甲/b");
    fs::create_directories(folder.root() + "/SJCS/road");
    for (const std::string line : {"..", ".", "", "甲/b", "../SJCS", "甲/../../SJCS", "/", "甲/", " "}) {
        setCatalogue(line + "\r\n甲\r\n");
        auto expected = everything();
        expected[fs::path(list()).make_preferred().string()] = Cp936FromUtf8("甲\r\n");
        DeleteProject(0, line);
        EXPECT_EQ(everything(), expected) << line;
    }
}

TEST_F(Workspace, AnEditedCatalogueLineOpensAndWritesNothing)
{
    shared.tables.elemCount = 7;
    for (const std::string line : {"..", ".", "", "乙/b", "../参数文件", "/", "乙/"}) {
        const auto files = everything();
        const Shared before = shared;
        gProject = line;
        LoadProject();
        EXPECT_NE(LookAt(ParameterFile("a.txt")), Look::Regular) << line;
        EXPECT_THROW(WriteBytes(ParameterFile("a.txt"), "x"), RunTimeError) << line;
        EXPECT_EQ(everything(), files) << line;
        EXPECT_EQ(differences(shared, before), "") << line;
    }
}

TEST_F(Workspace, AProjectWhoseFolderIsGoneLosesItsLine)
{
    fs::remove_all(ProjectPath("甲"));
    DeleteProject(0, "甲");
    EXPECT_EQ(catalogue(), "乙\r\n");
}

TEST_F(Workspace, WithoutACatalogueNothingIsListedAndNoFolderGoes)
{
    fs::remove(list());
    EXPECT_EQ(DeleteProject(0, "甲").refusal, noLongerListed("甲"));
    EXPECT_TRUE(fs::exists(ProjectPath("甲")));
    EXPECT_EQ(OpenCatalogue(), Names{});
    EXPECT_TRUE(FileExists(list()));
}

TEST_F(Workspace, ADeletionAfterAnotherCopysTakesItsOwnProjectsLine)
{
    setCatalogue("丙\r\n甲\r\n乙\r\n");
    DeleteProject(0, "丙");               // by the other copy, while this one shows 甲 in row 1
    EXPECT_TRUE(DeleteProject(1, "甲"));  // where 乙 stands by now
    EXPECT_EQ(catalogue(), "乙\r\n");
    EXPECT_FALSE(fs::exists(ProjectPath("甲")));
    EXPECT_TRUE(fs::exists(ProjectPath("乙")));

    setCatalogue("丁\r\n戊\r\n乙\r\n己\r\n");  // lines that came before
    EXPECT_TRUE(DeleteProject(0, "乙"));
    EXPECT_EQ(catalogue(), "丁\r\n戊\r\n己\r\n");
}

TEST_F(Workspace, AProjectThatAnotherCopyDeletedAndMadeAgainUnlistedKeepsItsFolder)
{
    setCatalogue("乙\r\n");
    const auto before = everything();
    EXPECT_EQ(DeleteProject(0, "甲").refusal, noLongerListed("甲"));
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, AFullDiskKeepsListLineAndFolder)
{
    const auto before = everything();
    {
        const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
        try {
            DeleteProject(0, "甲");
            FAIL() << "the list was written";
        } catch (const FileError& error) {
            EXPECT_EQ(error.text(), "“项目名称.txt”无法写入！");
            EXPECT_EQ(error.reason(), "磁盘已满");
        }
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(Workspace, AFolderThatCannotBeDeletedKeepsItsLine)
{
    const auto before = everything();
    {
        const FailingCalls readOnly([](const Call& call) { return call.name == "remove" ? EROFS : 0; });
        EXPECT_THROW(DeleteProject(0, "甲"), FileError);
    }
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(DeleteProject(0, "甲"));
    EXPECT_EQ(catalogue(), "乙\r\n");
}

TEST_F(Workspace, NewProjectOnADiskThatFillsUpIsShownAsItIsListed)
{
    std::string shown;
    const fs::path path = ProjectPath("丙");
    const FailingCalls full([&](const Call& call) {
        return call.name == "open" && fs::path(call.path).parent_path() == path && call.flags & O_CREAT ? ENOSPC : 0;
    });
    const auto outcome = CreateProject("丙", [&] { shown = catalogue(); });
    EXPECT_EQ(outcome.refusal, kNoFolder);  // these words alone
    EXPECT_EQ(shown, "甲\r\n乙\r\n丙\r\n") << "shown after the catalogue, before the settings";
    EXPECT_EQ(catalogue(), shown);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(Workspace, NewProjectWhoseLineCannotBeWrittenIsNotShown)
{
    const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
    EXPECT_EQ(CreateProject("丙", [] { FAIL() << "not listed"; }).refusal, kNoFolder);
    EXPECT_EQ(catalogue(), "甲\r\n乙\r\n");
}

TEST_F(Workspace, AFolderNeverTakesThePlaceOfAList)
{
    for (const std::string name : {"XMMC.txt", "xmmc.txt", "Xmmc.TXT"}) {
        EXPECT_FALSE(IsPhoneProjectName(name)) << name;
        EXPECT_NE(PhoneProjectPath(name), PhonePath() + "/" + name);
    }
    EXPECT_TRUE(IsPhoneProjectName("XMMC"));
    EXPECT_TRUE(IsPhoneProjectName("XMMC.txt1"));
    for (const std::string name : {"项目名称.txt", "项目名称.TXT"}) {
        EXPECT_EQ(CreateProject(name).refusal, kNoFolder) << name;
        EXPECT_NE(ProjectPath(name), WorkspacePath() + "/" + name);
    }
}

TEST_F(Workspace, PhoneCatalogueIsEmptyWhereItsFileIsMissing) { EXPECT_EQ(ReadPhoneCatalogue(), Names{}); }

TEST_F(Workspace, PhoneCatalogueIsThePiecesButTheLast)
{
    fs::create_directories(PhonePath());
    WriteUtf16File(PhonePath() + "/XMMC.txt", "road1\r\nroad2\r\n");
    EXPECT_EQ(ReadPhoneCatalogue(), (Names{"road1", "road2"}));
    WriteUtf16File(PhonePath() + "/XMMC.txt", "road1\r\nroad2");
    EXPECT_EQ(ReadPhoneCatalogue(), Names{"road1"});
    WriteBytes(PhonePath() + "/XMMC.txt", "");
    EXPECT_EQ(ReadPhoneCatalogue(), Names{});
}

TEST(FolderName, WhatEveryPlatformCanMake)
{
    for (const std::string name : {"a", "项目一", "road 3", "K12+345", "a.b", ".hidden", " leading", "COM", "COM10",
                                   "console", "nullable", "LPT", "a-b_c(1)", "€", "高速公路A合同段"})
        EXPECT_TRUE(IsFolderName(name)) << name;
}

TEST(FolderName, WhatSomePlatformCannotMake)
{
    for (const std::string name :
         {"",       ".",       "..",   "...",     "a.",      "a ",       "a/b",  "a\\b",  "a:b",
          "a*b",    "a?b",     "a\"b", "a<b",     "a>b",     "a|b",      "a\nb", "a\x01", "a\x7F",
          "😀",      "CON",     "con",  "Prn",     "AUX",     "nul",      "COM1", "com9",  "LPT1",
          "CONIN$", "conout$", "lpt9", "con.txt", "NUL.a.b", "con .txt", "\xFF", "Ω\xFF"})
        EXPECT_FALSE(IsFolderName(name)) << name;
    EXPECT_FALSE(IsFolderName(std::string("a\0b", 3)));
}
