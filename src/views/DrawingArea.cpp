#include "views/DrawingArea.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

DrawingArea::DrawingArea(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMinimumSize(420, 180);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DrawingArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paint(painter);
    painter.setClipping(false);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(hasFocus() ? QColor(0x1F, 0x5F, 0xA8) : QColor(0xB8, 0xBD, 0xC4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void DrawingArea::wheelEvent(QWheelEvent* event)
{
    zoomAt(event->position(), std::pow(1.25, event->angleDelta().y() / 120.0));
    event->accept();
}

void DrawingArea::mousePressEvent(QMouseEvent* event)
{
    m_pressed = m_grip = event->position();
    m_dragging = m_afterDouble = false;
}

void DrawingArea::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) {
        const bool far = (event->position() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
        if (far && !m_dragging) {
            m_dragging = true;
            setCursor(Qt::ClosedHandCursor);
        }
        if (m_dragging) {
            moveBy(event->position() - m_grip);
            m_grip = event->position();
        }
    }
    emit hovered(event->position());
}

void DrawingArea::mouseReleaseEvent(QMouseEvent* event)
{
    setCursor(Qt::CrossCursor);
    if (!m_dragging && !m_afterDouble && event->button() == Qt::LeftButton) emit clicked(event->position());
    m_dragging = m_afterDouble = false;
}

void DrawingArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_afterDouble = true;
    if (event->button() == Qt::LeftButton) emit doubleClicked(event->position());
}

void DrawingArea::leaveEvent(QEvent*) { emit left(); }

void DrawingArea::keyPressEvent(QKeyEvent* event)
{
    const double step = std::min(width(), height()) / 8.0;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveBy({step, 0});
    case Qt::Key_Right:
        return moveBy({-step, 0});
    case Qt::Key_Up:
        return moveBy({0, step});
    case Qt::Key_Down:
        return moveBy({0, -step});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomAt(QRectF(rect()).center(), 1.25);
    case Qt::Key_Minus:
        return zoomAt(QRectF(rect()).center(), 0.8);
    case Qt::Key_Home:
        return showAll();
    default:
        QWidget::keyPressEvent(event);
    }
}
