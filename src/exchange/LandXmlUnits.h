#pragma once
// Units of a LandXML file.

#include "exchange/LandXml.h"

#include <string>
#include <string_view>

namespace pugi {
class xml_node;
}

namespace landxml {

struct Units {
    double metres = 1;  ///< of one unit of length, elevations and stations included
    AngleUnit direction = AngleUnit::Radians;
    std::string remark;  ///< what was converted, "" for metres
};

/// @throws ExchangeError for a unit that is not known, and for a file without units of length
Units ReadUnits(const pugi::xml_node& root);
/// An angle as written, in radians.
double RadiansOf(double written, AngleUnit unit);
std::string_view NameOf(AngleUnit unit);

}  // namespace landxml
