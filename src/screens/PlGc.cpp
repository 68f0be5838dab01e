#include "screens/PlGc.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "screens/Doubts.h"
#include "screens/Elevation.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "screens/Walk.h"
#include "tables/CalcTables.h"

namespace {

void addStake(const RunStake& at, double offset, double thickness, RowSink& rows)
{
    std::vector<Cell> cells{StakeCell(at.nominal), ElevationSideCell(0), ElevationCell(at.continuous, 0, thickness)};
    std::vector<CellNote> notes;
    AddNote(notes, kStakeCells, warning::TwoPlaces(at.nominal));
    if (offset != 0) {
        AddNote(notes, kLeftElevationCells, warning::OffSection(at.continuous, -offset));
        AddNote(notes, kRightElevationCells, warning::OffSection(at.continuous, offset));
        cells.push_back(SideCell("左", offset));
        cells.push_back(ElevationCell(at.continuous, -offset, thickness));
        cells.push_back(SideCell("右", offset));
        cells.push_back(ElevationCell(at.continuous, offset, thickness));
    }
    rows.row({std::move(cells), warning::Join(at.remark, warning::OffProfile(at.continuous)), std::move(notes)});
}

}  // namespace

Outcome CalcPlGc(const PlGcInput& in, RowSink& rows)
{
    return Handle(Trap::Words, [&] {
        Run run;
        run.start = Required(in.start, message::kNoStart, "txtPlGcQdlc");
        run.end = Required(in.end, message::kNoEnd, "txtPlGcZdlc");
        if (run.start == run.end) Refuse(message::kStartIsEnd);
        if (gSqxCount < 1) Refuse(message::kNoProfile, {}, message::kNotice);
        const double first = ResolveOrRefuse(run.start, kBatchStart);
        if (gElemCount > 0 && first < at(gElemLc, 0)) Refuse(message::kStartBeforeRoute);
        const double last = ResolveOrRefuse(run.end, kBatchEnd);
        if (gElemCount > 0 && last > at(gElemLc, gElemCount)) Refuse(message::kEndBeyondRoute);
        const double offset = OrZero(in.offset);
        const double thickness = OrZero(in.thickness);
        run.step = Required(in.step, message::kNoStep, "txtPlGcJj");

        rows.clear();
        WalkStakes(run, NegativePass::Current, rows,
                   [&](const RunStake& at) { addStake(at, offset, thickness, rows); });
        rows.changed();
    });
}

void AddPlGcLine(const BatchLine& line, const std::string& thicknessText, RowSink& rows)
{
    const double stake = line[0], offset = line[1];
    const double continuous = ResolveOrRefuse(stake, kFileLine);
    const double thickness = OrZero(thicknessText);
    std::vector<CellNote> notes;
    AddNote(notes, kStakeCells, warning::TwoPlaces(stake));
    AddNote(notes, kElevationCells, warning::OffSection(continuous, offset));
    rows.row({{StakeCell(stake), ElevationSideCell(offset), ElevationCell(continuous, offset, thickness)},
              warning::OffProfile(continuous),
              std::move(notes)});
}

Outcome CalcPlGcFile(const std::string& thickness, RowSink& rows)
{
    const auto add = [&](const BatchLine& line) {
        AddPlGcLine(line, thickness, rows);
        return true;
    };
    return CalcBatchFile(kPlGcFields, rows, add, [] { return gSqxCount < 2 ? "没有完整的竖曲线参数" : ""; });
}
