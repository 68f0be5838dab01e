// The same of links, pipes, devices and files that their user may not read.

#include "UnreadableFileTest.h"

#include "support/OrdinaryUser.h"

#include <sys/stat.h>
#include <thread>

using testing::ElementsAre;
using testing::Pair;

namespace {

void linkTo(const ProjectFolder& folder, const fs::path& target, std::string_view file)
{
    folder.remove(std::string(file));
    fs::create_symlink(target, folder.path(std::string(file)));
}

}  // namespace

TEST_F(UnreadableFile, ALinkThatLeadsNowhereIsNotReplaced)
{
    Loaded loaded;
    for (const auto file : kAllFiles) linkTo(folder, "/no/such/place", file);
    const auto before = everything();
    loaded = LoadProject();
    EXPECT_EQ(everything(), before);
    for (const auto file : kAllFiles) {
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
    linkTo(folder, "平曲线参数.txt", files::horizontal);
    const auto before = everything();
    loaded = LoadProject();
    EXPECT_THROW(WriteBytes(ParameterFile(files::horizontal), "x"), FileError);
    EXPECT_EQ(everything(), before);
    EXPECT_THAT(unreadable(loaded), ElementsAre(Pair("平曲线参数.txt", "读写错误")));
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
    for (const auto file : kAllFiles) {
        folder.remove(std::string(file));
        ASSERT_EQ(mkfifo(ParameterFile(file).c_str(), 0600), 0);
    }
    loaded = LoadProject();  // comes back
    EXPECT_EQ(loaded.unreadable.size(), 7u);
    for (const auto file : kAllFiles) {
        EXPECT_THROW(WriteBytes(ParameterFile(file), "x"), FileError);
        EXPECT_EQ(LookAt(ParameterFile(file)), Look::Other);
    }
}

TEST_F(UnreadableFile, AFolderOrADeviceInThePlaceOfAParameterFileIsUnreadable)
{
    Loaded loaded;
    folder.remove("竖曲线参数.txt");
    fs::create_directory(folder.path("竖曲线参数.txt"));
    linkTo(folder, "/dev/zero", files::widths);
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
