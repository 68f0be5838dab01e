// The grey line that names the road, in every window that computes with it or edits it.

#include "app/MenuCommands.h"
#include "app/frmMain.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmSelect.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfz.h"
#include "project/LoadProject.h"
#include "screens/windows/RoadLine.h"
#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmZdcs.h"
#include "support/ProjectFolder.h"
#include "support/QtTests.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"
#include "support/Windows.h"
#include "ui/MSFlexGrid.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QImage>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const std::initializer_list<ProjectFolder::File> kStraight{
    {"其他参数.txt", "积木法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "12000,18553.408,10,20,30,0,0\r\n"},
};
const QString kRoad = u"当前项目：示例一　K12+000.000～K18+553.408　积木法"_s;
const QString kMixed = u"计算用“示例一”的数据，编辑和表头是“空项目”"_s;

struct Workspace {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder;

    Workspace() : folder(kStraight, "示例一") {}
};

RoadLine& line(const QWidget& window) { return named<RoadLine>(window, "lblRoad"); }

template <class Window>
void hasTheLine()
{
    Window window;
    window.show();
    QVERIFY(line(window).isVisible());
    QCOMPARE(line(window).text(), kRoad);
    QCOMPARE(line(window).toolTip(), kRoad);
    QCOMPARE(line(window).focusPolicy(), Qt::NoFocus);
    QVERIFY(!line(window).doubtful());
}

/// Tool tip of a row computed now, and its texts.
QString tipOfRow(Workspace& w, QString* texts = nullptr)
{
    frmDgdZb window;
    window.show();
    type(window, "txtDgdZbFylc", "12100");
    click(window, "butDgdCalc");
    const auto& grid = named<MSFlexGrid>(window, "MsfgDgdzb");
    for (int col = 0; texts && col < grid.Cols(); ++col) *texts += grid.TextMatrix(1, col) + u'|';
    w.dialogs.no();
    window.close();
    return grid.doubt(1, 6);  // X: nothing else than the road is doubtful there
}

/// Colour of the line left of its text.
QColor ground(const QWidget& window) { return line(window).grab().toImage().pixelColor(1, 1); }

}  // namespace

class tst_RoadLine : public QObject {
    Q_OBJECT

private slots:
    void nothingIsOpenAtFirst()
    {
        const Workspace w;
        frmMain main;
        main.show();
        QCOMPARE(line(main).text(), u"尚未打开项目"_s);
        QVERIFY(!line(main).doubtful());
    }

    void openingNamesTheRoad()
    {
        const Workspace w;
        frmMain main;
        main.show();
        named<ListBox>(main, "lstProjects").setCurrentRow(0);
        click(main, "cmdOpenProjects");
        QCOMPARE(line(main).text(), kRoad);
        QVERIFY(ground(main) != theme::kAmber);
    }

    void besideItAreTheWaysToSeeTheRoad()
    {
        const Workspace w;
        frmMain main;
        main.show();
        auto& views = named<QLabel>(main, "lblViews");
        QVERIFY(!views.isVisible());  // nothing is open yet
        named<ListBox>(main, "lstProjects").setCurrentRow(0);
        click(main, "cmdOpenProjects");
        QVERIFY(views.isVisible());
        QVERIFY(views.geometry().top() >= line(main).geometry().bottom());
        for (const auto& [key, name] : {std::pair{"plan", "frmPmt"}, {"profile", "frmZdm"}, {"section", "frmHdm"}}) {
            QString seen;
            QTimer::singleShot(200, &main, [&] {
                auto* view = QApplication::activeModalWidget();
                if (!view) return;
                seen = view->objectName();
                view->close();
            });
            emit views.linkActivated(QString::fromUtf8(key));
            QCOMPARE(seen, QString::fromUtf8(name));
        }
        // By keyboard alone, too: Tab steps through the links, Enter follows one.
        QString seen;
        QTimer::singleShot(400, &main, [&] {
            if (auto* view = QApplication::activeModalWidget()) seen = view->objectName(), view->close();
        });
        views.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&views, Qt::Key_Tab);
        QTest::keyClick(&views, Qt::Key_Return);
        QVERIFY(!seen.isEmpty());
    }

    void everyWindowOfTheRoadHasIt()
    {
        const Workspace w;
        LoadProject();
        int windows = 0;
        frmMain main;
        main.show();
        for (const auto& command : menuCommands()) {
            const QString name = QString::fromUtf8(command.name);
            if (!command.open || name == u"sysm") continue;
            const bool ofTheRoad = command.needsProject;
            useModal([&] { command.open(&main); },
                     [&](QWidget& window) {
                         ++windows;
                         auto* found = window.findChild<RoadLine*>(u"lblRoad"_s);
                         QCOMPARE(found != nullptr, ofTheRoad);
                         if (!found) return;
                         QCOMPARE(found->text(), kRoad);
                         QVERIFY(found->isVisible());
                     });
        }
        QVERIFY(windows > 8);
        hasTheLine<frmZdcs>();
        hasTheLine<frmSelect>();
        hasTheLine<frmJdpqx>();
        hasTheLine<frmSqx>();
        hasTheLine<frmCg>();
        hasTheLine<frmDxd>();
        hasTheLine<frmTfz>();
    }

    void amberWhereAnotherProjectIsNamed()
    {
        const Workspace w;
        LoadProject();
        gProject = "空项目";
        frmMain main;
        main.show();
        QCOMPARE(line(main).text(), kMixed);
        QCOMPARE(ground(main), theme::kAmber);
        frmSqx editor;
        editor.show();
        QCOMPARE(line(editor).text(), kMixed);
        QVERIFY(line(editor).doubtful());
    }

    void convertingAndCreatingSetTheNameWithoutALoad()
    {
        Workspace w;
        LoadProject();
        w.folder.project("另一", {});
        frmMain main;
        main.show();
        named<ListBox>(main, "lstProjects").setCurrentRow(1);
        useModal([&] { click(main, "butZh"); }, [](QWidget& dialog) { dialog.close(); });
        QCOMPARE(line(main).text(), u"计算用“示例一”的数据，编辑和表头是“另一”"_s);
        useModal([&] { click(main, "cmdNewProjects"); },
                 [](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "空项目");
                     click(dialog, "cmdNewProjectsOK");
                 });
        QCOMPARE(line(main).text(), kMixed);
        QVERIFY(line(main).doubtful());
    }

    void aNewProjectOfADeletedNameIsAnotherRoad()
    {
        Workspace w;
        LoadProject();
        frmMain main;
        main.show();
        named<ListBox>(main, "lstProjects").setCurrentRow(0);
        w.dialogs.yes();
        click(main, "cmdProjectsDel");
        useModal([&] { click(main, "cmdNewProjects"); },
                 [](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "示例一");
                     click(dialog, "cmdNewProjectsOK");
                 });
        QCOMPARE(line(main).text(), u"计算用“示例一（已删除）”的数据，编辑和表头是“示例一”"_s);
        QVERIFY(line(main).doubtful());
    }

    void aNewProjectIsScrolledIntoSightAndTheSelectionStays()
    {
        Workspace w;
        for (int i = 0; i < 60; ++i) w.folder.project("项目" + std::to_string(i), {});
        frmMain main;
        main.show();
        auto& list = named<ListBox>(main, "lstProjects");
        list.setCurrentRow(2);
        useModal([&] { click(main, "cmdNewProjects"); },
                 [](QWidget& dialog) {
                     type(dialog, "txtNewProjects", "最新");
                     click(dialog, "cmdNewProjectsOK");
                 });
        QCOMPARE(list.ListIndex(), 2);
        const auto* last = list.item(list.count() - 1);
        QCOMPARE(last->text(), u"最新"_s);
        QVERIFY(list.viewport()->rect().contains(list.visualItemRect(last)));
    }

    void rowsOfAnotherRoadAreAmber()
    {
        Workspace w;
        LoadProject();
        QCOMPARE(tipOfRow(w), QString());
        w.folder.project("空项目", {{"其他参数.txt", "积木法\r\n"}});
        LoadProject();
        QCOMPARE(tipOfRow(w), u"此项目没有平曲线参数，沿用“示例一”的数据"_s);
    }

    void rowsOfAFileThatChangedAreAmber()
    {
        Workspace w;
        LoadProject();
        w.folder.write("平曲线参数.txt", "12000,18000,10,20,30,0,0\r\n");
        QCOMPARE(tipOfRow(w), u"平曲线参数.txt 已修改，尚未重新读入"_s);
        LoadProject();
        QCOMPARE(tipOfRow(w), QString());
    }

    void anElevationHangsOnTheProfileAndAPointDoesNot()
    {
        Workspace w;
        w.folder.write("竖曲线参数.txt", "12000,10\r\n13000,12,900\r\n18000,11\r\n");
        LoadProject();
        w.folder.write("竖曲线参数.txt", "12000,20\r\n13000,12,900\r\n18000,11\r\n");
        QCOMPARE(tipOfRow(w), QString());
        frmDgdGc window;
        window.show();
        type(window, "txtDgdGcFylc", "12100");
        click(window, "butDgdGcCalc");
        QCOMPARE(named<MSFlexGrid>(window, "MsfgDgdGc").doubt(1, 3), u"竖曲线参数.txt 已修改，尚未重新读入"_s);
        w.dialogs.no();
        window.close();
    }

    void theTextsOfARowAreTheSameWithAndWithoutADoubt()
    {
        Workspace w;
        LoadProject();
        QString plain, doubted;
        tipOfRow(w, &plain);
        const Shared after = shared;
        w.folder.write("平曲线参数.txt", "");
        QVERIFY(!tipOfRow(w, &doubted).isEmpty());
        QCOMPARE(doubted, plain);
        QCOMPARE(differences(shared, after), "");
    }

    void aLongLineDoesNotWidenItsWindow()
    {
        const Workspace w;
        LoadProject();
        frmMain main;
        main.show();
        const int width = main.minimumSizeHint().width();
        line(main).say(QString(500, u'长'), true);
        QCOMPARE(main.minimumSizeHint().width(), width);
        QCOMPARE(line(main).toolTip().size(), 500);
    }
};

VM_QT_TEST(tst_RoadLine)
#include "tst_RoadLine.moc"
