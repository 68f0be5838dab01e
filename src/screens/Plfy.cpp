#include "screens/Plfy.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "screens/Doubts.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "screens/Walk.h"
#include "tables/CalcTables.h"

#include <cmath>

namespace {

struct Sides {
    double offset = 0;  // m
    bool skewed = false;
    double skew = 0;  // dd.mmss
};

Sides readSides(const PlfyInput& in)
{
    Sides sides{.skewed = in.skewed};
    if (in.skewed) {
        sides.skew = Required(in.skew, message::kNoSkew, "txtPlzbJj");
        sides.offset = Required(in.offset, message::kNoOffset, "txtPlzbPj");
    } else {
        sides.offset = OrZero(in.offset);
    }
    return sides;
}

void addStake(const RunStake& at, const Sides& sides, const std::vector<CellNote>& notes, RowSink& rows)
{
    const PointToLayOut centre{.typed = at.nominal, .stake = at.continuous, .notes = notes};
    AddCoordinateRow(rows, centre, at.remark);
    if (sides.offset == 0) return;
    const auto side = [&](const char* name, double skewDeg, const Cell& angle = kNoSkewText) {
        PointToLayOut point = centre;
        point.skew = skewDeg;
        point.offset = sides.offset;
        point.side = SideCell(name, sides.offset);
        point.angle = angle;
        AddCoordinateRow(rows, point);
    };
    if (sides.skewed) {
        side("斜交", DmsToDeg(sides.skew), SkewCell(sides.skew));
    } else {
        side("左", 270);
        side("右", 90);
    }
}

}  // namespace

Outcome CalcPlfy(const PlfyInput& in, RowSink& rows)
{
    return Handle(Trap::Words, [&] {
        Run run;
        run.start = Required(in.start, message::kNoStart, "txtPlzbQdlc");
        run.end = Required(in.end, message::kNoEnd, "txtPlzbZdlc");
        if (run.start == run.end) Refuse(message::kStartIsEnd);
        if (ResolveOrRefuse(run.start, kBatchStart) < at(gElemLc, 0)) Refuse(message::kStartBeforeRoute);
        if (ResolveOrRefuse(run.end, kBatchEnd) > at(gElemLc, gElemCount)) Refuse(message::kEndBeyondRoute);
        const Sides sides = readSides(in);
        run.step = Required(in.step, message::kNoStep, "txtPlzbBc");
        if (run.step == 0) Refuse(message::kStepIsZero);
        ReadStation(in.station, {"txtPlzbCzX", "txtPlzbCzY"});

        rows.clear();
        std::vector<CellNote> notes;
        AddNote(notes, kSeenCells, warning::NoStation(in.station));
        WalkStakes(run, NegativePass::LastInverse, rows, [&](const RunStake& at) { addStake(at, sides, notes, rows); });
        rows.changed();
    });
}

void AddPlfyLine(const BatchLine& line, RowSink& rows, const std::string& stationNote)
{
    const double stake = line[0], offset = line[1], length = std::abs(offset);
    PointToLayOut point{.typed = stake, .stake = ResolveOrRefuse(stake, kFileLine)};
    if (length != 0) {
        point.offset = length;
        point.skew = offset < 0 ? 270 : 90;
        point.side = SideCell(offset < 0 ? "左" : "右", length);
    }
    AddNote(point.notes, kSeenCells, stationNote);
    AddCoordinateRow(rows, point);
}

Outcome CalcPlfyFile(RowSink& rows, const StationInput& shown)
{
    const auto note = warning::FileStation(shown);
    const auto add = [&](const BatchLine& line) {
        AddPlfyLine(line, rows, note);
        return true;
    };
    return CalcBatchFile(kPlfyFields, rows, add);
}
