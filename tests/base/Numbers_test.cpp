#include "base/Numbers.h"
#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

template <class Statement>
int errorOf(Statement&& statement)
{
    try {
        statement();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(Trim, TakesBlanksAndNothingElse)
{
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\t1\t"), "\t1\t");
}

TEST(NumText, HasNoZeroBeforeThePoint)
{
    EXPECT_EQ(NumText(0.5), ".5");
    EXPECT_EQ(NumText(-0.25), "-.25");
    EXPECT_EQ(NumText(0.001), ".001");
    EXPECT_EQ(NumText(12), "12");
    EXPECT_EQ(NumText(-12.75), "-12.75");
}

TEST(NumText, BothZerosAreZero)
{
    EXPECT_EQ(NumText(0.0), "0");
    EXPECT_EQ(NumText(-0.0), "0");
}

TEST(NumText, HasAtMostFifteenDigits)
{
    EXPECT_EQ(NumText(0.1 + 0.2), ".3");
    EXPECT_EQ(NumText(1.0 / 3), ".333333333333333");
    EXPECT_EQ(NumText(2.0 / 3), ".666666666666667");
    EXPECT_EQ(NumText(123456.789012345678), "123456.789012346");
    EXPECT_EQ(NumText(999999999999999.9), "1000000000000000");
    EXPECT_EQ(NumText(9.9999999999999999), "10");
}

TEST(NumText, NeverShowsAnExponent)
{
    EXPECT_EQ(NumText(1e20), "100000000000000000000");
    EXPECT_EQ(NumText(-1.5e17), "-150000000000000000");
    EXPECT_EQ(NumText(1e-10), ".0000000001");
    EXPECT_EQ(NumText(-2.5e-7), "-.00000025");
}

TEST(NumText, ComesBackThroughParsing)
{
    std::mt19937_64 random(1);
    std::uniform_int_distribution<long long> digits(-999'999'999'999'999, 999'999'999'999'999);
    std::uniform_int_distribution<int> scale(0, 18);
    for (int i = 0; i < 100000; ++i) {
        // A decimal of 15 digits is what its double prints.
        const double value = std::stod(std::to_string(digits(random)) + "e-" + std::to_string(scale(random)));
        ASSERT_EQ(ParseNumber(NumText(value)), value);
    }
}

TEST(ParseNumber, SaysWhatItChokedOn)
{
    for (const auto* text : {"", "1.2.3", "x", "左5", "1e400"}) {
        try {
            ParseNumber(" " + std::string(text) + " ");
            ADD_FAILURE() << text;
        } catch (const RunTimeError& error) {
            const RunTimeError copy = error;
            EXPECT_EQ(copy.choked(), text);
        }
    }
    EXPECT_EQ(RunTimeError(RunTimeError::Overflow).choked(), "");
}

TEST(ParseNumber, TakesSignPointAndExponent)
{
    EXPECT_EQ(ParseNumber("12"), 12);
    EXPECT_EQ(ParseNumber("+12.5"), 12.5);
    EXPECT_EQ(ParseNumber("-.25"), -0.25);
    EXPECT_EQ(ParseNumber(".5"), 0.5);
    EXPECT_EQ(ParseNumber("5."), 5);
    EXPECT_EQ(ParseNumber("1e3"), 1000);
    EXPECT_EQ(ParseNumber("1.5E-3"), 0.0015);
    EXPECT_EQ(ParseNumber("2e+2"), 200);
    EXPECT_EQ(ParseNumber("  7.25  "), 7.25);
    EXPECT_TRUE(std::signbit(ParseNumber("-0")));
}

TEST(ParseNumber, RefusesEverythingElse)
{
    for (const char* text : {"",    " ",   ".",    "-",        "+",  "-.",  "1.2.3", "12-3", "--1",  "+-1",
                             "-+1", "1,5", "1 5",  "abc",      "1e", "1e+", "e5",    ".e5",  "0x10", "1d5",
                             "inf", "nan", "-inf", "infinity", "1f", "12m", "\t1",   "1\n",  "１２", "K1+200"})
        EXPECT_EQ(errorOf([&] { ParseNumber(text); }), RunTimeError::TypeMismatch) << '"' << text << '"';
}

TEST(ParseNumber, TooLargeIsAnOverflowAndTooSmallIsZero)
{
    const std::string zeros(400, '0');
    for (const std::string& text : {std::string("1e309"), std::string("-1e309"), "1" + zeros, "1" + zeros + "e-5",
                                    "0001e400" + std::string(), std::string("1e99999999999999999999")})
        EXPECT_EQ(errorOf([&] { ParseNumber(text); }), RunTimeError::Overflow) << text;
    for (const std::string& text : {std::string("1e-400"), "0." + zeros + "1", "0." + zeros + "1e5", "." + zeros + "1",
                                    std::string("1e-99999999999999999999"), std::string("0e400")})
        EXPECT_EQ(ParseNumber(text), 0) << text;
    EXPECT_EQ(ParseNumber("1.7976931348623157e308"), kLargest);
}

TEST(Round, TieGoesToTheEvenNeighbourOfTheScaledValue)
{
    EXPECT_EQ(Round(0.0625, 3), 0.062);  // 62.5
    EXPECT_EQ(Round(0.1875, 3), 0.188);  // 187.5
    EXPECT_EQ(Round(-0.0625, 3), -0.062);
    EXPECT_EQ(Round(2.5, 0), 2);
    EXPECT_EQ(Round(1.0015, 3), 1.002);
    EXPECT_EQ(errorOf([] { Round(kLargest, 3); }), RunTimeError::Overflow);
}

TEST(LeadingZeroText, PutsAZeroBeforeThePoint)
{
    EXPECT_EQ(LeadingZeroText(0.5), "0.5");
    EXPECT_EQ(LeadingZeroText(-0.25), "-0.25");
    EXPECT_EQ(LeadingZeroText(0), "0");
    EXPECT_EQ(LeadingZeroText(1), "1");
    EXPECT_EQ(LeadingZeroText(-1.5), "-1.5");
    EXPECT_EQ(LeadingZeroText(0.000125), "0.000125");
}

TEST(FormatFixed3, ShowsThreeDecimals)
{
    EXPECT_EQ(FormatFixed3(1.5), "1.500");
    EXPECT_EQ(FormatFixed3(-1.5), "-1.500");
    EXPECT_EQ(FormatFixed3(0), "0.000");
    EXPECT_EQ(FormatFixed3(0.05), "0.050");
    EXPECT_EQ(FormatFixed3(0.005), "0.005");
    EXPECT_EQ(FormatFixed3(0.5), "0.500");
    EXPECT_EQ(FormatFixed3(3456789.1234), "3456789.123");
    EXPECT_EQ(FormatFixed3(12), "12.000");
    EXPECT_EQ(FormatFixed3(0.9996), "1.000");
    EXPECT_EQ(FormatFixed3(-99.9999), "-100.000");
}

TEST(FormatFixed3, TiesGoToTheEvenThirdDecimal)
{
    EXPECT_EQ(FormatFixed3(1.0005), "1.000");
    EXPECT_EQ(FormatFixed3(1.0015), "1.002");
    EXPECT_EQ(FormatFixed3(0.0625), "0.062");
    EXPECT_EQ(FormatFixed3(0.1875), "0.188");
}

TEST(FormatFixed3, SignIsTakenBeforeRounding)
{
    EXPECT_EQ(FormatFixed3(-0.0004), "-0.000");
    EXPECT_EQ(FormatFixed3(0.0004), "0.000");
}

TEST(FormatFixed3, NegativeZeroHasNoSign) { EXPECT_EQ(FormatFixed3(-0.0), "0.000"); }

TEST(FormatFixed3, AgreesWithWholeThousandths)
{
    // Every whole number of thousandths prints its digits with the point three places from the right.
    std::mt19937_64 random(2);
    std::uniform_int_distribution<long long> thousandths(0, 99'999'999'999);
    for (int i = 0; i < 100000; ++i) {
        const long long n = i < 20000 ? i : thousandths(random);
        std::string digits = std::to_string(n);
        if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
        const std::string expected = digits.substr(0, digits.size() - 3) + "." + digits.substr(digits.size() - 3);
        ASSERT_EQ(FormatFixed3(static_cast<double>(n) / 1000), expected);
        ASSERT_EQ(Fixed3(static_cast<double>(n) / 1000), static_cast<double>(n) / 1000);
    }
}

TEST(FormatFixed3, TooLargeIsAnOverflow)
{
    EXPECT_EQ(FormatFixed3(1e15), "1000000000000000.000");
    EXPECT_EQ(errorOf([] { FormatFixed3(kLargest); }), RunTimeError::Overflow);
    EXPECT_EQ(errorOf([] { Fixed3(std::numeric_limits<double>::infinity()); }), RunTimeError::Overflow);
    EXPECT_EQ(errorOf([] { Fixed3(std::numeric_limits<double>::quiet_NaN()); }), RunTimeError::Overflow);
}

TEST(Fixed3, NegativeBelowHalfAThousandthIsNegativeZero)
{
    EXPECT_EQ(Fixed3(-0.0004), 0);
    EXPECT_TRUE(std::signbit(Fixed3(-0.0004)));
}

TEST(FormatStake, Table)
{
    const struct {
        double stake;
        const char* text;
    } rows[] = {
        {12345.678, "K12+345.678"}, {0, "K0+000.000"},         {999, "K0+999.000"},     {1000, "K1+000.000"},
        {7.5, "K0+007.500"},        {-7.5, "-K0+007.500"},     {0.25, "K0+000.250"},    {123.4567, "K0+123.4567"},
        {7, "K0+007.000"},          {42, "K0+042.000"},        {42.25, "K0+042.250"},   {123456, "K123+456.000"},
        {1000.5, "K1+000.500"},     {1000.005, "K1+000.005"},  {0.0625, "K0+000.0625"}, {12345.12, "K12+345.120"},
        {-0.0, "K0+000.000"},       {-1200.75, "-K1+200.750"}, {-0.5, "-K0+000.500"},   {-345, "-K0+345.000"},
    };
    for (const auto& row : rows) EXPECT_EQ(FormatStake(row.stake), row.text);
}

TEST(FormatStake, NoNumberIsAnOverflow)
{
    for (const double stake : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(errorOf([&] { FormatStake(stake); }), RunTimeError::Overflow) << stake;
}

TEST(FormatStake, MinusStandsBeforeTheK) { EXPECT_EQ(FormatStake(-1200), "-K1+200.000"); }

std::string formatDms(double dms) { return FormatDms(dms); }

TEST(FormatDms, Examples)
{
    EXPECT_EQ(formatDms(123.4530), "123度45分30秒");
    EXPECT_EQ(formatDms(0), "0度00分00秒");
    EXPECT_EQ(formatDms(5.0306), "5度03分06秒");
    EXPECT_EQ(formatDms(359.595999), "359度59分59秒");  // truncated
    EXPECT_EQ(FormatDmsOf(123.4530), "123度45分30秒");
}

TEST(FormatDms, NegativeIsReadInItsFloorForm)
{
    // -10.5 degrees as the floor form: -11 degrees and 30 minutes, packed -11 + 0.30.
    EXPECT_EQ(formatDms(-10.7), "349度30分00秒");
    // Other negative forms get a turn added as they are, minutes of 70 included.
    EXPECT_EQ(formatDms(-10.3), "349度70分00秒");
}

TEST(FormatDms, OneTurnIsTakenOff)
{
    EXPECT_EQ(formatDms(360), "360度00分00秒");
    EXPECT_EQ(formatDms(370.3), "10度30分00秒");
    EXPECT_EQ(formatDms(725), "5度00分00秒");     // one turn before, one behind the carry
    EXPECT_EQ(formatDms(1085), "365度00分00秒");  // no more than that
    EXPECT_EQ(formatDms(359.596), "360度00分00秒");
}

TEST(FormatDms, TwoTurnsLessADegreeGiveOneDegree)
{
    EXPECT_EQ(formatDms(721), "1度00分00秒");  // 361 after the turn before, 1 after the one behind the carry
    EXPECT_EQ(formatDms(720.3), "360度30分00秒");
    EXPECT_EQ(formatDms(720), "360度00分00秒");
    EXPECT_EQ(formatDms(719.596), "360度00分00秒");  // the carry alone makes no 361
}

TEST(FormatDms, OnlyBelowZeroIsATurnAdded)
{
    EXPECT_EQ(formatDms(0), "0度00分00秒");
    EXPECT_EQ(formatDms(-0.0), "0度00分00秒");
    EXPECT_EQ(formatDms(0.0001), "0度00分01秒");
    EXPECT_EQ(formatDms(-1), "359度00分00秒");
    EXPECT_EQ(formatDms(360.0001), "0度00分01秒");
}

TEST(FormatDms, SixtySecondsAndMinutesCarry)
{
    EXPECT_EQ(formatDms(10.1560), "10度16分00秒");
    EXPECT_EQ(formatDms(10.5960), "11度00分00秒");
}

TEST(FormatDms, LeavesItsArgumentChanged)
{
    double dms = 123.4530;
    FormatDms(dms);
    EXPECT_EQ(dms, 123.4530 + 1e-10);
    FormatDms(dms);
    EXPECT_EQ(dms, 123.4530 + 1e-10 + 1e-10);

    dms = -10.7;
    FormatDms(dms);
    EXPECT_EQ(dms, -10.7 + 360 + 1e-10);
}

TEST(FormatDmsSeconds, Examples)
{
    EXPECT_EQ(FormatDmsSeconds(123.7519), "123°45′06.84″");
    EXPECT_EQ(FormatDmsSeconds(10.0833375), "10°05′00.02″");
    EXPECT_EQ(FormatDmsSeconds(-123.7519), "123°45′06.84″");  // the sign is dropped
    EXPECT_EQ(FormatDmsSeconds(45.7625), "45°45′45″");
}

TEST(FormatDmsSeconds, ZeroPartsAreNotPadded)
{
    EXPECT_EQ(FormatDmsSeconds(10.5), "10°30′0″");
    EXPECT_EQ(FormatDmsSeconds(0), "0°0′0″");
    EXPECT_EQ(FormatDmsSeconds(7.0015), "7°0′05.4″");
}

TEST(FormatDmsSeconds, OneTurnIsTakenOffAboveThreeHundredAndSixty)
{
    EXPECT_EQ(FormatDmsSeconds(360), "360°0′0″");
    EXPECT_EQ(FormatDmsSeconds(361.5), "1°30′0″");
    EXPECT_EQ(FormatDmsSeconds(725.5), "365°30′0″");
}

TEST(FormatDmsSeconds, RoundedSecondsMayReadSixty)
{
    // 59.997 seconds: not above 60 before rounding, so nothing carries.
    EXPECT_EQ(FormatDmsSeconds(10 + 59.997 / 3600), "10°0′60″");
}

TEST(Azimuth, AllQuadrants)
{
    EXPECT_EQ(Azimuth(5, 5), 45);
    EXPECT_EQ(Azimuth(0, 5), 90);
    EXPECT_EQ(Azimuth(-5, -5), 225);
    EXPECT_EQ(Azimuth(0, -5), 270);
    EXPECT_EQ(Azimuth(5, 0), 0);
    EXPECT_EQ(Azimuth(0, 0), 0);
}

TEST(Azimuth, OnlyBelowZeroIsATurnAdded)
{
    // A departure so small that the arctangent is 0 is due north, and none at all to the west either.
    EXPECT_EQ(Azimuth(1e300, 1e-300), 0);
    EXPECT_EQ(Azimuth(1e300, -1e-300), 0);
    EXPECT_EQ(Azimuth(5, -0.001), 359.591875);  // 360 less 0.001 / 5 radians, 41.25 seconds
}

TEST(Azimuth, DueSouthIsZero) { EXPECT_EQ(Azimuth(-5, 0), 0); }

TEST(Azimuth, SixtySecondsDoNotCarry)
{
    // The turn of pi = 3.1415926 leaves 59.997 seconds below the whole degree; they round up without a carry.
    EXPECT_EQ(Azimuth(-5, 5), 134.596);
    EXPECT_EQ(Azimuth(5, -5), 314.596);
    // Both readers take the value for the whole degree.
    EXPECT_NEAR(DmsToDeg(Azimuth(-5, 5)), 135, 1e-9);
    EXPECT_NEAR(DmsToDeg(Azimuth(5, -5)), 315, 1e-9);
    EXPECT_EQ(formatDms(Azimuth(-5, 5)), "135度00分00秒");
    EXPECT_EQ(formatDms(Azimuth(5, -5)), "315度00分00秒");
}

TEST(Azimuth, AgreesWithTheAngleOfTheVector)
{
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> any(-1000, 1000);
    for (int i = 0; i < 100000; ++i) {
        const double dx = any(random), dy = any(random);
        double expected = std::atan2(dy, dx) * 180 / std::acos(-1.0);
        if (expected < 0) expected += 360;
        // Half a hundredth of a second of rounding, a hundredth of truncation, and pi: 3.1e-6 degrees in half a turn.
        ASSERT_NEAR(DmsToDeg(Azimuth(dx, dy)), expected, 0.015 / 3600 + 3.2e-6) << dx << ' ' << dy;
    }
}

TEST(Distance, IsTheRootOfTheSquares)
{
    EXPECT_EQ(Distance(3, -4), 5);
    EXPECT_EQ(Distance(0, 0), 0);
    EXPECT_EQ(errorOf([] { Distance(1e200, 0); }), RunTimeError::Overflow);
}

TEST(DegToDms, PacksToSixDecimals)
{
    EXPECT_EQ(DegToDms(0), 0);
    EXPECT_EQ(DegToDms(45.7625), 45.4545);
    EXPECT_EQ(DegToDms(123.7519), 123.450684);
    EXPECT_EQ(DegToDms(10.5), 10.3);
}

TEST(DegToDms, WrapsOnceAndNoMore)
{
    EXPECT_EQ(DegToDms(360), 360);
    EXPECT_EQ(DegToDms(725), 365);
    EXPECT_EQ(DegToDms(-90), 270);
    EXPECT_EQ(DegToDms(-400.5), -41 + 0.3);  // -40.5 in its floor form
    EXPECT_EQ(DegToDms(370.5), 10.3);
}

TEST(DegToDms, OnlyBelowZeroIsATurnAdded)
{
    EXPECT_EQ(DegToDms(-0.0), 0);
    EXPECT_EQ(DegToDms(-0.5), 359.3);
    EXPECT_EQ(DegToDms(360.5), 0.3);
    EXPECT_EQ(DegToDms(720), 360);
}

TEST(DegToDms, SecondsRoundUpWithoutACarry) { EXPECT_EQ(DegToDms(134.99999914622), 134.596); }

TEST(DegToDms4, PacksToWholeSecondsWithoutAWrap)
{
    EXPECT_EQ(DegToDms4(45.7625), 45.4545);
    EXPECT_EQ(DegToDms4(123.7519), 123.4507);
    EXPECT_EQ(DegToDms4(400.5), 400.3);
    EXPECT_EQ(DegToDms4(0), 0);
    EXPECT_NEAR(DegToDms4(-10.5), -10.7, 1e-9);  // the floor form that FormatDms reads as 349度30分00秒
    EXPECT_EQ(formatDms(DegToDms4(-10.5)), "349度30分00秒");
}

TEST(DmsToDeg, UnpacksAndKeepsTheSign)
{
    EXPECT_NEAR(DmsToDeg(123.4530), 123 + 45 / 60.0 + 30 / 3600.0, 1e-12);
    EXPECT_NEAR(DmsToDeg(-123.4530), -(123 + 45 / 60.0 + 30 / 3600.0), 1e-12);
    EXPECT_EQ(DmsToDeg(90), 90);
    EXPECT_EQ(DmsToDeg(0), 0);
    EXPECT_EQ(DmsToDeg(270), 270);
}

TEST(DmsToDeg, GuardLiftsATruncatedValue)
{
    EXPECT_EQ(DmsToDeg(1.19999999999995), 1 + 20 / 60.0 + 0);            // within the guard of 1e-13
    EXPECT_EQ(DmsToDeg(1.1999999999995), 1 + 19 / 60.0 + 99.99 / 3600);  // beyond it
}

TEST(DmsToDeg, DecimalsBeyondAHundredthOfASecondAreLost)
{
    EXPECT_EQ(DmsToDeg(10.30305678), DmsToDeg(10.303056));
    EXPECT_NEAR(DmsToDeg(10.30305678), 10 + 30 / 60.0 + 30.56 / 3600, 1e-12);
}

TEST(DmsToDeg, ReadsSixtySecondsArithmetically) { EXPECT_NEAR(DmsToDeg(134.596), 135, 1e-12); }

TEST(DmsToDeg, ComesBackToAHundredthOfASecond)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> any(0, 360);
    for (int i = 0; i < 100000; ++i) {
        const double deg = any(random);
        // Packing rounds to the nearest hundredth; unpacking truncates and may lose one hundredth more.
        ASSERT_NEAR(DmsToDeg(DegToDms(deg)), deg, 0.015001 / 3600);
    }
}

TEST(KeyFilters, PassTheirSetsAndBackspace)
{
    for (int key = -1; key < 300; ++key) {
        const bool digit = key >= 48 && key <= 57;
        EXPECT_EQ(IsIntegerKey(key), digit || key == 8) << key;
        EXPECT_EQ(IsUnsignedDecimalKey(key), digit || key == 8 || key == 46) << key;
        EXPECT_EQ(IsSignedDecimalKey(key), digit || key == 8 || key == 46 || key == 45) << key;
    }
}

}  // namespace
