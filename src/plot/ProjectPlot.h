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

/// Which groups of the open project's tables are not, or no longer, what its files say: another project's, an earlier
/// load's, changed on disk since. Tables that are not the shared ones have just been read: nothing is stale in them.
struct Doubts {
    Stale groups;
    std::string text;  ///< why, Chinese, UTF-8; "" where nothing is doubtful
};
Doubts doubtsOf(const Tables& t);

}  // namespace plot
