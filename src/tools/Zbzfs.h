#pragma once
// Coordinates forward and inverse: a point from a station and a direction, a direction and a distance from two points.
// Neither traps a text that is no number: TypeMismatch leaves both.

#include "dialogs/Outcome.h"

#include <string>

/// The boxes of the forward task, as typed: metres, azimuth packed dd.mmss.
struct ForwardInput {
    std::string czX, czY, fwj, jl;
};
/// The computed point, m, three decimals.
struct ForwardPoint {
    std::string x, y;
};
Outcome CalcForward(const ForwardInput& in, ForwardPoint& out);

/// The boxes of the inverse task, as typed: station and back-sight, m.
struct InverseInput {
    std::string czX, czY, hsX, hsY;
};
/// Azimuth from the station to the back-sight as 123度45分06秒, distance in m, three decimals.
struct InverseRay {
    std::string fwj, jl;
};
Outcome CalcInverse(const InverseInput& in, InverseRay& out);
