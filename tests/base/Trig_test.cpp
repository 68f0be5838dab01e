// The one sine: its value against a wider one, its bits against those that every machine has to give, and that nobody
// calls another.

#include "base/Trig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <regex>
#include <string>

namespace {

/// Units in the last place of the exact value between a result and it.
double ulps(double got, long double exact)
{
    const double near = static_cast<double>(exact);
    const long double unit = std::nextafter(std::abs(near), HUGE_VAL) - std::abs(near);
    return static_cast<double>(std::abs(got - exact) / unit);
}

TEST(Trig, IsWithinOneUnitInTheLastPlace)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> angle(-20, 20), ratio(-1e3, 1e3);
    for (int n = 0; n < 200'000; ++n) {
        const double a = angle(random), r = ratio(random), q = ratio(random);
        ASSERT_LE(ulps(trig::sin(a), std::sin(static_cast<long double>(a))), 1) << a;
        ASSERT_LE(ulps(trig::cos(a), std::cos(static_cast<long double>(a))), 1) << a;
        ASSERT_LE(ulps(trig::tan(a), std::tan(static_cast<long double>(a))), 1) << a;
        ASSERT_LE(ulps(trig::atan(r), std::atan(static_cast<long double>(r))), 1) << r;
        ASSERT_LE(ulps(trig::atan2(r, q), std::atan2(static_cast<long double>(r), static_cast<long double>(q))), 1);
    }
}

TEST(Trig, SpecialValues)
{
    EXPECT_EQ(trig::sin(0), 0);
    EXPECT_EQ(trig::cos(0), 1);
    EXPECT_EQ(trig::atan(0), 0);
    EXPECT_EQ(trig::atan(HUGE_VAL), std::numbers::pi / 2);
    EXPECT_EQ(trig::atan2(0, -1), std::numbers::pi);
    EXPECT_TRUE(std::isnan(trig::sin(HUGE_VAL)));
    EXPECT_TRUE(std::isnan(trig::cos(HUGE_VAL)));
}

TEST(Trig, APowerIsRoundedOnce)
{
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> base(0.001, 2000);
    for (int n = 0; n < 100'000; ++n) {
        const double b = base(random);
        ASSERT_EQ(trig::power(b, 2), b * b);
        // Rounded once: within half a unit of a value of 64 bits, whose own error is a thousandth of one.
        const int exponent = static_cast<int>(random() % 13);
        long double wide = 1;
        for (int k = 0; k < exponent; ++k) wide *= b;
        ASSERT_LE(ulps(trig::power(b, exponent), wide), 0.51) << b << " to " << exponent;
    }
    EXPECT_EQ(trig::power(10, 22), 1e22);  // every factor exact
    EXPECT_EQ(trig::power(-2, 3), -8);
    EXPECT_EQ(trig::power(0, 2), 0);
    EXPECT_EQ(trig::power(7, 0), 1);
    EXPECT_EQ(trig::power(1e200, 2), HUGE_VAL);
    EXPECT_EQ(trig::power(1e-200, 2), 0);
    EXPECT_EQ(trig::power(1e100, 3), 1e100 * 1e100 * 1e100);
}

/// A sum over the bits of many results: another library, another compiler or a contracted product changes it. The
/// expected one was added up in Python, which called the library by itself.
TEST(Trig, TheBitsAreThoseOfEveryMachine)
{
    std::uint64_t state = 1, sum = 0;
    for (int n = 0; n < 100'000; ++n) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        const double a = static_cast<double>(static_cast<std::int64_t>(state) >> 11) / (1LL << 49);  // -8 to 8
        for (const double v : {trig::sin(a), trig::cos(a), trig::tan(a), trig::atan(a), trig::atan2(a, 3)})
            sum = sum * 31 + std::bit_cast<std::uint64_t>(v);
    }
    EXPECT_EQ(sum, 0xa6e1d2df78f0e10eu);
}

TEST(Trig, TwoAtOnceGiveTheBitsOfOneByOne)
{
    const auto same = [](double a, double b) {
        const auto cosines = trig::cos2(a, b), sines = trig::sin2(a, b);
        const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
        ASSERT_EQ(bits(cosines.first), bits(trig::cos(a))) << a << " beside " << b;
        ASSERT_EQ(bits(cosines.second), bits(trig::cos(b))) << b << " beside " << a;
        ASSERT_EQ(bits(sines.first), bits(trig::sin(a))) << a << " beside " << b;
        ASSERT_EQ(bits(sines.second), bits(trig::sin(b))) << b << " beside " << a;
    };
    std::mt19937_64 random(3);
    for (const double size : {1e-6, 1.0, 7.0, 15.0, 16.0, 1e3})
        for (int n = 0; n < 200'000; ++n) {
            std::uniform_real_distribution<double> angle(-size, size);
            same(angle(random), angle(random));
        }
    // The library goes other ways for large angles, above 15 and above 1e14.
    const double steps[] = {0, -0.0, 1e-300, 1, 14.98, 14.995, 15, 15.01, 1e5, 9e13, 1e14, 2e14, 1e300, HUGE_VAL};
    for (const double a : steps)
        for (const double b : steps) {
            same(a, b);
            same(-a, b);
        }
}

TEST(Trig, NobodyInTheProgramCallsAnother)
{
    namespace fs = std::filesystem;
    const std::regex call(R"((^|[^A-Za-z0-9_:>.]|std::|\bq)(sin|cos|tan|asin|acos|atan|atan2|sincos)[fl]?\s*\()",
                          std::regex::optimize | std::regex::icase);
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(VM_SOURCE_DIR "/src")) {
        const auto extension = entry.path().extension();
        if ((extension != ".cpp" && extension != ".h") || entry.path().parent_path().filename() == "base") continue;
        std::ifstream in(entry.path());
        std::string line;
        for (int number = 1; std::getline(in, line); ++number) {
            line.erase(std::min(line.size(), line.find("//")));
            if (line.find('(') == std::string::npos) continue;
            EXPECT_FALSE(std::regex_search(line, call)) << entry.path() << ":" << number << ": " << line;
        }
        ++files;
    }
    EXPECT_GT(files, 100);
}

}  // namespace
