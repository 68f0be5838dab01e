#pragma once
// The directions that a file writes beside its points: they are never used, only held against the points.

#include "exchange/LandXml.h"
#include "exchange/Shape.h"

#include <string>
#include <vector>

/// One line where all directions follow another convention than from north, clockwise; one line where they follow
/// none; none where they agree or do not stand.
std::vector<std::string> CheckDirections(const landxml::Alignment& road, const Shape& shape, landxml::AngleUnit unit);
