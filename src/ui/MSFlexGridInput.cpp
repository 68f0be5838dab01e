// What the mouse and the keyboard do to a grid. A left press and its release on one cell move the current cell and are
// a click; so do those on a row number, for column 1. Every other press or release selects at most, for copying.

#include "controls/KeyCodes.h"
#include "ui/GridHeader.h"
#include "ui/GridModel.h"
#include "ui/GridSelection.h"
#include "ui/MSFlexGrid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include <utility>

/// A key moved it, or a click; where the program placed it, m_placing stands.
void MSFlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_placing && current.isValid()) moveTo({current.row() + 1, current.column() + 1});
}

void MSFlexGrid::moveTo(Cell cell)
{
    m_row = cell.row;
    m_col = cell.col;
    m_model->setCurrentRow(m_row);
    viewport()->update();
    emit RowColChange();
}

/// What is selected stays, and nothing scrolls under the pointer.
void MSFlexGrid::click(Cell cell)
{
    if (cell.row >= Rows() || cell.col >= Cols()) return;
    if (cell != Cell{m_row, m_col}) {
        setAutoScroll(false);
        m_placing = m_selection->moves = true;
        m_selection->setCurrentIndex(m_model->index(cell.row - 1, cell.col - 1), QItemSelectionModel::NoUpdate);
        m_placing = m_selection->moves = false;
        setAutoScroll(true);
        moveTo(cell);
    }
    emit Click();
}

MSFlexGrid::Cell MSFlexGrid::cellAt(const QMouseEvent& event) const
{
    const QPoint at = event.position().toPoint();
    const QModelIndex index = viewport()->rect().contains(at) ? indexAt(at) : QModelIndex();
    return index.isValid() ? Cell{index.row() + 1, index.column() + 1} : Cell{};
}

void MSFlexGrid::mousePressEvent(QMouseEvent* event)
{
    const QPoint at = viewport()->mapToParent(event->position().toPoint());
    const int button = mouseButton(event->button());
    if (event->button() == Qt::LeftButton) m_pressed = cellAt(*event);
    if (button == 1 || button == 2) QTableView::mousePressEvent(event);
    if (button) emit MouseDown(button, at.x(), at.y());
}

void MSFlexGrid::mouseReleaseEvent(QMouseEvent* event)
{
    const Cell cell = cellAt(*event);
    const Qt::MouseButton button = event->button();
    const QPoint at = event->globalPosition().toPoint();
    QTableView::mouseReleaseEvent(event);
    if (cell.row > 0 && button == Qt::RightButton) m_menu->popup(at);
    if (button != Qt::LeftButton) return;
    const Cell pressed = std::exchange(m_pressed, {});
    if (cell.row > 0 && cell == pressed) click(cell);
}

/// The second press of a double click is no second click; on another cell the view makes it a first one.
void MSFlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_pressed = {};
    if (event->button() == Qt::LeftButton) return QTableView::mouseDoubleClickEvent(event);
    const QPoint at = viewport()->mapToParent(event->position().toPoint());
    if (const int button = mouseButton(event->button())) emit MouseDown(button, at.x(), at.y());
}

/// The mouse opens the menu on its release; here comes the menu key.
void MSFlexGrid::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Mouse) m_menu->popup(event->globalPos());
    event->accept();
}

void MSFlexGrid::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copy(false);
    } else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore();  // the form's
    } else {
        m_selection->moves = true;
        QTableView::keyPressEvent(event);
        m_selection->moves = false;
    }
}

bool MSFlexGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
        if (auto* fixed = qobject_cast<QWidget*>(watched); fixed && fixed != viewport()) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            const QPoint at = fixed->mapTo(this, mouse->position().toPoint());
            if (const int button = mouseButton(mouse->button())) emit MouseDown(button, at.x(), at.y());
        }
    return QTableView::eventFilter(watched, event);
}

/// However small its window, a whole row stands between the header and the bar below.
QSize MSFlexGrid::minimumSizeHint() const
{
    const int header = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    const int row = verticalHeader()->defaultSectionSize() + horizontalScrollBar()->sizeHint().height();
    return QTableView::minimumSizeHint().expandedTo({0, 2 * frameWidth() + header + row});
}

/// Scrolled by rows to the end, a view puts the last row at its foot and cuts the top one: there is room for both.
void MSFlexGrid::showTopRowWhole()
{
    const auto& bar = *verticalScrollBar();
    if (verticalScrollMode() != ScrollPerItem || bar.maximum() == 0 || bar.value() != bar.maximum()) return;
    const int before = verticalHeader()->offset();
    verticalHeader()->setOffsetToSectionPosition(bar.value());
    if (verticalHeader()->offset() != before) viewport()->update();
}

void MSFlexGrid::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    showTopRowWhole();
}

void MSFlexGrid::updateGeometries()
{
    QTableView::updateGeometries();
    showTopRowWhole();
}
