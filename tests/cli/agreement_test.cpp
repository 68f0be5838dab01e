// The built companion gives the rows of the screens, character for character.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "cli/Output.h"
#include "office/Xls.h"
#include "project/LoadProject.h"
#include "screens/DgdGc.h"
#include "screens/DgdZb.h"
#include "screens/Export.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/Pl.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "screens/Zdcs.h"
#include "support/ProjectFolder.h"
#include "support/RunProgram.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

struct Road {
    const char* sample;
    bool breaks;
    const char *from, *to, *inside;
};
void PrintTo(const Road& road, std::ostream* out) { *out << road.sample << (road.breaks ? "" : " without breaks"); }

class Agreement : public testing::TestWithParam<Road> {
protected:
    ScriptedDialogs dialogs;
    ProjectFolder folder;

    Agreement()
    {
        for (const auto& file : fs::directory_iterator(fs::path(VM_SOURCE_DIR "/samples") / GetParam().sample))
            if (GetParam().breaks || file.path().filename() != "断链参数.txt")
                fs::copy(file.path(), folder.path(file.path().filename().string()));
        LoadProject();
    }
    /// The CSV of a command on the same project.
    std::string companion(std::vector<std::string> args, const std::string& input = {}) const
    {
        args.insert(args.begin(), {"--workspace", folder.root(), "测试"});
        args.insert(args.end(), {"--format", "csv", "--quiet"});
        return runCompanion(args, input).out;
    }
    /// Expects the very sheet that a screen saves.
    void expectSheet(std::vector<std::string> args, const ExportLayout& layout, const ExportData& data) const
    {
        const std::string path = folder.root() + "/结果.xls";
        args.insert(args.begin(), {"--workspace", folder.root(), "测试"});
        args.insert(args.end(), {"-o", path, "--quiet"});
        EXPECT_EQ(runCompanion(args).out, "");
        EXPECT_TRUE(ReadBytes(path) == XlsBytes(ResultSheet(layout, data))) << args[3];
    }
    static std::string csv(const Screen& screen) { return Csv(screen.grid.text(), "\n"); }
    /// Has the next file dialog pick a file of these lines, ended as screens want them.
    void pick(const std::string& lines)
    {
        std::string bytes;
        for (const char c : lines) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
        WriteBytes(folder.root() + "/批量.txt", bytes);
        dialogs.open(folder.root() + "/批量.txt");
    }
};

INSTANTIATE_TEST_SUITE_P(, Agreement,
                         testing::Values(Road{"示例一", true, "12000", "18400", "12600"},
                                         Road{"示例一", false, "12000", "18400", "12600"},
                                         Road{"示例二", false, "0", "1110", "600"}));

}  // namespace

TEST_P(Agreement, Coords)
{
    const auto road = GetParam();
    Screen screen(kCoordinateColumns);
    EXPECT_TRUE(CalcDgdZb({.stake = road.inside,
                           .side = "左边桩",
                           .offset = "12.5",
                           .skew = {},
                           .station = {.pick = gDxdName[0], .pickIndex = 0, .x = {}, .y = {}}},
                          screen.rows));
    EXPECT_EQ(
        companion({"coords", "--at", road.inside, "--side", "left", "--offset", "12.5", "--station", gDxdName[0]}),
        csv(screen));
}

TEST_P(Agreement, Stakeout)
{
    const auto road = GetParam();
    Screen screen(kCoordinateColumns);
    const PlfyInput in{.start = road.from,
                       .end = road.to,
                       .step = "7.5",
                       .offset = "6.25",
                       .skew = {},
                       .station = {.typed = true, .pick = {}, .x = "2857000", .y = "513000.5"}};
    EXPECT_TRUE(CalcPlfy(in, screen.rows));
    EXPECT_GT(screen.state.rows, 300);
    EXPECT_EQ(companion({"stakeout", "--from", road.from, "--to", road.to, "--step", "7.5", "--offset", "6.25",
                         "--station", "2857000,513000.5"}),
              csv(screen));
}

TEST_P(Agreement, StakeoutOfAFile)
{
    const std::string lines = std::string(GetParam().from) + ",0\n" + GetParam().inside + ",-3.25\n99999,4\n";
    Screen screen(kCoordinateColumns);
    pick(lines);
    EXPECT_TRUE(CalcPlfyFile(screen.rows));
    EXPECT_EQ(screen.state.rows, 3);
    EXPECT_EQ(companion({"stakeout", "--file", "-"}, lines), csv(screen));
}

TEST_P(Agreement, Inverse)
{
    Screen there(kCoordinateColumns), back(kInverseColumns);
    EXPECT_TRUE(CalcPlfy(
        {.start = GetParam().from, .end = GetParam().to, .step = "43", .offset = "9.75", .skew = {}, .station = {}},
        there.rows));
    std::string lines;
    for (int row = 1; row < there.grid.text().rows(); ++row)
        lines += there.row(row)[6] + "," + there.row(row)[7] + "\n";
    pick(lines);
    shared.results.inX = shared.results.inY = shared.results.inLc = 0;
    EXPECT_TRUE(CalcFsFile(back.rows));
    EXPECT_GT(back.state.rows, 50);
    EXPECT_EQ(companion({"inverse", "--file", "-"}, lines), csv(back));
}

TEST_P(Agreement, Elevation)
{
    const auto road = GetParam();
    Screen run(kElevationRunColumns), one(kElevationColumns), file(kElevationRunColumns);
    EXPECT_TRUE(
        CalcPlGc({.start = road.from, .end = road.to, .offset = "4.75", .step = "7.5", .thickness = "0.18"}, run.rows));
    EXPECT_EQ(companion({"elevation", "--from", road.from, "--to", road.to, "--step", "7.5", "--offset", "4.75",
                         "--thickness", "0.18"}),
              csv(run));
    EXPECT_TRUE(CalcDgdGc({.stake = road.inside, .side = "右边桩", .offset = "4.75", .thickness = "0.18"}, one.rows));
    EXPECT_EQ(companion({"elevation", "--at", road.inside, "--offset", "4.75", "--thickness", "0.18"}), csv(one));
    const std::string lines = std::string(road.inside) + ",-4\n99999,4\n";
    pick(lines);
    EXPECT_TRUE(CalcPlGcFile("0.18", file.rows));
    EXPECT_EQ(companion({"elevation", "--file", "-", "--thickness", "0.18"}, lines), csv(file));
}

TEST_P(Agreement, Corners)
{
    const auto road = GetParam();
    const std::vector<std::string> size{"--kq", "2", "--kh", "3.5", "--zz", "12", "--zy", "13", "--skew", "60.3000"};
    JgwInput in{.stake = road.inside,
                .kq = "2",
                .kh = "3.5",
                .zz = "12",
                .zy = "13",
                .skewed = true,
                .skew = "60.3000",
                .station = {}};
    const auto call = [&](std::vector<std::string> args) {
        args.insert(args.end(), size.begin(), size.end());
        return companion(args);
    };
    Screen one(kCornerColumns), run(kCornerColumns), file(kCornerColumns);
    JgwStructures structures;
    EXPECT_TRUE(CalcJgw(in, structures, one.rows));
    EXPECT_EQ(call({"corners", "--at", road.inside}), csv(one));
    in.stake.clear();
    in.skewEnds = false;
    EXPECT_TRUE(CalcPl({.start = road.from, .end = road.to, .step = "500"}, in));
    EXPECT_TRUE(CalcJgw(in, structures, run.rows));
    EXPECT_EQ(call({"corners", "--from", road.from, "--to", road.to, "--step", "500", "--mode", "zz"}), csv(run));
    const std::string lines = std::string(road.inside) + ",2,3,4,5\n";
    pick(lines);
    in.skewed = false;
    EXPECT_TRUE(CalcJgwFile(in, structures, file.rows));
    EXPECT_EQ(companion({"corners", "--file", "-"}, lines), csv(file));
}

TEST_P(Agreement, MainPointsOfWhichBlocksHaveNone)
{
    Screen screen(kMainPointColumns);
    LoadZdcs(screen.rows);
    EXPECT_EQ(companion({"mainpoints"}), csv(screen));
}

TEST_P(Agreement, SheetsOfEveryKind)
{
    const auto road = GetParam();
    const StationInput station{.pick = gDxdName[1], .pickIndex = 1, .x = {}, .y = {}};
    const auto data = [](const Screen& screen, const std::string& pick = {}) {
        return ExportData{screen.grid.text(), screen.state.rows, pick};
    };
    Screen point(kCoordinateColumns), run(kCoordinateColumns), inverse(kInverseColumns), height(kElevationColumns),
        heights(kElevationRunColumns), corners(kCornerColumns);

    EXPECT_TRUE(CalcDgdZb({.stake = road.inside, .offset = {}, .skew = {}, .station = station}, point.rows));
    expectSheet({"coords", "--at", road.inside, "--station", station.pick}, kDgdZbExport, data(point, station.pick));

    EXPECT_TRUE(CalcPlfy(
        {.start = road.from, .end = road.to, .step = "50", .offset = "5", .skew = {}, .station = station}, run.rows));
    expectSheet(
        {"stakeout", "--from", road.from, "--to", road.to, "--step", "50", "--offset", "5", "--station", station.pick},
        kPlfyExport, data(run, station.pick));

    JgwStructures structures;
    const JgwInput structure{.stake = road.inside,
                             .skewEnds = false,
                             .kq = "2",
                             .kh = "3.50",
                             .zz = "12",
                             .zy = "13",
                             .skew = {},
                             .station = station};
    EXPECT_TRUE(CalcJgw(structure, structures, corners.rows));
    expectSheet({"corners", "--at", road.inside, "--kq", "2", "--kh", "3.50", "--zz", "12", "--zy", "13", "--mode",
                 "zz", "--station", station.pick},
                kJgwExport, {corners.grid.text(), corners.state.rows, station.pick, [&](int row) {
                                 return JgwParameters(structures, false, row);
                             }});

    EXPECT_TRUE(CalcFs({point.row(1)[6], point.row(1)[7]}, inverse.rows));
    expectSheet({"inverse", "--at", point.row(1)[6] + "," + point.row(1)[7]}, kFsExport, data(inverse));

    EXPECT_TRUE(CalcDgdGc({.stake = road.inside, .offset = {}, .thickness = {}}, height.rows));
    expectSheet({"elevation", "--at", road.inside}, kDgdGcExport, data(height));

    EXPECT_TRUE(
        CalcPlGc({.start = road.from, .end = road.to, .offset = "5", .step = "50", .thickness = {}}, heights.rows));
    expectSheet({"elevation", "--from", road.from, "--to", road.to, "--step", "50", "--offset", "5"}, kPlGcExport,
                data(heights));

    if (gZdCount < 1) return;  // a refusal, which writes no file
    Screen mainPoints(kMainPointColumns);
    LoadZdcs(mainPoints.rows);
    expectSheet({"mainpoints"}, kZdcsExport, data(mainPoints));
}
