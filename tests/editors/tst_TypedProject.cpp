// A project typed from nothing, through the wizard, by mouse and keyboard: its files are those of the sample.

#include "base/CodePage.h"
#include "editors/EditorFile.h"
#include "editors/EditorWindow.h"
#include "editors/windows/frmSelect.h"
#include "project/LoadProject.h"
#include "support/QtTests.h"
#include "support/SharedDiff.h"

#include <QRadioButton>

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string sampleBytes(const std::string& project, std::string_view file)
{
    return ProjectFolder::bytesOf(std::string(VM_SOURCE_DIR) + "/samples/" + project + "/" + std::string(file));
}

void choose(const QWidget& wizard, int option)
{
    auto& button = named<QRadioButton>(wizard, qPrintable(QStringLiteral("optCs%1").arg(option)));
    QTest::mouseClick(&button, Qt::LeftButton, {}, {10, button.height() / 2});
}

/// Opens an option's window, works on it and leaves it by its back button.
void edit(const QWidget& wizard, int option, const std::function<void(EditorForm&)>& work)
{
    choose(wizard, option);
    useModal([&] { click(wizard, "cmdSelectNext"); },
             [&](QWidget& window) {
                 auto* form = qobject_cast<EditorForm*>(&window);
                 if (!form) qFatal("no editor but %s", qPrintable(window.objectName()));
                 work(*form);
             });
}

/// Frame boxes by keys; the first cell by the mouse, all others by Enter.
void typeWithEnter(EditorForm& form, const EditorContent& content)
{
    const EditorWindow w(form);
    const auto boxes = form.table().frameBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        QTest::keyClicks(&named<QLineEdit>(form, boxes[i].control.data()),
                         QString::fromStdString(content.frameTexts[i]));
    w.click(1, 1);
    for (std::size_t row = 0; row < content.rows.size(); ++row)
        for (int col = 1; col <= form.table().lastColumn(); ++col) {
            QCOMPARE(form.CurRow, static_cast<int>(row) + 1);
            QCOMPARE(form.CurCol, col);
            w.type(content.rows[row][static_cast<std::size_t>(col - 1)].c_str());
            const bool last = row + 1 == content.rows.size() && col == form.table().lastColumn();
            if (!last) w.enter();  // it would start a row more, filled in where the editor does that
        }
    w.push("Save");
    w.push("Back");
}

/// The first block in full; of every other one its end stake and end radius: the rest is filled in.
void typeBlocks(EditorForm& form, const EditorContent& content)
{
    const EditorWindow w(form);
    for (int row = 1; row <= static_cast<int>(content.rows.size()); ++row)
        for (int col = 1; col <= 7; ++col) {
            if (row > 1 && col != 2 && col != 7) continue;
            w.click(row, col);
            w.type(content.rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(col - 1)].c_str());
        }
    w.push("Save");
    w.push("Back");
}

void typeGrades(QWidget& window, const char* fill, const char* cut, const char* height)
{
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window)) qFatal("the window did not become active");
    QTest::keyClicks(window.focusWidget(), QString::fromUtf8(fill));
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    QTest::keyClicks(window.focusWidget(), QString::fromUtf8(cut));
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    QTest::keyClicks(window.focusWidget(), QString::fromUtf8(height));
    click(window, "cmdBpjsOk");
}

/// A choice window: an option, 确 定, then the editor that opens over it.
void chooseAndEdit(const QWidget& wizard, int option, const char* pick, const char* ok,
                   const std::function<void(EditorForm&)>& work)
{
    choose(wizard, option);
    useModal([&] { click(wizard, "cmdSelectNext"); },
             [&](QWidget& window) {
                 auto& button = named<QRadioButton>(window, pick);
                 QTest::mouseClick(&button, Qt::LeftButton, {}, {10, button.height() / 2});
                 useModal([&] { click(window, ok); },
                          [&](QWidget& editor) { work(*qobject_cast<EditorForm*>(&editor)); });
             });
}

}  // namespace

class tst_TypedProject : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void theRoadByIntersectionPoints()
    {
        ScriptedDialogs dialogs;
        const ScriptedPlatform seams;
        const ProjectFolder folder;
        QVERIFY(CreateProject("新路"));
        LoadProject();
        const auto sample = [](const EditorTable& t) { return EditorContentOf(t, sampleBytes("示例一", t.file)); };
        const auto withEnter = [&](EditorForm& form) { typeWithEnter(form, sample(form.table())); };
        {
            frmSelect wizard;
            wizard.show();
            edit(wizard, 5, withEnter);
            edit(wizard, 0, withEnter);
            chooseAndEdit(wizard, 1, "optPqxSelectJd", "cmdPqxSelectOk", withEnter);
            edit(wizard, 2, withEnter);
            chooseAndEdit(wizard, 3, "optCgSelectXx", "cmdCgSelectOk", withEnter);
            edit(wizard, 4, withEnter);
            choose(wizard, 6);
            useModal([&] { click(wizard, "cmdSelectNext"); },
                     [](QWidget& window) { typeGrades(window, "2", "3", "12"); });
            QCOMPARE(folder.text("其他参数.txt"), "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
            for (const int option : {7, 8, 9, 10}) edit(wizard, option, withEnter);
            click(wizard, "cmdSelectBack");
            QVERIFY(!wizard.isVisible());
        }
        const std::vector<Msg> saved(10, Msg{"数据保存成功！", "", Icon::Information});
        QCOMPARE(dialogs.messages, saved);

        int files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(std::string(VM_SOURCE_DIR) + "/samples/示例一")) {
            const std::string name = entry.path().filename().string();
            QVERIFY2(ProjectFolder::bytesOf(entry.path().string()) == folder.bytes(name), name.c_str());
            ++files;
        }
        QCOMPARE(files, 11);

        Shared typed = shared;
        shared = {};
        std::filesystem::copy(std::string(VM_SOURCE_DIR) + "/samples/示例一", ProjectPath("示例一"));
        gProject = "示例一";
        LoadProject();
        typed.session.gridLeftDown = shared.session.gridLeftDown;
        typed.session.pqxModel = shared.session.pqxModel;
        QCOMPARE(QString::fromStdString(differences(typed, shared)), QString());
    }

    void theRampByBlocks()
    {
        ScriptedDialogs dialogs;
        const ScriptedPlatform seams;
        const ProjectFolder folder;
        QVERIFY(CreateProject("匝道"));
        LoadProject();
        {
            frmSelect wizard;
            wizard.show();
            chooseAndEdit(wizard, 1, "optPqxSelectJm", "cmdPqxSelectOk", [](EditorForm& form) {
                typeBlocks(form, EditorContentOf(form.table(), sampleBytes("示例二", form.table().file)));
            });
            click(wizard, "cmdSelectBack");
        }
        QCOMPARE(dialogs.messages.size(), 1u);
        QVERIFY(gElemCount > 0);
        QCOMPARE(folder.text("平曲线参数.txt"), Utf8FromCp936(sampleBytes("示例二", "平曲线参数.txt")));
    }
};

VM_QT_TEST(tst_TypedProject)
#include "tst_TypedProject.moc"
