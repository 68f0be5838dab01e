#pragma once
// What the check makes of the horizontal alignment: findings about its file, and the road that the other files are
// held against.

#include "check/CheckBreaks.h"
#include "check/CheckFiles.h"

#include <optional>
#include <vector>

/// The circular part of a curve.
struct CheckedArc {
    double from = 0, to = 0;  ///< continuous stakes of HY and YH, m
    bool right = false;       ///< the turn
    bool spiralIn = false, spiralOut = false;
    int line = 0;  ///< of 平曲线参数.txt
};

struct CheckedRoad {
    std::optional<double> start, end;  ///< continuous stakes, m; nothing where the file does not tell
    /// False: a damaged row hides a part of the road, and `end` is where it ends at the earliest.
    bool exact = true;
    std::vector<CheckedArc> arcs;  ///< up to the first damaged row or curve
    struct Point {
        double x, y;
    };
    std::vector<Point> points;  ///< corners or joints, as far as they can be read
};

/// Steps that read 平曲线参数.txt by the model of the settings into `road` and report what is wrong in it. What is
/// given by reference must live until they are made.
void CheckAlignment(const std::string& folder, const std::string& model, const CheckBreaks& breaks, CheckedRoad& road,
                    CheckSteps& steps, Findings& findings);
