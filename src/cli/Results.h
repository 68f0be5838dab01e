#pragma once
// The results of a screen in the companion: rows and refusals come in, a table goes out.

#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/StreamedRows.h"
#include "dialogs/ResultTable.h"
#include "screens/Columns.h"
#include "screens/Export.h"
#include "screens/Station.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// The table, the sheet and the JSON values of one screen.
struct ResultKind {
    std::span<const GridColumn> columns;
    const ExportLayout& sheet;
    std::span<const TypedColumn> typed;
};
extern const ResultKind kCoordinateResult, kInverseResult, kElevationResult, kElevationRunResult, kCornerResult,
    kMainPointResult;

class Results {
public:
    Results(const Call& call, const ResultKind& kind);

    RowSink& rows() { return m_stream ? static_cast<RowSink&>(*m_stream) : m_rows; }
    /// Runs a handler; a refusal goes to standard error with the option that was refused, and the exit code will be 1.
    /// @param option  the one to name whatever is refused, "" to look for it  @return whether it went through
    bool press(const std::function<Outcome()>& handler, std::string_view option = {});
    /// Runs when a screen has checked its boxes and is about to walk; may refuse.
    void beforeWalk(std::function<void()> check)
    {
        (m_stream ? m_stream->beforeWalk : m_rows.beforeWalk) = std::move(check);
    }
    /// One press for each line of the file that --file names ("-": standard input); blank lines are left out, a refused
    /// line is named and the run goes on. Ends at the most rows that a screen counts, or where `line` returns false.
    void pressLines(const std::function<bool(const std::string& line)>& line);
    /// Something to say about the row, or the line at hand, that makes the exit code 1.
    void refuse(const std::string& text);
    bool full() const { return !m_stream && m_rows.state.rows == INT16_MAX; }

    // What the sheet's computed columns need, see ExportData.
    std::string stationPick;
    std::function<std::string(int row)> own;

    /// Writes the table to standard output or to the file of -o, warnings to standard error. Refused without a row, no
    /// file is written. @return the exit code
    int finish();

private:
    const Call& m_call;
    const ResultKind& m_kind;
    PlainRows m_grid;
    /// Rows that a walk clears first.
    struct WalkTable : ResultTable {
        using ResultTable::ResultTable;
        void clear() override
        {
            if (beforeWalk) beforeWalk();
            ResultTable::clear();
        }
        std::function<void()> beforeWalk;
    };
    WalkTable m_rows{m_grid};
    std::optional<StreamedRows> m_stream;  ///< instead of m_rows: --no-limit
    int m_line = 0;                        // of the file, the one at hand; 0 for none
    bool m_refused = false;
};

/// --station NAME or --station X,Y as the station controls of a screen. Nothing: no such traverse point, and it said
/// so.
std::optional<StationInput> ReadStationOption(const Call& call);
inline constexpr Option kStationOption{"--station", "点名|X,Y", "测站：导线点名，或直接给出坐标；不给时为原点"};

/// A text of a signed offset, taken apart for the boxes of a screen: 中桩 for an empty one and for 0. A text that is no
/// number keeps its place in the box, so that the screen refuses it.
struct SignedOffset {
    explicit SignedOffset(std::string_view text);

    std::string side = "中桩", length;
};

/// Refuses a walk of --from, --to and --step, all of them numbers, that takes more steps than anybody waits for.
void RefuseLongWalk(const Call& call);
inline constexpr double kMostSteps = 1e9;

/// What --file names: standard input for "-", else a file, a pipe or a device. @throws FileError
std::string InputBytes(const Call& call);

/// A stake as a number: K12+345.678 is 12345.678; any other text stays as it is.
std::string StakeNumber(const std::string& text);
