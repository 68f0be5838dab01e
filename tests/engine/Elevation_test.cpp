#include "base/RunTimeError.h"
#include "engine/Elevation.h"
#include "support/PublishedData.h"
#include "support/Tables.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

struct GradeRow {
    double lc, gc, r;
};
void setGrades(const std::vector<GradeRow>& rows)
{
    gSqxLc.clear(), gSqxGc.clear(), gSqxR.clear();
    for (const auto& row : rows) gSqxLc.push_back(row.lc), gSqxGc.push_back(row.gc), gSqxR.push_back(row.r);
    gSqxCount = static_cast<std::int16_t>(rows.size() - 1);
}

/// Stake m, cross slopes, side mark.
struct SlopeRow {
    double lc, left, right, mark;
};
void setSlopes(const std::vector<SlopeRow>& rows)
{
    gCgLc.clear(), gCgA.clear(), gCgB.clear(), gCgC.clear();
    for (const auto& row : rows)
        gCgLc.push_back(row.lc), gCgA.push_back(row.left), gCgB.push_back(row.right), gCgC.push_back(row.mark);
    gCgCount = static_cast<std::int16_t>(rows.size() - 1);
}

/// Stake, median, formation widths and shoulder widths in m, slope of the shoulder.
struct WidthRow {
    double lc, median, left, right, leftShoulder, rightShoulder, shoulderSlope;
};
void setWidths(const std::vector<WidthRow>& rows)
{
    gCgkdG.clear(), gCgkdC.clear(), gCgkdA.clear(), gCgkdB.clear(), gCgkdD.clear(), gCgkdE.clear(), gCgkdF.clear();
    for (const auto& row : rows) {
        gCgkdG.push_back(row.lc);
        gCgkdC.push_back(row.median);
        gCgkdA.push_back(row.left);
        gCgkdB.push_back(row.right);
        gCgkdD.push_back(row.leftShoulder);
        gCgkdE.push_back(row.rightShoulder);
        gCgkdF.push_back(row.shoulderSlope);
    }
    gCgkdCount = static_cast<std::int16_t>(rows.size() - 1);
}

class ElevationAtTest : public FreshTables<testing::Test> {
protected:
    /// A level road 100 m high from 0 to 400, 10 m wide to either side with shoulders of 2 m, slopes of -2 %.
    ElevationAtTest()
    {
        gCgType = "0";
        setGrades({{0, 100, 0}, {200, 100, 0}, {400, 100, 0}});
        setSlopes({{0, -0.02, -0.02, 0}, {400.0001, -0.02, -0.02, 0}});
        setWidths({{0, 0, 10, 10, 2, 2, -0.04}, {400.0001, 0, 10, 10, 2, 2, -0.04}});
    }
};

int errorAt(double stake, double offset)
{
    try {
        ElevationAt(stake, offset);
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}

// A crest at 200 between +2 % and -3 % with a radius of 2000: tangents of 50 m.
const std::vector<GradeRow> kCrest{{0, 100, 0}, {200, 104, 2000}, {500, 95, 0}};

TEST_F(ElevationAtTest, GradesAndVerticalCurve)
{
    setGrades(kCrest);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 0), 102);
    EXPECT_DOUBLE_EQ(ElevationAt(300, 0), 101);
    // In the curve: the tangent of the first grade less x^2 / 2R.
    EXPECT_DOUBLE_EQ(ElevationAt(170, 0), 103.4 - 20 * 20 / 4000.0);
    EXPECT_DOUBLE_EQ(ElevationAt(200, 0), 104 - 50 * 50 / 4000.0);
    EXPECT_DOUBLE_EQ(ElevationAt(240, 0), 104.8 - 90 * 90 / 4000.0);
}

TEST_F(ElevationAtTest, CurveLimitsGiveTheSameFromBothSides)
{
    setGrades(kCrest);
    EXPECT_DOUBLE_EQ(ElevationAt(150, 0), 103);    // the grade line serves
    EXPECT_DOUBLE_EQ(ElevationAt(250, 0), 102.5);  // the curve serves, and so would the tail
    for (const double limit : {150.0, 250.0})
        EXPECT_NEAR(ElevationAt(limit - 1e-7, 0), ElevationAt(limit + 1e-7, 0), 1e-8);
}

TEST_F(ElevationAtTest, RadiusOfZeroIsASharpCorner)
{
    setGrades({{0, 100, 0}, {200, 104, 0}, {500, 95, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(200, 0), 104);
    EXPECT_DOUBLE_EQ(ElevationAt(199, 0), 103.98);
    EXPECT_DOUBLE_EQ(ElevationAt(201, 0), 103.97);
}

TEST_F(ElevationAtTest, NegativeRadiusCurvesAsItsMagnitude)
{
    setGrades(kCrest);
    const double crest = ElevationAt(180, 0);
    gSqxR[1] = -2000;
    EXPECT_EQ(ElevationAt(180, 0), crest);
}

TEST_F(ElevationAtTest, BeyondTheProfileTheNearestGradeGoesOn)
{
    setGrades(kCrest);
    EXPECT_DOUBLE_EQ(ElevationAt(-100, 0), 98);
    EXPECT_DOUBLE_EQ(ElevationAt(600, 0), 92);
}

TEST_F(ElevationAtTest, EqualStakesMakeALevelGrade)
{
    setGrades({{0, 100, 0}, {200, 104, 0}, {200, 110, 0}, {400, 114, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(100, 0), 102);
    EXPECT_DOUBLE_EQ(ElevationAt(300, 0), 112);
}

TEST_F(ElevationAtTest, AStretchWithoutLengthIsLevelForTheCurveAtItsEnd)
{
    // 2 % up to 200, where the level jumps: the curve at the first row of the two runs from 2 % to 0, T = 20.
    setGrades({{0, 100, 0}, {200, 104, 2000}, {200, 110, 0}, {400, 114, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(180, 0), 103.6);
    EXPECT_DOUBLE_EQ(ElevationAt(190, 0), 103.6 + 10 * 0.02 - 10 * 10 / 4000.0);
    EXPECT_DOUBLE_EQ(ElevationAt(210, 0), 103.6 + 30 * 0.02 - 30 * 30 / 4000.0);
    EXPECT_DOUBLE_EQ(ElevationAt(230, 0), 110 + 30 * 0.02);  // the tail
    // The radius at the second row: from 0 to 2 %, T = 20 again.
    setGrades({{0, 100, 0}, {200, 104, 0}, {200, 110, 2000}, {400, 114, 0}, {600, 118, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(190, 0), 103.8);
    EXPECT_DOUBLE_EQ(ElevationAt(210, 0), 110 + 30 * 30 / 4000.0);
}

TEST_F(ElevationAtTest, AFirstStretchWithoutLengthIsLevel)
{
    setGrades({{100, 50, 0}, {100, 60, 0}, {200, 70, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(0, 0), 50);
    EXPECT_DOUBLE_EQ(ElevationAt(150, 0), 65);
}

TEST_F(ElevationAtTest, ALastStretchWithoutLengthIsLevel)
{
    setGrades({{0, 100, 0}, {200, 104, 0}, {200, 110, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(100, 0), 102);
    EXPECT_DOUBLE_EQ(ElevationAt(300, 0), 104);
}

TEST_F(ElevationAtTest, TailTakesTheRadiusOfTheRowWhereTheSearchStopped)
{
    // Grades 10 %, -5 %, 10 %. The first curve, T = 0.15 * 2000 / 2 = 150, reaches over the second change, which has no
    // radius of its own. The tail works with the first radius and stays away: T = 150 there too.
    setGrades({{0, 0, 0}, {100, 10, 2000}, {200, 5, 0}, {300, 15, 0}});
    const double x = 210 - (100 - 150);
    EXPECT_DOUBLE_EQ(ElevationAt(210, 0), x * 0.1 - x * x / 4000 + (10 - 15));
}

TEST_F(ElevationAtTest, TailOverridesAtTheLastGradeChange)
{
    // As before, but the grade does not change at 200: T = 0 in the tail, which takes the curve's stake for its own.
    setGrades({{0, 0, 0}, {100, 10, 2000}, {200, 5, 0}, {300, 0, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(210, 0), 4.5);
    const double x = 199 - (100 - 150);
    EXPECT_DOUBLE_EQ(ElevationAt(199, 0), x * 0.1 - x * x / 4000 + (10 - 15));
}

TEST_F(ElevationAtTest, FewerThanTwoStretchesIsASubscriptError)
{
    setGrades({{0, 100, 0}, {200, 100, 0}});
    EXPECT_EQ(errorAt(100, 0), RunTimeError::Subscript);
    setGrades({{0, 100, 0}});
    EXPECT_EQ(errorAt(100, 0), RunTimeError::Subscript);
    shared = {};
    EXPECT_EQ(errorAt(100, 0), RunTimeError::Subscript);
}

TEST_F(ElevationAtTest, CentreWithoutAMedianIsTheGradeLine) { EXPECT_EQ(ElevationAt(100, 0), 100); }

TEST_F(ElevationAtTest, RoadwayAndShoulderOfBothSides)
{
    setSlopes({{0, -0.02, -0.03, 0}, {400.0001, -0.02, -0.03, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(100, -5), 100 - 5 * 0.02);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 5), 100 - 5 * 0.03);
    EXPECT_DOUBLE_EQ(ElevationAt(100, -8), 100 - 8 * 0.02);
    EXPECT_DOUBLE_EQ(ElevationAt(100, -9), 100 - 8 * 0.02 - 1 * 0.04);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 9), 100 - 8 * 0.03 - 1 * 0.04);
}

TEST_F(ElevationAtTest, BeyondTheFormationEdgeTheEdgeHolds)
{
    setWidths({{0, 0, 3.5, 4, 0, 0, 0}, {400.0001, 0, 3.5, 4, 0, 0, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(100, -5), 100 - 3.5 * 0.02);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 5), 100 - 4 * 0.02);
    EXPECT_EQ(ElevationAt(100, -500), ElevationAt(100, -3.5));
}

TEST_F(ElevationAtTest, MedianIsLevelAndTheSlopeStartsAtItsEdge)
{
    setWidths({{0, 3, 10, 10, 2, 2, -0.04}, {400.0001, 3, 10, 10, 2, 2, -0.04}});
    EXPECT_EQ(ElevationAt(100, 1.5), 100);
    EXPECT_EQ(ElevationAt(100, -1.5), 100);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 4), 100 - 2.5 * 0.02);
    EXPECT_DOUBLE_EQ(ElevationAt(100, -9), 100 - 6.5 * 0.02 - 0.04);
}

TEST_F(ElevationAtTest, SteeperRoadwayDragsTheRightShoulderAlone)
{
    setWidths({{0, 0, 10, 10, 2, 2, -0.03}, {400.0001, 0, 10, 10, 2, 2, -0.03}});
    for (const double mark : {1.0, 2.0}) {
        setSlopes({{0, -0.05, -0.05, mark}, {400.0001, -0.05, -0.05, 0}});
        EXPECT_DOUBLE_EQ(ElevationAt(100, 10), 100 - 8 * 0.05 - 2 * 0.05);
        EXPECT_DOUBLE_EQ(ElevationAt(100, -10), 100 - 8 * 0.05 - 2 * 0.03);  // kept on purpose
    }
    setSlopes({{0, -0.05, -0.05, 0}, {400.0001, -0.05, -0.05, 0}});  // without the mark neither follows
    EXPECT_DOUBLE_EQ(ElevationAt(100, 10), 100 - 8 * 0.05 - 2 * 0.03);
    setSlopes({{0, -0.01, -0.01, 2}, {400.0001, -0.01, -0.01, 0}});  // a flatter roadway does not lift it
    EXPECT_DOUBLE_EQ(ElevationAt(100, 10), 100 - 8 * 0.01 - 2 * 0.03);
}

TEST_F(ElevationAtTest, MarkBelowZeroWouldDragTheLeftShoulder)
{
    setSlopes({{0, -0.05, -0.05, -1}, {400.0001, -0.05, -0.05, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(100, -10), 100 - 8 * 0.05 - 2 * 0.05);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 10), 100 - 8 * 0.05 - 2 * 0.04);
}

TEST_F(ElevationAtTest, MarkIsThatOfTheRowBefore)
{
    setSlopes({{0, -0.05, -0.05, 0}, {200, -0.05, -0.05, 2}, {400.0001, -0.05, -0.05, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(199, 10), 100 - 8 * 0.05 - 2 * 0.04);
    EXPECT_DOUBLE_EQ(ElevationAt(200, 10), 100 - 8 * 0.05 - 2 * 0.05);
}

TEST_F(ElevationAtTest, MedianAndShoulderSlopeAreThoseOfTheLaterRow)
{
    setWidths({{0, 2, 10, 10, 2, 2, -0.01}, {200, 4, 20, 20, 4, 4, -0.05}, {400.0001, 6, 10, 10, 2, 2, -0.09}});
    // At 100: widths half way (15, shoulder 3), median 4 and -5 % from the row at 200.
    EXPECT_EQ(ElevationAt(100, 2), 100);
    EXPECT_DOUBLE_EQ(ElevationAt(100, 15), 100 - (12 - 2) * 0.02 - 3 * 0.05);
    // At 200 the step: the widths of that row, median 6 and -9 % from the closing row.
    EXPECT_EQ(ElevationAt(200, 3), 100);
    EXPECT_DOUBLE_EQ(ElevationAt(200, 20), 100 - (16 - 3) * 0.02 - 4 * 0.09);
}

TEST_F(ElevationAtTest, SlopesRunInALineOrACubicBetweenTheirRows)
{
    setSlopes({{0, 0.02, -0.02, 0}, {100, -0.06, 0.06, 0}, {400.0001, -0.06, 0.06, 0}});
    for (const double x : {0.0, 25.0, 50.0, 80.0, 100.0}) {
        const double t = x / 100;
        gCgType = "0";
        EXPECT_NEAR(ElevationAt(x, 1), 100 - 0.02 + 0.08 * t, 1e-12);
        EXPECT_NEAR(ElevationAt(x, -1), 100 + 0.02 - 0.08 * t, 1e-12);
        gCgType = "1";
        EXPECT_NEAR(ElevationAt(x, 1), 100 - 0.02 + 0.08 * (3 * t * t - 2 * t * t * t), 1e-12);
        EXPECT_NEAR(ElevationAt(x, -1), 100 + 0.02 - 0.08 * (3 * t * t - 2 * t * t * t), 1e-12);
    }
}

TEST_F(ElevationAtTest, EndStakeIsInTheLastStretchAndPastItThereIsNoSlope)
{
    EXPECT_DOUBLE_EQ(ElevationAt(400, 5), 99.9);
    EXPECT_EQ(ElevationAt(400.0001, 5), 100);
    EXPECT_EQ(ElevationAt(-0.001, 5), 100);
}

TEST_F(ElevationAtTest, PastTheWidthsTheGradeLineHolds)
{
    setWidths({{0, 1, 10, 10, 2, 2, -0.04}, {300, 1, 10, 10, 2, 2, -0.04}});
    EXPECT_DOUBLE_EQ(ElevationAt(299, 5), 100 - 4.5 * 0.02);
    EXPECT_EQ(ElevationAt(300, 5), 100);  // all widths and the median are 0
    shared.tables.cgkdG.clear();
    gCgkdCount = 0;
    EXPECT_EQ(ElevationAt(100, 5), 100);
}

TEST_F(ElevationAtTest, PastTheSlopesTheGradeLineHolds)
{
    setSlopes({{0, -0.02, -0.02, 0}, {300, -0.02, -0.02, 0}});
    EXPECT_DOUBLE_EQ(ElevationAt(299, 5), 99.9);
    EXPECT_EQ(ElevationAt(300, 5), 100);
}

TEST_F(ElevationAtTest, FormOfTheSlopes)
{
    gCgType = "";
    EXPECT_EQ(ElevationAt(100, 0), 100);  // within the median nobody asks
    EXPECT_EQ(errorAt(100, 5), RunTimeError::TypeMismatch);
    gCgType = "2";
    EXPECT_EQ(ElevationAt(100, 5), 100);
    gCgType = "1";
    EXPECT_DOUBLE_EQ(ElevationAt(100, 5), 99.9);
}

TEST_F(ElevationAtTest, WritesNothing)
{
    const Shared before = shared;
    ElevationAt(123, 4);
    EXPECT_EQ(shared, before);
}

/// A second formulation. The grade line is the polygon through the grade changes, less or plus (T - d)^2 / 2R within T
/// of one; the section counts its parts outward from the median.
double elevationByParts(double stake, double offset)
{
    const auto segmentOf = [](const std::vector<double>& stakes, double s) {  // index of the row behind it
        const auto last = static_cast<std::ptrdiff_t>(stakes.size()) - 1;
        return std::clamp<std::ptrdiff_t>(std::upper_bound(stakes.begin(), stakes.end(), s) - stakes.begin(), 1, last);
    };
    const auto mix = [](double a, double b, double t) { return (1 - t) * a + t * b; };

    auto i = static_cast<std::size_t>(segmentOf(gSqxLc, stake));
    double e = mix(gSqxGc[i - 1], gSqxGc[i], (stake - gSqxLc[i - 1]) / (gSqxLc[i] - gSqxLc[i - 1]));
    for (i = 1; i + 1 < gSqxLc.size(); ++i) {
        const double change = (gSqxGc[i + 1] - gSqxGc[i]) / (gSqxLc[i + 1] - gSqxLc[i]) -
                              (gSqxGc[i] - gSqxGc[i - 1]) / (gSqxLc[i] - gSqxLc[i - 1]);
        const double inside = std::abs(change) * gSqxR[i] / 2 - std::abs(stake - gSqxLc[i]);
        if (inside > 0) e += (change < 0 ? -1 : 1) * inside * inside / (2 * gSqxR[i]);
    }

    const bool covered = stake >= gCgkdG.front() && stake < gCgkdG.back();
    if (!covered || stake < gCgLc.front() || stake >= gCgLc.back()) return e;
    i = static_cast<std::size_t>(segmentOf(gCgkdG, stake));
    const bool left = offset < 0;
    double t = (stake - gCgkdG[i - 1]) / (gCgkdG[i] - gCgkdG[i - 1]);
    const auto& widths = left ? gCgkdA : gCgkdB;
    const auto& shoulders = left ? gCgkdD : gCgkdE;
    const double width = mix(widths[i - 1], widths[i], t);
    const double roadway = width - mix(shoulders[i - 1], shoulders[i], t);
    const double median = gCgkdC[i] / 2, shoulderSlope = gCgkdF[i];
    if (std::abs(offset) <= median) return e;

    i = static_cast<std::size_t>(segmentOf(gCgLc, stake));
    t = (stake - gCgLc[i - 1]) / (gCgLc[i] - gCgLc[i - 1]);
    const auto& slopes = left ? gCgA : gCgB;
    const double p = mix(slopes[i - 1], slopes[i], gCgType == "0" ? t : t * t * (3 - 2 * t));
    const double q = !left && gCgC[i - 1] > 0 ? std::min(p, shoulderSlope) : shoulderSlope;
    const double out = std::min(std::abs(offset), width);
    return e + p * (std::min(out, roadway) - median) + q * std::max(out - roadway, 0.0);
}

TEST_F(ElevationAtTest, AgreesWithASecondFormulationOnRandomTables)
{
    std::mt19937_64 random(8);
    const auto draw = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    for (int road = 0; road < 1000; ++road) {
        const int n = 2 + road % 9;
        std::vector<GradeRow> grades{{draw(-500, 500), draw(0, 100), 0}};
        for (int i = 1; i <= n; ++i)
            grades.push_back({grades.back().lc + draw(100, 600), grades.back().gc + draw(-20, 20), 0});
        for (int i = 1; i < n; ++i) {  // curves of up to 49 m of tangent: none overlap
            const auto k = static_cast<std::size_t>(i);
            const double change = (grades[k + 1].gc - grades[k].gc) / (grades[k + 1].lc - grades[k].lc) -
                                  (grades[k].gc - grades[k - 1].gc) / (grades[k].lc - grades[k - 1].lc);
            grades[k].r = i % 4 == 3 ? 0 : draw(1, 49) * 2 / std::abs(change);
        }
        setGrades(grades);
        const double from = grades.front().lc, to = grades.back().lc;
        std::vector<SlopeRow> slopes;
        std::vector<WidthRow> widths;
        for (double lc = from + draw(-20, 20); lc < to || slopes.size() < 2; lc += draw(1, 300))
            slopes.push_back({lc, draw(-0.08, 0.08), draw(-0.08, 0.08), static_cast<double>(random() % 3)});
        for (double lc = from + draw(-20, 20); lc < to || widths.size() < 2; lc += draw(1, 300))
            widths.push_back({lc, draw(0, 3), draw(5, 15), draw(5, 15), draw(0, 3), draw(0, 3), draw(-0.06, 0)});
        setSlopes(slopes);
        setWidths(widths);
        gCgType = road % 2 ? "0" : "1";

        const GradeIndex index(shared.tables);
        for (int point = 0; point < 100; ++point) {
            const double stake = draw(from - 50, to + 50), offset = draw(-18, 18);
            ASSERT_NEAR(ElevationAt(stake, offset), elevationByParts(stake, offset), 1e-9) << stake << ' ' << offset;
            ASSERT_EQ(elevationAt(shared.tables, stake, offset, &index), ElevationAt(stake, offset)) << stake;
        }
        for (int i = 1; i < n; ++i) {  // no step at the limits of the curves
            const auto k = static_cast<std::size_t>(i);
            const double change = (grades[k + 1].gc - grades[k].gc) / (grades[k + 1].lc - grades[k].lc) -
                                  (grades[k].gc - grades[k - 1].gc) / (grades[k].lc - grades[k - 1].lc);
            const double t = std::abs(change) * grades[k].r / 2;
            for (const double limit : {grades[k].lc - t, grades[k].lc + t})
                ASSERT_NEAR(ElevationAt(limit - 1e-6, 0), ElevationAt(limit + 1e-6, 0), 1e-6);
        }
    }
}

/// Rows in any order, curves that overlap, radii of no size or of all: from the index on, the search ends where it ends
/// from the first row on, or fails alike.
TEST_F(ElevationAtTest, TheIndexLeavesOutNothing)
{
    std::mt19937_64 random(9);
    const auto draw = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    for (int road = 0; road < 2000; ++road) {
        std::vector<GradeRow> grades;
        for (int i = 0; i < road % 12; ++i)
            grades.push_back({draw(0, 1000), draw(0, 100), i % 5 == 4 ? 1e308 : i % 3 == 2 ? 0 : draw(-1, 1) * 1e5});
        if (road % 2) std::ranges::sort(grades, {}, &GradeRow::lc);
        setGrades(grades);
        const GradeIndex index(shared.tables);
        for (int point = 0; point < 50; ++point) {
            const double stake =
                point % 10 == 9 && !grades.empty() ? grades[random() % grades.size()].lc : draw(-50, 1050);
            const auto asked = [&](const GradeIndex* from) {
                double e = 0;
                try {
                    e = elevationAt(shared.tables, stake, 0, from);
                } catch (const RunTimeError& error) {
                    return std::pair(std::bit_cast<std::uint64_t>(e), static_cast<int>(error.number()));
                }
                return std::pair(std::bit_cast<std::uint64_t>(e), 0);
            };
            ASSERT_EQ(asked(&index), asked(nullptr)) << road << ' ' << stake;
        }
    }
}

TEST_F(ElevationAtTest, PublishedRoadProfile)
{
    const ReadJson data = publishedData("profile_road.json");
    const auto pvis = data["input"]["pvis"];
    std::vector<GradeRow> grades;
    const auto grade = [&](std::size_t i) {
        return (pvis[i + 1]["z"].number() - pvis[i]["z"].number()) /
               (pvis[i + 1]["station"].number() - pvis[i]["station"].number());
    };
    for (std::size_t i = 0; i < pvis.size(); ++i) {
        const double length = pvis[i]["length"].number();  // of the vertical curve: radius times change of grade
        grades.push_back({pvis[i]["station"].number(), pvis[i]["z"].number(),
                          length == 0 ? 0 : length / std::abs(grade(i) - grade(i - 1))});
    }
    setGrades(grades);
    const double slope = data["input"]["crossfall_left"].number(), width = data["input"]["half_width_left"].number();
    const double from = grades.front().lc, to = grades.back().lc + 0.0001;
    setSlopes({{from, slope, slope, 0}, {to, slope, slope, 0}});
    setWidths({{from, 0, width, width, 0, 0, slope}, {to, 0, width, width, 0, 0, slope}});

    ASSERT_EQ(data["expected"]["points"].size(), 19u);
    for (const ReadJson& point : data["expected"]["points"].elements())
        EXPECT_NEAR(ElevationAt(point["station"].number(), 0), point["z"].number(), 0.0001) << point["name"].text();
    for (const ReadJson& point : data["expected"]["offset_points"].elements())
        EXPECT_NEAR(ElevationAt(point["station"].number(), point["offset"].number()), point["z"].number(), 0.0001);
}

}  // namespace
