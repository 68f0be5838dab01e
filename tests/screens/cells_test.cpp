// The number of a cell is the one that its text shows: rounded, cut to seconds, signed as people read it.

#include "base/Numbers.h"
#include "engine/Route.h"
#include "screens/DgdZb.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "screens/Rows.h"
#include "screens/Zdcs.h"
#include "support/NumbersOfTexts.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

#include "project/LoadTables.h"

#include <bit>
#include <random>

namespace {

std::optional<std::uint64_t> bitsOf(const std::optional<double>& number)
{
    return number ? std::optional(std::bit_cast<std::uint64_t>(*number)) : std::nullopt;
}

/// How many cells of the rows show a number.
int compareCells(const Screen& screen)
{
    const GridText& grid = screen.grid.text();
    int numbers = 0;
    for (int row = 1; row < grid.rows(); ++row)
        for (int col = 1; col < grid.cols(); ++col) {
            const auto wanted = as_read::byHeader(grid.text(0, col), grid.text(row, col));
            const std::string header = grid.text(0, col);
            if (header.find("编号") != std::string::npos || header == "点位置") {
                EXPECT_EQ(grid.shown(row, col), std::nullopt);
                continue;
            }
            EXPECT_EQ(bitsOf(grid.shown(row, col)), bitsOf(wanted)) << header << ": " << grid.text(row, col);
            numbers += wanted.has_value();
        }
    return numbers;
}

struct Cells : testing::Test {
    ScriptedDialogs dialogs;
    std::mt19937 random{20};

    void road(const std::string& name)
    {
        shared = {};
        loadTables(VM_SOURCE_DIR "/samples/" + name, shared.tables);
        ASSERT_GT(gElemCount, 0);
    }
    double pick(double from, double to) { return std::uniform_real_distribution(from, to)(random); }
    ~Cells() override { shared = {}; }
};

}  // namespace

TEST_F(Cells, ShowWhatTheirTextsSay)
{
    for (const auto* name : {"示例一", "示例二"}) {
        road(name);
        const double first = gElemLc.front(), last = gElemLc[static_cast<std::size_t>(gElemCount)] - 1;
        Screen run(kCoordinateColumns), points(kCoordinateColumns), inverse(kInverseColumns),
            heights(kElevationRunColumns), corners(kCornerColumns), mainPoints(kMainPointColumns);
        JgwStructures structures;
        for (int i = 0; i < 60; ++i) {
            const double stake = pick(first, last), offset = i % 5 ? pick(-40, 40) : 0;
            AddPlfyLine({stake, offset}, run.rows);
            AddPlGcLine({Round(stake, i % 8), offset}, "0.6", heights.rows);
            CalcDgdZb({.stake = NumText(stake),
                       .offset = NumText(offset),
                       .skewed = true,
                       .skew = NumText(pick(-200, 400)),
                       .station = {.typed = true, .pick = {}, .x = "2857000", .y = "513000.5"}},
                      points.rows);
            StakeToXY(stake, 90, offset);
            FootRun feet;
            AddFsPoint(feet, gOutX + pick(-1e-3, 1e-3), gOutY, inverse.rows);
            JgwInput boxes;
            boxes.skewed = i % 2 == 0;
            if (structures.count < 50) AddJgwLine({stake, 2, 3, 4, 5}, boxes, structures, corners.rows);
        }
        EXPECT_GT(compareCells(run), 300);
        EXPECT_GT(compareCells(points), 300);
        EXPECT_GT(compareCells(inverse), 200);
        EXPECT_GT(compareCells(heights), 150);
        EXPECT_GT(compareCells(corners), 800);
        LoadZdcs(mainPoints.rows);
        compareCells(mainPoints);
    }
}

TEST_F(Cells, TheSecondPassOfAnOverlapIsNegative)
{
    setElements({{10000, 0, 0, 45, 0, 0}, {10300, 212.132, 212.132, 45, 0, 0}});
    setBreaks({{10120, 10100}});
    Screen inverse(kInverseColumns);
    StakeToXY(10130, 270, 2.5);
    FootRun feet;
    AddFsPoint(feet, gOutX, gOutY, inverse.rows);
    EXPECT_EQ(inverse.row(1)[3], "-K10+110.000");
    EXPECT_EQ(inverse.grid.text().shown(1, 3), -10110);
    EXPECT_EQ(inverse.grid.text().shown(1, 4), -2.5);
}

TEST_F(Cells, SidesAreSigned)
{
    EXPECT_EQ(SideCell("左", 12.5).value.shown(), -12.5);
    EXPECT_EQ(SideCell("右", .5).value.shown(), 0.5);
    EXPECT_EQ(SideCell("斜交", 8).value.shown(), 8);
    EXPECT_EQ(CentreCell().value.shown(), 0);
    EXPECT_EQ(Cell("无").value.shown(), std::nullopt);
}

TEST_F(Cells, AnglesAreThoseOfTheirWholeSeconds)
{
    EXPECT_EQ(DmsCellOf(45.3036).value.shown(), 45 + 30 / 60.0 + 36 / 3600.0);
    EXPECT_EQ(DmsCellOf(45.30369).value.shown(), 45 + 30 / 60.0 + 36 / 3600.0) << "seconds are cut";
    EXPECT_EQ(SkewCell(-45.3).text, "-45度30分00秒");
    EXPECT_EQ(SkewCell(-45.3).value.shown(), -45.5);
    EXPECT_EQ(DmsCellOf(-400.3).value.shown(), as_read::angleOf(FormatDmsOf(-400.3)))
        << "below a turn it stays negative";
    for (int i = 0; i < 20000; ++i) {
        const double dms = pick(-900, 900);
        ASSERT_EQ(bitsOf(DmsCellOf(dms).value.shown()), bitsOf(as_read::angleOf(FormatDmsOf(dms)))) << dms;
        ASSERT_EQ(bitsOf(SkewCell(dms).value.shown()), bitsOf(as_read::angleOf(SkewCell(dms).text))) << dms;
    }
}

TEST_F(Cells, LengthsAreThoseOfTheirDigits)
{
    for (int i = 0; i < 20000; ++i) {
        const double value = pick(-1, 1) * std::pow(10, pick(-6, 9));
        ASSERT_EQ(bitsOf(Fixed3Cell(value).value.shown()), bitsOf(as_read::numberOf(FormatFixed3(value)))) << value;
        ASSERT_EQ(bitsOf(NumberCell(value).value.shown()), bitsOf(as_read::numberOf(NumText(value)))) << value;
        ASSERT_EQ(bitsOf(StakeCell(value).value.shown()), bitsOf(as_read::stakeOf(FormatStake(value)))) << value;
        ASSERT_EQ(bitsOf(SideCell("左", value).value.shown()), bitsOf(as_read::offsetOf(SideCell("左", value).text)))
            << value;
    }
}
