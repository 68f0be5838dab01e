#pragma once
// The results of a screen in the companion: rows and refusals come in, a table goes out.

#include "cli/Command.h"
#include "cli/Output.h"
#include "screens/Export.h"
#include "screens/ScreenRows.h"
#include "screens/Station.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The table and sheet of one screen.
struct ResultKind {
    std::span<const GridColumn> columns;
    const ExportLayout& sheet;
};
inline const ResultKind kCoordinateResult{kCoordinateColumns, kPlfyExport};
inline const ResultKind kInverseResult{kInverseColumns, kFsExport};
inline const ResultKind kElevationResult{kElevationColumns, kDgdGcExport};
inline const ResultKind kElevationRunResult{kElevationRunColumns, kPlGcExport};
inline const ResultKind kCornerResult{kCornerColumns, kJgwExport};
inline const ResultKind kMainPointResult{kMainPointColumns, kZdcsExport};

class Results {
public:
    Results(const Call& call, const ResultKind& kind);

    RowSink& rows() { return m_rows; }
    /// Runs a handler; a refusal goes to standard error, and the exit code will be 1. @return whether it went through
    bool press(const std::function<Outcome()>& handler);
    /// One press for each line of the file that --file names ("-": standard input); blank lines are left out, a refused
    /// line is named and the run goes on. Ends at the most rows that a screen counts, or where `line` returns false.
    void pressLines(const std::function<bool(const std::string& line)>& line);
    /// Something to say about the row, or the line at hand, that makes the exit code 1.
    void refuse(const std::string& text);
    bool full() const { return m_state.rows == INT16_MAX; }

    // What the sheet's computed columns need.
    std::string stationPick;
    const JgwStructures* structures = nullptr;
    bool skewEnds = true;

    /// Writes the table to standard output or to the file of -o, warnings to standard error. @return the exit code
    int finish();

private:
    const Call& m_call;
    const ResultKind& m_kind;
    TextGrid m_grid;
    ScreenState m_state;
    TextRows m_rows{m_grid, m_state};
    std::string m_place;  // of the line at hand, for messages
    bool m_refused = false;
    Format m_format;
};

/// --station NAME or --station X,Y as the station controls of a screen. Nothing: no such traverse point, and it said
/// so.
std::optional<StationInput> ReadStationOption(const Call& call);
inline constexpr Option kStationOption{"--station", "点名|X,Y", "测站：导线点名，或直接给出坐标；不给时为原点"};

/// A stake as a number: K12+345.678 is 12345.678; any other text stays as it is.
std::string StakeNumber(const std::string& text);
