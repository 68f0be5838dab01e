// The two lists of the main window: projects made, opened and deleted, phone projects made and removed.

#include "app/frmMain.h"
#include "app/frmNewProjects.h"
#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/Utf16File.h"
#include "controls/XPButton.h"
#include "phone/Phone.h"
#include "phone/windows/frmSjName.h"
#include "support/FailingCalls.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "tables/CalcTables.h"

#include <QLabel>

namespace fs = std::filesystem;

namespace {

const Msg kOpened{"打开项目成功！", "", Icon::Information};
const Msg kSelect{"请选择一个项目！", "注意", Icon::Exclamation};
const Msg kExists{"项目名称已存在，请重新输入项目名称！", "错误", Icon::Critical};
const Msg kBadName{"项目名称只能是中文、英文或者数字", "错误", Icon::Critical};
const Msg kDelete{"确定要删除线路参数？", "注意", Icon::Question, Msg::YesNo, Msg::No};
const Msg kDeletePhone{"确定要删除手机版参数？", "注意", Icon::Question, Msg::YesNo, Msg::No};
const Msg kConverted{"转换完成，请按帮助中的说明复制参数到手机！", "完成", Icon::Information};

using Names = QStringList;

Names names(const QWidget& main, const char* list)
{
    Names all;
    auto& box = named<ListBox>(main, list);
    for (int i = 0; i < box.count(); ++i) all << box.item(i)->text();
    return all;
}

void select(const QWidget& main, const char* list, int row) { named<ListBox>(main, list).setCurrentRow(row); }

std::string catalogue() { return Utf8FromCp936(ProjectFolder::bytesOf(WorkspacePath() + "/项目名称.txt")); }
void writeCatalogue(const std::string& text) { WriteBytes(WorkspacePath() + "/项目名称.txt", Cp936FromUtf8(text)); }

/// A window on a workspace of its own, shown.
struct Shown {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n"}};
    std::optional<frmMain> window;

    explicit Shown(const std::string& listed = "测试\r\n")
    {
        writeCatalogue(listed);
        window.emplace();
        window->show();
    }
    frmMain& main() { return *window; }

    /// Types a name into the new-project dialog and confirms; `then` looks at the dialog.
    void create(const char* name, const std::function<void(QWidget&)>& then = {})
    {
        useModal([this] { click(main(), "cmdNewProjects"); },
                 [&](QWidget& dialog) {
                     type(dialog, "txtNewProjects", name);
                     click(dialog, "cmdNewProjectsOK");
                     if (then) then(dialog);
                 });
    }
    void convert(const char* name, const std::function<void(QWidget&)>& then = {})
    {
        useModal([this] { click(main(), "butZh"); },
                 [&](QWidget& dialog) {
                     type(dialog, "txtsjName", name);
                     click(dialog, "sjXmOK");
                     if (then) then(dialog);
                 });
    }
};

QStringList texts(std::initializer_list<const char*> all)
{
    QStringList list;
    for (const char* text : all) list << QString::fromUtf8(text);
    return list;
}

}  // namespace

class tst_Projects : public QObject {
    Q_OBJECT

private slots:
    // Start

    void startShowsTheCatalogueInFileOrder()
    {
        Shown shown("滨河路\r\nB2\r\n安康道\r\n");
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"滨河路", "B2", "安康道"}));
        QCOMPARE(names(shown.main(), "lstSj"), Names());
        QCOMPARE(named<ListBox>(shown.main(), "lstProjects").ListIndex(), -1);
        QVERIFY(shown.dialogs.messages.empty());
    }
    void startMakesWorkspaceAndCatalogue()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        fs::remove_all(WorkspacePath());
        frmMain main;
        main.show();
        QVERIFY(FileExists(WorkspacePath() + "/项目名称.txt"));
        QCOMPARE(catalogue(), std::string());
        QCOMPARE(names(main, "lstProjects"), Names());
        click(main, "cmdOpenProjects");
        QCOMPARE(dialogs.messages, std::vector<Msg>{kSelect});
    }
    void startShowsThePhoneCatalogueWithoutItsLastPiece()
    {
        ScriptedDialogs dialogs;
        ProjectFolder folder;
        fs::create_directory(PhonePath());
        WriteUtf16File(PhonePath() + "/XMMC.txt", "b\r\na\r\ncut");
        frmMain main;
        main.show();
        QCOMPARE(names(main, "lstSj"), texts({"b", "a"}));
    }
    void startThatCannotMakeItsWorkspaceIsFatal()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        fs::remove_all(WorkspacePath());
        WriteBytes(WorkspacePath(), "a file");
        frmMain main;
        main.show();
        QCOMPARE(seams.ended, std::vector<int>{1});
        QCOMPARE(dialogs.messages.size(), 1u);
    }

    // New project

    void newProjectDialog()
    {
        frmNewProjects dialog;
        QCOMPARE(dialog.windowTitle(), QStringLiteral("新建项目"));
        QCOMPARE(dialog.findChild<QLabel*>()->text(), QStringLiteral("项目名称"));
        const auto caption = [&](const char* name) { return dialog.findChild<XPButton*>(name)->Caption(); };
        QCOMPARE(caption("cmdNewProjectsOK"), QStringLiteral("确 定"));
        QCOMPARE(caption("cmdNewProjectsCancel"), QStringLiteral("取 消"));
    }
    void newProjectIsTrimmedListedAndNotOpened()
    {
        Shown shown;
        shared.tables.elemCount = 7;
        const Shared before = shared;
        shown.create("  滨河路 ", [](QWidget& dialog) { QVERIFY(!dialog.isVisible()); });
        QCOMPARE(gProject, std::string("滨河路"));
        QCOMPARE(catalogue(), std::string("测试\r\n滨河路\r\n"));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"测试", "滨河路"}));
        QCOMPARE(shown.folder.text("其他参数.txt"), std::string("未设置\r\n未设置\r\n未设置\r\n未设置\r\n"));
        QCOMPARE(std::distance(fs::directory_iterator(ProjectPath("滨河路")), {}), 1);
        QVERIFY(shared == before);
        QVERIFY(shown.dialogs.messages.empty());
    }
    void nameInTheCatalogueIsRefusedAndStaysInTheProject()
    {
        Shown shown("测试\r\nroad\r\n");
        shown.create(" road", [](QWidget& dialog) {
            QVERIFY(dialog.isVisible());
            QCOMPARE(textOf(dialog, "txtNewProjects"), QString());
            QCOMPARE(dialog.focusWidget()->objectName(), QStringLiteral("txtNewProjects"));
            click(dialog, "cmdNewProjectsCancel");
            QVERIFY(!dialog.isVisible());
        });
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kExists});
        QCOMPARE(gProject, std::string("road"));
        QCOMPARE(catalogue(), std::string("测试\r\nroad\r\n"));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"测试", "road"}));
    }
    void folderThatCannotBeMadeIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"", "   ", "a/b", "a\\b", "..", "a:b", "没有的字😀", "COM1"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void folderThatCannotBeMadeIsRefused()
    {
        QFETCH(QString, name);
        Shown shown;
        shown.create(name.toUtf8().constData(), [](QWidget& dialog) {
            QVERIFY(dialog.isVisible());
            QCOMPARE(textOf(dialog, "txtNewProjects"), QString());
            QCOMPARE(dialog.focusWidget()->objectName(), QStringLiteral("txtNewProjects"));
        });
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kBadName});
        QCOMPARE(catalogue(), std::string("测试\r\n"));
    }
    void folderThatExistsIsRefused()
    {
        Shown shown;
        fs::create_directory(ProjectPath("旧路"));
        shown.create("旧路");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kBadName});
        QCOMPARE(catalogue(), std::string("测试\r\n"));
    }
    void nameThatDiffersInCaseIsAccepted()
    {
        Shown shown("Road\r\n");
        shown.create("road");
        QVERIFY(shown.dialogs.messages.empty());  // this file system tells the two folders apart
        QCOMPARE(catalogue(), std::string("Road\r\nroad\r\n"));
    }

    void newProjectOnAFullDiskIsShownAsItIsListed()
    {
        Shown shown;
        const fs::path path = ProjectPath("乙");
        const FailingCalls full([&](const Call& call) {
            return call.name == "open" && fs::path(call.path).parent_path() == path && call.flags & O_CREAT ? ENOSPC
                                                                                                            : 0;
        });
        shown.create("乙", [](QWidget& dialog) {
            QVERIFY(dialog.isVisible());
            QCOMPARE(textOf(dialog, "txtNewProjects"), QString());
        });
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kBadName});
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"测试", "乙"}));
        QCOMPARE(catalogue(), std::string("测试\r\n乙\r\n"));
    }

    // Open project

    void openWithoutASelection()
    {
        Shown shown;
        click(shown.main(), "cmdOpenProjects");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kSelect});
    }
    void doubleClickOnTheEmptyPart()
    {
        Shown shown;
        auto* rows = named<ListBox>(shown.main(), "lstProjects").viewport();
        QTest::mouseDClick(rows, Qt::LeftButton, {}, rows->rect().bottomRight() - QPoint(8, 8));
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kSelect});
    }
    void aClickOnTheEmptyPartTakesNoSelectionAway_data()
    {
        QTest::addColumn<QString>("list");
        for (const char* name : {"lstProjects", "lstSj"}) QTest::newRow(name) << QString::fromUtf8(name);
    }
    void aClickOnTheEmptyPartTakesNoSelectionAway()
    {
        QFETCH(QString, list);
        Shown shown("测试\r\n乙\r\n");
        select(shown.main(), "lstProjects", 0);
        for (const char* name : {"a", "b"}) shown.convert(name);
        auto& box = named<ListBox>(shown.main(), list.toUtf8().constData());
        auto* rows = box.viewport();
        const QPoint empty = rows->rect().bottomRight() - QPoint(8, 8);
        const auto row = [&](int i) { return box.visualItemRect(box.item(i)).center(); };
        QTest::mouseClick(rows, Qt::LeftButton, {}, row(1));
        QCOMPARE(box.ListIndex(), 1);
        for (const auto held : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier})
            for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
                QTest::mouseClick(rows, button, held, empty);
                QCOMPARE(box.ListIndex(), 1);
            }
        QTest::mousePress(rows, Qt::LeftButton, {}, empty);  // begun there, let go on the way
        QTest::mouseMove(rows, empty - QPoint(0, 12));
        QTest::mouseRelease(rows, Qt::LeftButton, {}, empty - QPoint(0, 12));
        QCOMPARE(box.ListIndex(), 1);
        QTest::mousePress(rows, Qt::LeftButton, {}, row(1));
        QTest::mouseMove(rows, empty);
        QTest::mouseRelease(rows, Qt::LeftButton, {}, empty);
        QCOMPARE(box.ListIndex(), 1);
        QTest::mouseClick(rows, Qt::LeftButton, Qt::ControlModifier, row(1));
        QTest::keyClick(&box, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(box.ListIndex(), 1);
        QTest::mouseClick(rows, Qt::LeftButton, {}, row(0));
        QCOMPARE(box.ListIndex(), 0);
    }
    void aDoubleClickOnTheEmptyPartOpensTheSelectedProject()
    {
        Shown shown("测试\r\n乙\r\n");
        gProject.clear();
        auto& list = named<ListBox>(shown.main(), "lstProjects");
        select(shown.main(), "lstProjects", 0);
        const QPoint empty = list.viewport()->rect().bottomRight() - QPoint(8, 8);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, empty);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, empty);
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kOpened});
        QCOMPARE(gProject, std::string("测试"));
    }
    void doubleClickOpens()
    {
        Shown shown;
        gProject.clear();
        auto& list = named<ListBox>(shown.main(), "lstProjects");
        const auto row = list.visualItemRect(list.item(0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, row);
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kOpened});
        QCOMPARE(gProject, std::string("测试"));
    }
    void openTrimsTheName()
    {
        Shown shown(" 测试 \r\n");
        select(shown.main(), "lstProjects", 0);
        click(shown.main(), "cmdOpenProjects");
        QCOMPARE(gProject, std::string("测试"));
    }
    void openingTwiceReloadsAndSaysSoAgain()
    {
        Shown shown;
        shown.folder.write("导线点参数.txt", "A,1,2,\r\n");
        select(shown.main(), "lstProjects", 0);
        click(shown.main(), "cmdOpenProjects");
        QCOMPARE(gDxdX.at(0), 1.0);
        shown.folder.write("导线点参数.txt", "A,5,2,\r\n");
        click(shown.main(), "cmdOpenProjects");
        QCOMPARE(gDxdX.at(0), 5.0);
        QCOMPARE(shown.dialogs.messages, (std::vector<Msg>{kOpened, kOpened}));
    }

    // Delete project

    void deleteWithoutASelection()
    {
        Shown shown;
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kSelect});
    }
    void deleteDeclined()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        shown.dialogs.no();
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kDelete});
        QCOMPARE(catalogue(), std::string("测试\r\n"));
        QVERIFY(FolderExists(ProjectPath("测试")));
    }
    void deletingTheOnlyProjectLeavesAnEmptyCatalogue()
    {
        Shown shown;
        shared.tables.elemCount = 7;
        const Shared before = shared;
        select(shown.main(), "lstProjects", 0);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QVERIFY(FileExists(WorkspacePath() + "/项目名称.txt"));
        QCOMPARE(catalogue(), std::string());
        QVERIFY(!FolderExists(ProjectPath("测试")));
        QCOMPARE(names(shown.main(), "lstProjects"), Names());
        QCOMPARE(gProject, std::string("测试"));  // the screens go on working from memory
        QVERIFY(shared == before);
    }
    void lineWithoutCrLfIsLostAtTheNextDelete()
    {
        Shown shown("a\r\n测试\r\nlast");
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"a", "测试", "last"}));
        select(shown.main(), "lstProjects", 0);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(catalogue(), std::string("测试\r\n"));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"测试"}));
        QVERIFY(FolderExists(ProjectPath("测试")));
    }
    void deletingOneOfTwoEqualNamesTakesItsOwnLine()
    {
        Shown shown("x\r\n测试\r\nx\r\n");
        select(shown.main(), "lstProjects", 2);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(catalogue(), std::string("x\r\n测试\r\n"));
    }
    void catalogueThatIsGoneAfterADeleteIsCreatedEmpty()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        fs::remove(WorkspacePath() + "/项目名称.txt");
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QVERIFY(FileExists(WorkspacePath() + "/项目名称.txt"));
        QCOMPARE(names(shown.main(), "lstProjects"), Names());
    }
    void folderThatTheCatalogueDoesNotNameIsLeftAlone()
    {
        Shown shown("b\r\n");
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"b"}));
        QVERIFY(FolderExists(ProjectPath("测试")));
        select(shown.main(), "lstProjects", 0);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QVERIFY(FolderExists(ProjectPath("测试")));
    }

    void deletingAfterAnotherCopyTakesNoOtherProjectsLine()
    {
        Shown shown("甲\r\n测试\r\n乙\r\n");
        writeCatalogue("测试\r\n乙\r\n");
        select(shown.main(), "lstProjects", 1);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kDelete});
        QCOMPARE(catalogue(), std::string("乙\r\n"));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"乙"}));
    }
    void projectThatAnotherCopyHasDeletedIsSaid()
    {
        Shown shown("甲\r\n测试\r\n");
        writeCatalogue("甲\r\n丙\r\n");
        select(shown.main(), "lstProjects", 1);
        shown.dialogs.yes();
        click(shown.main(), "cmdProjectsDel");
        QCOMPARE(shown.dialogs.messages,
                 (std::vector<Msg>{kDelete, {"“测试”已不在项目列表中！", "注意", Icon::Exclamation}}));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"甲", "丙"}));
        QVERIFY(FolderExists(ProjectPath("测试")));
    }
    void deletingOnAFullDiskIsSaidAndTheListStays()
    {
        Shown shown("甲\r\n测试\r\n");
        select(shown.main(), "lstProjects", 1);
        shown.dialogs.yes();
        {
            const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
            click(shown.main(), "cmdProjectsDel");
        }
        QCOMPARE(shown.dialogs.messages,
                 (std::vector<Msg>{kDelete, {"“项目名称.txt”无法写入！\n磁盘已满", "错误", Icon::Exclamation}}));
        QCOMPARE(catalogue(), std::string("甲\r\n测试\r\n"));
        QCOMPARE(names(shown.main(), "lstProjects"), texts({"甲", "测试"}));
        QCOMPARE(named<ListBox>(shown.main(), "lstProjects").ListIndex(), 1);
        QVERIFY(FolderExists(ProjectPath("测试")));
    }

    // Phone projects

    void convertWithoutASelection()
    {
        Shown shown;
        click(shown.main(), "butZh");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kSelect});
    }
    void convertSetsTheProjectAndLeavesTheTables()
    {
        Shown shown;
        gProject = "other";
        shared.tables.elemCount = 7;
        const Shared before = shared;
        select(shown.main(), "lstProjects", 0);
        useModal([&] { click(shown.main(), "butZh"); },
                 [](QWidget& dialog) {
                     QCOMPARE(dialog.objectName(), QStringLiteral("frmSjName"));
                     click(dialog, "sjxmCancel");
                     QVERIFY(!dialog.isVisible());
                 });
        QCOMPARE(gProject, std::string("测试"));
        QVERIFY(shared == before);
        QVERIFY(!FolderExists(PhonePath()));
        QCOMPARE(names(shown.main(), "lstSj"), Names());
    }
    void convertedProjectsAreListedOnce()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        shown.convert("road1", [](QWidget& dialog) { QVERIFY(!dialog.isVisible()); });
        shown.dialogs.yes();
        shown.convert("road1", [](QWidget& dialog) { QVERIFY(!dialog.isVisible()); });
        shown.convert("road2");
        QCOMPARE(names(shown.main(), "lstSj"), texts({"road1", "road2"}));
        QCOMPARE(ReadPhoneCatalogue(), (std::vector<std::string>{"road1", "road2"}));
    }
    void declinedOverwritingEmptiesTheNameAndStays()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        shown.convert("road1");
        shown.dialogs.no();
        shown.convert("road1", [](QWidget& dialog) {
            QVERIFY(dialog.isVisible());
            QCOMPARE(textOf(dialog, "txtsjName"), QString());
            QCOMPARE(dialog.focusWidget()->objectName(), QStringLiteral("txtsjName"));
        });
        QCOMPARE(names(shown.main(), "lstSj"), texts({"road1"}));
    }

    void removeWithoutASelection()
    {
        Shown shown;
        click(shown.main(), "butDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kSelect});
    }
    void removeDeclined()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        shown.convert("a");
        shown.dialogs.messages.clear();
        select(shown.main(), "lstSj", 0);
        shown.dialogs.no();
        click(shown.main(), "butDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kDeletePhone});
        QVERIFY(FolderExists(PhoneProjectPath("a")));
        QCOMPARE(names(shown.main(), "lstSj"), texts({"a"}));
    }
    void removingFromAListThatIsShorterThanShownEndsThere_data()
    {
        QTest::addColumn<bool>("gone");
        QTest::newRow("two lines fewer than rows") << false;
        QTest::newRow("no file") << true;
    }
    void removingFromAListThatIsShorterThanShownEndsThere()
    {
        QFETCH(bool, gone);
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        for (const char* name : {"a", "b", "c"}) shown.convert(name);
        const auto file = PhonePath() + "/XMMC.txt";
        if (gone)
            fs::remove(file);
        else
            WriteUtf16File(file, "a\r\n");
        shown.dialogs.messages.clear();
        select(shown.main(), "lstSj", 0);
        shown.dialogs.yes();
        click(shown.main(), "butDel");
        QCOMPARE(shown.dialogs.messages, std::vector<Msg>{kDeletePhone});
        QCOMPARE(names(shown.main(), "lstSj"), texts({"a", "b", "c"}));
        QCOMPARE(named<ListBox>(shown.main(), "lstSj").ListIndex(), 0);
        QVERIFY(FolderExists(PhoneProjectPath("a")));
        QCOMPARE(FileExists(file), !gone);
    }
    void phoneProjectThatAnotherCopyHasRemovedIsSaid()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        for (const char* name : {"a", "b"}) shown.convert(name);
        WriteUtf16File(PhonePath() + "/XMMC.txt", "b\r\n");
        shown.dialogs.messages.clear();
        select(shown.main(), "lstSj", 0);
        shown.dialogs.yes();
        click(shown.main(), "butDel");
        QCOMPARE(shown.dialogs.messages,
                 (std::vector<Msg>{kDeletePhone, {"“a”已不在项目列表中！", "注意", Icon::Exclamation}}));
        QCOMPARE(names(shown.main(), "lstSj"), texts({"b"}));
        QVERIFY(FolderExists(PhoneProjectPath("a")));
    }
    void removingOnAFullDiskIsSaidAndTheListStays()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        for (const char* name : {"a", "b"}) shown.convert(name);
        shown.dialogs.messages.clear();
        select(shown.main(), "lstSj", 0);
        shown.dialogs.yes();
        {
            const FailingCalls full([](const Call& call) { return call.name == "write" ? ENOSPC : 0; });
            click(shown.main(), "butDel");
        }
        QCOMPARE(shown.dialogs.messages,
                 (std::vector<Msg>{kDeletePhone, {"“XMMC.txt”无法写入！\n磁盘已满", "错误", Icon::Exclamation}}));
        QCOMPARE(names(shown.main(), "lstSj"), texts({"a", "b"}));
        QCOMPARE(ReadPhoneCatalogue(), (std::vector<std::string>{"a", "b"}));
        QVERIFY(FolderExists(PhoneProjectPath("a")));
    }
    void listThatCannotBeReadIsSaidAtStart()
    {
        ScriptedDialogs dialogs;
        ScriptedPlatform seams;
        ProjectFolder folder;
        fs::create_directories(PhonePath() + "/XMMC.txt");
        frmMain main;
        main.show();
        QCOMPARE(dialogs.messages, (std::vector<Msg>{{"“XMMC.txt”无法读取！\n读写错误", "错误", Icon::Exclamation}}));
        QCOMPARE(names(main, "lstProjects"), texts({"测试"}));
        QVERIFY(seams.ended.empty());
    }
    void removingKeepsListAndFileInStep()
    {
        Shown shown;
        select(shown.main(), "lstProjects", 0);
        for (const char* name : {"a", "b", "c"}) shown.convert(name);
        for (const auto& [row, rest] : {std::pair{1, texts({"a", "c"})}, {0, texts({"c"})}, {0, Names()}}) {
            select(shown.main(), "lstSj", row);
            shown.dialogs.yes();
            click(shown.main(), "butDel");
            QCOMPARE(names(shown.main(), "lstSj"), rest);
            QCOMPARE(static_cast<qsizetype>(ReadPhoneCatalogue().size()), rest.size());
        }
        QCOMPARE(ProjectFolder::bytesOf(PhonePath() + "/XMMC.txt"), std::string());
        QVERIFY(!FolderExists(PhoneProjectPath("a")));
    }
};

VM_QT_TEST(tst_Projects)
#include "tst_Projects.moc"
