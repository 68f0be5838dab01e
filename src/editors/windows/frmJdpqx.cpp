#include "editors/windows/frmJdpqx.h"

#include "controls/XPButton.h"
#include "dialogs/Messages.h"
#include "screens/windows/frmZdcs.h"
#include "tables/CalcTables.h"

frmJdpqx::frmJdpqx(QWidget* parent) : EditorForm(JdpqxTable(), parent)
{
    on(addButton("butJdView", QStringLiteral("查看主点参数")), &XPButton::Click, [this] { butJdView_Click(); });
}

/// The main points as the last LoadProject compiled them, so of the last save.
void frmJdpqx::butJdView_Click()
{
    if (gZdCount < 1) {
        dialogs().box(Notice("请先输入参数！", Icon::None));
        return;
    }
    frmZdcs().showModal(this);
}
