// velumark-calc traverse: the file it reads, what it prints and writes.

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "support/Json.h"
#include "support/ProjectFolder.h"
#include "support/RunProgram.h"

#include <gtest/gtest.h>

namespace {

const std::string kSample = VM_SOURCE_DIR "/samples/附合导线.csv";

Ran traverse(std::vector<std::string> args, const std::string& input = {})
{
    args.insert(args.begin(), "traverse");
    return runCompanion(args, input);
}

TEST(TraverseCommand, SampleGivesThePublishedCoordinates)
{
    const auto ran = traverse({"--file", kSample, "--left", "--format", "json", "--quiet"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err, "");
    const auto rows = ReadJson::from(ran.out)["points"];
    ASSERT_EQ(rows.size(), 8u);
    const double x[] = {2299.83, 2186.29, 2192.45, 2179.74}, y[] = {1303.80, 1383.97, 1556.40, 1655.64};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[i + 2]["点号"], std::to_string(i + 1));
        EXPECT_NEAR(std::stod(rows[i + 2]["X(m)"].text()), x[i], 0.01);
        EXPECT_NEAR(std::stod(rows[i + 2]["Y(m)"].text()), y[i], 0.01);
    }
    EXPECT_EQ(rows[1]["平距(m)"], "225.85");
    EXPECT_EQ(rows[0]["平距(m)"], "");
    EXPECT_EQ(rows[2]["观测角"], "167°45′36″");
}

TEST(TraverseCommand, TableIsFollowedByTheClosures)
{
    const auto ran = traverse({"--file", kSample, "--left"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_NE(ran.out.find("fβ=-36″"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("fβ>fβ允，不符合一级导线要求"), std::string::npos);
    EXPECT_NE(ran.out.find("不符合精度要求"), std::string::npos);
    EXPECT_EQ(ran.err, "");
}

TEST(TraverseCommand, ReadsStandardInputAndEitherEncoding)
{
    const std::string text = ReadBytes(kSample);
    const auto plain = traverse({"--file", "-", "--left"}, text);
    EXPECT_EQ(plain.code, 0);
    EXPECT_EQ(traverse({"--file", "-", "--left"}, Cp936FromUtf8(text)).out, plain.out);
    EXPECT_EQ(traverse({"--file", "-", "--left"}, "\xEF\xBB\xBF" + text).out, plain.out);
}

TEST(TraverseCommand, WritesReportPlanAndTable)
{
    const ProjectFolder folder;
    const std::string xls = folder.root() + "/计算表.xls", dxf = folder.root() + "/图.dxf",
                      csv = folder.root() + "/表.csv";
    const auto ran = traverse({"--file", kSample, "--left", "-o", xls, "--dxf", dxf});
    EXPECT_EQ(ran.code, 0);
    EXPECT_TRUE(ReadBytes(xls).starts_with("\xD0\xCF\x11\xE0"));
    EXPECT_NE(ReadBytes(dxf).find("AC1021"), std::string::npos);
    EXPECT_EQ(ran.out + ran.err, "");
    const auto table = traverse({"--file", kSample, "--left", "-o", csv});
    EXPECT_EQ(table.out, "");
    EXPECT_NE(table.err.find("fβ=-36″"), std::string::npos) << "rows have no place for the closures";
    EXPECT_EQ(traverse({"--file", kSample, "--left", "-o", csv, "--quiet"}).err, "");
    EXPECT_NE(ReadBytes(csv).find("167°45′36″"), std::string::npos);
}

TEST(TraverseCommand, AResultInAFileIsNotPrintedToo)
{
    const ProjectFolder folder;
    const std::string json = folder.root() + "/a.json", text = folder.root() + "/a.txt";
    for (const auto& file : {json, text}) {
        const auto ran = traverse({"--file", kSample, "--left", "-o", file});
        EXPECT_EQ(ran.out + ran.err, "") << file;
    }
    EXPECT_EQ(ReadBytes(text), traverse({"--file", kSample, "--left"}).out) << "closures and all";
    EXPECT_EQ(ReadBytes(json), traverse({"--file", kSample, "--left", "--format", "json"}).out);
}

TEST(TraverseCommand, JsonHasTheClosuresAsNumbers)
{
    const auto ran = traverse({"--file", kSample, "--left", "--format", "json"});
    EXPECT_EQ(ran.err, "");
    const auto json = ReadJson::from(ran.out);
    EXPECT_EQ(json["fβ"], -36);
    EXPECT_EQ(json["fx"], -0.145);
    EXPECT_EQ(json["fy"], 0.136);
    EXPECT_EQ(json["f"], 0.199);
    EXPECT_EQ(json["K"], 1 / 3718.0);
    EXPECT_EQ(json["精度"], "不符合精度要求");
    EXPECT_EQ(json["points"][2]["x"], std::stod(json["points"][2]["X(m)"].text()));
    EXPECT_EQ(json["points"][2]["angle_deg"], 167 + 45 / 60.0 + 36 / 3600.0);
    EXPECT_EQ(json["points"][0]["distance"], nullptr);
}

TEST(TraverseCommand, Refusals)
{
    const auto refusal = [](std::vector<std::string> args, const std::string& input, const std::string& text) {
        const auto ran = traverse(args, input);
        EXPECT_EQ(ran.code, 1) << text;
        EXPECT_EQ(ran.err, text + "\n");
        EXPECT_EQ(ran.out, "");
    };
    refusal({"--file", "-"}, "A\nB\nC\nD\n", "导线点个数不能小于5");
    refusal({"--file", "-"}, "", "导线点个数不能小于5");
    refusal({"--file", "-"}, "A,,,X,0\nB\n1\nC\nD\n", "输入数据有误，请检查后再计算");
    refusal({"--file", "/no/such/file"}, "", "“/no/such/file”无法读取：文件夹不存在");
    refusal({"--file", kSample, "--left", "-o", "/no/such/folder/a.csv", "--quiet"}, "",
            "“/no/such/folder/a.csv”无法写入：文件夹不存在");
    EXPECT_EQ(traverse({"--file", kSample, "--left", "--right"}).code, 2);
    EXPECT_EQ(traverse({"--left"}).code, 2);
}

TEST(TraverseCommand, RightAnglesAreTheDefault)
{
    // A straight line east with a centimetre of closure: the same by either kind of angle.
    const std::string line = "A,,,0,-100\nB,180,50,0,0\n1,180,50,,\nC,180,,-0.01,100\nD,,,-0.01,200\n";
    const auto right = traverse({"--file", "-"}, line);
    EXPECT_EQ(right.code, 0);
    EXPECT_EQ(right.out, traverse({"--file", "-", "--right"}, line).out);
    EXPECT_NE(traverse({"--file", kSample}).out, traverse({"--file", kSample, "--left"}).out);
}

}  // namespace
