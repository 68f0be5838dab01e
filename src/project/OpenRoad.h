#pragma once
// Which road the tables hold, and whether the files still say the same: for the lines and warnings of the windows.
// A load notes here what it read; no computation looks at it.

#include "project/LoadTables.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

struct OpenRoad {
    using Files = std::map<std::string, std::string, std::less<>>;  ///< bytes by name

    std::string project;  ///< of the last load, UTF-8
    int loads = 0;        ///< 0: nothing was opened yet
    std::string folder;   ///< the last load's files lay there
    Loaded met;           ///< what the last load met
    Files files;          ///< as the last load read them; one that could not be read is not among them

    /// Where the rows of a file came from that stand in the tables.
    struct Source {
        std::string project;
        int load = 0;
    };
    std::map<std::string, Source, std::less<>> sources;  ///< by file; none: its tables are empty
    std::string notKept;                ///< why the last replaced file has no backup, "" where it has one
    bool byIntersectionPoints = false;  ///< how the alignment in the tables was described

    /// After each load of gProject.
    void remember(const Loaded& loaded, Files asRead);
    /// The tables may still hold what a project said that is gone; a new one of its name is another one.
    void projectDeleted(const std::string& name);
};
inline OpenRoad openRoad;

/// One line that names the road, and whether it is amber.
struct RoadText {
    std::string text;
    bool doubtful = false;
};
/// 当前项目：示例一　K12+000.000～K18+553.408　交点法　断链 2 处. Stakes are nominal. Doubtful where gProject names
/// another project than the tables hold, or the tables hold more, or less, than the project's files.
RoadText roadText();

/// The stakes that may be typed for the road in the tables, nominal, as plain numbers with up to three decimals.
struct StakeRange {
    std::string first, last;
};
std::optional<StakeRange> alignmentRange();  ///< nothing without an alignment
std::optional<StakeRange> profileRange();    ///< nothing without a profile

/// Why the tables may not be the road of the project; each "" where there is nothing to say.
struct RoadDoubts {
    std::string alignment;  ///< for what comes from route elements and main points
    std::string profile;    ///< for elevations
    std::string traverse;   ///< for traverse points

    bool operator==(const RoadDoubts&) const = default;
};
/// What the last load left open, and files that changed since. Reads the files; changes and creates none.
RoadDoubts lookAtRoad();
/// The same of one file: why the tables may not hold what it says, "" where they do.
/// @param file  of files::, one that a load compiles
std::string doubtAbout(std::string_view file);
