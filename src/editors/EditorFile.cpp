#include "editors/EditorFile.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "dialogs/Messages.h"
#include "editors/EditorRules.h"
#include "project/Backups.h"
#include "project/Workspace.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view kLineEnd = "\r\n";

struct Field {
    std::string text;
    std::optional<std::string> bytes;  ///< where the code page does not know them
};

std::vector<Field> fieldsOf(const std::string& line)
{
    std::vector<Field> fields;
    for (std::string& bytes : SplitFields(line)) {
        Field field{Utf8FromCp936(bytes), {}};
        std::string back;
        if (!attempt([&] { back = Cp936FromUtf8(field.text); }) || back != bytes) field.bytes = std::move(bytes);
        fields.push_back(std::move(field));
    }
    return fields;
}

/// A cell that was merely entered and left has lost the blanks around its text, and so do its bytes.
std::string bytesOf(std::string_view text, const KeptBytes* kept)
{
    if (kept && text == kept->shown) return kept->bytes;
    if (kept && text == Trim(kept->shown)) return std::string(Trim(kept->bytes));
    return Cp936FromUtf8(text);
}

/// What a cell gives to its line: a line end in it cuts it off.
std::string_view upToLineEnd(const std::string& cell)
{
    return std::string_view(cell).substr(0, std::string_view(cell).find(kLineEnd));
}

bool empty(const GridText& cells, int row, int col) { return cells.text(row, col).empty(); }

/// The first row with text whose required columns are not all filled.
bool someRowIncomplete(const EditorTable& table, const GridText& cells)
{
    for (int row = 1; row < cells.rows(); ++row) {
        bool any = false, all = true;
        for (int col = 1; col <= table.lastColumn(); ++col) {
            any = any || !empty(cells, row, col);
            all = all && (col > table.required || !empty(cells, row, col));
        }
        if (any && !all) return true;
    }
    return false;
}

bool inCodePage(std::string_view text, const KeptBytes* kept)
{
    return attempt([&] { bytesOf(text, kept); });
}

const KeptBytes* keptOf(const std::vector<KeptBytes>& frames, std::size_t box)
{
    return box < frames.size() && !frames[box].bytes.empty() ? &frames[box] : nullptr;
}

Outcome refusal(std::string text, std::string_view field = {}) { return {Refusal{Notice(text), std::string(field)}}; }

/// A text that the file cannot hold is named before anything is touched.
Outcome checkCodePage(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts,
                      const std::vector<KeptBytes>& keptFrames)
{
    const auto boxes = table.frameBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!inCodePage(frameTexts[i], keptOf(keptFrames, i)))
            return refusal("“" + std::string(boxes[i].label) + "”中有文件不能保存的字符！", boxes[i].control);
    for (int row = 1; row < cells.rows(); ++row)
        for (int col = 1; col <= table.lastColumn(); ++col)
            if (!inCodePage(upToLineEnd(cells.text(row, col)), cells.keptBytes(row, col)))
                return refusal("第 " + std::to_string(row) + " 行“" +
                               table.columns[static_cast<std::size_t>(col)].header + "”中有文件不能保存的字符！");
    return {};
}

}  // namespace

EditorContent EditorContentOf(const EditorTable& table, std::string_view bytes)
{
    EditorContent content;
    const auto boxes = table.frameBoxes();
    content.frameTexts.resize(boxes.size());
    content.keptFrames.resize(boxes.size());
    const std::vector<std::string> lines = SplitLines(bytes);
    const std::ptrdiff_t last = LastCommaLine(lines);
    if (last >= 0) {
        std::ptrdiff_t first = 0, end = last + 1;
        if (!table.frames.empty()) {
            std::size_t box = 0;
            for (const auto& [frame, line] :
                 {std::pair{&table.frames.front(), std::ptrdiff_t{0}}, std::pair{&table.frames.back(), last}}) {
                auto fields = fieldsOf(at(lines, line));
                for (std::size_t i = 0; i < frame->boxes.size(); ++i, ++box) {
                    if (i >= fields.size()) continue;
                    content.frameTexts[box] = fields[i].text;
                    if (fields[i].bytes) content.keptFrames[box] = {fields[i].text, *fields[i].bytes};
                }
            }
            first = 1;
            end = last;
        }
        const auto columns = static_cast<std::size_t>(std::max(0, table.lastColumn()));
        for (std::ptrdiff_t i = first; i < end; ++i) {
            auto fields = fieldsOf(at(lines, i));
            fields.resize(columns);
            auto& row = content.rows.emplace_back();
            for (Field& field : fields) {
                row.push_back(std::move(field.text));
                if (field.bytes)
                    content.keptCells.push_back(
                        {static_cast<int>(content.rows.size()), static_cast<int>(row.size()), std::move(*field.bytes)});
            }
        }
    }
    if (content.rows.empty()) content.rows.emplace_back(static_cast<std::size_t>(std::max(0, table.lastColumn())));
    return content;
}

std::string EditorFileBytes(const EditorTable& table)
{
    const std::string path = ParameterFile(table.file);
    return FileExists(path) ? ReadBytes(path) : std::string();
}

EditorContent LoadEditor(const EditorTable& table) { return EditorContentOf(table, EditorFileBytes(table)); }

Outcome CheckEditor(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts)
{
    const auto boxes = table.frameBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (Trim(frameTexts[i]).empty()) return refusal(std::string(boxes[i].emptyMessage), boxes[i].control);
    if (someRowIncomplete(table, cells)) return refusal("请输入完整的数据！");
    if (!table.noRowMessage.empty()) {
        for (int col = 1; col <= table.lastColumn(); ++col)
            if (empty(cells, 1, col)) return refusal(std::string(table.noRowMessage));
    }
    return {};
}

std::string EditorBytes(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts,
                        const std::vector<KeptBytes>& keptFrames)
{
    std::string file;
    std::size_t box = 0;
    const auto addFrame = [&](const EditorFrame& frame) {
        for (std::size_t i = 0; i < frame.boxes.size(); ++i, ++box)
            file.append(i == 0 ? "" : ",").append(bytesOf(Trim(frameTexts[box]), keptOf(keptFrames, box)));
        file += kLineEnd;
    };
    if (!table.frames.empty()) addFrame(table.frames.front());
    for (int row = 1; row < cells.rows(); ++row) {
        if (empty(cells, row, table.writtenBy())) continue;
        for (int col = 1; col <= table.lastColumn(); ++col)
            file.append(col == 1 ? "" : ",")
                .append(bytesOf(upToLineEnd(cells.text(row, col)), cells.keptBytes(row, col)));
        for (int field = table.lastColumn(); field < table.fields; ++field) file += ",0";
        file += kLineEnd;
    }
    if (!table.frames.empty()) addFrame(table.frames.back());
    return file;
}

Outcome SaveEditor(const EditorTable& table, const GridText& cells, const std::vector<std::string>& frameTexts,
                   const std::vector<KeptBytes>& keptFrames)
{
    if (Outcome refused = CheckEditor(table, cells, frameTexts); !refused) return refused;
    if (Outcome refused = checkCodePage(table, cells, frameTexts, keptFrames); !refused) return refused;
    const std::string bytes = EditorBytes(table, cells, frameTexts, keptFrames);
    try {
        const auto before = EditorFileBytes(table);
        if (before != bytes && rowsIn(before) > 0) keepReplaced(table.file, before);
    } catch (const FileError& error) {
        notKept(table.file, error);
    }
    WriteBytes(ParameterFile(table.file), bytes);
    return {};
}
