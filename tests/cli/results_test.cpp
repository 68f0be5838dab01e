// Where the results of velumark-calc go, and what happens where they cannot go there.

#include "CompanionTest.h"
#include "support/CountedMemory.h"

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "cli/Companion.h"

#include <cmath>
#include <csignal>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

/// The companion behind a line of the shell, in which "$@" is the call.
Ran inShell(const std::string& line, std::vector<std::string> args, const std::string& input = {})
{
    args.insert(args.begin(), {"-c", line, companionPath()});
    return runProgram("/bin/sh", args, input);
}

}  // namespace

TEST_F(Companion, AResultThatCannotBePrintedIsNoSuccess)
{
    for (const auto& command : {std::vector<std::string>{"示例一", "coords", "--at", "12100"},
                                {"示例一", "tables"},
                                {"示例一", "check"},
                                {"list"},
                                {"help"}}) {
        std::vector<std::string> args{"--workspace", workspace.root()};
        args.insert(args.end(), command.begin(), command.end());
        for (const char* where : {"> /dev/full", ">&-"}) {
            const auto ran = inShell(std::string("exec \"$0\" \"$@\" ") + where, args);
            EXPECT_EQ(ran.code, 1) << command.back() << " " << where;
            EXPECT_NE(ran.err.find("“标准输出”无法写入"), std::string::npos) << ran.err;
        }
    }
    EXPECT_EQ(inShell("exec \"$0\" \"$@\" > /dev/full", {"--help"}).code, 1);
    EXPECT_EQ(inShell("exec \"$0\" \"$@\" > /dev/full", {"--version"}).code, 1);
}

TEST_F(Companion, AnInputThatCannotBeReadIsRefused)
{
    const auto closed =
        inShell("exec \"$0\" \"$@\" <&-", {"--workspace", workspace.root(), "示例一", "coords", "--file", "-"});
    EXPECT_EQ(closed.code, 1);
    EXPECT_EQ(closed.err, "“标准输入”无法读取：读写错误\n");
    const auto folder = inShell("exec \"$0\" \"$@\" < /", {"traverse", "--file", "-"});
    EXPECT_EQ(folder.code, 1);
    EXPECT_EQ(folder.err, "“标准输入”无法读取：读写错误\n");
}

TEST_F(Companion, ResultsGoStraightToDevicesAndPipes)
{
    // A device of our own: the same numbers as /dev/null and /dev/full.
    const std::string null = workspace.root() + "/null", full = workspace.root() + "/full",
                      pipe = workspace.root() + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string got;
    std::thread reader([&] { got = ReadStream(pipe); });
    const auto ran = calc({"示例一", "coords", "--at", "12100", "-o", pipe});
    reader.join();
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(got, calc({"示例一", "coords", "--at", "12100"}).out);
    struct stat status {};
    EXPECT_TRUE(stat(pipe.c_str(), &status) == 0 && S_ISFIFO(status.st_mode)) << "still a pipe";

    if (mknod(null.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0 ||
        mknod(full.c_str(), S_IFCHR | 0666, makedev(1, 7)) != 0)
        return;  // only root makes devices
    EXPECT_EQ(calc({"示例一", "coords", "--at", "12100", "-o", null}).code, 0);
    EXPECT_TRUE(stat(null.c_str(), &status) == 0 && S_ISCHR(status.st_mode)) << "still a device";
    const auto refused = calc({"示例一", "coords", "--at", "12100", "-o", full});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err, "“" + full + "”无法写入：磁盘已满\n没有测站：方位角和距离从坐标原点算起\n");
}

TEST_F(Companion, AResultFollowsALink)
{
    const std::string target = file("结果.txt", "old"), link = workspace.root() + "/链接.txt";
    fs::create_symlink(target, link);
    EXPECT_EQ(calc({"示例一", "coords", "--at", "12100", "-o", link}).code, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(ReadBytes(target), calc({"示例一", "coords", "--at", "12100"}).out);
}

TEST_F(Companion, ARefusalWritesNoFile)
{
    for (const char* name : {"a.xls", "a.csv", "a.json", "a.txt"}) {
        const std::string path = workspace.root() + "/" + name;
        const auto points = calc({"示例二", "mainpoints", "-o", path});
        EXPECT_EQ(points.code, 1) << name;
        EXPECT_EQ(points.err, "请先输入参数！\n没有计算数据，无需保存！\n");
        EXPECT_EQ(calc({"示例一", "coords", "--at", "99999", "-o", path}).code, 1) << name;
        EXPECT_FALSE(fs::exists(path)) << name;
        WriteBytes(path, "old");
        EXPECT_EQ(calc({"示例二", "mainpoints", "-o", path}).code, 1);
        EXPECT_EQ(ReadBytes(path), "old") << name;
    }
}

TEST_F(Companion, AnInputIsNeverTheResultToo)
{
    const auto path = file("点.csv", "12100,0\n");
    for (const auto& args : {std::vector<std::string>{"示例一", "coords", "--file", path, "-o", path},
                             {"traverse", "--file", path, "--dxf", path}})
        EXPECT_EQ(calc(args).code, 2) << args[0];
    EXPECT_EQ(ReadBytes(path), "12100,0\n");
}

TEST_F(Companion, JsonHasTypedValuesBesideTheTexts)
{
    const auto row =
        json({"示例一", "coords", "--at", "12100", "--side", "left", "--offset", "5", "--station", "GP01"})[0];
    EXPECT_EQ(row["里程"], "K12+100.000");
    EXPECT_EQ(row["stake"], 12100);
    EXPECT_EQ(row["offset"], -5);
    EXPECT_EQ(row["skew_deg"], nullptr);
    for (const auto& [key, text] : {std::pair{"x", "X坐标"}, {"y", "Y坐标"}, {"distance", "距离"}})
        EXPECT_EQ(row[key], std::stod(row[text].text())) << key;
    const double dx = row["x"].number() - 2856355.635, dy = row["y"].number() - 512438.128;  // GP01
    const double azimuth = std::atan2(dy, dx) * 180 / std::acos(-1.0);
    EXPECT_NEAR(row["azimuth_deg"].number(), azimuth < 0 ? azimuth + 360 : azimuth, 2 / 3600.0);
    EXPECT_NEAR(row["distance"].number(), std::hypot(dx, dy), 0.0006);
    EXPECT_EQ(json({"示例一", "coords", "--at", "12100", "--skew", "45.3000", "--offset", "8"})[0]["skew_deg"], 45.5);
    EXPECT_EQ(json({"示例一", "elevation", "--at", "12100", "--offset", "-5"})[0]["offset"], -5);
    EXPECT_TRUE(json({"示例一", "elevation", "--at", "12100"})[0]["elevation"].isNumber());
    EXPECT_EQ(json({"示例一", "elevation", "--from", "12100", "--to", "12101", "--step", "1", "--offset",
                    "5"})[0]["offset_left"],
              -5);
    EXPECT_TRUE(json({"示例一", "mainpoints"})[0]["zh_x"].isNumber());
    const auto back = json({"示例一", "inverse", "--at", "2856575.1,512894.7"})[0];
    EXPECT_EQ(back["x"], 2856575.1);
    EXPECT_TRUE(back["stake"].isNumber() && back["offset"].isNumber());
    for (const auto& command : {std::vector<std::string>{"mainpoints"}, {"coords", "--at", "12100"}}) {
        std::vector<std::string> args{"示例一"};
        args.insert(args.end(), command.begin(), command.end());
        const auto rows = json(args);
        for (const auto& [key, value] : rows[0].members()) EXPECT_EQ(key.find(' '), std::string::npos) << key;
    }
}

TEST_F(Companion, OutOfMemoryIsALineAndNotACrash)
{
    const std::string path = file("结果.txt", "old"), big = file("大.txt", std::string(4'000'000, '1'));
    for (const auto& args : {std::vector<std::string>{"traverse", "--file", big, "-o", path},
                             {"示例一", "coords", "--file", big, "-o", path}}) {
        std::istringstream in;
        std::ostringstream out, err;
        counted::largestBlock = 1'000'000;
        const int code = RunCompanion(args, workspace.root(), in, out, err);
        counted::largestBlock = 0;
        EXPECT_EQ(code, 1);
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(err.str(), "内存不足，没有完成\n");
        EXPECT_EQ(ReadBytes(path), "old");
    }
}

TEST_F(Companion, CtrlCEndsAnyCommandWithoutAPartialFile)
{
    std::string input;
    for (int i = 0; i < 20000; ++i) input += "12100," + std::to_string(i % 20) + "\n";
    const std::string folder = workspace.root() + "/出";
    fs::create_directory(folder);
    const std::string points = file("点.txt", input), result = folder + "/结果.csv";
    const std::string program = companionPath();
    int ended = 0;
    for (int wait = 0; wait < 30; ++wait) {
        WriteBytes(result, "old");
        const pid_t child = fork();
        if (child == 0) {
            execl(program.c_str(), program.c_str(), "--workspace", workspace.root().c_str(), "示例一", "coords",
                  "--file", points.c_str(), "-o", result.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        usleep(static_cast<useconds_t>(wait) * 8000);
        kill(child, SIGINT);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ended += WIFSIGNALED(status);
        const auto bytes = ReadBytes(result);
        EXPECT_TRUE(bytes == "old" || (bytes.starts_with("\xEF\xBB\xBF序号") && bytes.ends_with("\r\n"))) << wait;
        EXPECT_EQ(everyFile(folder).size(), 1u) << "no temporary file stays";
    }
    EXPECT_GT(ended, 0);
}
