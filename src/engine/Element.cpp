#include "engine/Element.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Simpson.h"
#include "tables/CalcTables.h"

#include <cmath>

namespace {

/// d is the change of curvature over len.
CurvePoint alongElement(double len, double k1, double d, double az, double x0, double y0)
{
    const CurvePoint end = integrate(len, DmsToDeg(az), k1, d, x0, y0, [k1](double share) { return share + 2 * k1; });
    checked(end.x);
    checked(end.y);
    return end;
}

}  // namespace

CurvePoint elementEnd(double len, double k1, double k2, double az, double x0, double y0, double total)
{
    return alongElement(len, k1, quotient(k2 - k1, total) * len, az, x0, y0);
}

void ElementEnd(EngineResults& results, double len, double k1, double k2, double az, double x0, double y0, double total)
{
    const CurvePoint end = elementEnd(len, k1, k2, az, x0, y0, total);
    results.outX = end.x;
    results.outY = end.y;
    results.outFwj = end.fwjDeg;
}

void ElementEnd(double len, double k1, double k2, double az, double x0, double y0, double total)
{
    ElementEnd(shared.results, len, k1, k2, az, x0, y0, total);
}

ElementPoint ForwardElement(double len, double r1, double r2, double az, double x0, double y0)
{
    const double k1 = r1 != 0 ? quotient(1, r1) : 0;
    const double k2 = r2 != 0 ? quotient(1, r2) : 0;
    const CurvePoint end = alongElement(std::abs(len), k1, k2 - k1, az, x0, y0);
    return {Fixed3(end.x), Fixed3(end.y), DegToDms(end.fwjDeg)};
}
