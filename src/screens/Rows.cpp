#include "screens/Rows.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Route.h"
#include "screens/Doubts.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

Cell SkewCell(double angle)
{
    Cell cell = DmsCellOf(std::abs(angle));
    if (angle > 0) return cell;
    cell.text.insert(0, "-");
    cell.value.minus = true;
    return cell;
}

Cell SideCell(const char* side, double length)
{
    const bool left = std::string_view(side) == "左";
    return {side + NumText(length) + "米", {left ? -length : length, ShownNumber::As::Shortest}};
}

Cell CentreCell() { return {"中桩", {0, ShownNumber::As::Exact}}; }

void AddSeenFromStation(std::vector<Cell>& cells, double x, double y)
{
    const double dx = x - gStationX, dy = y - gStationY;
    cells.push_back(DmsCellOf(Azimuth(dx, dy)));
    cells.push_back(Fixed3Cell(Distance(dx, dy)));
    cells.push_back(Fixed3Cell(x));
    cells.push_back(Fixed3Cell(y));
}

Cell TangentCell() { return DmsCellOf(DegToDms4(gOutFwj)); }

void AddCoordinateRow(RowSink& rows, PointToLayOut point, const std::string& remark)
{
    StakeToXY(point.stake, point.skew, point.offset);
    std::vector<Cell> cells;
    cells.reserve(8);
    cells.push_back(StakeCell(point.typed));
    cells.push_back(std::move(point.side));
    cells.push_back(std::move(point.angle));
    AddSeenFromStation(cells, gOutX, gOutY);
    cells.push_back(TangentCell());
    AddNote(point.notes, kStakeCells, warning::TwoPlaces(point.typed));
    rows.row({std::move(cells), warning::Join(remark, warning::OffRoute(point.stake)), std::move(point.notes)});
}

namespace warning {

std::string OffRoute(double stake)
{
    return StakeOnElement(shared.tables, stake) ? "" : "桩号不在任何线元内，坐标和切线方位角沿用上一次计算的结果";
}

std::string OffProfile(double stake)
{
    if (gSqxCount < 1) return "没有竖曲线参数";
    return stake < gSqxLc.front() || stake > gSqxLc[static_cast<std::size_t>(gSqxCount)]
               ? "桩号超出竖曲线范围，高程按端部坡度推算"
               : "";
}

std::string Skipped(double first) { return "从" + FormatStake(first) + "起的桩号在断链中不存在，已跳过"; }

std::string Join(const std::string& a, const std::string& b) { return a.empty() || b.empty() ? a + b : a + "；" + b; }

namespace {

constexpr double kTolerance = 0.005;  // m

/// Distance between the target and the foot laid out again; nothing where its stake can't be laid out.
std::optional<double> missOf(const Foot& foot, double x, double y)
{
    const Tables& t = shared.tables;
    if (foot.nominal.secondPass && foot.nominal.value < 0) return std::nullopt;  // nobody can type its text
    const double nominal = foot.nominal.secondPass ? -foot.nominal.value : foot.nominal.value;
    auto stake = t.hasDl ? ResolveStake(t, nominal, kDgdZb) : nominal;
    if (!stake) return std::nullopt;
    const double last = at(t.elemLc, t.elemCount);
    if (*stake >= last) *stake = std::nextafter(last, -std::numeric_limits<double>::infinity());
    const auto p = pointAt(t, *stake, foot.offset < 0 ? 270 : 90, std::abs(foot.offset));
    if (!p || p->error) return std::nullopt;
    return std::sqrt((p->y - y) * (p->y - y) + (p->x - x) * (p->x - x));
}

}  // namespace

std::string Misses(const Foot& foot, double x, double y)
{
    std::optional<double> distance;
    attempt([&] { distance = missOf(foot, x, y); });
    if (!distance) return "反算的里程和偏距无法复核";
    if (*distance <= kTolerance) return "";
    return "按反算的里程和偏距复核，与输入点相差" + FormatFixed3(*distance) + "米";
}

}  // namespace warning
