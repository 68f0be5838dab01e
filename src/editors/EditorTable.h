#pragma once
// What tells the eleven grid editors apart, as data: one table each. Everything else is the pattern of EditorForm.
// Columns count from 0, the sequence column; texts are UTF-8.

#include "base/DesignNumber.h"
#include "base/ParameterFiles.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class KeyFilter { Any, Signed, Unsigned };

struct EditorColumn {
    std::string header = {};
    KeyFilter filter = KeyFilter::Any;
    int width = 0;         ///< twips
    std::string tip = {};  ///< unit and sign convention, shown over the header
    bool isStake = false;  ///< where a row begins and where it ends along the road: set off in wide grids
    Quantity quantity = Quantity::Plain;  ///< how design tables may print it; without meaning where any text goes in

    bool operator==(const EditorColumn&) const = default;
};

struct FrameBox {
    std::string_view control, label;
    std::string_view emptyMessage;  ///< what a save says when the box is empty
    std::string_view tip;
    Quantity quantity = Quantity::Plain;  ///< as in EditorColumn
};
struct EditorFrame {
    std::string_view control, caption;
    std::vector<FrameBox> boxes = {};
};

/// How a new row starts from the row above it.
struct FillInRule {
    std::vector<std::pair<int, int>> carried =
        {};                      ///< column of the row above -> column of the new row; none: no fill-in
    bool computesStart = false;  ///< the end of the block above becomes columns 3, 4, 5

    bool operator==(const FillInRule&) const = default;
};

struct EditorTable {
    std::string_view stem = {};     ///< Sqx for frmSqx, MsfgSqx, txtSqxInput, cmdSqxSave
    std::string_view caption = {};  ///< of the window
    std::string_view file = {};     ///< within the project's folder
    std::vector<EditorColumn> columns = {};
    int required = 0;                     ///< a row with any text must have columns 1 to this one filled on saving
    std::vector<int> addRowChecked = {};  ///< columns that must be filled above the last row before a click adds a row
    std::vector<int> incompleteChecked = {};  ///< an empty one of these above the clicked row draws the entry back
    std::vector<EditorFrame> frames = {};     ///< none, or the boxes of the file's first line and those of its last
    std::string_view noRowMessage = {};       ///< what a save says when row 1 is not filled; "": it may be blank
    FillInRule fillIn = {};
    int fields = 0;             ///< fields of a line, behind the columns the character 0; 0: the columns alone
    bool canBlank = false;      ///< leaving an emptied box empties the cell
    bool hasInsert = true;      ///< the button that inserts a row
    bool enterMoves = true;     ///< the window previews keys: Enter walks through the cells
    bool scrollHides = false;   ///< scrolling the grid hides the in-cell box
    bool scales = false;        ///< the window's controls stretch with it
    bool loadsProject = false;  ///< a save compiles the project again
    int lastColumn() const { return static_cast<int>(columns.size()) - 1; }  ///< below 1: nothing can be edited
    /// The column that decides whether a row is written: the last but one.
    int writtenBy() const { return lastColumn() - 1; }
    std::vector<FrameBox> frameBoxes() const;
};

const EditorTable& JdpqxTable();
const EditorTable& JmpqxTable();
const EditorTable& SqxTable();
const EditorTable& CgTable();
const EditorTable& CgkdTable();
const EditorTable& DxdTable();
const EditorTable& DlTable();

/// The four side-slope editors: two kinds, two sides.
struct SlopeKind {
    std::string_view stem, caption, file;
    std::string_view side;  ///< 左幅 or 右幅
    int gradeLimit;         ///< 5 grades of fill, 10 of cut
    int settingsLine;       ///< of 其他参数.txt, counted from 0, that holds the grade count
};
inline constexpr SlopeKind kTfz{"Tfz", "左幅填方参数", files::leftFill, "左幅", 5, 2};
inline constexpr SlopeKind kTfy{"Tfy", "右幅填方参数", files::rightFill, "右幅", 5, 2};
inline constexpr SlopeKind kWfz{"Wfz", "左幅挖方参数", files::leftCut, "左幅", 10, 3};
inline constexpr SlopeKind kWfy{"Wfy", "右幅挖方参数", files::rightCut, "右幅", 10, 3};

/// The table for a grade count; without columns where it is outside 1 to the kind's limit.
EditorTable SlopeTable(const SlopeKind& kind, int gradeCount);
/// The grade count that a settings line gives; 0 where it is no number from 1 to 10.
int GradeCountOf(std::string_view settingsLine);
