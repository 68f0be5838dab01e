#include "screens/windows/frmPlfy.h"

#include "base/Numbers.h"
#include "controls/FormScaling.h"
#include "screens/Plfy.h"
#include "screens/windows/Hints.h"

using namespace Qt::StringLiterals;

frmPlfy::frmPlfy()
    : ScreenForm(
          {.form = "frmPlfy",
           .caption = u"批量放样"_s,
           .grid = "MsfgPlfyZb",
           .del = "butPlzbDel",
           .save = "butPlzbSave",
           .back = "butPlzbBack",
           .wait = "txtPlzbWait",
           .columns = kCoordinateColumns,
           .layout = kPlfyExport,
           .hint = u"输入开始里程、结束里程和间距，按“计 算”；或按“批量放样”，选一个每行为 里程,偏距 的文本文件"_s})
{
    txtPlzbQdlc = stakeBox("txtPlzbQdlc", Of::Alignment, Shows::First);
    txtPlzbZdlc = stakeBox("txtPlzbZdlc", Of::Alignment, Shows::Last);
    txtPlzbBc = box("txtPlzbBc", IsUnsignedDecimalKey, hint::step);
    txtPlzbPj = box("txtPlzbPj", IsUnsignedDecimalKey, hint::runOffset);
    chePlzbJj = check("chePlzbJj", u"夹角"_s);
    txtPlzbJj = lockedBox("txtPlzbJj", IsSignedDecimalKey, hint::skew);
    auto* stretch = ui::fieldLine({{u"开始里程"_s, txtPlzbQdlc},
                                   {u"结束里程"_s, txtPlzbZdlc},
                                   {u"间距"_s, txtPlzbBc},
                                   {u"偏距"_s, txtPlzbPj},
                                   {chePlzbJj, txtPlzbJj}});
    auto* czFrame = stationFrame({"comPlzbCz", "chePlFyzb", "txtPlzbCzX", "txtPlzbCzY"});
    auto* butPlzbCalc = button("butPlzbCalc", u"计 算"_s);
    auto* bugPlfy = button("bugPlfy", u"批量放样"_s);
    layOut({ui::frame(u"放样范围"_s, stretch), czFrame}, {butPlzbCalc, bugPlfy}, bugPlfy);

    opensBox(chePlzbJj, txtPlzbJj);
    on(butPlzbCalc, &XPButton::Click, [this] { butPlzbCalc_Click(); });
    on(bugPlfy, &XPButton::Click, [this] { run([this](RowSink& rows) { return CalcPlfyFile(rows, readStation()); }); });
}

void frmPlfy::Form_Load()
{
    ScreenForm::Form_Load();
    ResizeInit(*this);
}

void frmPlfy::Form_Resize() { ResizeForm(*this); }

void frmPlfy::butPlzbCalc_Click()
{
    const PlfyInput in{textOf(txtPlzbQdlc),    textOf(txtPlzbZdlc), textOf(txtPlzbBc), textOf(txtPlzbPj),
                       chePlzbJj->isChecked(), textOf(txtPlzbJj),   readStation()};
    run([&](RowSink& rows) { return CalcPlfy(in, rows); });
}
