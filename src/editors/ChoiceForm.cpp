#include "editors/ChoiceForm.h"

#include "controls/XPButton.h"
#include "platform/HouseLook.h"

#include <QHBoxLayout>
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

    auto* options = new QHBoxLayout;
    options->setContentsMargins(8, 8, 8, 8);
    options->setSpacing(32);
    options->addWidget(first);
    options->addWidget(second);
    options->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(house::kGrid);
    buttons->addStretch(1);
    for (auto* button : {ok, cancel}) {
        button->setMinimumWidth(104);
        buttons->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(house::kMargin);
    all->addLayout(options);
    all->addStretch(1);
    all->addLayout(buttons);
    setMinimumWidth(320);
}
