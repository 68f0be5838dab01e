#pragma once
// The bands below a profile: grades, elevations, stakes, horizontal curvature, superelevation, widths.

#include "plot/Profile.h"

#include <cmath>

namespace plot {

Picture profileBands(const Road& road, const ProfileView& view);

/// Stakes at multiples of the interval, as people count them.
template <class Visit>
void forMultiples(const Road& road, const ProfileView& view, double step, Visit visit)
{
    for (const auto& piece : road.pieces()) {
        const double a = std::max(view.from, piece.from), b = std::min(view.to, piece.to);
        for (double n = std::ceil((a + piece.shift) / step - 1e-9); n * step - piece.shift <= b + 1e-9; ++n)
            visit(n * step - piece.shift);
    }
}

}  // namespace plot
