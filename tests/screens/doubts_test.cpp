// Doubts about single cells: each appears where it should and nowhere else, and moves no text and no shared value.

#include "screens/DgdGc.h"
#include "screens/DgdZb.h"
#include "screens/Doubts.h"
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

const std::string kNoStation = "没有测站：方位角和距离从坐标原点算起";
const std::string kTwoPlaces = "此里程有两处（长链），负号表示第二处";
const std::string kEdge = "偏距超出路基，高程取路基边缘";
const StationInput kTyped{.typed = true, .pick = {}, .x = "5", .y = "6"};

struct Doubts : testing::Test {
    Doubts()
    {
        shared = {};
        straightNorth();
    }
    ~Doubts() override { shared = {}; }

    /// Columns of the row that are doubtful for this reason alone.
    static std::vector<int> where(const Screen& screen, int row, const std::string& text)
    {
        std::vector<int> columns;
        for (int col = 1; col < screen.grid.text().cols(); ++col)
            if (screen.grid.text().doubt(row, col) == text) columns.push_back(col);
        return columns;
    }
    static std::string all(const Screen& screen)
    {
        std::string texts;
        for (int row = 1; row < screen.grid.text().rows(); ++row)
            for (int col = 1; col < screen.grid.text().cols(); ++col) texts += screen.grid.text().doubt(row, col);
        return texts;
    }
    /// A level road of 5 m on both sides with a median of 2 m, from 0 to 800; superelevation from 0 to 600.
    static void section()
    {
        sharpProfile();
        gCgkdG = {0, 800};
        gCgkdA = gCgkdB = {5, 5};
        gCgkdC = {2, 2};
        gCgkdD = gCgkdE = gCgkdF = {0, 0};
        gCgkdCount = 1;
        gCgLc = {0, 600};
        gCgA = gCgB = {-0.02, -0.02};
        gCgC = {0, 0};
        gCgCount = 1;
        gCgType = "0";
    }
};

using Columns = std::vector<int>;

}  // namespace

TEST_F(Doubts, NoStationMarksAzimuthAndDistanceAlone)
{
    Screen one(kCoordinateColumns), run(kCoordinateColumns), corners(kCornerColumns);
    EXPECT_TRUE(CalcDgdZb({.stake = "150", .offset = {}, .skew = {}, .station = {}}, one.rows));
    EXPECT_EQ(where(one, 1, kNoStation), (Columns{4, 5}));
    EXPECT_TRUE(
        CalcPlfy({.start = "0", .end = "20", .step = "10", .offset = "3", .skew = {}, .station = {}}, run.rows));
    for (int row = 1; row <= run.state.rows; ++row) EXPECT_EQ(where(run, row, kNoStation), (Columns{4, 5})) << row;
    JgwStructures structures;
    const JgwInput box{.stake = "100", .kq = "1", .kh = "1", .zz = "2", .zy = "2", .skew = {}, .station = {}};
    EXPECT_TRUE(CalcJgw(box, structures, corners.rows));
    for (int row = 1; row <= 4; ++row) EXPECT_EQ(where(corners, row, kNoStation), (Columns{4, 5})) << row;
}

TEST_F(Doubts, AStationTypedOrPickedIsFine)
{
    gDxdName = {"P0", "P1"};
    gDxdX = {1000, 1100};
    gDxdY = {1900, 2000};
    gDxdCount = 1;
    const StationInput picked{.pick = "P1", .pickIndex = 1, .x = {}, .y = {}};
    for (const auto& station : {kTyped, picked}) {
        Screen one(kCoordinateColumns);
        EXPECT_TRUE(CalcDgdZb({.stake = "150", .offset = {}, .skew = {}, .station = station}, one.rows));
        EXPECT_EQ(all(one), "");
    }
    const StationInput origin{.typed = true, .pick = {}, .x = "0", .y = "0"};
    EXPECT_EQ(warning::NoStation(origin), "") << "somebody wants the origin";
}

TEST_F(Doubts, AFileRunNamesTheStationInMemory)
{
    gStationX = 5;
    gStationY = 6.5;
    EXPECT_EQ(warning::FileStation({}), "文件计算用的测站是 (5, 6.5)");
    EXPECT_EQ(warning::FileStation(kTyped), "文件计算用的测站是 (5, 6.5)");
    gStationY = 6;
    EXPECT_EQ(warning::FileStation(kTyped), "") << "the window shows the same";
    gStationX = gStationY = 0;
    EXPECT_EQ(warning::FileStation({}), kNoStation);
    EXPECT_EQ(warning::FileStation(kTyped), kNoStation);
}

TEST_F(Doubts, TheFileRunOfTheStakeOutCarriesIt)
{
    const auto path =
        std::filesystem::temp_directory_path() / ("velumark-" + std::to_string(std::random_device{}()) + ".txt");
    std::ofstream(path, std::ios::binary) << "10,0\r\n20,-3\r\n";
    gStationX = 5;
    ScriptedDialogs dialogs;
    dialogs.open(path.string());
    Screen screen(kCoordinateColumns);
    EXPECT_TRUE(CalcPlfyFile(screen.rows, {}));
    std::filesystem::remove(path);
    ASSERT_EQ(screen.state.rows, 2);
    EXPECT_EQ(where(screen, 1, "文件计算用的测站是 (5, 0)"), (Columns{4, 5}));
    EXPECT_EQ(where(screen, 2, "文件计算用的测站是 (5, 0)"), (Columns{4, 5}));
}

TEST_F(Doubts, AFileOfStructuresTakesNoAngle)
{
    JgwStructures structures;
    JgwInput box{.stake = {}, .kq = {}, .kh = {}, .zz = {}, .zy = {}, .skewed = true, .skew = "60", .station = kTyped};
    Screen screen(kCornerColumns);
    AddJgwLine({100, 1, 1, 2, 2}, box, structures, screen.rows);
    for (int row = 1; row <= 4; ++row)
        EXPECT_EQ(where(screen, row, "从文件读取按 90 度计算，未用夹角"), (Columns{3})) << row;
    box.skewed = false;
    Screen plain(kCornerColumns);
    AddJgwLine({100, 1, 1, 2, 2}, box, structures, plain.rows);
    EXPECT_EQ(all(plain), "");
}

TEST_F(Doubts, AStakeOfAnOverlapIsReadTwice)
{
    setBreaks({{500, 480}});
    for (const double stake : {481.0, 490.0, 500.0, -490.0}) EXPECT_EQ(warning::TwoPlaces(stake), kTwoPlaces) << stake;
    for (const double stake : {0.0, 479.999, 500.001, 600.0, -600.0}) EXPECT_EQ(warning::TwoPlaces(stake), "") << stake;
    Screen one(kCoordinateColumns);
    EXPECT_TRUE(CalcDgdZb({.stake = "490", .offset = {}, .skew = {}, .station = kTyped}, one.rows));
    EXPECT_EQ(where(one, 1, kTwoPlaces), (Columns{1}));
    sharpProfile();
    Screen height(kElevationColumns);
    EXPECT_TRUE(CalcDgdGc({.stake = "-490", .offset = {}, .thickness = {}}, height.rows));
    EXPECT_EQ(where(height, 1, kTwoPlaces), (Columns{1}));
}

TEST_F(Doubts, AJumpHasNoStakeTwice)
{
    setBreaks({{500, 520}});
    for (const double stake : {499.0, 500.0, 520.0, 521.0, 600.0}) EXPECT_EQ(warning::TwoPlaces(stake), "") << stake;
    shared.tables.hasDl = 0;
    EXPECT_EQ(warning::TwoPlaces(490), "");
}

TEST_F(Doubts, AnOffsetBeyondTheFormation)
{
    section();
    EXPECT_EQ(warning::OffSection(100, 5), "");
    EXPECT_EQ(warning::OffSection(100, -5), "");
    EXPECT_EQ(warning::OffSection(100, 5.001), kEdge);
    EXPECT_EQ(warning::OffSection(100, -5.001), kEdge);
    EXPECT_EQ(warning::OffSection(100, 0), "");
    Screen one(kElevationColumns);
    EXPECT_TRUE(CalcDgdGc({.stake = "100", .side = "左边桩", .offset = "6", .thickness = {}}, one.rows));
    EXPECT_EQ(where(one, 1, kEdge), (Columns{3}));
    gCgkdB = {9, 9};
    Screen run(kElevationRunColumns);
    EXPECT_TRUE(CalcPlGc({.start = "0", .end = "20", .offset = "6", .step = "10", .thickness = {}}, run.rows));
    EXPECT_EQ(where(run, 1, kEdge), (Columns{5})) << "the left side alone is narrow";
}

TEST_F(Doubts, BeyondWidthsAndSuperelevation)
{
    section();
    EXPECT_EQ(warning::OffSection(599.9, 3), "");
    EXPECT_EQ(warning::OffSection(600, 3), "里程超出超高范围，高程取中桩高程");
    EXPECT_EQ(warning::OffSection(600, 0.9), "") << "within the median nothing is inclined";
    EXPECT_EQ(warning::OffSection(800, 3), "里程超出超高宽度范围，高程取中桩高程");
    EXPECT_EQ(warning::OffSection(-1, 3), "里程超出超高宽度范围，高程取中桩高程");
    EXPECT_EQ(warning::OffSection(800, 0), "");
    gCgkdCount = 0;
    EXPECT_EQ(warning::OffSection(100, 3), "没有超高宽度参数，高程取中桩高程");
    Screen line(kElevationColumns);
    AddPlGcLine({100, 3}, "", line.rows);
    EXPECT_EQ(where(line, 1, "没有超高宽度参数，高程取中桩高程"), (Columns{3}));
}

TEST_F(Doubts, TheRoadConcernsTheCellsThatHangOnIt)
{
    const RoadDoubts doubts{"甲", "乙", "丙"};
    const auto bits = [](std::initializer_list<int> columns) {
        std::uint32_t mask = 0;
        for (const int col : columns) mask |= std::uint32_t{1} << col;
        return mask;
    };
    using Notes = std::vector<CellNote>;
    // What was typed does not hang on the road: stake, side and angle of a point, X and Y of an inverse.
    const auto coordinates = bits({4, 5, 6, 7, 8});
    EXPECT_EQ(RoadNotes(kCoordinateColumns, doubts, false), (Notes{{coordinates, "甲"}}));
    EXPECT_EQ(RoadNotes(kCoordinateColumns, doubts, true), (Notes{{coordinates, "甲"}, {bits({4, 5}), "丙"}}));
    EXPECT_EQ(RoadNotes(kCornerColumns, doubts, false), (Notes{{coordinates, "甲"}}));
    EXPECT_EQ(RoadNotes(kElevationColumns, doubts, false), (Notes{{bits({3}), "乙"}}));
    EXPECT_EQ(RoadNotes(kElevationRunColumns, doubts, false), (Notes{{bits({3, 5, 7}), "乙"}}));
    EXPECT_EQ(RoadNotes(kInverseColumns, doubts, false), (Notes{{bits({3, 4}), "甲"}}));
    EXPECT_EQ(RoadNotes(kMainPointColumns, doubts, false), (Notes{{0x3FFFFE, "甲"}}));
    EXPECT_TRUE(RoadNotes(kCoordinateColumns, {}, true).empty());
}

TEST_F(Doubts, ACellThatARowHasNotIsNotDoubtful)
{
    sharpProfile();
    Screen screen(kElevationRunColumns);
    NotedRows rows(screen.rows, RoadNotes(kElevationRunColumns, {"", "乙", ""}, false), false);
    AddPlGcLine({100, 0}, "", rows);
    EXPECT_EQ(where(screen, 1, "乙"), (Columns{3})) << "no left and right side in the row of a file";
}

TEST_F(Doubts, TheStationOfEachRowIsRememberedForTheSave)
{
    Screen screen(kCoordinateColumns);
    NotedRows rows(screen.rows, {}, true);
    const auto point = [&](const std::string& x) {
        const StationInput station{.typed = true, .pick = {}, .x = x, .y = "6.5"};
        EXPECT_TRUE(CalcDgdZb({.stake = "150", .offset = {}, .skew = {}, .station = station}, rows));
    };
    for (const auto* x : {"5", "5", "5", "7", "5", "8"}) point(x);
    EXPECT_EQ(OtherStations(screen.grid.text(), screen.state.rows),
              "第 1～5 行的测站是 (5, 6.5) 等，保存的表里写的是 (8, 6.5)");
    gStationX = 5;
    EXPECT_EQ(OtherStations(screen.grid.text(), screen.state.rows),
              "第 4、6 行的测站是 (7, 6.5) 等，保存的表里写的是 (5, 6.5)");
    screen.grid.setRow(6);
    screen.rows.deleteCursorRow();
    EXPECT_EQ(OtherStations(screen.grid.text(), screen.state.rows),
              "第 4 行的测站是 (7, 6.5)，保存的表里写的是 (5, 6.5)");
    screen.grid.setRow(4);
    screen.rows.deleteCursorRow();
    EXPECT_EQ(OtherStations(screen.grid.text(), screen.state.rows), "");
}

TEST_F(Doubts, RowsWithoutAStationHaveNoneToDiffer)
{
    sharpProfile();
    Screen screen(kElevationColumns);
    NotedRows rows(screen.rows, {}, false);
    EXPECT_TRUE(CalcDgdGc({.stake = "100", .offset = {}, .thickness = {}}, rows));
    gStationX = 77;
    EXPECT_EQ(OtherStations(screen.grid.text(), screen.state.rows), "");
}

TEST_F(Doubts, RowsAndSharedValuesAreTheSameWithAndWithout)
{
    const DgdZbInput in{.stake = "150", .offset = {}, .skew = {}, .station = kTyped};
    Screen plain(kCoordinateColumns), noted(kCoordinateColumns);
    EXPECT_TRUE(CalcDgdZb(in, plain.rows));
    const Shared after = shared;
    NotedRows rows(noted.rows, RoadNotes(kCoordinateColumns, {"甲", "乙", "丙"}, true), true);
    EXPECT_TRUE(CalcDgdZb(in, rows));
    EXPECT_EQ(differences(shared, after), "");
    EXPECT_EQ(noted.row(1), plain.row(1));
    EXPECT_EQ(noted.state, plain.state);
    EXPECT_EQ(noted.grid.text().doubt(1, 4), "甲；丙");
}

TEST_F(Doubts, LookingMovesNothing)
{
    section();
    setBreaks({{500, 480}});
    const Shared before = shared;
    warning::TwoPlaces(490);
    warning::OffSection(100, 7);
    warning::FileStation(kTyped);
    EXPECT_EQ(differences(shared, before), "");
}
