// The main window: its tables of menus and buttons, what is enabled when, its ways out, help and About box.

#include "app/frmAbout.h"
#include "app/frmMain.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "controls/XPButton.h"
#include "office/windows/SheetWindow.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QRadioButton>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

#include <memory>

namespace {

const Msg kOpened{"打开项目成功！", "", Icon::Information};

QAction& action(const QWidget& main, const char* name)
{
    auto* found = main.findChild<QAction*>(QString::fromUtf8(name));
    if (!found) qFatal("no menu item %s", name);
    return *found;
}

QString parentOf(const QWidget& main, const QAction* wanted)
{
    if (named<QMenuBar>(main, "menuBar").actions().contains(const_cast<QAction*>(wanted)))
        return QStringLiteral("menu bar");
    for (auto* menu : main.findChildren<QMenu*>())
        if (menu->actions().contains(const_cast<QAction*>(wanted))) return menu->menuAction()->objectName();
    return QStringLiteral("none");
}

/// Names of the items in the order of the menu bar, each menu before its items.
QStringList inOrder(const QList<QAction*>& actions)
{
    QStringList names;
    for (auto* item : actions) {
        names << item->objectName();
        if (item->menu()) names << inOrder(item->menu()->actions());
    }
    return names;
}

QList<QToolButton*> buttons(const QWidget& main)
{
    QList<QToolButton*> all;
    auto& bar = named<QToolBar>(main, "tbarMain");
    for (auto* item : bar.actions()) all << qobject_cast<QToolButton*>(bar.widgetForAction(item));
    return all;
}

void open(frmMain& main, int row)
{
    named<ListBox>(main, "lstProjects").setCurrentRow(row);
    click(main, "cmdOpenProjects");
}

constexpr const char* kNeedProject[] = {"EditProject", "Calc"};

}  // namespace

class tst_frmMain : public QObject {
    Q_OBJECT

private slots:
    void isANormalWindowThatTheDesktopPlaces()
    {
        ProjectFolder folder;
        frmMain main;
        main.show();
        QCOMPARE(main.windowType(), Qt::Window);
        QVERIFY(!main.isModal());
        QVERIFY(!main.testAttribute(Qt::WA_Moved));
        QCOMPARE(main.pos(), QPoint(0, 0));  // untouched: not in the middle of the screen, as a dialog
    }

    void controls_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("Label1") << QStringLiteral("电脑版和PPC版参数");
        QTest::newRow("Label2") << QStringLiteral("手机版参数");
        QTest::newRow("cmdNewProjects") << QStringLiteral("新建项目");
        QTest::newRow("cmdOpenProjects") << QStringLiteral("打开项目");
        QTest::newRow("cmdProjectsDel") << QStringLiteral("删除项目");
        QTest::newRow("butZh") << QStringLiteral("转 换");
        QTest::newRow("butDel") << QStringLiteral("移 除");
        QTest::newRow("cmdExit") << QStringLiteral("退出程序");
    }
    void controls()
    {
        QFETCH(QString, caption);
        frmMain main;
        auto& control = named<QWidget>(main, QTest::currentDataTag());
        auto* label = qobject_cast<QLabel*>(&control);
        QCOMPARE(label ? label->text() : qobject_cast<XPButton*>(&control)->Caption(), caption);
        QCOMPARE(main.windowTitle(), QStringLiteral("Velumark"));
        QCOMPARE(main.objectName(), QStringLiteral("frmMain"));
    }

    void menus_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("parent");
        const auto row = [](const char* name, const char* caption, const char* parent) {
            QTest::newRow(name) << QString::fromUtf8(caption) << QString::fromUtf8(parent);
        };
        row("Project", "工程", "menu bar");
        row("EditProject", "编辑线路参数", "Project");
        row("Calc", "计算", "menu bar");
        row("Fy", "由桩号求坐标", "Calc");
        row("ClacOne", "计算单个点坐标", "Fy");
        row("pljs", "批量计算坐标", "Fy");
        row("Fs", "由坐标求桩号", "Calc");
        row("gc", "中边桩高程", "Calc");
        row("ClacOneGc", "计算单个点高程", "gc");
        row("pljsGc", "批量计算高程", "gc");
        row("Jgwzb", "结构物角点坐标", "Calc");
        row("tool", "工具", "menu bar");
        row("Zbzfs", "坐标正反算", "tool");
        row("Fhdx", "附和导线一般平差", "tool");
        row("qlbjjs", "曲率半径计算", "tool");
        row("Help", "帮助", "menu bar");
        row("sysm", "软件使用说明", "Help");
        row("About", "关于", "Help");
    }
    void menus()
    {
        QFETCH(QString, caption);
        QFETCH(QString, parent);
        frmMain main;
        const auto& item = action(main, QTest::currentDataTag());
        QCOMPARE(item.text(), caption);
        QCOMPARE(parentOf(main, &item), parent);
    }
    void menuOrder()
    {
        frmMain main;
        const QStringList expected{
            QStringLiteral("Project"), QStringLiteral("EditProject"), QStringLiteral("Calc"),
            QStringLiteral("Fy"),      QStringLiteral("ClacOne"),     QStringLiteral("pljs"),
            QStringLiteral("Fs"),      QStringLiteral("gc"),          QStringLiteral("ClacOneGc"),
            QStringLiteral("pljsGc"),  QStringLiteral("Jgwzb"),       QStringLiteral("tool"),
            QStringLiteral("Zbzfs"),   QStringLiteral("Fhdx"),        QStringLiteral("qlbjjs"),
            QStringLiteral("Help"),    QStringLiteral("sysm"),        QStringLiteral("About")};
        QCOMPARE(inOrder(named<QMenuBar>(main, "menuBar").actions()), expected);
    }

    void toolbar_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<bool>("needsProject");
        const auto row = [](int index, const char* toolTip, const char* runs, bool needsProject) {
            QTest::newRow(runs) << index << QString::fromUtf8(toolTip) << needsProject;
        };
        row(1, "编辑线路参数", "EditProject", true);
        row(2, "计算单个点坐标", "ClacOne", true);
        row(3, "批量计算坐标", "pljs", true);
        row(4, "坐标反算桩号偏距", "Fs", true);
        row(5, "计算单个点高程", "ClacOneGc", true);
        row(6, "批量计算高程", "pljsGc", true);
        row(7, "结构物角点坐标", "Jgwzb", true);
        row(8, "坐标正反算", "Zbzfs", false);
        row(9, "附和导线平差", "Fhdx", false);
        row(10, "曲率半径计算", "qlbjjs", false);
    }
    void toolbar()
    {
        QFETCH(int, index);
        QFETCH(QString, toolTip);
        QFETCH(bool, needsProject);
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        QCOMPARE(buttons(main).size(), 10);
        auto* button = buttons(main).at(index - 1);
        QCOMPARE(button->toolTip(), toolTip);
        QCOMPARE(button->defaultAction(), &action(main, QTest::currentDataTag()));
        QCOMPARE(button->isEnabled(), !needsProject);
        open(main, 0);
        QVERIFY(button->isEnabled());
    }
    void toolbarPicturesDiffer()
    {
        frmMain main;
        for (const int side : {16, 24, 32, 64}) {
            QList<QImage> pictures;
            for (auto* button : buttons(main)) pictures << button->icon().pixmap(QSize(side, side)).toImage();
            for (int i = 0; i < pictures.size(); ++i)
                for (int j = 0; j < i; ++j) QVERIFY2(pictures[i] != pictures[j], qPrintable(QString::number(i + 1)));
        }
    }
    void toolbarButtonRunsTheMenuItem()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        useModal([&] { QTest::mouseClick(buttons(main).at(9), Qt::LeftButton); },
                 [](QWidget& form) { QCOMPARE(form.objectName(), QStringLiteral("frmQljs")); });
    }

    void screens_data()
    {
        QTest::addColumn<QString>("form");
        const auto row = [](const char* name, const char* form) { QTest::newRow(name) << QString::fromUtf8(form); };
        row("EditProject", "frmSelect");
        row("ClacOne", "frmDgdZb");
        row("pljs", "frmPlfy");
        row("Fs", "frmFs");
        row("ClacOneGc", "frmDgdGc");
        row("pljsGc", "frmPlGc");
        row("Jgwzb", "frmJgw");
        row("Zbzfs", "frmZbzfs");
        row("Fhdx", "frmFhdx");
        row("qlbjjs", "frmQljs");
        row("About", "frmAbout");
    }
    void screens()
    {
        QFETCH(QString, form);
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        open(main, 0);
        for (int i = 0; i < 2; ++i)  // fresh each time
            useModal([&] { action(main, QTest::currentDataTag()).trigger(); },
                     [&](QWidget& window) { QCOMPARE(window.objectName(), form); });
    }

    void tabOrderFollowsTheEye()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        QCOMPARE(main.focusWidget()->objectName(), QStringLiteral("lstProjects"));
        for (const char* next :
             {"cmdNewProjects", "cmdOpenProjects", "cmdProjectsDel", "lstSj", "butZh", "butDel", "cmdExit"}) {
            QTest::keyClick(main.focusWidget(), Qt::Key_Tab);
            QCOMPARE(main.focusWidget()->objectName(), QString::fromUtf8(next));
        }
    }
    void opensAProjectByKeyboardAlone()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        QTest::keyClick(main.focusWidget(), Qt::Key_Down);  // the first arrow takes the first row
        QCOMPARE(named<ListBox>(main, "lstProjects").ListIndex(), 0);
        for (int i = 0; i < 2; ++i) QTest::keyClick(main.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(main.focusWidget(), Qt::Key_Space);
        QCOMPARE(dialogs.messages, std::vector<Msg>{kOpened});
    }

    void onlyToolsAndHelpBeforeAProject()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        for (const char* name : kNeedProject) QVERIFY2(!action(main, name).isEnabled(), name);
        for (const char* name : {"Project", "tool", "Zbzfs", "Fhdx", "qlbjjs", "Help", "sysm", "About"})
            QVERIFY2(action(main, name).isEnabled(), name);
    }
    void enabledForTheRestOfTheRun()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmMain main;
        main.show();
        open(main, 0);
        dialogs.yes();
        click(main, "cmdProjectsDel");
        for (const char* name : kNeedProject) QVERIFY2(action(main, name).isEnabled(), name);
        QVERIFY(buttons(main).at(6)->isEnabled());
    }
    void enabledAlsoAfterALoadThatAGapCutShort()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                             {"断链参数.txt", "100,200,\r\n"},
                             {"竖曲线参数.txt", "0,10,0,\r\n150,11,1000,\r\n400,12,0,\r\n"}};
        frmMain main;
        main.show();
        open(main, 0);
        QCOMPARE(dialogs.messages.size(), 2u);
        QCOMPARE(dialogs.messages[0].text, std::string("桩号不存在，请检查断链数据！"));
        QVERIFY(dialogs.messages[1] == kOpened);
        for (const char* name : kNeedProject) QVERIFY2(action(main, name).isEnabled(), name);
    }

    void exitEndsAtOnceWithoutAQuestion()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        frmMain main;
        main.show();
        click(main, "cmdExit");
        QCOMPARE(seams.ended, std::vector<int>{0});
        QVERIFY(dialogs.messages.empty());
    }
    void closingTheWindowEndsTheProcess()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        frmMain main;
        main.show();
        main.close();
        QCOMPARE(seams.ended, std::vector<int>{0});
    }
    void escDoesNotEndTheProgram()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        frmMain main;
        main.show();
        QTest::keyClick(&main, Qt::Key_Escape);
        QVERIFY(main.isVisible());
        QVERIFY(seams.ended.empty());
    }
    void loadThatNeverComesBackLeavesOnlyTheWaysOut()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                             {"导线点参数.txt", "no comma here\r\n"}};
        frmMain main;
        main.show();
        dialogs.onTurn = [&] {
            for (const char* name : {"cmdNewProjects", "cmdOpenProjects", "cmdProjectsDel", "butZh", "butDel"})
                click(main, name);
            for (const char* name : {"Zbzfs", "Fhdx", "qlbjjs", "About", "sysm"}) action(main, name).trigger();
            QVERIFY(!QApplication::activeModalWidget());
            QVERIFY(dialogs.messages.empty());
            QVERIFY(seams.opened.empty());
            click(main, "cmdExit");
            if (seams.ended == std::vector<int>{0}) main.close();
            throw RunTimeError(RunTimeError::PathAccess);  // the one way out of a test
        };
        open(main, 0);
        QVERIFY(dialogs.turns == 1);
        QCOMPARE(seams.ended, (std::vector<int>{0, 0, 1}));
        QVERIFY(!action(main, "Calc").isEnabled());
    }

    void loadThatNeverComesBackTakesNoInputWhoeverCalledIt_data()
    {
        QTest::addColumn<bool>("fromEditor");
        QTest::newRow("the wizard's way back") << false;
        QTest::newRow("a save of the intersection points") << true;
    }
    void loadThatNeverComesBackTakesNoInputWhoeverCalledIt()
    {
        QFETCH(bool, fromEditor);
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
        const std::string points = "平曲线参数.txt";
        folder.writeBytes(points, ProjectFolder::bytesOf(VM_SOURCE_DIR "/samples/示例一/" + points));
        frmMain main;
        main.show();
        open(main, 0);
        folder.write("导线点参数.txt", "no comma here\r\n");
        auto* sheet = new SheetWindow(Worksheet{});
        sheet->show();

        QWidget *wizard = nullptr, *caller = nullptr;
        int turns = 0;
        dialogs.onTurn = [&] {
            if (++turns > 1) throw RunTimeError(RunTimeError::PathAccess);
            for (const char* name : {"cmdSelectNext", "cmdSelectBack", "optCs2"}) click(*wizard, name);
            for (auto* window : {wizard, caller, static_cast<QWidget*>(sheet), static_cast<QWidget*>(&main)}) {
                QTest::keyClick(window, Qt::Key_Escape);
                if (window != &main && window->windowHandle()) window->windowHandle()->close();
            }
            QVERIFY(sheet->isVisible());
            QVERIFY(!QApplication::activeModalWidget());  // nothing stands before the main window
            auto& bar = named<QToolBar>(main, "tbarMain");
            const auto at = [&](QWidget& control) { return control.mapTo(&main, control.rect().center()); };
            const auto clickMain = [&](const QPoint& place) {
                QTest::mouseClick(main.windowHandle(), Qt::LeftButton, {}, place);
            };
            clickMain(at(*bar.widgetForAction(&action(main, "qlbjjs"))));
            clickMain(at(named<QMenuBar>(main, "menuBar")) + QPoint(20 - main.width() / 2, 0));
            clickMain(at(named<QWidget>(main, "cmdNewProjects")));
            QVERIFY(!QApplication::activeModalWidget() && !QApplication::activePopupWidget());
            QTest::keyClick(main.focusWidget(), Qt::Key_Tab);
            QCOMPARE(main.focusWidget()->objectName(), QStringLiteral("cmdExit"));
            QVERIFY(seams.ended.empty());

            delete sheet;
            QTest::keyClick(main.windowHandle(), Qt::Key_Space);
            QCOMPARE(seams.ended, std::vector<int>{0});
            clickMain(at(named<QWidget>(main, "cmdExit")));
            QCOMPARE(seams.ended, (std::vector<int>{0, 0}));
            main.windowHandle()->close();
            QCOMPARE(seams.ended, (std::vector<int>{0, 0, 0}));
            throw RunTimeError(RunTimeError::PathAccess);  // the one way out of a test
        };
        useModal([&] { action(main, "EditProject").trigger(); },
                 [&](QWidget& window) {
                     caller = wizard = &window;
                     if (!fromEditor) return click(window, "cmdSelectBack");
                     named<QRadioButton>(window, "optCs1").setChecked(true);
                     useModal([&] { click(window, "cmdSelectNext"); },
                              [&](QWidget& editor) {
                                  caller = &editor;
                                  QCOMPARE(editor.objectName(), QStringLiteral("frmJdpqx"));
                                  click(editor, "cmdJdpqxSave");
                              });
                 });
        QCOMPARE(turns, 1);  // it did hang
    }
    void aSheetIsAskedAboutOnTheWayOutOfALoadThatHangs()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"},
                             {"导线点参数.txt", "no comma here\r\n"}};
        frmMain main;
        main.show();
        const QPointer<SheetWindow> sheet = new SheetWindow(Worksheet{});
        sheet->show();
        sheet->change([](Worksheet& cells) { cells.setText("A1", "work"); });
        dialogs.onTurn = [&] {
            if (seams.ended.empty() && main.isVisible()) {
                click(main, "cmdExit");
                QVERIFY(!main.isVisible());
                QVERIFY(sheet->isVisible());
                dialogs.no();
                sheet->windowHandle()->close();
                QCOMPARE(dialogs.messages.size(), 1u);
                QCoreApplication::sendPostedEvents(sheet, QEvent::DeferredDelete);
            }
            throw RunTimeError(RunTimeError::PathAccess);
        };
        open(main, 0);
        QVERIFY(!sheet);
        QCOMPARE(seams.ended, (std::vector<int>{0, 1}));
    }

    /// A sheet may be the active window, or none of the program's.
    void everyScreenStandsOverItsCallerWhateverIsActive_data() { screens_data(); }
    void everyScreenStandsOverItsCallerWhateverIsActive()
    {
        QFETCH(QString, form);
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;  // the program may be on its way out since the test before
        ProjectFolder folder;
        frmMain main;
        main.show();
        open(main, 0);
        const std::unique_ptr<SheetWindow> sheet(new SheetWindow(Worksheet{}));
        sheet->show();
        sheet->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), sheet.get());
        useModal([&] { action(main, QTest::currentDataTag()).trigger(); },
                 [&](QWidget& window) {
                     QCOMPARE(window.objectName(), form);
                     QCOMPARE(window.parentWidget(), &main);
                     QVERIFY(!sheet->parentWidget());
                     auto* button = named<QToolBar>(main, "tbarMain").widgetForAction(&action(main, "Zbzfs"));
                     QTest::mouseClick(main.windowHandle(), Qt::LeftButton, {},
                                       button->mapTo(&main, button->rect().center()));
                     int shown = 0;
                     for (auto* top : QApplication::topLevelWidgets())
                         shown += top != &main && top->isVisible() && qobject_cast<Form*>(top);
                     QCOMPARE(shown, 1);
                 });
    }

    void helpIsOpenedInTheViewer()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        frmMain main;
        main.show();
        action(main, "sysm").trigger();
        QVERIFY(seams.opened.empty());  // nothing visible while the file is missing
        const auto help = folder.root() + "/Velumark帮助.html";
        WriteBytes(help, "<html/>");
        seams.opens = false;  // nor where no viewer starts
        action(main, "sysm").trigger();
        QCOMPARE(seams.opened, std::vector<QString>{QString::fromStdString(help)});
        QVERIFY(dialogs.messages.empty());
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aboutBox()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        frmAbout about;
        about.show();
        QCOMPARE(about.windowTitle(), QStringLiteral("Velumark 1.0.0"));
        QVERIFY(!named<QLabel>(about, "Image1").pixmap().isNull());
        for (const char* name : {"Label1", "Label2", "Label3", "Label4"}) {
            const auto& label = named<QLabel>(about, name);
            QVERIFY2(!label.text().isEmpty(), name);
            QVERIFY2(!Qt::mightBeRichText(label.text()), name);
        }
        click(about, "Label1");
        QCOMPARE(seams.opened, std::vector<QString>{named<QLabel>(about, "Label1").text()});
        for (const char* name : {"Label2", "Label3", "Label4", "Image1"}) click(about, name);
        QCOMPARE(seams.opened.size(), 1u);
        QCOMPARE(named<XPButton>(about, "cmdAboutClose").Caption(), QStringLiteral("关  闭"));
        click(about, "cmdAboutClose");
        QVERIFY(!about.isVisible());
    }
};

VM_QT_TEST(tst_frmMain)
#include "tst_frmMain.moc"
