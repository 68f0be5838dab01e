#include "ui/QtDialogs.h"

#include "ui/Desktop.h"
#include "ui/FileDialog.h"
#include "ui/InputGuard.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <iterator>

namespace {

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

class Box : public QMessageBox {
public:
    Box(const Msg& msg, QWidget* over)
        : QMessageBox(boxIcon(msg.icon), QString::fromStdString(msg.title), QString::fromStdString(msg.text), NoButton,
                      over)
    {
        setTextFormat(Qt::PlainText);
    }

protected:
    /// The window system shows the program's file name over a window without a title. Asking for the native window
    /// before it is shown would make native windows of all controls beneath.
    void showEvent(QShowEvent* event) override
    {
        QMessageBox::showEvent(event);
        if (windowTitle().isEmpty()) windowHandle()->setTitle(UnseenTitle());
    }
};

/// A question with Yes and No: only its buttons answer it. Esc and the close box leave it standing, and so does a key
/// that is still held from the work before it.
class Question final : public Box {
public:
    using Box::Box;
    bool ask(Msg::Default preset)
    {
        auto* yes = addButton(QStringLiteral("是(&Y)"), YesRole);
        auto* no = addButton(QStringLiteral("否(&N)"), NoRole);
        setDefaultButton(preset == Msg::Yes ? yes : no);
        qApp->installEventFilter(this);
        exec();
        return clickedButton() == yes;
    }

protected:
    void reject() override {}
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
        if (!isKey || !static_cast<QKeyEvent*>(event)->isAutoRepeat()) return false;
        event->accept();  // overridden: no shortcut either
        return true;
    }
};

/// Where a box belongs, also while no window of the program is active.
QWidget* windowBelow()
{
    if (auto* active = QApplication::activeWindow()) return active;
    if (auto* modal = QApplication::activeModalWidget()) return modal;
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
    });
    return shown == windows.end() ? nullptr : *shown;
}

/// Gives the focus back to where it was, whatever window the desktop activates when a box has closed.
class FocusKept {
public:
    FocusKept() : m_window(windowBelow()), m_field(m_window ? m_window->focusWidget() : nullptr) {}
    FocusKept(const FocusKept&) = delete;
    FocusKept& operator=(const FocusKept&) = delete;
    ~FocusKept()
    {
        if (!m_window || !m_window->isVisible()) return;
        m_window->activateWindow();
        if (m_field) m_field->setFocus(Qt::ActiveWindowFocusReason);
    }

private:
    const QPointer<QWidget> m_window, m_field;
};

std::optional<std::string> askedFile(FileDialog kind, std::string_view filter, std::string_view proposed = {})
{
    const auto chosen = askForFile(windowBelow(), kind, QString::fromUtf8(filter.data(), std::ssize(filter)),
                                   QString::fromUtf8(proposed.data(), std::ssize(proposed)));
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen.toStdString());
}

}  // namespace

bool QtDialogs::box(const Msg& msg)
{
    const FocusKept focus;
    if (msg.buttons == Msg::YesNo) return Question(msg, windowBelow()).ask(msg.preset);
    Box box(msg, windowBelow());
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
    return true;
}

void QtDialogs::turn()
{
    const InputGuard guard;
    QCoreApplication::processEvents();
}

void QtDialogs::turnWithInput()
{
    QTimer::singleShot(100, [] {});  // wakes the wait below where nothing else happens
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

std::optional<std::string> QtDialogs::openFile(std::string_view filter) { return askedFile(FileDialog::Open, filter); }

std::optional<std::string> QtDialogs::saveFile(std::string_view filter) { return askedFile(FileDialog::Save, filter); }

std::optional<std::string> QtDialogs::saveFileAs(std::string_view filter, std::string_view proposed)
{
    return askedFile(FileDialog::Save, filter, proposed);
}

QStringList nameFilters(const QString& filter)
{
    const auto pieces = filter.split(u'|');
    QStringList filters;
    for (int i = 0; i + 1 < pieces.size(); i += 2) {
        const QString patterns = QString(pieces[i + 1]).replace(u';', u' ');
        const QString shown = u'(' + patterns + u')';
        filters << (pieces[i].contains(shown) ? pieces[i] : (pieces[i] + u' ' + shown).trimmed());
    }
    return filters;
}
