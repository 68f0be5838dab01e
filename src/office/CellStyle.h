#pragma once
// How a cell looks. The numbers are those of spreadsheet automation, so that a list of formatting steps reads the same
// here as there.

#include <array>
#include <compare>
#include <cstdint>
#include <string>

enum SheetConstant : int {
    xlNone = -4142,  ///< no line, no fill
    xlContinuous = 1,
    xlHairline = 1,
    xlThin = 2,
    xlMedium = -4138,
    xlThick = 4,
    xlColorIndexAutomatic = -4105,
    xlSolid = 1,

    xlGeneral = 1,  ///< numbers to the right, texts to the left
    xlLeft = -4131,
    xlCenter = -4108,
    xlRight = -4152,
    xlTop = -4160,
    xlBottom = -4107,

    xlDiagonalDown = 5,
    xlDiagonalUp = 6,
    xlEdgeLeft = 7,
    xlEdgeTop = 8,
    xlEdgeBottom = 9,
    xlEdgeRight = 10,
    xlInsideVertical = 11,
    xlInsideHorizontal = 12,
};

/// One line at or across a cell. xlNone is no line.
struct CellLine {
    int weight = xlNone;                     ///< xlNone, xlHairline, xlThin, xlMedium or xlThick
    int colorIndex = xlColorIndexAutomatic;  ///< 1 to 56 or automatic

    auto operator<=>(const CellLine&) const = default;
};

struct CellStyle {
    std::string fontName = "宋体";
    double fontSize = 12;  ///< points
    bool bold = false;
    bool italic = false;
    std::string numberFormat = "General";  ///< "@" is text
    int horizontal = xlGeneral;            ///< xlGeneral, xlLeft, xlCenter, xlRight
    int vertical = xlBottom;               ///< xlTop, xlCenter, xlBottom
    bool wrap = false;
    int fillColor = xlNone;           ///< colour index 1 to 56 of a solid fill, or xlNone
    std::array<CellLine, 6> lines{};  ///< diagonal down, diagonal up, left, top, bottom, right

    /// @param index xlDiagonalDown to xlEdgeRight
    CellLine& line(int index) { return lines[static_cast<std::size_t>(index - xlDiagonalDown)]; }
    const CellLine& line(int index) const { return lines[static_cast<std::size_t>(index - xlDiagonalDown)]; }

    auto operator<=>(const CellStyle&) const = default;
};

/// The colour 0xRRGGBB of a colour index, 1 to 56; black for any other.
std::uint32_t PaletteColor(int colorIndex);
