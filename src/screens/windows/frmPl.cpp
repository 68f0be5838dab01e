#include "screens/windows/frmPl.h"

#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "project/OpenRoad.h"
#include "screens/Pl.h"
#include "screens/windows/Hints.h"
#include "screens/windows/frmJgw.h"
#include "ui/Layout.h"

using namespace Qt::StringLiterals;

frmPl::frmPl(frmJgw& structures) : Form(u"frmPl"_s, u"批量计算结构物"_s), m_structures(structures)
{
    const auto box = [this](const char* name) {
        auto* made = control<QLineEdit>(name);
        filterKeys(made, IsSignedDecimalKey);
        ui::fitDigits(made);
        return made;
    };
    txtQdlc = box("txtQdlc");
    txtZdlc = box("txtZdlc");
    txtBc = box("txtBc");
    for (auto* stake : {txtQdlc, txtZdlc}) stake->setToolTip(hint::stake);
    txtBc->setToolTip(hint::step);
    if (const auto range = alignmentRange()) {
        txtQdlc->setPlaceholderText(fromUtf8(range->first));
        txtZdlc->setPlaceholderText(fromUtf8(range->last));
    }
    auto* butOK = control<XPButton>("butOK", u"确    定"_s);
    auto* butCancel = control<XPButton>("butCancel", u"取    消"_s);
    ui::arrange(*this, {ui::fieldColumn(
                            {{u"批量计算起点"_s, txtQdlc}, {u"批量计算终点"_s, txtZdlc}, {u"批量计算间距"_s, txtBc}}),
                        ui::buttonRow({butOK, butCancel})});
    on(butOK, &XPButton::Click, [this] { butOK_Click(); });
    on(butCancel, &XPButton::Click, [this] { unload(); });
}

void frmPl::butOK_Click()
{
    const PlInput in{toUtf8(txtQdlc->text()), toUtf8(txtZdlc->text()), toUtf8(txtBc->text())};
    if (const Outcome outcome = CalcPl(in, m_structures.read()); outcome.refusal) return refuse(*outcome.refusal);
    m_structures.butJgwCalc_Click();
    unload();
}
