#pragma once
// Doubts about single cells of a result: a station that nobody chose, a stake that two places share, an elevation taken
// from beside the road, a road that is not the project's. "" or nothing where there is none; none of them changes a
// table or a shared result.

#include "base/GridText.h"
#include "dialogs/Outcome.h"
#include "project/OpenRoad.h"
#include "screens/Columns.h"
#include "screens/Station.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

inline constexpr std::uint32_t kStakeCells = ColumnBit(1);
inline constexpr std::uint32_t kAngleCells = ColumnBit(3);
inline constexpr std::uint32_t kSeenCells = ColumnBit(4) | ColumnBit(5);  ///< azimuth and distance from the station
inline constexpr std::uint32_t kElevationCells = ColumnBit(3);
inline constexpr std::uint32_t kLeftElevationCells = ColumnBit(5), kRightElevationCells = ColumnBit(7);

/// Adds a note unless its text is empty.
void AddNote(std::vector<CellNote>& notes, std::uint32_t columns, const std::string& text);

namespace warning {
/// Nothing was picked or typed: azimuth and distance count from the origin.
std::string NoStation(const StationInput& in);
/// A file run takes the station in memory: none, or another one than the controls show.
std::string FileStation(const StationInput& shown);
/// The typed stake is read at two places of an overlap.
std::string TwoPlaces(double typed);
/// The elevation at an offset comes from the edge of the formation, or from the centre line where widths or
/// superelevation do not reach. @param stake continuous
std::string OffSection(double stake, double offset);
}  // namespace warning

/// What every row of a run is noted with: the cells that come from the group in doubt.
/// @param pickedStation  the station is one of the traverse points
std::vector<CellNote> RoadNotes(std::span<const GridColumn> columns, const RoadDoubts& doubts, bool pickedStation);

/// Hands rows on with these notes, as far as they have the cells, and with the station in memory.
class NotedRows : public RowSink {
public:
    /// @param seen  the rows depend on the station
    NotedRows(RowSink& rows, std::vector<CellNote> notes, bool seen)
        : m_rows(rows), m_notes(std::move(notes)), m_seen(seen)
    {}

    void clear() override { m_rows.clear(); }
    void row(ResultRow row) override;
    void changed() override { m_rows.changed(); }
    bool abandoned() override { return m_rows.abandoned(); }

    /// First cell of the row that the counter did not hold any more.
    const std::optional<std::string>& refused() const { return m_refused; }
    int count() const { return m_count; }  ///< of rows that were taken

private:
    RowSink& m_rows;
    std::vector<CellNote> m_notes;
    bool m_seen;
    std::optional<std::string> m_refused;
    int m_count = 0;
};

/// Rows that were computed from another station than the one that a save writes beside them, as a sentence; "" for
/// none.
std::string OtherStations(const GridText& grid, int rows);
