// The dialog that asks for the name of a phone project.

#include "base/FileBytes.h"
#include "controls/XPButton.h"
#include "phone/Phone.h"
#include "phone/windows/frmSjName.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QSignalSpy>

class tst_frmSjName : public QObject {
    Q_OBJECT

private slots:
    void controls()
    {
        frmSjName dialog;
        QCOMPARE(dialog.objectName(), QStringLiteral("frmSjName"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("手机版项目名称"));
        QCOMPARE(named<QLabel>(dialog, "Label1").text(),
                 QStringLiteral("由于很多手机目录不支持中文目录请在英文输入法状态下输入一个英文的项目名称"));
        QCOMPARE(textOf(dialog, "txtsjName"), QString());
        QCOMPARE(named<XPButton>(dialog, "sjXmOK").Caption(), QStringLiteral("确 定"));
        QCOMPARE(named<XPButton>(dialog, "sjxmCancel").Caption(), QStringLiteral("取 消"));
    }

    void onlyLettersDigitsAndBackspaceAreTyped()
    {
        frmSjName dialog;
        dialog.show();
        auto& box = named<QLineEdit>(dialog, "txtsjName");
        QTest::keyClicks(&box, QStringLiteral("a-Z .9_/0,*m"));
        QCOMPARE(box.text(), QStringLiteral("aZ90m"));
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(box.text(), QStringLiteral("aZ90"));
    }
    void enterAndPastingKeysAreCancelled()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        platform().keyIsDown = [](int) { return true; };
        frmSjName dialog;
        dialog.show();
        auto& box = named<QLineEdit>(dialog, "txtsjName");
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        QTest::keyClicks(&box, QStringLiteral("ab"));
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClick(&box, Qt::Key_Enter);
        QCOMPARE(box.text(), QStringLiteral("ab"));
        QCOMPARE(dialog.focusWidget(), &box);
        QVERIFY(dialogs.messages.empty());
    }
    void committedCharactersAreFilteredToo()
    {
        frmSjName dialog;
        dialog.show();
        auto& box = named<QLineEdit>(dialog, "txtsjName");
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("路x1"));
        QApplication::sendEvent(&box, &commit);
        QCOMPARE(box.text(), QStringLiteral("x1"));
    }

    void emptyNameIsRefusedAndTheDialogStays()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmSjName dialog;
        dialog.show();
        type(dialog, "txtsjName", "  ");
        click(dialog, "sjXmOK");
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"项目名称不能为空！", "注意", Icon::Exclamation}}));
        QVERIFY(dialog.isVisible());
    }
    void newNamesAreReportedTrimmedBeforeTheDialogGoes()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmSjName dialog;
        QSignalSpy listed(&dialog, &frmSjName::listed);
        dialog.show();
        type(dialog, "txtsjName", " a ");
        click(dialog, "sjXmOK");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(listed.size(), 1);
        QCOMPARE(listed[0][0].toString(), QStringLiteral("a"));
    }
    void overwrittenNamesAreNotReported()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        ExportForPhone("a");
        frmSjName dialog;
        QSignalSpy listed(&dialog, &frmSjName::listed);
        dialog.show();
        type(dialog, "txtsjName", "a");
        dialogs.yes();
        click(dialog, "sjXmOK");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(listed.size(), 0);
    }
    void fileThatCannotBeWrittenIsNamedAndTheDialogStays()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        std::filesystem::create_directories(PhonePath() + "/a/QTCS.txt/in the way");
        frmSjName dialog;
        QSignalSpy listed(&dialog, &frmSjName::listed);
        dialog.show();
        type(dialog, "txtsjName", "a");
        click(dialog, "sjXmOK");
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"“QTCS.txt”无法写入！\n读写错误", "错误", Icon::Exclamation}}));
        QCOMPARE(ReadPhoneCatalogue(), std::vector<std::string>());
        QCOMPARE(listed.size(), 0);
        QCOMPARE(textOf(dialog, "txtsjName"), QStringLiteral("a"));
    }
    void cancelChangesNothing()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        frmSjName dialog;
        dialog.show();
        type(dialog, "txtsjName", "a");
        click(dialog, "sjxmCancel");
        QVERIFY(!dialog.isVisible());
        QVERIFY(!FolderExists(PhonePath()));
    }
};

VM_QT_TEST(tst_frmSjName)
#include "tst_frmSjName.moc"
