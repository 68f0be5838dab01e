#pragma once
// Side slopes as the four files hold them: a ladder of grades, each a slope, a height and a berm. The program computes
// nothing from them; a section shows them as a sketch, because there is no ground in the data.

#include <optional>
#include <string_view>
#include <vector>

struct Tables;

namespace plot {

struct SlopeGrade {
    double berm = 0;    ///< before the grade, m; 0 for the first one
    double slope = 0;   ///< 1 : slope
    double height = 0;  ///< m; 0 for the last one, which ends at the ground
};
/// One side, one kind: the ladder at a stake.
struct SlopeLadder {
    double width = 0;  ///< from the centre line to its foot or top, m
    std::vector<SlopeGrade> grades;
};
struct SlopeRow {
    double from = 0, to = 0;  ///< continuous stakes
    SlopeLadder start, end;
};
using SlopeRows = std::vector<SlopeRow>;

/// Rows of a slope file. A row whose stakes lie in a chainage gap, or whose fields are no numbers, is left out.
/// @param bytes   of the file
/// @param grades  what the settings say, 1 to 10; else there are no rows
SlopeRows readSlopes(std::string_view bytes, int grades, const Tables& t);
/// Between the rows' ends in proportion to length; nothing where no row holds the stake.
std::optional<SlopeLadder> ladderAt(const SlopeRows& rows, double stake);

/// The four files.
struct SlopeFiles {
    SlopeRows fillLeft, fillRight, cutLeft, cutRight;
};

}  // namespace plot
