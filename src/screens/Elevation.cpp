#include "screens/Elevation.h"

#include "base/Numbers.h"
#include "engine/Elevation.h"
#include "screens/Rows.h"

#include <cmath>

Cell ElevationCell(double stake, double offset, double thickness)
{
    return NumberCell(Fixed3(ElevationAt(stake, offset)) - thickness);
}

Cell ElevationSideCell(double offset)
{
    return offset == 0 ? CentreCell() : SideCell(offset < 0 ? "左" : "右", std::abs(offset));
}
