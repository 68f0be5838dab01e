// The quick texts of a million numbers, beside those that the C library's printf makes.

#include "base/Numbers.h"
#include "support/PlainNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr int kMany = 1'000'000, kFewer = 200'000;  // the fewer stand on the texts of the many

/// Numbers of all sizes from 10^-12 to 10^18 that are whole, of few decimals, halfway between two texts, next to a
/// power of ten, or of any bits.
class Numbers {
public:
    double next()
    {
        const double size = std::pow(10, m_any(m_random) * 30 - 12);
        double value = m_any(m_random) * size;
        switch (m_random() % 6) {
        case 0:
            value = std::floor(value);
            break;
        case 1:
            value = std::nearbyint(value * 1000) / 1000;
            break;
        case 2:  // a whole number and a power of a half: fifteen digits and a five where it has sixteen
            value = std::ldexp(std::floor(std::ldexp(value, 6)), -static_cast<int>(m_random() % 7));
            break;
        case 3: {
            value = std::pow(10, static_cast<int>(m_random() % 24) - 7);
            for (auto steps = m_random() % 4; steps > 0; --steps)
                value = std::nextafter(value, m_random() % 2 ? 1e300 : 0);
            break;
        }
        case 4:  // halfway between thousandths
            value = (std::floor(std::min(value, 1e12)) + 0.5) / 1000;
            break;
        default:
            break;
        }
        return m_random() % 4 ? value : -value;
    }

private:
    std::mt19937_64 m_random{12};
    std::uniform_real_distribution<double> m_any{0, 1};
};

TEST(NumberTexts, NumTextHasTheDigitsOfPrintf)
{
    Numbers numbers;
    for (int n = 0; n < kMany; ++n) {
        const double value = numbers.next();
        ASSERT_EQ(NumText(value), plain::num(value)) << std::hexfloat << value;
    }
}

TEST(NumberTexts, TiesGoToTheEvenFifteenthDigit)
{
    for (const double value : {1234567890123.125, 1234567890123.375, 100000000000000.5, 100000000000001.5,
                               999999999999999.5, 12345678901234.75, 12345678901234.25, 8796093022208.0625})
        EXPECT_EQ(NumText(value), plain::num(value));
    EXPECT_EQ(NumText(100000000000000.5), "100000000000000");
    EXPECT_EQ(NumText(100000000000001.5), "100000000000002");
    EXPECT_EQ(NumText(999999999999999.5), "1000000000000000");
}

TEST(NumberTexts, FormatFixed3HasTheDigitsOfPrintf)
{
    Numbers numbers;
    for (int n = 0; n < kMany; ++n) {
        const double value = numbers.next();
        if (std::abs(value) >= 1e11) continue;  // from there on a double does not hold its thousandths
        ASSERT_EQ(FormatFixed3(value), plain::fixed3(value)) << std::hexfloat << value;
    }
}

TEST(NumberTexts, StakesAreThoseOfTheRule)
{
    Numbers numbers;
    for (int n = 0; n < kFewer; ++n) {
        const double value = numbers.next();
        ASSERT_EQ(FormatStake(value), plain::stake(value)) << std::hexfloat << value;
    }
}

TEST(NumberTexts, AnglesAreThoseOfTheRule)
{
    std::mt19937_64 random(13);
    std::uniform_real_distribution<double> packed(-360, 720);
    for (int n = 0; n < kFewer; ++n) {
        const double value = n % 2 ? packed(random) : std::nearbyint(packed(random) * 10000) / 10000;
        ASSERT_EQ(FormatDmsOf(value), plain::dms(value)) << std::hexfloat << value;
    }
}

}  // namespace
