// What the windows ask of Windows, where Windows itself has to answer in a way of its own.

#include "Place.h"

#include "ui/Desktop.h"
#include "ui/FileDialog.h"

#include <QApplication>
#include <windows.h>

// After windows.h, which they need.
#include <commdlg.h>

namespace {

/// A person who chooses a file in a folder of the system: the process is there afterwards.
BOOL WINAPI chooseElsewhere(LPOPENFILENAMEW ask)
{
    const std::wstring folder = LR"(C:\windows)", file = folder + LR"(\表.txt)";
    SetCurrentDirectoryW(folder.c_str());
    ask->lpstrFile[file.copy(ask->lpstrFile, file.size())] = L'\0';
    return TRUE;
}

struct FileDialogs : Place {};

TEST_F(FileDialogs, LeaveTheProcessInItsFolder)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(filePath(root));
    const auto here = std::filesystem::current_path();
    for (const auto kind : {FileDialog::Open, FileDialog::Save}) {
        EXPECT_EQ(askForFile(nullptr, kind, QStringLiteral("(*.txt)|*.txt|"), {}), QStringLiteral("C:/windows/表.txt"));
        EXPECT_EQ(std::filesystem::current_path(), here);
    }
    std::filesystem::current_path(before);
}

/// The folder for temporary files is the place itself.
struct Archives : Place {
    std::string program = path("压缩包.zip.1a2/velumark");

    Archives()
    {
        std::filesystem::create_directories(filePath(program));
        setTemporary(filePath(root).wstring());
    }
    ~Archives() override { setTemporary(m_before); }

    static void setTemporary(const std::wstring& folder) { SetEnvironmentVariableW(L"TMP", folder.c_str()); }
    std::wstring shortName() const
    {
        wchar_t name[MAX_PATH] = L"";
        GetShortPathNameW(filePath(root).c_str(), name, MAX_PATH);
        return name;
    }

private:
    std::wstring m_before = _wgetenv(L"TMP");
};

TEST_F(Archives, AProgramAloneBelowTheFolderForTemporaryFilesWasStartedFromWithinOne)
{
    EXPECT_TRUE(IsUnpackedForAMoment(program));
    EXPECT_TRUE(IsUnpackedForAMoment(root));
    const auto brief = shortName();
    EXPECT_NE(brief, filePath(root).wstring());
    setTemporary(brief);
    EXPECT_TRUE(IsUnpackedForAMoment(program));
}

TEST_F(Archives, OneThatStandsElsewhereOrWithItsFilesWasNot)
{
    EXPECT_FALSE(IsUnpackedForAMoment("C:/windows"));
    setTemporary(filePath(program).wstring());
    EXPECT_FALSE(IsUnpackedForAMoment(root));
    setTemporary(filePath(root).wstring());
    write("压缩包.zip.1a2/velumark/LICENSE", "free");
    EXPECT_FALSE(IsUnpackedForAMoment(program));
    std::filesystem::remove(filePath(program + "/LICENSE"));
    EXPECT_TRUE(IsUnpackedForAMoment(program));
    std::filesystem::create_directory(filePath(program + "/示例"));
    EXPECT_FALSE(IsUnpackedForAMoment(program));
}

}  // namespace

// Before the system's own dialogs, as in RefusedCalls.cpp.
extern "C" {
decltype(&GetOpenFileNameW) __imp_GetOpenFileNameW = chooseElsewhere;
decltype(&GetSaveFileNameW) __imp_GetSaveFileNameW = chooseElsewhere;
}

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
