// The check finds what it should, says nothing on good projects, and never writes.

#include "cli/Check.h"

#include "project/TextFile.h"
#include "support/ProjectFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> bytesOf(const fs::path& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files[entry.path().filename().string()] = ReadBytes(entry.path().string());
    return files;
}

struct Fault {
    std::string project, where, text;
};

std::vector<Fault> faults()
{
    std::vector<Fault> list;
    std::ifstream file(VM_TEST_DATA "/damaged/faults.txt");
    for (std::string line; std::getline(file, line);) {
        const auto a = line.find('|'), b = line.rfind('|');
        list.push_back({line.substr(0, a), line.substr(a + 1, b - a - 1), line.substr(b + 1)});
    }
    return list;
}

TEST(Check, SaysNothingOnTheSamples)
{
    for (const char* sample : {"示例一", "示例二"})
        for (const auto& finding : CheckProject(std::string(VM_SOURCE_DIR "/samples/") + sample))
            ADD_FAILURE() << FindingText(finding);
}

TEST(Check, ThereAreThirtyDamagedProjects) { EXPECT_GE(faults().size(), 30u); }

class DamagedProject : public testing::TestWithParam<Fault> {};

TEST_P(DamagedProject, IsFoundAtItsPlaceAndNowhereElse)
{
    const auto& fault = GetParam();
    const std::string folder = VM_TEST_DATA "/damaged/" + fault.project;
    const auto before = bytesOf(folder);
    const auto findings = CheckProject(folder);
    bool found = false;
    const bool otherRoad = fault.text == "积木法的7项" || fault.text == "交点法的格式";
    for (const auto& finding : findings) {
        const std::string text = FindingText(finding);
        found = found || (text.starts_with(fault.where + ":") && text.find(fault.text) != std::string::npos);
        // An alignment of the other model is another road, which the other files do not cover.
        if (otherRoad && text.find("没有数据") != std::string::npos) continue;
        EXPECT_EQ(finding.file, fault.where.substr(0, fault.where.find(':'))) << text;
    }
    EXPECT_TRUE(found) << fault.where << ": " << fault.text;
    EXPECT_EQ(bytesOf(folder), before);
}

INSTANTIATE_TEST_SUITE_P(Check, DamagedProject, testing::ValuesIn(faults()), [](const auto& param) {
    std::string name = param.param.project;
    for (char& c : name)
        if (c == '-') c = '_';
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
