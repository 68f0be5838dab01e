#include "screens/windows/frmDgdZb.h"

#include "base/Numbers.h"
#include "controls/FormScaling.h"
#include "screens/DgdZb.h"
#include "screens/windows/Hints.h"

using namespace Qt::StringLiterals;

frmDgdZb::frmDgdZb()
    : ScreenForm({.form = "frmDgdZb",
                  .caption = u"计算单个点坐标"_s,
                  .grid = "MsfgDgdzb",
                  .del = "butDgdDel",
                  .save = "butDgdSave",
                  .back = "butDgdBack",
                  .wait = "txtWait",
                  .columns = kCoordinateColumns,
                  .layout = kDgdZbExport,
                  .hint = u"输入里程，按“计 算”，每按一次得到一行"_s})
{
    txtDgdZbFylc = stakeBox("txtDgdZbFylc", Of::Alignment, Shows::Range);
    comDgdZbz = sidePicker("comDgdZbz");
    txtDgdPj = lockedBox("txtDgdPj", IsUnsignedDecimalKey, hint::offset);
    cheDgdJj = check("cheDgdJj", u"夹角"_s);
    txtDgdJj = lockedBox("txtDgdJj", IsSignedDecimalKey, hint::skew);
    auto* point =
        ui::fieldLine({{u"计算里程"_s, txtDgdZbFylc}, {u""_s, comDgdZbz}, {u"偏距"_s, txtDgdPj}, {cheDgdJj, txtDgdJj}});
    auto* czFrame = stationFrame({"comDgdCz", "cheDgdZb", "txtDgdCzX", "txtDgdCzY"});
    auto* butDgdCalc = button("butDgdCalc", u"计 算"_s);
    layOut({ui::frame(u"计算点"_s, point), czFrame}, {butDgdCalc});

    on(comDgdZbz, &PickList::Change, [this] {
        comDgdZbz->setText(u"中桩"_s);
        open(txtDgdPj, false);
    });
    on(comDgdZbz, &PickList::Click, [this] { sidePicked(comDgdZbz, txtDgdPj); });
    on(cheDgdJj, &QCheckBox::toggled, [this](bool ticked) {
        comDgdZbz->setEnabled(!ticked);
        if (ticked)
            setLocked(txtDgdPj, false);
        else
            sidePicked(comDgdZbz, txtDgdPj);
        open(txtDgdJj, ticked);
    });
    on(butDgdCalc, &XPButton::Click, [this] { butDgdCalc_Click(); });
}

void frmDgdZb::Form_Load()
{
    ScreenForm::Form_Load();
    ResizeInit(*this);
}

void frmDgdZb::Form_Resize() { ResizeForm(*this); }

void frmDgdZb::butDgdCalc_Click()
{
    const DgdZbInput in{textOf(txtDgdZbFylc),  toUtf8(comDgdZbz->Text()), textOf(txtDgdPj),
                        cheDgdJj->isChecked(), textOf(txtDgdJj),          readStation()};
    run([&](RowSink& rows) { return CalcDgdZb(in, rows); });
}
