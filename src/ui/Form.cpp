#include "ui/Form.h"

#include "controls/FormScaling.h"
#include "controls/KeyCodes.h"
#include "controls/XPButton.h"
#include "ui/InputMethod.h"

#include <QApplication>
#include <QCloseEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

Form::Form(const QString& name, const QString& caption, QWidget* parent) : QDialog(parent)
{
    setObjectName(name);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowModality(Qt::WindowModal);  // open sheets and drawings beside it go on taking input
    qApp->installEventFilter(this);
}

Form::~Form() = default;

void Form::setVisible(bool visible)
{
    if (visible && m_life == Life::Fresh) {
        m_life = Life::Failed;
        runHandler([this] {
            Form_Load();
            if (!m_staysClosed) m_life = Life::Loaded;
        });
    }
    if (visible && m_life != Life::Loaded) return;
    if (visible) fitToContent(*this);
    QDialog::setVisible(visible);
}

void Form::showModal(QWidget* caller)
{
    if (caller) setParent(caller, windowFlags());
    setVisible(true);
    if (isVisible()) exec();
}

void Form::unload()
{
    if (m_life != Life::Unloaded) m_life = Life::Unloading;
    close();
}

void Form::closeEvent(QCloseEvent* event)
{
    if (m_life == Life::Unloaded) return event->accept();
    bool go = m_life == Life::Unloading;
    if (!go) runHandler([&] { go = QueryUnload(); });
    if (!go) return event->ignore();
    if (m_life != Life::Unloaded) {
        m_life = Life::Unloaded;
        runHandler([this] { Form_Unload(); });
    }
    event->accept();
}

bool Form::Form_KeyPress(int) { return false; }

bool Form::enterSendsTab()
{
    focusNextPrevChild(true);
    if (auto* box = qobject_cast<QLineEdit*>(focusWidget()))
        box->selectAll();
    else if (auto* list = qobject_cast<QComboBox*>(focusWidget()); list && list->lineEdit())
        list->lineEdit()->selectAll();
    return true;
}

void Form::refuse(const Refusal& refusal)
{
    dialogs().box(refusal.msg);
    if (auto* field = findChild<QWidget*>(fromUtf8(refusal.field)); field && !refusal.field.empty()) field->setFocus();
}

void Form::showBox(const QString& text, const QString& title, Icon icon)
{
    dialogs().box({.text = toUtf8(text), .title = toUtf8(title), .icon = icon});
}

/// No default button: Enter does what the form's preview says and nothing else.
void Form::keyPressEvent(QKeyEvent* event)
{
    // A held key does not go on from the work that it has abandoned to the window.
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && !event->isAutoRepeat())
        reject();
    else
        event->ignore();
}

void Form::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    runHandler([this] { Form_Resize(); });
}

bool Form::keyPress(int keyAscii)
{
    bool swallowed = false;
    if (m_life < Life::Unloading) runHandler([&] { swallowed = Form_KeyPress(keyAscii); });
    return swallowed;
}

/// A key that its receiver ignores is offered to each parent in turn: only the first offer is a key press.
bool Form::isFirstReceiver(QWidget* target, const QEvent* event)
{
    const bool again = event == m_lastEvent && m_lastReceiver && target != m_lastReceiver && target != focusWidget() &&
                       target->isAncestorOf(m_lastReceiver);
    m_lastEvent = event;
    m_lastReceiver = target;
    return !again;
}

/// A held key commands once, but for those that a form tells.
bool Form::runCommandKey(const QKeyEvent& event)
{
    bool done = false;
    if (m_life < Life::Unloading && (!event.isAutoRepeat() || commandRepeats(event.keyCombination())))
        runHandler([&] { done = commandKey(event.keyCombination()); });
    return done;
}

bool Form::previewKey(QWidget* target, QKeyEvent* event)
{
    const int key = keyAscii(*event);
    if (key == 0) return false;
    auto* button = qobject_cast<XPButton*>(target);
    if (!button || key != 13) return keyPress(key);
    // A button clicks at once on Enter; only then does the form do what its preview does.
    const QPointer<Form> alive(this);
    button->pressKey(*event);
    if (alive) keyPress(key);
    return true;
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    if (!isKey && event->type() != QEvent::InputMethod) return false;
    auto* target = qobject_cast<QWidget*>(watched);
    if (!target || target->window() != this || m_resending) return false;
    if (isKey) {
        auto* key = static_cast<QKeyEvent*>(event);
        return isFirstReceiver(target, event) && (runCommandKey(*key) || previewKey(target, key));
    }

    const auto* commit = static_cast<QInputMethodEvent*>(event);
    if (target != focusWidget() && target->focusProxy()) return false;  // handed on inside a pick list
    m_resending = true;
    const bool done = filterCommit(target, *commit, [this](int character) { return !keyPress(character); });
    m_resending = false;
    return done;
}
