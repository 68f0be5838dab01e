#include "screens/windows/frmDgdGc.h"

#include "base/Numbers.h"
#include "screens/DgdGc.h"
#include "screens/windows/Hints.h"

using namespace Qt::StringLiterals;

frmDgdGc::frmDgdGc()
    : ScreenForm({.form = "frmDgdGc",
                  .caption = u"计算单个点高程"_s,
                  .grid = "MsfgDgdGc",
                  .del = "butDgdGcDel",
                  .save = "butDgdGcSave",
                  .back = "butDgdBack",
                  .wait = "txtGcWait",
                  .columns = kElevationColumns,
                  .layout = kDgdGcExport,
                  .hint = u"输入里程，按“计 算”，每按一次得到一行"_s})
{
    txtDgdGcFylc = stakeBox("txtDgdGcFylc", Of::Profile, Shows::Range);
    comDgdGcz = sidePicker("comDgdGcz");
    txtDgdGcPj = lockedBox("txtDgdGcPj", IsUnsignedDecimalKey, hint::offset);
    cheDgdLm = check("cheDgdLm", u"扣除路面厚度"_s);
    txtDgdLmhd = lockedBox("txtDgdLmhd", IsSignedDecimalKey, hint::layer);
    auto* point = ui::fieldLine({{u"计算里程"_s, txtDgdGcFylc}, {u""_s, comDgdGcz}, {u"偏距"_s, txtDgdGcPj}});
    auto* layer = ui::fieldLine({{cheDgdLm, txtDgdLmhd}});
    auto* butDgdGcCalc = button("butDgdGcCalc", u"计 算"_s);
    layOut({ui::frame(u"计算点"_s, ui::down({point, layer}))}, {butDgdGcCalc});

    on(comDgdGcz, &PickList::Change, [this] {
        comDgdGcz->setText(u"中桩"_s);
        open(txtDgdGcPj, false);
    });
    on(comDgdGcz, &PickList::Click, [this] { sidePicked(comDgdGcz, txtDgdGcPj); });
    opensBox(cheDgdLm, txtDgdLmhd);
    on(butDgdGcCalc, &XPButton::Click, [this] { butDgdGcCalc_Click(); });
}

void frmDgdGc::butDgdGcCalc_Click()
{
    const DgdGcInput in{textOf(txtDgdGcFylc), toUtf8(comDgdGcz->Text()), textOf(txtDgdGcPj), textOf(txtDgdLmhd)};
    run([&](RowSink& rows) { return CalcDgdGc(in, rows); });
}
