// Every screen on the sample roads, with and without chainage breaks, against the plain rule.

#include "base/Numbers.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "project/LoadProject.h"
#include "screens/DgdGc.h"
#include "screens/DgdZb.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "screens/Rows.h"
#include "screens/Zdcs.h"
#include "support/PlainRule.h"
#include "support/ProjectFolder.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"
#include "support/TrueGeometry.h"

#include <filesystem>

namespace {

struct Road {
    const char* sample;
    bool breaks;
    double from, to;
};
void PrintTo(const Road& road, std::ostream* out) { *out << road.sample << (road.breaks ? "" : " without breaks"); }

class Samples : public testing::TestWithParam<Road> {
protected:
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    Screen screen{kCoordinateColumns};

    Samples()
    {
        const std::filesystem::path source = VM_SOURCE_DIR "/samples";
        for (const auto& file : std::filesystem::directory_iterator(source / GetParam().sample))
            if (GetParam().breaks || file.path().filename() != "断链参数.txt")
                std::filesystem::copy(file.path(), folder.path(file.path().filename().string()));
        LoadProject();
    }
    void expectRows(const std::vector<Texts>& wanted)
    {
        ASSERT_EQ(screen.grid.text().rows(), static_cast<int>(wanted.size()) + 1);
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            Texts row = wanted[i];
            row.insert(row.begin(), std::to_string(i + 1));
            EXPECT_EQ(screen.row(static_cast<int>(i) + 1), row);
        }
    }
};

std::string text(double x) { return plain::num(x); }

INSTANTIATE_TEST_SUITE_P(, Samples,
                         testing::Values(Road{"示例一", true, 12000, 18400}, Road{"示例一", false, 12000, 18400},
                                         Road{"示例二", false, 0, 1110}));

}  // namespace

TEST_P(Samples, TheRoadIsLoaded)
{
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(gHasDl, GetParam().breaks ? -1 : 0);
    EXPECT_GT(gElemCount, 10);
    EXPECT_GT(gSqxCount, 3);
}

TEST_P(Samples, SinglePoints)
{
    std::vector<Texts> wanted;
    plain::Point point;
    gStationX = 2857000, gStationY = 513000;
    int gaps = 0;
    double offset = -30;
    for (double typed = GetParam().from + 0.125; typed < GetParam().to; typed += 17.3, offset += 0.75) {
        if (offset > 30) offset = -30;
        for (const double t : {typed, -typed}) {
            const auto stake = plain::resolve(t);
            const bool outside =
                stake && (*stake < gElemLc[0] || *stake > gElemLc[static_cast<std::size_t>(gElemCount)]);
            const DgdZbInput in{.stake = text(t),
                                .side = offset < 0 ? "左边桩" : "右边桩",
                                .offset = text(std::abs(offset)),
                                .skew = {},
                                .station = {.typed = true, .pick = {}, .x = "2857000", .y = "513000"}};
            const auto outcome = CalcDgdZb(in, screen.rows);
            if (!stake) {
                ++gaps;
                expectRefusal(outcome, gap());
            } else if (outside) {
                EXPECT_FALSE(outcome);
            } else {
                ASSERT_TRUE(outcome) << t;
                point.move(*stake, offset < 0 ? 270 : 90, std::abs(offset));
                wanted.push_back(point.row(t, (offset < 0 ? "左" : "右") + text(std::abs(offset)) + "米", "无"));
            }
        }
    }
    expectRows(wanted);
    EXPECT_EQ(gaps > 0, GetParam().breaks);
}

TEST_P(Samples, SkewedPoints)
{
    std::vector<Texts> wanted;
    plain::Point point;
    double angle = -170.3;
    for (double typed = GetParam().from; typed < GetParam().to; typed += 97, angle += 5.01) {
        const auto stake = plain::resolve(typed);
        if (!stake) continue;
        const DgdZbInput in{.stake = text(typed), .offset = "8.5", .skewed = true, .skew = text(angle), .station = {}};
        ASSERT_TRUE(CalcDgdZb(in, screen.rows));
        point.move(*stake, plain::degrees(std::strtod(text(angle).c_str(), nullptr)), 8.5);
        wanted.push_back(point.row(typed, "斜交8.5米",
                                   angle > 0 ? plain::dms(std::strtod(text(angle).c_str(), nullptr))
                                             : "-" + plain::dms(-std::strtod(text(angle).c_str(), nullptr))));
    }
    expectRows(wanted);
}

TEST_P(Samples, RunsOfStakes)
{
    const auto [sample, breaks, from, to] = GetParam();
    const PlfyInput in{.start = text(from),
                       .end = text(to),
                       .step = "13.7",
                       .offset = "6.25",
                       .skew = {},
                       .station = {.pick = gDxdName[1], .pickIndex = 1, .x = {}, .y = {}}};
    ASSERT_TRUE(CalcPlfy(in, screen.rows));
    EXPECT_EQ(gStationX, gDxdX[1]);
    std::vector<Texts> wanted;
    plain::Point point;
    for (const auto& [nominal, continuous] : plain::walk(from, to, 13.7)) {
        point.move(continuous, 0, 0);
        wanted.push_back(point.row(nominal, "中桩", "无"));
        point.move(continuous, 270, 6.25);
        wanted.push_back(point.row(nominal, "左6.25米", "无"));
        point.move(continuous, 90, 6.25);
        wanted.push_back(point.row(nominal, "右6.25米", "无"));
    }
    expectRows(wanted);
}

namespace {

/// The number of 123度45分06秒 in radians.
truth::Real radiansOf(const std::string& text)
{
    int d = 0, m = 0, s = 0;
    EXPECT_EQ(std::sscanf(text.c_str(), "%d度%d分%d秒", &d, &m, &s), 3) << text;
    return truth::fromDeg(d + m / truth::Real(60) + s / truth::Real(3600));
}

}  // namespace

TEST_P(Samples, RowsLieOnTheTrueGeometryOfTheirElement)
{
    // From the start of its element, a row may depart from true geometry by
    // - its rounding to millimetres in X and Y: 0.5 mm times the root of 2;
    // - the start azimuth, which is cut to a hundredth of a second (4.9e-8) and turned to radians with a pi that is
    //   5.4e-8 short (1.1e-7 at 360 degrees), over the length and, up to 670 degrees, over the offset;
    // - the quadrature, L/180 h^4 times the fourth derivative: below 1e-6 m at 50 m radius and 200 m length.
    // The tangent shows whole seconds: half a second, and the pi over the turn of one element.
    const auto bound = [](double length, double offset) {
        return 0.000708 + length * 1.6e-7 + std::abs(offset) * 2.6e-7 + 1e-6;
    };
    for (std::size_t i = 1; i <= static_cast<std::size_t>(gElemCount); ++i) {
        const double length = gElemLc[i] - gElemLc[i - 1];
        const auto curvature = [](double r) { return r == 0 ? truth::Real(0) : 1 / static_cast<truth::Real>(r); };
        const truth::Stretch stretch{length, curvature(gElemR1[i - 1]), curvature(gElemR2[i - 1])};
        const truth::Pose start{gElemX[i - 1], gElemY[i - 1], truth::fromDms(gElemFwj[i - 1])};
        for (const double share : {0.0, 0.21, 0.5, 0.83, 0.999}) {
            for (const double offset : {-12.0, 0.0, 7.5}) {
                const double k = gElemLc[i - 1] + share * length;
                if (!(k < gElemLc[i])) continue;  // an element without length
                AddCoordinateRow(
                    screen.rows,
                    {.typed = k, .stake = k, .skew = offset < 0 ? 270.0 : 90.0, .offset = std::abs(offset)});
                const auto row = screen.row(screen.state.rows);
                truth::Pose wanted = truth::walk(start, stretch, k - gElemLc[i - 1]);
                EXPECT_LT(std::abs(truth::wrapped(radiansOf(row[8]) - wanted.az)), truth::fromDeg(0.52L / 3600)) << k;
                wanted.x -= offset * std::sin(wanted.az);
                wanted.y += offset * std::cos(wanted.az);
                EXPECT_LT(std::hypot(std::stold(row[6]) - wanted.x, std::stold(row[7]) - wanted.y),
                          bound(share * length, offset))
                    << k << " " << offset;
            }
        }
    }
    EXPECT_GT(screen.state.rows, 200);
}

TEST_P(Samples, InverseComesBackToWhereItWasLaidOut)
{
    Screen inverse(kInverseColumns);
    int points = 0;
    for (double k = gElemLc[0] + 5; k < gElemLc[static_cast<std::size_t>(gElemCount)] - 5; k += 61.7) {
        for (const double offset : {-12.0, 0.0, 7.5}) {
            StakeToXY(k, offset < 0 ? 270 : 90, std::abs(offset));
            const FsInput in{plain::fixed3(gOutX), plain::fixed3(gOutY)};
            ASSERT_TRUE(CalcFs(in, inverse.rows));
            ++points;
            EXPECT_EQ(inverse.state.rows, points);
            EXPECT_EQ(inverse.row(points)[3], gOutLcText);
            EXPECT_EQ(inverse.row(points)[4], gOutOffsetText);
            EXPECT_EQ(inverse.row(points)[1], plain::num(std::stod(in.x)));
            // Within the amount of the jump in front of the overlap the nominal stake is that of beyond it: the row
            // cannot be laid out again, and the warning says so.
            const bool mappedBeyond = GetParam().breaks && k > gDlBack[1] - gDlCum[0] && k <= gDlBack[1];
            EXPECT_EQ(inverse.grid.text().warning(points).empty(), !mappedBeyond) << k << " " << offset;
        }
    }
}

TEST_P(Samples, Elevations)
{
    Screen single(kElevationColumns), run(kElevationRunColumns);
    const auto [sample, breaks, from, to] = GetParam();
    std::vector<Texts> wanted;
    const PlGcInput in{.start = text(from), .end = text(to), .offset = "4.5", .step = "11.3", .thickness = "0.18"};
    ASSERT_TRUE(CalcPlGc(in, run.rows));
    const auto cell = [](double k, double offset) {
        return plain::num(std::stod(plain::fixed3(ElevationAt(k, offset))) - 0.18);
    };
    const auto stakes = plain::walk(from, to, 11.3);
    ASSERT_EQ(run.grid.text().rows(), static_cast<int>(stakes.size()) + 1);
    for (std::size_t i = 0; i < stakes.size(); ++i) {
        const auto [nominal, k] = stakes[i];
        EXPECT_EQ(run.row(static_cast<int>(i) + 1),
                  (Texts{std::to_string(i + 1), plain::stake(nominal), "中桩", cell(k, 0), "左4.5米", cell(k, -4.5),
                         "右4.5米", cell(k, 4.5)}));
        const DgdGcInput point{.stake = text(nominal), .side = "左边桩", .offset = "4.5", .thickness = "0.18"};
        if (std::stod(text(nominal)) != nominal) continue;  // more digits than a text carries
        ASSERT_TRUE(CalcDgdGc(point, single.rows));
        EXPECT_EQ(single.row(single.state.rows)[3], run.row(static_cast<int>(i) + 1)[5]);
    }
}

TEST_P(Samples, Corners)
{
    Screen corners(kCornerColumns);
    JgwStructures structures;
    std::vector<Texts> wanted;
    plain::Point centre;
    double angle = 35.3;
    for (double typed = GetParam().from; typed < GetParam().to && structures.count < 99; typed += 133, angle += 2.5) {
        const auto stake = plain::resolve(typed);
        if (!stake) continue;
        const bool skewEnds = structures.count % 2 == 0;
        const JgwInput in{.stake = text(typed),
                          .skewEnds = skewEnds,
                          .kq = "3.2",
                          .kh = "2.8",
                          .zz = "12",
                          .zy = "14.5",
                          .skewed = true,
                          .skew = text(angle),
                          .station = {}};
        ASSERT_TRUE(CalcJgw(in, structures, corners.rows));
        centre.move(*stake, 0, 0);
        const double A = centre.tangent, J = plain::degrees(std::stod(text(angle)));
        const auto rad = [](double deg) { return deg * plain::pi / 180; };
        const double left = A - (180 - J), right = A + J;
        int row = corners.state.rows - 4;
        for (const bool front : {true, false})
            for (const bool isLeft : {true, false}) {
                ++row;
                const double d = rad(isLeft ? left : right), z = isLeft ? 12 : 14.5, k = front ? 3.2 : 2.8;
                double x, y;
                if (skewEnds) {
                    const double along = k / std::cos((90 - J) * plain::pi / 180), t = rad(front ? A : A + 180);
                    x = std::cos(d) * z + (centre.x + std::cos(t) * along);
                    y = std::sin(d) * z + (centre.y + std::sin(t) * along);
                } else {
                    const double t = rad(front ? A - (90 - J) : (A + 180) - (90 - J));
                    x = std::cos(d) * z + centre.x + std::cos(t) * k;
                    y = std::sin(d) * z + centre.y + std::sin(t) * k;
                }
                plain::Point corner = centre;
                corner.x = x;
                corner.y = y;
                Texts cells = corner.row(
                    typed, std::string(front ? (isLeft ? "左前点" : "右前点") : (isLeft ? "左后点" : "右后点")),
                    plain::dms(std::stod(text(angle))));
                cells.insert(cells.begin(), std::to_string(row));
                EXPECT_EQ(corners.row(row), cells);
            }
    }
    EXPECT_GT(structures.count, 5);
}

TEST_P(Samples, MainPoints)
{
    Screen points(kMainPointColumns);
    const auto before = shared;
    LoadZdcs(points.rows);
    EXPECT_EQ(points.state.rows, gZdCount);
    for (int i = 1; i <= gZdCount; ++i) {
        const auto row = points.row(i);
        const auto at = static_cast<std::size_t>(i);
        EXPECT_EQ(row[1], before.tables.zdJd[at]);
        EXPECT_EQ(row[2], plain::fixed3(before.tables.zdT1[at]));
        EXPECT_EQ(row[7], plain::fixed3(before.tables.zdZhX[at]));
        EXPECT_EQ(row[21], plain::dms(before.tables.zdHzFwj[at]));
        if (GetParam().breaks) {
            // Back from the nominal stake of the table to the continuous one.
            const auto stake = plain::resolve(gZdHzLc[at]);
            ASSERT_TRUE(stake);
            EXPECT_NEAR(*stake, before.tables.zdHzLc[at], 0.0011) << row[1];
        } else {
            EXPECT_NEAR(gZdHzLc[at], before.tables.zdHzLc[at], 0.0006);
        }
    }
}
