#include "base/RunTimeError.h"
#include "dialogs/Messages.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"
#include "tools/FhdxCells.h"

#include <string>
#include <vector>

namespace {

using Point = Drawing::Point;

constexpr const char* kBlock = "三角形";
constexpr const char* kStyle = "自己设置文本样式1";

/// A triangle of base 10 and height 5. Kept on purpose: a polyline of no length at its origin comes first.
void CREATBLOCK(Drawing& drawing)
{
    Drawing::Block block{kBlock, {4.0, 1.67}, {}};
    block.entities.push_back(Drawing::Polyline{{{0, 0}, {0, 0}, {0, 0}, {0, 0}}});
    block.entities.push_back(Drawing::Polyline{{{0, 0}, {10, 0}, {5, 5}, {0, 0}}});
    drawing.blocks.push_back(std::move(block));
}

void INSERTBLOCK(Drawing& drawing, Point point) { drawing.entities.push_back(Drawing::Insert{kBlock, point, 5, 0}); }

void AddPointLabel(Drawing& drawing, Point point, const std::string& name)
{
    if (!drawing.textStyle(kStyle)) drawing.styles.push_back({kStyle, "宋体", true, true, 1, 17});
    drawing.activeStyle = kStyle;
    drawing.entities.push_back(Drawing::Text{point, 100.0, name, kStyle});
}

void AddDoubleLine(Drawing& drawing, Point from, Point to)
{
    drawing.entities.push_back(Drawing::Line{{from.x + 10, from.y}, {to.x + 10, to.y}});
}

void AddPointCircle(Drawing& drawing, Point point) { drawing.entities.push_back(Drawing::Circle{point, 15.0}); }

}  // namespace

Drawing DrawFhdx(const Worksheet& sheet)
{
    const int n = gFhdxN;
    const int lastRow = FhdxRow(2 * n + 2);
    auto& counter = gFhdxN;

    std::vector<std::string> names;
    for (counter = 4; counter <= lastRow; counter = toInt16(counter + 2))
        names.push_back(sheet.text(FhdxCell('a', counter)));

    std::vector<Point> points;
    const auto add = [&](int row) { points.push_back({FhdxNumber(sheet, 'm', row), FhdxNumber(sheet, 'l', row)}); };
    add(4);
    for (counter = 4; counter <= lastRow - 2; counter = toInt16(counter + 2)) add(counter + 2);

    Drawing drawing;
    drawing.entities.push_back(Drawing::Polyline{points});
    // From here on the counter walks the list of coordinates, two to a point.
    const auto point = [&](int coordinate) { return at(points, coordinate / 2); };
    for (counter = 0; counter <= 2 * n - 2; counter = toInt16(counter + 2)) {
        const Point where = point(counter);
        AddPointLabel(drawing, {where.x + 50, where.y}, at(names, counter / 2));
    }
    CREATBLOCK(drawing);
    for (const int known : {0, 2, 2 * n - 4, 2 * n - 2}) INSERTBLOCK(drawing, point(known));
    for (counter = 4; counter <= 2 * n - 5; counter = toInt16(counter + 2)) AddPointCircle(drawing, point(counter));
    AddDoubleLine(drawing, point(0), point(2));
    AddDoubleLine(drawing, point(2 * n - 4), point(2 * n - 2));
    return drawing;
}

Msg FhdxDrawFault() { return {"输入数据有误，请检查后再运行", std::string(message::kError), Icon::Exclamation}; }
