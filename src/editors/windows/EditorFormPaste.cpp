// Blocks from a spreadsheet and back, and what a right click offers.

#include "editors/windows/EditorForm.h"
#include "ui/MSFlexGrid.h"
#include "ui/frmZt.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace {

const QString kUndo = QStringLiteral("撤销"), kRedo = QStringLiteral("重做");
const QString kCopyAll = QStringLiteral("复制整表含表头");

}  // namespace

/// All rows with their header, what is being typed included.
void EditorForm::copyAll()
{
    CommitCell();
    if (const QString all = m_grid->wholeText(); !all.isEmpty()) QApplication::clipboard()->setText(all);
}

/// The box over its cell, the text kept and the cursor behind it.
bool EditorForm::amendCell()
{
    const auto [row, col] = activeCell();
    if (m_table.lastColumn() < 1 || !(m_box->hasFocus() || m_grid->hasFocus())) return false;
    if (!m_box->hasFocus() && !enterCell(row, col)) return true;
    m_box->deselect();
    m_box->end(false);
    return true;
}

/// False where the text is no block: it goes into the box as it is.
bool EditorForm::pasteBlock(const QString& text)
{
    if (m_table.lastColumn() < 1 || !IsBlock(toUtf8(text))) return false;
    CommitCell();
    const auto [row, col] = activeCell();
    const BlockPaste paste = PlanPaste(m_table, m_grid->text(), row, col, toUtf8(text));
    if (paste.refusal) {
        dialogs().box(*paste.refusal);
        return true;
    }
    if (!TakesConverted(paste.converted, this)) return true;
    {
        const EditHistory::Together step(*m_history);
        if (paste.rows > m_grid->Rows()) m_history->setRows(paste.rows);
        for (const CellText& cell : paste.cells) writeCell(cell.row, cell.col, cell.text);
    }
    if (!paste.cells.empty()) Edited = true;
    if (boxHasCell()) showCellText();
    return true;
}

/// Cells pasted from a spreadsheet into a frame box go into that box and those after it, a single one where the cursor
/// stands. False where the text is no block.
bool EditorForm::pasteOverFrames(std::size_t at, const QString& text)
{
    if (!IsBlock(toUtf8(text))) return false;
    const FramePaste paste = PlanFramePaste(m_table, at, toUtf8(text));
    const auto cells = BlockCells(toUtf8(text));
    const bool single = cells.size() == 1 && cells.front().size() == 1;
    if (paste.refusal) dialogs().box(*paste.refusal);
    if (paste.refusal || !TakesConverted(paste.converted, this)) return true;
    if (single) m_frameBoxes[at]->insert(paste.texts.empty() ? QString() : fromUtf8(paste.texts.front().second));
    const EditHistory::Together step(*m_history);
    for (const auto& [box, piece] : paste.texts)
        if (!single) m_history->setFrame(box, fromUtf8(piece));
    return true;
}

/// False where the text goes in as any other.
bool EditorForm::paste(QObject* into, const QString& text)
{
    const auto frame = std::find(m_frameBoxes.begin(), m_frameBoxes.end(), into);
    return frame == m_frameBoxes.end() ? pasteBlock(text)
                                       : pasteOverFrames(static_cast<std::size_t>(frame - m_frameBoxes.begin()), text);
}

/// A block on its way in, however it comes: by key, by the middle button, dropped.
bool EditorForm::pasteEvent(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste) &&
               paste(watched, QApplication::clipboard()->text());
    case QEvent::MouseButtonRelease:
        return static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton && watched != m_grid &&
               paste(watched, QApplication::clipboard()->text(QClipboard::Selection));
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        const QString text = drop.mimeData()->text();
        if (!IsBlock(toUtf8(text))) return false;
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        // It may ask, and who dropped it waits until the drop is over.
        QTimer::singleShot(0, this, [this, watched, text] { runHandler([&] { paste(watched, text); }); });
        return true;
    }
    default:
        return false;
    }
}

void EditorForm::showBoxMenu(const QPoint& at)
{
    QMenu menu(this);
    const auto add = [&](const QString& caption, bool enabled, auto action) {
        menu.addAction(caption, this, action)->setEnabled(enabled);
    };
    const QString clip = QApplication::clipboard()->text();
    const QUndoStack& stack = m_history->stack();
    add(kUndo, m_box->isUndoAvailable() || stack.canUndo(), [this] { stepBack(true); });
    add(kRedo, m_box->isRedoAvailable() || stack.canRedo(), [this] { stepBack(false); });
    menu.addSeparator();
    add(QStringLiteral("剪切"), m_box->hasSelectedText(), [this] { m_box->cut(); });
    add(QStringLiteral("复制"), m_box->hasSelectedText(), [this] { m_box->copy(); });
    add(QStringLiteral("粘贴"), !clip.isEmpty(), [this, clip] {
        if (!pasteBlock(clip)) m_box->paste();
    });
    menu.addSeparator();
    add(QStringLiteral("全选"), !m_box->text().isEmpty(), [this] { m_box->selectAll(); });
    add(kCopyAll, true, [this] { copyAll(); });
    menu.exec(at);
}

/// What the grid's right click has beyond copying the selection.
void EditorForm::addToGridMenu()
{
    const auto add = [this](const QString& caption, const QKeySequence& keys, auto action) {
        auto* entry = m_grid->contextMenu()->addAction(caption, this, action);
        entry->setShortcut(keys);
        entry->setShortcutContext(Qt::WidgetShortcut);  // shown here; commandKey acts on it
        return entry;
    };
    add(kCopyAll, Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { copyAll(); });
    m_grid->contextMenu()->addSeparator();
    const QUndoStack& stack = m_history->stack();
    for (auto* entry : {add(kUndo, Qt::CTRL | Qt::Key_Z, [this] { stepBack(true); }),
                        add(kRedo, Qt::CTRL | Qt::Key_Y, [this] { stepBack(false); })}) {
        entry->setEnabled(false);
        const auto changed = entry->text() == kUndo ? &QUndoStack::canUndoChanged : &QUndoStack::canRedoChanged;
        connect(&stack, changed, entry, &QAction::setEnabled);
    }
}

void EditorForm::showFrameMenu(QLineEdit& box, const QPoint& at)
{
    const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
    const QString caption = QLineEdit::tr("&Paste");  // before its key
    for (auto* entry : menu->actions()) {
        if (!entry->text().startsWith(caption)) continue;
        entry->disconnect(&box);
        connect(entry, &QAction::triggered, this, [this, &box] {
            if (!paste(&box, QApplication::clipboard()->text())) box.paste();
        });
    }
    menu->exec(at);
}
