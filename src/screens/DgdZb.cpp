#include "screens/DgdZb.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "screens/Doubts.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"

namespace {

/// How the point lies at its stake, from the boxes.
PointToLayOut readPoint(const DgdZbInput& in, double stake)
{
    PointToLayOut point{.typed = stake, .stake = stake};
    if (in.skewed) {
        const double skew = Required(in.skew, message::kNoSkew, "txtDgdJj");
        point.offset = Required(in.offset, message::kNoOffset, "txtDgdPj");
        point.skew = DmsToDeg(skew);
        point.side = SideCell("斜交", point.offset);
        point.angle = SkewCell(skew);
    } else if (in.side != "中桩") {
        const bool left = in.side == "左边桩";
        point.offset = Required(in.offset, message::kNoOffset, "txtDgdPj");
        point.skew = DmsToDeg(left ? 270 : 90);
        point.side = SideCell(left ? "左" : "右", point.offset);
    }
    return point;
}

}  // namespace

Outcome CalcDgdZb(const DgdZbInput& in, RowSink& rows)
{
    return Handle(Trap::Words, [&] {
        const double stake = Required(in.stake, message::kNoStake, "txtDgdZbFylc");
        PointToLayOut point = readPoint(in, stake);
        point.stake = ResolveOrRefuse(stake, kDgdZb);
        ReadStation(in.station, {"txtDgdCzX", "txtDgdCzY"});
        AddNote(point.notes, kSeenCells, warning::NoStation(in.station));
        if (point.stake < at(gElemLc, 0)) Refuse(message::kBeforeRoute);
        if (point.stake > at(gElemLc, gElemCount)) Refuse(message::kBeyondRoute);
        AddCoordinateRow(rows, point);
        rows.changed();
    });
}
