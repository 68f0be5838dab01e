// The check finds what it should, says nothing on good projects, and never writes.

#include "cli/Check.h"

#include "project/TextFile.h"

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
    for (const auto& finding : findings) {
        const std::string text = FindingText(finding);
        found = found || (text.starts_with(fault.where + ":") && text.find(fault.text) != std::string::npos);
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

TEST(Check, MissingFilesAreNoFault)
{
    const auto folder = fs::temp_directory_path() / "velumark_check_missing";
    fs::create_directories(folder);
    std::ofstream(folder / fs::u8path("其他参数.txt"), std::ios::binary)
        << Cp936FromUtf8("未设置\r\n未设置\r\n未设置\r\n未设置\r\n");
    EXPECT_TRUE(CheckProject(folder.string()).empty());
    EXPECT_EQ(bytesOf(folder).size(), 1u);
    fs::remove_all(folder);
}

}  // namespace
