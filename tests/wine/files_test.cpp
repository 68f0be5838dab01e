// Reading, creating and replacing files on Windows: what is refused, and that nothing is lost by it.

#include "Place.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/ReplaceFile.h"
#include "base/TemporaryName.h"

#include <gmock/gmock.h>

#include <functional>
#include <windows.h>

// After windows.h, which they need.
#include <aclapi.h>
#include <sddl.h>

using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

struct Files : Place {
    Files() { write("表.txt", "old"); }

    /// The reason of the failure, "" for none.
    static std::string reasonOf(const std::function<void()>& body)
    {
        try {
            body();
        } catch (const FileError& error) {
            return std::string(error.reason());
        }
        return "";
    }
    std::string writing(const std::string& name) const
    {
        return reasonOf([&] { WriteBytes(path(name), "new"); });
    }
    std::string reading(const std::string& name) const
    {
        return reasonOf([&] { ReadBytes(path(name)); });
    }
};

/// A file that somebody has open.
struct Held {
    Held(const std::string& path, DWORD access, DWORD sharing)
        : handle(CreateFileW(filePath(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
    }
    ~Held() { CloseHandle(handle); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    HANDLE handle;
};

TEST_F(Files, AreReplacedWhole)
{
    EXPECT_EQ(writing("表.txt"), "");
    EXPECT_EQ(bytes("表.txt"), "new");
    EXPECT_EQ(writing("新.txt"), "");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "新.txt"));
}

TEST_F(Files, WriteProtectedIsRefused)
{
    SetFileAttributesW(filePath(path("表.txt")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(writing("表.txt"), "没有写入权限");
    EXPECT_EQ(bytes("表.txt"), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
    SetFileAttributesW(filePath(path("表.txt")).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Files, HeldByASpreadsheetIsRefusedAndSaid)
{
    const Held held(path("表.txt"), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
    EXPECT_EQ(writing("表.txt"), "正被其他程序使用");
    EXPECT_EQ(bytes("表.txt"), "old");
    EXPECT_THAT(names(), ElementsAre("表.txt"));
}

TEST_F(Files, HeldByOneWhoSharesNothingIsUnreadable)
{
    const Held held(path("表.txt"), GENERIC_READ, 0);
    EXPECT_EQ(reading("表.txt"), "正被其他程序使用");
    EXPECT_EQ(LookAt(path("表.txt")), Look::Regular);
    EXPECT_EQ(reasonOf([&] { ReadBytesCreating(path("表.txt")); }), "正被其他程序使用");
}

TEST_F(Files, WhoeverMayReadWhatIsWrittenKeepsTheRight)
{
    const auto rights = [&] {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        EXPECT_EQ(GetNamedSecurityInfoW(filePath(path("表.txt")).c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                        nullptr, nullptr, nullptr, nullptr, &descriptor),
                  DWORD{ERROR_SUCCESS});
        LPSTR text = nullptr;
        EXPECT_TRUE(ConvertSecurityDescriptorToStringSecurityDescriptorA(descriptor, SDDL_REVISION_1,
                                                                         DACL_SECURITY_INFORMATION, &text, nullptr));
        const std::string found = text;
        LocalFree(text);
        LocalFree(descriptor);
        return found;
    };
    const std::string before = rights();
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA("D:P(A;;FA;;;SY)(A;;FA;;;WD)", SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    ASSERT_TRUE(SetFileSecurityW(filePath(path("表.txt")).c_str(), DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
    const std::string own = rights();
    ASSERT_NE(own, before);
    EXPECT_EQ(writing("表.txt"), "");
    EXPECT_EQ(bytes("表.txt"), "new");
    EXPECT_EQ(rights(), own);
}

TEST_F(Files, HiddenStaysHidden)
{
    const auto name = filePath(path("表.txt"));
    SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(writing("表.txt"), "");
    EXPECT_TRUE(GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(Files, MissingIsToldFromBelowAFileAndFromAFolder)
{
    EXPECT_EQ(LookAt(path("无.txt")), Look::Missing);
    EXPECT_EQ(LookAt(path("无/无.txt")), Look::Missing);
    EXPECT_EQ(LookAt(path("表.txt/-")), Look::Unreadable);
    EXPECT_EQ(LookAt(path("表.txt/-/无.txt")), Look::Unreadable);
    EXPECT_EQ(LookAt(root), Look::Folder);
    EXPECT_EQ(reading("无.txt"), "文件不存在");
    EXPECT_EQ(reading("无/无.txt"), "文件夹不存在");
    EXPECT_EQ(reading("表.txt/-"), "文件夹不存在");
    EXPECT_EQ(reading("."), "读写错误");
    EXPECT_EQ(writing("无/无.txt"), "文件夹不存在");
    EXPECT_EQ(writing("."), "读写错误");
}

TEST_F(Files, MissingIsCreatedAndNothingIsEmptied)
{
    EXPECT_EQ(ReadBytesCreating(path("新.txt")), "");
    EXPECT_EQ(ReadBytesCreating(path("表.txt")), "old");
    EXPECT_EQ(bytes("表.txt"), "old");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", "新.txt"));
    EXPECT_EQ(reasonOf([&] { ReadBytesCreating(path("无/新.txt")); }), "文件夹不存在");
}

TEST_F(Files, LeftoversGoAfterADay)
{
    const auto beginning = TemporaryNames(filePath(path("表.txt")));
    const auto fresh = NameByChance(beginning), old = NameByChance(beginning),
               other = NameByChance(".vm0123456789012345-");
    for (const auto& name : {fresh, old, other}) write(name, "half");
    for (const auto& name : {old, other})
        std::filesystem::last_write_time(filePath(path(name)),
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
    EXPECT_EQ(writing("表.txt"), "");
    EXPECT_THAT(names(), UnorderedElementsAre("表.txt", fresh, other));
}

TEST_F(Files, DevicesAreWrittenStraightOrNotAtAll)
{
    EXPECT_EQ(reasonOf([] { WriteResult("NUL", "new"); }), "");
    EXPECT_EQ(reasonOf([] { WriteBytes("NUL", "new"); }), "读写错误");
}

TEST(CodePage, WhatItLeavesToItsUsersIsUnknownAsElsewhere)
{
    EXPECT_EQ(Utf8FromCp936("\xAA\xA1"), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromCp936("\xB5\xC0\x80"), "道€");
    EXPECT_EQ(Cp936FromUtf8("道€"), "\xB5\xC0\x80");
    EXPECT_THROW(Cp936FromUtf8("\xEE\x80\x80"), RunTimeError);  // U+E000
    EXPECT_THROW(Cp936FromUtf8("é́"), RunTimeError);
}

}  // namespace
