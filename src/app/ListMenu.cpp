#include "app/ListMenu.h"

#include "app/ListBox.h"
#include "exchange/windows/Exchange.h"

std::span<const ListCommand> listCommands()
{
    static constexpr ListCommand kAll[] = {
        {"mnuExport", "导出…", true,
         [](QWidget* caller, ListBox&, const QString& project) { ExportProject(caller, project); }},
        {"mnuImport", "导入…", false,
         [](QWidget* caller, ListBox& list, const QString&) {
             ImportProject(caller, [&list](const QString& name) { list.AddItem(name); });
         }},
    };
    return kAll;
}
