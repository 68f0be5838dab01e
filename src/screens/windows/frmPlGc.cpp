#include "screens/windows/frmPlGc.h"

#include "base/Numbers.h"
#include "screens/PlGc.h"
#include "screens/windows/Hints.h"

using namespace Qt::StringLiterals;

frmPlGc::frmPlGc()
    : ScreenForm(
          {.form = "frmPlGc",
           .caption = u"批量计算高程"_s,
           .grid = "MsfgPlGc",
           .del = "butPlGcDel",
           .save = "butPlGcSave",
           .back = "butPlBack",
           .wait = "txtPlGcWait",
           .columns = kElevationRunColumns,
           .layout = kPlGcExport,
           .hint = u"输入开始里程、结束里程和间距，按“计 算”；或按“批量计算”，选一个每行为 里程,偏距 的文本文件"_s})
{
    txtPlGcQdlc = stakeBox("txtPlGcQdlc", Of::Profile, Shows::First);
    txtPlGcZdlc = stakeBox("txtPlGcZdlc", Of::Profile, Shows::Last);
    txtPlGcPj = box("txtPlGcPj", IsUnsignedDecimalKey, hint::runOffset);
    txtPlGcJj = box("txtPlGcJj", IsUnsignedDecimalKey, hint::step);
    cheLm = check("cheLm", u"扣除路面厚度"_s);
    txtLmhd = lockedBox("txtLmhd", IsSignedDecimalKey, hint::layer);
    auto* stretch = ui::fieldLine({{u"开始里程"_s, txtPlGcQdlc},
                                   {u"结束里程"_s, txtPlGcZdlc},
                                   {u"偏距"_s, txtPlGcPj},
                                   {u"间距"_s, txtPlGcJj},
                                   {cheLm, txtLmhd}});
    auto* butPlGcCalc = button("butPlGcCalc", u"计 算"_s);
    auto* bugPlgc = button("bugPlgc", u"批量计算"_s);
    layOut({ui::frame(u"计算范围"_s, stretch)}, {butPlGcCalc, bugPlgc}, bugPlgc);

    opensBox(cheLm, txtLmhd);
    on(butPlGcCalc, &XPButton::Click, [this] { butPlGcCalc_Click(); });
    on(bugPlgc, &XPButton::Click,
       [this] { run([thickness = textOf(txtLmhd)](RowSink& rows) { return CalcPlGcFile(thickness, rows); }); });
}

void frmPlGc::butPlGcCalc_Click()
{
    const PlGcInput in{textOf(txtPlGcQdlc), textOf(txtPlGcZdlc), textOf(txtPlGcPj), textOf(txtPlGcJj), textOf(txtLmhd)};
    run([&](RowSink& rows) { return CalcPlGc(in, rows); });
}
