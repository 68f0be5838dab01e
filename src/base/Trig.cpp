#include "base/Trig.h"

#include <sleef.h>

#include <cmath>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace trig {

double sin(double rad) { return Sleef_cinz_sind1_u10purec(rad); }
double cos(double rad) { return Sleef_cinz_cosd1_u10purec(rad); }
#ifdef __SSE2__
namespace {

/// Above this the library takes another way for both angles when one of them is large (TRIGRANGEMAX2 in its source).
constexpr double kNear = 14.99;

template <auto of, auto one>
Two both(double first, double second)
{
    if (!(std::abs(first) < kNear && std::abs(second) < kNear)) return {one(first), one(second)};
    Two result{};
    _mm_storeu_pd(&result.first, of(_mm_set_pd(second, first)));
    return result;
}

}  // namespace

Two sin2(double first, double second) { return both<Sleef_cinz_sind2_u10sse2, sin>(first, second); }
Two cos2(double first, double second) { return both<Sleef_cinz_cosd2_u10sse2, cos>(first, second); }
#else
Two sin2(double first, double second) { return {sin(first), sin(second)}; }
Two cos2(double first, double second) { return {cos(first), cos(second)}; }
#endif

double tan(double rad) { return Sleef_cinz_tand1_u10purec(rad); }
double atan(double ratio) { return Sleef_cinz_atand1_u10purec(ratio); }
double atan2(double y, double x) { return Sleef_cinz_atan2d1_u10purec(y, x); }

namespace {

/// A value as the sum of a double and what rounding took from it.
struct Pair {
    double high = 0, low = 0;
};

/// The exact product of two doubles. Source: T. J. Dekker, "A floating-point technique for extending the available
/// precision", Numerische Mathematik 18 (1971).
Pair product(double a, double b)
{
    constexpr double kSplit = 134217729;  // 2^27 + 1
    const auto split = [](double v) {
        const double c = kSplit * v, high = c - (c - v);
        return Pair{high, v - high};
    };
    const Pair x = split(a), y = split(b);
    const double p = a * b;
    return {p, ((x.high * y.high - p) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

}  // namespace

double power(double base, int exponent)
{
    double plain = 1;
    Pair exact{1, 0};
    for (int n = 0; n < exponent; ++n) {
        plain *= base;
        const Pair p = product(exact.high, base);
        const double low = p.low + exact.low * base, high = p.high + low;
        exact = {high, low - (high - p.high)};
    }
    // Where halves of a product are too large or too small to be held, once rounded each time will do.
    const double size = std::abs(plain);
    return size > 1e-250 && size < 1e250 && std::abs(base) < 1e250 ? exact.high : plain;
}

}  // namespace trig
