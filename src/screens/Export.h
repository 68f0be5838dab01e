#pragma once
// Saving a result grid as a spreadsheet: one procedure, seven layouts.

#include "dialogs/ResultTable.h"
#include "office/Worksheet.h"
#include "screens/Station.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

/// A column of a sheet; the columns of a layout stand in a, b, c and so on.
struct ExportColumn {
    std::string_view header;
    double width;  ///< characters of the standard font
    int source;    ///< a grid column, or one of the two below
};
inline constexpr int kStationColumn = -1;  ///< the station in memory at the save, the same on every row
inline constexpr int kOwnColumn = -2;      ///< what the screen says of a row beyond its grid

/// Row 1: the project's name over all columns. Row 2: headers. Row r + 2: grid row r.
struct ExportLayout {
    std::span<const ExportColumn> columns;
    int textColumns;        ///< the text format runs over the first so many columns
    bool needsRows = true;  ///< an empty table is not saved
};

inline constexpr std::array<ExportColumn, 10> kCoordinateExportColumns{{
    {"序号", 6, 0},
    {"里   程", 14, 1},
    {"中 边 桩", 14, 2},
    {"夹   角", 16, 3},
    {"方 位 角", 16, 4},
    {"距  离", 12, 5},
    {"X 坐 标", 12, 6},
    {"Y 坐 标", 12, 7},
    {"切线方位角", 16, 8},
    {"测 站 坐 标", 20, kStationColumn},
}};
inline constexpr std::array<ExportColumn, 5> kInverseExportColumns{{
    {"序号", 10, 0},
    {"X 坐 标", 18, 1},
    {"Y 坐 标", 18, 2},
    {"反 算 里 程", 18, 3},
    {"反 算 偏 距", 18, 4},
}};
inline constexpr std::array<ExportColumn, 4> kElevationExportColumns{{
    {"序号", 6, 0},
    {"里   程", 14, 1},
    {"中 边 桩", 14, 2},
    {"高   程", 14, 3},
}};
inline constexpr std::array<ExportColumn, 8> kElevationRunExportColumns{{
    {"序号", 6, 0},
    {"里   程", 14, 1},
    {"中 边 桩", 14, 2},
    {"高   程", 14, 3},
    {"中 边 桩", 14, 4},
    {"高   程", 14, 5},
    {"中 边 桩", 14, 6},
    {"高   程", 14, 7},
}};
inline constexpr std::array<ExportColumn, 11> kCornerExportColumns{{
    {"序号", 6, 0},
    {"里   程", 14, 1},
    {"点位置", 8, 2},
    {"夹   角", 16, 3},
    {"方 位 角", 16, 4},
    {"距  离", 12, 5},
    {"X 坐 标", 12, 6},
    {"Y 坐 标", 12, 7},
    {"切线方位角", 16, 8},
    {"测 站 坐 标", 20, kStationColumn},
    {"参  数", 50, kOwnColumn},
}};
inline constexpr std::array<ExportColumn, 22> kMainPointExportColumns{{
    {"序号", 6, 0},        {"交点编号", 14, 1},        {"第一切线长", 14, 2}, {"第二切线长", 16, 3},
    {"第一缓曲长", 16, 4}, {"第二缓曲长", 12, 5},      {"ZH点里程", 12, 6},   {"ZH点X坐标", 12, 7},
    {"ZH点Y坐标", 16, 8},  {"ZH点切线方位角", 20, 9},  {"HY点里程", 20, 10},  {"HY点X坐标", 20, 11},
    {"HY点Y坐标", 20, 12}, {"HY点切线方位角", 20, 13}, {"YH点里程", 20, 14},  {"YH点X坐标", 20, 15},
    {"YH点Y坐标", 20, 16}, {"YH点切线方位角", 20, 17}, {"HZ点里程", 20, 18},  {"HZ点X坐标", 20, 19},
    {"HZ点Y坐标", 20, 20}, {"HZ点切线方位角", 20, 21},
}};

inline constexpr ExportLayout kDgdZbExport{kCoordinateExportColumns, 10};
inline constexpr ExportLayout kPlfyExport{kCoordinateExportColumns, 10};
inline constexpr ExportLayout kFsExport{kInverseExportColumns, 5};
inline constexpr ExportLayout kDgdGcExport{kElevationExportColumns, 4};
/// Kept on purpose: the text format ends at column d, so the number texts of e to h become numbers.
inline constexpr ExportLayout kPlGcExport{kElevationRunExportColumns, 4};
inline constexpr ExportLayout kJgwExport{kCornerExportColumns, 11};
inline constexpr ExportLayout kZdcsExport{kMainPointExportColumns, 22, false};

/// What a save reads of its screen, as it stands at the save.
struct ExportData {
    const GridText& grid;
    std::int16_t rows;        ///< the row counter
    std::string stationPick;  ///< text of the station's pick list
    /// The text of kOwnColumn in a grid row. @throws RunTimeError
    std::function<std::string(int row)> own = {};
    std::string caption = {};  ///< of the window
};

/// The name that a save proposes: the project, the caption and the extension. What a file name cannot hold is a _.
std::string ProposedName(const std::string& caption, std::string_view extension);

/// The station column: the text of the pick list, a blank, the station in memory.
std::string StationText(const std::string& pick);

/// The sheet of a result, titled with gProject.
/// @throws Overflow beyond sheet row 32,767 and for a text that no cell holds, Subscript where the counter tells of
/// rows that the grid has not
Worksheet ResultSheet(const ExportLayout& layout, const ExportData& data);

/// The save button: asks for the file and about overwriting, writes, says so, and takes the data-changed flag back.
/// A cancelled dialog, No, and rows that do not fit end without a word; a file that can't be written gets a box that
/// names it and the reason, the old file still stands and the flag stays.
/// @param state  nullptr for a screen without a data-changed flag
/// @param showWait  shows (true) and hides the wait box; it stays where the sheet fails without a word
void SaveResult(const ExportLayout& layout, const ExportData& data, ScreenState* state,
                const std::function<void(bool)>& showWait);

/// The question at closing with unsaved data. True: Yes.
bool AskToSave();
