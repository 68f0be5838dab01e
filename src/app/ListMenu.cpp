#include "app/ListMenu.h"

#include "app/ListBox.h"
#include "app/frmHf.h"
#include "exchange/windows/Exchange.h"
#include "ui/Fields.h"
#include "views/Views.h"

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
        {"mnuRestore", "恢复…", true,
         [](QWidget* caller, ListBox&, const QString& project) {
             frmHf form(project);
             form.showModal(caller);
         }},
        {"mnuImport", "导入…", false,
         [](QWidget* caller, ListBox& list, const QString&) {
             ImportProject(caller, [&list](const QString& name) { list.AddItem(name); });
         }},
    };
    return kAll;
}
