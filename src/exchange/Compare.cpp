#include "exchange/Compare.h"

#include "base/RunTimeError.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>

namespace {

/// The design height where the grade line reaches.
std::optional<double> designAt(const Tables& t, double continuous, double offset)
{
    const auto last = static_cast<std::size_t>(t.sqxCount > 0 ? t.sqxCount : 0);
    if (last < 2 || t.sqxLc.size() <= last) return std::nullopt;
    if (continuous < t.sqxLc.front() - 1e-6 || continuous > t.sqxLc[last] + 1e-6) return std::nullopt;
    std::optional<double> height;
    attempt([&] { height = elevationAt(t, continuous, offset); });
    return height;
}

bool passes(const std::optional<double>& off, const std::optional<double>& tolerance)
{
    return off && tolerance && std::abs(*off) > *tolerance;
}

/// A name as an instrument hands it back: its words fill up with zeros, so those in front of it are lost.
std::string_view withoutZeros(std::string_view name)
{
    return name.substr(std::min(name.find_first_not_of('0'), name.size()));
}

}  // namespace

bool LeadsBack(const Tables& tables, const Foot& foot, double x, double y)
{
    constexpr double kMiss = 0.005;  // of a stake and an offset with three decimals, m
    const auto at = pointAt(tables, foot.stake, foot.offset < 0 ? 270 : 90, std::abs(foot.offset));
    return at && !at->error && std::hypot(at->x - x, at->y - y) <= kMiss;
}

std::vector<ComparedPoint> Compare(const Tables& tables, const std::vector<MeasuredPoint>& measured,
                                   const std::vector<MeasuredPoint>& setOut, const Tolerances& tolerances)
{
    std::map<std::string, const MeasuredPoint*> byName;
    // A difference of coordinates that are written to the millimetre: a tenth of that is what the sums leave.
    const auto difference = [](double a, double b) { return std::round((a - b) * 1e4) / 1e4 + 0.0; };
    for (const auto& point : setOut) byName.try_emplace(point.name, &point);
    for (const auto& point : setOut) byName.try_emplace(std::string(withoutZeros(point.name)), &point);
    std::vector<ComparedPoint> result;
    for (const auto& point : measured) {
        ComparedPoint row{.measured = point};
        attempt([&] {
            const Foot foot = footOf(tables, point.x, point.y);
            if (foot.error || !LeadsBack(tables, foot, point.x, point.y)) return;
            row.found = true;
            row.stakeText = foot.lcText;
            row.stake = foot.nominal.secondPass ? -foot.nominal.value : foot.nominal.value;
            row.offset = foot.offset;
            row.design = designAt(tables, foot.stake, foot.offset);
        });
        if (row.design && point.h) row.heightOff = difference(*point.h, *row.design);
        auto planned = byName.find(point.name);
        if (planned == byName.end()) planned = byName.find(std::string(withoutZeros(point.name)));
        if (planned != byName.end()) {
            row.dx = difference(point.x, planned->second->x);
            row.dy = difference(point.y, planned->second->y);
            if (point.h && planned->second->h) row.setOutOff = difference(*point.h, *planned->second->h);
        }
        const auto plane = row.dx ? std::optional(std::hypot(*row.dx, *row.dy)) : std::nullopt;
        row.beyond = passes(plane, tolerances.plane) || passes(row.heightOff, tolerances.height) ||
                     passes(row.setOutOff, tolerances.height);
        result.push_back(std::move(row));
    }
    return result;
}

GridText ComparedRows(const std::vector<ComparedPoint>& points)
{
    static constexpr const char* kHeaders[] = {"序号",     "点号", "X坐标", "Y坐标", "高程",     "里程",     "偏距",
                                               "设计高程", "高差", "ΔX",    "ΔY",    "点位偏差", "放样高差", "结论"};
    GridText grid;
    grid.setCols(static_cast<int>(std::size(kHeaders)));
    for (int c = 0; c < grid.cols(); ++c) grid.setText(0, c, kHeaders[c]);
    grid.setRows(static_cast<int>(points.size()) + 1);
    for (int r = 1; r < grid.rows(); ++r) {
        const auto& p = points[static_cast<std::size_t>(r - 1)];
        int c = 0;
        const auto number = [&](const std::optional<double>& value) {
            grid.setCell(r, c++, value ? Fixed3Cell(*value) : Cell());
        };
        grid.setCell(r, c++, NumberCell(r));
        grid.setText(r, c++, p.measured.name);
        number(p.measured.x);
        number(p.measured.y);
        number(p.measured.h);
        if (p.found)
            grid.setCell(r, c++, {p.stakeText, {p.stake, ShownNumber::As::Shortest}});
        else
            grid.setText(r, c++, "无对应桩号");
        number(p.found ? std::optional(p.offset) : std::nullopt);
        number(p.design);
        number(p.heightOff);
        number(p.dx);
        number(p.dy);
        number(p.dx ? std::optional(std::hypot(*p.dx, *p.dy)) : std::nullopt);
        number(p.setOutOff);
        grid.setText(r, c++, p.beyond ? "超限" : "");
    }
    return grid;
}
