#pragma once
// Where a text of a project's file is edited: the wizard's option, and the cell or the box of its editor.

#include "editors/EditorTable.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// A place in a project's files as a person is told it: lines, as CR LF ends them, and fields count from 1; 0 means the
/// whole file and the whole line.
struct TextPlace {
    std::string file;
    int line = 0, field = 0;
};

/// The option of the wizard that leads to the place, an index of kWizardOptions; nothing where no window edits it. Of
/// 其他参数.txt these are the lines of frmBpjs, and the first two as long as nobody has chosen there.
std::optional<int> OptionOf(const TextPlace& place);

/// A cell of the grid, or a box above it.
struct EditorPlace {
    int row = 0, col = 0;      ///< row 0: none
    std::size_t frameBox = 0;  ///< of table.frameBoxes(), where there is no row

    bool operator==(const EditorPlace&) const = default;
};
/// Where an editor of this table shows the line and field of a file with these bytes; a field beyond its columns is its
/// last one. Nothing where it shows no such line.
std::optional<EditorPlace> PlaceInEditor(const EditorTable& table, std::string_view bytes, int line, int field);
