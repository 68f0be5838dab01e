#include "exchange/GridPoints.h"

#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Elevation.h"
#include "exchange/ExchangeError.h"
#include "exchange/FieldFile.h"
#include "exchange/Xlsx.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

/// The column of a header, whatever blanks stand in it; -1 for none.
int columnOf(const GridText& grid, std::string_view wanted)
{
    for (int c = 0; c < grid.cols(); ++c) {
        std::string header = grid.text(0, c);
        std::erase(header, ' ');
        if (header == wanted) return c;
    }
    return -1;
}

/// Corners of structures have letters for their place: Q ahead, H behind, L left, R right.
std::string cornerCode(const std::string& text)
{
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kCorners{
        {{"左前点", "QL"}, {"右前点", "QR"}, {"左后点", "HL"}, {"右后点", "HR"}}};
    for (const auto& [name, code] : kCorners)
        if (text == name) return std::string(code);
    return {};
}

}  // namespace

std::vector<FieldPoint> GridPoints(const GridText& grid, const Tables& tables)
{
    const int stake = columnOf(grid, "里程"), x = columnOf(grid, "X坐标"), y = columnOf(grid, "Y坐标");
    const int side = columnOf(grid, "中边桩"), corner = columnOf(grid, "点位置");
    if (x < 0 || y < 0 || stake < 0) throw ExchangeError("这个表里没有里程和坐标，只能另存为 .xlsx");
    std::vector<FieldPoint> points;
    std::set<std::string> names;
    for (int r = 1; r < grid.rows(); ++r) {
        const auto px = grid.shown(r, x), py = grid.shown(r, y), ps = grid.shown(r, stake);
        if (!px || !py || !ps) continue;
        FieldPoint point{.x = *px, .y = *py, .stake = *ps};
        if (side >= 0) point.offset = grid.shown(r, side).value_or(0);
        point.code = point.offset < 0 ? "ZB" : point.offset > 0 ? "YB" : "ZZ";
        point.name = FieldName(FieldRun().pattern, point);
        if (const auto place = corner >= 0 ? cornerCode(grid.text(r, corner)) : ""; !place.empty()) {
            point.code = "JGW";
            point.name += place;
        } else if (const auto continuous = ResolveStake(tables, *ps, kDgdZb); continuous && tables.sqxCount > 1) {
            attempt([&] { point.h = elevationAt(tables, *continuous, point.offset); });
        }
        const std::string name = point.name;
        for (int n = 2; !names.insert(point.name).second; ++n) point.name = name + "-" + std::to_string(n);
        points.push_back(std::move(point));
    }
    return points;
}

void SaveGridAs(const std::string& path, const std::string& title, const GridText& grid, const Tables& tables)
{
    const auto format = FieldFormatOf(path);
    if (!format) {
        if (path.size() < 5 || path.substr(path.size() - 5) != ".xlsx")
            throw ExchangeError("文件名应以 .xlsx、.dat、.csv、.txt 或 .gsi 结尾");
        return WriteResult(path, XlsxBytes({grid, title}));
    }
    FieldWriter writer(*format);
    std::string bytes = writer.begin();
    for (const auto& point : GridPoints(grid, tables)) bytes += writer.line(point);
    WriteResult(path, bytes);
}
