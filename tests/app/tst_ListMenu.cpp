// The right click menu of the project list.

#include "app/ListMenu.h"
#include "app/frmMain.h"
#include "project/Backups.h"
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

/// Right click on the first project, then that entry.
void choose(frmMain& main, ListBox& list, const char* entry)
{
    emit list.customContextMenuRequested(list.visualItemRect(list.item(0)).center());
    main.findChild<QMenu*>(QStringLiteral("mnuProjects"))->findChild<QAction*>(QString::fromUtf8(entry))->trigger();
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

    void anOlderFileComesBack()
    {
        ProjectFolder folder{{"断链参数.txt", "9,9\r\n"}};
        std::ofstream(gAppPath + "/参数文件/项目名称.txt", std::ios::binary) << Cp936FromUtf8("测试") << "\r\n";
        keepReplaced("断链参数.txt", "1,2\r\n");
        keepReplaced("断链参数.txt", "1,2\r\n3,4\r\n");
        const Shared before = shared;
        ScriptedDialogs dialogs;
        dialogs.yes();
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        useModal([&] { choose(main, list, "mnuRestore"); },
                 [&](QWidget& window) {
                     auto& kept = named<ListBox>(window, "lstHf");
                     QCOMPARE(kept.count(), 2);
                     QVERIFY(kept.item(0)->text().endsWith(QStringLiteral("　断链参数.txt　2 行")));
                     QVERIFY(kept.item(1)->text().endsWith(QStringLiteral("　断链参数.txt　1 行")));
                     click(window, "butHf");
                     QCOMPARE(dialogs.messages.back().text, std::string("请选择一个备份！"));
                     kept.setCurrentRow(1);
                     click(window, "butHf");
                     QCOMPARE(kept.count(), 3);
                 });
        QCOMPARE(dialogs.messages.size(), size_t(3));
        QCOMPARE(dialogs.messages[1].buttons, Msg::YesNo);
        QCOMPARE(dialogs.messages[2].text, std::string("恢复成功，重新打开项目后生效！"));
        QCOMPARE(folder.text("断链参数.txt"), std::string("1,2\r\n"));
        QVERIFY(shared == before);
        QCOMPARE(gProject, std::string("测试"));
    }

    void aProjectIsCopiedUnderAnotherName()
    {
        ProjectFolder folder{{"断链参数.txt", "9,9\r\n"}};
        const Shared before = shared;
        ScriptedDialogs dialogs;
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        useModal([&] { choose(main, list, "mnuCopyAs"); },
                 [&](QWidget& window) {
                     QCOMPARE(textOf(window, "txtFzMc"), QStringLiteral("测试"));
                     click(window, "butFzOK");
                     QCOMPARE(dialogs.messages.back().text, std::string("项目名称已存在，请重新输入项目名称！"));
                     QVERIFY(window.isVisible());
                     type(window, "txtFzMc", " 测试二 ");
                     QTest::keyClick(&named<QLineEdit>(window, "txtFzMc"), Qt::Key_Return);
                     QVERIFY(!window.isVisible());
                 });
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.item(1)->text(), QStringLiteral("测试二"));
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(ProjectFolder::bytesOf(ProjectPath("测试二") + "/断链参数.txt"), std::string("9,9\r\n"));
        QCOMPARE(gProject, std::string("测试"));
        QVERIFY(shared == before);
    }

    void theFolderOfAProjectIsOpened()
    {
        ProjectFolder folder;
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        choose(main, list, "mnuOpenFolder");
        QCOMPARE(seams.opened, std::vector<QString>{fromUtf8(ProjectPath("测试"))});
        QVERIFY(dialogs.messages.empty());
        seams.opens = false;
        choose(main, list, "mnuOpenFolder");
        QCOMPARE(dialogs.messages.size(), size_t(1));
        std::filesystem::remove_all(ProjectPath("测试"));
        seams.opens = true;
        choose(main, list, "mnuOpenFolder");
        QCOMPARE(dialogs.messages.size(), size_t(2));
        QCOMPARE(seams.opened.size(), size_t(2));
    }

    void aFolderElsewhereIsTakenIn()
    {
        ProjectFolder folder;
        const std::string from = gAppPath + "/三标";
        std::filesystem::create_directory(from);
        std::ofstream(from + "/断链参数.txt") << "1,2\r\n";
        ScriptedDialogs dialogs;
        dialogs.open(from + "/断链参数.txt").open(from + "/断链参数.txt").cancelOpen();
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        choose(main, list, "mnuTakeFolder");
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.item(1)->text(), QStringLiteral("三标"));
        QVERIFY(dialogs.messages.empty());
        choose(main, list, "mnuTakeFolder");
        QCOMPARE(dialogs.messages.size(), size_t(1));
        choose(main, list, "mnuTakeFolder");
        QCOMPARE(dialogs.messages.size(), size_t(1));
        QCOMPARE(list.count(), 2);
    }

    void lettersJumpToTheName()
    {
        ProjectFolder folder;
        for (const char* name : {"A1", "B2", "B31"}) folder.project(name);
        ScriptedDialogs dialogs;
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        list.setFocus();
        QTest::keyClicks(&list, QStringLiteral("b3"));
        QCOMPARE(list.Text(), QStringLiteral("B31"));
        QVERIFY(dialogs.messages.empty());
    }

    void exportAsksForAFileAndCancelEndsIt()
    {
        ProjectFolder folder;
        std::ofstream(gAppPath + "/参数文件/项目名称.txt") << Cp936FromUtf8("测试") << "\r\n";
        ScriptedDialogs dialogs;
        dialogs.cancelSave();
        frmMain main;
        main.show();
        choose(main, named<ListBox>(main, "lstProjects"), "mnuExport");
        QCOMPARE(dialogs.filters.size(), size_t(1));
        QCOMPARE(dialogs.messages.size(), size_t(0));
    }
};

VM_QT_TEST(tst_ListMenu)
#include "tst_ListMenu.moc"
