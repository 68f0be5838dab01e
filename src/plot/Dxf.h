#pragma once

#include "plot/Picture.h"

#include <string>

namespace plot {

/// A picture as an AC1021 drawing: lines, arcs and circles as such, on layers with Chinese names, at its true
/// coordinates (the origin is added). Texts are UTF-8.
/// Source: the group codes as https://ezdxf.readthedocs.io (DXF Internals) describes them.
/// @param mm  a millimetre of paper in the drawing's units: the length of dashes
std::string dxfOf(const Picture& picture, double mm);

}  // namespace plot
