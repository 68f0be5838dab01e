#include "editors/EditorRules.h"

#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"

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

std::vector<std::string_view> pieces(std::string_view text, char separator)
{
    std::vector<std::string_view> all;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(separator, start);
        all.push_back(text.substr(start, end - start));
        if (end == text.npos) return all;
        start = end + 1;
    }
}

/// Rows of cells, trimmed. The line end after the last row starts no further one.
std::vector<std::vector<std::string_view>> block(std::string_view text)
{
    if (text.ends_with('\n')) text.remove_suffix(1);
    std::vector<std::vector<std::string_view>> rows;
    for (std::string_view line : pieces(text, '\n')) {
        if (line.ends_with('\r')) line.remove_suffix(1);
        rows.push_back(pieces(line, '\t'));
        for (std::string_view& cell : rows.back()) cell = Trim(cell);
    }
    return rows;
}

std::string place(const EditorTable& table, int row, int col)
{
    return "第 " + std::to_string(row) + " 行“" + table.columns[static_cast<std::size_t>(col)].header + "”";
}

}  // namespace

Msg Notice(std::string text) { return {std::move(text), "注意", Icon::Exclamation}; }

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
        result.refusal = Notice("桩号不存在，请检查断链数据！");
        result.refreshBox = false;
    }
    return result;
}

bool IsBlock(std::string_view text) { return text.find_first_of("\t\r\n") != text.npos; }

BlockPaste PlanPaste(const EditorTable& table, const GridText& cells, int row, int col, std::string_view text)
{
    BlockPaste paste{.rows = cells.rows()};
    const auto refuse = [](std::string why) {
        BlockPaste refused;
        refused.refusal = Notice("粘贴已取消：" + std::move(why));
        return refused;
    };
    for (const auto& line : block(text)) {
        if (row > kMaxRow) return refuse("超过了 " + std::to_string(kMaxRow) + " 行！");
        int at = col;
        for (const std::string_view cell : line) {
            if (at > table.lastColumn()) {
                if (!cell.empty())
                    return refuse("第 " + std::to_string(row) + " 行的“" + std::string(cell) + "”超出了最后一列！");
                continue;
            }
            const auto accepts = KeySetOf(table.columns[static_cast<std::size_t>(at)].filter);
            if (accepts && !std::all_of(cell.begin(), cell.end(), [&](unsigned char c) { return accepts(c); }))
                return refuse(place(table, row, at) + "不能填“" + std::string(cell) + "”！");
            if (!cell.empty() || table.canBlank) paste.cells.push_back({row, at, std::string(cell)});
            ++at;
        }
        ++row;
    }
    paste.rows = std::max(paste.rows, row);
    return paste;
}
