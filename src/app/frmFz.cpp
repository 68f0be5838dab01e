#include "app/frmFz.h"

#include "base/FileError.h"
#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "dialogs/FileBox.h"
#include "project/ProjectFolders.h"
#include "ui/Layout.h"

using namespace Qt::StringLiterals;

frmFz::frmFz(const QString& project)
    : Form(u"frmFz"_s, u"把“%1”复制为"_s.arg(project)), m_project(project), txtFzMc(control<QLineEdit>("txtFzMc")),
      butFzOK(control<XPButton>("butFzOK", u"确 定"_s)), butFzBack(control<XPButton>("butFzBack", u"取 消"_s))
{
    txtFzMc->setMinimumWidth(264);
    ui::arrange(*this, {ui::fieldLine({{u"项目名称"_s, txtFzMc}}), ui::buttonRow({butFzOK, butFzBack})});
    txtFzMc->setText(project);
    txtFzMc->selectAll();
    txtFzMc->setFocus();
    on(butFzOK, &XPButton::Click, [this] { butFzOK_Click(); });
    on(butFzBack, &XPButton::Click, [this] { unload(); });
}

bool frmFz::Form_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || focusWidget() != txtFzMc) return false;
    butFzOK_Click();
    return true;
}

void frmFz::butFzOK_Click()
{
    const std::string name(Trim(toUtf8(txtFzMc->text())));
    try {
        if (const auto outcome = CopyProject(toUtf8(m_project), name); !outcome) {
            dialogs().box(outcome.refusal->msg);
            txtFzMc->selectAll();
            txtFzMc->setFocus();
            return;
        }
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
        return;
    }
    emit created(fromUtf8(name));
    unload();
}
