#include "screens/Export.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "office/Xls.h"
#include "project/Workspace.h"
#include "screens/Messages.h"
#include "tables/CalcTables.h"

#include <stdexcept>
#include <utility>

std::string StationText(const std::string& pick) { return pick + " " + NumText(gStationX) + "," + NumText(gStationY); }

namespace {

/// Title, headers, borders, widths and formats of a table of n rows.
Worksheet emptySheet(const ExportLayout& layout, int n)
{
    const int last = static_cast<int>(layout.columns.size()), bottom = n + 2;
    Worksheet sheet;
    sheet.page.landscape = sheet.page.fitToWidth = sheet.page.pageNumbers = true;
    sheet.page.titleRows = 2;
    sheet.center({1, 1, 1, last});
    sheet.merge({1, 1, 1, last});

    const CellRange table(2, 1, bottom, last);
    sheet.center(table);
    const auto draw = [&](int from, int to, int lineStyle, int weight = xlThin) {
        for (int i = from; i <= to; ++i) sheet.borders(table, i, lineStyle, weight);
    };
    draw(xlDiagonalDown, xlDiagonalUp, xlNone);
    draw(xlEdgeLeft, xlEdgeRight, xlContinuous, xlMedium);
    draw(xlInsideVertical, xlInsideHorizontal, xlContinuous, xlThin);

    for (int col = 1; col <= last; ++col) {
        const ExportColumn& column = layout.columns[static_cast<std::size_t>(col - 1)];
        sheet.setColumnWidth({1, col, 1, col}, column.width);
        sheet.setText({2, col}, std::string(column.header));
    }
    sheet.setText("A1", gProject);
    sheet.setNumberFormat({1, 1, bottom, layout.textColumns}, "@");
    return sheet;
}

Worksheet filledSheet(const ExportLayout& layout, const ExportData& data)
{
    Worksheet sheet = emptySheet(layout, data.rows);
    const std::string station = StationText(data.stationPick);
    for (int r = 1; r <= data.rows; ++r) {
        if (r >= data.grid.rows()) throw RunTimeError(RunTimeError::Subscript);
        const std::string own = data.own ? data.own(r) : std::string();
        int col = 0;
        for (const auto& column : layout.columns) {
            const std::string& text = column.source == kStationColumn ? station
                                      : column.source == kOwnColumn   ? own
                                                                      : data.grid.text(r, column.source);
            sheet.setValue({r + 2, ++col}, text);
        }
    }
    return sheet;
}

}  // namespace

Worksheet ResultSheet(const ExportLayout& layout, const ExportData& data)
{
    toInt16(data.rows + 2);
    try {
        return filledSheet(layout, data);
    } catch (const std::length_error&) {  // a text that no cell holds
        throw RunTimeError(RunTimeError::Overflow);
    }
}

std::string ProposedName(const std::string& caption, std::string_view extension)
{
    constexpr std::size_t kLongest = 200;  // bytes: file systems take 255
    std::string name(Trim(gProject));
    name += (name.empty() ? "" : " ") + caption;
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
            c = '_';
    if (name.size() > kLongest) {
        name.resize(kLongest);
        while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0) == 0x80) name.pop_back();
        if (!name.empty()) name.pop_back();  // the first byte of a character that was cut
    }
    return name.append(".").append(extension);
}

namespace {

bool say(std::string_view text, std::string_view title, Icon icon, Msg::Buttons buttons = Msg::Ok,
         Msg::Default preset = Msg::Yes)
{
    return dialogs().box({std::string(text), std::string(title), icon, buttons, preset});
}

}  // namespace

void SaveResult(const ExportLayout& layout, const ExportData& data, ScreenState* state,
                const std::function<void(bool)>& showWait)
{
    if (layout.needsRows && data.rows == 0) {
        say(message::kNothingToSave, message::kNotice, Icon::Exclamation);
        return;
    }
    const auto path = dialogs().saveFileAs("(*.xls)|*.xls", ProposedName(data.caption, "xls"));
    if (!path) return;
    if ((FileExists(*path) || FolderExists(*path)) &&
        !say(message::kOverwrite, message::kNotice, Icon::Question, Msg::YesNo, Msg::No))
        return;

    showWait(true);
    std::string bytes;
    // Kept on purpose: where the sheet fails nothing is said, and the wait box stays until the window closes.
    if (!attempt([&] { bytes = XlsBytes(ResultSheet(layout, data)); })) return;
    std::string failure;
    try {
        WriteResult(*path, bytes);
    } catch (const FileError& error) {
        failure = error.reason();
    }
    showWait(false);
    if (!failure.empty()) {
        say("无法保存文件：\n" + *path + "\n" + failure, message::kError, Icon::Critical);
        return;
    }
    say(message::kSaved, message::kSuccess, Icon::Information);
    if (state) state->changed = false;
}

bool AskToSave() { return say(message::kSaveChanges, message::kNotice, Icon::Question, Msg::YesNo); }
