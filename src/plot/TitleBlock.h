#pragma once
// What stands around a drawing on its sheet: frame, title block, legend, scale bar, key plan. In mm.

#include "plot/Sheets.h"

#include <string>
#include <vector>

namespace plot {

/// Margins of a sheet: the left one is for binding; the strip below the drawing holds the rest.
inline constexpr double kBinding = 25, kEdge = 10, kStrip = 34;

struct TitleTexts {
    std::string project = {}, drawing = {}, scale = {}, stakes = {};
    std::size_t number = 1, count = 1;  ///< of the sheet
};
Picture titleBlock(Paper paper, const TitleTexts& texts);

Picture placed(const Picture& picture, Point at);

/// Each fills a box of 58 mm by the height of the strip.
Picture profileLegend();
Picture sectionLegend(const Section& section);
Picture keyPlan(const Road& road, const std::vector<Sheet>& sheets, std::size_t current);

}  // namespace plot
