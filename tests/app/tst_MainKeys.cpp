// Keys of the main window and its small dialogs, and F1 everywhere.

#include "app/frmMain.h"
#include "app/frmNewProjects.h"
#include "base/CodePage.h"
#include "base/ReplaceFile.h"
#include "controls/XPButton.h"
#include "editors/windows/frmSelect.h"
#include "office/windows/DrawingWindow.h"
#include "phone/windows/frmSjName.h"
#include "screens/windows/frmDgdZb.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"

#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

const Msg kOpened{"打开项目成功！", "", Icon::Information};

struct Shown {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    frmMain main;

    Shown()
    {
        main.show();
        main.activateWindow();
        if (!QTest::qWaitForWindowActive(&main)) qFatal("the window does not come up");
    }
    ListBox& list() { return named<ListBox>(main, "lstProjects"); }
};

}  // namespace

class tst_MainKeys : public QObject {
    Q_OBJECT
private slots:
    void enterOpensTheSelectedProject()
    {
        Shown s;
        s.list().setFocus();
        QTest::keyClick(&s.list(), Qt::Key_Return);
        QVERIFY(s.dialogs.messages.empty());  // nothing is selected
        s.list().setCurrentRow(0);
        QTest::keyClick(&s.list(), Qt::Key_Return);
        QCOMPARE(s.dialogs.messages, std::vector<Msg>{kOpened});
        QCOMPARE(gProject, "测试");
        QTest::keyClick(&s.list(), Qt::Key_Enter);
        QCOMPARE(s.dialogs.messages.size(), 2u);
    }

    void enterOnAButtonIsThatButtonsAlone()
    {
        Shown s;
        s.list().setCurrentRow(0);
        auto& remove = named<XPButton>(s.main, "cmdProjectsDel");
        remove.setFocus();
        s.dialogs.no();
        QTest::keyClick(&remove, Qt::Key_Return);
        QCOMPARE(s.dialogs.messages.size(), 1u);
        QCOMPARE(s.dialogs.last().text.c_str(), "确定要删除线路参数？");
    }

    void enterCreatesTheProject()
    {
        Shown s;
        useModal([&] { click(s.main, "cmdNewProjects"); },
                 [&](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "新路");
                     QTest::keyClick(&named<QLineEdit>(dialog, "txtNewProjects"), Qt::Key_Return);
                     QVERIFY(!dialog.isVisible());
                 });
        QCOMPARE(s.list().item(1)->text(), u"新路"_s);
        QVERIFY(s.dialogs.messages.empty());
    }

    void enterOnCancelCreatesNothing()
    {
        Shown s;
        useModal([&] { click(s.main, "cmdNewProjects"); },
                 [&](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "新路");
                     auto& cancel = named<XPButton>(dialog, "cmdNewProjectsCancel");
                     cancel.setFocus();
                     QTest::keyClick(&cancel, Qt::Key_Return);
                 });
        QCOMPARE(s.list().count(), 1);
    }

    void enterInTheNameForThePhoneDoesNothing()
    {
        Shown s;
        s.list().setCurrentRow(0);
        useModal([&] { click(s.main, "butZh"); },
                 [&](QWidget& dialog) {
                     type(dialog, "txtsjName", "abc");
                     QTest::keyClick(&named<QLineEdit>(dialog, "txtsjName"), Qt::Key_Return);
                     QVERIFY(dialog.isVisible());
                 });
        QCOMPARE(named<ListBox>(s.main, "lstSj").count(), 0);
    }

    void f10EntersTheMenuBar()
    {
        Shown s;
        s.list().setFocus();
        QTest::keyClick(&s.list(), Qt::Key_F10);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->menuAction()->text(), u"工程"_s);
        QTest::keyClick(menu, Qt::Key_Right);
        const auto opened = [] {
            const auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            return popup ? popup->menuAction()->text() : QString();
        };
        QTRY_COMPARE(opened(), u"工具"_s);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activePopupWidget());
    }

    void altEntersTheMenuBar()
    {
        Shown s;
        s.list().setFocus();
        QTest::keyPress(&s.list(), Qt::Key_Alt);
        QTest::keyRelease(&s.list(), Qt::Key_Alt);
        auto& bar = named<QMenuBar>(s.main, "menuBar");
        QTRY_VERIFY(bar.activeAction() || QApplication::activePopupWidget() || bar.hasFocus());
    }

    void f1OpensTheChapterOfTheWindow()
    {
        Shown s;
        QTest::keyClick(&s.main, Qt::Key_F1);
        QVERIFY(s.seams.opened.empty());  // no help there
        const auto help = s.folder.root() + "/Velumark帮助.html";
        WriteBytes(help, "<html/>");
        const auto chapter = [&](QWidget& window) {
            s.seams.opened.clear();
            window.show();
            QTest::keyClick(&window, Qt::Key_F1);
            if (s.seams.opened.size() != 1) qFatal("not opened");
            const QUrl address(s.seams.opened.front());
            if (QFileInfo(address.toLocalFile()) != QFileInfo(QString::fromStdString(help))) qFatal("another file");
            return address.fragment();
        };
        QCOMPARE(chapter(s.main), u"frmMain"_s);
        frmDgdZb screen;
        QCOMPARE(chapter(screen), u"frmDgdZb"_s);
        frmSelect wizard;
        QCOMPARE(chapter(wizard), u"frmSelect"_s);
        frmNewProjects create;
        QCOMPARE(chapter(create), u"frmNewProjects"_s);
        DrawingWindow drawing({}, u"附合导线图"_s);  // the traverse's, as its sheet is
        QCOMPARE(chapter(drawing), u"frmFhdx"_s);
        // In a box of a window too, and not with another key held.
        s.seams.opened.clear();
        QTest::keyClick(&named<QLineEdit>(screen, "txtDgdZbFylc"), Qt::Key_F1, Qt::ControlModifier);
        QVERIFY(s.seams.opened.empty());
        QTest::keyClick(&named<QLineEdit>(screen, "txtDgdZbFylc"), Qt::Key_F1);
        QCOMPARE(s.seams.opened.size(), 1u);
        QVERIFY(s.dialogs.messages.empty());
    }
};

VM_QT_TEST(tst_MainKeys)
#include "tst_MainKeys.moc"
