#include "editors/EditorRules.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/TabText.h"
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

std::string place(const EditorTable& table, int row, int col)
{
    return "第 " + std::to_string(row) + " 行“" + table.columns[static_cast<std::size_t>(col)].header + "”";
}

/// What goes in for a cell of a block: its text where the column takes it, else the number that it prints.
std::optional<std::string> takenAs(const std::string& cell, KeyFilter filter, Quantity quantity)
{
    const auto accepts = KeySetOf(filter);
    const auto fits = [&](const std::string& text) {
        return !accepts || std::all_of(text.begin(), text.end(), [&](unsigned char c) { return accepts(c); });
    };
    if (fits(cell)) return cell;
    auto number = PlainNumber(cell, quantity);
    return number && fits(*number) ? number : std::nullopt;
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
    CellRows rows = RowsOfTabText(text);
    if (rows.empty()) return {{""}};
    for (auto& row : rows)
        for (std::string& cell : row) {
            for (std::size_t at = 0; (at = cell.find("\r\n", at)) != std::string::npos;) cell.erase(at, 1);
            std::replace_if(
                cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
            cell = std::string(Trim(cell));
        }
    return rows;
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
            const EditorColumn& column = table.columns[static_cast<std::size_t>(at)];
            const auto taken = takenAs(cell, column.filter, column.quantity);
            if (!taken) return refuse(place(table, row, at) + "不能填“" + cell + "”！");
            if (!taken->empty() || table.canBlank) paste.cells.push_back({row, at, *taken});
            if (!taken->empty() && *taken != cell) paste.converted.push_back({place(table, row, at), cell, *taken});
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
            if (!cell.empty()) {
                // What cannot be read goes in as it is: no box of a frame has ever refused a paste.
                paste.texts.emplace_back(box, takenAs(cell, KeyFilter::Signed, boxes[box].quantity).value_or(cell));
                if (const std::string& taken = paste.texts.back().second; taken != cell)
                    paste.converted.push_back({"“" + std::string(boxes[box].label) + "”", cell, taken});
            }
            ++box;
        }
    return paste;
}
