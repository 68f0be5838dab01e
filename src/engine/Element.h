#pragma once
// One element of the alignment: curvature varies linearly with length, so straights, arcs and spirals are one case.

#include "engine/Simpson.h"

struct EngineResults;

/// End of an element: point in m (X north), azimuth in packed dd.mmss.
struct ElementPoint {
    double x = 0, y = 0, fwj = 0;
};

/// Integrates one element by the composite Simpson rule, 192 intervals: its end, not rounded, and the azimuth there.
/// @param len    length to integrate, m
/// @param k1,k2  curvature at the start and at the end of the whole element, 1/m, positive right
/// @param az     start azimuth, packed dd.mmss
/// @param x0,y0  start point, m
/// @param total  length of the whole element, m; 0 throws DivisionByZero
/// @throws DivisionByZero, Overflow
CurvePoint elementEnd(double len, double k1, double k2, double az, double x0, double y0, double total);
/// elementEnd, left in outX, outY and outFwj; an error leaves them alone.
void ElementEnd(EngineResults& results, double len, double k1, double k2, double az, double x0, double y0,
                double total);
/// The same, left in gOutX, gOutY and gOutFwj.
void ElementEnd(double len, double k1, double k2, double az, double x0, double y0, double total);

/// End of a block: the sums of ElementEnd over |len|, X and Y to three decimals, azimuth in packed dd.mmss.
/// @param len    end stake minus start stake, m; the sign is dropped
/// @param r1,r2  radius at start and end, m, positive right, 0 straight
/// @param az     start azimuth, packed dd.mmss
ElementPoint ForwardElement(double len, double r1, double r2, double az, double x0, double y0);
