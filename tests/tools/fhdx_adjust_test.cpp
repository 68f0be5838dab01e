#include "Traverse.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

using testing::ElementsAre;

/// The number of the run-time error that ends the adjustment; 0: it goes through.
int faultOf(Worksheet& sheet, bool left = true)
{
    try {
        AdjustFhdx(sheet, left);
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

Worksheet adjusted(const Traverse& traverse, int coordinateDecimals = 4)
{
    Worksheet sheet = sheetOf(traverse, coordinateDecimals);
    EXPECT_EQ(faultOf(sheet, traverse.left), 0);
    return sheet;
}

std::vector<double> column(const Worksheet& sheet, char letter, int firstRow, int lastRow)
{
    std::vector<double> values;
    for (int row = firstRow; row <= lastRow; row += 2) values.push_back(numberAt(sheet, letter, row));
    return values;
}
std::vector<double> legsColumn(const Worksheet& sheet, char letter, const Traverse& traverse)
{
    return column(sheet, letter, 7, 2 * traverse.n() - 1);
}

struct Dms {
    int degrees, minutes;
    double seconds;
    double deg() const { return degrees + minutes / 60.0 + seconds / 3600; }
};

// --- The textbook example, worked by hand ----------------------------------------------------------------------------

constexpr double kExactPi = 3.14159265358979323846;

/// A-B-1-2-3-4-C-D with left angles. A and D stand 1,000 m off on the given azimuths.
Traverse textbook()
{
    const Dms start{237, 59, 30}, end{46, 45, 24};
    Traverse traverse;
    traverse.b = {2507.69, 1215.63};
    traverse.c = {2166.74, 1757.27};
    const double s = start.deg() * kExactPi / 180, e = end.deg() * kExactPi / 180;
    traverse.a = {traverse.b.x - 1000 * std::cos(s), traverse.b.y - 1000 * std::sin(s)};
    traverse.d = {traverse.c.x + 1000 * std::cos(e), traverse.c.y + 1000 * std::sin(e)};
    traverse.angles = {packed(99, 1, 0),    packed(167, 45, 36), packed(123, 11, 24),
                       packed(189, 20, 36), packed(179, 59, 18), packed(129, 27, 24)};
    traverse.legs = {"225.85", "139.03", "172.57", "100.07", "102.48"};
    return traverse;
}

TEST(FhdxTextbook, WorkedByHand)
{
    const Worksheet sheet = adjusted(textbook());

    // 1. The angles add up to 888°45′18″. From 237°59′30″ six turns by them less 180° lead to 46°44′48″; it should be
    //    46°45′24″, so 36″ are missing. The limit is 10√6 = 24.5″.
    const double sum = Dms{888, 45, 18}.deg();
    const double closure = Dms{237, 59, 30}.deg() + sum - 6 * 180 - Dms{46, 45, 24}.deg();
    EXPECT_NEAR(closure * 3600, -36, 1e-6);
    EXPECT_EQ(textAt(sheet, 'b', 20), "fβ=Σfβ测-Σfβ理");
    EXPECT_EQ(textAt(sheet, 'b', 21), "fβ=-36″");
    EXPECT_EQ(textAt(sheet, 'b', 22), "fβ允 = ±10√n = ±24″");
    EXPECT_EQ(textAt(sheet, 'b', 23), "fβ>fβ允，不符合一级导线要求");

    // 2. Each angle gets 6″ more; the azimuths go on by the corrected angles.
    const Dms azimuths[] = {{157, 0, 36}, {144, 46, 18}, {87, 57, 48}, {97, 18, 30}, {97, 17, 54}};
    const double correctedAngles[] = {Dms{99, 1, 6}.deg(), Dms{167, 45, 42}.deg(), Dms{123, 11, 30}.deg(),
                                      Dms{189, 20, 42}.deg(), Dms{179, 59, 24}.deg()};
    double azimuth = Dms{237, 59, 30}.deg();
    for (int i = 0; i < 5; ++i) {
        azimuth += correctedAngles[i] - 180;
        ASSERT_NEAR(azimuth, azimuths[i].deg(), 1e-9);
        EXPECT_NEAR(numberAt(sheet, 'c', 6 + 2 * i), 6, 0.1);
    }
    // Kept on purpose: 60 seconds are not carried, and 99°01′ is a hair short of its minute in binary.
    EXPECT_EQ(textAt(sheet, 'b', 6), "99°0′60″");
    EXPECT_EQ(textAt(sheet, 'b', 8), "167°45′36″");

    // 3. Increments, rounded to the centimetre as in the book; they miss C by -0.15 and +0.14.
    const double legs[] = {225.85, 139.03, 172.57, 100.07, 102.48};
    const double dx[] = {-207.91, -113.57, 6.13, -12.73, -13.02}, dy[] = {88.21, 80.20, 172.46, 99.26, 101.65};
    double sumX = 0, sumY = 0, length = 0;
    for (int i = 0; i < 5; ++i) {
        ASSERT_NEAR(legs[i] * std::cos(azimuths[i].deg() * kExactPi / 180), dx[i], 0.0051);
        ASSERT_NEAR(legs[i] * std::sin(azimuths[i].deg() * kExactPi / 180), dy[i], 0.0051);
        EXPECT_NEAR(numberAt(sheet, 'f', 7 + 2 * i), dx[i], 0.0056);
        EXPECT_NEAR(numberAt(sheet, 'g', 7 + 2 * i), dy[i], 0.0056);
        sumX += dx[i];
        sumY += dy[i];
        length += legs[i];
    }
    const double fx = sumX - (2166.74 - 2507.69), fy = sumY - (1757.27 - 1215.63);
    EXPECT_NEAR(fx, -0.15, 1e-9);
    EXPECT_NEAR(fy, 0.14, 1e-9);
    EXPECT_NEAR(length, 740.00, 1e-9);

    // 4. Spread over the legs by their length, the increments lead from B over the new points to C.
    const double x[] = {2299.83, 2186.29, 2192.45, 2179.74}, y[] = {1303.80, 1383.97, 1556.40, 1655.64};
    double handX = 2507.69, handY = 1215.63;
    for (int i = 0; i < 4; ++i) {
        handX += dx[i] - fx * legs[i] / length;
        handY += dy[i] - fy * legs[i] / length;
        ASSERT_NEAR(handX, x[i], 0.01) << "point " << i + 1;
        ASSERT_NEAR(handY, y[i], 0.01) << "point " << i + 1;
        EXPECT_NEAR(numberAt(sheet, 'l', 8 + 2 * i), x[i], 0.01) << "point " << i + 1;
        EXPECT_NEAR(numberAt(sheet, 'm', 8 + 2 * i), y[i], 0.01) << "point " << i + 1;
    }
    EXPECT_EQ(textAt(sheet, 'k', 23), "不符合精度要求");
    EXPECT_TRUE(textAt(sheet, 'e', 20).ends_with(" -(2166.74-2507.69)"));
    EXPECT_TRUE(textAt(sheet, 'j', 20).ends_with(" -(1757.27-1215.63)"));
}

TEST(FhdxTextbook, RightAnglesGiveTheSameCoordinates)
{
    const Traverse left = textbook();
    Traverse right = left;
    right.left = false;
    right.angles = {packed(260, 59, 0),  packed(192, 14, 24), packed(236, 48, 36),
                    packed(170, 39, 24), packed(180, 0, 42),  packed(230, 32, 36)};
    const Worksheet one = adjusted(left), other = adjusted(right);
    EXPECT_EQ(textAt(one, 'b', 21), "fβ=-36″");
    EXPECT_EQ(textAt(other, 'b', 21), "fβ=36″");
    for (int row = 8; row <= 14; row += 2) {
        EXPECT_DOUBLE_EQ(numberAt(one, 'l', row), numberAt(other, 'l', row));
        EXPECT_DOUBLE_EQ(numberAt(one, 'm', row), numberAt(other, 'm', row));
    }
    for (int row = 5; row <= 17; row += 2) EXPECT_EQ(textAt(one, 'd', row), textAt(other, 'd', row));
    EXPECT_EQ(textAt(one, 'b', 2), " 观测左角               (  °′ ″ )");
    EXPECT_EQ(textAt(other, 'b', 2), " 观测右角               (  °′ ″ )");
}

// --- Each text and cell of one adjustment whose numbers are plain ----------------------------------------------------

TEST(FhdxAdjust, EveryCellOfAPlainTraverse)
{
    // East by 100, 200 and 300 m, 12 mm too far north and 6 mm too far east; the angles are 8″ too large in all.
    Traverse traverse = eastward({100, 200, 300}, 0, 0);
    traverse.angles = {"180", "180.0008", "180", "180"};
    traverse.c = {-0.012, 599.994};
    traverse.d = {-0.012, 1599.994};
    const Worksheet sheet = adjusted(traverse);
    EXPECT_THAT(column(sheet, 'c', 6, 12), ElementsAre(-2, -2, -2, -2));
    // Azimuths: 90° - 2″, + 8″ - 4″, - 6″; the last one is the known one.
    EXPECT_EQ(textAt(sheet, 'd', 5), "90°0′0″");
    EXPECT_EQ(textAt(sheet, 'd', 7), "89°59′58″");
    EXPECT_EQ(textAt(sheet, 'd', 9), "90°0′04″");
    EXPECT_EQ(textAt(sheet, 'd', 11), "90°0′02″");
    EXPECT_EQ(textAt(sheet, 'd', 13), "90°0′0″");
    EXPECT_EQ(textAt(sheet, 'b', 8), "180°0′08″");
    // 100 sin 2″ = 0.00097, 200 sin 4″ = 0.0039, 300 sin 2″ = 0.0029: 1, -4 and -3 mm.
    EXPECT_THAT(legsColumn(sheet, 'f', traverse), ElementsAre(0.001, -0.004, -0.003));
    EXPECT_THAT(legsColumn(sheet, 'g', traverse), ElementsAre(100, 200, 300));
    EXPECT_EQ(textAt(sheet, 'e', 16), "fx=-0.006 -(-.012-0)");
    EXPECT_EQ(textAt(sheet, 'j', 16), "fy=600 -(599.994-0)");
    EXPECT_EQ(textAt(sheet, 'e', 17), "fx=0.006");
    EXPECT_EQ(textAt(sheet, 'j', 17), "fy=0.006");
    // √2 · 6 mm = 8.485 mm, shown as 8 mm; 600 / 0.008 = 75,000.
    EXPECT_EQ(textAt(sheet, 'g', 18), "f=√(fx*fx+fy*fy)=0.008");
    EXPECT_EQ(textAt(sheet, 'g', 19), "K=f/ΣD=1/75000<1/15000");
    EXPECT_EQ(textAt(sheet, 'k', 19), "符合精度要求");
    EXPECT_THAT(legsColumn(sheet, 'h', traverse), ElementsAre(-1, -2, -3));
    EXPECT_THAT(legsColumn(sheet, 'i', traverse), ElementsAre(-1, -2, -3));
    EXPECT_THAT(legsColumn(sheet, 'j', traverse), ElementsAre(0.001 - 0.001, -0.004 - 0.002, -0.003 - 0.003));
    EXPECT_THAT(legsColumn(sheet, 'k', traverse), ElementsAre(99.999, 199.998, 299.997));
    EXPECT_THAT(column(sheet, 'l', 8, 10), ElementsAre(0, -0.006));
    EXPECT_THAT(column(sheet, 'm', 8, 10), ElementsAre(99.999, 99.999 + 199.998));
    // The known points stay as typed.
    EXPECT_EQ(textAt(sheet, 'l', 12), "-0.012");
    EXPECT_EQ(textAt(sheet, 'm', 12), "599.994");
    for (int row = 4; row <= 12; ++row)
        for (int col = 2; col <= 13; ++col) EXPECT_EQ(sheet.style(CellRef(row, col)).horizontal, xlCenter);
    EXPECT_EQ(sheet.selection(), CellRange("B4:M12"));
}

TEST(FhdxAdjust, FooterStaysTextAndResultsAreNumbers)
{
    const Worksheet sheet = adjusted(eastward({100, 100}, 0.004, 0.25));
    EXPECT_TRUE(std::holds_alternative<double>(sheet.value("f7")));
    EXPECT_TRUE(std::holds_alternative<double>(sheet.value("h7")));
    EXPECT_TRUE(std::holds_alternative<std::string>(sheet.value("g16")));
    EXPECT_TRUE(std::holds_alternative<std::string>(sheet.value("d7")));
    EXPECT_TRUE(std::holds_alternative<std::string>(sheet.value("b6")));
    EXPECT_EQ(textAt(sheet, 'j', 15), "fy=0.25");
}

// --- Angular closure -------------------------------------------------------------------------------------------------

std::string angleVerdict(int legs, const char* firstAngle)
{
    Traverse traverse = eastward(std::vector<double>(static_cast<std::size_t>(legs), 100), 0.01);
    traverse.angles.front() = firstAngle;
    const Worksheet sheet = adjusted(traverse);
    return textAt(sheet, 'b', 2 * traverse.n() + 5) + " " + textAt(sheet, 'b', 2 * traverse.n() + 6) + " " +
           textAt(sheet, 'b', 2 * traverse.n() + 7);
}

TEST(FhdxAngles, ClosureExactlyAtTheLimitDoesNotPass)
{
    EXPECT_EQ(angleVerdict(3, "180.0019"), "fβ=19″ fβ允 = ±10√n = ±20″ fβ<fβ允，符合一级导线要求");
    EXPECT_EQ(angleVerdict(3, "180.0020"), "fβ=20″ fβ允 = ±10√n = ±20″ fβ>fβ允，不符合一级导线要求");
    EXPECT_EQ(angleVerdict(3, "180.0021"), "fβ=21″ fβ允 = ±10√n = ±20″ fβ>fβ允，不符合一级导线要求");
    EXPECT_EQ(angleVerdict(3, "179.5941"), "fβ=-19″ fβ允 = ±10√n = ±20″ fβ<fβ允，符合一级导线要求");
    EXPECT_EQ(angleVerdict(3, "179.5940"), "fβ=-20″ fβ允 = ±10√n = ±20″ fβ>fβ允，不符合一级导线要求");
}

TEST(FhdxAngles, LimitShownIsRoundedTheTestIsNot)
{
    // Three angles: 17.32″, shown as 17.
    EXPECT_EQ(angleVerdict(2, "180.0017"), "fβ=17″ fβ允 = ±10√n = ±17″ fβ<fβ允，符合一级导线要求");
    EXPECT_EQ(angleVerdict(2, "180.0018"), "fβ=18″ fβ允 = ±10√n = ±17″ fβ>fβ允，不符合一级导线要求");
}

TEST(FhdxAngles, LimitShownRoundsUpButDoesNotPassThere)
{
    // Ten angles: 31.62″, shown as 32.
    EXPECT_EQ(angleVerdict(9, "180.0031"), "fβ=31″ fβ允 = ±10√n = ±32″ fβ<fβ允，符合一级导线要求");
    EXPECT_EQ(angleVerdict(9, "180.0032"), "fβ=32″ fβ允 = ±10√n = ±32″ fβ>fβ允，不符合一级导线要求");
}

TEST(FhdxAngles, ClosureIsRoundedHalfUpAlsoBelowZero)
{
    // 7.50″ in all, carried by angles of whole hundredths; half a second up, towards zero below it.
    EXPECT_TRUE(angleVerdict(3, "180.000751").starts_with("fβ=8″"));
    EXPECT_TRUE(angleVerdict(3, "180.000749").starts_with("fβ=7″"));
    EXPECT_TRUE(angleVerdict(3, "179.595251").starts_with("fβ=-7″"));
    EXPECT_TRUE(angleVerdict(3, "179.595249").starts_with("fβ=-8″"));
}

TEST(FhdxAngles, CorrectionOfNothingIsNoNegativeZero)
{
    const Worksheet sheet = adjusted(eastward({100, 100}, 0.01));
    EXPECT_EQ(textAt(sheet, 'b', 15), "fβ=0″");
    for (const double correction : column(sheet, 'c', 6, 10)) {
        EXPECT_EQ(correction, 0);
        EXPECT_FALSE(std::signbit(correction));
    }
}

TEST(FhdxAngles, CorrectionsAreUnroundedSeconds)
{
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.angles.front() = "180.0010";
    EXPECT_THAT(column(adjusted(traverse), 'c', 6, 10), ElementsAre(-10.0 / 3, -10.0 / 3, -10.0 / 3));
}

/// The closure for angles that add up to `surplus` degrees more than those of a straight line of four angles.
std::string closureText(int surplus, bool left, double endAzimuthDegrees = 90)
{
    Traverse traverse = eastward({100, 100, 100}, 0.01);
    traverse.left = left;
    traverse.angles.front() = std::to_string(180 + surplus);
    const double end = endAzimuthDegrees * kExactPi / 180;
    traverse.d = {traverse.c.x + 1000 * std::cos(end), traverse.c.y + 1000 * std::sin(end)};
    Worksheet sheet = sheetOf(traverse, 7);
    faultOf(sheet, left);
    return textAt(sheet, 'b', 2 * traverse.n() + 5);
}

TEST(FhdxAngles, WholeTurnsAreTakenOutByTheTwoWraps)
{
    // A straight line closes at -360: one turn too much in the theoretical sum, taken out by the second wrap.
    EXPECT_EQ(closureText(0, true), "fβ=0″");
    EXPECT_EQ(closureText(0, false), "fβ=0″");
    // -360 + 1080 = 720: two turns above; -360 + 719 stays below the first wrap but goes through the second.
    EXPECT_EQ(closureText(1080, true), "fβ=0″");
    EXPECT_EQ(closureText(720, true), "fβ=0″");
    EXPECT_EQ(closureText(360, true), "fβ=0″");
    EXPECT_EQ(closureText(-360, true), "fβ=0″");
    // 359 and -359 themselves are left alone, 719 and -719 lose one turn.
    EXPECT_EQ(closureText(719, true), "fβ=1292400″");
    EXPECT_EQ(closureText(1, true), "fβ=-1292400″");
    EXPECT_EQ(closureText(1079, true), "fβ=1292400″");
    EXPECT_EQ(closureText(-359, true), "fβ=-1292400″");
    // Three turns are more than the wraps take out.
    EXPECT_EQ(closureText(1440, true), "fβ=1296000″");
    EXPECT_EQ(closureText(-720, true), "fβ=-1296000″");
}

TEST(FhdxAngles, TwoTurnsBelowAreTakenOut)
{
    // -360 - 360 = -720.
    EXPECT_EQ(closureText(-360, false), "fβ=0″");
    EXPECT_EQ(closureText(-361, false), "fβ=-3600″");
}

// --- Azimuths --------------------------------------------------------------------------------------------------------

/// Azimuths as numbers: a text in a distance ends the adjustment right after them.
std::vector<double> azimuthsOf(Traverse traverse, int coordinateDecimals = 4)
{
    traverse.legs.front() = "短";
    Worksheet sheet = sheetOf(traverse, coordinateDecimals);
    EXPECT_EQ(faultOf(sheet, traverse.left), RunTimeError::TypeMismatch);
    return column(sheet, 'd', 5, 2 * traverse.n() + 1);
}

TEST(FhdxAzimuths, RightAnglesOf180KeepTheAzimuth)
{
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.left = false;
    EXPECT_THAT(azimuthsOf(traverse), ElementsAre(90, 90, 90, 90));
    traverse.left = true;
    EXPECT_THAT(azimuthsOf(traverse), ElementsAre(90, 90, 90, 90));
}

TEST(FhdxAzimuths, OneWrapAndNoMore)
{
    // From 90° by left angles. Below 0: 90 - 180 + 60 = -30, shown as 330; above 360: 330 + 120 - ... and so on.
    Traverse traverse = eastward({100, 100, 100}, 0.01);
    traverse.angles = {"60", "300", "180", "180"};
    EXPECT_THAT(azimuthsOf(traverse), ElementsAre(90, 330, 90, 90, 90));
    // An angle of 900° leads from 90° to 810°, and one wrap leaves 450°: its closure is a whole number of turns.
    traverse.angles = {"900", "180", "180", "180"};
    EXPECT_THAT(azimuthsOf(traverse), ElementsAre(90, 450, 90, 90, 90));
}

TEST(FhdxAzimuths, FullTurnStays360)
{
    Traverse traverse = eastward({100, 100, 100}, 0.01);
    traverse.angles = {"450", "270", "180", "180"};
    EXPECT_THAT(azimuthsOf(traverse), ElementsAre(90, 360, 90, 90, 90));
}

TEST(FhdxAzimuths, KnownAzimuthOfTheLastLineIsNotRecomputed)
{
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.angles = {"180.0003", "180", "180.0003"};
    const auto azimuths = azimuthsOf(traverse);
    EXPECT_EQ(azimuths.back(), 90);
}

TEST(FhdxAzimuths, DueSouthLineReadsAsNorth)
{
    // Kept on purpose: the azimuth of a line due south is 0.
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.a = {1000, 0};
    EXPECT_EQ(azimuthsOf(traverse).front(), 0);
}

TEST(FhdxIncrements, TurnByPiOfSevenDecimals)
{
    // A quarter turn of 3.1415926 falls 0.0000000268 short of the right angle, 27 mm over 1,000 km.
    const Traverse traverse = eastward({1000000, 100}, 0.01);
    EXPECT_THAT(legsColumn(adjusted(traverse), 'f', traverse), ElementsAre(0.027, 0));
}

// --- Closures and their texts ----------------------------------------------------------------------------------------

TEST(Fixed6, RoundsHalfAwayFromZeroOnFifteenDigits)
{
    EXPECT_EQ(Fixed6(0.0000005), 0.000001);
    EXPECT_EQ(Fixed6(-0.0000005), -0.000001);
    EXPECT_EQ(Fixed6(0.00000049999), 0);
    EXPECT_FALSE(std::signbit(Fixed6(-0.0000004)));
    EXPECT_EQ(Fixed6(1.0000025), 1.000003);
    EXPECT_EQ(Fixed6(1.0000035), 1.000004);
    EXPECT_EQ(Fixed6(-9.9999995), -10);
    EXPECT_EQ(Fixed6(999.9999996), 1000);
    EXPECT_EQ(Fixed6(0.1 + 0.2 - 0.3), 0);
    EXPECT_EQ(Fixed6(-123.456), -123.456);
    EXPECT_EQ(Fixed6(0), 0);
    // 4.35 - 4.3499995 is a hair below half a unit as a double; its 15 digits decide.
    EXPECT_EQ(Fixed6(0.0099995000000000001), 0.01);
    EXPECT_EQ(Fixed6(123456789012.3456785), 123456789012.346);  // no sixth decimal within 15 digits
    EXPECT_EQ(Fixed6(1e20), 1e20);
}

TEST(Fixed6, AgreesWithDecimalArithmetic)
{
    std::mt19937_64 random(6);
    for (int i = 0; i < 100000; ++i) {
        // k units of 1e-9: exact in decimal, so that integers decide.
        const long long k = std::uniform_int_distribution<long long>(-2'000'000'000, 2'000'000'000)(random);
        const long long units = (std::abs(k) + 500) / 1000;
        const double expected = std::stod((k < 0 && units ? "-" : "") + std::to_string(units) + "e-6");
        ASSERT_EQ(Fixed6(std::stod(std::to_string(k) + "e-9")), expected) << k;
    }
}

TEST(FhdxClosure, RatioOfExactly15000DoesNotPass)
{
    const auto verdict = [](std::vector<double> legs) {
        const Traverse traverse = eastward(legs, 0.1);
        const Worksheet sheet = adjusted(traverse);
        return textAt(sheet, 'g', 2 * traverse.n() + 7) + " " + textAt(sheet, 'k', 2 * traverse.n() + 7);
    };
    EXPECT_EQ(verdict({700, 800}), "K=f/ΣD=1/15000>1/15000 不符合精度要求");
    EXPECT_EQ(verdict({700, 799.9}), "K=f/ΣD=1/14999>1/15000 不符合精度要求");
    EXPECT_EQ(verdict({700, 800.11}), "K=f/ΣD=1/15001<1/15000 符合精度要求");
    EXPECT_EQ(verdict({700, 800.05}), "K=f/ΣD=1/15000>1/15000 不符合精度要求");
    EXPECT_EQ(verdict({700, 800.09}), "K=f/ΣD=1/15000>1/15000 不符合精度要求");  // cut off, not rounded
}

TEST(FhdxClosure, PerfectTraverseDividesByZeroAndLeavesWhatIsWritten)
{
    const Traverse traverse = eastward({100, 100}, 0, 0);
    Worksheet sheet = sheetOf(traverse);
    EXPECT_EQ(faultOf(sheet), RunTimeError::DivisionByZero);
    EXPECT_EQ(textAt(sheet, 'e', 14), "fx=0 -(0-0)");
    EXPECT_EQ(textAt(sheet, 'e', 15), "fx=0");
    EXPECT_EQ(textAt(sheet, 'j', 15), "fy=0");
    EXPECT_EQ(textAt(sheet, 'g', 16), "f=√(fx*fx+fy*fy)=0");
    EXPECT_EQ(textAt(sheet, 'g', 17), "");
    EXPECT_EQ(textAt(sheet, 'h', 7), "");
    EXPECT_EQ(textAt(sheet, 'l', 8), "");
    EXPECT_EQ(textAt(sheet, 'b', 6), "180");
    EXPECT_EQ(numberAt(sheet, 'd', 7), 90);
}

TEST(FhdxClosure, SumsAreShownInMillimetres)
{
    // 0.1 + 0.2 - 0.3 is not 0 in binary; the texts show it rounded.
    const std::vector<double> legs{0.1, 0.2, -0.3};
    Worksheet sheet = sheetOf(northward(legs, 0.01, 0.02));
    faultOf(sheet);
    EXPECT_EQ(textAt(sheet, 'e', 16), "fx=0 -(-.01-0)");
    sheet = sheetOf(eastward(legs, 0.02, 0.01));
    faultOf(sheet);
    EXPECT_EQ(textAt(sheet, 'j', 16), "fy=0 -(-.01-0)");
}

TEST(FhdxClosure, LessThanHalfAMillimetreCountsAsNothing)
{
    Worksheet sheet = sheetOf(eastward({100, 100}, 0.0004, 0));
    EXPECT_EQ(faultOf(sheet), RunTimeError::DivisionByZero);
    EXPECT_EQ(textAt(sheet, 'e', 15), "fx=0.0004");
    EXPECT_EQ(textAt(sheet, 'g', 16), "f=√(fx*fx+fy*fy)=0");
}

// --- Distribution ----------------------------------------------------------------------------------------------------

/// Corrections of both axes for the same legs and closures: columns h and i must follow the same table.
std::vector<double> corrections(const std::vector<double>& legs, double closure)
{
    const Traverse east = eastward(legs, closure, 0.5), north = northward(legs, 0.5, closure);
    const auto h = legsColumn(adjusted(east), 'h', east);
    EXPECT_EQ(legsColumn(adjusted(north), 'i', north), h);
    return h;
}

TEST(FhdxRest, None)
{
    EXPECT_THAT(corrections({100, 200, 300}, 0.006), ElementsAre(-1, -2, -3));
    EXPECT_THAT(corrections({100, 200, 300}, -0.006), ElementsAre(1, 2, 3));
}
TEST(FhdxRest, OneTooManyLastLegMovesTowardsZero)
{
    // Shares 0.6, 0.6, 0.8 of a millimetre: three whole ones for two.
    EXPECT_THAT(corrections({60, 60, 80}, -0.002), ElementsAre(1, 1, 0));
    EXPECT_THAT(corrections({60, 60, 80}, 0.002), ElementsAre(-1, -1, 0));
}
TEST(FhdxRest, TwoTooManyLastAndFirstLegMoveTowardsZero)
{
    EXPECT_THAT(corrections({60, 60, 60, 60, 60}, -0.003), ElementsAre(0, 1, 1, 1, 0));
    EXPECT_THAT(corrections({60, 60, 60, 60, 60}, 0.003), ElementsAre(0, -1, -1, -1, 0));
}
TEST(FhdxRest, OneTooFewLastLegMovesAway)
{
    EXPECT_THAT(corrections({140, 140, 120}, -0.004), ElementsAre(1, 1, 2));
    EXPECT_THAT(corrections({140, 140, 120}, 0.004), ElementsAre(-1, -1, -2));
}
TEST(FhdxRest, TwoTooFewMovesCancelAndTheSumStaysShort)
{
    // Six shares of 1.33: eight are wanted, six there are, and six there stay.
    EXPECT_THAT(corrections({100, 100, 100, 100, 100, 100}, -0.008), ElementsAre(2, 1, 1, 1, 1, 0));
    EXPECT_THAT(corrections({100, 100, 100, 100, 100, 100}, 0.008), ElementsAre(-2, -1, -1, -1, -1, 0));
}
TEST(FhdxRest, ThreeTooManyStay)
{
    // Eight shares of 0.625.
    EXPECT_THAT(corrections(std::vector<double>(8, 100), -0.005), ElementsAre(1, 1, 1, 1, 1, 1, 1, 1));
}
TEST(FhdxRest, ThreeTooFewStay)
{
    EXPECT_THAT(corrections(std::vector<double>(8, 100), -0.011), ElementsAre(1, 1, 1, 1, 1, 1, 1, 1));
}
TEST(FhdxRest, CellOfZeroDoesNotMove)
{
    // Shares of a third: nothing is spread, and the missing millimetre finds no sign to go by.
    EXPECT_THAT(corrections({100, 100, 100}, -0.001), ElementsAre(0, 0, 0));
    // Shares 1.4, 1.4, 0.2: one too few, but the last leg has none.
    EXPECT_THAT(corrections({140, 140, 20}, -0.003), ElementsAre(1, 1, 0));
    // Two too few: the first leg moves away alone, since the last one is 0.
    EXPECT_THAT(corrections({140, 140, 140, 140, 40}, -0.006), ElementsAre(2, 1, 1, 1, 0));
    for (const double zero : corrections({100, 100, 100}, 0.001)) EXPECT_FALSE(std::signbit(zero));
}
TEST(FhdxRest, HalfAMillimetreGoesToTheEvenNeighbour)
{
    // Closure 1.6 + 0.9 = 2.5 mm: shares 1.6 and 0.9, together 3, a rest of 0.5, which is 0.
    EXPECT_THAT(corrections({160, 90}, -0.0025), ElementsAre(2, 1));
    // Closure 2.5 mm by five shares of 0.5 and a little: 1.5 too many is 2.
    EXPECT_THAT(corrections({70, 60, 60, 60}, -0.0025), ElementsAre(0, 1, 1, 0));
    // Two shares of 1.25: half a millimetre too few is nothing.
    EXPECT_THAT(corrections({100, 100}, -0.0025), ElementsAre(1, 1));
}
TEST(FhdxRest, OneSignThroughTheColumn)
{
    // A negative distance gets the sign of the column, not its own.
    Traverse traverse = eastward({100, 100}, -0.01, 0.5);
    traverse.legs = {"-50", "250"};
    Worksheet sheet = sheetOf(traverse);
    EXPECT_EQ(faultOf(sheet), 0);
    // Shares 2.5 and 12.5 of 10 mm: 3 and 13 (halves up); 6 too many stay.
    EXPECT_THAT(legsColumn(sheet, 'h', traverse), ElementsAre(3, 13));
}

TEST(FhdxSums, MillimetresPastSixteenBitsOverflow)
{
    // 32.767 m of closure in two shares: the last sum that fits.
    const Traverse fits = eastward({100, 100}, -32.766, 0.5);
    EXPECT_THAT(legsColumn(adjusted(fits), 'h', fits), ElementsAre(16383, 16383));
    const Traverse past = eastward({100, 100}, -32.768, 0.5);
    Worksheet sheet = sheetOf(past);
    EXPECT_EQ(faultOf(sheet), RunTimeError::Overflow);
    EXPECT_THAT(legsColumn(sheet, 'h', past), ElementsAre(16384, 16384));
    EXPECT_EQ(textAt(sheet, 'j', 7), "");
    // -32768 fits the sum, but not its magnitude.
    Worksheet negative = sheetOf(eastward({100, 100}, 32.768, 0.5));
    EXPECT_EQ(faultOf(negative), RunTimeError::Overflow);
}

TEST(FhdxSums, BothAreTakenBeforeARestIsMoved)
{
    // One millimetre too many in column h, but the sum of column i fails first.
    const Traverse traverse = eastward({60, 60, 80}, -0.002, -40);
    Worksheet sheet = sheetOf(traverse);
    EXPECT_EQ(faultOf(sheet), RunTimeError::Overflow);
    EXPECT_THAT(legsColumn(sheet, 'h', traverse), ElementsAre(1, 1, 1));
    EXPECT_THAT(legsColumn(sheet, 'i', traverse), ElementsAre(12000, 12000, 16000));
}

TEST(FhdxCoordinates, LastCorrectedIncrementIsNotUsed)
{
    const Traverse traverse = eastward({100, 100, 100}, 0.03, 0);
    const Worksheet sheet = adjusted(traverse);
    EXPECT_EQ(textAt(sheet, 'l', 12), "-0.03");
    EXPECT_THAT(column(sheet, 'l', 8, 10), ElementsAre(-0.01, -0.02));
}

// --- Sizes -----------------------------------------------------------------------------------------------------------

Traverse lineOf(int n) { return eastward(std::vector<double>(static_cast<std::size_t>(n - 3), 50), 0.02, 0.01); }

TEST(FhdxSize, FiveToAHundredAndThreePointsPass)
{
    for (const int n : {5, 6, 60, 103}) {
        const Worksheet sheet = adjusted(lineOf(n));
        EXPECT_EQ(textAt(sheet, 'b', 2 * n + 5), "fβ=0″") << n;
        EXPECT_NEAR(numberAt(sheet, 'm', 2 * n - 2), (n - 4) * 50.0, 0.02) << n;
        EXPECT_EQ(textAt(sheet, 'd', 2 * n + 1), "90°0′0″") << n;
    }
}
TEST(FhdxSize, HundredAndTwoAnglesHaveNoRoom)
{
    Worksheet sheet = sheetOf(lineOf(104));
    EXPECT_EQ(faultOf(sheet), RunTimeError::Subscript);
    EXPECT_EQ(numberAt(sheet, 'd', 5), 90);
    EXPECT_EQ(numberAt(sheet, 'd', 209), 90);
    EXPECT_EQ(textAt(sheet, 'b', 212), "");
    EXPECT_EQ(textAt(sheet, 'c', 6), "");
}

// --- Cells that are not as they should be ----------------------------------------------------------------------------

TEST(FhdxCells, SecondPressReadsTextAndFails)
{
    const Traverse traverse = textbook();
    Worksheet sheet = adjusted(traverse);
    const Worksheet before = sheet;
    EXPECT_EQ(faultOf(sheet), RunTimeError::TypeMismatch);
    // The known azimuths are numbers again; all else stays.
    EXPECT_NEAR(numberAt(sheet, 'd', 5), Dms({237, 59, 30}).deg(), 1e-4);
    EXPECT_NEAR(numberAt(sheet, 'd', 17), Dms({46, 45, 24}).deg(), 1e-4);
    sheet.setValue("d5", textAt(before, 'd', 5));
    sheet.setValue("d17", textAt(before, 'd', 17));
    EXPECT_EQ(sheet, before);
}
TEST(FhdxCells, EmptySheetReadsAsZerosAndDividesByZero)
{
    Worksheet sheet;
    gFhdxN = 6;
    LayOutFhdx(sheet, true);
    EXPECT_EQ(faultOf(sheet), RunTimeError::DivisionByZero);
    EXPECT_EQ(numberAt(sheet, 'd', 5), 0);
    EXPECT_EQ(textAt(sheet, 'g', 18), "f=√(fx*fx+fy*fy)=0");
}
TEST(FhdxCells, EmptyAngleReadsAsZero)
{
    Traverse traverse = eastward({1, 1}, 0.01);
    traverse.angles = {"180", "", "180"};
    const Worksheet sheet = adjusted(traverse);
    EXPECT_EQ(textAt(sheet, 'b', 8), "0°0′0″");
    EXPECT_EQ(textAt(sheet, 'b', 15), "fβ=-648000″");
}
TEST(FhdxCells, TextInAKnownCoordinateWritesNothing)
{
    for (const char* bad : {"l4", "m4", "l6", "m6", "l10", "m10", "l12", "m12"}) {
        Worksheet sheet = sheetOf(eastward({100, 100}, 0.01));
        sheet.setValue(bad, "X");
        const Worksheet before = sheet;
        EXPECT_EQ(faultOf(sheet), RunTimeError::TypeMismatch) << bad;
        EXPECT_EQ(sheet, before) << bad;
    }
}
TEST(FhdxCells, TextInAnAngleLeavesTheKnownAzimuths)
{
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.angles[1] = "180°00′00″";
    Worksheet sheet = sheetOf(traverse);
    EXPECT_EQ(faultOf(sheet), RunTimeError::TypeMismatch);
    EXPECT_EQ(numberAt(sheet, 'd', 5), 90);
    EXPECT_EQ(numberAt(sheet, 'd', 11), 90);
    EXPECT_EQ(textAt(sheet, 'b', 14), "");
}
TEST(FhdxCells, TextInADistanceLeavesTheIncrementsBeforeIt)
{
    Traverse traverse = eastward({100, 100, 100}, 0.01);
    traverse.legs[1] = "百";
    Worksheet sheet = sheetOf(traverse);
    EXPECT_EQ(faultOf(sheet), RunTimeError::TypeMismatch);
    EXPECT_EQ(numberAt(sheet, 'g', 7), 100);
    EXPECT_EQ(textAt(sheet, 'g', 9), "");
    EXPECT_EQ(textAt(sheet, 'e', 16), "");
}
TEST(FhdxCells, NumberKeptAsTextCountsAsItsNumber)
{
    const Traverse traverse = textbook();
    Worksheet sheet = sheetOf(traverse);
    sheet.setText("e7", " 225.85 ");
    EXPECT_EQ(faultOf(sheet), 0);
    EXPECT_EQ(numberAt(sheet, 'l', 8), numberAt(adjusted(traverse), 'l', 8));
}
TEST(FhdxCells, HugeNumbersOverflowAndNeverReachACell)
{
    const Worksheet plain = sheetOf(eastward({100, 100}, 0.01));
    for (const char* address : {"l4", "m4", "l6", "m6", "l10", "m10", "l12", "m12", "b6", "b8", "e7", "e9"})
        for (const double huge : {1.7e308, -1.7e308, 1e300, -1e200, 1e20, -1e15}) {
            Worksheet sheet = plain;
            sheet.setNumber(address, huge);
            faultOf(sheet);
            for (int row = 4; row <= sheet.rows(); ++row)
                for (const auto& value : sheet.rowValues(row)) {
                    const auto* number = std::get_if<double>(&value);
                    ASSERT_TRUE(!number || std::isfinite(*number));
                }
        }
    Worksheet sheet = plain;
    sheet.setNumber("b6", 1e308);
    EXPECT_EQ(faultOf(sheet), RunTimeError::Overflow);
}
TEST(FhdxCells, NegativeAngleKeepsItsSignInTheSum)
{
    Traverse traverse = eastward({100, 100}, 0.01);
    traverse.angles = {"-180", "180", "180"};
    const Worksheet sheet = adjusted(traverse);
    // -360 for the turn taken out, and the text of the angle drops the sign.
    EXPECT_EQ(textAt(sheet, 'b', 15), "fβ=0″");
    EXPECT_EQ(textAt(sheet, 'b', 6), "180°0′0″");
}

// --- A second formulation, on random traverses -----------------------------------------------------------------------

struct RandomTraverse {
    Traverse traverse;
    std::vector<Traverse::Point> truth;  ///< B, the new points, C
};

RandomTraverse randomTraverse(std::mt19937_64& random, bool left)
{
    const auto uniform = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto round = [](double value) { return std::round(value * 1000) / 1000; };
    const int n = std::uniform_int_distribution(5, 40)(random);
    std::vector<Traverse::Point> points{{round(uniform(1e5, 9e5)), round(uniform(1e5, 9e5))}};
    const double direction = uniform(0, 2 * kExactPi);
    for (int k = 1; k < n; ++k) {
        const double heading = direction + uniform(-1.2, 1.2);
        const double length = uniform(50, 500);
        points.push_back(
            {round(points.back().x + length * std::cos(heading)), round(points.back().y + length * std::sin(heading))});
    }
    RandomTraverse made;
    Traverse& traverse = made.traverse;
    traverse.left = left;
    traverse.a = points[0], traverse.b = points[1];
    traverse.c = points[points.size() - 2], traverse.d = points.back();
    const auto azimuth = [&](std::size_t from, std::size_t to) {
        return std::atan2(points[to].y - points[from].y, points[to].x - points[from].x);
    };
    for (std::size_t k = 1; k + 1 < points.size(); ++k) {
        const double turn = (azimuth(k, k + 1) - azimuth(k, k - 1)) * 180 / kExactPi;
        const double hundredths = (left ? turn : -turn) * 360000 + uniform(-300, 300);
        traverse.angles.push_back(packed(std::llround(hundredths)));
        if (k + 2 < points.size())
            traverse.legs.push_back(typed(
                std::hypot(points[k + 1].x - points[k].x, points[k + 1].y - points[k].y) + uniform(-0.005, 0.005), 3));
    }
    made.truth.assign(points.begin() + 1, points.end() - 1);
    return made;
}

/// What the whole-millimetre corrections must add up to, by integers: the shares as rationals of whole millimetres.
/// nullopt: a share or the rest is too near a tie to tell without the program's own arithmetic.
std::optional<long long> expectedSum(const std::vector<std::string>& legs, long long closureMm)
{
    long long length = 0;
    std::vector<long long> mm;
    for (const auto& leg : legs) {
        mm.push_back(std::llround(std::stod(leg) * 1000));
        length += mm.back();
    }
    const long long size = std::abs(closureMm), sign = closureMm > 0 ? -1 : closureMm < 0 ? 1 : 0;
    std::vector<long long> shares;
    long long sum = 0;
    for (const long long leg : mm) {
        if (2 * leg * size % length == 0 && leg * size % length != 0) return std::nullopt;  // half a millimetre
        shares.push_back((2 * leg * size + length) / (2 * length));
        sum += shares.back();
    }
    const long long rest = sum - size;
    if (rest == 1) sum -= shares.back() != 0;
    if (rest == 2) sum -= (shares.back() != 0) + (shares.front() != 0);
    if (rest == -1) sum += shares.back() != 0;
    if (rest == -2) sum += (shares.front() != 0) - (shares.back() != 0);
    return sign * sum;
}

TEST(FhdxRandom, SumsMeetTheKnownDifferenceAsTheTableOfRestsSays)
{
    std::mt19937_64 random(20);
    int met = 0, told = 0;
    for (int i = 0; i < 1000; ++i) {
        const auto made = randomTraverse(random, i % 2 == 0);
        const Traverse& traverse = made.traverse;
        const Worksheet sheet = adjusted(traverse, 3);
        const struct {
            char increment, correction, corrected;
            double difference;
        } axes[] = {{'f', 'h', 'j', traverse.c.x - traverse.b.x}, {'g', 'i', 'k', traverse.c.y - traverse.b.y}};
        for (const auto& axis : axes) {
            double increments = 0, corrected = 0, corrections = 0;
            for (const double value : legsColumn(sheet, axis.increment, traverse)) increments += value;
            for (const double value : legsColumn(sheet, axis.corrected, traverse)) corrected += value;
            for (const double value : legsColumn(sheet, axis.correction, traverse)) corrections += value;
            const long long closure = std::llround((increments - axis.difference) * 1000);
            const auto expected = expectedSum(traverse.legs, closure);
            if (!expected) continue;
            ++told;
            ASSERT_EQ(corrections, static_cast<double>(*expected)) << "traverse " << i;
            const bool meets = *expected == -closure;
            met += meets;
            ASSERT_NEAR(corrected - axis.difference, static_cast<double>(closure + *expected) / 1000, 1e-6);
        }
    }
    EXPECT_GT(told, 1950);
    EXPECT_GT(met, told / 2);
}

TEST(FhdxRandom, LeftAndRightAnglesOfOneTraverseAgree)
{
    std::mt19937_64 random(22);
    for (int i = 0; i < 200; ++i) {
        const Traverse left = randomTraverse(random, true).traverse;
        Traverse right = left;
        right.left = false;
        for (auto& angle : right.angles) {
            const auto digits = std::stoll(angle.substr(0, angle.find('.')) + angle.substr(angle.find('.') + 1));
            const long long hundredths =
                digits / 1000000 * 360000 + digits / 10000 % 100 * 6000 + digits / 100 % 100 * 100 + digits % 100;
            angle = packed(360LL * 360000 - hundredths);
        }
        const Worksheet one = adjusted(left, 3), other = adjusted(right, 3);
        // Sums of angles differ in their last bit, so that an increment may round to the other side.
        for (int row = 8; row <= 2 * left.n() - 2; row += 2) {
            ASSERT_NEAR(numberAt(one, 'l', row), numberAt(other, 'l', row), 0.0021) << "traverse " << i;
            ASSERT_NEAR(numberAt(one, 'm', row), numberAt(other, 'm', row), 0.0021) << "traverse " << i;
        }
    }
}

TEST(FhdxRandom, AgreesWithAnUnroundedAdjustment)
{
    std::mt19937_64 random(21);
    for (int i = 0; i < 1000; ++i) {
        const bool left = i % 2 == 0;
        const auto made = randomTraverse(random, left);
        const Traverse& traverse = made.traverse;
        const Worksheet sheet = adjusted(traverse, 3);
        // Complex numbers and exact pi: a leg is its length turned by the sum of all angles before it.
        const auto toDegrees = [](const std::string& angle) {
            const auto point = angle.find('.');
            return std::stod(angle.substr(0, point)) + std::stod(angle.substr(point + 1, 2)) / 60 +
                   std::stod(angle.substr(point + 3, 4)) / 360000;
        };
        const auto azimuth = [](const Traverse::Point& from, const Traverse::Point& to) {
            return std::atan2(to.y - from.y, to.x - from.x) * 180 / kExactPi;
        };
        const double start = azimuth(traverse.a, traverse.b), end = azimuth(traverse.c, traverse.d);
        const double side = left ? 1 : -1;
        double total = start;
        for (const auto& angle : traverse.angles) total += side * (toDegrees(angle) - 180);
        const double perAngle = -std::remainder(total - end, 360) / static_cast<double>(traverse.angles.size());
        double heading = start, length = 0;
        std::vector<Traverse::Point> steps;
        Traverse::Point sum;
        for (std::size_t k = 0; k < traverse.legs.size(); ++k) {
            heading += side * (toDegrees(traverse.angles[k]) - 180) + perAngle;
            const double leg = std::stod(traverse.legs[k]), radians = heading * kExactPi / 180;
            steps.push_back({leg * std::cos(radians), leg * std::sin(radians)});
            sum = {sum.x + steps.back().x, sum.y + steps.back().y};
            length += leg;
        }
        const Traverse::Point rest{traverse.c.x - traverse.b.x - sum.x, traverse.c.y - traverse.b.y - sum.y};
        Traverse::Point at = traverse.b;
        for (std::size_t k = 0; k + 1 < steps.size(); ++k) {
            const double share = std::stod(traverse.legs[k]) / length;
            at = {at.x + steps[k].x + rest.x * share, at.y + steps[k].y + rest.y * share};
            // Half a millimetre for each rounded increment and each rounded correction so far, and up to two moved.
            const double tolerance = 0.001 * static_cast<double>(k + 1) + 0.0025;
            const int row = 8 + 2 * static_cast<int>(k);
            ASSERT_NEAR(numberAt(sheet, 'l', row), at.x, tolerance) << "traverse " << i << " row " << row;
            ASSERT_NEAR(numberAt(sheet, 'm', row), at.y, tolerance) << "traverse " << i << " row " << row;
        }
    }
}

}  // namespace
