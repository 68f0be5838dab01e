#pragma once
// Units of a LandXML file.

#include "exchange/LandXml.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_node;
}

namespace landxml {

struct Units {
    double metres = 1;  ///< of one unit of length, elevations and stations included
    std::optional<AngleUnit> direction = AngleUnit::Radians;  ///< nothing: not known, so directions say nothing
    std::vector<std::string> remarks;                         ///< what was converted or not known
};

/// @throws ExchangeError for a unit of length that is not known, and for a file without one
Units ReadUnits(const pugi::xml_node& root);
/// An angle as written, in radians.
double RadiansOf(double written, AngleUnit unit);
std::string_view NameOf(AngleUnit unit);

}  // namespace landxml
