#pragma once
// Plane coordinates of the country to longitude and latitude.

#include <string>

struct LongitudeLatitude {
    double lon = 0, lat = 0;  ///< decimal degrees, CGCS2000
};

/// A transverse Mercator projection of scale 1 on the ellipsoid of CGCS2000 (a 6,378,137 m, 1/f 298.257222101).
struct GaussKrueger {
    double meridian = 0;        ///< central meridian, decimal degrees east
    double falseEasting = 5e5;  ///< m; 38500000 holds a zone's number in front

    /// @param x,y  m, north and east
    LongitudeLatitude reverse(double x, double y) const;
};

/// CM or CM,FE. @throws ExchangeError
GaussKrueger GaussKruegerOfText(const std::string& text);
