#pragma once
// Between an editor's file and its cells: what a load puts into them, what a save checks and writes.

#include "base/GridText.h"
#include "dialogs/Outcome.h"
#include "editors/EditorTable.h"

#include <string>
#include <string_view>
#include <vector>

/// What an editor shows of its file. Texts are UTF-8. Fields whose bytes the code page does not know are shown as far
/// as they can be read, and keep their bytes as long as nobody changes them.
struct EditorContent {
    struct Kept {
        int row, col;  ///< as in the grid
        std::string bytes;
    };
    std::vector<std::vector<std::string>> rows;  ///< cells from column 1 on; one blank row at least
    std::vector<Kept> keptCells;
    std::vector<std::string> frameTexts;  ///< of the frame boxes, first line's before last line's
    std::vector<KeptBytes> keptFrames;    ///< by frame box; empty where its text says all
};

/// The content of a file with these bytes. The last line that holds a comma is the last one that counts.
EditorContent EditorContentOf(const EditorTable& table, std::string_view bytes);
/// What the table's file in the open project says now; nothing of a missing one. @throws FileError
std::string EditorFileBytes(const EditorTable& table);
/// The content of the table's file in the open project; a missing one is like an empty one. @throws FileError where it
/// is there and cannot be read
EditorContent LoadEditor(const EditorTable& table);

/// Why a save must not touch the file, in the order of the checks; nothing where it may.
Outcome CheckEditor(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts);
/// The whole file: first line, each row whose last column but one is not empty, last line.
/// @throws TypeMismatch where a text has no place in the code page
std::string EditorBytes(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts,
                        const std::vector<KeptBytes>& keptFrames = {});
/// Checks, then writes the table's file in the open project in one go. Rows that it replaces are kept before, whoever
/// wrote them. @throws FileError
Outcome SaveEditor(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts,
                   const std::vector<KeptBytes>& keptFrames = {});
