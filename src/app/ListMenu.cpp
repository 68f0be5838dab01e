#include "app/ListMenu.h"

#include "app/ListBox.h"
#include "app/frmFz.h"
#include "app/frmHf.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "exchange/windows/Exchange.h"
#include "project/ProjectFolders.h"
#include "project/Workspace.h"
#include "ui/Fields.h"
#include "ui/Platform.h"
#include "views/Views.h"

namespace {

/// The person picks one of the folder's parameter files.
void takeFolder(ListBox& list)
{
    const auto file = dialogs().openFile("文件夹里的任一参数文件 (*参数.txt)|*参数.txt|");
    if (!file) return;
    try {
        const auto folder = filePath(*file).parent_path().u8string();
        const TakenFolder taken = TakeFolder({folder.begin(), folder.end()});
        if (!taken.outcome)
            dialogs().box(taken.outcome.refusal->msg);
        else
            list.AddItem(fromUtf8(taken.name));
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
    }
}

}  // namespace

std::span<const ListCommand> listCommands()
{
    static constexpr ListCommand kAll[] = {
        {"mnuPmt", "线路平面图", true,
         [](QWidget* caller, ListBox&, const QString& project) { lookAtPlan(caller, toUtf8(project)); }},
        {"mnuZdm", "纵断面图", true,
         [](QWidget* caller, ListBox&, const QString& project) { lookAtProfile(caller, toUtf8(project)); }},
        {"mnuHdm", "横断面图", true,
         [](QWidget* caller, ListBox&, const QString& project) { lookAtSection(caller, toUtf8(project)); }},
        {"mnuExport", "导出…", true,
         [](QWidget* caller, ListBox&, const QString& project) { ExportProject(caller, project); }},
        {"mnuCopyAs", "复制为…", true,
         [](QWidget* caller, ListBox& list, const QString& project) {
             frmFz form(project);
             QObject::connect(&form, &frmFz::created, &list, [&list](const QString& name) { list.AddItem(name); });
             form.showModal(caller);
         }},
        {"mnuOpenFolder", "打开文件夹", true,
         [](QWidget*, ListBox&, const QString& project) {
             const std::string folder = ProjectPath(toUtf8(project));
             if (!FolderExists(folder) || !platform().open(fromUtf8(folder)))
                 dialogs().box(Notice("“" + toUtf8(project) + "”的文件夹不能打开！"));
         }},
        {"mnuRestore", "恢复…", true,
         [](QWidget* caller, ListBox&, const QString& project) {
             frmHf form(project);
             form.showModal(caller);
         }},
        {"mnuImport", "导入…", false,
         [](QWidget* caller, ListBox& list, const QString&) {
             ImportProject(caller, [&list](const QString& name) { list.AddItem(name); });
         }},
        {"mnuTakeFolder", "加入已有文件夹…", false, [](QWidget*, ListBox& list, const QString&) { takeFolder(list); }},
    };
    return kAll;
}
