#pragma once
// The columns of the result grids. Every column is centred; row 0 is the fixed header, column 0 the row number.

#include <array>
#include <span>
#include <string_view>
#include <vector>

/// What the cells of a column hang on.
enum class From {
    Input,      ///< what was typed, read or counted
    Alignment,  ///< route elements, main points and breaks
    Profile,    ///< grade line, superelevation, widths and breaks
};

struct GridColumn {
    std::string_view header;
    int twips;  ///< 1/15 pixel at 96 dpi
    From from = From::Input;
};

inline std::vector<std::string_view> Headers(std::span<const GridColumn> columns)
{
    std::vector<std::string_view> headers;
    for (const auto& column : columns) headers.push_back(column.header);
    return headers;
}

/// Single point coordinates and batch stake-out.
inline constexpr std::array<GridColumn, 9> kCoordinateColumns{{
    {"序号", 800},
    {"里 程", 2000},
    {"中边桩", 1800},
    {"夹 角", 1900},
    {"方位角", 1900, From::Alignment},
    {"距 离", 1200, From::Alignment},
    {"X坐标", 1500, From::Alignment},
    {"Y坐标", 1500, From::Alignment},
    {"切线方位角", 1900, From::Alignment},
}};

inline constexpr std::array<GridColumn, 5> kInverseColumns{{
    {"序号", 800},
    {"X 坐 标", 2000},
    {"Y 坐 标", 2000},
    {"反 算 里 程", 2000, From::Alignment},
    {"反 算 偏 距", 2000, From::Alignment},
}};

/// Single point elevation.
inline constexpr std::array<GridColumn, 4> kElevationColumns{{
    {"序号", 1000},
    {"里 程", 2000},
    {"中边桩", 2000},
    {"高 程", 2000, From::Profile},
}};

/// Batch elevation: centre, left, right.
inline constexpr std::array<GridColumn, 8> kElevationRunColumns{{
    {"序号", 1000},
    {"里 程", 2000},
    {"中边桩", 1500},
    {"高 程", 1500, From::Profile},
    {"中边桩", 1500},
    {"高 程", 1500, From::Profile},
    {"中边桩", 1500},
    {"高 程", 1500, From::Profile},
}};

inline constexpr std::array<GridColumn, 9> kCornerColumns{{
    {"序号", 800},
    {"里 程", 2000},
    {"点位置", 1000},
    {"夹 角", 1900},
    {"方位角", 1900, From::Alignment},
    {"距 离", 1200, From::Alignment},
    {"X坐标", 1500, From::Alignment},
    {"Y坐标", 1500, From::Alignment},
    {"切线方位角", 1900, From::Alignment},
}};

inline constexpr std::array<GridColumn, 22> kMainPointColumns{{
    {"序  号", 1000},
    {"交点编号", 1500, From::Alignment},
    {"第一切线长", 1500, From::Alignment},
    {"第二切线长", 1500, From::Alignment},
    {"第一缓曲长", 1500, From::Alignment},
    {"第二缓曲长", 1500, From::Alignment},
    {"ZH点里程", 1500, From::Alignment},
    {"ZH点X坐标", 1500, From::Alignment},
    {"ZH点Y坐标", 1500, From::Alignment},
    {"ZH点切线方位角", 2000, From::Alignment},
    {"HY点里程", 1500, From::Alignment},
    {"HY点X坐标", 1500, From::Alignment},
    {"HY点Y坐标", 1500, From::Alignment},
    {"HY点切线方位角", 2000, From::Alignment},
    {"YH点里程", 1500, From::Alignment},
    {"YH点X坐标", 1500, From::Alignment},
    {"YH点Y坐标", 1500, From::Alignment},
    {"YH点切线方位角", 2000, From::Alignment},
    {"HZ点里程", 1500, From::Alignment},
    {"HZ点X坐标", 1500, From::Alignment},
    {"HZ点Y坐标", 1500, From::Alignment},
    {"HZ点切线方位角", 2000, From::Alignment},
}};
