#pragma once
// The parts of a LandXML document, read in its own units into metres.

#include "exchange/LandXml.h"
#include "exchange/LandXmlUnits.h"

#include <pugixml.hpp>

#include <map>
#include <optional>
#include <string>

namespace landxml {

/// Every function throws ExchangeError that names the place.
struct Reader {
    Units units;
    std::map<std::string, pugi::xml_node, std::less<>> points;  ///< what pntRef can name

    double metres(double written) const;
    std::optional<double> length(const pugi::xml_node& node, const char* name, const std::string& place) const;
    Point point(const pugi::xml_node& node, const std::string& place) const;

    void coordGeom(const pugi::xml_node& node, Alignment& road) const;
    Equation equation(const pugi::xml_node& node, std::size_t number) const;
    /// All ProfAligns of the Profiles of a road: pieces that go on are one, of several designs the first is carried.
    void profiles(const pugi::xml_node& alignment, Alignment& road) const;
    Superelevation superelevation(const pugi::xml_node& node, Alignment& road) const;

private:
    std::optional<Point> child(const pugi::xml_node& node, const char* name, const std::string& place) const;
    Element element(const pugi::xml_node& node, std::string place, Alignment& road) const;
    std::optional<Profile> profAlign(const pugi::xml_node& node, Alignment& road) const;
};

}  // namespace landxml
