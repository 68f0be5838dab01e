// The right click menu of the project list.

#include "app/ListMenu.h"
#include "app/frmMain.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"

#include <QMenu>
#include <QPointer>

namespace {

/// The names of the entries that a right click at that place shows.
QStringList entries(frmMain& main, const QPoint& at)
{
    auto& list = named<ListBox>(main, "lstProjects");
    emit list.customContextMenuRequested(at);
    QPointer<QMenu> menu = main.findChild<QMenu*>(QStringLiteral("mnuProjects"));
    if (!menu) return {};
    QStringList names;
    for (const auto* entry : menu->actions())
        if (!entry->isSeparator()) names << entry->objectName();
    menu->close();
    delete menu;
    return names;
}

}  // namespace

class tst_ListMenu : public QObject {
    Q_OBJECT

private slots:
    void aProjectHasItsEntriesAndTheListItsOwn()
    {
        ProjectFolder folder;
        std::ofstream(gAppPath + "/参数文件/项目名称.txt") << Cp936FromUtf8("测试") << "\r\n";
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        QCOMPARE(list.count(), 1);
        QStringList all, ofList;
        for (const auto& command : listCommands()) {
            all << QString::fromUtf8(command.name);
            if (!command.ofProject) ofList << QString::fromUtf8(command.name);
        }
        QCOMPARE(entries(main, list.visualItemRect(list.item(0)).center()), all);
        QCOMPARE(entries(main, QPoint(20, list.viewport()->height() - 5)), ofList);
    }

    void exportAsksForAFileAndCancelEndsIt()
    {
        ProjectFolder folder;
        std::ofstream(gAppPath + "/参数文件/项目名称.txt") << Cp936FromUtf8("测试") << "\r\n";
        ScriptedDialogs dialogs;
        dialogs.cancelSave();
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        emit list.customContextMenuRequested(list.visualItemRect(list.item(0)).center());
        main.findChild<QMenu*>(QStringLiteral("mnuProjects"))
            ->findChild<QAction*>(QStringLiteral("mnuExport"))
            ->trigger();
        QCOMPARE(dialogs.filters.size(), size_t(1));
        QCOMPARE(dialogs.messages.size(), size_t(0));
    }
};

VM_QT_TEST(tst_ListMenu)
#include "tst_ListMenu.moc"
