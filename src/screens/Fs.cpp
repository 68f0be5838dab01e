#include "screens/Fs.h"

#include "engine/Numbers.h"
#include "engine/Route.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"
#include "screens/Handler.h"
#include "screens/Rows.h"

namespace {

/// Stake and offset of (gInX, gInY), left as texts. False: none; a walk that does not settle counts as none.
bool solve()
{
    try {
        XYToStakeFromStart();
    } catch (const RunTimeError& error) {
        if (error.number() != RunTimeError::Overflow) throw;
        return false;
    }
    return !gOutLcText.empty();
}

bool solveAndAdd(RowSink& rows)
{
    if (!solve()) return false;
    rows.row({{NumText(gInX), NumText(gInY), gOutLcText, gOutOffsetText}, warning::Misses()});
    return true;
}

}  // namespace

bool AddFsPoint(double x, double y, RowSink& rows)
{
    gInX = x;
    gInY = y;
    return solveAndAdd(rows);
}

Outcome CalcFs(const FsInput& in, RowSink& rows)
{
    return Handle(Trap::None, [&] {
        gInX = Required(in.x, message::kNoX, "txtFsx");
        gInY = Required(in.y, message::kNoY, "txtFsY");
        solveAndAdd(rows);
        rows.changed();
    });
}

Outcome CalcFsFile(RowSink& rows)
{
    return Handle(Trap::Silent, [&] {
        const auto batch = PickBatchFile(kFsFields);
        if (!batch) return;
        for (const auto& point : *batch) {
            if (rows.abandoned()) break;
            AddFsPoint(point[0], point[1], rows);
        }
        rows.changed();
    });
}
