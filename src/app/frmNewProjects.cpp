#include "app/frmNewProjects.h"

#include "controls/XPButton.h"
#include "platform/HouseLook.h"
#include "project/Workspace.h"

#include <QBoxLayout>
#include <QLabel>

frmNewProjects::frmNewProjects(QWidget* parent)
    : Form(QStringLiteral("frmNewProjects"), QStringLiteral("新建项目"), parent),
      txtNewProjects(control<QLineEdit>("txtNewProjects")),
      cmdNewProjectsOK(control<XPButton>("cmdNewProjectsOK", QStringLiteral("确 定"))),
      cmdNewProjectsCancel(control<XPButton>("cmdNewProjectsCancel", QStringLiteral("取 消")))
{
    auto* name = new QHBoxLayout;
    name->addWidget(control<QLabel>("Label1", QStringLiteral("项目名称")));
    name->addWidget(txtNewProjects, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (auto* button : {cmdNewProjectsOK, cmdNewProjectsCancel}) {
        button->setMinimumSize(88, 32);
        buttons->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(house::kMargin, house::kMargin, house::kMargin, house::kMargin);
    all->setSpacing(2 * house::kGrid);
    all->addLayout(name);
    all->addStretch(1);
    all->addLayout(buttons);
    txtNewProjects->setMinimumWidth(264);

    on(cmdNewProjectsOK, &XPButton::Click, [this] { cmdNewProjectsOK_Click(); });
    on(cmdNewProjectsCancel, &XPButton::Click, [this] { unload(); });
}

void frmNewProjects::cmdNewProjectsOK_Click()
{
    if (const auto outcome = CreateProject(toUtf8(txtNewProjects->text())); !outcome) {
        desk().box(outcome.refusal->msg);
        txtNewProjects->clear();
        txtNewProjects->setFocus();
        return;
    }
    emit created(fromUtf8(gProject));
    unload();
}
