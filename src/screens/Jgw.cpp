#include "screens/Jgw.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/Chainage.h"
#include "engine/Route.h"
#include "screens/Doubts.h"
#include "screens/Handler.h"
#include "screens/Rows.h"
#include "screens/Walk.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>

void JgwStructures::add(const std::string& kqText, const std::string& khText, const std::string& zzText,
                        const std::string& zyText)
{
    count = toInt16(count + 1);
    at(kq, count) = kqText;
    at(kh, count) = khText;
    at(zz, count) = zzText;
    at(zy, count) = zyText;
}

std::string JgwParameters(const JgwStructures& structures, bool skewEnds, int row)
{
    const int p = std::min((row + 3) / 4, static_cast<int>(structures.count));
    if (p < 1) return {};
    std::string text = skewEnds ? "斜交斜做：" : "斜交正做：";
    text.append("K前").append(at(structures.kq, p)).append(",K后").append(at(structures.kh, p));
    return text.append(",Z左").append(at(structures.zz, p)).append(",Z右").append(at(structures.zy, p));
}

double WorkingAngle(double typed) { return typed < 0 ? typed + 180 : typed; }

std::array<PlanePoint, 4> StructureCorners(const PlanePoint& centre, double azDeg, const StructureSize& size,
                                           double angle, bool skewEnds)
{
    const double A = azDeg, J = DmsToDeg(angle);
    // Kept on purpose: an angle of 0 goes left by the second rule and right by the first.
    const double left = angle < 0 ? A + J : A - (180 - J);
    const double right = angle <= 0 ? J + 180 + A : A + J;
    const auto cosine = [](double deg) { return trig::cos(radians(deg)); };
    const auto sine = [](double deg) { return trig::sin(radians(deg)); };

    if (skewEnds) {
        const double k = cosine(90 - J);
        const double front = quotient(size.kq, k), back = quotient(size.kh, k);
        const PlanePoint frontBase{centre.x + cosine(A) * front, centre.y + sine(A) * front};
        const PlanePoint backBase{centre.x + cosine(A + 180) * back, centre.y + sine(A + 180) * back};
        const auto corner = [&](double deg, double width, const PlanePoint& base) {
            return PlanePoint{cosine(deg) * width + base.x, sine(deg) * width + base.y};
        };
        return {corner(left, size.zz, frontBase), corner(right, size.zy, frontBase), corner(left, size.zz, backBase),
                corner(right, size.zy, backBase)};
    }
    const double front = A - (90 - J), back = (A + 180) - (90 - J);
    const PlanePoint frontShift{cosine(front) * size.kq, sine(front) * size.kq};
    const PlanePoint backShift{cosine(back) * size.kh, sine(back) * size.kh};
    const auto corner = [&](double deg, double width, const PlanePoint& shift) {
        return PlanePoint{cosine(deg) * width + centre.x + shift.x, sine(deg) * width + centre.y + shift.y};
    };
    return {corner(left, size.zz, frontShift), corner(right, size.zy, frontShift), corner(left, size.zz, backShift),
            corner(right, size.zy, backShift)};
}

namespace {

constexpr StationFields kStationFields{"txtJgwCzX", "txtJgwCzY"};

/// One structure: its size, how it is turned and what the angle column says.
struct Structure {
    StructureSize size;
    double angle = 90;  // working angle, dd.mmss
    bool skewEnds = true;
    Cell angleCell = kNoSkewText;
    std::vector<CellNote> notes = {};
};

/// Lays out the centre, then the four rows.
void addCorners(double nominal, double continuous, const Structure& structure, const std::string& remark, RowSink& rows)
{
    StakeToXY(continuous, 0, 0);
    const auto corners = StructureCorners({gOutX, gOutY}, gOutFwj, structure.size, structure.angle, structure.skewEnds);
    const Cell tangent = TangentCell();
    const std::string note = warning::OffRoute(continuous);
    auto notes = structure.notes;
    AddNote(notes, kStakeCells, warning::TwoPlaces(nominal));
    for (std::size_t i = 0; i < corners.size(); ++i) {
        std::vector<Cell> cells{StakeCell(nominal), std::string(kCornerNames[i]), structure.angleCell};
        AddSeenFromStation(cells, corners[i].x, corners[i].y);
        cells.push_back(tangent);
        rows.row({std::move(cells), i == 0 ? warning::Join(remark, note) : note, notes});
    }
    rows.changed();
}

void requireSize(const JgwInput& in)
{
    Require(in.kq, message::kNoKq, "txtJgwKq");
    Require(in.kh, message::kNoKh, "txtJgwKh");
    Require(in.zz, message::kNoZz, "txtJgwZz");
    Require(in.zy, message::kNoZy, "txtJgwZy");
}

Structure readStructure(const JgwInput& in)
{
    Structure structure;
    structure.skewEnds = in.skewEnds;
    if (in.skewed) {
        const double typed = Required(in.skew, message::kNoSkew, "txtJgwJj");
        structure.angle = WorkingAngle(typed);
        structure.angleCell = SkewCell(typed);
    }
    requireSize(in);
    structure.size = {ParseNumber(in.kq), ParseNumber(in.kh), ParseNumber(in.zz), ParseNumber(in.zy)};
    return structure;
}

std::string trimmed(const std::string& text) { return std::string(Trim(text)); }

}  // namespace

void RequireJgwTexts(const JgwInput& in)
{
    if (in.skewed) Require(in.skew, message::kNoSkew, "txtJgwJj");
    requireSize(in);
    RequireStation(in.station, kStationFields);
}

Outcome CalcJgw(const JgwInput& in, JgwStructures& structures, RowSink& rows)
{
    return Handle(Trap::Words, [&] {
        double stake = 0;
        if (!gPlBatch) {
            stake = Required(in.stake, message::kNoCentre, "txtJgwFylc");
            // Kept on purpose: the figure as typed, before the chainage breaks.
            if (std::abs(stake) < at(gElemLc, 0)) Refuse(message::kBeforeRoute);
            if (std::abs(stake) > at(gElemLc, gElemCount)) Refuse(message::kBeyondRoute);
        }
        Structure structure = readStructure(in);
        if (gPlBatch) stake = OrZero(in.stake);
        const double continuous = ResolveOrRefuse(stake, kDgdZb);
        ReadStation(in.station, kStationFields);
        AddNote(structure.notes, kSeenCells, warning::NoStation(in.station));

        const auto add = [&](const RunStake& at) {
            addCorners(at.nominal, at.continuous, structure, at.remark, rows);
            structures.add(trimmed(in.kq), trimmed(in.kh), trimmed(in.zz), trimmed(in.zy));
        };
        if (gPlBatch) {
            WalkStakes({gPlStart, gPlEnd, gPlStep}, NegativePass::Current, rows, add);
            gPlBatch = false;
        } else {
            add({stake, continuous, {}});
        }
    });
}

void AddJgwLine(const BatchLine& line, const JgwInput& in, JgwStructures& structures, RowSink& rows)
{
    Structure structure;
    structure.size = {line[1], line[2], line[3], line[4]};
    structure.skewEnds = in.skewEnds;
    // Kept on purpose: a file is laid out square; the angle column shows a value that nothing sets.
    if (in.skewed) {
        structure.angleCell = SkewCell(0);
        AddNote(structure.notes, kAngleCells, "从文件读取按 90 度计算，未用夹角");
    }
    const double continuous = ResolveOrRefuse(line[0], kFileLine);
    ReadStation(in.station, kStationFields);
    AddNote(structure.notes, kSeenCells, warning::NoStation(in.station));
    addCorners(line[0], continuous, structure, {}, rows);
    structures.add(NumText(line[1]), NumText(line[2]), NumText(line[3]), NumText(line[4]));
}

Outcome CalcJgwFile(const JgwInput& in, JgwStructures& structures, RowSink& rows)
{
    const auto add = [&](const BatchLine& line) {
        AddJgwLine(line, in, structures, rows);
        return true;
    };
    const auto whyNot = [&] {
        return structures.count < std::ssize(structures.kq) ? "" : "打开窗口以来的结构物超过 100 个";
    };
    return CalcBatchFile(kJgwFields, rows, add, whyNot);
}
