// What an editor and the wizard say of a file that cannot be read or written.

#include "editors/EditorWindow.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmPqxSelect.h"
#include "editors/windows/frmSelect.h"
#include "project/Backups.h"
#include "support/FailingCalls.h"
#include "support/QtTests.h"
#include "ui/QuietLine.h"

#include <QRadioButton>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr auto kSettings = "其他参数.txt";
constexpr auto kSet = "交点法\r\n线性\r\n2\r\n3\r\n12\r\n";

Msg unread(const std::string& file, const std::string& reason = "读写错误")
{
    return {"“" + file + "”无法读取！\n" + reason, "错误", Icon::Exclamation};
}
Msg unwritten(const std::string& file, const std::string& reason)
{
    return {"“" + file + "”无法写入！\n" + reason, "错误", Icon::Exclamation};
}

/// A link that leads nowhere takes the place of the file; a folder where there are no links.
void makeUnreadable(const ProjectFolder& folder, const std::string& file)
{
    folder.remove(file);
    std::error_code none;
    fs::create_symlink("/no/such/place", folder.path(file), none);
    if (none) fs::create_directory(folder.path(file));
}

void next(const QWidget& wizard, int option)
{
    named<QRadioButton>(wizard, qPrintable(QStringLiteral("optCs%1").arg(option))).setChecked(true);
    click(wizard, "cmdSelectNext");
}

FailingCalls fullDisk()
{
    return FailingCalls([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
}

struct Traverse {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder{{"导线点参数.txt", "A,1,2,\r\nB,3,4,\r\n"}};
    frmDxd form;
    EditorWindow window{form};

    Traverse()
    {
        window.click(1, 1);
        window.type("C");
    }
};

}  // namespace

class tst_EditorFiles : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void anUnreadableFileOpensNoEditor_data()
    {
        QTest::addColumn<int>("option");
        QTest::addColumn<QString>("file");
        const char* files[] = {"导线点参数.txt",   "平曲线参数.txt",   "竖曲线参数.txt",  "超高参数.txt",
                               "超高宽度参数.txt", "断链参数.txt",     nullptr,           "左幅填方参数.txt",
                               "右幅填方参数.txt", "左幅挖方参数.txt", "右幅挖方参数.txt"};
        for (int option = 0; option < 11; ++option)
            if (files[option]) QTest::newRow(files[option]) << option << QString::fromUtf8(files[option]);
    }
    void anUnreadableFileOpensNoEditor()
    {
        QFETCH(int, option);
        QFETCH(QString, file);
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{kSettings, kSet}};
        makeUnreadable(folder, toUtf8(file));
        const auto kind = fs::symlink_status(folder.path(toUtf8(file))).type();
        QVERIFY(kind != fs::file_type::regular);
        frmSelect wizard;
        wizard.show();
        next(wizard, option);
        QCOMPARE(dialogs.messages, std::vector<Msg>{unread(toUtf8(file))});
        QVERIFY(wizard.isVisible());
        QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &wizard);
        QVERIFY(fs::symlink_status(folder.path(toUtf8(file))).type() == kind);
    }

    void unreadableSettingsOpenNothing()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{kSettings, kSet}};
        makeUnreadable(folder, kSettings);
        frmSelect wizard;
        wizard.show();
        for (const int option : {1, 3, 6, 7, 8, 9, 10}) {
            dialogs.messages.clear();
            next(wizard, option);
            QCOMPARE(dialogs.messages, std::vector<Msg>{unread(kSettings)});
        }
        QVERIFY(wizard.isVisible());
    }

    void missingFilesOpenAsEmptyGrids()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        const ProjectFolder folder;
        frmDxd form;
        const EditorWindow window(form);
        QCOMPARE(window.grid.Rows(), 2);
        QVERIFY(dialogs.messages.empty());
    }

    void aFileThatAnotherProgramChangedIsSaidBeforeTheSave()
    {
        Traverse e;
        const auto& line = named<QuietLine>(e.form, "lblRoad");
        const auto changed = QStringLiteral("导线点参数.txt 已被其他程序修改，保存会替换它");
        QVERIFY(!line.text().contains(changed));
        e.folder.write("导线点参数.txt", "A,1,2,\r\nB,3,4,\r\nZ,9,9,\r\n");
        e.window.click(2, 1);
        QVERIFY(line.text().startsWith(changed));
        QVERIFY(line.doubtful());
        e.window.click(1, 1);
        click(e.form, "cmdDxdSave");
        QVERIFY(!line.text().contains(changed));
        const auto kept = BackupsOf(gProject);
        QCOMPARE(kept.size(), std::size_t(1));
        QCOMPARE(ProjectFolder::bytesOf(kept[0].path), std::string("A,1,2,\r\nB,3,4,\r\nZ,9,9,\r\n"));
        e.window.click(2, 1);
        QVERIFY(!line.text().contains(changed));
    }

    void aFileThatCannotBeKeptIsReplacedAndThatIsTold()
    {
        Traverse e;
        const auto& line = named<QuietLine>(e.form, "lblRoad");
        {
            const FailingCalls unreadable([](const Call& call) { return call.name == "read" ? EIO : 0; });
            click(e.form, "cmdDxdSave");
        }
        QVERIFY(line.text().startsWith(QStringLiteral("导线点参数.txt 没有备份：读写错误")));
        QVERIFY(line.doubtful());
        QCOMPARE(e.folder.text("导线点参数.txt"), "C,1,2,\r\nB,3,4,\r\n");
        QVERIFY(BackupsOf(gProject).empty());
    }

    void aFailedSaveSaysSoAndKeepsTheWork()
    {
        Traverse e;
        {
            const FailingCalls full = fullDisk();
            click(e.form, "cmdDxdSave");
        }
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{unwritten("导线点参数.txt", "磁盘已满")});
        QVERIFY(e.form.isVisible());
        QVERIFY(e.form.Edited);
        QCOMPARE(e.folder.text("导线点参数.txt"), "A,1,2,\r\nB,3,4,\r\n");
        click(e.form, "cmdDxdSave");
        QCOMPARE(e.dialogs.last().text, "数据保存成功！");
        QVERIFY(!e.form.Edited);
        QCOMPARE(e.folder.text("导线点参数.txt"), "C,1,2,\r\nB,3,4,\r\n");
    }

    void goingBackOverAFailedSaveSaysSoAndStays()
    {
        Traverse e;
        e.dialogs.yes();
        {
            const FailingCalls full = fullDisk();
            click(e.form, "cmdDxdBack");
        }
        QCOMPARE(e.dialogs.last(), unwritten("导线点参数.txt", "磁盘已满"));
        QVERIFY(e.form.isVisible());
        QVERIFY(e.form.Edited);
    }

    void aWriteProtectedFileIsNotSaved()
    {
        Traverse e;
        fs::permissions(e.folder.path("导线点参数.txt"), fs::perms(0444));
        click(e.form, "cmdDxdSave");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{unwritten("导线点参数.txt", "没有写入权限")});
        QVERIFY(e.form.Edited);
        QCOMPARE(e.folder.text("导线点参数.txt"), "A,1,2,\r\nB,3,4,\r\n");
    }

    void aSaveWhoseFolderIsGoneSaysSo()
    {
        Traverse e;
        fs::remove_all(e.folder.path(""));
        click(e.form, "cmdDxdSave");
        QCOMPARE(e.dialogs.messages, std::vector<Msg>{unwritten("导线点参数.txt", "文件夹不存在")});
        QVERIFY(e.form.Edited);
    }

    void writeProtectedSettingsAreNotChanged()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder{{kSettings, kSet}};
        fs::permissions(folder.path(kSettings), fs::perms(0444));
        const auto refused = unwritten(kSettings, "没有写入权限");

        frmBpjs grades;
        grades.show();
        click(grades, "cmdBpjsOk");
        QCOMPARE(dialogs.messages, std::vector<Msg>{refused});
        QVERIFY(grades.isVisible());

        frmPqxSelect model;
        model.show();
        click(model, "cmdPqxSelectOk");
        QCOMPARE(dialogs.messages, (std::vector<Msg>{refused, refused}));
        QVERIFY(model.isVisible());
        QCOMPARE(folder.text(kSettings), kSet);
    }
};

VM_QT_TEST(tst_EditorFiles)
#include "tst_EditorFiles.moc"
