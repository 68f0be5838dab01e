#include "app/Help.h"

#include "project/Workspace.h"
#include "ui/DocumentWindow.h"
#include "ui/Form.h"
#include "ui/Platform.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QUrl>

namespace {

QString helpFile(const char* name) { return QString::fromStdString(gAppPath + name); }

/// The file with the chapters; where that is missing, what there is.
bool openChapter(const QString& chapter)
{
    const QString file = helpFile("/Velumark帮助.html");
    if (!QFileInfo::exists(file)) return false;
    QUrl address = QUrl::fromLocalFile(file);
    address.setFragment(chapter);
    return platform().open(address.toString(QUrl::FullyEncoded));
}

}  // namespace

void openHelp(const QString& chapter)
{
    if (!chapter.isEmpty() && openChapter(chapter)) return;
#ifdef Q_OS_WIN
    const char* const names[] = {"/Velumark帮助.chm", "/Velumark帮助.html"};
#else
    const char* const names[] = {"/Velumark帮助.html"};
#endif
    for (const char* name : names)
        if (QFileInfo::exists(helpFile(name)) && platform().open(helpFile(name))) return;
}

HelpKey::HelpKey(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || key->isAutoRepeat()) return false;
    const auto* window = static_cast<QWidget*>(watched)->window();
    // A sheet or a drawing is the traverse's.
    if (qobject_cast<const DocumentWindow*>(window))
        openHelp(QStringLiteral("frmFhdx"));
    else if (qobject_cast<const Form*>(window))
        openHelp(window->objectName());
    else
        return false;
    return true;
}
