#include "ui/Fields.h"

#include "controls/KeyCodes.h"
#include "ui/InputMethod.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {

constexpr int kEscape = 27;        // the form's, never a box's
constexpr int kFirstTyped = 32;    // below stand keys such as Enter: they type nothing
constexpr int kAllowedFor = 2000;  // milliseconds
constexpr int kToolTipDrop = 16;   // pixels by which Qt puts a tool tip below its place, to clear a pointer

class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit* box, std::function<bool(int)> keep, WhileCtrl whileCtrl, QString allowed)
        : QObject(box), m_box(box), m_keep(std::move(keep)), m_whileCtrl(whileCtrl), m_allowed(std::move(allowed))
    {
        setObjectName(name());
        box->installEventFilter(this);
    }
    static QString name() { return QStringLiteral("vm_keyFilter"); }

protected:
    bool eventFilter(QObject* box, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto& pressed = *static_cast<QKeyEvent*>(event);
            const int key = keyAscii(pressed);
            if (key == 0 || key == kEscape || passes(key)) return false;
            if (!(pressed.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) tell(key);
            return true;
        }
        if (event->type() == QEvent::InputMethod && !m_resending) {
            m_resending = true;
            const bool done = filterCommit(box, *static_cast<QInputMethodEvent*>(event), [this](int character) {
                const bool passed = passes(character);
                if (!passed) tell(character);
                return passed;
            });
            m_resending = false;
            return done;
        }
        return false;
    }

private:
    bool passes(int key) const
    {
        return (m_whileCtrl == WhileCtrl::Passes && KeyIsDown(kVirtualKeyControl)) || m_keep(key);
    }

    void tell(int key) const
    {
        if (key >= kFirstTyped && !m_box->isReadOnly())
            showAllowed(m_box, m_box->rect(), m_allowed.isEmpty() ? allowedKeys(m_keep) : m_allowed);
    }

    QLineEdit* m_box;
    std::function<bool(int)> m_keep;
    WhileCtrl m_whileCtrl;
    QString m_allowed;
    bool m_resending = false;
};

bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

class OneLine : public QObject {
public:
    explicit OneLine(QLineEdit* box) : QObject(box), m_box(box), m_before(box->text())
    {
        box->installEventFilter(this);
        connect(box, &QLineEdit::textEdited, this, &OneLine::cut);
        connect(box, &QLineEdit::textChanged, this, [this] { m_before = m_box->text(); });
    }

protected:
    /// The usual paste is cut before it goes in, so that it can be undone.
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
            return false;
        const QString pasted = QGuiApplication::clipboard()->text();
        const QString line = upToLineEnd(pasted);
        if (m_box->isReadOnly() || line == pasted) return false;
        const int at = m_box->cursorPosition();
        if (!m_box->hasSelectedText() && !m_box->text().isEmpty()) {  // a step aside: what was typed is undone apart
            m_box->setCursorPosition(at > 0 ? at - 1 : 1);
            m_box->setCursorPosition(at);
        }
        m_box->insert(line);
        return true;
    }

private:
    /// Any other way in: the cursor stands behind what was inserted. A text that had line ends before is let be.
    void cut()
    {
        const QString text = m_box->text(), line = upToLineEnd(text);
        if (line == text || upToLineEnd(m_before) != m_before) return;
        const QString behind = text.mid(m_box->cursorPosition());
        m_box->setText(line + upToLineEnd(behind));
        m_box->setCursorPosition(static_cast<int>(line.size()));
    }

    QLineEdit* m_box;
    QString m_before;
};

}  // namespace

QString upToLineEnd(const QString& text)
{
    return text.left(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin());
}

void keepOneLine(QLineEdit* box) { new OneLine(box); }

void keepTabOnChosen(QRadioButton* option)
{
    QObject::connect(option, &QRadioButton::toggled, option, [option](bool chosen) {
        if (!chosen) return;
        const auto group = option->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
        for (auto* other : group) other->setFocusPolicy(other == option ? Qt::StrongFocus : Qt::ClickFocus);
    });
}

void filterKeys(QLineEdit* box, std::function<bool(int keyAscii)> keep, WhileCtrl whileCtrl, const QString& allowed)
{
    delete box->findChild<QObject*>(KeyFilter::name(), Qt::FindDirectChildrenOnly);
    new KeyFilter(box, std::move(keep), whileCtrl, allowed);
}

QString allowedKeys(const std::function<bool(int keyAscii)>& keep)
{
    QString digits;
    for (int key = '0'; key <= '9'; ++key)
        if (keep(key)) digits += QChar(key);
    QStringList kinds;
    if (digits.size() == 10)
        kinds << QStringLiteral("数字");
    else if (!digits.isEmpty())
        kinds << QStringLiteral(" %1～%2").arg(digits.front()).arg(digits.back());
    if (keep('.')) kinds << QStringLiteral("小数点");
    if (keep('-')) kinds << QStringLiteral("负号");
    const QString last = kinds.isEmpty() ? QString() : kinds.takeLast();
    return QStringLiteral("只能输入") + (kinds.isEmpty() ? last : kinds.join(u'、') + QStringLiteral("和") + last);
}

void showAllowed(QWidget* under, const QRect& rect, const QString& allowed)
{
    const QPoint at = under->mapToGlobal(rect.bottomLeft());
    QToolTip::showText(at - QPoint(0, kToolTipDrop - 4), allowed, under, {}, kAllowedFor);
}

void setLocked(QLineEdit* box, bool locked)
{
    box->setReadOnly(locked);
    box->setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, locked ? theme::kLocked : theme::kOpen);
    box->setPalette(palette);
}

PickList::PickList(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    keepOneLine(lineEdit());
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);  // its place is the form's, whatever is picked
    setMinimumContentsLength(6);
    // Leaving the text or pressing Enter in it is no pick.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    disconnect(lineEdit(), SIGNAL(returnPressed()), this, nullptr);
    connect(this, &QComboBox::activated, this, [this](int index) {
        m_picked = index;
        emit Click();
    });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_picked = -1;
        emit Change();
    });
}

void PickList::AddItem(const QString& text)
{
    const QString shown = currentText();
    addItem(text);
    if (count() == 1) {  // the first item would pick itself
        setCurrentIndex(-1);
        setEditText(shown);
    }
}

void PickList::setText(const QString& text)
{
    m_picked = -1;
    setEditText(text);
}

QString fromUtf8(const std::string& text) { return QString::fromStdString(text); }
std::string toUtf8(const QString& text) { return text.toStdString(); }
