// Traps, refusals and the numbers of boxes; rows, counter and deletion.

#include "base/RunTimeError.h"
#include "screens/Handler.h"

#include "support/ScreenTest.h"

namespace {

[[noreturn]] void fail() { throw RunTimeError(RunTimeError::Subscript); }

}  // namespace

TEST(Handler, TrapWithWordsSaysThatANumberIsWrong)
{
    expectRefusal(Handle(Trap::Words, fail), refusal("请输入正确的数值！", "错误"));
}

TEST(Handler, SilentTrapEndsWithoutAWord) { expectRefusal(Handle(Trap::Silent, fail), std::nullopt); }

TEST(Handler, WithoutATrapTheErrorLeaves)
{
    EXPECT_EQ(fatalError([] { Handle(Trap::None, fail); }), RunTimeError::Subscript);
}

TEST(Handler, ARefusalPassesEveryTrap)
{
    for (const Trap trap : {Trap::Words, Trap::Silent, Trap::None})
        expectRefusal(Handle(trap, [] { Refuse("为什么", "txtField"); }), refusal("为什么", "错误", "txtField"));
}

TEST(Handler, BlankTextsAreEmpty)
{
    EXPECT_TRUE(IsBlank(""));
    EXPECT_TRUE(IsBlank("  "));
    EXPECT_FALSE(IsBlank(" 0 "));
    EXPECT_EQ(OrZero("  "), 0);
    EXPECT_EQ(OrZero(" 1.5 "), 1.5);
}

TEST(ResultTable, AreNumberedAndCounted)
{
    Screen screen(kElevationColumns);
    screen.rows.row({{"K0+000.000", "中桩", "1"}, {}});
    screen.rows.row({{"K0+010.000", "中桩", "2"}, "提示"});
    EXPECT_EQ(screen.row(2), (Texts{"2", "K0+010.000", "中桩", "2"}));
    EXPECT_EQ(screen.warnings(), (Texts{"", "提示"}));
    EXPECT_EQ(screen.state, (ScreenState{2, false}));
}

TEST(ResultTable, ClearingKeepsTheCounter)
{
    Screen screen(kElevationColumns);
    screen.rows.row({{"a"}, {}});
    screen.rows.clear();
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_EQ(screen.state.rows, 1);
}

TEST(ResultTable, TheCounterHolds32767Rows)
{
    Screen screen(kElevationColumns);
    for (int i = 0; i < 32767; ++i) screen.rows.row({{"a"}, {}});
    EXPECT_EQ(screen.state.rows, 32767);
    EXPECT_EQ(fatalError([&] { screen.rows.row({{"b"}, {}}); }), RunTimeError::Overflow);
    EXPECT_EQ(screen.state.rows, 32767);
    EXPECT_EQ(screen.grid.text().rows(), 32769) << "the row is there before the counter fails";
    EXPECT_EQ(screen.row(32768), Texts{}) << "and it stays empty";
}

TEST(ResultTable, DeletesTheRowOfTheCursorAndRenumbers)
{
    Screen screen(kElevationColumns);
    for (const char* name : {"a", "b", "c"}) screen.rows.row({{name}, {}});
    screen.rows.changed();
    screen.grid.setRow(2);
    screen.rows.deleteCursorRow();
    EXPECT_EQ(screen.column(0), (Texts{"1", "2"}));
    EXPECT_EQ(screen.column(1), (Texts{"a", "c"}));
    EXPECT_EQ(screen.state, (ScreenState{2, true})) << "the flag is not touched";
}

TEST(ResultTable, DeletingTheLastRowLeavesTheHeaderAlone)
{
    Screen screen(kElevationColumns);
    screen.rows.row({{"a"}, {}});
    screen.rows.deleteCursorRow();
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_EQ(screen.state.rows, 0);
}

TEST(ResultTable, DeletingOnAnEmptyGridDoesNothing)
{
    Screen screen(kElevationColumns);
    screen.rows.deleteCursorRow();
    EXPECT_EQ(screen.grid.text().rows(), 1);
    EXPECT_EQ(screen.state, ScreenState{});
}
