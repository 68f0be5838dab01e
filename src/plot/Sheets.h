#pragma once
// Sheets of paper to scale: frame, title block, legend, key plan, match lines. All in millimetres, (0, 0) lower left.

#include "plot/Plan.h"
#include "plot/Profile.h"
#include "plot/Section.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plot {

struct Paper {
    std::string_view name;
    double width = 0, height = 0;  ///< mm, laid across
};
inline constexpr Paper kA4{"A4", 297, 210}, kA3{"A3", 420, 297};

/// Something drawn on a sheet; what leaves the window is cut off.
struct SheetPart {
    std::optional<Box> window;
    Picture picture;
};
struct Sheet {
    Paper paper;
    std::vector<SheetPart> parts;
    double from = 0, to = 0;     ///< stakes that it shows
    std::vector<Point> outline;  ///< corners of its window in the plan, local
};

struct SheetTexts {
    std::string project;
};

/// The scale 1 : n with which the whole road goes on one such sheet.
double planScale(const Road& road, Paper paper, double from, double to);
double profileScale(Paper paper, double from, double to);
double sectionScale(const Section& section, Paper paper);

/// The plan on as many sheets as its scale needs, laid along the road.
/// @param view   what is drawn beside the road; window, mm, turn, from and to are set here
/// @param scale  n of 1 : n  @param from,to  continuous stakes
std::vector<Sheet> planSheets(const Road& road, PlanView view, Paper paper, double scale, double from, double to,
                              const SheetTexts& texts);
/// The profile likewise. @param exaggeration  of heights, 0: what fits
std::vector<Sheet> profileSheets(const Road& road, Paper paper, double scale, double exaggeration, double from,
                                 double to, const SheetTexts& texts, const Stale& stale = {});
Sheet sectionSheet(const Road& road, const Section& section, Paper paper, double scale, const SheetTexts& texts,
                   const Stale& stale = {});

/// North arrow, scale bar and legend as a view has them in a corner, in mm, (0, 0) its lower left corner.
/// @param turn  of the plan on the paper, degrees anticlockwise
Picture northArrow(double turn);
Picture scaleBar(double mm);
Picture planLegend(const Road& road, const PlanView& view);

}  // namespace plot
