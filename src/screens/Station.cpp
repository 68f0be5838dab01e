#include "screens/Station.h"

#include "base/RunTimeError.h"
#include "screens/Handler.h"
#include "tables/CalcTables.h"

void ReadStation(const StationInput& in, const StationFields& fields)
{
    if (in.typed) {
        gStationX = Required(in.x, message::kNoStationX, fields.x);
        gStationY = Required(in.y, message::kNoStationY, fields.y);
    } else if (in.pick.empty()) {
        gStationX = gStationY = 0;
    } else {
        gStationX = at(gDxdX, in.pickIndex);
        gStationY = at(gDxdY, in.pickIndex);
    }
}

void RequireStation(const StationInput& in, const StationFields& fields)
{
    if (!in.typed) return;
    Require(in.x, message::kNoStationX, fields.x);
    Require(in.y, message::kNoStationY, fields.y);
}
