#pragma once
// Grade line and superelevation of a file as parameter files.

#include "exchange/LandXml.h"
#include "exchange/Shape.h"
#include "exchange/Stations.h"

#include <string>
#include <vector>

/// Lines of a table; none where it is left out, and the report says why.
/// @param report  gains a line for each thing to know
std::vector<std::string> ProfileLines(const landxml::Profile& profile, const Stations& stations,
                                      std::vector<std::string>& report);
std::vector<std::string> SuperelevationLines(const landxml::Alignment& road, const Shape& shape,
                                             const Stations& stations, std::vector<std::string>& report);

/// Largest distance of the compiled grade line from the file's own, m, looked at in every point, at both ends and in
/// the middle of every curve. @param where  gains the file's station of the largest
double ProfileDeviation(const Tables& tables, const landxml::Profile& profile, double& where);
