#include "base/FileBytes.h"
#include "base/Utf16File.h"
#include "cli/Companion.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

struct Ran {
    int code;
    std::string out, err;
};

Ran calc(std::vector<std::string> args, const std::string& workspace)
{
    std::istringstream in;
    std::ostringstream out, err;
    const int code = RunCompanion(args, workspace, in, out, err);
    return {code, out.str(), err.str()};
}

}  // namespace

TEST(PhoneCommand, ExportsUnderTheName)
{
    ProjectFolder folder{{"断链参数.txt", "100,120,\r\n"}};
    const auto ran = calc({"测试", "phone", "--name", "road1"}, folder.root());
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, folder.root() + "/SJCS/road1\n");
    EXPECT_EQ(ran.err, "转换完成，请按帮助中的说明复制参数到手机！\n");
    EXPECT_EQ(ReadUtf16File(folder.root() + "/SJCS/road1/DL.txt"), "100,120,\r\n");
    EXPECT_EQ(ReadPhoneCatalogue(), std::vector<std::string>{"road1"});
}

TEST(PhoneCommand, OverwritesOnlyWhenTold)
{
    ProjectFolder folder;
    ASSERT_EQ(calc({"测试", "phone", "--name", "a"}, folder.root()).code, 0);
    folder.write("断链参数.txt", "100,120,\r\n");
    const auto refused = calc({"测试", "phone", "--name", "a"}, folder.root());
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "项目已存在！是否覆盖？\n要覆盖时请加上 --overwrite\n") << "a question says what answers it";
    EXPECT_EQ(ReadUtf16File(folder.root() + "/SJCS/a/DL.txt"), "");
    EXPECT_EQ(calc({"测试", "phone", "--name", "a", "--overwrite"}, folder.root()).code, 0);
    EXPECT_EQ(ReadUtf16File(folder.root() + "/SJCS/a/DL.txt"), "100,120,\r\n");
}

TEST(PhoneCommand, RefusesAnEmptyNameAndWantsOne)
{
    ProjectFolder folder;
    const auto empty = calc({"测试", "phone", "--name", " "}, folder.root());
    EXPECT_EQ(empty.code, 1);
    EXPECT_EQ(empty.err, "--name：项目名称不能为空！\n");
    EXPECT_EQ(calc({"测试", "phone"}, folder.root()).code, 2);
}

TEST(PhoneCommand, RefusesWhatTheDialogsKeysRefuse)
{
    ProjectFolder folder;
    for (const char* name : {"路1", "road-1", "a b", "XMMC.txt", "../x", "a.b", "x_y", "é"}) {
        const auto ran = calc({"测试", "phone", "--name", name}, folder.root());
        EXPECT_EQ(ran.code, 1) << name;
        EXPECT_EQ(ran.out, "");
        EXPECT_EQ(ran.err, std::string("--name ") + name + "：只能用英文字母和数字\n");
    }
    EXPECT_FALSE(FolderExists(folder.root() + "/SJCS"));
    EXPECT_EQ(calc({"测试", "phone", "--name", " Road1 "}, folder.root()).code, 0) << "blanks around are trimmed";
}

TEST(PhoneCommand, HasNoResultToFormat)
{
    ProjectFolder folder;
    EXPECT_EQ(calc({"测试", "phone", "--name", "a", "-o", "x"}, folder.root()).code, 2);
    EXPECT_EQ(calc({"测试", "phone", "--name", "a", "--format", "csv"}, folder.root()).code, 2);
}
