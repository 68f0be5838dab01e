// What is there and cannot be looked at, opened or read is not missing: nothing is made or emptied in its place.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/Utf16File.h"
#include "project/LoadProject.h"
#include "support/FailingCalls.h"
#include "support/OrdinaryUser.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <thread>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr std::string_view kAll[] = {files::settings, files::horizontal,     files::vertical, files::breaks,
                                     files::traverse, files::superelevation, files::widths};

struct UnreadableFile : testing::Test {
    ScriptedDialogs dialogs;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                         {"平曲线参数.txt", "0,0,0\r\nJD1,1000,0,50,50,400\r\n2000,500\r\n"},
                         {"竖曲线参数.txt", "0,10\r\n500,20,8000\r\n1500,10\r\n"},
                         {"断链参数.txt", "900,910\r\n"},
                         {"导线点参数.txt", "D1,1,2,\r\nD2,3,4,\r\n"},
                         {"超高参数.txt", "0,2,2,1500,2,2\r\n"},
                         {"超高宽度参数.txt", "0,1500,2,12,12,3,3,12,12,3,3,4\r\n"}};

    /// Every file below the program's folder with its bytes.
    std::map<std::string, std::string> everything() const
    {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root()))
            all[entry.path()] = fs::is_regular_file(entry.symlink_status()) ? ProjectFolder::bytesOf(entry.path()) : "";
        return all;
    }
    void linkTo(const fs::path& target, std::string_view file) const
    {
        folder.remove(std::string(file));
        fs::create_symlink(target, folder.path(std::string(file)));
    }
    static std::vector<std::pair<std::string, std::string>> unreadable(const Loaded& loaded)
    {
        std::vector<std::pair<std::string, std::string>> found;
        for (const auto& error : loaded.unreadable) found.emplace_back(error.name(), error.reason());
        return found;
    }
};

/// Runs `work` once for each of its looks, opens and reads, which then fails.
template <class Work>
int withEachLookFailing(int why, Work work)
{
    for (int n = 1;; ++n) {
        int count = 0;
        const FailingCalls failing([&](const Call& call) {
            const bool looks = call.name == "stat" || call.name == "lstat" || call.name == "fstat" ||
                               call.name == "open" || call.name == "read";
            return looks && ++count == n ? why : 0;
        });
        work();
        if (count < n) return n - 1;
    }
}

}  // namespace

TEST_F(UnreadableFile, AFailedLookDuringALoadEmptiesNoFile)
{
    const auto before = everything();
    for (const int why : {EIO, EACCES, ESTALE, ELOOP}) {
        const int looks = withEachLookFailing(why, [] { LoadProject(); });
        EXPECT_GE(looks, 14) << "each of the seven files is opened twice at least";
        EXPECT_EQ(everything(), before) << why;
    }
}

TEST_F(UnreadableFile, AFailedLookAtTheStartEmptiesNoCatalogue)
{
    folder.project("乙");
    const auto before = everything();
    EXPECT_GE(withEachLookFailing(EIO, [] { attempt([] { OpenCatalogue(); }); }), 2);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(OpenCatalogue(), (std::vector<std::string>{"测试", "乙"}));
}

TEST_F(UnreadableFile, AFailedLookAtThePhoneListIsNoEmptyList)
{
    fs::create_directories(PhonePath());
    WriteUtf16File(PhonePath() + "/XMMC.txt", "甲\r\n");
    const FailingCalls failing([](const Call& call) { return call.name == "stat" ? EIO : 0; });
    EXPECT_EQ(ReadPhoneCatalogue(), std::vector<std::string>{"甲"}) << "read all the same";
}

TEST_F(UnreadableFile, ALinkThatLeadsNowhereIsNotReplaced)
{
    Loaded loaded;
    for (const auto file : kAll) linkTo("/no/such/place", file);
    const auto before = everything();
    loaded = LoadProject();
    EXPECT_EQ(everything(), before);
    for (const auto file : kAll) {
        const auto path = ParameterFile(file);
        EXPECT_EQ(LookAt(path), Look::Unreadable);
        EXPECT_THROW(ReadBytesCreating(path), FileError);
        EXPECT_THROW(WriteBytes(path, "x"), FileError);
        EXPECT_THROW(WriteResult(path, "x"), FileError);
        EXPECT_TRUE(fs::is_symlink(path));
    }
    EXPECT_EQ(loaded.unreadable.size(), 7u);
}

TEST_F(UnreadableFile, ALoopOfLinksIsNotReplaced)
{
    Loaded loaded;
    linkTo("平曲线参数.txt", files::horizontal);
    const auto before = everything();
    loaded = LoadProject();
    EXPECT_THROW(WriteBytes(ParameterFile(files::horizontal), "x"), FileError);
    EXPECT_EQ(everything(), before);
    EXPECT_THAT(unreadable(loaded), ElementsAre(Pair("平曲线参数.txt", "读写错误")));
}

TEST_F(UnreadableFile, AMissingFileIsMadeButNeverOneThatCameMeanwhile)
{
    Loaded loaded;
    for (const auto file : kAll) folder.remove(std::string(file));
    int made = 0;
    {
        const FailingCalls watching([&](const Call& call) {
            if (call.name == "open" && call.flags & O_CREAT) {
                EXPECT_TRUE(call.flags & O_EXCL);
                ++made;
                if (call.path == ParameterFile(files::widths)) folder.writeBytes("超高宽度参数.txt", "came,");
            }
            return 0;
        });
        loaded = LoadProject();
    }
    EXPECT_GE(made, 7);
    for (const auto file : kAll) EXPECT_TRUE(folder.has(std::string(file)));
    EXPECT_EQ(folder.bytes("超高宽度参数.txt"), "came,");
    EXPECT_THAT(unreadable(loaded), ElementsAre());
}

TEST_F(UnreadableFile, ALoadSaysWhichFilesItCouldNotRead)
{
    Loaded loaded;
    loaded = LoadProject();
    EXPECT_THAT(unreadable(loaded), ElementsAre());
    fs::permissions(folder.path("超高参数.txt"), fs::perms::none);
    fs::permissions(folder.path("其他参数.txt"), fs::perms::none);
    {
        const OrdinaryUser user;
        loaded = LoadProject();
    }
    EXPECT_THAT(unreadable(loaded),
                ElementsAre(Pair("其他参数.txt", "没有读取权限"), Pair("超高参数.txt", "没有读取权限")));
    fs::permissions(folder.path("超高参数.txt"), fs::perms::owner_all);
    fs::permissions(folder.path("其他参数.txt"), fs::perms::owner_all);
    loaded = LoadProject();
    EXPECT_THAT(unreadable(loaded), ElementsAre()) << "of the last load alone";
}

TEST_F(UnreadableFile, AFileThatIsMissingInAWriteProtectedFolderIsNotUnreadable)
{
    Loaded loaded;
    folder.remove("断链参数.txt");
    fs::permissions(folder.path(""), fs::perms(0555));
    {
        const OrdinaryUser user;
        loaded = LoadProject();
    }
    fs::permissions(folder.path(""), fs::perms(0755));
    EXPECT_FALSE(folder.has("断链参数.txt"));
    EXPECT_THAT(unreadable(loaded), ElementsAre());
}

TEST_F(UnreadableFile, APipeInThePlaceOfAParameterFileDoesNotFreezeTheLoad)
{
    Loaded loaded;
    for (const auto file : kAll) {
        folder.remove(std::string(file));
        ASSERT_EQ(mkfifo(ParameterFile(file).c_str(), 0600), 0);
    }
    loaded = LoadProject();  // comes back
    EXPECT_EQ(loaded.unreadable.size(), 7u);
    for (const auto file : kAll) {
        EXPECT_THROW(WriteBytes(ParameterFile(file), "x"), FileError);
        EXPECT_EQ(LookAt(ParameterFile(file)), Look::Other);
    }
}

TEST_F(UnreadableFile, AFolderOrADeviceInThePlaceOfAParameterFileIsUnreadable)
{
    Loaded loaded;
    folder.remove("竖曲线参数.txt");
    fs::create_directory(folder.path("竖曲线参数.txt"));
    linkTo("/dev/zero", files::widths);
    loaded = LoadProject();
    EXPECT_THAT(unreadable(loaded),
                ElementsAre(Pair("竖曲线参数.txt", "读写错误"), Pair("超高宽度参数.txt", "读写错误")));
    EXPECT_TRUE(fs::is_directory(folder.path("竖曲线参数.txt")));
}

TEST_F(UnreadableFile, AStreamIsReadFromAPipe)
{
    const auto pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::jthread writer([&] { std::ofstream(pipe) << "1,2\r\n"; });
    EXPECT_EQ(ReadStream(pipe), "1,2\r\n");
    EXPECT_THROW(ReadStream(folder.path("none")), FileError);
}
