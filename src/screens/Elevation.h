#pragma once
// What the two elevation screens share.

#include "base/Cell.h"

/// Elevation at a continuous stake and signed offset (negative left), rounded to three decimals, less the thickness,
/// m, as the shortest text.
Cell ElevationCell(double stake, double offset, double thickness);
/// 中桩, or the side of a signed offset with its length.
Cell ElevationSideCell(double offset);
