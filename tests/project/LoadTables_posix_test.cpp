// A load of files that their user may not read.

#include "project/LoadTables.h"

#include "SmallRoad.h"
#include "support/OrdinaryUser.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using LoadTablesOfAnotherUser = LoadTest;

}  // namespace

TEST_F(LoadTablesOfAnotherUser, AFileThatCannotBeReadIsTold)
{
    files(kRoad);
    fs::permissions(folder.path("竖曲线参数.txt"), fs::perms::none);
    Tables own;
    Loaded loaded;
    {
        const OrdinaryUser user;
        loaded = loadTables(folder.path(""), own);
    }
    fs::permissions(folder.path("竖曲线参数.txt"), fs::perms::owner_all);
    ASSERT_EQ(loaded.unreadable.size(), 1u);
    EXPECT_EQ(loaded.unreadable[0].name(), "竖曲线参数.txt");
    EXPECT_EQ(own.sqxCount, 0);
    EXPECT_EQ(own.cgCount, 1);
}
