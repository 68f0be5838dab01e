// What the check finds, in the line of the main window and in a window of its own: when it is made, when it is dropped,
// that nothing else moves, and the way from a finding to its cell.

#include "app/CheckTurns.h"
#include "app/ListBox.h"
#include "app/frmJc.h"
#include "app/frmMain.h"
#include "controls/XPButton.h"
#include "editors/windows/EditorForm.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmSelect.h"
#include "editors/windows/frmSqx.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/RunProgram.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"
#include "support/Windows.h"
#include "ui/MSFlexGrid.h"
#include "ui/QuietLine.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QRadioButton>

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSettings = "其他参数.txt";
constexpr auto kSet = "交点法\r\n线性\r\n1\r\n1\r\n12\r\n";
constexpr auto kRoad = "0,0,0\r\nJ1,5000,1000,50,60,2500\r\n10000,0\r\n";
/// Three findings: a field that is no number, a stake that goes back, and what is left of the road behind it.
constexpr auto kProfile = "0,100\r\n500,x,900\r\n400,100,900\r\n1000,100\r\n";

struct Workspace {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder{{{kSettings, kSet}, {"平曲线参数.txt", kRoad}, {"竖曲线参数.txt", kProfile}}, "示例一"};
    const qint64 endOfTurn = CheckTurns::endOfTurn;

    /// Short turns: what is long work then does not hang on the machine.
    Workspace() { CheckTurns::endOfTurn = 1; }
    ~Workspace() { CheckTurns::endOfTurn = endOfTurn; }
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// What velumark-calc says of the project, line by line.
    QStringList command() const
    {
        const Ran ran = runCompanion({"--folder", ProjectPath(gProject), "check"});
        return QString::fromStdString(ran.out).split(u'\n', Qt::SkipEmptyParts);
    }
};

/// The bytes of every file under the folder of the program, by path.
std::map<std::string, std::string> allFiles(const ProjectFolder& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.root()))
        if (entry.is_regular_file()) files[entry.path().string()] = ProjectFolder::bytesOf(entry.path().string());
    return files;
}

void pressOpen(const frmMain& main, int row = 0)
{
    named<ListBox>(main, "lstProjects").setCurrentRow(row);
    click(main, "cmdOpenProjects");
}

QString foundOf(const frmMain& main)
{
    const auto& line = named<QuietLine>(main, "lblFound");
    return line.text();
}
QString linksOf(const frmMain& main) { return named<QLabel>(main, "lblViews").text(); }

/// Waits until the check has taken its turns.
void letItEnd(CheckTurns& turns) { QTRY_VERIFY(!turns.running()); }
/// One turn of a check that takes many, and not all of them.
void oneTurn(const CheckTurns& turns)
{
    while (turns.running() && turns.turns() == 0) QCoreApplication::processEvents();
}
CheckTurns& turnsOf(const frmMain& main) { return *main.findChild<CheckTurns*>(); }

std::string number(int value) { return std::to_string(value); }

/// A project whose check takes many turns.
std::string manyRows()
{
    std::string text;
    for (int i = 0; i < 12000; ++i) text += number(100 * i) + ",-2,-2," + number(100 * i + 90) + ",-2,-2\r\n";
    return text;
}

QStringList rowTexts(const QWidget& window)
{
    const auto& grid = named<MSFlexGrid>(window, "MsfgJc");
    QStringList rows;
    for (int row = 1; row < grid.Rows(); ++row) {
        QString text = grid.TextMatrix(row, 1);
        for (const int col : {2, 3})
            if (!grid.TextMatrix(row, col).isEmpty()) text += u':' + grid.TextMatrix(row, col);
        rows << text + u": "_s + grid.TextMatrix(row, 5);
    }
    return rows;
}

/// While a modal window is up, `step` looks at the one on top every few milliseconds, until it says that it has done.
void watch(const std::function<void()>& open, const std::function<bool(QWidget&)>& step)
{
    bool done = false, late = false;
    QObject guard;
    QTimer::singleShot(20000, &guard, [&] { late = true; });
    // A timer of its own each time: one whose work shows a further window does not come again meanwhile.
    const std::function<void()> look = [&] {
        QTimer::singleShot(5, &guard, look);
        auto* top = QApplication::activeModalWidget();
        if (!top) return;
        if (!done && !late)
            done = step(*top);
        else
            top->close();
    };
    QTimer::singleShot(0, &guard, look);
    open();
    QVERIFY(done);
}

/// One kind of finding and where its double click leads.
struct Kind {
    const char* name;
    const char* model;
    const char *file, *text;  ///< the damaged file
    int line, field;
    const char* form;
    int option;
    int row, col;       ///< of the grid; 0: a box
    const char* box;    ///< that has the focus
    const char* shown;  ///< its text
};

const std::string kFillTail = ",0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
const std::string kCutTail = ",0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0" + kFillTail;
const std::string kFill = "0,5,1.5,100,v,1.5" + kFillTail, kCut = "0,5,1.5,w,5,1.5" + kCutTail;

const Kind kKinds[] = {
    {"traverse", "交点法", "导线点参数.txt", "A,1,2,\r\nB,x,4,\r\n", 2, 2, "frmDxd", 0, 2, 2, "txtDxdInput", "x"},
    {"vertices", "交点法", "平曲线参数.txt", "0,0,0\r\nJ1,5000,1000,50,60,r\r\n10000,0\r\n", 2, 6, "frmJdpqx", 1, 1, 6,
     "txtJdpqxInput", "r"},
    {"start", "交点法", "平曲线参数.txt", "0,s,0\r\nJ1,5000,1000,50,60,2500\r\n10000,0\r\n", 1, 2, "frmJdpqx", 1, 0, 0,
     "txtJdpqxQdX", "s"},
    {"end", "交点法", "平曲线参数.txt", "0,0,0\r\nJ1,5000,1000,50,60,2500\r\n10000,e\r\n", 3, 2, "frmJdpqx", 1, 0, 0,
     "txtJdpqxZdy", "e"},
    {"blocks", "积木法", "平曲线参数.txt", "0,100,0,0,0,0,0\r\n100,200,100,0,y,0,0\r\n", 2, 5, "frmJmpqx", 1, 2, 5,
     "txtJmpqxInput", "y"},
    {"profile", "交点法", "竖曲线参数.txt", "0,100\r\n500,z,900\r\n1000,100\r\n", 2, 2, "frmSqx", 2, 1, 2,
     "txtSqxInput", "z"},
    {"slopes", "交点法", "超高参数.txt", "0,-2,-2,100,-2,-2\r\n100,-2,-2,200,c,-2\r\n", 2, 5, "frmCg", 3, 2, 5,
     "txtCgInput", "c"},
    {"widths", "交点法", "超高宽度参数.txt", "0,100,2,5,5,1,1,5,5,1,k,-4\r\n", 1, 11, "frmCgkd", 4, 1, 11,
     "txtCgkdInput", "k"},
    {"breaks", "交点法", "断链参数.txt", "100,120\r\n300,d\r\n", 2, 2, "frmDl", 5, 2, 2, "txtDlInput", "d"},
    {"a whole line", "交点法", "断链参数.txt", "100,120\r\n300,300\r\n", 2, 0, "frmDl", 5, 2, 1, "txtDlInput", "300"},
    {"left fill", "交点法", "左幅填方参数.txt", kFill.c_str(), 1, 5, "frmTfz", 7, 1, 5, "txtTfzInput", "v"},
    {"right fill", "交点法", "右幅填方参数.txt", kFill.c_str(), 1, 5, "frmTfy", 8, 1, 5, "txtTfyInput", "v"},
    {"left cut", "交点法", "左幅挖方参数.txt", kCut.c_str(), 1, 4, "frmWfz", 9, 1, 4, "txtWfzInput", "w"},
    {"right cut", "交点法", "右幅挖方参数.txt", kCut.c_str(), 1, 4, "frmWfy", 10, 1, 4, "txtWfyInput", "w"},
};

/// Row of the window that tells of the place.
int rowOf(const MSFlexGrid& grid, const char* file, int line, int field)
{
    const auto text = [](int value) { return value > 0 ? QString::number(value) : QString(); };
    for (int row = 1; row < grid.Rows(); ++row)
        if (grid.TextMatrix(row, 1) == QString::fromUtf8(file) && grid.TextMatrix(row, 2) == text(line) &&
            grid.TextMatrix(row, 3) == text(field))
            return row;
    return 0;
}

void doubleClick(MSFlexGrid& grid, int row)
{
    grid.scrollTo(grid.model()->index(row - 1, 4));
    const QPoint at = grid.viewport()->mapFrom(&grid, grid.cellRect(row, 5).topLeft()) + QPoint(20, 5);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

class tst_Check : public QObject {
    Q_OBJECT

private slots:
    void theLineSaysHowManyAfterOpening()
    {
        Workspace w;
        frmMain main;
        main.show();
        QVERIFY(!named<QLabel>(main, "lblViews").isVisible());  // nothing is open yet
        QCOMPARE(foundOf(main), QString());
        pressOpen(main);
        letItEnd(turnsOf(main));
        const QStringList told = w.command();
        QVERIFY(told.size() >= 3);
        QCOMPARE(foundOf(main), u"发现 %1 个问题"_s.arg(told.size()));
        QVERIFY(linksOf(main).contains(u"<a href=\"check\">参数检查&nbsp;(%1)</a>"_s.arg(told.size())));
        const auto& line = named<QuietLine>(main, "lblFound");
        QVERIFY(line.doubtful());  // a field is read as 0
        QCOMPARE(line.focusPolicy(), Qt::NoFocus);
    }

    void theBoxOfOpeningComesBeforeTheFirstTurn()
    {
        Workspace w;
        frmMain main;
        main.show();
        auto& turns = turnsOf(main);
        int boxes = 0;
        w.dialogs.onBox = [&] {
            ++boxes;
            QVERIFY(!turns.running());
        };
        pressOpen(main);
        QCOMPARE(boxes, 1);
        QVERIFY(turns.running());
        QCOMPARE(turns.turns(), 0);
    }

    void nothingIsSaidOfASoundProject()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "0,100\r\n500,101,900\r\n12000,100\r\n");
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        QCOMPARE(w.command(), QStringList(u"没有发现问题"_s));
        QCOMPARE(foundOf(main), QString());
        QVERIFY(linksOf(main).startsWith(u"<a href=\"check\">参数检查</a>"_s));
        QVERIFY(linksOf(main).contains(u"纵断面图"_s));
    }

    void aWarningIsGreyAndAnErrorAmber()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "0,100\r\n500,101,900\r\n1000,100\r\n");  // ends before the road
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        QCOMPARE(foundOf(main), u"发现 1 个问题"_s);
        QVERIFY(!named<QuietLine>(main, "lblFound").doubtful());
    }

    void enterInTheListChecksToo()
    {
        Workspace w;
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        list.setCurrentRow(0);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Return);
        letItEnd(turnsOf(main));
        QVERIFY(foundOf(main).startsWith(u"发现 "_s));
    }

    void longWorkTakesTurnsBetweenWhichTheProgramLives()
    {
        Workspace w;
        w.folder.write("超高参数.txt", manyRows());
        CheckTurns turns;
        int others = 0;
        QTimer other;
        connect(&other, &QTimer::timeout, [&] { ++others; });
        other.start(0);
        turns.start();
        letItEnd(turns);
        QVERIFY(turns.turns() > 3);
        QVERIFY2(others >= turns.turns() - 1, qPrintable(QString::number(others)));
        QCOMPARE(int(turns.found()->size()), int(CheckProject(ProjectPath(gProject)).size()));
    }

    void aPressDropsIt_data()
    {
        QTest::addColumn<int>("press");
        QTest::newRow("key") << 0;
        QTest::newRow("left button") << 1;
        QTest::newRow("right button") << 2;
        QTest::newRow("modifier alone") << 3;
    }

    void aPressDropsIt()
    {
        QFETCH(int, press);
        Workspace w;
        w.folder.write("超高参数.txt", manyRows());
        frmMain main;
        main.show();
        pressOpen(main);
        auto& turns = turnsOf(main);
        QVERIFY(turns.running());
        oneTurn(turns);
        QVERIFY(turns.running());
        auto& list = named<ListBox>(main, "lstProjects");
        if (press == 0) QTest::keyPress(&list, Qt::Key_Down);
        if (press == 1) QTest::mousePress(list.viewport(), Qt::LeftButton);
        if (press == 2) QTest::mousePress(list.viewport(), Qt::RightButton);
        if (press == 3) QTest::keyPress(&list, Qt::Key_Shift);
        QVERIFY(!turns.running());
        QTest::qWait(30);
        QVERIFY(!turns.running());
        QVERIFY(!turns.found());
        QCOMPARE(foundOf(main), QString());
        QVERIFY(linksOf(main).startsWith(u"<a href=\"check\">参数检查</a>"_s));
        pressOpen(main);  // comes again
        letItEnd(turns);
        QVERIFY(turns.found());
        QVERIFY(foundOf(main).startsWith(u"发现 "_s));
    }

    void whatIsNoPressLeavesIt()
    {
        Workspace w;
        w.folder.write("超高参数.txt", manyRows());
        frmMain main;
        main.show();
        pressOpen(main);
        auto& turns = turnsOf(main);
        oneTurn(turns);
        auto& list = named<ListBox>(main, "lstProjects");
        QTest::mouseMove(list.viewport(), {20, 30});
        QTest::keyRelease(&list, Qt::Key_Return);
        main.resize(main.width() + 20, main.height());
        QVERIFY(turns.running());
        letItEnd(turns);
        QVERIFY(turns.found());
    }

    void nothingElseMoves()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        auto& turns = turnsOf(main);
        QVERIFY(turns.running());
        const Shared before = shared;
        const auto files = allFiles(w.folder);
        const std::string project = gProject, path = gAppPath;
        const int loads = openRoad.loads;
        const auto boxes = w.dialogs.messages.size();
        const QString road = named<QLabel>(main, "lblRoad").text();
        const int row = named<ListBox>(main, "lstProjects").ListIndex();
        letItEnd(turns);
        QVERIFY(turns.found());
        QCOMPARE(differences(shared, before), "");
        QVERIFY(allFiles(w.folder) == files);
        QCOMPARE(gProject, project);
        QCOMPARE(gAppPath, path);
        QCOMPARE(openRoad.loads, loads);
        QCOMPARE(w.dialogs.messages.size(), boxes);
        QCOMPARE(w.dialogs.turns, 0);
        QCOMPARE(named<QLabel>(main, "lblRoad").text(), road);
        QCOMPARE(named<ListBox>(main, "lstProjects").ListIndex(), row);
    }

    void afterASaveItIsMadeAgain()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        auto& turns = turnsOf(main);
        letItEnd(turns);
        const auto before = turns.found()->size();
        w.folder.write("竖曲线参数.txt",
                       "0,100\r\n500,101,900\r\n12000,100\r\n");  // sound; the editor saves it as it is
        frmSqx editor;
        editor.show();
        w.dialogs.onBox = [&] { QVERIFY(!turns.running()); };
        click(editor, "cmdSqxSave");
        QCOMPARE(w.dialogs.messages.back().text, std::string("数据保存成功！"));
        QVERIFY(turns.running());
        letItEnd(turns);
        QVERIFY(before > 0);
        QCOMPARE(turns.found()->size(), size_t(0));
        QCOMPARE(foundOf(main), QString());
    }

    void aSaveThatIsRefusedChecksNothing()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        frmSqx editor;
        editor.show();
        type(editor, "txtSqxQdLc", "");
        click(editor, "cmdSqxSave");
        QVERIFY(!turnsOf(main).running());
    }

    void theWizardsWayBackLoadsAndChecks()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        w.folder.write("竖曲线参数.txt", "0,100\r\n500,101,900\r\n12000,100\r\n");
        useModal([&] { main.findChild<QAction*>(u"EditProject"_s)->trigger(); },
                 [](QWidget& wizard) { click(wizard, "cmdSelectBack"); });
        QVERIFY(turnsOf(main).running());
        letItEnd(turnsOf(main));
        QCOMPARE(foundOf(main), QString());
    }

    void theLineSpeaksOfTheProjectAtHand()
    {
        Workspace w;
        w.folder.project("空项目", {{kSettings, kSet}});
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        const QString told = foundOf(main);
        QVERIFY(!told.isEmpty());
        auto& list = named<ListBox>(main, "lstProjects");
        const auto convert = [&](int row) {
            list.setCurrentRow(row);
            useModal([&] { click(main, "butZh"); }, [](QWidget& dialog) { dialog.close(); });
        };
        convert(1);
        QCOMPARE(gProject, std::string("空项目"));
        QCOMPARE(foundOf(main), QString());  // nobody has looked at that one
        QVERIFY(linksOf(main).startsWith(u"<a href=\"check\">参数检查</a>"_s));
        convert(0);
        QCOMPARE(foundOf(main), told);
        // Another project is deleted, then this one.
        for (const int row : {1, 0}) {
            list.setCurrentRow(row);
            w.dialogs.yes();
            click(main, "cmdProjectsDel");
            QCOMPARE(foundOf(main), row == 1 ? told : QString());
        }
        QVERIFY(!linksOf(main).contains(u"参数检查"_s));
        QVERIFY(!turnsOf(main).running());
        // Nor is it told of a new project of that name.
        useModal([&] { click(main, "cmdNewProjects"); },
                 [](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "示例一");
                     click(dialog, "cmdNewProjectsOK");
                 });
        QCOMPARE(gProject, std::string("示例一"));
        QCOMPARE(foundOf(main), QString());
        QVERIFY(linksOf(main).startsWith(u"<a href=\"check\">参数检查</a>"_s));
    }

    void nothingMovesWhenFindingsAreTold()
    {
        Workspace w;
        frmMain main;
        main.show();
        const auto places = [&] {
            QList<QRect> all;
            for (auto* button : main.findChildren<XPButton*>()) all << button->geometry();
            return all;
        };
        const auto before = places();
        pressOpen(main);
        letItEnd(turnsOf(main));
        QVERIFY(!foundOf(main).isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(places(), before);
    }

    void theWindowSaysWhatTheCommandSays()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        const QStringList told = w.command();
        useModal([&] { emit named<QLabel>(main, "lblViews").linkActivated(u"check"_s); },
                 [&](QWidget& window) {
                     QCOMPARE(window.objectName(), u"frmJc"_s);
                     QCOMPARE(window.windowTitle(), u"参数检查"_s);
                     QCOMPARE(rowTexts(window), told);
                     QVERIFY(textOfLine(window).startsWith(u"“示例一”发现 %1 个问题"_s.arg(told.size())));
                     auto& grid = named<MSFlexGrid>(window, "MsfgJc");
                     const int back = rowOf(grid, "竖曲线参数.txt", 3, 1);
                     QCOMPARE(grid.TextMatrix(back, 4), u"100.000 米"_s);  // from 500 to 400
                     const int wrong = rowOf(grid, "竖曲线参数.txt", 2, 2);
                     QVERIFY(!grid.warning(wrong).isEmpty());
                     QVERIFY(grid.warning(back).isEmpty());
                     grid.setFocus();
                     grid.selectRow(wrong - 1);
                     QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
                     QVERIFY(QApplication::clipboard()->text().contains(u"“x”不是数字，按0处理"_s));
                     click(window, "cmdJcBack");
                     QVERIFY(!window.isVisible());
                 });
    }

    void byKeyboardAlone()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        letItEnd(turnsOf(main));
        auto& links = named<QLabel>(main, "lblViews");
        links.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&links, Qt::Key_Tab);
        bool seen = false;
        useModal([&] { QTest::keyClick(&links, Qt::Key_Return); },
                 [&](QWidget& window) {
                     seen = window.objectName() == u"frmJc"_s;
                     QTest::keyClick(&window, Qt::Key_Escape);
                     QVERIFY(!window.isVisible());
                 });
        QVERIFY(seen);
    }

    void theLinkMakesADroppedCheckAgain()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        QTest::keyPress(&named<ListBox>(main, "lstProjects"), Qt::Key_Down);
        QVERIFY(!turnsOf(main).found());
        watch([&] { emit named<QLabel>(main, "lblViews").linkActivated(u"check"_s); },
              [&](QWidget& window) {
                  if (!turnsOf(main).found()) return false;
                  return rowTexts(window) == w.command();
              });
        QVERIFY(foundOf(main).startsWith(u"发现 "_s));
    }

    void inItsWindowADroppedCheckBeginsAgain()
    {
        Workspace w;
        w.folder.write("超高参数.txt", manyRows());
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        bool pressed = false;
        watch([&] { window.showModal(); },
              [&](QWidget& top) {
                  if (pressed) return turns.found() && named<MSFlexGrid>(top, "MsfgJc").Rows() > 1;
                  if (!turns.running() || turns.turns() == 0) return false;
                  QTest::keyClick(&top, Qt::Key_Shift);
                  pressed = !turns.running();
                  return false;
              });
        QVERIFY(pressed);
    }

    void f5LooksAgain()
    {
        Workspace w;
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        letItEnd(turns);
        QVERIFY(named<MSFlexGrid>(window, "MsfgJc").Rows() > 1);
        w.folder.write("竖曲线参数.txt", "");
        QTest::keyClick(&named<MSFlexGrid>(window, "MsfgJc"), Qt::Key_F5);
        letItEnd(turns);
        QCOMPARE(named<MSFlexGrid>(window, "MsfgJc").Rows(), 1);
        QCOMPARE(textOfLine(window), u"“示例一”没有发现问题"_s);
        click(window, "cmdJcEdit");  // nothing to edit
        QVERIFY(w.dialogs.messages.empty());
    }

    void aDoubleClickOpensTheEditorAtThePlace_data()
    {
        QTest::addColumn<int>("kind");
        for (int i = 0; i < int(std::size(kKinds)); ++i) QTest::newRow(kKinds[i].name) << i;
    }

    void aDoubleClickOpensTheEditorAtThePlace()
    {
        QFETCH(int, kind);
        const Kind& k = kKinds[kind];
        Workspace w;
        w.folder.write(kSettings, std::string(k.model) + "\r\n线性\r\n1\r\n1\r\n12\r\n");
        if (k.model == std::string("积木法")) w.folder.write("平曲线参数.txt", "0,100,0,0,0,0,0\r\n");
        w.folder.write("竖曲线参数.txt", "");
        w.folder.write(k.file, k.text);
        LoadProject();
        gGridLeftDown = true;  // no rule of the mouse runs all the same
        const auto files = allFiles(w.folder);
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        letItEnd(turns);
        auto& grid = named<MSFlexGrid>(window, "MsfgJc");
        const int row = rowOf(grid, k.file, k.line, k.field);
        QVERIFY2(row > 0, qPrintable(rowTexts(window).join(u'\n')));

        int rows = 0;
        watch([&] { doubleClick(grid, row); },
              [&](QWidget& top) {
                  auto* editor = qobject_cast<EditorForm*>(&top);
                  auto* focus = editor ? editor->focusWidget() : nullptr;
                  if (!focus || focus->objectName() != QString::fromUtf8(k.box)) return false;
                  if (editor->objectName() != QString::fromUtf8(k.form)) return false;
                  const auto* wizard = qobject_cast<frmSelect*>(editor->parentWidget());
                  if (!wizard || !wizard->isVisible()) return false;
                  const auto name = u"optCs%1"_s.arg(k.option);
                  if (!wizard->findChild<QRadioButton*>(name)->isChecked()) return false;
                  auto* box = qobject_cast<QLineEdit*>(focus);
                  if (box->text() != QString::fromUtf8(k.shown) || !box->isVisible()) return false;
                  auto* cells = editor->findChild<MSFlexGrid*>();
                  if (k.row > 0 && (editor->CurRow != k.row || editor->CurCol != k.col || cells->Row() != k.row ||
                                    cells->Col() != k.col || !editor->Edited))
                      return false;
                  if (k.row == 0 && (editor->CurRow != 0 || editor->Edited)) return false;
                  rows = cells->Rows();
                  if (editor->Edited) w.dialogs.no();  // entering a cell counts as an edit
                  editor->close();
                  return true;
              });
        const auto lines = std::string_view(k.text);
        const auto count = int(std::count(lines.begin(), lines.end(), '\n'));
        QCOMPARE(rows, 1 + count - (k.form == std::string("frmJdpqx") || k.form == std::string("frmSqx") ? 2 : 0));
        QVERIFY(allFiles(w.folder) == files);
    }

    void enterAndTheButtonDoTheSame()
    {
        Workspace w;
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        letItEnd(turns);
        auto& grid = named<MSFlexGrid>(window, "MsfgJc");
        const int row = rowOf(grid, "竖曲线参数.txt", 2, 2);
        for (const bool byKey : {true, false}) {
            watch(
                [&] {
                    grid.setRow(row);
                    grid.setFocus();
                    if (byKey)
                        QTest::keyClick(&grid, Qt::Key_Return);
                    else
                        click(window, "cmdJcEdit");
                },
                [&](QWidget& top) {
                    auto* editor = qobject_cast<EditorForm*>(&top);
                    if (!editor || editor->CurRow != 1 || editor->CurCol != 2) return false;
                    w.dialogs.no();
                    editor->close();
                    return true;
                });
            letItEnd(turns);
        }
    }

    void whatIsSavedThereIsGoneFromTheList()
    {
        Workspace w;
        frmMain main;
        main.show();
        pressOpen(main);
        auto& turns = turnsOf(main);
        letItEnd(turns);
        bool saved = false;
        int left = -1;
        watch([&] { emit named<QLabel>(main, "lblViews").linkActivated(u"check"_s); },
              [&](QWidget& top) {
                  if (top.objectName() == u"frmJc"_s && !saved) {
                      auto& grid = named<MSFlexGrid>(top, "MsfgJc");
                      if (const int row = rowOf(grid, "竖曲线参数.txt", 2, 2)) doubleClick(grid, row);
                  } else if (auto* editor = qobject_cast<EditorForm*>(&top); editor && !saved && editor->CurRow == 1) {
                      named<QLineEdit>(*editor, "txtSqxInput").setText(u"102"_s);
                      saved = true;
                      click(*editor, "cmdSqxSave");
                      editor->close();
                  } else if (saved && top.objectName() == u"frmSelect"_s) {
                      click(top, "cmdSelectBack");
                  } else if (saved && top.objectName() == u"frmJc"_s && !turns.running()) {
                      auto& grid = named<MSFlexGrid>(top, "MsfgJc");
                      if (rowOf(grid, "竖曲线参数.txt", 2, 2) != 0) return false;
                      left = grid.Rows() - 1;
                      return true;
                  }
                  return false;
              });
        letItEnd(turns);
        QCOMPARE(left, int(turns.found()->size()));
        QCOMPARE(foundOf(main), u"发现 %1 个问题"_s.arg(left));
        QCOMPARE(w.folder.text("竖曲线参数.txt"), std::string("0,100\r\n500,102,900\r\n400,100,900\r\n1000,100\r\n"));
    }

    void aFindingWithoutARowOpensTheEditorAlone()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "");
        w.folder.write("超高参数.txt", "0,0.02,0.02,10500,0.02,0.02\r\n");  // ratios: told of the whole file
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        letItEnd(turns);
        auto& grid = named<MSFlexGrid>(window, "MsfgJc");
        const int row = rowOf(grid, "超高参数.txt", 0, 0);
        QVERIFY(row > 0);
        int ticks = 0;
        watch([&] { doubleClick(grid, row); },
              [&](QWidget& top) {
                  auto* editor = qobject_cast<EditorForm*>(&top);
                  if (!editor || ++ticks < 5) return false;  // what it would do is done by then
                  const bool alone = editor->objectName() == u"frmCg"_s && editor->CurRow == 0 && !editor->Edited;
                  editor->close();
                  return alone;
              });
    }

    void theSettingsOpenWhatEditsThem()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "");
        w.folder.write(kSettings, "abc\r\n线性\r\n9\r\n1\r\n12\r\n");
        w.folder.write("平曲线参数.txt", "0,100,0,0,0,0,0\r\n");
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        letItEnd(turns);
        auto& grid = named<MSFlexGrid>(window, "MsfgJc");
        const int model = rowOf(grid, kSettings, 1, 0), grades = rowOf(grid, kSettings, 3, 0);
        QVERIFY2(model > 0 && grades > 0, qPrintable(rowTexts(window).join(u'\n')));
        doubleClick(grid, model);
        QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &window);
        QCOMPARE(textOfLine(window), u"其他参数.txt 的这一处没有编辑窗口"_s);
        watch([&] { doubleClick(grid, grades); },
              [&](QWidget& top) {
                  auto* form = qobject_cast<frmBpjs*>(&top);
                  if (!form || !form->focusWidget()) return false;
                  const bool there = form->focusWidget()->objectName() == u"txtTfJs"_s;
                  named<QLineEdit>(*form, "txtTfJs").setText(u"2"_s);
                  click(*form, "cmdPdjsCancel");
                  return there;
              });
    }

    void aSlopeWithoutGradesIsAnsweredAsTheWizardDoes()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "");
        w.folder.write(kSettings, "交点法\r\n线性\r\n未设置\r\n未设置\r\n未设置\r\n");
        w.folder.write("左幅填方参数.txt", kFill);
        LoadProject();
        CheckTurns turns;
        frmJc window(turns);
        window.show();
        letItEnd(turns);
        auto& grid = named<MSFlexGrid>(window, "MsfgJc");
        const int row = rowOf(grid, "左幅填方参数.txt", 1, 5);
        QVERIFY(row > 0);
        watch([&] { doubleClick(grid, row); },
              [&](QWidget& top) {
                  if (!qobject_cast<frmBpjs*>(&top)) return false;
                  top.close();
                  return true;
              });
        QCOMPARE(w.dialogs.messages.front().text, std::string("请先设置最大边坡级数！"));
    }

private:
    static QString textOfLine(const QWidget& window) { return named<QuietLine>(window, "lblJc").text(); }
};

VM_QT_TEST(tst_Check)
#include "tst_Check.moc"
