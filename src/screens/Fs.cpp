#include "screens/Fs.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/FootRun.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"

namespace {

constexpr auto kFixed3 = ShownNumber::As::Fixed3;

/// On the second pass of an overlap a minus stands before the text; before a negative stake it makes no number.
Cell stakeCell(const Foot& foot)
{
    const auto [value, secondPass] = foot.nominal;
    if (secondPass && value < 0) return foot.lcText;
    return {foot.lcText, {value, ShownNumber::As::Shortest, secondPass}};
}

/// False: a walk that does not settle counts as no result.
bool addFoot(const Foot& foot, RowSink& rows)
{
    if (foot.error && foot.error->number() != RunTimeError::Overflow) throw *foot.error;
    if (foot.error) return false;
    rows.row({{NumberCell(gInX), NumberCell(gInY), stakeCell(foot), {foot.offsetText, {foot.offset, kFixed3}}},
              warning::Misses(foot, gInX, gInY)});
    return true;
}

}  // namespace

bool AddFsPoint(FootRun& run, double x, double y, RowSink& rows) { return addFoot(run.next(x, y), rows); }

Outcome CalcFs(const FsInput& in, RowSink& rows)
{
    return Handle(Trap::None, [&] {
        gInX = Required(in.x, message::kNoX, "txtFsx");
        gInY = Required(in.y, message::kNoY, "txtFsY");
        addFoot(FootRun().next(gInX, gInY), rows);
        rows.changed();
    });
}

Outcome CalcFsFile(RowSink& rows)
{
    FootRun run;
    return CalcBatchFile(kFsFields, rows,
                         [&](const BatchLine& line) { return AddFsPoint(run, line[0], line[1], rows); });
}
