#include "base/TextFile.h"
#include "editors/Wizard.h"

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

namespace {

constexpr auto kSettings = "其他参数.txt";
const Msg kDamaged{"“其他参数.txt”不存在或不完整，请重新打开项目！", "注意", Icon::Exclamation};
const Msg kGradesFirst{"请先设置最大边坡级数！", "注意", Icon::Exclamation};

TEST(Wizard, OptionsInTheirOrder)
{
    constexpr std::string_view captions[] = {"导线点",   "平曲线",   "竖曲线",   "超 高",    "超高宽度", "断 链",
                                             "边坡参数", "左幅填方", "右幅填方", "左幅挖方", "右幅挖方"};
    constexpr int lines[] = {-1, 0, -1, 1, -1, -1, -1, 2, 2, 3, 3};
    ASSERT_EQ(kWizardOptions.size(), 11u);
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(kWizardOptions[i].caption, captions[i]);
        EXPECT_EQ(kWizardOptions[i].settingsLine, lines[i]);
    }
}

TEST(Wizard, WhatOpensInANewProject)
{
    const ProjectFolder folder{{kSettings, "未设置\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    constexpr std::string_view forms[] = {"frmDxd",  "frmPqxSelect", "frmSqx",  "frmSelectCg", "frmCgkd", "frmDl",
                                          "frmBpjs", "frmBpjs",      "frmBpjs", "frmBpjs",     "frmBpjs"};
    for (int option = 0; option < 11; ++option) {
        const WizardStep step = NextStep(option);
        EXPECT_EQ(step.form, forms[option]);
        EXPECT_EQ(step.message, option >= 7 ? std::optional(kGradesFirst) : std::nullopt) << option;
    }
}

TEST(Wizard, WhatOpensInAProjectThatIsSet)
{
    const ProjectFolder folder{{kSettings, "交点法\r\n线性\r\n2\r\n0\r\n12\r\n"}};
    constexpr std::string_view forms[] = {"frmDxd",  "frmJdpqx", "frmSqx", "frmCg",  "frmCgkd", "frmDl",
                                          "frmBpjs", "frmTfz",   "frmTfy", "frmWfz", "frmWfy"};
    for (int option = 0; option < 11; ++option) {
        EXPECT_EQ(NextStep(option).form, forms[option]);
        EXPECT_FALSE(NextStep(option).message);
    }
}

TEST(Wizard, AnyOtherModelOpensTheBlocks)
{
    for (const auto* model : {"积木法", "abc", ""}) {
        const ProjectFolder folder{{kSettings, std::string(model) + "\r\nx\r\n"}};
        EXPECT_EQ(NextStep(1).form, "frmJmpqx");
    }
}

TEST(Wizard, AnIndexOutsideDoesNothing)
{
    const ProjectFolder folder;
    for (const int option : {-1, 11, 32767}) {
        EXPECT_EQ(NextStep(option).form, "");
        EXPECT_FALSE(NextStep(option).message);
    }
}

TEST(Wizard, SettingsGoneOrTooShortAreNamed)
{
    const ProjectFolder folder;
    for (const int option : {1, 3, 7, 8, 9, 10}) {
        EXPECT_EQ(NextStep(option).message, kDamaged) << option;
        EXPECT_EQ(NextStep(option).form, "") << option;
    }
    for (const int option : {0, 2, 4, 5, 6}) EXPECT_FALSE(NextStep(option).message) << option;
    folder.write(kSettings, "交点法\r\n");
    EXPECT_EQ(NextStep(1).form, "frmJdpqx");
    for (const int option : {7, 8, 9, 10}) EXPECT_EQ(NextStep(option).message, kDamaged) << option;
}

TEST(Wizard, ModelGoesToMemoryAndLineOne)
{
    const ProjectFolder folder{{kSettings, "未设置\r\n线性\r\n2\r\n"}};
    EXPECT_TRUE(StorePqxModel(true));
    EXPECT_EQ(gPqxModel, "交点法");
    EXPECT_EQ(folder.text(kSettings), "交点法\r\n线性\r\n2\r\n");
    EXPECT_TRUE(StorePqxModel(false));
    EXPECT_EQ(gPqxModel, "积木法");
    EXPECT_EQ(folder.text(kSettings), "积木法\r\n线性\r\n2\r\n");
}

TEST(Wizard, SuperelevationTypeGoesToMemoryAndLineTwo)
{
    const ProjectFolder folder{{kSettings, "交点法\r\n未设置\r\n2\r\n"}};
    EXPECT_TRUE(StoreCgType(false));
    EXPECT_EQ(gCgType, "三次抛物线");
    EXPECT_EQ(folder.text(kSettings), "交点法\r\n三次抛物线\r\n2\r\n");
    EXPECT_TRUE(StoreCgType(true));
    EXPECT_EQ(gCgType, "线性");
    EXPECT_EQ(folder.text(kSettings), "交点法\r\n线性\r\n2\r\n");
}

TEST(Wizard, TheTypeIsNeverOfferedAgain)
{
    const ProjectFolder folder{{kSettings, "交点法\r\n未设置\r\n2\r\n"}};
    EXPECT_EQ(NextStep(3).form, "frmSelectCg");
    EXPECT_TRUE(StoreCgType(false));
    EXPECT_EQ(NextStep(3).form, "frmCg");
}

TEST(Wizard, SettingsGoneCannotBeStored)
{
    const ProjectFolder folder;
    const Refusal refusal{{"“其他参数.txt”无法读取！\n文件不存在", "错误", Icon::Exclamation}, ""};
    EXPECT_EQ(StorePqxModel(true).refusal, refusal);
    EXPECT_EQ(StoreCgType(true).refusal, refusal);
    EXPECT_EQ(StoreSlopeSettings({"1", "2", ""}).refusal, refusal);
    EXPECT_FALSE(folder.has(kSettings));
}

TEST(Wizard, ALastLineWithoutLineEndIsLostAsByReplaceLine)
{
    const ProjectFolder folder{{kSettings, "a\r\nb\r\nc\r\nd\r\ne"}};
    const ProjectFolder::File other{"other.txt", "a\r\nb\r\nc\r\nd\r\ne"};
    folder.write(other.first, other.second);
    ReplaceLine(folder.path(other.first), 3, "5");
    ReplaceLine(folder.path(other.first), 4, "10");
    ReplaceLine(folder.path(other.first), 5, "12");
    EXPECT_TRUE(StoreSlopeSettings({"5", "10", "12"}));
    EXPECT_EQ(folder.text(kSettings), "a\r\nb\r\n5\r\n10\r\n");
    EXPECT_EQ(folder.text(kSettings), folder.text(other.first));
}

TEST(SlopeSettings, SetLinesGoIntoTheirBoxes)
{
    const ProjectFolder folder{{kSettings, "x\r\ny\r\n3\r\n未设置\r\n12.5\r\n"}};
    const SlopeSettings s = LoadSlopeSettings();
    EXPECT_EQ(s.fillGrades, "3");
    EXPECT_EQ(s.cutGrades, "");
    EXPECT_EQ(s.heightLimit, "12.5");
}

TEST(SlopeSettings, LinesThreeToFiveAreStoredTrimmed)
{
    const ProjectFolder folder{{kSettings, "x\r\ny\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    EXPECT_TRUE(StoreSlopeSettings({" 3 ", "10", " 12.5"}));
    EXPECT_EQ(folder.text(kSettings), "x\r\ny\r\n3\r\n10\r\n12.5\r\n");
}

TEST(SlopeSettings, AnEmptyHeightIsStoredAsZero)
{
    const ProjectFolder folder{{kSettings, "x\r\ny\r\n1\r\n2\r\n3\r\n"}};
    EXPECT_TRUE(StoreSlopeSettings({"3", "10", ""}));
    EXPECT_EQ(folder.text(kSettings), "x\r\ny\r\n3\r\n10\r\n0\r\n");
}

TEST(SlopeSettings, EmptyCountsAreRefusedFillFirst)
{
    const ProjectFolder folder{{kSettings, "x\r\ny\r\n1\r\n2\r\n3\r\n"}};
    EXPECT_EQ(StoreSlopeSettings({" ", "", ""}).refusal,
              (Refusal{{"请输入填方最大边坡级数！", "注意", Icon::Exclamation}, "txtTfJs"}));
    EXPECT_EQ(StoreSlopeSettings({"1", " ", ""}).refusal,
              (Refusal{{"请输入挖方最大边坡级数！", "注意", Icon::Exclamation}, "txtWfJs"}));
    EXPECT_EQ(folder.text(kSettings), "x\r\ny\r\n1\r\n2\r\n3\r\n");
}

TEST(SlopeSettings, CountsAboveTheirLimit)
{
    for (const auto* passes : {"", "1", "5", "5.0", "abc", "-"}) EXPECT_FALSE(FillGradesTooMany(passes)) << passes;
    for (const auto* passes : {"", "0", "10", "abc"}) EXPECT_FALSE(CutGradesTooMany(passes)) << passes;
    for (const auto* stops : {"11", "15", "5.1", "6"})
        EXPECT_EQ(FillGradesTooMany(stops), (Msg{"填方最大坡度级数不能大于5！", "注意", Icon::Exclamation})) << stops;
    for (const auto* stops : {"11", "100", "10.1"})
        EXPECT_EQ(CutGradesTooMany(stops), (Msg{"挖方最大坡度级数不能大于10！", "注意", Icon::Exclamation})) << stops;
}

}  // namespace
