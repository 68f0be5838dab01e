#pragma once
// Traverses for tests: typed into a sheet as a person would, cell by cell.

#include "office/Worksheet.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

struct Traverse {
    struct Point {
        double x = 0, y = 0;
    };
    Point a, b, c, d;
    std::vector<std::string> angles;  ///< at B, the new points and C, packed dd.mmss as typed
    std::vector<std::string> legs;    ///< m, as typed
    bool left = true;

    int n() const { return static_cast<int>(angles.size()) + 2; }
};

inline std::string typed(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

/// Whole hundredths of a second as packed dd.mmss.
inline std::string packed(long long hundredths)
{
    const long long turn = 360LL * 360000;
    hundredths = ((hundredths % turn) + turn) % turn;
    char text[64];
    std::snprintf(text, sizeof text, "%lld.%02lld%02lld%02lld", hundredths / 360000, hundredths / 6000 % 60,
                  hundredths / 100 % 60, hundredths % 100);
    return text;
}
inline std::string packed(int degrees, int minutes, double seconds)
{
    return packed(degrees * 360000LL + minutes * 6000LL + std::llround(seconds * 100));
}

inline std::string cell(char column, int row) { return std::string(1, column) + std::to_string(row); }

/// The open form of gFhdxN points with the traverse typed into it.
inline Worksheet sheetOf(const Traverse& traverse, int coordinateDecimals = 4)
{
    Worksheet sheet;
    const int n = traverse.n();
    gFhdxN = static_cast<std::int16_t>(n);
    LayOutFhdx(sheet, traverse.left);
    for (int k = 1; k <= n; ++k) sheet.setValue(cell('a', 2 * k + 2), "P" + std::to_string(k));
    for (int i = 0; i < n - 2; ++i) sheet.setValue(cell('b', 6 + 2 * i), traverse.angles[static_cast<std::size_t>(i)]);
    for (int i = 0; i < n - 3; ++i) sheet.setValue(cell('e', 7 + 2 * i), traverse.legs[static_cast<std::size_t>(i)]);
    const std::pair<int, Traverse::Point> known[] = {
        {4, traverse.a}, {6, traverse.b}, {2 * n, traverse.c}, {2 * n + 2, traverse.d}};
    for (const auto& [row, point] : known) {
        sheet.setValue(cell('l', row), typed(point.x, coordinateDecimals));
        sheet.setValue(cell('m', row), typed(point.y, coordinateDecimals));
    }
    return sheet;
}

/// A line due east, every angle 180: the increments of column f are 0, so that fx is what `xError` says, and fy is
/// -`yGap`. Legs are taken as told.
inline Traverse eastward(const std::vector<double>& legs, double fx, double fy = 0)
{
    Traverse traverse;
    double length = 0;
    for (const double leg : legs) {
        traverse.legs.push_back(typed(leg, 3));
        length += leg;
    }
    traverse.a = {0, -1000};
    traverse.b = {0, 0};
    traverse.c = {-fx, length - fy};
    traverse.d = {-fx, length - fy + 1000};
    traverse.angles.assign(legs.size() + 1, "180");
    return traverse;
}

/// The same northward: fy is what the distribution of column i gets.
inline Traverse northward(const std::vector<double>& legs, double fx, double fy)
{
    Traverse traverse = eastward(legs, fy, fx);
    for (auto* point : {&traverse.a, &traverse.b, &traverse.c, &traverse.d}) std::swap(point->x, point->y);
    return traverse;
}

inline double numberAt(const Worksheet& sheet, char column, int row)
{
    const auto number = sheet.number(cell(column, row));
    return number ? *number : std::nan("");
}
inline std::string textAt(const Worksheet& sheet, char column, int row) { return sheet.text(cell(column, row)); }
