// Deleting folders on Windows: what is protected goes with its folder. (That no link is followed needs a real Windows:
// Wine makes none.)

#include "Place.h"

#include "base/Machine.h"
#include "dialogs/Dialogs.h"
#include "project/DeleteFolderTree.h"

#include <gmock/gmock.h>
#include <windows.h>

namespace {

struct Quiet : Dialogs {
    Quiet() { setDialogs(this); }
    ~Quiet() override { setDialogs(nullptr); }
    bool box(const Msg&) override { return false; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

struct Folders : Place {
    Quiet dialogs;
    void make(const std::string& name) const { std::filesystem::create_directory(filePath(path(name))); }
};

TEST_F(Folders, ProtectedFilesGoWithTheirFolder)
{
    make("项目");
    write("项目/表.txt", "old");
    SetFileAttributesW(filePath(path("项目/表.txt")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(IsLink(filePath(path("项目"))));
    DeleteFolderTree(path("项目"));
    EXPECT_THAT(names(), testing::IsEmpty());
}

}  // namespace
