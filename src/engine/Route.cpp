#include "engine/Route.h"

#include "engine/Numbers.h"
#include "engine/RoutePoint.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

#include <cmath>

std::size_t elementAt(double stake)
{
    for (auto i = static_cast<std::size_t>(gElemCount); i >= 1; --i)
        if (gElemLc[i - 1] <= stake && stake < gElemLc[i]) return i;
    return 0;
}

CurvePoint pointOn(std::size_t i, double stake)
{
    const double a = checked(curvature(gElemR1[i - 1]));
    const double b = checked(curvature(gElemR2[i - 1]));
    const double L = stake - gElemLc[i - 1];
    const double dk = (b - a) / (gElemLc[i] - gElemLc[i - 1]) * L;
    return integrate(L, DmsToDeg(gElemFwj[i - 1]), a, dk, gElemX[i - 1], gElemY[i - 1],
                     [a](double share) { return share + a + a; });
}

bool StakeOnElement(double stake) { return elementAt(stake) != 0; }

void StakeToXY(double stake, double skew, double offset)
{
    if (const std::size_t i = elementAt(stake)) {
        const CurvePoint p = pointOn(i, stake);
        gOutFwj = p.fwjDeg;
        gOutX = Fixed3(p.x + offset * std::cos(radians(gOutFwj + skew)));
        gOutY = Fixed3(p.y + offset * std::sin(radians(gOutFwj + skew)));
    }
    gOutDist = std::sqrt((gOutY - gInY) * (gOutY - gInY) + (gOutX - gInX) * (gOutX - gInX));
}
