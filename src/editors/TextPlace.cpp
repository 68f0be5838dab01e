#include "editors/TextPlace.h"

#include "base/Lines.h"
#include "base/RunTimeError.h"
#include "editors/Wizard.h"

#include <algorithm>

namespace {

struct EditedFile {
    std::string_view file;
    int option;
};
constexpr EditedFile kEdited[] = {{files::traverse, 0},       {files::horizontal, 1}, {files::vertical, 2},
                                  {files::superelevation, 3}, {files::widths, 4},     {files::breaks, 5},
                                  {files::leftFill, 7},       {files::rightFill, 8},  {files::leftCut, 9},
                                  {files::rightCut, 10}};
constexpr int kModel = 1, kForm = 3, kSlopes = 6;  // the options of the settings' lines

/// True while the option still asks for the choice that the line holds.
bool stillAsks(int option, std::string_view form)
{
    bool asks = false;
    attempt([&] { asks = NextStep(option).form == form; });
    return asks;
}

}  // namespace

std::optional<int> OptionOf(const TextPlace& place)
{
    for (const auto& [file, option] : kEdited)
        if (place.file == file) return option;
    if (place.file != files::settings) return {};
    if (place.line == 1 && stillAsks(kModel, "frmPqxSelect")) return kModel;
    if (place.line == 2 && stillAsks(kForm, "frmSelectCg")) return kForm;
    if (place.line >= 3 && place.line <= 5) return kSlopes;
    return {};
}

std::optional<EditorPlace> PlaceInEditor(const EditorTable& table, std::string_view bytes, int line, int field)
{
    const auto last = LastCommaLine(SplitLines(bytes)) + 1;
    if (line < 1 || line > last || table.lastColumn() < 1) return {};
    const int at = std::max(field, 1);
    if (table.frames.empty()) return EditorPlace{.row = line, .col = std::min(at, table.lastColumn())};
    const std::size_t ofFirst = table.frames.front().boxes.size(), ofLast = table.frames.back().boxes.size();
    const auto box = static_cast<std::size_t>(at - 1);
    if (line == 1) return EditorPlace{.frameBox = std::min(box, ofFirst - 1)};
    if (line == last) return EditorPlace{.frameBox = ofFirst + std::min(box, ofLast - 1)};
    return EditorPlace{.row = line - 1, .col = std::min(at, table.lastColumn())};
}
