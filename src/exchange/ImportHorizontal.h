#pragma once
// The horizontal alignment of a file as parameter files.

#include "exchange/LandXml.h"
#include "exchange/RoadElements.h"
#include "exchange/RoadFiles.h"
#include "exchange/Shape.h"
#include "exchange/Stations.h"

#include <optional>
#include <string>
#include <vector>

/// The lines by intersection points; nothing where the chain is not made of curves (spiral, arc, spiral) between
/// straights.
std::optional<std::vector<std::string>> VertexLines(const landxml::Alignment& road, const Shape& shape);

/// The lines by blocks. @throws ExchangeError for a row whose stake can't be filed
std::vector<std::string> BlockLines(const Shape& shape, const Stations& stations);

/// How far a compiled road lies from the file's, m, one for each element: at its end, and over all at either end.
struct Deviation {
    std::vector<double> ends;
    double largest = 0;  ///< at a start or an end; infinite where the road has no element there
};
Deviation DeviationOf(const Tables& tables, const Shape& shape);

/// Elements of a compiled road beside those of a file, by their order. @throws ExchangeError where there are not as
/// many
Shape ShapeOf(const std::vector<RoadElement>& elements, const landxml::Alignment& road);
/// Starts, ends and lengths agree within a millimetre.
bool SameElements(const Shape& shape, const landxml::Alignment& road);

/// Packed degrees, minutes, seconds and hundredths of an azimuth, by which the engine points in that direction.
std::string DmsText(double azimuthRadians);
