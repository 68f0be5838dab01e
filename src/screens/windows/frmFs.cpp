#include "screens/windows/frmFs.h"

#include "base/Numbers.h"
#include "exchange/windows/Exchange.h"
#include "screens/Fs.h"
#include "screens/windows/Hints.h"

using namespace Qt::StringLiterals;

frmFs::frmFs()
    : ScreenForm({.form = "frmFs",
                  .caption = u"坐标反算桩号"_s,
                  .grid = "MsfgFs",
                  .del = "butFsDel",
                  .save = "butFsSave",
                  .back = "butFsBack",
                  .wait = "txtFsWait",
                  .columns = kInverseColumns,
                  .layout = kFsExport,
                  .hint = u"输入坐标，按“计 算”；或按“批量反算”，选一个每行为 X,Y 的文本文件"_s})
{
    txtFsx = box("txtFsx", IsSignedDecimalKey, hint::pointX);
    txtFsY = box("txtFsY", IsSignedDecimalKey, hint::pointY);
    auto* point = ui::fieldLine({{u"X坐标"_s, txtFsx}, {u"Y坐标"_s, txtFsY}});
    auto* butFsCalc = button("butFsCalc", u"计 算"_s);
    auto* butPlfs = button("butPlfs", u"批量反算"_s);
    layOut({ui::frame(u"测点"_s, point)}, {butFsCalc, butPlfs}, butPlfs);
    addComparison(*grid);

    on(butFsCalc, &XPButton::Click, [this] {
        run([in = FsInput{textOf(txtFsx), textOf(txtFsY)}](RowSink& rows) { return CalcFs(in, rows); });
    });
    on(butPlfs, &XPButton::Click, [this] { run([](RowSink& rows) { return CalcFsFile(rows); }); });
}
