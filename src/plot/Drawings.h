#pragma once
// What leaves as a file: the three drawings as models with true coordinates (.dxf), and as sheets (.svg).

#include "plot/Sheets.h"

#include <optional>
#include <string>

namespace plot {

struct Order {
    enum Kind { Plan, Profile, Section } kind = Plan;
    Paper paper = kA3;
    std::optional<double> scale;  ///< n of 1 : n; none: all of it on one sheet
    double exaggeration = 0;      ///< of heights in a profile; 0: what fits
    double from = 0, to = 0;      ///< continuous stakes, plan and profile
    double stake = 0;             ///< of the section
    double thickness = 0;         ///< taken off in the section, m
    std::string project;
    Stale stale;
    const Road* other = nullptr;
    std::span<const Marked> marked;
};
/// The whole road.
Order orderOf(const Road& road, Order::Kind kind);

/// Nothing can be drawn: why, Chinese, UTF-8; "" where it can.
std::string refusalOf(const Road& road, const Order& order);
std::vector<Sheet> sheetsOf(const Road& road, const Order& order, const SlopeFiles& slopes);
/// The model as a .dxf. A plan and a section lie at their true coordinates, x east and y north, or offset and
/// elevation; in a profile x is the continuous stake and y the elevation times the exaggeration.
std::string dxfOf(const Road& road, const Order& order, const SlopeFiles& slopes);

}  // namespace plot
