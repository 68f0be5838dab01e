#include "editors/EditorRules.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "dialogs/Messages.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "tables/CalcTables.h"

#include <algorithm>

namespace {

/// Cells of the grid with what has been written over them so far.
class Overlay {
public:
    Overlay(const GridText& cells, std::vector<CellText>& written) : m_cells(cells), m_written(written) {}
    const std::string& text(int row, int col) const
    {
        const auto hit = std::find_if(m_written.rbegin(), m_written.rend(),
                                      [&](const CellText& c) { return c.row == row && c.col == col; });
        return hit != m_written.rend() ? hit->text : m_cells.text(row, col);
    }
    double number(int row, int col) const { return ParseNumber(text(row, col)); }
    void write(int row, int col, std::string text) { m_written.push_back({row, col, std::move(text)}); }
    bool filled(int row, int lastColumn) const
    {
        for (int col = 1; col <= lastColumn; ++col)
            if (text(row, col).empty()) return false;
        return true;
    }

private:
    const GridText& m_cells;
    std::vector<CellText>& m_written;
};

/// The end of block `block` becomes the start of the row below it. False: a stake lies in a chainage gap.
bool startFromBlock(Overlay& cells, int block, bool continuousStakes)
{
    double a = cells.number(block, 1), b = cells.number(block, 2);
    if (continuousStakes)
        for (double* stake : {&a, &b}) {
            const auto resolved = ResolveStake(*stake, kBlockEditor);
            if (!resolved) return false;
            *stake = *resolved;
        }
    const ElementPoint end = ForwardElement(b - a, cells.number(block, 6), cells.number(block, 7),
                                            cells.number(block, 5), cells.number(block, 3), cells.number(block, 4));
    cells.write(block + 1, 3, NumText(end.x));
    cells.write(block + 1, 4, NumText(end.y));
    cells.write(block + 1, 5, NumText(end.fwj));
    return true;
}

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

/// Takes what stands before the first of `ends` off the front.
std::string_view takeUpTo(std::string_view& text, std::string_view ends)
{
    const std::string_view taken = text.substr(0, text.find_first_of(ends));
    text.remove_prefix(taken.size());
    return taken;
}

/// Takes a line end off the front; false where none stands there.
bool takeLineEnd(std::string_view& text)
{
    if (text.empty() || !isLineEnd(text.front())) return false;
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    return true;
}

/// Takes a quoted cell off the front: one with a tab or a line end in it, as a spreadsheet hands it over. Each of them
/// becomes a blank. Nothing where the quotes are part of the text.
std::optional<std::string> takeQuoted(std::string_view& text)
{
    std::string_view rest = text;
    if (!rest.starts_with('"')) return std::nullopt;
    rest.remove_prefix(1);
    std::string cell;
    bool needsQuotes = false;
    while (!rest.empty() && (!rest.starts_with('"') || rest.starts_with("\"\""))) {
        const char c = rest.front();
        if (takeLineEnd(rest)) {
            cell += ' ';
            needsQuotes = true;
            continue;
        }
        needsQuotes = needsQuotes || c == '\t';
        cell += c == '\t' ? ' ' : c;
        rest.remove_prefix(c == '"' ? 2 : 1);
    }
    if (!needsQuotes || rest.empty()) return std::nullopt;
    rest.remove_prefix(1);
    if (!rest.empty() && rest.front() != '\t' && !isLineEnd(rest.front())) return std::nullopt;
    text = rest;
    return cell;
}

std::string place(const EditorTable& table, int row, int col)
{
    return "第 " + std::to_string(row) + " 行“" + table.columns[static_cast<std::size_t>(col)].header + "”";
}

Msg pasteRefused(const std::string& why) { return Notice("粘贴已取消：" + why); }

}  // namespace

bool (*KeySetOf(KeyFilter filter))(int)
{
    switch (filter) {
    case KeyFilter::Signed:
        return IsSignedDecimalKey;
    case KeyFilter::Unsigned:
        return IsUnsignedDecimalKey;
    case KeyFilter::Any:
        break;
    }
    return nullptr;
}

bool Filled(const GridText& cells, int row, const std::vector<int>& columns)
{
    return std::none_of(columns.begin(), columns.end(), [&](int col) { return cells.text(row, col).empty(); });
}

MouseRule MouseRuleAt(const EditorTable& table, const GridText& cells, int row)
{
    if (row + 1 == cells.rows() && Filled(cells, cells.rows() - 2, table.addRowChecked)) return MouseRule::AddRow;
    return Filled(cells, row - 1, table.incompleteChecked) ? MouseRule::None : MouseRule::BackToIncomplete;
}

FillIn FillInRow(const EditorTable& table, const GridText& grid, int row, MouseRule branch)
{
    FillIn result;
    if (table.fillIn.carried.empty() || row < 2 || !grid.text(row, 1).empty()) return result;

    Overlay cells(grid, result.cells);
    for (const auto& [from, to] : table.fillIn.carried) cells.write(row, to, cells.text(row - 1, from));
    result.refreshBox = true;
    if (!table.fillIn.computesStart) return result;

    // Kept on purpose: back in an incomplete row its own stakes are taken as typed, and the row below is written.
    const bool added = branch == MouseRule::AddRow;
    const int source = added ? row - 1 : row;
    if (!cells.filled(source, table.lastColumn())) return result;
    bool inGap = false;
    attempt([&] { inGap = !startFromBlock(cells, source, added); });  // a text that is no number: nothing to compute
    if (inGap) {
        result.refusal = Notice(kStakeInGap);
        result.refreshBox = false;
    }
    return result;
}

bool IsBlock(std::string_view text) { return text.find_first_of("\t\r\n") != text.npos; }

std::vector<std::vector<std::string>> BlockCells(std::string_view text)
{
    std::vector<std::vector<std::string>> rows(1);
    for (;;) {
        std::optional<std::string> quoted = takeQuoted(text);
        rows.back().emplace_back(Trim(quoted ? std::string_view(*quoted) : takeUpTo(text, "\t\r\n")));
        if (takeLineEnd(text)) {
            if (text.empty()) return rows;
            rows.emplace_back();
        } else if (text.empty()) {
            return rows;
        } else {
            text.remove_prefix(1);  // the tab
        }
    }
}

BlockPaste PlanPaste(const EditorTable& table, const GridText& cells, int row, int col, std::string_view text)
{
    BlockPaste paste{.rows = cells.rows()};
    const auto refuse = [](const std::string& why) { return BlockPaste{.refusal = pasteRefused(why)}; };
    for (const auto& line : BlockCells(text)) {
        if (row > kMaxRow) return refuse("超过了 " + std::to_string(kMaxRow) + " 行！");
        int at = col;
        for (const std::string& cell : line) {
            if (at > table.lastColumn()) {
                if (!cell.empty()) return refuse("第 " + std::to_string(row) + " 行的“" + cell + "”超出了最后一列！");
                continue;
            }
            const auto accepts = KeySetOf(table.columns[static_cast<std::size_t>(at)].filter);
            if (accepts && !std::all_of(cell.begin(), cell.end(), [&](unsigned char c) { return accepts(c); }))
                return refuse(place(table, row, at) + "不能填“" + cell + "”！");
            if (!cell.empty() || table.canBlank) paste.cells.push_back({row, at, cell});
            ++at;
        }
        ++row;
    }
    paste.rows = std::max(paste.rows, row);
    return paste;
}

FramePaste PlanFramePaste(const EditorTable& table, std::size_t box, std::string_view text)
{
    const auto boxes = table.frameBoxes();
    FramePaste paste;
    for (const auto& line : BlockCells(text))
        for (const std::string& cell : line) {
            if (!cell.empty() && box >= boxes.size())
                return {.refusal = pasteRefused("“" + cell + "”超出了最后一个输入框“" +
                                                std::string(boxes.back().label) + "”！")};
            if (!cell.empty()) paste.texts.emplace_back(box, cell);
            ++box;
        }
    return paste;
}
