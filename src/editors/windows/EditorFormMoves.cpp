// Comfort that changes no rule: the box over its cell, arrow and page keys, blocks from a spreadsheet.

#include "editors/windows/EditorForm.h"
#include "editors/windows/frmZt.h"
#include "ui/MSFlexGrid.h"
#include "ui/Twips.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <memory>

namespace {

const QString kCopyAll = QStringLiteral("复制整表含表头");

constexpr int kInset = 45;  // twips from a cell's place to the box over it

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
    if (key != QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_C)) return false;
    copyAll();
    return true;
}

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
    if (paste.rows > m_grid->Rows()) {
        m_grid->setRows(paste.rows);
        RenumberGrid(*m_grid);
    }
    for (const CellText& cell : paste.cells) writeCell(cell.row, cell.col, cell.text);
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
    for (const auto& [box, piece] : paste.texts)
        if (!single) m_frameBoxes[box]->setText(fromUtf8(piece));
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
        if (!paste(watched, drop.mimeData()->text())) return false;
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
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
    add(QStringLiteral("撤销"), m_box->isUndoAvailable(), [this] { m_box->undo(); });
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
    auto* all = m_grid->contextMenu()->addAction(kCopyAll, this, [this] { copyAll(); });
    all->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    all->setShortcutContext(Qt::WidgetShortcut);  // shown here; commandKey acts on it
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
