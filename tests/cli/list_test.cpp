// Help and the list of projects: what works without opening one.

#include "CompanionTest.h"

TEST_F(Companion, HelpIsAWordToo)
{
    const auto help = bare({"--help"});
    EXPECT_EQ(bare({"help"}).out, help.out);
    EXPECT_EQ(bare({"help"}).code, 0);
    for (const char* project : {"示例一", "没有这个项目"}) {
        EXPECT_EQ(calc({project, "--help"}).out, help.out) << project;
        EXPECT_EQ(calc({project, "--help"}).code, 0) << project;
    }
    EXPECT_EQ(bare({"help", "coords"}).out, bare({"coords", "--help"}).out);
    EXPECT_EQ(bare({"help", "nothing"}).code, 2);
    EXPECT_EQ(bare({"help", "coords", "more"}).code, 2);
    for (const char* word : {"\n  list ", "\n  help ", "velumark-calc help"})
        EXPECT_NE(help.out.find(word), std::string::npos) << word;
    EXPECT_EQ(bare({"list", "--help"}).code, 0);
}

TEST_F(Companion, ListNamesEveryProjectWithItsStakes)
{
    workspace.project("示例一");  // in the catalogue; 示例二 is a folder that the catalogue does not name
    const auto ran = calc({"list", "--format", "csv"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(lines(ran.out),
              (std::vector<std::string>{"项目,起点,终点,说明", "测试,,,没有平曲线参数",
                                        "示例一,K12+000.000,K18+553.408,", "示例二,K0+000.000,K1+116.035,"}));
    const auto rows = json({"list"});
    EXPECT_EQ(rows[1]["from"], 12000);
    EXPECT_EQ(rows[1]["起点"], "K12+000.000");
    EXPECT_EQ(rows[0]["to"], nullptr);
    EXPECT_EQ(lines(calc({"list"}).out).size(), 4u);
}

TEST_F(Companion, ListChangesNoFileAndHangsAtNone)
{
    workspace.project("挂起", {{"断链参数.txt", "abc\r\ndef\r\n"}});
    workspace.project("空行", {{"平曲线参数.txt", "\r\n\r\n1,2,3\r\n\r\n"}});
    workspace.project(
        "断链",
        {{"其他参数.txt", "积木法\r\n线性\r\n"}, {"断链参数.txt", "100,200,\r\n"}, {"竖曲线参数.txt", "150,1,2,\r\n"}});
    workspace.project("不在了");
    fs::remove(workspace.path(""));
    const auto before = everyFile(workspace.root());
    const auto ran = calc({"list", "--format", "csv"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(everyFile(workspace.root()), before);
    EXPECT_NE(ran.out.find("挂起,,,断链参数.txt没有一行含有逗号"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("不在了,,,项目的参数文件夹不存在"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("空行,"), std::string::npos) << ran.out;
}

TEST_F(Companion, ListOfAWorkspaceThatIsNotThereIsRefused)
{
    const auto ran = bare({"--workspace", "/nowhere/at/all", "list"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "没有工作目录：/nowhere/at/all/参数文件\n");
    EXPECT_EQ(bare({"list", "more"}).code, 2);
}

TEST_F(Companion, AProjectMayHaveTheNameOfACommand)
{
    fs::copy(fs::path(VM_SOURCE_DIR "/samples/示例一"), fs::path(WorkspacePath()) / "list");
    EXPECT_EQ(calc({"list", "coords", "--at", "12100"}).out, calc({"示例一", "coords", "--at", "12100"}).out);
}
