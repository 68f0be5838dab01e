#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "dialogs/Messages.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"
#include "tools/FhdxCells.h"

#include <cmath>
#include <string>

namespace {

struct Header {
    const char* range;
    const char* text;
    double width = 0;  ///< of its columns, characters; 0 keeps the standard
    bool wrap = false;
};
constexpr const char* kLeftAngle = " 观测左角               (  °′ ″ )";
constexpr const char* kRightAngle = " 观测右角               (  °′ ″ )";
constexpr Header kHeaders[] = {
    {"a2:a3", "点 号"},
    {"b2:b3", nullptr, 13, true},  // the kind of angle
    {"c2:c3", "改正数  ( ″)", 6, true},
    {"d2:d3", " 方位角                         (  °′ ″ )", 16, true},
    {"e2:e3", " 平距(m)", 8, true},
    {"f2:g2", "坐标增量(m)"},
    {"f3", "△X"},
    {"g3", "△Y"},
    {"h2:i2", "改正数(mm)"},
    {"h3", "X", 5},
    {"i3", "Y", 5},
    {"j2:k2", "改正后坐标增量(m)"},
    {"j3", "△X"},
    {"k3", "△Y"},
    {"l2:m2", "平差后坐标(m)"},
    {"l3", "X", 13},
    {"m3", "Y", 13},
};

void mergeCentred(Worksheet& sheet, const CellRange& range)
{
    if (range.rows() > 1 || range.cols() > 1) sheet.merge(range);
    sheet.center(range);
}

void box(Worksheet& sheet, const CellRange& range, int weight, std::initializer_list<int> lines)
{
    for (const int line : lines) sheet.borders(range, line, xlContinuous, weight, xlColorIndexAutomatic);
}

void titleAndHeaders(Worksheet& sheet, bool leftAngles)
{
    sheet.setValue("A1", "附　合　导　线　计　算　表");
    mergeCentred(sheet, "A1:M1");
    sheet.setRowHeight("A1", 28.5);
    sheet.setFont("A1:M1", "黑体", 20);
    for (const auto& header : kHeaders) {
        const CellRange range(header.range);
        sheet.setValue(range.first, header.text ? header.text : leftAngles ? kLeftAngle : kRightAngle);
        mergeCentred(sheet, range);
        if (header.width > 0) sheet.setColumnWidth(range, header.width);
        if (header.wrap) sheet.setWrapText(range, true);
    }
}

/// Points on even rows, what lies between them on odd rows.
void staggeredBody(Worksheet& sheet, int n)
{
    const auto pairs = [&](int firstRow, const char* columns) {
        for (int row = firstRow; row <= FhdxRow(2 * n + 2); row += 2)
            for (const char* column = columns; *column; ++column)
                mergeCentred(sheet, {FhdxCell(*column, row), FhdxCell(*column, row + 1)});
    };
    pairs(4, "abclm");
    pairs(5, "defghijk");
}

}  // namespace

void LayOutFhdx(Worksheet& sheet, bool leftAngles)
{
    const int n = gFhdxN;
    const auto block = [](char column, int row, char lastColumn, int lastRow) {
        return CellRange(FhdxCell(column, FhdxRow(row)), FhdxCell(lastColumn, FhdxRow(lastRow)));
    };
    titleAndHeaders(sheet, leftAngles);
    staggeredBody(sheet, n);

    box(sheet, block('a', 2, 'm', 2 * n + 3), xlThin,
        {xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight, xlInsideVertical, xlInsideHorizontal});
    box(sheet, block('a', 2 * n + 3, 'm', 2 * n + 7), xlThin, {xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight});
    box(sheet, block('a', 2, 'm', 2 * n + 7), xlMedium, {xlEdgeLeft, xlEdgeTop, xlEdgeBottom, xlEdgeRight});

    // What the user fills.
    for (const auto& input : {block('a', 4, 'a', 2 * n + 3), block('b', 6, 'b', 2 * n + 1), block('e', 7, 'e', 2 * n),
                              block('l', 4, 'm', 7), block('l', 2 * n, 'm', 2 * n + 2)})
        sheet.setInterior(input, 35, xlSolid);

    // Names keep their form, and the lines below the table stay text.
    sheet.setNumberFormat(block('a', 4, 'a', 2 * n + 2), "@");
    sheet.setNumberFormat(block('a', 2 * n + 4, 'm', 2 * n + 7), "@");
    sheet.page.left = sheet.page.right = 0.5;
}

std::optional<Quantity> FhdxQuantity(CellRef cell, int points)
{
    const char column = static_cast<char>('a' + cell.col - 1);
    const bool between = cell.row % 2 != 0;
    const int last = 2 * points + 2;
    if (column == 'b' && !between && cell.row >= 6 && cell.row <= last - 2) return Quantity::Angle;
    if (column == 'e' && between && cell.row >= 7 && cell.row <= last - 3) return Quantity::Plain;
    const bool known = cell.row == 4 || cell.row == 6 || cell.row == last - 2 || cell.row == last;
    if ((column == 'l' || column == 'm') && known) return Quantity::Plain;
    return std::nullopt;
}

Outcome MakeFhdxSheet(std::string_view typedCount, bool leftAngles, const std::function<Worksheet&()>& newSheet)
{
    if (typedCount.empty()) return {Refusal{Notice("请输入导线点个数"), "txtDxd"}};
    const double count = std::nearbyint(ParseNumber(typedCount));
    if (std::abs(count) > 1e9) throw RunTimeError(RunTimeError::Overflow);
    gFhdxN = toInt16(static_cast<long long>(count));
    if (gFhdxN < 5) return {Refusal{{"导线点个数不能小于5", std::string(message::kError), Icon::Exclamation}, ""}};
    LayOutFhdx(newSheet(), leftAngles);
    return {};
}
