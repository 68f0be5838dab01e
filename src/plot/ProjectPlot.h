#pragma once
// What the drawings need of a project's folder beside the tables: slope files, a second road. Files are only read.

#include "plot/Plan.h"
#include "plot/Slopes.h"

#include <memory>
#include <string>

namespace plot {

/// The slope files of a project's folder, as many grades as its settings say; files that cannot be read have no rows.
/// @param folder UTF-8
SlopeFiles slopesOf(const std::string& folder, const Tables& t);

/// A road with tables of its own.
struct OwnRoad {
    Tables tables;
    std::unique_ptr<Road> road;
    std::string refusal;  ///< why there is none, Chinese, UTF-8; "" where there is one
};
/// The road of a project's folder, whose files stay as they are. @param folder UTF-8
std::unique_ptr<OwnRoad> roadOf(const std::string& folder);

/// The projects of the catalogue, in its order; none where it cannot be read. UTF-8
std::vector<std::string> listedProjects();

/// Which groups the folder's files have no rows for although the tables hold some.
Stale staleOf(const std::string& folder, const Tables& t);

}  // namespace plot
