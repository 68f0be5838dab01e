#include "tools/frmZbzfs.h"

#include "controls/XPButton.h"
#include "engine/Numbers.h"
#include "platform/HouseLook.h"
#include "tools/Zbzfs.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>

frmZbzfs::frmZbzfs(QWidget* parent) : Form(QStringLiteral("frmZbzfs"), QStringLiteral("坐标正反算"), parent)
{
    auto* butZsCalc = control<XPButton>("butZsCalc", QStringLiteral("计 算"));
    auto* butZsBack = control<XPButton>("butZsBack", QStringLiteral("返 回"));
    auto* butFsCalc = control<XPButton>("butFsCalc", QStringLiteral("计 算"));
    auto* butFsBack = control<XPButton>("butFsBack", QStringLiteral("返 回"));

    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(house::kMargin);
    all->addWidget(frame(QStringLiteral("坐标正算"),
                         {{"txtZsCzX", QStringLiteral("测站点X"), IsSignedDecimalKey, txtZsCzX},
                          {"txtZsCzY", QStringLiteral("测站点Y"), IsSignedDecimalKey, txtZsCzY},
                          {"txtZsFwj", QStringLiteral("方位角"), IsSignedDecimalKey, txtZsFwj},
                          {"txtZsJl", QStringLiteral("距 离"), IsUnsignedDecimalKey, txtZsJl},
                          {"txtZsJsdX", QStringLiteral("计算点X"), nullptr, txtZsJsdX},
                          {"txtZsJsdY", QStringLiteral("计算点Y"), nullptr, txtZsJsdY}},
                         butZsCalc, butZsBack));
    all->addWidget(frame(QStringLiteral("坐标反算"),
                         {{"txtFsCzx", QStringLiteral("测站点X"), IsSignedDecimalKey, txtFsCzx},
                          {"txtFsCzy", QStringLiteral("测站点Y"), IsSignedDecimalKey, txtFsCzy},
                          {"txtFsHsX", QStringLiteral("后视点X"), IsSignedDecimalKey, txtFsHsX},
                          {"txtFsHsY", QStringLiteral("后视点Y"), IsSignedDecimalKey, txtFsHsY},
                          {"txtFsFwj", QStringLiteral("计算方位角"), nullptr, txtFsFwj},
                          {"txtFsJl", QStringLiteral("计算距离"), nullptr, txtFsJl}},
                         butFsCalc, butFsBack));
    txtZsFwj->setPlaceholderText(QStringLiteral("度.分分秒秒"));
    txtZsCzX->setFocus();

    on(butZsCalc, &XPButton::Click, [this] { butZsCalc_Click(); });
    on(butFsCalc, &XPButton::Click, [this] { butFsCalc_Click(); });
    for (auto* back : {butZsBack, butFsBack}) on(back, &XPButton::Click, [this] { unload(); });
}

QGroupBox* frmZbzfs::frame(const QString& caption, std::initializer_list<Field> fields, XPButton* calc, XPButton* back)
{
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setSpacing(house::kGrid);
    for (const auto& field : fields) {
        field.box = control<QLineEdit>(field.name);
        field.box->setMinimumWidth(144);  // a coordinate of 13 digits
        if (field.keys)
            filterKeys(field.box, field.keys);
        else
            setLocked(field.box, true);
        form->addRow(field.label, field.box);
    }
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(house::kGrid);
    for (auto* button : {calc, back}) {
        button->setMinimumSize(88, 32);
        buttons->addWidget(button, 1);
    }
    auto* group = new QGroupBox(caption);
    auto* all = new QVBoxLayout(group);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(2 * house::kGrid);
    all->addLayout(form);
    all->addStretch(1);
    all->addLayout(buttons);
    setTabOrder(std::prev(fields.end())->box, calc);
    setTabOrder(calc, back);
    return group;
}

void frmZbzfs::butZsCalc_Click()
{
    const auto text = [](QLineEdit* box) { return toUtf8(box->text()); };
    ZsResult point;
    const auto outcome = CalcZs({text(txtZsCzX), text(txtZsCzY), text(txtZsFwj), text(txtZsJl)}, point);
    if (!outcome) return refuse(*outcome.refusal);
    txtZsJsdX->setText(fromUtf8(point.x));
    txtZsJsdY->setText(fromUtf8(point.y));
}

void frmZbzfs::butFsCalc_Click()
{
    const auto text = [](QLineEdit* box) { return toUtf8(box->text()); };
    FsResult ray;
    const auto outcome = CalcZbFs({text(txtFsCzx), text(txtFsCzy), text(txtFsHsX), text(txtFsHsY)}, ray);
    if (!outcome) return refuse(*outcome.refusal);
    txtFsFwj->setText(fromUtf8(ray.fwj));
    txtFsJl->setText(fromUtf8(ray.jl));
}
