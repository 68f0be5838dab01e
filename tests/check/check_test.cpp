// The check finds what it should, says nothing on good projects, and never writes.

#include "check/Check.h"

#include "support/DamagedProjects.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

TEST(Check, SaysNothingOnTheSamples)
{
    for (const char* sample : {"示例一", "示例二"})
        for (const auto& finding : CheckProject(std::string(VM_SOURCE_DIR "/samples/") + sample))
            ADD_FAILURE() << FindingText(finding);
}

class Damaged : public testing::TestWithParam<DamagedProject> {};

TEST_P(Damaged, IsFoundAtItsPlaceAndNowhereElse)
{
    const auto& project = GetParam();
    const ProjectFolder workspace;
    const std::string folder = project.makeIn(workspace.root());
    const auto before = ProjectFolder::filesIn(folder);
    bool found = false;
    for (const auto& finding : CheckProject(folder)) {
        const std::string text = FindingText(finding);
        found = found || (text.starts_with(std::string(project.where) + ":") && text.find(project.text) != text.npos);
        EXPECT_EQ(finding.file, project.where.substr(0, project.where.find(':'))) << text;
    }
    EXPECT_TRUE(found) << project.where << ": " << project.text;
    EXPECT_EQ(ProjectFolder::filesIn(folder), before);
}

INSTANTIATE_TEST_SUITE_P(Check, Damaged, testing::ValuesIn(kDamagedProjects), [](const auto& param) {
    std::string name(param.param.name);
    std::replace(name.begin(), name.end(), '-', '_');
    return "No" + name;
});

TEST(Check, MissingFilesAreNoFaultButTheAlignment)
{
    ProjectFolder folder{{"其他参数.txt", "未设置\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    const auto findings = CheckProject(ProjectPath(gProject));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(FindingText(findings[0]), "平曲线参数.txt: 没有平曲线参数");
    EXPECT_FALSE(folder.has("平曲线参数.txt"));
}

}  // namespace
