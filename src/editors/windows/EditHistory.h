#pragma once
// Undo and redo of an editor: whatever changes its grid after the load goes through here.

#include "base/GridText.h"

#include <QString>
#include <QUndoStack>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

class MSFlexGrid;
class QLineEdit;

/// What one undo takes back.
struct EditStep {
    struct Cell {
        int row, col;
        std::string before, after;
    };
    struct RowCount {  ///< blank rows came at the end
        int before, after;
    };
    struct Inserted {
        int row;
    };
    struct Removed {
        int row;
        std::vector<std::string> texts;  ///< from column 1 on
        std::vector<std::pair<int, KeptBytes>> kept;
    };
    struct Frame {
        std::size_t box;
        QString before, after;
    };
    using Change = std::variant<Cell, RowCount, Inserted, Removed, Frame>;

    std::vector<Change> changes = {};
    int row = 0, col = 0;  ///< the cell to be entered, as far as there is one
    int typing = -1;       ///< the visit of the box to its cell in which the cell was typed into; -1: nothing typed
};

/// A row keeps the bytes of its cells wherever it goes. Nothing is undone beyond the load; a save is no end.
class EditHistory {
public:
    /// @param restored  runs after each undo and redo: enters the cell of the step
    EditHistory(MSFlexGrid& grid, const std::vector<QLineEdit*>& frames, std::function<void(const EditStep&)> restored)
        : m_grid(grid), m_frames(frames), m_restored(std::move(restored))
    {}

    // Changes. Each is a step, and all within a Together are one. Cells that are typed into during one visit of the box
    // are one step too; what ends where it began is none.
    void setText(int row, int col, const std::string& text);
    void setRows(int rows);   ///< more than there are
    void insertRow(int row);  ///< a blank one
    void removeRow(int row);  ///< @throws RunTimeError where the last one would go
    void setFrame(std::size_t box, const QString& text);
    class Together {
    public:
        explicit Together(EditHistory& history) : m_history(history) { ++m_history.m_together; }
        Together(const Together&) = delete;
        Together& operator=(const Together&) = delete;
        ~Together() { m_history.endTogether(); }

    private:
        EditHistory& m_history;
    };

    void boxMoved() { ++m_visit; }
    void saved() { m_stack.setClean(); }
    /// The box has taken its typing back by itself, to this text: so does the cell, without being entered.
    void boxUndone(const std::string& text);
    bool restoring() const { return m_restoring; }
    QUndoStack& stack() { return m_stack; }

private:
    class Command;

    void record(EditStep::Change change);
    void push(EditStep step);
    void endTogether();
    void restore(const EditStep& step, bool forward);

    MSFlexGrid& m_grid;
    const std::vector<QLineEdit*>& m_frames;
    std::function<void(const EditStep&)> m_restored;
    QUndoStack m_stack;
    EditStep m_open;
    int m_together = 0;
    int m_visit = 0;
    bool m_restoring = false;
    bool m_quiet = false;
};
