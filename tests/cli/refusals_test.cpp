// What velumark-calc refuses, and that it says which option or which file it means.

#include "CompanionTest.h"
#include "base/ReplaceFile.h"

#include <sys/stat.h>

TEST_F(Companion, AnOffsetThatIsNoNumberIsRefusedAndNotTheCentreLine)
{
    for (const char* offset : {"-", ".", "0.0.0", "-+", "+", "--5", "-.", "0-", "..", "-0-", "x"}) {
        for (const char* command : {"coords", "elevation"}) {
            const auto ran = calc({"示例一", command, "--at", "12100", "--offset", offset});
            EXPECT_EQ(ran.code, 1) << command << " " << offset;
            EXPECT_EQ(ran.out, "") << command << " " << offset;
            EXPECT_EQ(ran.err, std::string("--offset ") + offset + "：请输入正确的数值！\n");
        }
        for (const char* command : {"coords", "stakeout", "elevation"}) {
            const auto line = calc({"示例一", command, "--file", "-"}, std::string("12100,") + offset + "\n");
            EXPECT_EQ(line.code, 1) << command << " " << offset;
            EXPECT_EQ(line.err, "第1行：“" + std::string(offset) + "”：请输入正确的数值！\n")
                << command << " " << offset;
            EXPECT_EQ(line.out, "") << command << " " << offset;
        }
    }
}

TEST_F(Companion, AnOffsetOfZeroIsTheCentreLineEverywhere)
{
    for (const char* offset : {"0", "0.000", "-0", "+0", ".0", " 0 "})
        for (const char* command : {"coords", "elevation"})
            EXPECT_EQ(json({"示例一", command, "--at", "12100", "--offset", offset})[0]["中边桩"], "中桩")
                << command << " " << offset;
    EXPECT_EQ(calc({"示例一", "elevation", "--at", "12100", "--offset", "0"}).out,
              calc({"示例一", "elevation", "--at", "12100"}).out);
}

TEST_F(Companion, ARefusedValueNamesItsOption)
{
    const auto refusal = [&](std::vector<std::string> args, const std::string& text) {
        args.insert(args.begin(), "示例一");
        const auto ran = calc(args);
        EXPECT_EQ(ran.code, 1) << text;
        EXPECT_EQ(ran.err, text + "\n");
    };
    const std::string noNumber = "请输入正确的数值！", gap = "桩号不存在，请检查断链数据！";
    refusal({"coords", "--at", "12100", "--skew", "1.2.3", "--offset", "1"}, "--skew 1.2.3：" + noNumber);
    refusal({"coords", "--at", "12100", "--station", "1,x"}, "--station 1,x：" + noNumber);
    refusal({"stakeout", "--from", "12000", "--to", "x", "--step", "1"}, "--to x：" + noNumber);
    refusal({"stakeout", "--from", "12000", "--to", "12100", "--step", "y"}, "--step y：" + noNumber);
    refusal({"stakeout", "--from", "12000", "--to", "13400", "--step", "10"}, "--to 13400：" + gap);
    refusal({"stakeout", "--from", "K13+400.000", "--to", "14000", "--step", "10"}, "--from K13+400.000：" + gap);
    refusal({"stakeout", "--from", "1", "--to", "12100", "--step", "1"}, "--from 1：开始里程不能小于起点里程！");
    refusal({"stakeout", "--from", "12000", "--to", "99999", "--step", "1"}, "--to 99999：结束里程不能大于终点里程！");
    refusal({"elevation", "--at", "12100", "--thickness", "a"}, "--thickness a：" + noNumber);
    refusal({"corners", "--at", "12100", "--front", "1", "--back", "b", "--left", "1", "--right", "1"},
            "--back b：" + noNumber);
    refusal({"inverse", "--at", "9000000,9000000"}, "--at 9000000,9000000：没有找到对应的桩号");
    const auto inFile = calc({"示例一", "elevation", "--file", "-", "--thickness", "a"}, "12100,0\n");
    EXPECT_EQ(inFile.err, "第1行：--thickness a：" + noNumber + "\n");
}

TEST_F(Companion, AnOptionGivenTwiceIsWrongUsage)
{
    for (const auto& args :
         {std::vector<std::string>{"示例一", "coords", "--at", "12100", "--at", "12200"},
          {"示例一", "coords", "--at=1", "--at=1"},
          {"示例一", "coords", "--at", "12100", "-o", "a.txt", "-o", "b.txt"},
          {"示例一", "corners", "--at", "1", "--front", "1", "--kq", "1", "--back", "1", "--left", "1", "--right", "1"},
          {"--workspace", "/tmp", "list"}}) {  // calc() gives one already
        const auto ran = calc(args);
        EXPECT_EQ(ran.code, 2) << args.back();
        EXPECT_NE(ran.err.find("只能给一次"), std::string::npos) << ran.err;
        EXPECT_EQ(ran.out, "");
    }
}

TEST_F(Companion, AStationIsOneOfTheWindowsList)
{
    workspace.project("单点", {{"导线点参数.txt", "P1,100,200,\r\n"}});
    for (const char* name : {"其他参数.txt", "平曲线参数.txt"})
        fs::copy(fs::path(VM_SOURCE_DIR "/samples/示例一") / name, workspace.path(name),
                 fs::copy_options::overwrite_existing);
    const auto single = calc({"单点", "coords", "--at", "12100", "--station", "P1"});
    EXPECT_EQ(single.code, 1) << "the window's list is empty where there is a single point";
    EXPECT_EQ(single.err, "--station P1：项目只有一个导线点，不能选作测站，请直接给出坐标\n");
    workspace.write("导线点参数.txt", "P1,100,200,\r\nP2,300,400,\r\n");
    EXPECT_EQ(calc({"单点", "coords", "--at", "12100", "--station", "P1"}).code, 0);
    EXPECT_EQ(calc({"单点", "coords", "--at", "12100", "--station", "P1", "--format", "csv"}).out,
              calc({"单点", "coords", "--at", "12100", "--station", "100,200", "--format", "csv"}).out);
}

TEST_F(Companion, AWalkOfMoreThanABillionStepsIsRefused)
{
    for (const auto& args : {std::vector<std::string>{"stakeout"},
                             {"elevation"},
                             {"corners", "--front", "1", "--back", "1", "--left", "1", "--right", "1"}}) {
        std::vector<std::string> all{"示例一"};
        all.insert(all.end(), args.begin(), args.end());
        all.insert(all.end(), {"--from", "13370", "--to", "13420", "--step", "0.00000001"});
        const auto ran = calc(all);
        EXPECT_EQ(ran.code, 1) << args[0];
        EXPECT_EQ(ran.err, "--step 0.00000001：这一段要走十亿步以上，请把间距加大\n");
        EXPECT_EQ(ran.out, "");
    }
    const auto back = calc({"示例一", "stakeout", "--from", "13420", "--to", "13370", "--step", "-0.00000001"});
    EXPECT_EQ(back.err, "--step -0.00000001：这一段要走十亿步以上，请把间距加大\n") << "down over a gap";
    EXPECT_EQ(calc({"示例一", "stakeout", "--from", "12000", "--to", "99999", "--step", "0.00000001"}).err,
              "--to 99999：结束里程不能大于终点里程！\n")
        << "what the screen refuses comes first";
}

TEST_F(Companion, CornersTakeWords)
{
    const std::vector<std::string> call{"示例一", "corners", "--at", "12100", "--skew", "60.3000"};
    const auto with = [&](const std::vector<std::string>& more) {
        auto all = call;
        all.insert(all.end(), more.begin(), more.end());
        return calc(all);
    };
    const auto words = with({"--front", "2", "--back", "3", "--left", "12", "--right", "13", "--mode", "square"});
    EXPECT_EQ(words.code, 0) << words.err;
    EXPECT_EQ(lines(words.out).size(), 5u);
    EXPECT_EQ(with({"--kq", "2", "--kh", "3", "--zz", "12", "--zy", "13", "--mode", "zz"}).out, words.out);
    const auto skew = with({"--front", "2", "--kh", "3", "--left", "12", "--zy", "13", "--mode", "skew"});
    EXPECT_NE(skew.out, words.out);
    EXPECT_EQ(with({"--kq", "2", "--kh", "3", "--zz", "12", "--zy", "13", "--mode", "xz"}).out, skew.out);
    EXPECT_EQ(with({"--kq", "2", "--kh", "3", "--zz", "12", "--zy", "13"}).out, skew.out);
    EXPECT_NE(bare({"corners", "--help"}).out.find("也可写作 --kq"), std::string::npos);
}

TEST_F(Companion, AnUnreadableParameterFileIsRefusedByName)
{
    const std::vector<std::string> loaded{"其他参数.txt",   "平曲线参数.txt", "导线点参数.txt",  "断链参数.txt",
                                          "竖曲线参数.txt", "超高参数.txt",   "超高宽度参数.txt"};
    const fs::path project = fs::path(WorkspacePath()) / "示例一";
    for (const auto& name : loaded) {
        const fs::path path = project / name, kept = workspace.root() + "/kept";
        fs::rename(path, kept);
        const auto refused = [&](const char* what) {
            for (const auto& command : {std::vector<std::string>{"coords", "--at", "12500", "--offset", "5"},
                                        {"elevation", "--at", "12500"},
                                        {"tables"},
                                        {"check", "--accuracy"}}) {
                auto args = command;
                args.insert(args.begin(), "示例一");
                const auto ran = calc(args);
                EXPECT_EQ(ran.code, 1) << what << " " << name << " " << command[0];
                EXPECT_EQ(ran.out, "") << what << " " << name << " " << command[0];
                EXPECT_NE(ran.err.find("“" + path.string() + "”无法读取："), std::string::npos) << what << ran.err;
            }
            EXPECT_NE(calc({"list"}).out.find(name + "”无法读取"), std::string::npos) << what;
        };
        fs::create_symlink("nowhere", path);
        refused("a link to nowhere");
        fs::remove(path);
        fs::create_directory(path);
        refused("a folder");
        fs::remove(path);
        ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        refused("a pipe");
        fs::remove(path);
        fs::rename(kept, path);
    }
    EXPECT_EQ(calc({"示例一", "coords", "--at", "12500", "--offset", "5"}).code, 0);
}

TEST_F(Companion, AnotherUsersFileIsRefusedByName)
{
    fs::permissions(workspace.root(), fs::perms(0755));
    const std::string path = WorkspacePath() + "/示例一/超高参数.txt";
    calc({"示例一", "coords", "--at", "12500"});
    fs::permissions(path, fs::perms(0200));
    const auto ran = bare({"--workspace", workspace.root(), "示例一", "elevation", "--at", "12500"}, {}, 65534);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "“" + path + "”无法读取：没有读取权限\n");
}

TEST_F(Companion, AFolderWithoutParameterFilesIsRefusedAndLeftAlone)
{
    const std::string folder = workspace.root() + "/照片";
    fs::create_directory(folder);
    WriteBytes(folder + "/a.jpg", "x");
    for (const auto& command : {std::vector<std::string>{"coords", "--at", "1"},
                                {"tables"},
                                {"check"},
                                {"check", "--accuracy"},
                                {"phone", "--name", "a"}}) {
        std::vector<std::string> args{"--folder", folder};
        args.insert(args.end(), command.begin(), command.end());
        const auto ran = calc(args);
        EXPECT_EQ(ran.code, 1) << command[0];
        EXPECT_EQ(ran.err, "--folder " + folder + "：这个目录里没有参数文件\n");
        EXPECT_EQ(ran.out, "");
    }
    EXPECT_EQ(everyFile(folder).size(), 1u);
}
