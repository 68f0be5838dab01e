#include "editors/windows/EditHistory.h"

#include "ui/MSFlexGrid.h"

#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>
#include <tuple>

namespace {

constexpr int kTyped = 1;  // the kind of command that can grow

template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

EditStep::Removed rowOf(const GridText& cells, int row)
{
    EditStep::Removed removed{row, {}, {}};
    for (int col = 1; col < cells.cols(); ++col) {
        removed.texts.push_back(cells.text(row, col));
        if (const auto* kept = cells.keptBytes(row, col)) removed.kept.emplace_back(col, *kept);
    }
    return removed;
}

void writeText(MSFlexGrid& grid, int row, int col, const std::string& text)
{
    grid.setTextMatrix(row, col, QString::fromStdString(text));
}

void bringBack(MSFlexGrid& grid, const EditStep::Removed& removed)
{
    grid.AddItem({}, removed.row);
    for (const auto& [col, kept] : removed.kept) {  // bytes belong to the text that the cell has at that moment
        writeText(grid, removed.row, col, kept.shown);
        grid.keepBytes(removed.row, col, kept.bytes);
    }
    for (std::size_t i = 0; i < removed.texts.size(); ++i)
        writeText(grid, removed.row, static_cast<int>(i) + 1, removed.texts[i]);
}

/// A box into which something else was typed since keeps that.
void swap(QLineEdit& box, const QString& from, const QString& to)
{
    if (box.text() == from) box.setText(to);
}

void apply(MSFlexGrid& grid, const std::vector<QLineEdit*>& frames, const EditStep::Change& change, bool forward)
{
    std::visit(Overloaded{[&](const EditStep::Cell& c) { writeText(grid, c.row, c.col, forward ? c.after : c.before); },
                          [&](const EditStep::RowCount& c) { grid.setRows(forward ? c.after : c.before); },
                          [&](const EditStep::Inserted& c) {
                              if (forward)
                                  grid.AddItem({}, c.row);
                              else
                                  grid.RemoveItem(c.row);
                          },
                          [&](const EditStep::Removed& c) {
                              if (forward)
                                  grid.RemoveItem(c.row);
                              else
                                  bringBack(grid, c);
                          },
                          [&](const EditStep::Frame& c) {
                              swap(*frames.at(c.box), forward ? c.before : c.after, forward ? c.after : c.before);
                          }},
               change);
}

}  // namespace

class EditHistory::Command : public QUndoCommand {
public:
    Command(EditHistory& history, EditStep step) : m_history(history), m_step(std::move(step)) {}
    const EditStep& step() const { return m_step; }

    void undo() override { m_history.restore(m_step, false); }
    void redo() override
    {
        if (m_done) m_history.restore(m_step, true);
        m_done = true;  // the first time it has just been done
    }
    int id() const override { return m_step.typing < 0 ? -1 : kTyped; }
    bool mergeWith(const QUndoCommand* other) override
    {
        const EditStep& next = static_cast<const Command*>(other)->m_step;
        if (next.typing != m_step.typing || next.row != m_step.row || next.col != m_step.col) return false;
        auto& cell = std::get<EditStep::Cell>(m_step.changes.front());
        cell.after = std::get<EditStep::Cell>(next.changes.front()).after;
        setObsolete(cell.after == cell.before);
        return true;
    }

private:
    EditHistory& m_history;
    EditStep m_step;
    bool m_done = false;
};

void EditHistory::setText(int row, int col, const std::string& text)
{
    const std::string before = m_grid.text().text(row, col);
    if (before == text) return;
    writeText(m_grid, row, col, text);
    record(EditStep::Cell{row, col, before, text});
}

void EditHistory::setRows(int rows)
{
    const int before = m_grid.Rows();
    m_grid.setRows(rows);
    m_grid.renumber();
    record(EditStep::RowCount{before, rows});
}

void EditHistory::insertRow(int row)
{
    m_grid.AddItem({}, row);
    record(EditStep::Inserted{row});
}

void EditHistory::removeRow(int row)
{
    EditStep::Removed removed = rowOf(m_grid.text(), row);
    m_grid.RemoveItem(row);
    record(std::move(removed));
}

void EditHistory::setFrame(std::size_t box, const QString& text)
{
    QLineEdit& field = *m_frames.at(box);
    const QString before = field.text();
    field.setText(text);
    if (before != text) record(EditStep::Frame{box, before, text});
}

void EditHistory::record(EditStep::Change change)
{
    if (m_together > 0) return m_open.changes.push_back(std::move(change));
    EditStep step{.changes = {std::move(change)}};
    if (std::holds_alternative<EditStep::Cell>(step.changes.front())) step.typing = m_visit;
    push(std::move(step));
}

void EditHistory::endTogether()
{
    if (--m_together > 0 || m_open.changes.empty()) return;
    push(std::exchange(m_open, {}));
}

/// The first cell that changed; without one the row that came or went, in the column where the grid stands.
void EditHistory::push(EditStep step)
{
    const std::pair<int, int> none{0, 0};
    const auto place = [&](const EditStep::Change& change) {
        return std::visit(Overloaded{[](const EditStep::Cell& c) {
                                         return std::pair{c.row, c.col};
                                     },
                                     [](const EditStep::RowCount& c) {
                                         return std::pair{c.before, 1};
                                     },
                                     [&](const EditStep::Frame&) { return none; },
                                     [&](const auto& c) {
                                         return std::pair{c.row, std::max(1, m_grid.Col())};
                                     }},
                          change);
    };
    const auto cell = std::find_if(step.changes.begin(), step.changes.end(), [](const EditStep::Change& change) {
        return std::holds_alternative<EditStep::Cell>(change);
    });
    std::tie(step.row, step.col) = place(cell != step.changes.end() ? *cell : step.changes.front());
    m_stack.push(new Command(*this, std::move(step)));
}

void EditHistory::restore(const EditStep& step, bool forward)
{
    const QScopedValueRollback<bool> restoring(m_restoring, true);
    if (forward)
        for (const auto& change : step.changes) apply(m_grid, m_frames, change, true);
    else
        std::for_each(step.changes.rbegin(), step.changes.rend(),
                      [&](const EditStep::Change& change) { apply(m_grid, m_frames, change, false); });
    m_grid.renumber();
    if (!m_quiet) m_restored(step);
}

void EditHistory::boxUndone(const std::string& text)
{
    if (!m_stack.canUndo()) return;
    const EditStep& last = static_cast<const Command*>(m_stack.command(m_stack.index() - 1))->step();
    if (last.typing != m_visit || std::get<EditStep::Cell>(last.changes.front()).before != text) return;
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    m_stack.undo();
}
