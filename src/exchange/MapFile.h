#pragma once
// A road on a map: axis, main points and the points of a run as GeoJSON or KML.

#include "exchange/FieldPoints.h"
#include "exchange/GaussKrueger.h"

#include <optional>
#include <string>
#include <vector>

enum class MapForm { GeoJson, Kml };

struct MapRoad {
    std::string name;
    const Tables& tables;
    const RoadFiles& files;
    std::vector<FieldPoint> points = {};          ///< main points and rows
    std::optional<GaussKrueger> projection = {};  ///< none: the project's own coordinates, east before north
};

/// UTF-8. The axis is drawn through points of which the road lies no further than a millimetre between two.
/// @throws ExchangeError where there is no alignment
std::string MapText(const MapRoad& road, MapForm form);
