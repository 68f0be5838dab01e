#include "ui/InputGuard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

}  // namespace

InputGuard::InputGuard() { QCoreApplication::instance()->installEventFilter(this); }

bool InputGuard::eventFilter(QObject*, QEvent* event)
{
    if (!isInput(event->type())) return false;
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) m_sawEscape = true;
    const bool refused =
        event->type() == QEvent::Close || event->type() == QEvent::DragEnter || event->type() == QEvent::Drop;
    event->setAccepted(!refused);
    return true;
}
