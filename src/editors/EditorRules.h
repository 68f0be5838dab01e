#pragma once
// The rules of the grid editors without a window: what a click starts, how a row is filled in, what a paste puts where.
// They read the cells of the grid and return what is to be written.

#include "base/GridText.h"
#include "dialogs/Outcome.h"
#include "editors/EditorTable.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A text for a cell of the grid.
struct CellText {
    int row = 0, col = 0;
    std::string text = {};

    bool operator==(const CellText&) const = default;
};

/// The filter of the in-cell box in a column; nullptr: any key.
bool (*KeySetOf(KeyFilter filter))(int keyAscii);

/// True where each of the columns holds text in the row.
bool Filled(const GridText& cells, int row, const std::vector<int>& columns);

/// What follows a click into `row` while the left button was the last one pressed.
enum class MouseRule { None, AddRow, BackToIncomplete };
MouseRule MouseRuleAt(const EditorTable& table, const GridText& cells, int row);

/// A row filled in from the one above.
struct FillIn {
    std::vector<CellText> cells = {};  ///< in the order of writing; written whatever the refusal
    bool refreshBox = false;           ///< the in-cell box shows its cell's text anew
    std::optional<Msg> refusal = {};   ///< a stake of the block above lies in a chainage gap
};
/// @param branch AddRow: `row` was clicked as the last one, before the grid grew. BackToIncomplete: `row` is the row
///        that the box went back to. The block editor computes from the row above in the first, with stakes made
///        continuous, and from the row itself in the second, with its stakes as they stand.
FillIn FillInRow(const EditorTable& table, const GridText& cells, int row, MouseRule branch);

/// True for a text that is a block from a spreadsheet: it holds a tab or a line end.
bool IsBlock(std::string_view text);
/// Its rows of cells, trimmed. The line end after the last row starts no further one; a quoted cell with line ends
/// inside is one cell, each of them a blank.
std::vector<std::vector<std::string>> BlockCells(std::string_view text);

struct BlockPaste {
    std::vector<CellText> cells = {};
    int rows = 0;                           ///< that the grid must have to hold them
    std::optional<Msg> refusal = {};        ///< nothing is to be written then
    std::vector<Converted> converted = {};  ///< those of the cells that do not say what the block said
};
/// The block with its first cell at (row, col). Empty pieces follow the rule of an emptied box. What the filter of a
/// column refuses goes in as PlainNumber reads it, or not at all.
BlockPaste PlanPaste(const EditorTable& table, const GridText& cells, int row, int col, std::string_view text);

struct FramePaste {
    std::vector<std::pair<std::size_t, std::string>> texts = {};  ///< frame box and its new text
    std::optional<Msg> refusal = {};                              ///< nothing is to be written then
    std::vector<Converted> converted = {};                        ///< as in BlockPaste
};
/// The block over the frame boxes from `box` on, cell after cell. An empty piece leaves its box as it is.
FramePaste PlanFramePaste(const EditorTable& table, std::size_t box, std::string_view text);

/// The highest row that the 16-bit members of an editor can name.
inline constexpr int kMaxRow = 32767;
