#pragma once

#include "plot/Sheets.h"

#include <string>

namespace plot {

/// The sheet as an .svg of its size in mm, UTF-8. Arcs stay arcs; lines of one layer stand in groups that bear its
/// name. Source: W3C, Scalable Vector Graphics (SVG) 1.1, Second Edition (2011), chapters 7 to 10.
std::string svgOf(const Sheet& sheet);

}  // namespace plot
