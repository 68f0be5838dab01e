#include "ui/DocumentWindow.h"

#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Messages.h"
#include "ui/Fields.h"
#include "ui/Paper.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>

namespace {

std::vector<DocumentWindow*>& openDocuments()
{
    static std::vector<DocumentWindow*> all;
    return all;
}
bool leaving = false;

}  // namespace

DocumentWindow::DocumentWindow(const QString& title, const QString& kind, const QString& extension)
    : m_title(title), m_kind(kind), m_extension(extension)
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_tools = addToolBar(QStringLiteral("工具"));
    m_tools->setObjectName(QStringLiteral("tools"));
    m_tools->setMovable(false);
    m_tools->setContextMenuPolicy(Qt::PreventContextMenu);
    m_tools->setStyleSheet(
        QStringLiteral("QToolBar { spacing: 4px; padding: 4px 8px; } QToolButton { padding: 4px 8px; }"));
    statusBar()->setSizeGripEnabled(true);
    command(QStringLiteral("另存为"), QKeySequence::Save, QStringLiteral("把%1存入 .%2 文件").arg(kind, extension),
            [this] { saveAs(); });
    command(QStringLiteral("打印"), QKeySequence::Print, QStringLiteral("打印%1").arg(kind),
            [this] { printDocument(); });
    command(QStringLiteral("导出PDF"), QKeySequence(), QStringLiteral("把%1按打印的样子存入 PDF 文件").arg(kind),
            [this] { exportPdf(); });
    openDocuments().push_back(this);
    showTitle();
}

DocumentWindow::~DocumentWindow()
{
    std::erase(openDocuments(), this);
    if (leaving && openDocuments().empty()) platform().endProcess(0);
}

QAction* DocumentWindow::command(const QString& text, const QKeySequence& key, const QString& tip,
                                 std::function<void()> run)
{
    auto* action = new QAction(text, this);
    action->setObjectName(text);
    action->setShortcut(key);
    const QString keyText = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(keyText.isEmpty() ? tip : tip + QStringLiteral(" (%1)").arg(keyText));
    connect(action, &QAction::triggered, this, [run = std::move(run)] { runHandler(run); });
    m_tools->addAction(action);
    return action;
}

void DocumentWindow::separator() { m_tools->addSeparator(); }

void DocumentWindow::addAtEnd(QWidget* widget)
{
    auto* filler = new QWidget;
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_tools->addWidget(filler);
    m_tools->addWidget(widget);
}

void DocumentWindow::say(const QString& text) { statusBar()->showMessage(text); }

void DocumentWindow::touched()
{
    m_unsaved = true;
    showTitle();
}

void DocumentWindow::showTitle()
{
    setWindowModified(m_unsaved);
    setWindowTitle((m_path.isEmpty() ? m_title : QFileInfo(m_path).fileName()) + QStringLiteral("[*] - Velumark"));
}

bool DocumentWindow::writeFile(const QString& path) const
{
    return attempt([&] { WriteResult(toUtf8(path), fileBytes()); });
}

bool DocumentWindow::saveAs()
{
    settle();
    const QString path = askPath(m_extension);
    if (path.isEmpty()) return false;
    if (!writeOrSay(path, fileBytes())) return false;
    m_path = path;
    m_unsaved = false;
    showTitle();
    say(QStringLiteral("已保存：") + QDir::toNativeSeparators(path));
    return true;
}

void DocumentWindow::printDocument()
{
    settle();
    printOnPaper(this, page(), windowTitle().remove(QStringLiteral("[*]")),
                 [this](QPagedPaintDevice& device) { print(device); });
}

void DocumentWindow::exportPdf()
{
    settle();
    const QString path = askPath(QStringLiteral("pdf"));
    if (path.isEmpty()) return;
    if (!writeOrSay(path, pdfBytes(page(), m_title, [this](QPagedPaintDevice& device) { print(device); }))) return;
    say(QStringLiteral("已导出：") + QDir::toNativeSeparators(path));
}

void DocumentWindow::closeEvent(QCloseEvent* event)
{
    settle();
    const bool wanted = m_unsaved && dialogs().box({.text = toUtf8(m_kind + QStringLiteral("尚未保存，是否保存？")),
                                                    .title = std::string(message::kNotice),
                                                    .icon = Icon::Question,
                                                    .buttons = Msg::YesNo});
    if (wanted && !saveAs()) return event->ignore();
    event->accept();
}

void DocumentWindow::placeBeside(QWidget& form)
{
    const QRect screen = form.screen()->availableGeometry();
    const QRect frame = form.frameGeometry();
    const int room = std::max(320, screen.width() - frame.width() - 3 * theme::kGrid);
    form.move(screen.right() - frame.width() - theme::kGrid + 1, std::max(screen.top(), frame.top()));
    setGeometry(QRect(screen.left() + theme::kGrid, screen.top() + 5 * theme::kGrid, std::min(room, width()),
                      std::min(screen.height() - 8 * theme::kGrid, 900)));
}

bool DocumentWindow::anyOpen() { return !openDocuments().empty(); }

std::string DocumentWindow::keepUnsaved()
{
    QString told;
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    int number = 0;
    for (auto* document : openDocuments()) {
        document->settle();
        if (!document->m_unsaved) continue;
        const QString name = QStringLiteral("/未保存的%1 %2-%3.%4")
                                 .arg(document->m_kind, stamp)
                                 .arg(++number)
                                 .arg(document->m_extension);
        for (const QString& folder : {QCoreApplication::applicationDirPath(), QDir::tempPath()}) {
            if (!document->writeFile(folder + name)) continue;
            told +=
                QStringLiteral("\n未保存的%1已存入：%2").arg(document->m_kind, QDir::toNativeSeparators(folder + name));
            break;
        }
    }
    return toUtf8(told);
}

void leaveProgram()
{
    if (!DocumentWindow::anyOpen()) return platform().endProcess(0);
    leaving = true;
    for (auto* window : QApplication::topLevelWidgets())
        if (!qobject_cast<DocumentWindow*>(window)) window->hide();
}
