#include "ui/frmZt.h"

#include "controls/XPButton.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"

#include <QLabel>

using namespace Qt::StringLiterals;

frmZt::frmZt(const std::vector<Converted>& converted) : Form(u"frmZt"_s, u"粘贴前核对"_s)
{
    auto* label = control<QLabel>("lblZt", u"下面 %1 处换算成数字再填入，请核对："_s.arg(converted.size()));
    auto* grid = control<MSFlexGrid>("MsfgZt");
    grid->setCols(4);
    const std::pair<QString, int> columns[] = {
        {u"序  号"_s, 900}, {u"填到"_s, 3600}, {u"原来的写法"_s, 2600}, {u"填入的数字"_s, 2600}};
    for (int col = 0; col < 4; ++col) {
        grid->setTextMatrix(0, col, columns[col].first);
        grid->setColWidth(col, columns[col].second);
        grid->setColAlignment(col, Qt::AlignCenter);
    }
    grid->setLastColumnFills(true);
    grid->holdBack(true);
    for (const Converted& one : converted) grid->appendRow({{one.where, one.printed, one.taken}, {}});
    grid->holdBack(false);
    grid->scrollToTop();
    grid->clearSelection();  // a list to read, not to type into

    auto* take = control<XPButton>("cmdZtOk", u"填 入"_s);
    auto* leave = control<XPButton>("cmdZtCancel", u"取 消"_s);
    ui::arrange(*this, {label, grid, ui::buttonRow({take, leave})});
    take->setFocus();
    on(take, &XPButton::Click, [this] {
        Taken = true;
        unload();
    });
    on(leave, &XPButton::Click, [this] { unload(); });
}

bool TakesConverted(const std::vector<Converted>& converted, QWidget* caller)
{
    if (converted.empty()) return true;
    frmZt shown(converted);
    shown.showModal(caller);
    return shown.Taken;
}
