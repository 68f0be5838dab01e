// Inverse stake from coordinates.

#include "base/RunTimeError.h"
#include "screens/Fs.h"

#include "base/ReplaceFile.h"
#include "engine/XYToStake.h"
#include "support/ProjectFolder.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

namespace {

struct Fs : FreshTables<testing::Test> {
    Screen screen{kInverseColumns};

    // To the east from X 1000, Y 2000: Y is 2000 + stake, X is 1000 - offset.
    Fs() { setElements({{0, 1000, 2000, 90, 0, 0}, {1000, 1000, 3000, 90, 0, 0}}); }
    Outcome calc(const std::string& x, const std::string& y) { return CalcFs({x, y}, screen.rows); }
};

}  // namespace

TEST_F(Fs, StakeAndOffset)
{
    EXPECT_TRUE(calc(" 990 ", "2250.5"));
    EXPECT_EQ(screen.row(1), (Texts{"1", "990", "2250.5", "K0+250.500", "右10.000米"}));
    EXPECT_TRUE(calc("1003.25", "2400"));
    EXPECT_EQ(screen.row(2), (Texts{"2", "1003.25", "2400", "K0+400.000", "左3.250米"}));
    EXPECT_EQ(screen.state, (ScreenState{2, true}));
}

TEST_F(Fs, CoordinatesShowAsShortestText)
{
    EXPECT_TRUE(calc("1000.50", "2100.00"));
    EXPECT_EQ(screen.row(1)[1], "1000.5");
    EXPECT_EQ(screen.row(1)[2], "2100");
}

TEST_F(Fs, RefusalsInOrder)
{
    expectOrder<FsInput>({"1000", "2100"},
                         {
                             {"X", [](auto& in) { in.x = " "; }, refusal("X坐标不能为空！", "错误", "txtFsx")},
                             {"Y", [](auto& in) { in.y = ""; }, refusal("Y坐标不能为空！", "错误", "txtFsY")},
                         },
                         [this](const FsInput& in) { return CalcFs(in, screen.rows); });
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(Fs, XIsTakenBeforeYIsRefused)
{
    EXPECT_FALSE(calc("123", ""));
    EXPECT_EQ(gInX, 123);
}

TEST_F(Fs, ATextThatIsNoNumberIsFatal)
{
    for (const char* text : {"1.2.3", "-", "12-3"}) {
        EXPECT_EQ(fatalError([&] { calc(text, "2100"); }), RunTimeError::TypeMismatch);
        EXPECT_EQ(fatalError([&] { calc("1000", text); }), RunTimeError::TypeMismatch);
    }
    EXPECT_EQ(fatalError([&] { calc("1.2.3", ""); }), RunTimeError::TypeMismatch) << "before Y is looked at";
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(Fs, WithoutARoadTheFirstTableAccessIsFatal)
{
    shared = {};
    EXPECT_EQ(fatalError([&] { calc("1000", "2100"); }), RunTimeError::Subscript);
}

TEST_F(Fs, AnUnsettledWalkDropsThePointInSilenceAndSetsTheFlag)
{
    EXPECT_TRUE(calc("990", "2250.5"));
    screen.state.changed = false;
    // Beyond the end the stake stays where it is and the walk never gets to the normal.
    EXPECT_TRUE(calc("1500", "3400"));
    EXPECT_EQ(screen.state, (ScreenState{1, true})) << "an earlier text makes no row";
}

TEST_F(Fs, TheSecondPassOfAnOverlapHasAMinus)
{
    setBreaks({{500, 480}});
    EXPECT_TRUE(calc("1000.5", "2510"));
    EXPECT_EQ(screen.row(1)[3], "-K0+490.000");
}

TEST_F(Fs, StationAndOtherScreensAreLeftAlone)
{
    gStationX = 5;
    gStationY = 6;
    const Shared before = shared;
    EXPECT_TRUE(calc("990", "2250.5"));
    EXPECT_EQ(gStationX, before.session.stationX);
    EXPECT_EQ(gStationY, before.session.stationY);
    EXPECT_EQ(gElemLc, before.tables.elemLc);
}

TEST_F(Fs, AWarningDoesNotDisturbWhatTheWalkLeft)
{
    EXPECT_TRUE(calc("990", "2250.5"));
    const Shared after = shared;
    shared.results.outX = shared.results.outY = shared.results.outFwj = shared.results.outDist = shared.results.inLc =
        0;
    XYToStakeFromStart();
    EXPECT_EQ(shared, after);
}

namespace {

struct FsFile : Fs {
    ProjectFolder folder;
    ScriptedDialogs dialogs;
    std::string path = folder.root() + "/点.txt";

    FsFile() { setElements({{0, 1000, 2000, 90, 0, 0}, {1000, 1000, 3000, 90, 0, 0}}); }
    Outcome run(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        dialogs.open(path);
        return CalcFsFile(screen.rows);
    }
};

}  // namespace

TEST_F(FsFile, RowsFollowTheFileAndAreAppended)
{
    EXPECT_TRUE(calc("990", "2250.5"));
    EXPECT_TRUE(run("1003.25,2400\r\n990,2100,third field\r\n"));
    EXPECT_EQ(screen.column(3), (Texts{"K0+250.500", "K0+400.000", "K0+100.000"}));
    EXPECT_EQ(dialogs.filters, (Texts{"(*.txt)|*.txt|"}));
    EXPECT_EQ(screen.state, (ScreenState{3, true}));
}

TEST_F(FsFile, APointWithoutAStakeIsSkippedAndTheBatchGoesOn)
{
    EXPECT_TRUE(run("990,2100\r\n1500,3400\r\n990,2200\r\n"));
    EXPECT_EQ(screen.column(3), (Texts{"K0+100.000", "K0+200.000"}));
    EXPECT_EQ(screen.state, (ScreenState{2, true}));
}

TEST_F(FsFile, AllLinesAreParsedBeforeTheFirstIsSolved)
{
    for (const char* bytes : {"990,2100\r\n990,x\r\n", "990,2100\r\nno comma\r\n990,2200\r\n", "no comma\r\n"}) {
        EXPECT_TRUE(run(bytes)) << "no word about it";
        EXPECT_EQ(screen.state, ScreenState{});
    }
}

TEST_F(FsFile, CancelAndMissingFilesEndWithoutAWord)
{
    dialogs.cancelOpen();
    EXPECT_TRUE(CalcFsFile(screen.rows));
    dialogs.open(folder.root() + "/nothing.txt");
    EXPECT_TRUE(CalcFsFile(screen.rows));
    dialogs.open(folder.root());
    EXPECT_TRUE(CalcFsFile(screen.rows));
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(FsFile, WithoutARoadItEndsWithoutAWord)
{
    gElemLc.clear();
    EXPECT_TRUE(run("990,2100\r\n"));
    EXPECT_EQ(screen.state, ScreenState{});
}

TEST_F(FsFile, OneRowMoreThanTheCounterHoldsEndsTheBatchWithoutAWord)
{
    std::string text;
    for (int i = 0; i < 32768; ++i) text += "1000.5,2500\r\n";
    EXPECT_TRUE(run(text));
    EXPECT_EQ(screen.state, (ScreenState{32767, false}));
}
