// Comfort that changes no rule: the box over its cell, and the keys to which the pattern gives no meaning.

#include "editors/windows/EditorForm.h"
#include "ui/MSFlexGrid.h"
#include "ui/Twips.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int kInset = 45;  // twips from a cell's place to the box over it

constexpr auto kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
constexpr QKeyCombination kUndoKey(Qt::ControlModifier, Qt::Key_Z), kRedoKey(Qt::ControlModifier, Qt::Key_Y),
    kOtherRedoKey(kCtrlShift, Qt::Key_Z), kCopyAllKey(kCtrlShift, Qt::Key_C), kSaveKey(Qt::ControlModifier, Qt::Key_S);

/// A character that is typed: no command, no key of the grid.
bool types(const QKeyEvent& key)
{
    return !key.text().isEmpty() && key.text().front().isPrint() &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

bool isMove(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

/// The box over its cell; what would lie outside the grid's cells is not shown.
void EditorForm::placeBox()
{
    if (!boxHasCell()) return;
    const QPoint at(twipsToPixels(m_grid->ColPos(CurCol) + pixelsToTwips(m_grid->x(), *this) + kInset, *this),
                    twipsToPixels(m_grid->RowPos(CurRow) + pixelsToTwips(m_grid->y(), *this) + kInset, *this));
    m_box->setGeometry({at, m_grid->cellRect(CurRow, CurCol).size()});
    const QRect cells = m_grid->viewport()->geometry().translated(m_grid->pos()).translated(-at);
    const QRect seen = cells & m_box->rect();
    if (seen == m_box->rect())
        m_box->clearMask();
    else
        m_box->setMask(seen.isEmpty() ? QRect(-1, -1, 1, 1) : seen);
}

bool EditorForm::boxNeeds(const QKeyEvent& key) const
{
    if (m_box->selectedText() == m_box->text()) return false;
    if (key.key() == Qt::Key_Left) return m_box->hasSelectedText() || m_box->cursorPosition() > 0;
    if (key.key() == Qt::Key_Right) return m_box->hasSelectedText() || m_box->cursorPosition() < m_box->text().size();
    return false;
}

/// What a key without a place of its own is meant for: the box's cell, and without a box the grid's.
EditorForm::CellPlace EditorForm::activeCell() const
{
    if (m_box->isVisible() && boxHasCell()) return {CurRow, CurCol};
    return {m_grid->Row(), m_grid->Col()};
}

std::function<bool(int)> EditorForm::keysOf(int col) const
{
    const auto accepts = KeySetOf(m_table.columns.at(static_cast<std::size_t>(col)).filter);
    return [accepts](int keyAscii) { return !accepts || accepts(keyAscii); };
}

bool EditorForm::commandKey(const QKeyCombination& key)
{
    if (key == QKeyCombination(Qt::Key_F2)) return amendCell();
    if (key == kUndoKey) return stepBack(true);
    if (key == kRedoKey || key == kOtherRedoKey) return stepBack(false);
    if (key == kCopyAllKey)
        copyAll();
    else if (key == kSaveKey)
        cmdSave_Click();
    else
        return false;
    return true;
}

/// A held Ctrl+Z would else be the box's alone, which knows nothing of the steps.
bool EditorForm::commandRepeats(const QKeyCombination& key) const
{
    return key == kUndoKey || key == kRedoKey || key == kOtherRedoKey;
}

/// What is being typed into a box is taken back before any step. False where there is nothing to do.
bool EditorForm::stepBack(bool back)
{
    auto* typing = qobject_cast<QLineEdit*>(focusWidget());
    if (typing && (back ? typing->isUndoAvailable() : typing->isRedoAvailable())) {
        if (back)
            typing->undo();
        else
            typing->redo();
        if (back && typing == m_box) m_history->boxUndone(boxText());
        return true;
    }
    QUndoStack& stack = m_history->stack();
    if (!(back ? stack.canUndo() : stack.canRedo())) return false;
    if (back)
        stack.undo();
    else
        stack.redo();
    return true;
}

/// Enters the cell of a step that was undone or done again, as a click does without the rules of the left button.
void EditorForm::enterChanged(const EditStep& step)
{
    Edited = true;
    if (step.row < 1) {
        auto* box = m_frameBoxes.at(std::get<EditStep::Frame>(step.changes.front()).box);
        box->setFocus();
        box->selectAll();
        return;
    }
    const int row = std::min(step.row, m_grid->Rows() - 1);
    m_grid->setRow(row);
    m_grid->setCol(step.col);
    takeCell(row, step.col);  // before anything scrolls: the box shows what the cell says now
    enterCell(row, step.col);
}

/// A character typed on a cell of the grid opens the box with it. One that the column refuses opens nothing.
void EditorForm::typeIntoCell(QKeyEvent& key)
{
    const auto [row, col] = activeCell();
    if (m_table.lastColumn() < 1) return;
    if (const auto keep = keysOf(col); !keep(key.text().front().unicode()))
        showAllowed(m_grid, m_grid->cellRect(row, col), allowedKeys(keep));
    else if (enterCell(row, col))
        QCoreApplication::sendEvent(m_box, &key);
}

bool EditorForm::moveByKey(const QKeyEvent& key)
{
    if (!isMove(key.key()) || (key.modifiers() & ~Qt::KeypadModifier) || m_table.lastColumn() < 1) return false;
    const int page = std::max(1, m_grid->viewport()->height() / std::max(1, m_grid->cellRect(1, 1).height()) - 1);
    auto [row, col] = activeCell();
    switch (key.key()) {
    case Qt::Key_Up:
        row -= 1;
        break;
    case Qt::Key_Down:
        row += 1;
        break;
    case Qt::Key_PageUp:
        row -= page;
        break;
    case Qt::Key_PageDown:
        row += page;
        break;
    case Qt::Key_Left:
        col -= 1;
        break;
    default:
        col += 1;
    }
    row = std::clamp(row, 1, std::min(m_grid->Rows() - 1, kMaxRow));
    col = std::clamp(col, 1, m_table.lastColumn());
    CommitCell();
    m_grid->setRow(row);
    m_grid->setCol(col);
    enterCell(row, col);
    return true;
}

bool EditorForm::eventFilter(QObject* watched, QEvent* event)
{
    const auto frame = std::find(m_frameBoxes.begin(), m_frameBoxes.end(), watched);
    if (watched == m_box || watched == m_grid || frame != m_frameBoxes.end())
        if (pasteEvent(watched, event)) return true;
    if (frame != m_frameBoxes.end() && event->type() == QEvent::ContextMenu) {
        showFrameMenu(**frame, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (watched == m_box || watched == m_grid) {
        switch (event->type()) {
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (watched == m_box && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                CommitCell();
            break;
        }
        case QEvent::KeyPress: {
            auto& key = *static_cast<QKeyEvent*>(event);
            if (!(watched == m_box && boxNeeds(key)) && moveByKey(key)) return true;
            if (watched == m_grid && types(key)) {
                Form::eventFilter(watched, event);
                typeIntoCell(key);
                return true;  // the view would look for a cell that begins with it
            }
            break;
        }
        case QEvent::ContextMenu:
            if (watched != m_box) break;
            showBoxMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        case QEvent::Resize:
        case QEvent::Move:
            if (watched == m_grid) placeBox();
            break;
        default:
            break;
        }
    } else if (m_grid && watched == m_grid->viewport() && event->type() == QEvent::Resize) {
        placeBox();
    }
    return Form::eventFilter(watched, event);
}
