#include "controls/XPButtonAccessible.h"

#include "controls/XPButton.h"

#include <QAccessibleWidget>

#include <utility>

namespace {

class AccessibleButton : public QAccessibleWidget {
public:
    explicit AccessibleButton(XPButton* button) : QAccessibleWidget(button, QAccessible::Button) {}
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? button()->Caption() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override
    {
        if (action != pressAction()) return QAccessibleWidget::doAction(action);
        if (button()->isEnabled()) emit button()->Click();
    }

private:
    XPButton* button() const { return static_cast<XPButton*>(widget()); }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object)
{
    if (className != u"XPButton") return nullptr;
    return new AccessibleButton(static_cast<XPButton*>(object));
}

}  // namespace

void describeButtonsToScreenReaders()
{
    static bool installed = false;
    if (!std::exchange(installed, true)) QAccessible::installFactory(makeAccessible);
}
