#include "ui/Fields.h"

#include "controls/KeyCodes.h"
#include "ui/InputMethod.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int kEscape = 27;  // the form's, never a box's

class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit* box, std::function<bool(int)> keep, WhileCtrl whileCtrl)
        : QObject(box), m_keep(std::move(keep)), m_whileCtrl(whileCtrl)
    {
        setObjectName(name());
        box->installEventFilter(this);
    }
    static QString name() { return QStringLiteral("vm_keyFilter"); }

protected:
    bool eventFilter(QObject* box, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = keyAscii(*static_cast<QKeyEvent*>(event));
            return key != 0 && key != kEscape && !passes(key);
        }
        if (event->type() == QEvent::InputMethod && !m_resending) {
            m_resending = true;
            const bool done = filterCommit(box, *static_cast<QInputMethodEvent*>(event),
                                           [this](int character) { return passes(character); });
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

    std::function<bool(int)> m_keep;
    WhileCtrl m_whileCtrl;
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

void filterKeys(QLineEdit* box, std::function<bool(int keyAscii)> keep, WhileCtrl whileCtrl)
{
    delete box->findChild<QObject*>(KeyFilter::name(), Qt::FindDirectChildrenOnly);
    new KeyFilter(box, std::move(keep), whileCtrl);
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
