#pragma once
// Structure corner points (frmJgw): four rows a structure, from one typed stake, a run of stakes or a file.

#include "dialogs/Outcome.h"
#include "screens/BatchFile.h"
#include "screens/Station.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct JgwInput {
    std::string stake;     ///< txtJgwFylc
    bool skewEnds = true;  ///< optJgwXz 斜交斜做 (a parallelogram); false: 斜交正做 (a rectangle)
    std::string kq, kh;    ///< txtJgwKq, txtJgwKh: half lengths along the road, m
    std::string zz, zy;    ///< txtJgwZz, txtJgwZy: half widths left and right, m
    bool skewed = false;   ///< cheJgwJj
    std::string skew;      ///< txtJgwJj, dd.mmss
    StationInput station;  ///< cheJgw, comJgwCz, txtJgwCzX, txtJgwCzY
};

/// What the form remembers of each structure since it was loaded, for its save; deleting rows does not change it.
struct JgwStructures {
    static constexpr std::size_t kSize = 101;  ///< element 0 is never written

    std::int16_t count = 0;  ///< the structure counter
    std::array<std::string, kSize> kq, kh, zz, zy;

    /// Counts a structure and keeps its four texts. @throws Subscript from the 101st on: it is counted all the same
    void add(const std::string& kqText, const std::string& khText, const std::string& zzText,
             const std::string& zyText);
    bool operator==(const JgwStructures&) const = default;
};

/// The parameters in the sheet of a save: each structure's beside its four rows, and the last one's beside all rows
/// after them. @param skewEnds  the option at the save
/// @throws Subscript in the rows of a structure beyond the 100th
std::string JgwParameters(const JgwStructures& structures, bool skewEnds, int row);

/// A point of the plane, m: X north, Y east.
struct PlanePoint {
    double x = 0, y = 0;
};
/// Half lengths and half widths, m.
struct StructureSize {
    double kq = 0, kh = 0, zz = 0, zy = 0;
};
/// 左前点, 右前点, 左后点, 右后点.
inline constexpr std::array<std::string_view, 4> kCornerNames{"左前点", "右前点", "左后点", "右后点"};
/// The corners in that order. The curve of the road between the centre and the corners is ignored.
/// @param azDeg  tangent azimuth at the centre, decimal degrees
/// @param angle  working angle, packed dd.mmss, clockwise from the forward tangent; 90 square
std::array<PlanePoint, 4> StructureCorners(const PlanePoint& centre, double azDeg, const StructureSize& size,
                                           double angle, bool skewEnds);
/// The working angle of a typed one: 180 is added to a negative angle, as a plain number of dd.mmss.
double WorkingAngle(double typed);

/// butJgwCalc: one structure, or the run of frmPl while gPlBatch is set. Trap: words; it leaves gPlBatch as it is.
Outcome CalcJgw(const JgwInput& in, JgwStructures& structures, RowSink& rows);

/// butTxt: asks for a file and appends a structure a line: stake, K前, K后, Z左, Z右. Trap: silent.
Outcome CalcJgwFile(const JgwInput& in, JgwStructures& structures, RowSink& rows);
/// One line of it. No trap of its own.
void AddJgwLine(const BatchLine& line, const JgwInput& in, JgwStructures& structures, RowSink& rows);
inline constexpr std::size_t kJgwFields = 5;

/// The checks for missing texts on the form that frmPl runs before its batch.
void RequireJgwTexts(const JgwInput& in);
