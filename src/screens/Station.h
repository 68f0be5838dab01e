#pragma once
// The instrument station of the coordinate screens: gStationX and gStationY, which outlive every form.

#include <string>
#include <string_view>

/// The station controls of a form, as they stand.
struct StationInput {
    bool typed = false;  ///< the check box 输入坐标
    std::string pick;    ///< text of the pick list of traverse points
    int pickIndex = -1;  ///< its list index, which is the index into the traverse tables
    std::string x, y;    ///< the coordinate boxes
};

/// Given names of the coordinate boxes of one form.
struct StationFields {
    std::string_view x, y;
};

/// Sets gStationX and gStationY: from the boxes, from the picked traverse point, or to the origin where nothing is
/// picked. Kept on purpose: a refusal at Y leaves gStationX changed.
/// @throws TypeMismatch, Subscript
void ReadStation(const StationInput& in, const StationFields& fields);
/// Only the checks for missing texts.
void RequireStation(const StationInput& in, const StationFields& fields);
