#pragma once
// Measured points against the design: stake and offset of each, the height there, and how far it lies from where it was
// set out.

#include "base/GridText.h"
#include "engine/XYToStake.h"
#include "exchange/FieldFile.h"

#include <optional>
#include <string>
#include <vector>

struct Tolerances {
    std::optional<double> plane, height;  ///< m
};

struct ComparedPoint {
    MeasuredPoint measured;
    bool found = false;                      ///< a stake belongs to it
    std::string stakeText = {};              ///< K12+345.678
    double stake = 0;                        ///< nominal, m, negative on a second pass
    double offset = 0;                       ///< m, negative left
    std::optional<double> design = {};       ///< height of the road at that stake and offset, m
    std::optional<double> heightOff = {};    ///< measured less design, m
    std::optional<double> dx = {}, dy = {};  ///< measured less set out, m
    std::optional<double> setOutOff = {};    ///< height: measured less set out, m
    bool beyond = false;                     ///< more than a tolerance off
};

/// Stake and offset give the point again to half a centimetre; beyond an end of the road they do not.
bool LeadsBack(const Tables& tables, const Foot& foot, double x, double y);

/// @param setOut  the list by which the points were set out; may be empty
std::vector<ComparedPoint> Compare(const Tables& tables, const std::vector<MeasuredPoint>& measured,
                                   const std::vector<MeasuredPoint>& setOut, const Tolerances& tolerances);

/// Rows for people, with a header; the last column says 超限 where a tolerance is passed.
GridText ComparedRows(const std::vector<ComparedPoint>& points);
