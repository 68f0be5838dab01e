// The sample roads as a load compiles them, there and back.

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/RoundTrip.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

namespace {

class SampleRoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(SampleRoundTrip, TenThousandPoints)
{
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    gProjectFolder = folder.root() + "/sample";
    std::filesystem::copy(std::string(VM_SOURCE_DIR "/samples/") + GetParam(), gProjectFolder);
    LoadProject();
    ASSERT_GT(gElemCount, 10);

    std::mt19937_64 random(12);
    RoundTrip onTheRoad, asFarAsTheSmallestRadius;
    onTheRoad.goRandomly(random, 10000, 15);
    asFarAsTheSmallestRadius.goRandomly(random, 10000, 1000);
    onTheRoad.print(GetParam());
    asFarAsTheSmallestRadius.print(GetParam());
    EXPECT_TRUE(onTheRoad.unexplained.empty());
    EXPECT_TRUE(asFarAsTheSmallestRadius.unexplained.empty());
    EXPECT_GT(onTheRoad.good, 9900);
}

INSTANTIATE_TEST_SUITE_P(, SampleRoundTrip, testing::Values("示例一", "示例二"),
                         [](const auto& param) { return "road" + std::to_string(param.index + 1); });

}  // namespace
