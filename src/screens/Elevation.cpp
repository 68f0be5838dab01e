#include "screens/Elevation.h"

#include "engine/Elevation.h"
#include "engine/Numbers.h"
#include "screens/Rows.h"

#include <cmath>

std::string ElevationText(double stake, double offset, double thickness)
{
    return NumText(Fixed3(ElevationAt(stake, offset)) - thickness);
}

std::string ElevationSide(double offset)
{
    return offset == 0 ? "中桩" : SideText(offset < 0 ? "左" : "右", std::abs(offset));
}
