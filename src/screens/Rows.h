#pragma once
// Row making that screens share, and the quiet warnings beside rows.

#include "dialogs/Outcome.h"
#include "engine/XYToStake.h"

#include <string>
#include <vector>

/// The angle column of a skew: the angle, or "-" and its amount where it is not above 0 (0 too, on purpose).
/// @param angle  packed dd.mmss as typed
Cell SkewCell(double angle);
inline constexpr const char* kNoSkewText = "无";
/// Side and length, such as 左12.5米. @param side 左 (the number is below 0), 右 or 斜交
Cell SideCell(const char* side, double length);
/// 中桩
Cell CentreCell();

/// A point to lay out and what its row calls it.
struct PointToLayOut {
    double typed;     ///< stake that the row shows, m
    double stake;     ///< continuous stake, m
    double skew = 0;  ///< decimal degrees clockwise from the forward tangent
    double offset = 0;
    Cell side = CentreCell();
    Cell angle = kNoSkewText;
    std::vector<CellNote> notes = {};
};
/// StakeToXY, then one row of the coordinate columns: seen from the station, rounded coordinates, tangent.
/// @param remark  a warning that the caller knows of, or ""
void AddCoordinateRow(RowSink& rows, PointToLayOut point, const std::string& remark = {});

/// The four columns that every coordinate row has: azimuth and distance from the station, X, Y.
void AddSeenFromStation(std::vector<Cell>& cells, double x, double y);
/// The tangent azimuth that StakeToXY left.
Cell TangentCell();

/// Quiet warnings: "" where there is nothing to say. None of them changes a table or a shared result.
namespace warning {
/// The stake lies on no element, so that an earlier result stands in the row.
std::string OffRoute(double stake);
/// The stake lies beyond the profile.
std::string OffProfile(double stake);
/// Stakes from `first` up to the row's were left out because a jump skips their numbers.
std::string Skipped(double first);
/// The stake and offset of a foot, laid out again as its texts say, miss the point (x, y) by more than 5 mm.
std::string Misses(const Foot& foot, double x, double y);
/// Both, with a separator where both speak.
std::string Join(const std::string& a, const std::string& b);
}  // namespace warning
