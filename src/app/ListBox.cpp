#include "app/ListBox.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

ListBox::ListBox(QWidget* parent) : QListWidget(parent)
{
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setSpacing(2);
}

int ListBox::ListIndex() const
{
    const auto picked = selectedItems();
    return picked.isEmpty() ? -1 : row(picked.constFirst());
}

QString ListBox::Text() const
{
    const auto picked = selectedItems();
    return picked.isEmpty() ? QString() : picked.constFirst()->text();
}

void ListBox::setHint(const QString& hint)
{
    m_hint = hint;
    viewport()->update();
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) emit DblClick();
}

/// While nothing is selected, an arrow selects the row that the focus stands on instead of leaving it.
void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (arrow && ListIndex() < 0 && count() > 0)
        setCurrentRow(qMax(currentRow(), 0), QItemSelectionModel::ClearAndSelect);
    else
        QListWidget::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    const auto command = QListWidget::selectionCommand(index, event);
    const bool takesAway = !index.isValid() || command.testFlag(QItemSelectionModel::Deselect) ||
                           command.testFlag(QItemSelectionModel::Toggle);
    return takesAway ? QItemSelectionModel::NoUpdate : command;
}

void ListBox::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (count() > 0 || m_hint.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}
