#pragma once
// What the arithmetic of the program departs from true geometry on an alignment.

#include <string>
#include <vector>

struct Tables;

/// One curve (an intersection point) or one block that is no straight.
struct AccuracyRow {
    std::string name;        ///< UTF-8
    std::vector<double> mm;  ///< ZH, HY, YH, HZ of a curve, the end of a block: distance from the true point
    double stakeMm = 0;      ///< stake of the last of those points less its true stake
    std::string why;         ///< Chinese; "" where nothing exceeds kAccuracyLimitMm
};

struct Accuracy {
    bool byPoints = false;
    std::vector<AccuracyRow> rows;
    double endStakeMm = 0;              ///< end stake less the true one
    std::vector<std::string> warnings;  ///< Chinese
};

inline constexpr double kAccuracyLimitMm = 5;

/// Compares the tables of a load with true geometry. @param byPoints the model is 交点法 @throws RunTimeError
Accuracy CheckAccuracy(const Tables& t, bool byPoints);
