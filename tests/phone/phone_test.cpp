#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/Utf16File.h"
#include "phone/Phone.h"

#include "base/FileError.h"
#include "base/RunTimeError.h"
#include "support/FailingCalls.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <random>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Msg kDone{"转换完成，请按帮助中的说明复制参数到手机！", "完成", Icon::Information};
const Msg kEmptyName{"项目名称不能为空！", "注意", Icon::Exclamation};
const Msg kOverwrite{"项目已存在！是否覆盖？", "注意", Icon::Question, Msg::YesNo, Msg::No};
const Msg kNoFolder{"文件夹无法建立，请输入一个英文的项目名称！", "注意", Icon::Exclamation};
const std::string kMark = "\xFF\xFE";

/// What another program makes of a file: its text in UTF-8, or in code page 936.
std::string iconv(const std::string& from, const std::string& to, const std::string& path)
{
    const auto command = "iconv -f " + from + " -t " + to + " '" + path + "'";
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 4096> chunk;
    while (const auto read = fread(chunk.data(), 1, chunk.size(), pipe)) text.append(chunk.data(), read);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return text;
}

/// ASCII as the bytes of a UTF-16 file.
std::string utf16(const std::string& ascii)
{
    auto bytes = kMark;
    for (const char c : ascii) bytes += {c, '\0'};
    return bytes;
}

class Phone : public testing::Test {
protected:
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n0\r\n"},
                         {"导线点参数.txt", "导线点1,3000.123,4000.456,\r\n"},
                         {"平曲线参数.txt", "起点,1000,2000,0,0,0,0,0,\r\nJD1,1500,2100,30,30,200,0,0,\r\n"},
                         {"左幅填方参数.txt", "0,8,1.5,2,0,0,0,0,\r\n"}};

    static std::string sjcs(const std::string& path) { return PhonePath() + "/" + path; }
    static std::string bytes(const std::string& path) { return ProjectFolder::bytesOf(sjcs(path)); }
    static std::vector<std::string> folders()
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(PhonePath()))
            if (entry.is_directory()) names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

}  // namespace

TEST_F(Phone, FilesAndTheirShortNames)
{
    const std::array<std::pair<std::string, std::string>, 11> expected{{{"其他参数.txt", "QTCS.txt"},
                                                                        {"导线点参数.txt", "DXD.txt"},
                                                                        {"平曲线参数.txt", "PQX.txt"},
                                                                        {"竖曲线参数.txt", "SQX.txt"},
                                                                        {"超高参数.txt", "CG.txt"},
                                                                        {"超高宽度参数.txt", "CGKD.txt"},
                                                                        {"断链参数.txt", "DL.txt"},
                                                                        {"左幅填方参数.txt", "ZFTF.txt"},
                                                                        {"右幅填方参数.txt", "YFTF.txt"},
                                                                        {"左幅挖方参数.txt", "ZFWF.txt"},
                                                                        {"右幅挖方参数.txt", "YFWF.txt"}}};
    ASSERT_EQ(kPhoneFiles.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(kPhoneFiles[i].source, expected[i].first);
        EXPECT_EQ(kPhoneFiles[i].target, expected[i].second);
    }
}

TEST_F(Phone, FirstExportMakesFolderListAndFiles)
{
    EXPECT_EQ(ExportForPhone("  road1 "), PhoneExport::Added);
    EXPECT_EQ(bytes("XMMC.txt"), utf16("road1\r\n"));
    EXPECT_THAT(folders(), ElementsAre("road1"));
    EXPECT_THAT(dialogs.messages, ElementsAre(kDone));
    EXPECT_EQ(std::distance(fs::directory_iterator(sjcs("road1")), {}), 11);
}

TEST_F(Phone, EachTargetIsTheSameTextAsItsSource)
{
    for (const char* sample : {"示例一", "示例二"}) {
        gProject = sample;
        fs::copy(std::string(VM_SOURCE_DIR "/samples/") + sample, ProjectPath(sample));
        const std::string name = sample == std::string("示例一") ? "one" : "two";
        ASSERT_EQ(ExportForPhone(name), PhoneExport::Added);
        for (const auto& file : kPhoneFiles) {
            const auto target = sjcs(name + "/" + std::string(file.target));
            EXPECT_TRUE(ProjectFolder::bytesOf(target).starts_with(kMark)) << file.target;
            EXPECT_EQ(iconv("UTF-16", "GBK", target), ProjectFolder::bytesOf(ParameterFile(file.source)))
                << file.target;
        }
    }
}

TEST_F(Phone, UnsetLinesAndZeroPaddingTravel)
{
    ASSERT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(iconv("UTF-16", "UTF-8", sjcs("a/QTCS.txt")), "交点法\r\n线性\r\n未设置\r\n未设置\r\n0\r\n");
    EXPECT_EQ(iconv("UTF-16", "UTF-8", sjcs("a/ZFTF.txt")), "0,8,1.5,2,0,0,0,0,\r\n");
}

TEST_F(Phone, FullWidthFormsOfAParameterFileStayFullWidth)
{
    folder.write("导线点参数.txt", "ＧＰＳ１,1,2,\r\n");
    ASSERT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(iconv("UTF-16", "UTF-8", sjcs("a/DXD.txt")), "ＧＰＳ１,1,2,\r\n");
}

TEST_F(Phone, EmptySourceGivesTheMarkAlone)
{
    folder.write("超高参数.txt", "");
    ASSERT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(bytes("a/CG.txt"), kMark);
}

TEST_F(Phone, MissingSourceIsCreatedEmpty)
{
    ASSERT_FALSE(folder.has("断链参数.txt"));
    ASSERT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_TRUE(folder.has("断链参数.txt"));
    EXPECT_EQ(folder.bytes("断链参数.txt"), "");
    EXPECT_EQ(bytes("a/DL.txt"), kMark);
}

TEST_F(Phone, EmptyNameIsRefusedBeforeAnythingIsMade)
{
    EXPECT_EQ(ExportForPhone("   "), PhoneExport::Stopped);
    EXPECT_THAT(dialogs.messages, ElementsAre(kEmptyName));
    EXPECT_FALSE(FolderExists(PhonePath()));
}

TEST_F(Phone, SecondProjectIsAppendedToTheList)
{
    ExportForPhone("b");
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(bytes("XMMC.txt"), utf16("b\r\na\r\n"));
}

TEST_F(Phone, NamesThatDifferInCaseAreTwoProjects)
{
    ExportForPhone("abc");
    EXPECT_EQ(ExportForPhone("ABC"), PhoneExport::Added);
    EXPECT_EQ(bytes("XMMC.txt"), utf16("abc\r\nABC\r\n"));
}

TEST_F(Phone, OverwritingReplacesTheFilesAndKeepsTheList)
{
    ExportForPhone("a");
    folder.write("断链参数.txt", "100,120\r\n");
    dialogs.messages.clear();
    dialogs.yes();
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Replaced);
    EXPECT_THAT(dialogs.messages, ElementsAre(kOverwrite, kDone));
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\n"));
    EXPECT_EQ(bytes("a/DL.txt"), utf16("100,120\r\n"));
}

TEST_F(Phone, DecliningKeepsTheOldFiles)
{
    ExportForPhone("a");
    folder.write("断链参数.txt", "100,120\r\n");
    dialogs.messages.clear();
    dialogs.no();
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Declined);
    EXPECT_THAT(dialogs.messages, ElementsAre(kOverwrite));
    EXPECT_EQ(bytes("a/DL.txt"), kMark);
}

TEST_F(Phone, DecliningLeavesTheFolderMadeBeforeTheQuestion)
{
    ExportForPhone("a");
    fs::remove_all(sjcs("a"));
    dialogs.no();
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Declined);
    EXPECT_TRUE(FolderExists(sjcs("a")));
    EXPECT_TRUE(fs::is_empty(sjcs("a")));
}

TEST_F(Phone, ListOfNoBytesTakesAFirstLine)
{
    fs::create_directory(PhonePath());
    WriteBytes(sjcs("XMMC.txt"), "");
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\n"));
}

TEST_F(Phone, WhatFollowsTheLastLineEndOfTheListIsNoNameAndTakesTheNewOne)
{
    fs::create_directory(PhonePath());
    WriteUtf16File(sjcs("XMMC.txt"), "a\r\nb");
    EXPECT_EQ(ExportForPhone("b"), PhoneExport::Added);
    EXPECT_THAT(dialogs.messages, ElementsAre(kDone));
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\nbb\r\n"));
}

TEST_F(Phone, NamesStayInsideTheExportFolder)
{
    for (const char* name : {"..", ".", "a/b", "a\\b", "../x", "CON", "a\tb", "a."}) {
        dialogs.messages.clear();
        EXPECT_EQ(ExportForPhone(name), PhoneExport::Stopped) << name;
        EXPECT_THAT(dialogs.messages, ElementsAre(kNoFolder)) << name;
    }
    EXPECT_FALSE(FolderExists(PhonePath()));
}

TEST_F(Phone, FolderThatCannotBeMadeIsAMessage)
{
    fs::create_directory(PhonePath());
    WriteBytes(sjcs("a"), "a file");
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Stopped);
    EXPECT_THAT(dialogs.messages, ElementsAre(kNoFolder));
    EXPECT_FALSE(FileExists(sjcs("XMMC.txt")));
}

TEST_F(Phone, ProjectWhoseFolderIsGoneGoesTheUsualWay)
{
    gProject = "没有";
    EXPECT_EQ(ExportForPhone(" "), PhoneExport::Stopped);
    EXPECT_THAT(dialogs.messages, ElementsAre(kEmptyName));
    for (const char* project : {"没有", "..", ""}) {
        gProject = project;
        dialogs.messages.clear();
        EXPECT_EQ(ExportForPhone("a"), PhoneExport::Stopped);
        const std::string failed = project == std::string("没有") ? "写入" : "读取";  // made if missing, or no folder's
        EXPECT_THAT(dialogs.messages,
                    ElementsAre(Msg{"“其他参数.txt”无法" + failed + "！\n文件夹不存在", "错误", Icon::Exclamation}));
        EXPECT_FALSE(FolderExists(PhonePath())) << "what was made on the way";
    }
    gProject = "测试";
    ExportForPhone("a");
    gProject = "没有";
    dialogs.messages.clear();
    dialogs.no();
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Declined);  // the question comes before the files
    EXPECT_THAT(dialogs.messages, ElementsAre(kOverwrite));
}

TEST_F(Phone, ANameThatIsTheListsOwnIsAFolderThatCannotBeMade)
{
    for (const char* name : {"XMMC.txt", "xmmc.TXT", " XMMC.txt "}) {
        dialogs.messages.clear();
        EXPECT_EQ(ExportForPhone(name), PhoneExport::Stopped) << name;
        EXPECT_THAT(dialogs.messages, ElementsAre(kNoFolder)) << name;
    }
    EXPECT_FALSE(FolderExists(PhonePath()));
    EXPECT_EQ(ExportForPhone("XMMC"), PhoneExport::Added);
}

namespace {

/// Everything below the program's folder, with the bytes of the files.
std::map<std::string, std::string> everything()
{
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(gAppPath))
        all[entry.path().string()] = entry.is_regular_file() ? ProjectFolder::bytesOf(entry.path().string()) : "/";
    return all;
}

/// The n-th file that is opened for writing finds a full disk; counts on.
struct FullAt {
    int left;
    int operator()(const Call& call) { return call.name == "open" && call.flags & O_CREAT && left-- == 0 ? ENOSPC : 0; }
};

}  // namespace

TEST_F(Phone, AConversionThatFailsHalfWayLeavesEverythingAsItWas)
{
    ASSERT_EQ(ExportForPhone("old"), PhoneExport::Added);
    folder.write("断链参数.txt", "100,120\r\n");
    folder.remove("超高参数.txt");  // made empty on the way
    const auto before = everything();
    for (const std::string name : {"new", "old"}) {
        int n = 0;
        for (bool failed = true; failed && n < 40; ++n) {
            dialogs.messages.clear();
            if (name == "old") dialogs.yes();
            auto done = PhoneExport::Added;
            {
                const FailingCalls full(FullAt{n});
                done = ExportForPhone(name);
            }
            failed = done == PhoneExport::Stopped;
            if (!failed) break;
            EXPECT_EQ(everything(), before) << name << ", file " << n;
            const std::size_t questions = name == "old";
            ASSERT_EQ(dialogs.messages.size(), questions + 1) << "one box: " << name << ", file " << n;
            EXPECT_EQ(dialogs.last().title, "错误");
            EXPECT_EQ(dialogs.last().icon, Icon::Exclamation);
            EXPECT_TRUE(dialogs.last().text.ends_with("”无法写入！\n磁盘已满")) << dialogs.last().text;
        }
        EXPECT_EQ(n, name == "new" ? 13 : 12) << "the list of a new one, a source that was missing, eleven files";
        if (name == "new") {
            RemovePhoneProject(1, 2, "new");
            folder.remove("超高参数.txt");
        }
    }
}

TEST_F(Phone, AFailedConversionLeavesALinesPlaceFree)
{
    {
        const FailingCalls full(FullAt{5});
        EXPECT_EQ(ExportForPhone("a"), PhoneExport::Stopped);
    }
    EXPECT_FALSE(FolderExists(PhonePath()));
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Added);
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\n"));
}

TEST_F(Phone, FolderThatADiskRefusesIsNamed)
{
    const FailingCalls readOnly([](const Call& call) { return call.name == "mkdir" ? EROFS : 0; });
    EXPECT_EQ(ExportForPhone("a"), PhoneExport::Stopped);
    EXPECT_THAT(dialogs.messages, ElementsAre(Msg{"“SJCS”无法写入！\n没有写入权限", "错误", Icon::Exclamation}));
}

TEST_F(Phone, RemovingFromAListThatCannotBeWrittenKeepsLineAndFolder)
{
    ExportForPhone("a");
    const auto before = everything();
    fs::permissions(sjcs("XMMC.txt"), fs::perms::owner_read);
    EXPECT_THROW(RemovePhoneProject(0, 1, "a"), FileError);
    fs::permissions(sjcs("XMMC.txt"), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(everything(), before);
}

TEST_F(Phone, RemovingAfterAnotherCopysRemovalTakesItsOwnLine)
{
    for (const char* name : {"a", "b", "c"}) ExportForPhone(name);
    EXPECT_TRUE(RemovePhoneProject(0, 3, "a"));  // by the other copy, while this one shows all three
    EXPECT_TRUE(RemovePhoneProject(1, 3, "b"));
    EXPECT_EQ(bytes("XMMC.txt"), utf16("c\r\n"));
    EXPECT_THAT(folders(), ElementsAre("c"));
    WriteUtf16File(sjcs("XMMC.txt"), "c\r\nd\r\n");
    const auto before = everything();
    EXPECT_EQ(RemovePhoneProject(0, 2, "a").refusal,
              (Refusal{{"“a”已不在项目列表中！", "注意", Icon::Exclamation}, ""}));
    EXPECT_EQ(everything(), before);
}

TEST_F(Phone, RemovingTheLastOneLeavesAListOfNoBytes)
{
    ExportForPhone("a");
    RemovePhoneProject(0, 1, "a");
    EXPECT_TRUE(FileExists(sjcs("XMMC.txt")));
    EXPECT_EQ(bytes("XMMC.txt"), "");
    EXPECT_THAT(folders(), IsEmpty());
    EXPECT_EQ(ReadUtf16File(sjcs("XMMC.txt")), "");
    EXPECT_THAT(ReadPhoneCatalogue(), IsEmpty());
}

TEST_F(Phone, RemovingPairsRowsWithLines)
{
    for (const char* name : {"a", "b", "c"}) ExportForPhone(name);
    RemovePhoneProject(1, 3, "b");
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\nc\r\n"));
    EXPECT_THAT(folders(), ElementsAre("a", "c"));
}

TEST_F(Phone, RemovingKeepsTheLinesThatAnotherCopyAdded)
{
    for (const char* name : {"a", "b", "c"}) ExportForPhone(name);
    RemovePhoneProject(0, 2, "a");  // a list that shows two of three lines
    EXPECT_EQ(bytes("XMMC.txt"), utf16("b\r\nc\r\n"));
}

TEST_F(Phone, RemovingFromAListWithFewerLinesTouchesNothing)
{
    for (const char* name : {"a", "b"}) ExportForPhone(name);
    EXPECT_THROW(RemovePhoneProject(0, 4, "a"), RunTimeError);
    fs::rename(sjcs("XMMC.txt"), sjcs("aside"));
    EXPECT_THROW(RemovePhoneProject(0, 1, "a"), RunTimeError);
    EXPECT_FALSE(FileExists(sjcs("XMMC.txt")));
    fs::rename(sjcs("aside"), sjcs("XMMC.txt"));
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\nb\r\n"));
    EXPECT_THAT(folders(), ElementsAre("a", "b"));
}

TEST_F(Phone, RemovingALineEditedToAPathDeletesNoFolder)
{
    ExportForPhone("a");
    WriteUtf16File(sjcs("XMMC.txt"), "..\r\na\r\n");
    RemovePhoneProject(0, 2, "..");
    EXPECT_TRUE(folder.has("平曲线参数.txt"));
    EXPECT_EQ(bytes("XMMC.txt"), utf16("a\r\n"));
    EXPECT_THAT(folders(), ElementsAre("a"));
}

TEST_F(Phone, FiftyProjectsRemovedInRandomOrderKeepListAndFileInStep)
{
    std::vector<std::string> shown;
    for (int i = 0; i < 50; ++i) {
        shown.push_back("road" + std::to_string(i));
        ASSERT_EQ(ExportForPhone(shown.back()), PhoneExport::Added);
        ASSERT_EQ(ReadPhoneCatalogue(), shown);
    }
    std::mt19937 random(50);
    while (!shown.empty()) {
        const int count = static_cast<int>(shown.size());
        const int index = std::uniform_int_distribution(0, count - 1)(random);
        RemovePhoneProject(index, count, shown[static_cast<std::size_t>(index)]);
        shown.erase(shown.begin() + index);
        ASSERT_EQ(ReadPhoneCatalogue(), shown);
        auto sorted = shown;
        std::sort(sorted.begin(), sorted.end());
        ASSERT_EQ(folders(), sorted);
    }
}
