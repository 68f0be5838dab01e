#include "app/WaysOut.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

bool WaysOut::eventFilter(QObject* watched, QEvent* event)
{
    return !isWayOut(watched, *event) && InputGuard::eventFilter(watched, event);
}

bool WaysOut::isWayOut(const QObject* watched, const QEvent& event) const
{
    if (watched->isWindowType()) {  // it hands on to the widgets; a click elsewhere would take the focus along
        if (watched != m_window.windowHandle()) return watched == m_button.windowHandle();
        const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
        return !mouse || event.type() == QEvent::MouseButtonRelease ||
               m_window.childAt(mouse->position().toPoint()) == &m_button;
    }
    if (watched == &m_window) return event.type() == QEvent::Close;
    if (watched != &m_button) return false;
    if (event.type() != QEvent::KeyPress) return true;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key != Qt::Key_Tab && key != Qt::Key_Backtab;  // the focus could not come back
}
