// velumark-calc as it is built: what it prints, where, and how it ends.

#include "CompanionTest.h"
#include "base/FileBytes.h"

namespace {

/// What a run without a station says of its azimuths and distances, once.
const std::string kNoStation = "没有测站：方位角和距离从坐标原点算起\n";

}  // namespace

TEST_F(Companion, CoordsAsATable)
{
    const auto ran =
        calc({"示例一", "coords", "--at", "12100", "--side", "left", "--offset", "5", "--station", "GP01"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    const auto table = lines(ran.out);
    ASSERT_EQ(table.size(), 2u);
    EXPECT_EQ(table[0].substr(0, table[0].find("中边桩")), "序号  里 程        ");
    EXPECT_TRUE(table[1].starts_with("1     K12+100.000  左5米")) << table[1];
}

TEST_F(Companion, StakesMayBeWrittenAsOnTheGround)
{
    EXPECT_EQ(calc({"示例一", "coords", "--at", "K12+100"}).out, calc({"示例一", "coords", "--at", "12100"}).out);
}

TEST_F(Companion, OneRowInJsonAndCsv)
{
    const auto rows = json({"示例一", "coords", "--at", "12100", "--skew", "45.3000", "--offset", "8"});
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0]["序号"], "1");
    EXPECT_EQ(rows[0]["中边桩"], "斜交8米");
    EXPECT_EQ(rows[0]["夹角"], "45度30分00秒");
    EXPECT_FALSE(rows[0].has("warning"));
    const auto csv =
        lines(calc({"示例一", "coords", "--at", "12100", "--skew", "45.3000", "--offset", "8", "--format", "csv"}).out);
    EXPECT_EQ(csv[0], "序号,里 程,中边桩,夹 角,方位角,距 离,X坐标,Y坐标,切线方位角");
    std::string row;
    for (const auto& [key, cell] : rows[0].members())
        if (cell.isText()) row += (row.empty() ? "" : ",") + cell.text();
    EXPECT_EQ(csv[1], row);
}

TEST_F(Companion, ASignedOffsetPicksTheSide)
{
    EXPECT_EQ(json({"示例一", "coords", "--at", "12100", "--offset", "-5"})[0]["中边桩"], "左5米");
    EXPECT_EQ(json({"示例一", "coords", "--at", "12100", "--offset", "5"})[0]["中边桩"], "右5米");
    EXPECT_EQ(json({"示例一", "coords", "--at", "12100", "--offset", "0"})[0]["中边桩"], "中桩");
}

TEST_F(Companion, EachLineOfAFileIsOnePress)
{
    const auto path = file("点.txt", "12100,-5\r\n\r\n13400,0\r\n1.2.3,0\r\n12200,8,30\r\n12300\r\n");
    const std::string before = ReadBytes(path);
    const auto ran = calc({"示例一", "coords", "--file", path, "--format", "csv"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, path + " 第3行：桩号不存在，请检查断链数据！\n" + path +
                           " 第4行：“1.2.3”：请输入正确的数值！\n" + kNoStation);
    const auto rows = lines(ran.out);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_TRUE(rows[1].starts_with("1,K12+100.000,左5米,无,"));
    EXPECT_TRUE(rows[2].starts_with("2,K12+200.000,斜交8米,30度00分00秒,"));
    EXPECT_TRUE(rows[3].starts_with("3,K12+300.000,中桩,无,"));
    EXPECT_EQ(ReadBytes(path), before) << "the user's file is not cleaned";
}

TEST_F(Companion, StandardInputAndAnyLineEnds)
{
    for (const char* input : {"12100,5\n12200,5\n", "12100,5\r\n12200,5", "12100,5\r12200,5\r",
                              "\xEF\xBB\xBF"
                              "12100,5\r\n\r\n12200,5\r\n"}) {
        const auto ran = calc({"示例一", "coords", "--file", "-", "--format", "csv"}, input);
        EXPECT_EQ(ran.code, 0) << ran.err;
        EXPECT_EQ(lines(ran.out).size(), 3u);
    }
    const auto bad = calc({"示例一", "coords", "--file", "-"}, "x,5\n12200,5\n");
    EXPECT_EQ(bad.code, 1);
    EXPECT_EQ(bad.err, "第1行：“x”：请输入正确的数值！\n" + kNoStation);
}

TEST_F(Companion, RefusalsGoToStandardErrorAndEndWithOne)
{
    const std::map<std::vector<std::string>, std::string> refusals{
        {{"coords", "--at", ""}, "--at：计算里程不能为空！\n"},
        {{"coords", "--at", "1.2.3"}, "--at 1.2.3：请输入正确的数值！\n"},
        {{"coords", "--at", "12100", "--side", "left"}, "--offset：偏距不能为空！\n"},
        {{"coords", "--at", "12100", "--station", "1,"}, "--station 1,：测站Y坐标不能为空！\n"},
        {{"coords", "--at", "99999"}, "--at 99999：不能大于终点里程！\n"},
        {{"coords", "--at", "13400"}, "--at 13400：桩号不存在，请检查断链数据！\n"},
        {{"coords", "--at", "12100", "--station", "NN"}, "--station NN：没有这个导线点\n"},
        {{"stakeout", "--from", "1", "--to", "1", "--step", "1"}, "--to 1：开始里程不能等于结束里程！\n"},
        {{"stakeout", "--from", "12000", "--to", "12100", "--step", "0"}, "--step 0：间距不能为0！\n"},
        {{"elevation", "--at", "1"}, "--at 1：计算里程不能小于竖曲线起点里程！\n"},
        {{"inverse", "--at", "1"}, "--at 1：请输入正确的数值！\n"},
        {{"inverse", "--at", "1,x"}, "--at 1,x：请输入正确的数值！\n"},
        {{"corners", "--at", "12100", "--kq", "", "--kh", "1", "--zz", "1", "--zy", "1"}, "--front：K前不能为空！\n"},
        {{"corners", "--from", "12100", "--to", "12100", "--step", "1", "--kq", "1", "--kh", "1", "--zz", "1", "--zy",
          "1"},
         "--to 12100：批量计算起点不能等于批量计算终点！\n"},
    };
    for (const auto& [command, text] : refusals) {
        auto args = command;
        args.insert(args.begin(), "示例一");
        const auto ran = calc(args);
        EXPECT_EQ(ran.code, 1) << text;
        EXPECT_EQ(ran.err, text);
        EXPECT_EQ(ran.out, "") << text;
    }
    const auto points = calc({"示例二", "mainpoints"});
    EXPECT_EQ(points.code, 1);
    EXPECT_EQ(points.err, "请先输入参数！\n") << "blocks have no main points";
}

TEST_F(Companion, WrongUsageEndsWithTwoAndPrintsNothing)
{
    const std::vector<std::vector<std::string>> wrong{
        {},
        {"示例一"},
        {"coords"},
        {"示例一", "nothing"},
        {"示例一", "coords"},
        {"示例一", "coords", "--at"},
        {"示例一", "coords", "--at", "1", "--file", "x"},
        {"示例一", "coords", "--at", "1", "--side", "up", "--offset", "1"},
        {"示例一", "coords", "--at", "1", "--side", "left", "--offset", "1", "--skew", "2"},
        {"示例一", "coords", "--at", "1", "extra"},
        {"示例一", "coords", "--at", "1", "--format", "xml"},
        {"示例一", "coords", "--at", "1", "--unknown"},
        {"示例一", "stakeout", "--from", "1", "--to", "2"},
        {"示例一", "corners", "--at", "1", "--kq", "1"},
        {"示例一", "corners", "--at", "1", "--kq", "1", "--kh", "1", "--zz", "1", "--zy", "1", "--mode", "x"},
        {"--nothing", "示例一", "coords"},
    };
    for (const auto& args : wrong) {
        const auto ran = calc(args);
        EXPECT_EQ(ran.code, 2) << (args.empty() ? "" : args.back());
        EXPECT_EQ(ran.out, "");
        EXPECT_NE(ran.err.find("--help"), std::string::npos);
    }
}

TEST_F(Companion, HelpIsForSurveyors)
{
    const auto general = bare({"--help"});
    EXPECT_EQ(general.code, 0);
    EXPECT_EQ(general.err, "");
    for (const char* command : {"coords", "inverse", "stakeout", "elevation", "corners", "mainpoints"}) {
        EXPECT_NE(general.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
        for (const auto& args : {std::vector<std::string>{command, "--help"},
                                 std::vector<std::string>{"没有这个项目", command, "--help"}}) {
            const auto help = bare(args);
            EXPECT_EQ(help.code, 0) << command;
            EXPECT_NE(help.out.find(std::string("velumark-calc 项目 ") + command), std::string::npos);
            EXPECT_NE(help.out.find(std::string("velumark-calc 示例一 ") + command), std::string::npos) << "an example";
            EXPECT_NE(help.out.find("--format"), std::string::npos);
        }
    }
    EXPECT_TRUE(bare({"--version"}).out.starts_with("velumark-calc 1."));
}

TEST_F(Companion, TheExamplesOfTheHelpRun)
{
    // Every line of help that starts with the program is a call; files that it names are put there first.
    const fs::path here = workspace.root();
    for (const char* name : {"放样点.txt", "边桩.txt", "点.txt"}) file(name, "12100,-5\r\n12200,5\r\n");
    file("实测点.txt", "2856575.1,512894.7\r\n");
    file("涵洞.txt", "12100,2,2,12,12\r\n");
    const auto cwd = fs::current_path();
    fs::current_path(here);
    int examples = 0;
    for (const char* command : {"coords", "inverse", "stakeout", "elevation", "corners", "mainpoints"})
        for (const auto& line : lines(bare({command, "--help"}).out)) {
            if (!line.starts_with("  velumark-calc 示例一 ")) continue;
            std::istringstream words(line);
            std::vector<std::string> args;
            for (std::string word; words >> word;) args.push_back(word);
            args.erase(args.begin());
            const auto ran = calc(args);
            EXPECT_EQ(ran.code, 0) << line << "\n" << ran.err;
            ++examples;
        }
    fs::current_path(cwd);
    EXPECT_GE(examples, 12);
}

TEST_F(Companion, WarningsNameTheRowUnlessQuiet)
{
    const std::vector<std::string> args{"示例一", "stakeout", "--from", "13350", "--to", "13450", "--step", "25"};
    const auto loud = calc(args);
    EXPECT_EQ(loud.code, 0);
    EXPECT_EQ(loud.err, "第3行结果：从K13+400.000起的桩号在断链中不存在，已跳过\n" + kNoStation);
    auto quiet = args;
    quiet.push_back("--quiet");
    EXPECT_EQ(calc(quiet).err, "");
    EXPECT_EQ(calc(quiet).out, loud.out);
    EXPECT_EQ(json(quiet)[2]["warning"], "从K13+400.000起的桩号在断链中不存在，已跳过");
}

TEST_F(Companion, ADoubtAboutCellsIsToldOnceARunUnlessQuiet)
{
    const std::string edge = "偏距超出路基，高程取路基边缘\n";
    const std::vector<std::pair<std::vector<std::string>, std::string>> runs{
        {{"coords", "--at", "12100"}, kNoStation},
        {{"coords", "--at", "12100", "--station", "0,0"}, ""},
        {{"stakeout", "--from", "12000", "--to", "12100", "--step", "10"}, kNoStation},
        {{"stakeout", "--from", "12000", "--to", "12100", "--step", "10", "--station", "GP01"}, ""},
        {{"stakeout", "--file", "-"}, kNoStation},
        {{"stakeout", "--file", "-", "--station", "GP01"}, ""},
        {{"corners", "--file", "-", "--station", "GP01"}, ""},
        {{"corners", "--file", "-"}, kNoStation},
        {{"elevation", "--at", "12100", "--offset", "5"}, ""},
        {{"elevation", "--at", "12100", "--offset", "-40"}, edge},
        {{"elevation", "--from", "12100", "--to", "12200", "--step", "10", "--offset", "40"}, edge},
        {{"inverse", "--at", "2856575.1,512894.7"}, ""},
    };
    for (const auto& [command, told] : runs) {
        std::vector<std::string> args{"示例一"};
        args.insert(args.end(), command.begin(), command.end());
        const std::string input = command[0] == "corners" ? "12100,2,3,12,13\n12200,2,3,12,13\n" : "12100,0\n12200,0\n";
        const auto loud = calc(args, input);
        EXPECT_EQ(loud.code, 0) << command[0];
        EXPECT_EQ(loud.err, told) << testing::PrintToString(command);
        args.push_back("--quiet");
        const auto quiet = calc(args, input);
        EXPECT_EQ(quiet.err, "") << command[0];
        EXPECT_EQ(quiet.out, loud.out) << command[0];
        const auto rows = json(args, input);
        for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_FALSE(rows[i].has("warning")) << command[0];
    }
    const auto streamed = calc(
        {"示例一", "stakeout", "--from", "12000", "--to", "12100", "--step", "10", "--no-limit", "--format", "csv"});
    EXPECT_EQ(streamed.err, kNoStation);
}

TEST_F(Companion, InverseComesBack)
{
    const auto there = json({"示例一", "coords", "--at", "12480", "--offset", "-10"})[0];
    const auto back = json({"示例一", "inverse", "--at", there["X坐标"].text() + "," + there["Y坐标"].text()})[0];
    EXPECT_EQ(back["反算里程"], "K12+480.000");
    EXPECT_EQ(back["反算偏距"], "左10.000米");
}

TEST_F(Companion, APointWithoutAStakeIsNamed)
{
    const auto ran =
        calc({"示例一", "inverse", "--file", "-", "--format", "csv"}, "2856575.1,512894.7\n9000000,9000000\n");
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "第2行：没有找到对应的桩号\n");
    EXPECT_EQ(lines(ran.out).size(), 2u);
}

TEST_F(Companion, ElevationOfOnePointARunAndAFile)
{
    const auto one = json({"示例一", "elevation", "--at", "12100", "--offset", "-5", "--thickness", "0.18"});
    EXPECT_EQ(one[0]["中边桩"], "左5米");
    const auto run = json({"示例一", "elevation", "--from", "12100", "--to", "12101", "--step", "1", "--offset", "5",
                           "--thickness", "0.18"});
    ASSERT_EQ(run.size(), 2u);
    EXPECT_EQ(run[0]["中边桩2"], "左5米");
    EXPECT_EQ(run[0]["高程2"], one[0]["高程"]);
    const auto file = json({"示例一", "elevation", "--file", "-", "--thickness", "0.18"}, "12100,-5\n");
    EXPECT_EQ(file[0]["高程"], one[0]["高程"]);
}

TEST_F(Companion, CornersOfOneStructureARunAndAFile)
{
    const std::vector<std::string> size{"--kq", "2", "--kh", "3", "--zz", "12", "--zy", "13"};
    std::vector<std::string> one{"示例一", "corners", "--at", "12100"};
    one.insert(one.end(), size.begin(), size.end());
    std::vector<std::string> run{"示例一", "corners", "--from", "12100", "--to", "12200", "--step", "100"};
    run.insert(run.end(), size.begin(), size.end());
    const auto single = json(one);
    ASSERT_EQ(single.size(), 4u);
    EXPECT_EQ(single[3]["点位置"], "右后点");
    const auto batch = json(run);
    ASSERT_EQ(batch.size(), 8u);
    EXPECT_EQ(batch[0], single[0]);
    EXPECT_EQ(json({"示例一", "corners", "--file", "-"}, "12100,2,3,12,13\n"), single);
}

TEST_F(Companion, TheRunOfStructuresEndsWhereTheScreensMemoryEnds)
{
    std::string input;
    for (int i = 0; i < 105; ++i) input += "12100,2,3,12,13\n";
    const auto ran = calc({"示例一", "corners", "--file", "-", "--format", "csv"}, input);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "第101行：请输入正确的数值！\n" + kNoStation);
    EXPECT_EQ(lines(ran.out).size(), 1u + 404u);
}

TEST_F(Companion, NoMoreRowsThanAScreenCounts)
{
    std::string input;
    for (int i = 0; i < 32770; ++i) input += "12100,0\n";
    const auto ran = calc({"示例一", "elevation", "--file", "-", "--format", "csv"}, input);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "第32768行：一次最多32767行结果，后面的行没有计算\n");
    EXPECT_EQ(lines(ran.out).size(), 1u + 32767u);
    const auto walk =
        calc({"示例一", "elevation", "--from", "12100", "--to", "12200", "--step", "0", "--format", "csv"});
    EXPECT_EQ(walk.code, 1);
    EXPECT_EQ(walk.err, "请输入正确的数值！\n");
    EXPECT_EQ(lines(walk.out).size(), 1u + 32767u) << "the rows made before stay";
}

TEST_F(Companion, MainPointsOfTheIntersectionPoints)
{
    const auto rows = json({"示例一", "mainpoints"});
    ASSERT_EQ(rows.size(), 10u);
    EXPECT_EQ(rows[0]["交点编号"], "JD1");
    EXPECT_EQ(rows[9]["序号"], "10");
}

TEST_F(Companion, WritesFiles)
{
    const std::string csv = workspace.root() + "/结果.csv", text = workspace.root() + "/结果.txt";
    const auto printed = calc({"示例一", "coords", "--at", "12100"});
    auto ran = calc({"示例一", "coords", "--at", "12100", "-o", csv});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, "");
    EXPECT_TRUE(ReadBytes(csv).starts_with("\xEF\xBB\xBF序号,里 程,"));
    EXPECT_TRUE(ReadBytes(csv).ends_with("秒\r\n"));
    ran = calc({"示例一", "coords", "--at", "12100", "-o", text});
    EXPECT_EQ(ReadBytes(text), printed.out);
    ran = calc({"示例一", "coords", "--at", "12100", "-o", workspace.root() + "/missing/x.csv"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_NE(ran.err.find("missing/x.csv"), std::string::npos);
    EXPECT_EQ(ran.out, "");
}

TEST_F(Companion, AnEmptyResultIsNoSheet)
{
    const std::string path = workspace.root() + "/结果.xls";
    const auto ran = calc({"示例一", "coords", "--at", "99999", "-o", path});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "--at 99999：不能大于终点里程！\n没有计算数据，无需保存！\n");
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(Companion, AFolderAnywhereIsAProjectToo)
{
    const std::string folder = workspace.root() + "/别处";
    fs::copy(fs::path(VM_SOURCE_DIR "/samples/示例一"), folder);
    const auto inside = calc({"示例一", "coords", "--at", "12100"});
    EXPECT_EQ(bare({"--folder", folder, "coords", "--at", "12100"}).out, inside.out);
    EXPECT_EQ(bare({"--folder=" + folder + "/", "coords", "--at", "12100"}).out, inside.out);
}

TEST_F(Companion, AMissingProjectIsNamed)
{
    auto ran = calc({"没有", "coords", "--at", "1"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "没有这个项目：没有\n");
    EXPECT_FALSE(fs::exists(WorkspacePath() + "/没有"));
    ran = calc({"../示例一", "coords", "--at", "1"});
    EXPECT_EQ(ran.code, 1);
    ran = bare({"--folder", "/nowhere/at/all", "coords", "--at", "1"});
    EXPECT_EQ(ran.err, "没有这个项目：/nowhere/at/all\n");
}

TEST_F(Companion, TheEndOfTheRoadGivesItsOwnPoint)
{
    // The last line of 示例一 holds the end point; its stake is where the tables of widths and heights end.
    const auto ran =
        bare({"--folder", VM_SOURCE_DIR "/samples/示例一", "coords", "--at", "18553.408", "--format", "csv"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_NE(ran.out.find("2859337.032,517613.829"), std::string::npos) << ran.out;
}

TEST_F(Companion, AFileThatWouldHangTheProgramIsRefusedByNameAndLine)
{
    workspace.write("断链参数.txt", "abc\r\ndef\r\n");
    const auto ran = calc({"测试", "coords", "--at", "1"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_NE(ran.err.find("断链参数.txt，第2行及以前没有一行含有逗号"), std::string::npos) << ran.err;
    EXPECT_EQ(ran.out, "");
}

TEST_F(Companion, AFileWhoseOnlyLineHangsTheProgramIsNotRefusedForLinesBeforeIt)
{
    workspace.write("断链参数.txt", "abc\r\n");
    const auto ran = calc({"测试", "coords", "--at", "1"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_NE(ran.err.find("断链参数.txt，第1行没有逗号"), std::string::npos) << ran.err;
}

TEST_F(Companion, ALoadThatAGapCutsShortIsNoSuccess)
{
    fs::copy(fs::path(VM_SOURCE_DIR "/samples/示例一/平曲线参数.txt"), workspace.path("平曲线参数.txt"));
    workspace.write("其他参数.txt", "交点法\r\n线性\r\n");
    workspace.write("断链参数.txt", "13380,13412.36\r\n");
    workspace.write("竖曲线参数.txt", "12000,231\r\n13400,240,5000\r\n18000,250\r\n");
    const auto ran = calc({"测试", "coords", "--at", "12100"});
    EXPECT_EQ(ran.err, "桩号不存在，请检查断链数据！\n" + kNoStation);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(lines(ran.out).size(), 2u) << "what the screens would show all the same";
}

TEST_F(Companion, AnUnreadableFileIsNamed)
{
    const auto ran = calc({"示例一", "coords", "--file", workspace.root() + "/没有.txt"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err, "“" + workspace.root() + "/没有.txt”无法读取：文件不存在\n");
    EXPECT_EQ(calc({"示例一", "coords", "--file", workspace.root()}).code, 1) << "a folder";
}

TEST_F(Companion, NothingIsWrittenOutsideTheProject)
{
    calc({"示例一", "coords", "--at", "12100"});  // a first load may upgrade the settings
    const auto before = everyFile(workspace.root());
    for (const auto& args : {std::vector<std::string>{"示例一", "coords", "--at", "12100"},
                             {"示例一", "inverse", "--at", "2856575.1,512894.7"},
                             {"示例一", "mainpoints"},
                             {"示例一", "elevation", "--at", "12100"}})
        EXPECT_EQ(calc(args).code, 0);
    EXPECT_EQ(everyFile(workspace.root()), before);
}

TEST_F(Companion, AReadOnlyProjectComputes)
{
    const auto wanted = calc({"示例一", "coords", "--at", "12100"});
    const fs::path folder = fs::path(workspace.root()) / "只读";
    fs::copy(fs::path(VM_SOURCE_DIR "/samples/示例一"), folder);
    fs::remove(folder / "导线点参数.txt");
    for (const auto& file : fs::directory_iterator(folder)) fs::permissions(file.path(), fs::perms(0444));
    fs::permissions(folder, fs::perms(0555));
    fs::permissions(workspace.root(), fs::perms(0755));
    const auto before = everyFile(folder);
    const auto ran = bare({"--folder", folder.string(), "coords", "--at", "12100"}, {}, 65534);
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(ran.out, wanted.out);
    EXPECT_EQ(everyFile(folder), before);
    fs::permissions(folder, fs::perms(0755));
}

TEST_F(Companion, TheProgramsFolderIsTheWorkspaceOfACallWithoutOne)
{
    const fs::path program = fs::path(workspace.root()) / "velumark-calc";
    fs::copy(companionPath(), program);
    EXPECT_EQ(runProgram(program.string(), {"示例一", "coords", "--at", "12100"}).out,
              calc({"示例一", "coords", "--at", "12100"}).out);
}
