#include "ui/FileDrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace {

/// The one text file of a drop; "" where there is none or more than one.
QString textFile(const QMimeData& data)
{
    const auto urls = data.urls();
    if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
    const QFileInfo file(urls.front().toLocalFile());
    const QString ending = file.suffix().toLower();
    const bool isText = ending == QStringLiteral("txt") || ending == QStringLiteral("csv");
    return isText && file.isFile() ? file.filePath() : QString();
}

}  // namespace

FileDrop::FileDrop(QWidget* window, Take take) : QObject(window), m_window(window), m_take(std::move(take))
{
    window->setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    const auto* target = qobject_cast<QWidget*>(watched);
    if (!target || target->window() != m_window) return false;
    auto* drop = static_cast<QDropEvent*>(event);
    if (!drop->mimeData()->hasUrls()) return false;

    const auto* above = QApplication::activeModalWidget();
    const QString path = m_take && (!above || above == m_window) ? textFile(*drop->mimeData()) : QString();
    drop->setDropAction(path.isEmpty() ? Qt::IgnoreAction : Qt::CopyAction);
    drop->setAccepted(!path.isEmpty());
    if (type == QEvent::Drop && !path.isEmpty())
        QTimer::singleShot(0, this, [this, path] {
            m_window->activateWindow();
            m_take(path);
        });
    return true;
}
