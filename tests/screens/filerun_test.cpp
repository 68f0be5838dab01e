// What a file run tells about itself: how many lines, how many results, which lines gave none, and why it stopped.

#include "screens/BatchFile.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace {

struct FileRuns : testing::Test {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("velumark-" + std::to_string(std::random_device{}()));
    const std::filesystem::path path = folder / "点.txt";
    ScriptedDialogs dialogs;
    Screen screen{kCoordinateColumns};

    FileRuns()
    {
        std::filesystem::create_directories(folder);
        shared = {};
        straightNorth();
    }
    ~FileRuns() override
    {
        std::filesystem::remove_all(folder);
        shared = {};
    }
    void write(const std::string& bytes)
    {
        std::ofstream(path, std::ios::binary) << bytes;
        dialogs.open(path.string());
    }
    /// What the stake-out tells of a file with these bytes.
    std::string told(const std::string& bytes, bool doubtful)
    {
        write(bytes);
        const Outcome outcome = CalcPlfyFile(screen.rows);
        EXPECT_EQ(outcome.doubtful, doubtful) << bytes;
        return outcome.told;
    }
};

}  // namespace

TEST_F(FileRuns, LinesAndResults)
{
    EXPECT_EQ(told("10,0\r\n20,-3\r\n30,2\r\n", false), "点.txt：3 行，得到 3 个结果");
    EXPECT_EQ(screen.state.rows, 3);
}

TEST_F(FileRuns, ACancelledDialogTellsNothing)
{
    dialogs.cancelOpen();
    EXPECT_EQ(CalcPlfyFile(screen.rows).told, "");
}

TEST_F(FileRuns, LinesCountInTheFileAsCleaned)
{
    EXPECT_EQ(told("10,0\r\n\r\n\r\n20,0\r\n30,abc\r\n", true), "点.txt：没有计算，第 3 行“abc”不是数字");
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(FileRuns, WhyNothingWasComputed)
{
    EXPECT_EQ(told("10,0\r\n20;0\r\n30,0\r\n", true), "点.txt：没有计算，第 2 行“20;0”不是数字");
    EXPECT_EQ(told("10,0\r\n20\r\n30,0\r\n", true), "点.txt：没有计算，第 2 行不足 2 个数");
    EXPECT_EQ(told("10,1e999\r\n", true), "点.txt：没有计算，第 1 行“1e999”太大");
    EXPECT_EQ(told("10\r\n20\r\n", true), "点.txt：没有计算，没有用逗号分开的数");
    EXPECT_EQ(told("", true), "点.txt：没有计算，没有用逗号分开的数");
    EXPECT_EQ(told("10,\xD6\xD0\xD7\xAE\r\n", true), "点.txt：没有计算，第 1 行“中桩”不是数字");
    dialogs.open((path.parent_path() / "没有.txt").string());
    EXPECT_EQ(CalcPlfyFile(screen.rows).told, "没有.txt：没有计算，文件不存在");
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(FileRuns, OtherLineEnds)
{
    EXPECT_EQ(told("10,0\n20,0\n", true), "没有计算：换行不是 CR LF");
    EXPECT_EQ(told("10,0\r20,0\r", true), "没有计算：换行不是 CR LF");
    EXPECT_EQ(screen.state.rows, 0);
    // A third field hides the end of the first line: that line alone is read.
    EXPECT_EQ(told("10,0,a\n20,0,b\n", true), "点.txt：1 行，得到 1 个结果；换行不是 CR LF，只读了能分开的行");
    EXPECT_EQ(screen.state.rows, 1);
}

TEST_F(FileRuns, AStakeInAGapStopsTheRun)
{
    setBreaks({{500, 520}});
    EXPECT_EQ(told("10,0\r\n510,0\r\n30,0\r\n", true),
              "点.txt：3 行，得到 1 个结果；从第 2 行起没有计算：桩号不存在，请检查断链数据");
    EXPECT_EQ(screen.state.rows, 1);
}

TEST_F(FileRuns, PointsWithoutAStakeAreNamed)
{
    Screen inverse(kInverseColumns);
    write("1100,2001\r\n99999,99999\r\n1200,1999\r\n99999,-99999\r\n");
    const Outcome outcome = CalcFsFile(inverse.rows);
    EXPECT_EQ(outcome.told, "点.txt：4 行，得到 2 个结果；第 2、4 行没有对应的里程");
    EXPECT_TRUE(outcome.doubtful);
    EXPECT_EQ(inverse.state.rows, 2);
}

TEST_F(FileRuns, ManyPointsWithoutAStakeAreCounted)
{
    Screen inverse(kInverseColumns);
    std::string lines = "1100,2001\r\n";
    for (int i = 0; i < 12; ++i) lines += "99999,99999\r\n";
    write(lines);
    EXPECT_EQ(CalcFsFile(inverse.rows).told,
              "点.txt：13 行，得到 1 个结果；第 2、3、4、5、6、7、8、9、10、11 等 12 行没有对应的里程");
}

TEST_F(FileRuns, ElevationsWithoutAProfile)
{
    Screen heights(kElevationRunColumns);
    write("10,0\r\n");
    EXPECT_EQ(CalcPlGcFile("", heights.rows).told,
              "点.txt：1 行，得到 0 个结果；从第 1 行起没有计算：没有完整的竖曲线参数");
    sharpProfile();
    write("10,0\r\n");
    EXPECT_EQ(CalcPlGcFile("", heights.rows).told, "点.txt：1 行，得到 1 个结果");
    write("10,0\r\n");
    EXPECT_EQ(CalcPlGcFile("1.2.3", heights.rows).told,
              "点.txt：1 行，得到 0 个结果；从第 1 行起没有计算：“1.2.3”不是数字");
}

TEST_F(FileRuns, StructuresBeyondTheHundredth)
{
    Screen corners(kCornerColumns);
    JgwStructures structures;
    std::string lines;
    for (int i = 0; i < 102; ++i) lines += "100,1,1,2,2\r\n";
    write(lines);
    EXPECT_EQ(CalcJgwFile({}, structures, corners.rows).told,
              "点.txt：102 行，得到 100 个结果；从第 101 行起没有计算：打开窗口以来的结构物超过 100 个");
    EXPECT_EQ(corners.state.rows, 404) << "its rows stand";
}

TEST_F(FileRuns, AStoppedRunSaysWhere)
{
    struct Impatient : ResultTable {
        using ResultTable::ResultTable;
        int asked = 0;
        bool abandoned() override { return ++asked > 2; }
    } rows(screen.grid);
    write("10,0\r\n20,0\r\n30,0\r\n");
    EXPECT_EQ(CalcPlfyFile(rows).told, "点.txt：3 行，得到 2 个结果；从第 3 行起没有计算：已停止");
}
