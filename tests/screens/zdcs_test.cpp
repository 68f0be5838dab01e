// The main-point table.

#include "base/RunTimeError.h"
#include "screens/Zdcs.h"

#include "support/ScreenTest.h"

namespace {

struct Zdcs : FreshTables<testing::Test> {
    Screen screen{kMainPointColumns};

    /// One intersection point with its four stakes.
    void point(double zh, double hy, double yh, double hz)
    {
        const auto i = static_cast<std::size_t>(++gZdCount);
        gZdJd[i] = "JD" + std::to_string(i);
        gZdT1[i] = 100.0005, gZdT2[i] = 110, gZdLs1[i] = 50, gZdLs2[i] = .5;
        gZdZhLc[i] = zh, gZdHyLc[i] = hy, gZdYhLc[i] = yh, gZdHzLc[i] = hz;
        gZdZhX[i] = 1, gZdZhY[i] = 2, gZdZhFwj[i] = 12.3456;
        gZdHyX[i] = 3, gZdHyY[i] = 4, gZdHyFwj[i] = 0;
        gZdYhX[i] = 5, gZdYhY[i] = 6, gZdYhFwj[i] = 360;
        gZdHzX[i] = 7, gZdHzY[i] = -8.5, gZdHzFwj[i] = 359.595999;
    }
    void load()
    {
        screen.rows.clear();
        LoadZdcs(screen.rows);
    }
    Texts stakes() const { return {screen.row(1)[6], screen.row(1)[10], screen.row(1)[14], screen.row(1)[18]}; }
};

}  // namespace

TEST_F(Zdcs, OneRowAPoint)
{
    point(100, 150, 1234.5674, 1300.0005);
    load();
    EXPECT_EQ(screen.row(1),
              (Texts{"1",     "JD1",           "100.000",  "110.000", "50.000", "0.500",        "100.000",  "1.000",
                     "2.000", "12度34分56秒",  "150.000",  "3.000",   "4.000",  "0度00分00秒",  "1234.567", "5.000",
                     "6.000", "360度00分00秒", "1300.001", "7.000",   "-8.500", "359度59分59秒"}));
}

TEST_F(Zdcs, WithoutSpiralsZhAndHyAndYhAndHzReadAlike)
{
    point(100, 100.000001, 200, 200.000001);
    load();
    EXPECT_EQ(stakes(), (Texts{"100.000", "100.000", "200.000", "200.000"}));
}

TEST_F(Zdcs, StakesAreStoredRoundedHalfUp)
{
    point(100.00049, 150.0006, 200, 300);
    load();
    EXPECT_EQ(gZdZhLc[1], 100.0);
    EXPECT_EQ(gZdHyLc[1], 150.001);
}

TEST_F(Zdcs, WithoutBreaksASecondOpeningIsStable)
{
    point(100.00049, 150.0005, 200.25, 300.125);
    load();
    const auto first = stakes();
    load();
    EXPECT_EQ(stakes(), first);
}

TEST_F(Zdcs, StakesBecomeNominalInPlace)
{
    setBreaks({{500, 600}});
    point(400, 500, 500.001, 700);
    load();
    EXPECT_EQ(stakes(), (Texts{"400.000", "500.000", "600.001", "800.000"}));
    EXPECT_EQ(gZdHzLc[1], 800);
}

TEST_F(Zdcs, WithBreaksASecondOpeningMovesTheStakesAgain)
{
    setBreaks({{500, 600}});
    point(400, 500, 500.001, 700);
    load();
    load();
    EXPECT_EQ(stakes(), (Texts{"400.000", "500.000", "700.001", "900.000"}));
}

TEST_F(Zdcs, TheSecondPassOfAnOverlapShowsAMinus)
{
    setBreaks({{500, 480}});
    point(490, 510, 520, 530);
    load();
    EXPECT_EQ(stakes(), (Texts{"490.000", "-490.000", "-500.000", "510.000"}));
    EXPECT_EQ(gZdHyLc[1], -490);
}

TEST_F(Zdcs, AzimuthsAreReducedInPlace)
{
    point(1, 2, 3, 4);
    gZdZhFwj[1] = -10;
    load();
    EXPECT_EQ(screen.row(1)[9], "350度00分00秒");
    EXPECT_EQ(gZdZhFwj[1], 350 + 1e-10);
}

TEST_F(Zdcs, NoPointsMakeNoRows)
{
    load();
    EXPECT_EQ(screen.grid.text().rows(), 1);
}

TEST_F(Zdcs, RowsStandInTheOrderOfThePoints)
{
    point(1, 2, 3, 4);
    point(5, 6, 7, 8);
    load();
    EXPECT_EQ(screen.column(1), (Texts{"JD1", "JD2"}));
    EXPECT_EQ(screen.column(0), (Texts{"1", "2"}));
}

TEST_F(Zdcs, MoreThan500PointsAreFatal)
{
    gZdCount = 501;
    EXPECT_EQ(fatalError([this] { load(); }), RunTimeError::Subscript);
    gZdCount = 500;
    EXPECT_EQ(fatalError([this] { load(); }), 0);
}
