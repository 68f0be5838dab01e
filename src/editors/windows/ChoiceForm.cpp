#include "editors/windows/ChoiceForm.h"

#include "controls/XPButton.h"
#include "ui/Layout.h"

#include <QRadioButton>

ChoiceForm::ChoiceForm(const ChoiceText& text, std::function<Outcome(bool)> accept, QWidget* parent)
    : Form(QString::fromUtf8(text.form), text.caption, parent)
{
    auto* first = control<QRadioButton>(text.first, text.firstCaption);
    auto* second = control<QRadioButton>(text.second, text.secondCaption);
    first->setChecked(true);
    auto* ok = control<XPButton>(text.ok, QStringLiteral("确 定"));
    auto* cancel = control<XPButton>(text.cancel, QStringLiteral("取 消"));
    on(ok, &XPButton::Click, [this, first, accept = std::move(accept)] {
        if (const Outcome done = accept(first->isChecked()); !done) return refuse(*done.refusal);
        unload();
    });
    on(cancel, &XPButton::Click, [this] { unload(); });

    ui::arrange(*this, {ui::across({first, second}), ui::buttonRow({ok, cancel})});
    setMinimumWidth(320);
}
