// velumark-calc plot: which files it writes, and what it refuses.

#include "CompanionTest.h"
#include "base/FileBytes.h"

namespace {

struct Plots : Companion {
    std::string path(const char* name) const { return workspace.root() + "/" + name; }
    Ran plot(std::vector<std::string> args) const
    {
        args.insert(args.begin(), {"示例一", "plot"});
        return calc(args);
    }
};

}  // namespace

TEST_F(Plots, EachDrawingGoesToEachFile)
{
    for (const auto& what : {std::vector<std::string>{"--plan"}, {"--profile"}, {"--section", "K12+560"}})
        for (const char* name : {"图.svg", "图.dxf"}) {
            auto args = what;
            args.insert(args.end(), {"-o", path(name)});
            const auto ran = plot(args);
            EXPECT_EQ(ran.code, 0) << what[0] << ran.err;
            const std::string bytes = ReadBytes(path(name));
            EXPECT_TRUE(bytes.starts_with(std::string_view(name).ends_with(".svg") ? "<?xml" : "  0\r\nSECTION"))
                << name;
            fs::remove(path(name));
        }
}

TEST_F(Plots, SheetsGetNumbersOfEqualLength)
{
    const auto ran = plot({"--plan", "--scale", "1:2000", "--paper", "A4", "-o", path("平面图.svg")});
    EXPECT_EQ(ran.code, 0) << ran.err;
    const auto written = lines(ran.out);
    ASSERT_GT(written.size(), 9u);
    EXPECT_EQ(written[0], path("平面图-01.svg"));
    for (const auto& name : written) EXPECT_TRUE(fs::exists(name)) << name;
}

TEST_F(Plots, WrongUsageIsSaid)
{
    for (const auto& args : {std::vector<std::string>{"--plan"},
                             {"--plan", "-o", path("图.png")},
                             {"--plan", "--profile", "-o", path("图.svg")},
                             {"--plan", "--scale", "2000:1", "-o", path("图.svg")},
                             {"--plan", "--scale", "0", "-o", path("图.svg")},
                             {"--plan", "--paper", "B5", "-o", path("图.svg")},
                             {"--section", "abc", "-o", path("图.svg")},
                             {"--profile", "--exaggeration", "-1", "-o", path("图.svg")}}) {
        EXPECT_EQ(plot(args).code, 2) << args.back();
        EXPECT_FALSE(fs::exists(path("图.svg")));
    }
}

TEST_F(Plots, WhatCannotBeDrawnIsRefused)
{
    const auto gap = plot({"--section", "13400", "-o", path("图.svg")});
    EXPECT_EQ(gap.code, 1);
    EXPECT_EQ(gap.err, "--section 13400：桩号不存在，请检查断链数据！\n");
    const auto beyond = plot({"--section", "99999", "-o", path("图.svg")});
    EXPECT_EQ(beyond.code, 1);
    EXPECT_EQ(beyond.err, "这个里程没有设计高程，画不出横断面图\n");
    const auto backward = plot({"--plan", "--from", "15000", "--to", "14000", "-o", path("图.svg")});
    EXPECT_EQ(backward.code, 1);
    const auto other = plot({"--plan", "--with", "没有", "-o", path("图.svg")});
    EXPECT_EQ(other.code, 1);
    EXPECT_EQ(other.err.find("--with 没有：没有这个项目"), 0u);
    EXPECT_FALSE(fs::exists(path("图.svg")));
}

TEST_F(Plots, NoFileOfEitherProjectChanges)
{
    plot({"--plan", "-o", path("图.svg")});  // opening makes the open project's own files ready
    const auto before = everyFile(WorkspacePath());
    EXPECT_EQ(plot({"--plan", "--with", "示例二", "-o", path("图.dxf")}).code, 0);
    EXPECT_EQ(plot({"--profile", "-o", path("图.svg")}).code, 0);
    EXPECT_EQ(everyFile(WorkspacePath()), before);
}

TEST_F(Plots, TheSameCallWritesTheSameBytes)
{
    for (const char* name : {"图.svg", "图.dxf"}) {
        plot({"--plan", "-o", path(name)});
        const auto first = ReadBytes(path(name));
        plot({"--plan", "-o", path(name)});
        EXPECT_EQ(ReadBytes(path(name)), first);
    }
}
