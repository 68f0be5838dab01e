#include "ui/PinnedColumn.h"

#include <QAbstractItemDelegate>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <QStyleOptionViewItem>
#include <QTableView>

#include <algorithm>

PinnedColumn::PinnedColumn(QTableView& grid) : QWidget(&grid), m_grid(grid), m_cells(grid.viewport())
{
    setObjectName(QStringLiteral("pinnedColumn"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    grid.viewport()->installEventFilter(this);
    for (const auto* bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &PinnedColumn::follow);
    connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, &PinnedColumn::follow);
    const auto repaint = [this] { update(); };
    connect(grid.model(), &QAbstractItemModel::dataChanged, this, repaint);
    connect(grid.model(), &QAbstractItemModel::rowsInserted, this, repaint);
    connect(grid.model(), &QAbstractItemModel::rowsRemoved, this, repaint);
    connect(grid.model(), &QAbstractItemModel::modelReset, this, repaint);
    connect(grid.selectionModel(), &QItemSelectionModel::selectionChanged, this, repaint);
    // After the view has scrolled to it.
    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this, &PinnedColumn::uncover,
            Qt::QueuedConnection);
    follow();
}

void PinnedColumn::follow()
{
    const auto& head = *m_grid.horizontalHeader();
    const QRect cells = m_grid.viewport()->geometry();
    setGeometry(cells.left(), head.y(), std::min(m_grid.columnWidth(0), cells.width()), cells.bottom() + 1 - head.y());
    setVisible(m_grid.horizontalScrollBar()->value() > 0);
    raise();
    update();
}

/// A cell that a key has moved to does not stay under the pinned one.
void PinnedColumn::uncover()
{
    update();
    const auto current = m_grid.currentIndex();
    if (!current.isValid() || !isVisible()) return;
    auto& bar = *m_grid.horizontalScrollBar();
    const int hidden = width() - m_grid.columnViewportPosition(current.column());
    if (current.column() > 0 && hidden > 0) bar.setValue(bar.value() - hidden);
}

void PinnedColumn::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto& model = *m_grid.model();
    const int headHeight = m_grid.horizontalHeader()->height();
    QStyleOptionHeader head;
    head.initFrom(m_grid.horizontalHeader());
    head.rect = QRect(0, 0, width(), headHeight);
    head.textAlignment = Qt::AlignCenter;
    head.text = model.headerData(0, Qt::Horizontal).toString();
    style()->drawControl(QStyle::CE_Header, &head, &painter, this);

    painter.setClipRect(0, headHeight, width(), height() - headHeight);
    painter.fillRect(rect(), m_grid.palette().base());
    QStyleOptionViewItem item;
    item.initFrom(m_grid.viewport());
    item.widget = &m_grid;
    item.showDecorationSelected = true;
    item.state = QStyle::State_Enabled | QStyle::State_Active;
    const QColor line =
        QColor::fromRgba(static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &item, &m_grid)));
    for (int row = std::max(0, m_grid.rowAt(0)); row < model.rowCount(); ++row) {
        const int top = headHeight + m_grid.rowViewportPosition(row);
        if (top >= height()) break;
        const auto index = model.index(row, 0);
        QStyleOptionViewItem cell = item;
        cell.rect = QRect(0, top, width() - 1, m_grid.rowHeight(row) - 1);
        cell.state.setFlag(QStyle::State_Selected, m_grid.selectionModel()->isSelected(index));
        m_grid.itemDelegateForIndex(index)->paint(&painter, cell, index);
        painter.setPen(line);
        painter.drawLine(0, cell.rect.bottom() + 1, width() - 1, cell.rect.bottom() + 1);
        painter.drawLine(width() - 1, top, width() - 1, cell.rect.bottom() + 1);
    }
}

bool PinnedColumn::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        auto* numbers = m_grid.verticalHeader()->viewport();
        const int y = numbers->mapFromGlobal(mapToGlobal(mouse.position().toPoint())).y();
        QMouseEvent there(mouse.type(), QPointF(1, y), mouse.globalPosition(), mouse.button(), mouse.buttons(),
                          mouse.modifiers());
        QCoreApplication::sendEvent(numbers, &there);
        return true;
    }
    default:
        return QWidget::event(event);
    }
}

bool PinnedColumn::eventFilter(QObject* watched, QEvent* event)
{
    const bool moved =
        event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::Show;
    if (moved && watched == m_cells) follow();  // other events still come while the grid is being taken down
    return false;
}
