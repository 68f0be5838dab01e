// Replacing files where Windows refuses single calls: on shares, in deep folders, while others look at the file.

#include "Place.h"
#include "RefusedCalls.h"

#include "base/FileError.h"
#include "base/ReplaceFile.h"

#include <gmock/gmock.h>

#include <initializer_list>

using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

struct Refusals : Place {
    Refusals() { write("表.txt", "old"); }
    ~Refusals() override { RefusedCalls::finalName.clear(); }

    static std::string writingAt(const std::string& path)
    {
        try {
            WriteBytes(path, "new");
        } catch (const FileError& error) {
            return std::string(error.reason());
        }
        return "";
    }
    std::string writing(const std::string& name) const { return writingAt(path(name)); }
};

TEST_F(Refusals, AShareWithTheRightToChangeAloneTakesNewFilesAndOldOnes)
{
    const RefusedCalls share([](const Call& call) -> DWORD {
        return call.name == "CreateFileW" && (call.access & WRITE_DAC) ? ERROR_ACCESS_DENIED : 0;
    });
    EXPECT_EQ(writing("新.txt"), "");
    EXPECT_EQ(writing("表.txt"), "");
    EXPECT_EQ(bytes("新.txt"), "new");
    EXPECT_EQ(bytes("表.txt"), "new");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "新.txt"));
}

TEST_F(Refusals, AFolderThatTakesNoFileIsSaidToBeWithoutTheRight)
{
    const RefusedCalls closed([](const Call& call) -> DWORD {
        return call.name == "CreateFileW" && call.path.ends_with(L".tmp") ? ERROR_ACCESS_DENIED : 0;
    });
    EXPECT_EQ(writing("表.txt"), "没有写入权限");
    EXPECT_EQ(writing("新.txt"), "没有写入权限");
    EXPECT_EQ(bytes("表.txt"), "old");
}

/// Such a viewer lets others write and delete; Windows refuses to put another file in the place all the same.
TEST_F(Refusals, AFileThatAViewerShowsIsHeldByIt)
{
    const HANDLE viewer =
        CreateFileW(filePath(path("表.txt")).c_str(), GENERIC_READ,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(viewer, INVALID_HANDLE_VALUE);
    const HANDLE mapping = CreateFileMappingW(viewer, nullptr, PAGE_READONLY, 0, 0, nullptr);
    EXPECT_EQ(writing("表.txt"), "正被其他程序使用");
    CloseHandle(viewer);
    EXPECT_EQ(writing("表.txt"), "正被其他程序使用");
    CloseHandle(mapping);
    EXPECT_EQ(bytes("表.txt"), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

TEST_F(Refusals, AMappedFileIsHeldWhateverWindowsCallsIt)
{
    for (const DWORD said : {ERROR_ACCESS_DENIED, ERROR_USER_MAPPED_FILE, ERROR_SHARING_VIOLATION}) {
        const RefusedCalls mapped([said](const Call& call) { return call.name == "MoveFileExW" ? said : 0; });
        EXPECT_EQ(writing("表.txt"), "正被其他程序使用") << said;
    }
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

TEST_F(Refusals, AFileThatMayBeWrittenButNotTakenAwayIsSaidToBeWithoutTheRight)
{
    const RefusedCalls kept([](const Call& call) -> DWORD {
        const bool takes = call.name == "MoveFileExW" || (call.name == "CreateFileW" && (call.access & DELETE));
        return takes ? ERROR_ACCESS_DENIED : 0;
    });
    EXPECT_EQ(writing("表.txt"), "没有写入权限");
    EXPECT_EQ(bytes("表.txt"), "old");
}

DWORD flushing(const Call& call, DWORD why) { return call.name == "FlushFileBuffers" ? why : 0; }

TEST_F(Refusals, WhereNothingIsFlushedASaveSucceeds)
{
    for (const DWORD why : {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_CALL_NOT_IMPLEMENTED}) {
        const RefusedCalls simple([why](const Call& call) { return flushing(call, why); });
        EXPECT_EQ(writing("表.txt"), "") << why;
        EXPECT_EQ(bytes("表.txt"), "new");
        write("表.txt", "old");
    }
}

TEST_F(Refusals, OnlyAServerMayForbidToFlush)
{
    const RefusedCalls forbidden([](const Call& call) { return flushing(call, ERROR_ACCESS_DENIED); });
    EXPECT_EQ(writing("新.txt"), "没有写入权限");
    RefusedCalls::finalName = LR"(\\?\UNC\服务器\共享\.vm.tmp)";
    EXPECT_EQ(writing("新.txt"), "");
    EXPECT_EQ(bytes("新.txt"), "new");
}

TEST_F(Refusals, BytesThatAreLostAreAFailedSave)
{
    const std::initializer_list<DWORD> losses = {ERROR_DISK_FULL, ERROR_WRITE_FAULT, ERROR_IO_DEVICE,
                                                 ERROR_UNEXP_NET_ERR, ERROR_NETNAME_DELETED};
    for (const DWORD why : losses) {
        const RefusedCalls lost([why](const Call& call) { return flushing(call, why); });
        EXPECT_NE(writing("表.txt"), "") << why;
    }
    EXPECT_EQ(bytes("表.txt"), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

/// Windows takes 259 characters, unless a name begins with \\?\.
struct DeepFolders : Refusals {
    RefusedCalls windows{[](const Call& call) -> DWORD {
        return call.path.size() >= MAX_PATH && !call.path.starts_with(LR"(\\?\)") ? ERROR_PATH_NOT_FOUND : 0;
    }};

    /// A folder that brings the whole name of a file of one character in it to `length`.
    std::string folderFor(std::size_t length) const
    {
        std::wstring name = filePath(root).make_preferred().wstring();
        while (name.size() < length - 2)
            name += name.size() + 20 < length - 2 && name.size() % 20 == 0 ? L"路\\" : L"路";
        if (name.ends_with(L'\\')) name.back() = L'路';
        std::filesystem::create_directories(LR"(\\?\)" + name);
        const auto text = std::filesystem::path(name).u8string();
        return {text.begin(), text.end()};
    }
};

TEST_F(DeepFolders, TakeNewFilesUpToTheLongestNameThatOthersMayWrite)
{
    for (const std::size_t length : {242, 243, 250, 259}) {
        const auto folder = folderFor(length);
        EXPECT_EQ(writingAt(folder + "/a"), "") << length;
        EXPECT_EQ(writingAt(folder + "/a"), "") << length;
        std::filesystem::remove_all(filePath(folder));
    }
    EXPECT_EQ(writingAt(folderFor(260) + "/a"), "文件夹不存在");
}

TEST_F(DeepFolders, OfAServerAreNamedAsItsOwn)
{
    std::vector<std::wstring> made;
    const RefusedCalls server([&made](const Call& call) -> DWORD {
        if (call.name == "GetFileAttributesW") return ERROR_FILE_NOT_FOUND;
        if (call.name != "CreateFileW") return 0;
        made.push_back(call.path);
        return ERROR_ACCESS_DENIED;
    });
    EXPECT_EQ(writingAt("//服务器/共享/目录/新.txt"), "没有写入权限");
    ASSERT_EQ(made.size(), 1U);
    EXPECT_TRUE(made[0].starts_with(LR"(\\?\UNC\服务器\共享\目录\.vm)"));
}

TEST_F(DeepFolders, ARelativeNameIsFoundFromWhereTheProgramStands)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(filePath(root));
    EXPECT_EQ(writingAt("新.txt"), "");
    EXPECT_EQ(writingAt("无/新.txt"), "文件夹不存在");
    std::filesystem::current_path(before);
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "新.txt"));
}

TEST_F(DeepFolders, BlanksAndDotsAtTheEndGoAsEverywhereOnWindows)
{
    EXPECT_EQ(writing("新.txt. "), "");
    EXPECT_EQ(writing("又.txt."), "");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "新.txt", "又.txt"));
}

}  // namespace
