#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDesk.h"

#include <gtest/gtest.h>

TEST(LoadProject, MissingSettingsGainOneLineALoad)
{
    ScriptedDesk desk;
    ProjectFolder folder;
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "未设置\r\n");
    LoadProject();
    EXPECT_EQ(folder.text("其他参数.txt"), "未设置\r\n未设置\r\n");
}
