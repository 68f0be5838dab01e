#include "app/frmHf.h"

#include "app/ListBox.h"
#include "base/FileError.h"
#include "controls/XPButton.h"
#include "dialogs/Dialogs.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "ui/Layout.h"

#include <QLabel>

using namespace Qt::StringLiterals;

frmHf::frmHf(const QString& project)
    : Form(u"frmHf"_s, u"恢复“%1”"_s.arg(project)), m_project(project), lstHf(control<ListBox>("lstHf")),
      butHf(control<XPButton>("butHf", u"恢 复"_s)), butHfBack(control<XPButton>("butHfBack", u"返 回"_s))
{
    auto* label = control<QLabel>("lblHf", u"被替换掉的参数文件，新的在上面："_s);
    label->setBuddy(lstHf);
    lstHf->setMinimumSize(440, 280);
    lstHf->setHint(u"还没有备份。\n保存时被替换的参数文件会留在这里，\n每个文件最近 20 份。"_s);
    ui::arrange(*this, {label, lstHf, ui::buttonRow({butHf, butHfBack})});
    on(butHf, &XPButton::Click, [this] { butHf_Click(); });
    on(butHfBack, &XPButton::Click, [this] { unload(); });
    fill();
}

void frmHf::fill()
{
    m_backups = BackupsOf(toUtf8(m_project));
    lstHf->Clear();
    for (const Backup& kept : m_backups)
        lstHf->AddItem(u"%1　%2　%3 行"_s.arg(fromUtf8(kept.when), fromUtf8(kept.file)).arg(kept.rows));
}

void frmHf::butHf_Click()
{
    const int chosen = lstHf->ListIndex();
    if (chosen < 0) {
        dialogs().box(Notice("请选择一个备份！"));
        return;
    }
    const Backup& kept = m_backups.at(static_cast<std::size_t>(chosen));
    if (!dialogs().box(Question("用 " + kept.when + " 的备份替换现在的“" + kept.file + "”？"))) return;
    try {
        RestoreBackup(toUtf8(m_project), kept);
        dialogs().box({"恢复成功，重新打开项目后生效！", "", Icon::Information});
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
    }
    fill();
}
