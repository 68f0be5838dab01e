#include "tools/windows/frmZbzfs.h"

#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "tools/Zbzfs.h"
#include "ui/Layout.h"

#include <QGroupBox>

frmZbzfs::frmZbzfs() : Form(QStringLiteral("frmZbzfs"), QStringLiteral("坐标正反算"))
{
    auto* forward = task(QStringLiteral("坐标正算"),
                         {{"txtZsCzX", QStringLiteral("测站点X"), IsSignedDecimalKey, txtZsCzX},
                          {"txtZsCzY", QStringLiteral("测站点Y"), IsSignedDecimalKey, txtZsCzY},
                          {"txtZsFwj", QStringLiteral("方位角"), IsSignedDecimalKey, txtZsFwj},
                          {"txtZsJl", QStringLiteral("距 离"), IsUnsignedDecimalKey, txtZsJl},
                          {"txtZsJsdX", QStringLiteral("计算点X"), nullptr, txtZsJsdX},
                          {"txtZsJsdY", QStringLiteral("计算点Y"), nullptr, txtZsJsdY}},
                         "butZsCalc", &frmZbzfs::butZsCalc_Click, "butZsBack");
    auto* inverse = task(QStringLiteral("坐标反算"),
                         {{"txtFsCzx", QStringLiteral("测站点X"), IsSignedDecimalKey, txtFsCzx},
                          {"txtFsCzy", QStringLiteral("测站点Y"), IsSignedDecimalKey, txtFsCzy},
                          {"txtFsHsX", QStringLiteral("后视点X"), IsSignedDecimalKey, txtFsHsX},
                          {"txtFsHsY", QStringLiteral("后视点Y"), IsSignedDecimalKey, txtFsHsY},
                          {"txtFsFwj", QStringLiteral("计算方位角"), nullptr, txtFsFwj},
                          {"txtFsJl", QStringLiteral("计算距离"), nullptr, txtFsJl}},
                         "butFsCalc", &frmZbzfs::butFsCalc_Click, "butFsBack");
    for (auto* x : {txtZsCzX, txtFsCzx, txtFsHsX}) x->setToolTip(QStringLiteral("X坐标（北），米"));
    for (auto* y : {txtZsCzY, txtFsCzy, txtFsHsY}) y->setToolTip(QStringLiteral("Y坐标（东），米"));
    txtZsFwj->setToolTip(QStringLiteral("方位角，度.分分秒秒：45.3000 是 45度30分00秒；从北顺时针，负数为逆时针"));
    txtZsJl->setToolTip(QStringLiteral("水平距离，米，不带负号"));
    txtZsFwj->setPlaceholderText(QStringLiteral("度.分分秒秒"));
    ui::arrange(*this, {ui::across({forward, inverse})});
    txtZsCzX->setFocus();
}

QGroupBox* frmZbzfs::task(const QString& caption, std::initializer_list<Field> fields, const char* calcName,
                          Handler calc, const char* backName)
{
    ui::Fields column;
    for (const auto& field : fields) {
        field.box = control<QLineEdit>(field.name);
        ui::fitDigits(field.box, 16);  // an azimuth in words is wider than a coordinate
        if (field.keys)
            filterKeys(field.box, field.keys);
        else
            setLocked(field.box, true);
        column.emplace_back(field.label, field.box);
    }
    auto* butCalc = control<XPButton>(calcName, QStringLiteral("计 算"));
    auto* butBack = control<XPButton>(backName, QStringLiteral("返 回"));
    on(butCalc, &XPButton::Click, [this, calc] { (this->*calc)(); });
    on(butBack, &XPButton::Click, [this] { unload(); });
    return ui::frame(caption, ui::down({ui::fieldColumn(column), ui::buttonRow({butCalc, butBack})}));
}

bool frmZbzfs::commandKey(const QKeyCombination& key)
{
    if (key != QKeyCombination(Qt::Key_F5)) return false;
    if (txtFsCzx->parentWidget()->isAncestorOf(focusWidget()))
        butFsCalc_Click();
    else
        butZsCalc_Click();
    return true;
}

void frmZbzfs::butZsCalc_Click()
{
    const auto text = [](QLineEdit* box) { return toUtf8(box->text()); };
    ForwardPoint point;
    const auto outcome = CalcForward({text(txtZsCzX), text(txtZsCzY), text(txtZsFwj), text(txtZsJl)}, point);
    if (!outcome) return refuse(*outcome.refusal);
    txtZsJsdX->setText(fromUtf8(point.x));
    txtZsJsdY->setText(fromUtf8(point.y));
}

void frmZbzfs::butFsCalc_Click()
{
    const auto text = [](QLineEdit* box) { return toUtf8(box->text()); };
    InverseRay ray;
    const auto outcome = CalcInverse({text(txtFsCzx), text(txtFsCzy), text(txtFsHsX), text(txtFsHsY)}, ray);
    if (!outcome) return refuse(*outcome.refusal);
    txtFsFwj->setText(fromUtf8(ray.fwj));
    txtFsJl->setText(fromUtf8(ray.jl));
}
