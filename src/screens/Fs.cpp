#include "screens/Fs.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/XYToStake.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "tables/CalcTables.h"

#include <optional>

namespace {

/// Stake and offset of (gInX, gInY). Nothing: a walk that does not settle counts as no result.
std::optional<Foot> solve()
{
    try {
        return XYToStakeFromStart();
    } catch (const RunTimeError& error) {
        if (error.number() != RunTimeError::Overflow) throw;
        return std::nullopt;
    }
}

constexpr auto kFixed3 = ShownNumber::As::Fixed3;

/// On the second pass of an overlap a minus stands before the text; before a negative stake it makes no number.
Cell stakeCell(const Foot& foot)
{
    const auto [value, secondPass] = foot.nominal;
    if (secondPass && value < 0) return foot.lcText;
    return {foot.lcText, {value, ShownNumber::As::Shortest, secondPass}};
}

bool solveAndAdd(RowSink& rows)
{
    const auto foot = solve();
    if (!foot) return false;
    rows.row({{NumberCell(gInX), NumberCell(gInY), stakeCell(*foot), {foot->offsetText, {foot->offset, kFixed3}}},
              warning::Misses(*foot, gInX, gInY)});
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
    return CalcBatchFile(kFsFields, rows, [&](const BatchLine& line) { AddFsPoint(line[0], line[1], rows); });
}
