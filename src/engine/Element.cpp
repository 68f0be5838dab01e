#include "engine/Element.h"

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <cmath>

namespace {

struct Sum {
    double x = 0, y = 0;
    void add(double deg)
    {
        x += std::cos(radians(deg));
        y += std::sin(radians(deg));
    }
};

struct End {
    double x, y, fwjDeg;
};

/// The sums of an element: d is the change of curvature over len. The order of every operation is the result.
End integrate(double len, double k1, double d, double az, double x0, double y0)
{
    const double a0 = DmsToDeg(az);
    const double end = a0 + (2 * k1 + d) * len * 90 / kPi;
    Sum odd, even;
    for (int i = 96; i >= 1; --i) {
        const double u = 2 * i - 1;
        odd.add(a0 + ((u * d / 192 + 2 * k1) * (len / 2) * u / 192) * 180 / kPi);
    }
    for (double i = 95; i >= 1; --i) even.add(a0 + ((i * d / 96 + 2 * k1) * (len / 2) * (i / 96)) * 180 / kPi);
    return {checked((4 * odd.x + std::cos(radians(a0)) + 2 * even.x + std::cos(radians(end))) * (len / 576) + x0),
            checked((4 * odd.y + std::sin(radians(a0)) + 2 * even.y + std::sin(radians(end))) * (len / 576) + y0), end};
}

}  // namespace

void ElementEnd(double len, double k1, double k2, double az, double x0, double y0, double total)
{
    const double d = quotient(k2 - k1, total) * len;
    const End end = integrate(len, k1, d, az, x0, y0);
    gOutX = end.x;
    gOutY = end.y;
    gOutFwj = end.fwjDeg;
}

ElementPoint ForwardElement(double len, double r1, double r2, double az, double x0, double y0)
{
    const double k1 = r1 != 0 ? 1 / r1 : 0;
    const double k2 = r2 != 0 ? 1 / r2 : 0;
    const End end = integrate(std::abs(len), k1, k2 - k1, az, x0, y0);
    return {Fixed3(end.x), Fixed3(end.y), DegToDms(end.fwjDeg)};
}
