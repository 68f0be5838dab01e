// What the keyboard, an input method and the mouse do to a sheet.

#include "office/windows/SheetView.h"

#include "ui/Fields.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

// --- Editing ---------------------------------------------------------------------------------------------------------

bool SheetView::isEditing() const { return m_editing != Editing::No; }

void SheetView::edit(const QString& text) { startEditing(text, Editing::Amending); }

void SheetView::startEditing(const QString& text, Editing how)
{
    m_editing = Editing::No;
    m_anchor = m_active = current();
    m_editor->setText(text);
    m_editor->end(false);
    m_editing = how;
    reveal(m_geometry.area(m_active));
    placeEditor();
    m_editor->show();
    m_editor->setFocus();
    viewport()->update();
}

void SheetView::placeEditor()
{
    const QRect cell = cellRect(m_active).adjusted(1, 1, -1, -1);
    QFont font(fromUtf8(m_sheet.style(m_active).fontName));
    font.setPixelSize(std::max(6, static_cast<int>(m_sheet.style(m_active).fontSize * 96 / 72 * m_geometry.scale())));
    m_editor->setFont(font);
    const int wanted = QFontMetrics(font).horizontalAdvance(m_editor->text()) + 16;
    const int room = std::max(cell.width(), viewport()->width() - cell.left() - 4);
    m_editor->setGeometry(QRect(cell.topLeft(), QSize(std::clamp(wanted, cell.width(), room), cell.height())));
}

void SheetView::commit()
{
    if (!isEditing()) return;
    m_editing = Editing::No;
    const bool focus = m_editor->hasFocus();
    m_editor->hide();
    enter(m_editor->text());
    if (focus) setFocus();
    viewport()->update();
}

bool SheetView::editorKey(const QKeyEvent& event)
{
    const bool back = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        leave(back ? -1 : 1, 0);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        leave(0, event.key() == Qt::Key_Backtab || back ? -1 : 1);
        return true;
    case Qt::Key_Escape:
        m_editing = Editing::No;
        m_editor->hide();
        setFocus();
        updateAll();
        return true;
    case Qt::Key_F2:
        m_editing = Editing::Amending;
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        leave(event.key() == Qt::Key_Down ? 1 : -1, 0);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (m_editing == Editing::Amending) return false;
        leave(0, event.key() == Qt::Key_Right ? 1 : -1);
        return true;
    default:
        return false;
    }
}

bool SheetView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_editor && isEditing()) {
        if (event->type() == QEvent::KeyPress && editorKey(*static_cast<QKeyEvent*>(event))) return true;
        const bool left = event->type() == QEvent::FocusOut &&
                          static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason &&
                          static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason;
        if (left) commit();
    }
    return QAbstractScrollArea::eventFilter(watched, event);
}

bool SheetView::focusNextPrevChild(bool) { return false; }  // Tab goes to the next cell

void SheetView::keyPressEvent(QKeyEvent* event)
{
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const int page =
        std::max(1, static_cast<int>((viewport()->height() - headHeight()) / (19 * m_geometry.scale())) - 1);
    switch (event->key()) {
    case Qt::Key_Up:
        return control ? jump({1, m_active.col}, extend) : move(-1, 0, extend);
    case Qt::Key_Down:
        return control ? jump({std::max(1, m_sheet.rows()), m_active.col}, extend) : move(1, 0, extend);
    case Qt::Key_Left:
        return control ? jump({m_active.row, 1}, extend) : move(0, -1, extend);
    case Qt::Key_Right:
        return control ? jump({m_active.row, std::max(1, m_sheet.cols())}, extend) : move(0, 1, extend);
    case Qt::Key_PageUp:
        return move(-page, 0, extend);
    case Qt::Key_PageDown:
        return move(page, 0, extend);
    case Qt::Key_Home:
        return jump({control ? 1 : m_active.row, 1}, extend);
    case Qt::Key_End:
        return jump({control ? std::max(1, m_sheet.rows()) : m_active.row, std::max(1, m_sheet.cols())}, extend);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return leave(extend ? -1 : 1, 0);
    case Qt::Key_Tab:
        return leave(0, 1);
    case Qt::Key_Backtab:
        return leave(0, -1);
    case Qt::Key_F2:
        return edit(entryText());
    case Qt::Key_Delete:
        return clear();
    case Qt::Key_Backspace:
        return startEditing({}, Editing::Typing);
    default:
        break;
    }
    const QString text = event->text();
    if (text.isEmpty() || !text.at(0).isPrint() || (control && !event->modifiers().testFlag(Qt::AltModifier)))
        return QAbstractScrollArea::keyPressEvent(event);
    startEditing(text, Editing::Typing);
}

/// What an input method composes goes on in the editor.
void SheetView::inputMethodEvent(QInputMethodEvent* event)
{
    if (event->preeditString().isEmpty() && event->commitString().isEmpty()) return;
    startEditing({}, Editing::Typing);
    QCoreApplication::sendEvent(m_editor, event);
}

QVariant SheetView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnabled) return true;
    if (query == Qt::ImCursorRectangle) return cellRect(m_active);
    return QAbstractScrollArea::inputMethodQuery(query);
}

// --- Mouse -----------------------------------------------------------------------------------------------------------

void SheetView::mousePressEvent(QMouseEvent* event)
{
    setFocus();
    commit();
    const QPoint at = event->position().toPoint();
    const CellRef cell = m_geometry.cellAt(at - origin());
    const bool onRows = at.x() < headWidth(), onColumns = at.y() < headHeight();
    if (event->button() == Qt::RightButton && !onRows && !onColumns && selection().contains(cell)) return;
    if (onRows && onColumns) return selectAll();
    if (onRows || onColumns) {
        m_anchor =
            onRows ? CellRef(cell.row, std::max(1, m_sheet.cols())) : CellRef(std::max(1, m_sheet.rows()), cell.col);
        m_active = onRows ? CellRef(cell.row, 1) : CellRef(1, cell.col);
        return updateAll();
    }
    jump(cell, event->modifiers().testFlag(Qt::ShiftModifier));
}

void SheetView::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPoint at = event->position().toPoint();
    if (at.x() < headWidth() || at.y() < headHeight()) return;
    jump(m_geometry.cellAt(at - origin()), true);
}

void SheetView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() != Qt::LeftButton || at.x() < headWidth() || at.y() < headHeight()) return;
    setCurrent(m_geometry.cellAt(at - origin()));
    edit(entryText());
}

void SheetView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    if (event->angleDelta().y() != 0) emit zoomWanted(event->angleDelta().y() > 0 ? 1.1 : 1 / 1.1);
}
