#include "platform/Fields.h"

#include "controls/KeyCodes.h"
#include "platform/HouseLook.h"
#include "platform/InputMethod.h"
#include "platform/Platform.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

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

}  // namespace

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
    palette.setColor(QPalette::Base, locked ? house::kLocked : house::kOpen);
    box->setPalette(palette);
}

PickList::PickList(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
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
