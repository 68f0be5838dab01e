#include "app/frmNewProjects.h"

#include "controls/XPButton.h"
#include "project/Workspace.h"
#include "ui/Layout.h"

frmNewProjects::frmNewProjects()
    : Form(QStringLiteral("frmNewProjects"), QStringLiteral("新建项目")),
      txtNewProjects(control<QLineEdit>("txtNewProjects")),
      cmdNewProjectsOK(control<XPButton>("cmdNewProjectsOK", QStringLiteral("确 定"))),
      cmdNewProjectsCancel(control<XPButton>("cmdNewProjectsCancel", QStringLiteral("取 消")))
{
    txtNewProjects->setMinimumWidth(264);
    ui::arrange(*this, {ui::fieldLine({{QStringLiteral("项目名称"), txtNewProjects}}),
                        ui::buttonRow({cmdNewProjectsOK, cmdNewProjectsCancel})});
    txtNewProjects->setFocus();

    on(cmdNewProjectsOK, &XPButton::Click, [this] { cmdNewProjectsOK_Click(); });
    on(cmdNewProjectsCancel, &XPButton::Click, [this] { unload(); });
}

bool frmNewProjects::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || focusWidget() != txtNewProjects) return false;
    cmdNewProjectsOK_Click();
    return true;
}

void frmNewProjects::cmdNewProjectsOK_Click()
{
    const auto listed = [this] { emit created(fromUtf8(gProject)); };
    if (const auto outcome = CreateProject(toUtf8(txtNewProjects->text()), listed); !outcome) {
        dialogs().box(outcome.refusal->msg);
        txtNewProjects->clear();
        txtNewProjects->setFocus();
        return;
    }
    unload();
}
