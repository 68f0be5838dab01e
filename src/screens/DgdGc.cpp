#include "screens/DgdGc.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "screens/Doubts.h"
#include "screens/Elevation.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"

#include <cmath>

Outcome CalcDgdGc(const DgdGcInput& in, RowSink& rows)
{
    return Handle(Trap::Words, [&] {
        const double stake = Required(in.stake, message::kNoStake, "txtDgdGcFylc");
        double offset = 0;
        Cell side = CentreCell();
        if (in.side != "中桩") {
            const bool left = in.side == "左边桩";
            offset = Required(in.offset, message::kNoOffset, "txtDgdGcPj");
            side = SideCell(left ? "左" : "右", std::abs(offset));
            if (left) offset = -offset;
        }
        const double thickness = OrZero(in.thickness);
        const double continuous = ResolveOrRefuse(stake, kDgdGc);

        const auto refuse = [](std::string_view text) { Refuse(text, {}, message::kNotice, Icon::None); };
        if (gSqxCount < 1) refuse(message::kNoProfile);
        if (continuous < at(gSqxLc, 0)) refuse(message::kBeforeProfile);
        if (continuous > at(gSqxLc, gSqxCount)) refuse(message::kBeyondProfile);

        std::vector<CellNote> notes;
        AddNote(notes, kStakeCells, warning::TwoPlaces(stake));
        AddNote(notes, kElevationCells, warning::OffSection(continuous, offset));
        rows.row({{StakeCell(stake), side, ElevationCell(continuous, offset, thickness)}, {}, std::move(notes)});
        rows.changed();
    });
}
